#pragma once

#include "platform/services.h"

#include <QPageLayout>
#include <QPageSize>
#include <memory>

class QPagedPaintDevice;
class QSaveFile;

namespace platform {

// Which printer is the current one, and how its paper lies in it.
struct PrinterSettings {
    QString name;       // as the desktop calls it; empty: the default printer
    bool toPdf = false; // a PDF file instead, whose name is asked for with each job
    QPageSize paper;    // not valid: the printer's own
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
};

// The desktop's printers, and printing to a PDF file.
class Printer : public PrinterService {
public:
    // `application` names the jobs.
    explicit Printer(const QString& application);
    ~Printer() override;

    bool Print(const QString& text) override;
    QPainter* DeviceContext() override;
    PrinterPage Page() const override;
    bool NewPage() override;
    bool EndDoc() override;
    bool ShowSetup(QWidget* parent) override;

    const PrinterSettings& Settings() const { return m_settings; }
    // For the jobs that are opened from now on.
    void SetSettings(const PrinterSettings& settings) { m_settings = settings; }

protected:
    // The job takes nothing more, and leaves no file.
    void Fail() { m_failed = true; }
    // Asks the user for the PDF file of a job; empty when cancelled.
    virtual QString AskForFile();
    // The printer that a job of no name goes to; empty when none is installed.
    virtual QString DefaultPrinter() const;
    // The border of a PDF page on which nothing can be printed, in points. None.
    virtual QMarginsF PdfBorder() const { return {}; }

private:
    bool Open();
    bool OpenPdf();
    bool OpenPrinter();
    bool HasFailed() const;

    QString m_application;
    PrinterSettings m_settings;
    bool m_failed = false; // the job takes nothing more
    std::unique_ptr<QSaveFile> m_file;
    std::unique_ptr<QPagedPaintDevice> m_device; // writes into the file
    std::unique_ptr<QPainter> m_painter;         // draws on the device
};

} // namespace platform
