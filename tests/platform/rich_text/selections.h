#pragma once

#include "platform/rich_text/rich_text_box.h"

#include <QTextCursor>

// Selections in a box, a text to select in, and a conversion of what is selected.
namespace rich_text_selections {

inline void Select(platform::RichTextBox& box, int start, int length) {
    box.setSelStart(start);
    box.setSelLength(length);
}

// "before", a table of one row with two cells, an empty line, "after".
inline QString SourceWithTable(const QString& firstCell, const QString& secondCell) {
    return QStringLiteral("{\\rtf1 before\\par\\trowd\\cellx2000\\cellx4000\\intbl %1\\cell %2\\cell\\row"
                          "\\pard\\par after\\par}")
        .arg(firstCell, secondCell);
}

inline void SelectCells(platform::RichTextBox& box, int inFirst, int inLast) {
    QTextCursor cursor = box.textCursor();
    cursor.setPosition(inFirst);
    cursor.setPosition(inLast, QTextCursor::KeepAnchor);
    box.setTextCursor(cursor);
}

inline void ConvertToUpper(platform::RichTextBox& box) {
    box.ConvertSelText([](const QString& text) { return text.toUpper(); });
}

} // namespace rich_text_selections
