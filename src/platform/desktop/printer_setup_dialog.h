#pragma once

#include "platform/desktop/printer.h"

#include <QDialog>
#include <vector>

class QComboBox;
class QRadioButton;

namespace platform {

// A printer that can be chosen, and the papers that it takes, its own one first.
struct InstalledPrinter {
    QString name;
    QString description;
    QList<QPageSize> papers;
};

// Those of the desktop, the default one first.
std::vector<InstalledPrinter> InstalledPrinters();

// The papers of a PDF file; the usual one of the country first. Never empty.
QList<QPageSize> PdfPapers();

// Chooses the current printer, its paper and how the paper lies. A PDF file can be chosen in a printer's
// place.
class PrinterSetupDialog final : public QDialog {
    Q_OBJECT

public:
    // Shows `settings`; a printer or paper that is not offered counts as the first that is.
    PrinterSetupDialog(std::vector<InstalledPrinter> printers, const PrinterSettings& settings,
                       QWidget* parent);

    PrinterSettings Settings() const;

private:
    QWidget* BuildPrinter();
    QWidget* BuildPaper();
    void ShowSettings(const PrinterSettings& settings);
    void FillPapers();
    bool IsPdf() const;
    const QList<QPageSize>& Papers() const; // of the printer chosen

    std::vector<InstalledPrinter> m_printers;
    QList<QPageSize> m_pdfPapers;
    QComboBox* m_printer;
    QComboBox* m_paper;
    QRadioButton* m_portrait;
    QRadioButton* m_landscape;
};

} // namespace platform
