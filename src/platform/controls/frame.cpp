#include "platform/controls/frame.h"

namespace platform {

void Frame::setCaptionLook(const CaptionLook& look) {
    if (m_look == look)
        return;
    m_look = look;
    setStyleSheet(QStringLiteral("platform--Frame#%1 { font-size: %2pt; font-weight: %3; color: %4; }"
                                 "platform--Frame#%1::title { color: %4; }")
                      .arg(objectName(), QString::number(look.points),
                           look.bold ? QStringLiteral("bold") : QStringLiteral("normal"),
                           look.color.name(QColor::HexRgb)));
}

} // namespace platform
