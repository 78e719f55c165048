#include "platform/controls/hyper_label.h"

#include <QDesktopServices>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace platform {

HyperLabel::HyperLabel(const QString& caption, const QUrl& target, QWidget* parent)
    : QAbstractButton(parent)
    , m_target(target) {
    setText(caption);
    setToolTip(target.toDisplayString());
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    // a desktop with nothing registered for the target opens nothing and says nothing
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (!m_target.isEmpty())
            QDesktopServices::openUrl(m_target);
    });
}

void HyperLabel::setColors(const Colors& colors) {
    m_colors = colors;
    update();
}

QSize HyperLabel::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(text()) + 8, metrics.height() + 6};
}

void HyperLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont shown = font();
    shown.setUnderline(underMouse());
    painter.setFont(shown);
    if (m_colors.ground.isValid())
        painter.fillRect(rect(), m_colors.ground);
    const QColor& ink = underMouse() ? m_colors.textUnderMouse : m_colors.text;
    painter.setPen(ink.isValid() ? ink : palette().color(QPalette::Link));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextHideMnemonic, text());
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = rect();
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void HyperLabel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void HyperLabel::enterEvent(QEnterEvent*) {
    update();
}
void HyperLabel::leaveEvent(QEvent*) {
    update();
}

} // namespace platform
