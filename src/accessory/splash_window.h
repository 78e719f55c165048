#pragma once

#include "accessory/splash_chain.h"

#include <QTimer>
#include <array>

#include <QWidget>

namespace platform {
class SoundService;
}

namespace quillbrook {

class SplashPicture;

// What the user sees while the main window is built: a picture, and a row of dots that grows in the title
// bar. It is also what asks for the main window to be loaded and, at the end of its chain of timers, to be
// shown. The chain begins when the window has been painted once, or soon after it was shown on a desktop that
// does not paint it.
class frmSplash final : public QWidget {
    Q_OBJECT

public:
    // Loads the window: centred, with a beep. Showing it lets the chain begin.
    explicit frmSplash(platform::SoundService& sound, QWidget* parent = nullptr);

    const SplashChain& Chain() const { return m_chain; }
    QTimer* Timer(int number) const { return m_timers[std::size_t(number)]; } // null where there is none

    // Ends the chain where it stands.
    void Stop();

    SplashPicture* Image1;

Q_SIGNALS:
    // The main window is to be loaded, hidden, before this returns. While a load lets events through, the
    // hand-over may come, and the splash be deleted.
    void LoadMainWindow();
    void HandOver(); // the splash has hidden itself: the main window is to be shown, the splash unloaded

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override; // it closes by itself only

private:
    void Begin();
    void Fire(int timer);
    void RunTimers();

    SplashChain m_chain;
    std::array<QTimer*, kSplashHandOverTimer + 1> m_timers{}; // by number
    bool m_hasBegun = false;
    bool m_isStopped = false;
};

} // namespace quillbrook
