#pragma once

#include <QColor>
#include <QLabel>

namespace platform {

// A label that lies directly on a coloured page and has a ground of its own there: as wide as its text, or as
// it is told. Without a text there is no ground. The colours are set by the rules of the look.
class PageLabel final : public QLabel {
    Q_OBJECT
    Q_PROPERTY(QColor ground MEMBER m_ground)
    Q_PROPERTY(QColor edge MEMBER m_edge)

public:
    explicit PageLabel(const QString& caption, QWidget* parent = nullptr);

    // Device-independent pixels, 0 for the width of the text; never wider than the label.
    void setGroundWidth(int width) { m_groundWidth = width; }
    QRect Ground() const; // empty without a text

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_ground;
    QColor m_edge;
    int m_groundWidth = 0;
};

} // namespace platform
