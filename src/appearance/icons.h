#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

namespace quillbrook {

// The program's own picture of this name (assets/icons/NAME.svg), drawn sharp at any size and scale, in the
// colours of the palette at the time of drawing; faded where its control is disabled. An unknown name gives
// an empty picture.
QIcon Picture(const QString& name);

// The same for a control that shows itself pressed: then it is drawn in the colour of text on the accent.
QIcon TogglePicture(const QString& name);

// The program's picture for the window list and the desktop.
QIcon ProgramPicture();

// The picture of the splash window, in this size in device-independent pixels for a screen of this scale.
QPixmap SplashPixmap(const QSize& size, qreal scale);

} // namespace quillbrook
