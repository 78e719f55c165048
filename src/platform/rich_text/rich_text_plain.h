#pragma once

#include <QByteArrayView>
#include <QString>
#include <optional>

class QTextDocument;

namespace platform {

// The text of a document as positions count it: one UTF-16 unit for each position, each end of a paragraph,
// line or table cell one '\n', a picture U+FFFC, no-break spaces as they are.
QString PlainText(const QTextDocument& document);
// The same of what QTextDocument::toRawText() or QTextCursor::selectedText() gives.
QString PlainText(QString raw);

// Text that was made of a part of a document's, with U+2028 for those of its line ends that are breaks inside
// of a paragraph in `raw`, the same part as QTextCursor::selectedText() gives it; as it is where the number
// of line ends is another.
QString WithLineBreaks(const QString& text, const QString& raw);

// Text as it may stand in a document: each line end ("\r\n", '\r', U+2028, U+2029, form feed) one '\n', and
// no characters that a document gives a meaning of its own (U+FFFC, U+FDD0, U+FDD1, NUL).
QString NormalizedText(const QString& text);

// The text of a file's bytes: UTF-8, UTF-16 by its byte order mark, otherwise UTF-8 where the bytes are valid
// UTF-8 and Windows 1252 where not. Empty optional for bytes that are no text (a NUL outside of UTF-16).
std::optional<QString> DecodeText(QByteArrayView bytes);

// Whether a source is rich text, whatever stands in it: "{\rtf" behind white space.
bool IsRtf(QByteArrayView source);

// Whether `text` has a run of characters so long, with no place to break a line in, that breaking it at
// words would take seconds.
bool HasOverlongWord(const QString& text);

} // namespace platform
