#include "platform/word/office_process.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <condition_variable>
#include <fcntl.h>
#include <mutex>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace platform {

struct OfficeProcess::State {
    pid_t pid = 0; // of the first process, and number of the group
    mutable std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
    bool handedOver = false;
};

namespace {

constexpr int kInheritedLock = 3;

// File actions and attributes that free themselves.
struct SpawnSettings {
    SpawnSettings() {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawnattr_init(&attributes);
    }
    ~SpawnSettings() {
        ::posix_spawn_file_actions_destroy(&actions);
        ::posix_spawnattr_destroy(&attributes);
    }
    Q_DISABLE_COPY_MOVE(SpawnSettings)

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
};

std::vector<char*> Pointers(QList<QByteArray>& words) {
    std::vector<char*> pointers;
    for (QByteArray& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

OfficeProcess::OfficeProcess(std::shared_ptr<State> state)
    : m_state(std::move(state)) {}

std::unique_ptr<OfficeProcess> OfficeProcess::Start(const QByteArray& program,
                                                    const QList<QByteArray>& arguments, int lock) {
    SpawnSettings settings;
    ::posix_spawn_file_actions_addopen(&settings.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&settings.actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_addopen(&settings.actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    // onto itself, too, this makes a descriptor that is inherited; nothing else of ours is
    ::posix_spawn_file_actions_adddup2(&settings.actions, lock, kInheritedLock);
    ::posix_spawn_file_actions_addclosefrom_np(&settings.actions, kInheritedLock + 1);
    sigset_t signals;
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&settings.attributes, &signals);
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&settings.attributes, &signals);
    ::posix_spawnattr_setflags(&settings.attributes,
                               POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    QList<QByteArray> words = QList<QByteArray>{program} + arguments;
    const std::vector<char*> pointers = Pointers(words);
    auto state = std::make_shared<State>();
    if (::posix_spawn(&state->pid, program.constData(), &settings.actions, &settings.attributes,
                      pointers.data(), environ) != 0)
        return nullptr;
    std::thread([state] {
        // its number stays taken until it is waited for, so that its group can safely be named
        siginfo_t info = {};
        while (::waitid(P_PID, id_t(state->pid), &info, WEXITED | WNOWAIT) != 0 && errno == EINTR) {
        }
        const std::lock_guard lock(state->mutex);
        if (!state->handedOver)
            ::kill(-state->pid, SIGKILL);
        ::waitpid(state->pid, nullptr, 0);
        state->ended = true;
        state->changed.notify_all();
    }).detach();
    return std::unique_ptr<OfficeProcess>(new OfficeProcess(std::move(state)));
}

bool OfficeProcess::HasEnded() const {
    const std::lock_guard lock(m_state->mutex);
    return m_state->ended;
}

bool OfficeProcess::WaitForEnd(std::chrono::milliseconds patience) const {
    std::unique_lock lock(m_state->mutex);
    return m_state->changed.wait_for(lock, patience, [this] { return m_state->ended; });
}

qint64 OfficeProcess::ProcessorTime() const {
    qint64 ticks = 0;
    for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        if (!entry.front().isDigit())
            continue;
        QFile file(QStringLiteral("/proc/%1/stat").arg(entry));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray stat = file.read(4096);
        // behind the name: state, parent, group, ...; user and system time are the 12th and 13th
        const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
        if (fields.size() > 13 && fields[2].toInt() == m_state->pid)
            ticks += fields[11].toLongLong() + fields[12].toLongLong();
    }
    return ticks;
}

void OfficeProcess::Kill() {
    {
        const std::lock_guard lock(m_state->mutex);
        if (m_state->ended)
            return;
        ::kill(-m_state->pid, SIGKILL);
    }
    WaitForEnd(std::chrono::seconds(2));
}

void OfficeProcess::HandOver() {
    const std::lock_guard lock(m_state->mutex);
    m_state->handedOver = true;
}

} // namespace platform
