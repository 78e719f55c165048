#pragma once

#include <QObject>

class QTimer;
namespace platform {
class Frame;
}

namespace quillbrook {

// The caption of the search result, which blinks in blue and green for five seconds after a search.
class ResultBlink final : public QObject {
    Q_OBJECT

public:
    explicit ResultBlink(platform::Frame* fmeSearchResult);

    void Start();

    QTimer* Timer1; // 300 ms: bold, of 10 points, in the other colour at each tick
    QTimer* Timer2; // 5000 ms: ends the blinking at its first tick

private:
    void Toggle();
    void Settle();

    platform::Frame* m_frame;
    bool m_isBlue = false;
};

} // namespace quillbrook
