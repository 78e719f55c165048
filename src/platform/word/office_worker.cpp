#include "platform/word/office_worker.h"

#include "platform/word/input_block.h"

#include <QTimer>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace platform {

namespace {

constexpr auto kLastPatience = std::chrono::seconds(3);

} // namespace

struct OfficeWorker::State {
    std::mutex mutex;
    std::condition_variable changed;
    std::unique_ptr<WriterSession> session; // of the thread
    Job job;                                // what is to be done next
    QEventLoop* waiting = nullptr;          // for the job
    bool busy = false;
    bool stopping = false;
    bool stopped = false;

    void Work();
};

void OfficeWorker::State::Work() {
    std::unique_lock lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return job || stopping; });
        if (stopping)
            break;
        const Job current = std::move(job);
        job = nullptr;
        lock.unlock();
        try {
            current(*session);
        } catch (...) {
            // no function of a session throws; should one when LibreOffice dies, the job has no result, and
            // the program does not die with it
        }
        lock.lock();
        busy = false;
        if (waiting)
            QMetaObject::invokeMethod(waiting, &QEventLoop::quit, Qt::QueuedConnection);
    }
    lock.unlock();
    session.reset(); // on its own thread, and without the lock, as it may take its time
    lock.lock();
    stopped = true;
    changed.notify_all();
}

OfficeWorker::OfficeWorker(std::unique_ptr<WriterSession> session)
    : m_state(std::make_shared<State>()) {
    m_state->session = std::move(session);
    std::thread([state = m_state] { state->Work(); }).detach();
}

OfficeWorker::~OfficeWorker() {
    std::unique_lock lock(m_state->mutex);
    m_state->stopping = true;
    m_state->changed.notify_all();
    m_state->changed.wait_for(lock, kLastPatience, [this] { return m_state->stopped; });
}

bool OfficeWorker::Run(Job job, std::chrono::milliseconds patience, const std::function<void()>& onTimeOut,
                       WaitingInput input) {
    if (m_givenUp)
        return false;
    QEventLoop loop;
    {
        const std::lock_guard lock(m_state->mutex);
        m_state->job = std::move(job);
        m_state->waiting = &loop;
        m_state->busy = true;
        m_state->changed.notify_all();
    }
    const auto isDone = [this] {
        const std::lock_guard lock(m_state->mutex);
        return !m_state->busy;
    };
    const auto wait = [&](std::chrono::milliseconds most) {
        QTimer timer;
        timer.setSingleShot(true);
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
        timer.start(most);
        while (!isDone() && timer.isActive())
            loop.exec(input == WaitingInput::Kept ? QEventLoop::ExcludeUserInputEvents
                                                  : QEventLoop::AllEvents);
    };
    {
        std::optional<InputBlock> block;
        if (input == WaitingInput::Dropped)
            block.emplace();
        wait(patience);
        if (!isDone()) {
            if (onTimeOut)
                onTimeOut();
            wait(kLastPatience);
        }
    }
    const std::lock_guard lock(m_state->mutex);
    m_state->waiting = nullptr;
    m_givenUp = m_state->busy;
    return !m_givenUp;
}

} // namespace platform
