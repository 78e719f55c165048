#include "platform/word/office_instance.h"

#include <QUuid>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace platform {

namespace {

constexpr auto kStartPatience = std::chrono::seconds(30); // for one that makes progress
constexpr auto kDeathPatience = std::chrono::seconds(1);  // from the end of its pipe to its own
constexpr auto kQuitPatience = std::chrono::seconds(5);
constexpr auto kConnectPause = std::chrono::milliseconds(25);
constexpr auto kLookPause = std::chrono::milliseconds(250);

// While this lives, a process that is starting is ended when it makes no progress, and `hangs` is set. It has
// a thread of its own, as an attempt to reach one that hangs may not return before.
class StartWatch {
public:
    StartWatch(OfficeProcess& process, std::atomic<bool>& hangs)
        : m_process(process)
        , m_hangs(hangs)
        , m_thread([this](const std::stop_token& stop) { Watch(stop); }) {}

private:
    void Watch(const std::stop_token& stop) {
        using Clock = std::chrono::steady_clock;
        const auto start = Clock::now();
        auto lastProgress = start;
        qint64 used = 0;
        std::unique_lock lock(m_mutex);
        while (!m_stopped.wait_for(lock, stop, kLookPause, [&stop] { return stop.stop_requested(); })) {
            const auto now = Clock::now();
            const qint64 usedNow = m_process.ProcessorTime();
            if (usedNow > used)
                lastProgress = now;
            used = usedNow;
            if (now - lastProgress > kOfficePatience - kLookPause || now - start > kStartPatience) {
                m_hangs = true;
                m_process.Kill();
                return;
            }
        }
    }

    OfficeProcess& m_process;
    std::atomic<bool>& m_hangs;
    std::mutex m_mutex;
    std::condition_variable_any m_stopped;
    std::jthread m_thread; // last, as it uses the others
};

} // namespace

OfficeInstance::OfficeInstance(std::unique_ptr<OfficeProfile> profile, std::unique_ptr<OfficeProcess> process,
                               std::unique_ptr<WriterSession> session)
    : m_profile(std::move(profile))
    , m_process(std::move(process))
    , m_worker(std::move(session)) {}

std::unique_ptr<OfficeInstance> OfficeInstance::Start(const QByteArray& program, const QString& pool,
                                                      CreateWriterSessionFunction createSession) {
    // a second time with a new profile: an old one may have been damaged
    for (int attempt = 0; attempt < 2; ++attempt) {
        auto profile = OfficeProfile::Acquire(pool);
        if (!profile)
            return nullptr;
        const bool isNew = profile->IsNew();
        const QString pipe = QStringLiteral("quillbrook_%1").arg(QUuid::createUuid().toString(QUuid::Id128));
        const QList<QByteArray> arguments = {
            "--invisible",
            "--nologo",
            "--norestore",
            "--nodefault",
            "--nofirststartwizard",
            "--accept=pipe,name=" + pipe.toLatin1() + ";urp;StarOffice.ComponentContext",
            profile->Argument(),
        };
        auto process = OfficeProcess::Start(program, arguments, profile->LockDescriptor());
        if (!process)
            return nullptr;
        std::unique_ptr<OfficeInstance> instance(new OfficeInstance(
            std::move(profile), std::move(process), std::unique_ptr<WriterSession>(createSession())));
        const Reached reached = instance->Connect(pipe);
        if (reached == Reached::Yes)
            return instance;
        instance->Kill();
        if (isNew || reached == Reached::Hangs)
            return nullptr;
    }
    return nullptr;
}

// Tries until the instance answers or has ended.
OfficeInstance::Reached OfficeInstance::Connect(const QString& pipe) {
    const auto hangs = std::make_shared<std::atomic<bool>>(false);
    const auto attempt = [process = m_process, hangs, pipe](WriterSession& session) {
        const StartWatch watch(*process, *hangs);
        while (!session.Connect(pipe)) {
            if (*hangs || process->HasEnded())
                return false;
            std::this_thread::sleep_for(kConnectPause);
        }
        return true;
    };
    if (Call(attempt, kStartPatience + kOfficePatience).value_or(false))
        return Reached::Yes;
    return *hangs ? Reached::Hangs : Reached::Ended;
}

OfficeInstance::~OfficeInstance() {
    if (!m_handedOver)
        Kill();
}

bool OfficeInstance::Quit() {
    if (!IsAlive())
        return false;
    enum class Answer { Ends, Stays, HasOthers };
    const auto answer = Call([process = m_process](WriterSession& session) {
        // what does not tell and goes on living may hold some
        const auto holdsOthers = session.HoldsOtherDocuments();
        if (holdsOthers ? *holdsOthers : !process->WaitForEnd(kDeathPatience))
            return Answer::HasOthers;
        session.Terminate(); // it may be gone before it answers
        return process->WaitForEnd(kQuitPatience) ? Answer::Ends : Answer::Stays;
    });
    if (answer == Answer::HasOthers) {
        HandOver();
        return true;
    }
    if (m_process->HasEnded())
        m_alive = false; // by itself: the profile is whole
    Kill();
    return true;
}

void OfficeInstance::Kill() {
    if (!m_alive || m_handedOver)
        return;
    m_alive = false;
    m_process->Kill();
    m_profile->Discard(); // nobody knows what it was writing
}

void OfficeInstance::HandOver() {
    m_handedOver = true;
    m_process->HandOver();
    m_profile->HandOver();
}

} // namespace platform
