#include "platform/desktop/sound.h"

#include <QApplication>

namespace platform {

void DesktopSound::Beep() {
    QApplication::beep();
}

} // namespace platform
