#include "platform/desktop/printer_setup_dialog.h"

#include "platform/controls/frame.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace platform {

namespace {

constexpr int kGap = 8;
constexpr int kInside = 12;
constexpr int kListWidth = 260;

Frame* MakeFrame(const QString& caption, const char* name) {
    auto* frame = new Frame(caption);
    frame->setObjectName(QLatin1String(name));
    return frame;
}

// The labels of both frames are of one width, so that the lists stand below each other.
void AddRow(QFormLayout* form, const QString& caption, QWidget* list) {
    auto* label = new QLabel(caption);
    const QFontMetrics metrics = label->fontMetrics();
    label->setMinimumWidth(std::max(metrics.horizontalAdvance(PrinterSetupDialog::tr("Name:")),
                                    metrics.horizontalAdvance(PrinterSetupDialog::tr("Size:"))) +
                           kGap / 2);
    label->setBuddy(list);
    form->addRow(label, list);
}

template <class Control>
Control* Named(Control* control, const char* name, const QString& accessibleName) {
    control->setObjectName(QLatin1String(name));
    control->setAccessibleName(accessibleName);
    return control;
}

} // namespace

std::vector<InstalledPrinter> InstalledPrinters() {
    std::vector<InstalledPrinter> printers;
    const QString first = QPrinterInfo::defaultPrinterName();
    for (const QPrinterInfo& info : QPrinterInfo::availablePrinters()) {
        QList<QPageSize> papers = info.supportedPageSizes();
        papers.removeAll(info.defaultPageSize());
        papers.prepend(info.defaultPageSize());
        InstalledPrinter printer{info.printerName(), info.description(), papers};
        printers.insert(printer.name == first ? printers.begin() : printers.end(), std::move(printer));
    }
    return printers;
}

QList<QPageSize> PdfPapers() {
    const QPageSize letter(QSizeF(8.5, 11), QPageSize::Inch, QStringLiteral("Short (8.5 x 11 in)"));
    const QPageSize a4(QSizeF(210, 297), QPageSize::Millimeter, QStringLiteral("A4 (210 x 297 mm)"));
    const QPageSize folio(QSizeF(8.5, 13), QPageSize::Inch, QStringLiteral("Long (8.5 x 13 in)"));
    const QPageSize legal(QSizeF(8.5, 14), QPageSize::Inch, QStringLiteral("Legal (8.5 x 14 in)"));
    const bool inches = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return inches ? QList{letter, folio, legal, a4} : QList{a4, letter, folio, legal};
}

PrinterSetupDialog::PrinterSetupDialog(std::vector<InstalledPrinter> printers,
                                       const PrinterSettings& settings, QWidget* parent)
    : QDialog(parent)
    , m_printers(std::move(printers))
    , m_pdfPapers(PdfPapers()) {
    setWindowTitle(tr("Print Setup"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kInside, kInside, kInside, kInside);
    column->setSpacing(kGap);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(BuildPrinter());
    column->addWidget(BuildPaper());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("btnOk"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("btnCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    connect(m_printer, &QComboBox::currentIndexChanged, this, &PrinterSetupDialog::FillPapers);
    ShowSettings(settings);
    m_printer->setFocus();
}

QWidget* PrinterSetupDialog::BuildPrinter() {
    Frame* frame = MakeFrame(tr("Printer"), "fmePrinter");
    auto* form = new QFormLayout(frame);
    form->setContentsMargins(kInside, kInside, kInside, kInside);
    m_printer = Named(new QComboBox, "cboPrinter", tr("Printer"));
    m_printer->setMinimumWidth(kListWidth);
    for (const InstalledPrinter& printer : m_printers)
        m_printer->addItem(printer.description.isEmpty() ? printer.name : printer.description);
    m_printer->addItem(tr("PDF file"));
    AddRow(form, tr("&Name:"), m_printer);
    return frame;
}

QWidget* PrinterSetupDialog::BuildPaper() {
    Frame* frame = MakeFrame(tr("Paper"), "fmePaper");
    auto* form = new QFormLayout(frame);
    form->setContentsMargins(kInside, kInside, kInside, kInside);
    form->setVerticalSpacing(kGap);
    m_paper = Named(new QComboBox, "cboPaper", tr("Paper size"));
    m_paper->setMinimumWidth(kListWidth);
    AddRow(form, tr("&Size:"), m_paper);
    m_portrait = Named(new QRadioButton(tr("&Portrait")), "optPortrait", tr("Portrait"));
    m_landscape = Named(new QRadioButton(tr("&Landscape")), "optLandscape", tr("Landscape"));
    auto* row = new QHBoxLayout;
    row->setSpacing(kInside);
    row->addWidget(m_portrait);
    row->addWidget(m_landscape);
    row->addStretch();
    form->addRow(row);
    return frame;
}

void PrinterSetupDialog::ShowSettings(const PrinterSettings& settings) {
    int index = settings.toPdf ? int(m_printers.size()) : 0;
    for (std::size_t i = 0; !settings.toPdf && i < m_printers.size(); ++i)
        if (m_printers[i].name == settings.name)
            index = int(i);
    m_printer->setCurrentIndex(index);
    FillPapers();
    m_paper->setCurrentIndex(std::max(0, int(Papers().indexOf(settings.paper))));
    (settings.orientation == QPageLayout::Landscape ? m_landscape : m_portrait)->setChecked(true);
}

void PrinterSetupDialog::FillPapers() {
    m_paper->clear();
    for (const QPageSize& paper : Papers())
        m_paper->addItem(paper.name());
}

bool PrinterSetupDialog::IsPdf() const {
    return m_printer->currentIndex() >= int(m_printers.size());
}

const QList<QPageSize>& PrinterSetupDialog::Papers() const {
    return IsPdf() ? m_pdfPapers : m_printers[std::size_t(std::max(0, m_printer->currentIndex()))].papers;
}

PrinterSettings PrinterSetupDialog::Settings() const {
    PrinterSettings settings;
    settings.toPdf = IsPdf();
    if (!settings.toPdf)
        settings.name = m_printers[std::size_t(std::max(0, m_printer->currentIndex()))].name;
    settings.paper = Papers().value(m_paper->currentIndex());
    settings.orientation = m_landscape->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait;
    return settings;
}

} // namespace platform
