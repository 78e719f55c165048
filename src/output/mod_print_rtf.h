// modPrintRTF: the program's own printing of a pane, without a word processor.
#pragma once

#include <QRect>

namespace platform {
class PrinterService;
class RichTextBox;
struct PrinterPage;
} // namespace platform

namespace quillbrook {

// Widths in twips, measured from the edges of the paper.
struct PrintMargins {
    int left;
    int top;
    int right;
    int bottom;
};

// Where a printer's failures would be told; nothing shows it.
constexpr char kPrinterErrorTitle[] = "Printer Error";
constexpr char kPrinterErrorText[] = "Make sure that you have a printer installed.  If a "
                                     "printer is installed, go into your printer properties "
                                     "look under the Setup tab, and make sure the ICM checkbox "
                                     "is checked and try printing again.";

// The part of the page that text goes into, in twips from the corner of the part that the printer reaches.
QRect PrintRectangle(const platform::PrinterPage& page, const PrintMargins& margins);

// Prints the text of the pane, as many pages as it takes. A step that the printer refuses is passed over, and
// nothing is said.
void PrintRTF(platform::RichTextBox& pane, platform::PrinterService& printer, const PrintMargins& margins);

} // namespace quillbrook
