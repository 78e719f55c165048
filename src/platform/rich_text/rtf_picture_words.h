#pragma once

#include <QTextDocument>
#include <QTextImageFormat>

namespace platform {

class RtfOutput;

// Writes the picture that a character of this format shows: the file's own bytes where the document has them,
// else the image as PNG. Nothing when there is neither.
void WriteRtfPicture(const QTextDocument& document, const QTextImageFormat& format, RtfOutput& out);

} // namespace platform
