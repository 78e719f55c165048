#include "appearance/flat_region.h"

#include <cmath>

namespace quillbrook {
namespace {

constexpr int kEdge = 2;         // pixels at the left and the top
constexpr double kFarEdge = 0.5; // at the right and the bottom

int ToNearestEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    const bool up = rest > 0.5 || (rest == 0.5 && std::fmod(below, 2) != 0);
    return static_cast<int>(below) + (up ? 1 : 0);
}

} // namespace

QRect FlatCmdRegion(int mode, int width, int height, const TwipsPerPixel& screen) {
    const int edge = mode == 1 ? kEdge : 0;
    const double far = mode == 1 ? kFarEdge : 0;
    const int right = ToNearestEven(width / screen.x - far);
    const int bottom = ToNearestEven(height / screen.y - far);
    return QRect(edge, edge, right - edge, bottom - edge);
}

} // namespace quillbrook
