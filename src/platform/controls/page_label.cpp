#include "platform/controls/page_label.h"

#include <QPainter>

namespace platform {

constexpr qreal kRadius = 6;

QRect PageLabel::Ground() const {
    if (text().isEmpty())
        return {};
    const int wanted = m_groundWidth > 0 ? m_groundWidth : sizeHint().width();
    const int shown = std::min(wanted, width());
    return QRect(alignment() & Qt::AlignHCenter ? (width() - shown) / 2 : 0, 0, shown, height());
}

void PageLabel::paintEvent(QPaintEvent* event) {
    const QRect ground = Ground();
    if (!ground.isEmpty()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(m_edge.isValid() ? QPen(m_edge) : QPen(Qt::NoPen));
        painter.setBrush(m_ground.isValid() ? QBrush(m_ground) : QBrush(Qt::NoBrush));
        painter.drawRoundedRect(QRectF(ground).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    }
    QLabel::paintEvent(event);
}

} // namespace platform
