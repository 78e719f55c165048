#include "platform/controls/option_button.h"

#include <QPainter>

namespace platform {

// Radii around the dot's middle, in device-independent pixels.
constexpr double kDot = 2.5;
constexpr double kCircle = 5.5;
constexpr double kFocusRing = 8;

OptionButton::OptionButton(const QString& caption, QWidget* parent)
    : QRadioButton(caption, parent) {
    connect(this, &QAbstractButton::toggled, this, [this](bool on) {
        if (on)
            Q_EMIT Click();
    });
}

void OptionButton::setValue(bool on) {
    // Qt does not let the one option that is set be cleared
    setAutoExclusive(on);
    setChecked(on);
    setAutoExclusive(true);
}

void OptionButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool isDimmed = !isEnabled();
    const QColor accent = palette().color(QPalette::Highlight);
    const QColor edge =
        palette().color(isDimmed ? QPalette::Disabled : QPalette::Normal, QPalette::WindowText);
    const QPointF middle(kFocusRing + 0.5, height() / 2.0);
    const auto circle = [&](double radius, const QPen& pen, const QBrush& fill) {
        painter.setPen(pen);
        painter.setBrush(fill);
        painter.drawEllipse(middle, radius, radius);
    };
    const QColor soft(edge.red(), edge.green(), edge.blue(), 170);
    if (isChecked()) {
        const QColor fill = isDimmed ? soft : accent;
        circle(kCircle, fill, fill);
        circle(kDot, Qt::NoPen, palette().color(QPalette::HighlightedText));
    } else {
        circle(kCircle, underMouse() && !isDimmed ? accent : soft, palette().color(QPalette::Base));
    }
    if (hasFocus())
        circle(kFocusRing - 0.25, QPen(accent, 1.5), Qt::NoBrush);
    const QRect beside = rect().adjusted(int(2 * kFocusRing) + 6, 0, 0, 0);
    painter.setPen(edge);
    painter.drawText(beside, Qt::AlignVCenter | Qt::TextShowMnemonic, text());
}

} // namespace platform
