#include "accessory/splash_window.h"

#include "accessory/splash_picture.h"
#include "appearance/icons.h"
#include "platform/controls/centre.h"
#include "platform/services.h"

#include <QCloseEvent>
#include <QPointer>

namespace quillbrook {

// A desktop that never paints the window, as on a hidden workspace, does not hold up the start.
constexpr int kLongestWaitForPaint = 250; // ms

frmSplash::frmSplash(platform::SoundService& sound, QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , Image1(new SplashPicture(this)) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QLatin1String(kSplashCaption));
    setWindowIcon(ProgramPicture());
    setFixedSize(Image1->size());
    for (std::size_t i = 0; i < m_timers.size(); ++i) {
        const int number = int(i);
        if (number != kSplashLoadTimer && number < kSplashSteps.front().timer)
            continue;
        auto* timer = new QTimer(this);
        timer->setObjectName(QStringLiteral("Timer%1").arg(number));
        timer->setTimerType(Qt::PreciseTimer);
        timer->setInterval(SplashInterval(number));
        connect(timer, &QTimer::timeout, this, [this, number] { Fire(number); });
        m_timers[i] = timer;
    }
    connect(Image1, &SplashPicture::Painted, this, &frmSplash::Begin, Qt::QueuedConnection);
    platform::CentreOnScreen(this);
    sound.Beep();
}

void frmSplash::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    QTimer::singleShot(kLongestWaitForPaint, this, &frmSplash::Begin);
}

void frmSplash::closeEvent(QCloseEvent* event) {
    event->ignore();
}

void frmSplash::Begin() {
    if (m_hasBegun)
        return;
    m_hasBegun = true;
    RunTimers();
}

void frmSplash::Stop() {
    m_isStopped = true;
    RunTimers();
}

// A load that lets events through may end after the hand-over, when this window is gone.
void frmSplash::Fire(int timer) {
    const QPointer<frmSplash> splash(this);
    const SplashChain::Step step = m_chain.Fire(timer);
    switch (step.act) {
    case SplashChain::Act::LoadMainWindow:
        Q_EMIT LoadMainWindow();
        if (!splash)
            return;
        m_chain.MainWindowLoaded();
        break;
    case SplashChain::Act::ShowCaption:
        setWindowTitle(QLatin1String(step.caption));
        break;
    case SplashChain::Act::HandOver:
        RunTimers();
        hide();
        Q_EMIT HandOver();
        return;
    case SplashChain::Act::None:
        break;
    }
    RunTimers();
}

void frmSplash::RunTimers() {
    for (std::size_t i = 0; i < m_timers.size(); ++i) {
        QTimer* timer = m_timers[i];
        const bool runs = m_chain.Running().test(i) && !m_isStopped;
        if (!timer || timer->isActive() == runs)
            continue;
        if (timer->isActive())
            timer->stop();
        else
            timer->start();
    }
}

} // namespace quillbrook
