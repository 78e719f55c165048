#pragma once

#include <QByteArray>

namespace platform {

// Clears the desktop's clipboard and puts rich text on it, in that format alone.
void SetClipboardRTF(const QByteArray& source);

// The rich text on the desktop's clipboard; empty when it holds none.
QByteArray ClipboardRTF();

} // namespace platform
