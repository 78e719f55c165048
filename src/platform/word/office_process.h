#pragma once

#include <QByteArray>
#include <QList>
#include <chrono>
#include <memory>

namespace platform {

// One started LibreOffice with all processes that it has started itself: a session of its own, so that it
// survives us where it is to, and can be ended as one where it is not.
class OfficeProcess {
public:
    // `lock` is a descriptor that the process keeps open as long as it lives. Its input and output are
    // nothing. Null when it cannot be started.
    static std::unique_ptr<OfficeProcess> Start(const QByteArray& program, const QList<QByteArray>& arguments,
                                                int lock);
    // Ends nothing.
    ~OfficeProcess() = default;
    Q_DISABLE_COPY_MOVE(OfficeProcess)

    bool HasEnded() const;
    bool WaitForEnd(std::chrono::milliseconds patience) const;
    // The processor time that all its processes have used; it stands still while they hang. In clock ticks.
    qint64 ProcessorTime() const;

    // Ends all its processes at once. Returns when they are gone, or after a moment.
    void Kill();
    // It is the user's: what it leaves behind at its end is not ours to end.
    void HandOver();

private:
    struct State;
    explicit OfficeProcess(std::shared_ptr<State> state);

    std::shared_ptr<State> m_state; // shared with the thread that waits for the end
};

} // namespace platform
