#pragma once

#include <QWidget>

namespace platform {

// Moves the keyboard focus to a control. A control that is not to be seen, or is disabled, cannot take it:
// false, and the focus stays where it is.
inline bool SetFocus(QWidget* control) {
    if (!control->isVisible() || !control->isEnabled())
        return false;
    control->setFocus(Qt::OtherFocusReason);
    return true;
}

} // namespace platform
