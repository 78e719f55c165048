#include "platform/controls/page_label.h"

#include <QPainter>

namespace platform {

constexpr qreal kRadius = 6;
constexpr int kInset = 11; // between the ground's edge and the text

// The inset is the label's own, as a changed text repaints only what lies within the padding of a style sheet.
PageLabel::PageLabel(const QString& caption, QWidget* parent)
    : QLabel(caption, parent) {
    setIndent(kInset);
}

QRect PageLabel::Ground() const {
    if (text().isEmpty())
        return {};
    const int textWidth = fontMetrics().size(Qt::TextSingleLine, text()).width();
    const int wanted = m_groundWidth > 0 ? m_groundWidth : textWidth + 2 * kInset;
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
