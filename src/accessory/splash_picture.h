#pragma once

#include <QPixmap>
#include <QWidget>

namespace quillbrook {

// The picture of the splash window, 400 by 234 device-independent pixels, sharp at any scale.
class SplashPicture final : public QWidget {
    Q_OBJECT

public:
    explicit SplashPicture(QWidget* parent = nullptr);

    QSize sizeHint() const override;

Q_SIGNALS:
    void Painted();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap m_drawn; // for the scale of the screen it was last shown on
};

} // namespace quillbrook
