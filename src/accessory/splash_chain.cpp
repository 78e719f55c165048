#include "accessory/splash_chain.h"

namespace quillbrook {
namespace {

constexpr int kFirstStep = kSplashSteps.front().timer;

} // namespace

SplashChain::SplashChain() {
    m_running.set(kSplashLoadTimer);
    m_running.set(kFirstStep);
}

SplashChain::Step SplashChain::Fire(int timer) {
    if (timer < 0 || timer > kSplashHandOverTimer || !m_running.test(static_cast<std::size_t>(timer)))
        return {};
    if (timer == kSplashLoadTimer) {
        if (m_isLoading)
            return {};
        m_isLoading = true;
        return {Act::LoadMainWindow};
    }
    if (timer == kSplashHandOverTimer) {
        m_running.reset();
        m_isLoading = false; // should the load still run, nothing begins again behind it
        return {Act::HandOver};
    }
    m_running.set(static_cast<std::size_t>(timer) + 1);
    m_running.reset(static_cast<std::size_t>(timer));
    return {Act::ShowCaption, kSplashSteps[static_cast<std::size_t>(timer - kFirstStep)].caption};
}

// When the row of dots has begun during the load, it begins once more beside it.
void SplashChain::MainWindowLoaded() {
    if (!m_isLoading)
        return;
    m_isLoading = false;
    m_running.reset(kSplashLoadTimer);
    m_running.set(kFirstStep);
}

} // namespace quillbrook
