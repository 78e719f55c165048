#include "output/mod_print_rtf.h"

#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"
#include "platform/twips.h"

#include <QPainter>

namespace quillbrook {

namespace {

int ToTwips(int pixels, int dotsPerInch) {
    return dotsPerInch > 0 ? qRound(double(pixels) * platform::kTwipsPerInch / dotsPerInch) : 0;
}

// Renders one page, and gives where the text goes on. A printer that fails takes all the rest.
int FormatRange(platform::RichTextBox& pane, platform::PrinterService& printer, const QRect& rectangle,
                int start) {
    QPainter none;
    QPainter* device = printer.DeviceContext();
    return pane.FormatRange(device ? *device : none, rectangle, start, true);
}

} // namespace

QRect PrintRectangle(const platform::PrinterPage& page, const PrintMargins& margins) {
    const int leftOffset = ToTwips(page.offset.x(), page.dotsPerInch.x());
    const int topOffset = ToTwips(page.offset.y(), page.dotsPerInch.y());
    // the offset comes off each, as all four count from the corner of the printable part
    const int left = margins.left - leftOffset;
    const int top = margins.top - topOffset;
    const int right = page.paper.width() - margins.right - leftOffset;
    const int bottom = page.paper.height() - margins.bottom - topOffset;
    return {left, top, right - left, bottom - top};
}

void PrintRTF(platform::RichTextBox& pane, platform::PrinterService& printer, const PrintMargins& margins) {
    const QString blank = QStringLiteral(" ");
    printer.Print(blank); // opens the job
    const QRect rectangle = PrintRectangle(printer.Page(), margins);
    const auto length = int(pane.Text().size());
    int start = 0;
    for (;;) {
        const int next = FormatRange(pane, printer, rectangle, start);
        // the second test ends the loop wherever the box counts fewer positions than its text has
        if (next >= length || next <= start)
            break;
        start = next;
        printer.NewPage();
        printer.Print(blank);
    }
    printer.EndDoc();
    pane.FormatRangeRelease();
}

} // namespace quillbrook
