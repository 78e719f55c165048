#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QUrl>

namespace platform {

// A caption that opens its target on the desktop when clicked, or by Space or Enter while it has the focus.
// One without a target tells of the click and nothing more.
class HyperLabel final : public QAbstractButton {
    Q_OBJECT

public:
    HyperLabel(const QString& caption, const QUrl& target, QWidget* parent = nullptr);
    explicit HyperLabel(const QString& caption, QWidget* parent = nullptr)
        : HyperLabel(caption, QUrl(), parent) {}

    // An invalid colour is that of the look; an invalid ground lets what lies below show through.
    struct Colors {
        QColor ground;
        QColor text;
        QColor textUnderMouse;
    };

    QUrl Target() const { return m_target; }
    const Colors& colors() const { return m_colors; }
    void setColors(const Colors& colors);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    QUrl m_target;
    Colors m_colors;
};

} // namespace platform
