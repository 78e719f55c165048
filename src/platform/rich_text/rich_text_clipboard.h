#pragma once

#include <QByteArray>
#include <QTextCursor>
#include <memory>

class QFont;
class QMimeData;
class QTextDocument;

namespace platform {

// The selection as rich text, HTML and plain text. Null when nothing is selected; the caller owns it.
std::unique_ptr<QMimeData> MimeOfSelection(const QTextCursor& selection);

// Whether `data` holds rich text, HTML or plain text.
bool HasDocument(const QMimeData& data);

// The rich text of `data`, of whichever name it goes by there; empty for none.
QByteArray RtfOf(const QMimeData& data);

// What `data` holds as a document: rich text before HTML, HTML where the rich text cannot be read. Pictures
// of HTML are left out, so that pasting never reads files or the network; where HTML tells no font its text
// is in `font`. Null where there is neither; plain text has no format of its own and is the caller's.
std::unique_ptr<QTextDocument> DocumentOfMime(const QMimeData& data, const QFont& font);

// Replaces the selection by the content of `source`, which is changed on the way: its pictures and fields get
// names that are free in the target, and what refers to tables that the target has not is told plainly. One
// edit block.
void InsertDocument(QTextCursor cursor, QTextDocument& source);

} // namespace platform
