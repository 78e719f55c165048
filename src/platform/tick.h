#pragma once

#include <algorithm>

namespace platform {

// The milliseconds at which a repeating timer that is to move something on the screen ticks at the fastest:
// once a frame. A shorter interval asks for the fastest tick that there is.
constexpr int kFastestTick = 16;
constexpr int TickOf(int interval) {
    return std::max(interval, kFastestTick);
}

} // namespace platform
