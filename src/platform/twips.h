#pragma once

#include <QRect>
#include <cmath>

namespace platform {

// Lengths of windows and controls are told in twips: 1,440 to the inch, 15 to the device-independent pixel.
constexpr int kTwipsPerInch = 1440;
constexpr int kTwipsPerPixelOnScreen = 15;

// Twips to device-independent pixels, to the nearest whole one.
inline int ToPixels(int twips) {
    return static_cast<int>(std::lround(twips / double(kTwipsPerPixelOnScreen)));
}
constexpr int ToTwips(int pixels) {
    return pixels * kTwipsPerPixelOnScreen;
}

} // namespace platform
