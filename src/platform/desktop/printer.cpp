#include "platform/desktop/printer.h"

#include "platform/desktop/printer_setup_dialog.h"
#include "platform/twips.h"

#include <QApplication>
#include <QFileDialog>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

namespace platform {

namespace {

// Exactly as the paper is defined: in the other units Qt rounds the lengths of a page.
QSize PaperInTwips(const QPageLayout& layout) {
    const QPageSize& paper = layout.pageSize();
    double twips = kTwipsPerInch;
    QSizeF size = paper.size(QPageSize::Inch);
    if (paper.definitionUnits() == QPageSize::Millimeter) {
        twips = kTwipsPerInch / 25.4;
        size = paper.definitionSize();
    } else if (paper.definitionUnits() == QPageSize::Point) {
        twips = kTwipsPerInch / 72;
        size = paper.definitionSize();
    }
    const QSize portrait(qRound(size.width() * twips), qRound(size.height() * twips));
    return layout.orientation() == QPageLayout::Landscape ? portrait.transposed() : portrait;
}

} // namespace

Printer::Printer(const QString& application)
    : m_application(application) {}

Printer::~Printer() {
    EndDoc();
}

bool Printer::Print(const QString& text) {
    if (!m_painter && !m_failed)
        m_failed = !Open();
    QPainter* painter = DeviceContext();
    if (!painter)
        return false;
    if (!text.trimmed().isEmpty())
        painter->drawText(QPointF(0, painter->fontMetrics().ascent()), text);
    return true;
}

QPainter* Printer::DeviceContext() {
    return m_painter && !HasFailed() ? m_painter.get() : nullptr;
}

bool Printer::HasFailed() const {
    return m_failed || (m_file && m_file->error() != QFileDevice::NoError);
}

PrinterPage Printer::Page() const {
    if (!m_device)
        return {};
    const QPageLayout layout = m_device->pageLayout();
    const QPoint dots(m_device->logicalDpiX(), m_device->logicalDpiY());
    const QRect reached = layout.paintRectPixels(dots.x());
    return {PaperInTwips(layout),
            {qRound(double(reached.width()) * kTwipsPerInch / dots.x()),
             qRound(double(reached.height()) * kTwipsPerInch / dots.x())},
            reached.topLeft(),
            dots};
}

bool Printer::NewPage() {
    if (!DeviceContext())
        return false;
    m_failed = !m_device->newPage();
    return !HasFailed();
}

bool Printer::EndDoc() {
    bool done = m_painter && m_painter->end() && !m_failed;
    m_painter.reset();
    m_device.reset(); // writes the end of a PDF
    if (m_file) {
        done = done && m_file->flush(); // commit() would not see that it fails
        if (!done)
            m_file->cancelWriting();
        done = m_file->commit() && done;
        m_file.reset();
    }
    m_failed = false;
    return done;
}

bool Printer::ShowSetup(QWidget* parent) {
    PrinterSetupDialog dialog(InstalledPrinters(), m_settings, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    m_settings = dialog.Settings();
    return true;
}

QString Printer::AskForFile() {
    QString name =
        QFileDialog::getSaveFileName(QApplication::activeWindow(), QFileDialog::tr("Print to a PDF File"),
                                     QString(), QFileDialog::tr("PDF Files (*.pdf)"));
    if (!name.isEmpty() && !name.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive))
        name += QLatin1String(".pdf");
    return name;
}

QString Printer::DefaultPrinter() const {
    const QString name = QPrinterInfo::defaultPrinterName();
    return name.isEmpty() ? QPrinterInfo::availablePrinterNames().value(0) : name;
}

bool Printer::Open() {
    if (!(m_settings.toPdf ? OpenPdf() : OpenPrinter()))
        return false;
    m_painter = std::make_unique<QPainter>();
    return m_painter->begin(m_device.get());
}

bool Printer::OpenPdf() {
    const QString name = AskForFile();
    if (name.isEmpty())
        return false;
    m_file = std::make_unique<QSaveFile>(name);
    if (!m_file->open(QIODevice::WriteOnly))
        return false;
    auto pdf = std::make_unique<QPdfWriter>(m_file.get());
    pdf->setTitle(m_application);
    pdf->setCreator(m_application);
    const QPageSize paper = m_settings.paper.isValid() ? m_settings.paper : PdfPapers().first();
    pdf->setPageLayout(QPageLayout(paper, m_settings.orientation, PdfBorder(), QPageLayout::Point));
    m_device = std::move(pdf);
    return true;
}

bool Printer::OpenPrinter() {
    const QString name = m_settings.name.isEmpty() ? DefaultPrinter() : m_settings.name;
    const QPrinterInfo info = QPrinterInfo::printerInfo(name);
    if (info.isNull())
        return false;
    auto printer = std::make_unique<QPrinter>(info, QPrinter::HighResolution);
    printer->setDocName(m_application);
    printer->setCreator(m_application);
    if (m_settings.paper.isValid())
        printer->setPageSize(m_settings.paper);
    printer->setPageOrientation(m_settings.orientation);
    printer->setPageMargins(printer->pageLayout().minimumMargins(), printer->pageLayout().units());
    m_device = std::move(printer);
    return true;
}

} // namespace platform
