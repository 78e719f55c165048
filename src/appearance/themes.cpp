#include "appearance/themes.h"

#include <QPalette>

namespace quillbrook {

int WrapThemeNumber(int number) {
    if (number > kThemeCount)
        return 1;
    return number < 1 ? kThemeCount : number;
}

const Theme& ThemeOf(int number) {
    return kThemes[static_cast<std::size_t>(WrapThemeNumber(number) - 1)];
}

QColor Resolve(const ThemeColor& color, const QPalette& desktop) {
    switch (color.source) {
    case ThemeColor::Source::ButtonFace:
        return desktop.color(QPalette::Active, QPalette::Button);
    case ThemeColor::Source::WindowBackground:
        return desktop.color(QPalette::Active, QPalette::Base);
    case ThemeColor::Source::Fixed:
        break;
    }
    return QColor(color.red, color.green, color.blue);
}

} // namespace quillbrook
