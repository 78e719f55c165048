#include "accessory/splash_picture.h"

#include "appearance/icons.h"

#include <QPainter>

namespace quillbrook {

constexpr QSize kPictureSize(400, 234);

SplashPicture::SplashPicture(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("Image1"));
    setAccessibleName(tr("Quillbrook PRO"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedSize(kPictureSize);
}

QSize SplashPicture::sizeHint() const {
    return kPictureSize;
}

void SplashPicture::paintEvent(QPaintEvent*) {
    if (m_drawn.isNull() || m_drawn.devicePixelRatio() != devicePixelRatio())
        m_drawn = SplashPixmap(kPictureSize, devicePixelRatio());
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_drawn);
    Q_EMIT Painted();
}

} // namespace quillbrook
