#include "search/paint_marks.h"

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_box.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

namespace quillbrook {
namespace {

// In the order of the text.
std::vector<TextRange> HiddenRuns(const QTextDocument& document) {
    std::vector<TextRange> runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            if (platform::IsHidden(run.charFormat()))
                runs.push_back({run.position(), run.length()});
        }
    }
    return runs;
}

// Calls `visit` with the start and end of each part of the marks that no run covers. Both are in the order of
// the text and do not overlap.
template <typename Visit>
void VisitOutside(const std::vector<TextRange>& marks, const std::vector<TextRange>& runs, Visit visit) {
    auto run = runs.begin();
    for (const TextRange& mark : marks) {
        int start = mark.start;
        const int end = mark.start + mark.length;
        while (run != runs.end() && run->start + run->length <= start)
            ++run;
        for (auto over = run; over != runs.end() && over->start < end; ++over) {
            if (start < over->start)
                visit(start, over->start);
            start = over->start + over->length;
        }
        if (start < end)
            visit(start, end);
    }
}

} // namespace

void PaintMarks(platform::RichTextBox& pane, const std::vector<TextRange>& marks) {
    if (marks.empty())
        return;
    QTextCharFormat format;
    format.setForeground(QColor(0, 0, 255));
    format.setFontWeight(QFont::Bold);
    const int last = pane.document()->characterCount() - 1;
    QTextCursor cursor(pane.document());
    cursor.beginEditBlock(); // laid out once, told as one change
    VisitOutside(WithoutOverlaps(marks), HiddenRuns(*pane.document()), [&](int start, int end) {
        cursor.setPosition(std::min(start, last));
        cursor.setPosition(std::min(end, last), QTextCursor::KeepAnchor);
        if (cursor.hasSelection())
            cursor.mergeCharFormat(format);
    });
    cursor.endEditBlock();
}

} // namespace quillbrook
