#pragma once

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace platform {

// Moves a window to the middle of the screen: half the screen's size less half its own.
inline void CentreOnScreen(QWidget* window) {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    window->move(screen.left() + screen.width() / 2 - window->width() / 2,
                 screen.top() + screen.height() / 2 - window->height() / 2);
}

} // namespace platform
