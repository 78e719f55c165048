#include "appearance/theme_sheet.h"

#include <QPalette>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace quillbrook {
namespace {

constexpr double kReadable = 4.5; // least contrast of a text of ordinary size, by the same source

// Relative luminance of sRGB, 0 for black to 1 for white.
double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

// A combo box has its text in a box of its own, and its entries in a list.
QStringList SelectorsOf(const char* name) {
    const QString control = QStringLiteral("QWidget#") + QLatin1String(name);
    if (!QLatin1String(name).startsWith(QLatin1String("cbo")))
        return {control};
    return {control, control + QStringLiteral(" QLineEdit"), control + QStringLiteral(" QAbstractItemView")};
}

} // namespace

double ContrastRatio(const QColor& text, const QColor& ground) {
    const auto [dark, light] = std::minmax({Luminance(text), Luminance(ground)});
    return (light + 0.05) / (dark + 0.05);
}

QString ThemeSheet(const Theme& theme, const QPalette& desktop) {
    QStringList page;
    QStringList list;
    for (const ThemedControl& control : kThemedControls)
        (control.part == ThemePart::Page ? page : list) += SelectorsOf(control.name);

    const QColor ground = Resolve(theme.list, desktop);
    const QColor ink = desktop.color(QPalette::Active, QPalette::Text);
    const bool vanishes =
        theme.list.source == ThemeColor::Source::Fixed && ContrastRatio(ink, ground) < kReadable;
    return QStringLiteral("%1 { background-color: %2; }\n%3 { background-color: %4; color: %5; }\n")
        .arg(page.join(QStringLiteral(", ")), Resolve(theme.page, desktop).name(),
             list.join(QStringLiteral(", ")), ground.name(), (vanishes ? QColor(Qt::black) : ink).name());
}

QString SampleSheet(const ThemeSample& sample, const QPalette& desktop) {
    return QStringLiteral("QDialog#frmTheme { background-color: %1; }\n"
                          "QDialog#frmTheme QLabel#lblTheme { background-color: %2; color: %3; }\n")
        .arg(Resolve(sample.background, desktop).name(), Resolve(sample.labelBackground, desktop).name(),
             Resolve(sample.labelText, desktop).name());
}

} // namespace quillbrook
