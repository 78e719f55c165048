#pragma once

#include <QRect>

namespace quillbrook {

// Scale of a screen in each direction.
struct TwipsPerPixel {
    double x = 15;
    double y = 15;
};

// The part of a button that FlatCmd leaves visible, in pixels of the button: all of it, or in mode 1 its
// inner part without the raised edge. Width and height are in twips; the corners go to the nearest pixel, a
// half to the even one.
QRect FlatCmdRegion(int mode, int width, int height, const TwipsPerPixel& screen = {});

} // namespace quillbrook
