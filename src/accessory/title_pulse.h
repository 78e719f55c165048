#pragma once

#include <QColor>

namespace quillbrook {

// The pulse of the contact card's title: its text glows from red to nearly black and back every 52 ticks of
// 50 ms. It outlives the card, so that a new one goes on where the last one stopped.
class TitlePulse {
public:
    static constexpr int kInterval = 50; // ms

    // The colour of the next tick.
    QColor Tick();

private:
    int m_counter = 0;
};

} // namespace quillbrook
