#pragma once

#include "platform/twips.h"

#include <QWidget>

namespace platform {

// Place and size of a control in its parent, in twips.
inline int Left(const QWidget* control) {
    return ToTwips(control->x());
}
inline int Top(const QWidget* control) {
    return ToTwips(control->y());
}
inline int Width(const QWidget* control) {
    return ToTwips(control->width());
}
inline int Height(const QWidget* control) {
    return ToTwips(control->height());
}

inline void Move(QWidget* control, int left, int top) {
    control->move(ToPixels(left), ToPixels(top));
}
inline void SetTop(QWidget* control, int top) {
    control->move(control->x(), ToPixels(top));
}

// A negative size is refused by the window system: the control keeps the one it has.
inline void SetWidth(QWidget* control, int width) {
    if (width >= 0)
        control->resize(ToPixels(width), control->height());
}
inline void SetHeight(QWidget* control, int height) {
    if (height >= 0)
        control->resize(control->width(), ToPixels(height));
}

} // namespace platform
