#include "search/result_blink.h"

#include "platform/controls/frame.h"

#include <QTimer>

namespace quillbrook {

static QTimer* MakeTimer(QObject* parent, const char* name, int milliseconds) {
    auto* timer = new QTimer(parent);
    timer->setObjectName(QLatin1String(name));
    timer->setInterval(milliseconds);
    return timer;
}

ResultBlink::ResultBlink(platform::Frame* fmeSearchResult)
    : QObject(fmeSearchResult)
    , Timer1(MakeTimer(this, "Timer1", 300))
    , Timer2(MakeTimer(this, "Timer2", 5000))
    , m_frame(fmeSearchResult) {
    connect(Timer1, &QTimer::timeout, this, &ResultBlink::Toggle);
    connect(Timer2, &QTimer::timeout, this, &ResultBlink::Settle);
}

void ResultBlink::Start() {
    // enabling a timer that runs already lets it run on
    for (QTimer* timer : {Timer1, Timer2})
        if (!timer->isActive())
            timer->start();
}

void ResultBlink::Toggle() {
    m_isBlue = !m_isBlue;
    m_frame->setCaptionLook({m_isBlue ? QColor(0, 0, 255) : QColor(0, 255, 0), 10, true});
}

void ResultBlink::Settle() {
    m_frame->setCaptionLook({QColor(0, 0, 192), 9, false});
    Timer1->stop();
    Timer2->stop();
}

} // namespace quillbrook
