#include "platform/word/office_instance.h"

#include <QUuid>
#include <thread>

namespace platform {

namespace {

constexpr auto kStartPatience = std::chrono::seconds(30); // for one that makes progress
constexpr auto kQuitPatience = std::chrono::seconds(5);
constexpr auto kConnectPause = std::chrono::milliseconds(25);

// Tries until the instance answers, has ended, or has made no progress for a while.
bool ConnectWhileItStarts(WriterSession& session, const OfficeProcess& process, const QString& pipe) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    auto lastProgress = start;
    auto nextLook = start + std::chrono::seconds(1);
    qint64 used = 0;
    while (!session.Connect(pipe)) {
        const auto now = Clock::now();
        if (now >= nextLook) {
            const qint64 usedNow = process.ProcessorTime();
            if (usedNow > used)
                lastProgress = now;
            used = usedNow;
            nextLook = now + std::chrono::seconds(1);
        }
        if (process.HasEnded() || now - lastProgress > kOfficePatience || now - start > kStartPatience)
            return false;
        std::this_thread::sleep_for(kConnectPause);
    }
    return true;
}

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
        if (instance->Connect(pipe))
            return instance;
        const bool endedByItself = instance->m_process->HasEnded();
        instance->Kill();
        if (isNew || !endedByItself)
            return nullptr;
    }
    return nullptr;
}

bool OfficeInstance::Connect(const QString& pipe) {
    return Call([process = m_process,
                 pipe](WriterSession& session) { return ConnectWhileItStarts(session, *process, pipe); },
                kStartPatience + kOfficePatience)
        .value_or(false);
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
        if (session.HoldsOtherDocuments())
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
