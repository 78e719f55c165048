#pragma once

#include <array>
#include <bitset>

namespace quillbrook {

// The splash window's timers carry the numbers of their names: Timer1 loads the main window, Timer4 to
// Timer12 let the row of dots grow, Timer13 hands over. The row tells nothing of the work done; it grows
// unevenly on purpose.
struct SplashStep {
    int timer;
    const char* caption;
};

constexpr const char* kSplashCaption = " Loading . . ."; // at first
constexpr std::array<SplashStep, 9> kSplashSteps = {{
    {4, " Loading . . . ."},
    {5, " Loading . . . . ."},
    {6, " Loading . . . . . . ."},
    {7, " Loading . . . . . . . . . . ."},
    {8, " Loading . . . . . . . . . . . . . . ."},
    {9, " Loading . . . . . . . . . . . . . . . . . ."},
    {10, " Loading . . . . . . . . . . . . . . . . . . . . ."},
    {11, " Loading . . . . . . . . . . . . . . . . . . . . . . . ."},
    {12, " Loading . . . . . . . . . . . . . . . . . . . . . . . . . . . . ."},
}};

constexpr int kSplashLoadTimer = 1;
constexpr int kSplashHandOverTimer = 13;

// Milliseconds; the first timer only lets the window be painted before the work begins.
constexpr int SplashInterval(int timer) {
    return timer == kSplashLoadTimer ? 1 : 50;
}

// Which timers run, and what each does on firing. Made when the splash window is loaded.
class SplashChain {
public:
    using Timers = std::bitset<kSplashHandOverTimer + 1>; // by number

    enum class Act {
        None,
        LoadMainWindow, // load it, hidden, then call MainWindowLoaded()
        ShowCaption,    // of this step
        HandOver,       // hide the splash, show the main window, unload the splash
    };
    struct Step {
        Act act = Act::None;
        const char* caption = nullptr;
    };

    SplashChain();

    // The timers that run now. One that runs already is not to be started anew.
    const Timers& Running() const { return m_running; }

    // A timer fired. Gives Act::None for one that does not run, or that loads the main window at the moment.
    Step Fire(int timer);
    void MainWindowLoaded();

private:
    Timers m_running;
    bool m_isLoading = false;
};

} // namespace quillbrook
