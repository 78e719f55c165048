#pragma once

#include <QByteArray>

class QTextDocument;
class QTextCursor;

namespace platform {

// Writes the whole document in Rich Text Format (RTF 1.9.1), as 7-bit text that other programs read. No line
// break stands inside a paragraph's text, so a phrase of the text stands contiguous in the source.
QByteArray WriteRtf(const QTextDocument& document);

// Writes the selection of `cursor` as a document of its own; empty when nothing is selected.
QByteArray WriteRtf(const QTextCursor& selection);

} // namespace platform
