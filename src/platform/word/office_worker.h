#pragma once

#include "platform/word/libreoffice/writer_session.h"

#include <QEventLoop>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace platform {

// What happens to keys and clicks while the interface thread waits.
enum class WaitingInput { Dropped, Kept };

// The thread on which a session runs, and the waiting of the interface thread for what it answers: the
// program's windows are painted and its clipboard is served meanwhile.
class OfficeWorker {
public:
    explicit OfficeWorker(std::unique_ptr<WriterSession> session);
    // Waits for the thread, but not for long: one that hangs is left behind.
    ~OfficeWorker();
    Q_DISABLE_COPY_MOVE(OfficeWorker)

    using Job = std::function<void(WriterSession&)>;

    // Runs the job on the thread and returns when it is done. When that takes longer than `patience`,
    // `onTimeOut` runs on the interface thread, to end what the job waits for; a job that is not done soon
    // after that is given up, and with it all later ones. False then, and the job may still be running: it
    // must not refer to anything of the caller's.
    bool Run(Job job, std::chrono::milliseconds patience, const std::function<void()>& onTimeOut,
             WaitingInput input);

private:
    struct State;

    std::shared_ptr<State> m_state; // shared with the thread
    bool m_givenUp = false;
};

} // namespace platform
