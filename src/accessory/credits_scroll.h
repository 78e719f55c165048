#pragma once

namespace quillbrook {

// The about box's sheet of credits climbs a pixel a tick; all tops are in pixels of the viewport it lies in.
constexpr int kCreditsInterval = 1; // ms
constexpr int kCreditsFirstTop = 4;

// The sheet's top after a tick: above the viewport it comes in again from the bottom edge.
constexpr int NextCreditsTop(int top, int sheetHeight, int viewportHeight) {
    --top;
    return -sheetHeight >= top ? viewportHeight : top;
}

} // namespace quillbrook
