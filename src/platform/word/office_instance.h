#pragma once

#include "platform/word/office_process.h"
#include "platform/word/office_profile.h"
#include "platform/word/office_worker.h"

#include <memory>
#include <optional>

namespace platform {

// The time in which LibreOffice has to answer where no user is waited for: a command whose call hangs is to
// end within ten seconds.
constexpr std::chrono::milliseconds kOfficePatience = std::chrono::seconds(9);
// The same while a dialog or a preview is open: it may be busy with the user's orders.
constexpr std::chrono::milliseconds kUserPatience = std::chrono::seconds(60);

// One running LibreOffice of ours: its profile, its processes, and the thread that speaks to it. For the
// interface thread. An instance that does not answer in time is ended.
class OfficeInstance {
public:
    // Starts `program` in a free profile of the pool and waits until it answers. Null when it does not.
    static std::unique_ptr<OfficeInstance> Start(const QByteArray& program, const QString& pool,
                                                 CreateWriterSessionFunction createSession);
    // Ends it, unless it was handed over.
    ~OfficeInstance();
    Q_DISABLE_COPY_MOVE(OfficeInstance)

    // Runs `work`, which takes a WriterSession& and gives a value, and returns that value; nothing when the
    // instance has ended or does not answer in time. `work` must not refer to anything of the caller's.
    template <typename Work>
    auto Call(Work work, std::chrono::milliseconds patience = kOfficePatience,
              WaitingInput input = WaitingInput::Dropped)
        -> std::optional<decltype(work(std::declval<WriterSession&>()))>;

    bool IsAlive() const { return m_alive && !m_process->HasEnded(); }
    bool IsHandedOver() const { return m_handedOver; }

    // Asks it to end, and ends it when it does not. One in which the user has opened documents of his own is
    // handed over instead. False when it had ended before.
    bool Quit();
    // Ends it at once.
    void Kill();
    // It is the user's, and outlives us.
    void HandOver();

private:
    OfficeInstance(std::unique_ptr<OfficeProfile> profile, std::unique_ptr<OfficeProcess> process,
                   std::unique_ptr<WriterSession> session);
    enum class Reached { Yes, Ended, Hangs };
    Reached Connect(const QString& pipe);

    std::unique_ptr<OfficeProfile> m_profile;
    std::shared_ptr<OfficeProcess> m_process; // shared with jobs that wait for its end
    OfficeWorker m_worker;
    bool m_alive = true;
    bool m_handedOver = false;
};

template <typename Work>
auto OfficeInstance::Call(Work work, std::chrono::milliseconds patience, WaitingInput input)
    -> std::optional<decltype(work(std::declval<WriterSession&>()))> {
    using Result = decltype(work(std::declval<WriterSession&>()));
    if (!IsAlive())
        return std::nullopt;
    const auto result = std::make_shared<std::optional<Result>>();
    const bool done = m_worker.Run([result, work](WriterSession& session) { *result = work(session); },
                                   patience, [this] { Kill(); }, input);
    return done && IsAlive() ? std::move(*result) : std::nullopt;
}

} // namespace platform
