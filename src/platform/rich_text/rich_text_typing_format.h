// Formats that text takes where it is typed or put.
#pragma once

#include <QTextCursor>
#include <QTextFormat>

class QTextDocument;

namespace platform {

// The format of what is typed at a caret: one of text that is seen, also behind hidden text and in a
// paragraph that only a table needs, and one of a field's result only inside of it.
QTextCharFormat TypingFormat(const QTextCursor& caret);

// A format that text inserted at a caret is to have, outside of the field that it may be of where the caret
// does not stand in that field's result: a word processor writes results anew.
QTextCharFormat FormatInField(const QTextCharFormat& format, const QTextCursor& caret);

// A format for text, from one that may be of a picture or an object.
QTextCharFormat TextOnlyFormat(const QTextCharFormat& format);

// The same for text that is seen, from one that may be of hidden text.
QTextCharFormat SeenFormat(const QTextCharFormat& format);

// Makes the fillers that the positions `from` to `to` touch, and their neighbours, paragraphs of the text
// where they part no tables any more, and gives paragraphs that took in the end of one a size.
void FreeLooseFillers(QTextDocument& document, int from, int to);

} // namespace platform
