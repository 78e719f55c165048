#pragma once

class QApplication;

namespace quillbrook {

// Gives the whole program its look: Qt's Fusion style on the desktop's font and palette, and the few rules in
// which the program differs from it. The one place where controls are styled.
void ApplyLook(QApplication& application);

} // namespace quillbrook
