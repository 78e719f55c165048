#include "tests/support/real_writer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QtTest>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <unistd.h>

RealWriter::RealWriter() {
    Restart();
}

RealWriter::~RealWriter() {
    m_service.reset();
    Signal(SIGKILL);
}

QString RealWriter::Missing() {
    if (!QFile::exists(QStringLiteral(QUILLBROOK_BINARY_DIR "/quillbrook-writer.so")))
        return QStringLiteral("LibreOffice's development files were not there when this was built");
    if (QStandardPaths::findExecutable(QStringLiteral("soffice")).isEmpty())
        return QStringLiteral("LibreOffice is not installed");
    if (!QFile::exists(QFileInfo(QStandardPaths::findExecutable(QStringLiteral("soffice"))).canonicalPath() +
                       QStringLiteral("/../share/config/soffice.cfg/modules/swriter/ui")))
        return QStringLiteral("LibreOffice is installed without its dialogs (libreoffice-writer is missing)");
    return {};
}

void RealWriter::Restart() {
    m_service.reset();
    m_service = std::make_unique<platform::WordProcessor>(QStringLiteral(QUILLBROOK_BINARY_DIR), Pool());
}

bool RealWriter::InstallPrinter(const QString& file) const {
    const QString folder = Pool() + QStringLiteral("/0/user/psprint");
    QFile printers(folder + QStringLiteral("/psprint.conf"));
    return QDir().mkpath(folder) && printers.open(QIODevice::WriteOnly) &&
           printers.write("[Test]\nPrinter=SGENPRT/Test\nDefaultPrinter=1\nCommand=cat >'" +
                          QFile::encodeName(file) + "'\n") > 0;
}

std::vector<pid_t> RealWriter::ProcessesOf(const QString& folder) {
    const QByteArray argument = "UserInstallation=" + QUrl::fromLocalFile(folder).toEncoded();
    std::vector<pid_t> processes;
    for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        QFile commandLine(QStringLiteral("/proc/%1/cmdline").arg(entry));
        if (entry.toInt() > 0 && commandLine.open(QIODevice::ReadOnly) &&
            commandLine.readAll().contains(argument))
            processes.push_back(entry.toInt());
    }
    return processes;
}

void RealWriter::Signal(int signal) const {
    for (const pid_t process : Processes())
        ::kill(process, signal);
}

bool RealWriter::HasNoProcesses() const {
    return QTest::qWaitFor([this] { return Processes().empty(); }, 8000);
}

// The empty window takes the place of the document's at a moment of its own, so that one look is not enough.
bool RealWriter::EndsWithItsLastWindow() const {
    return QTest::qWaitFor(
        [this] {
            if (Processes().empty())
                return true;
            person::Close(QStringLiteral("^LibreOffice$"));
            return false;
        },
        20'000);
}

static bool IsFree(const QString& path) {
    const int lock = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC);
    const bool isFree = lock >= 0 && ::flock(lock, LOCK_EX | LOCK_NB) == 0;
    ::close(lock);
    return isFree;
}

// A process that is killed has no command line any more a moment before it lets go of its files.
bool RealWriter::HasNoLocks() const {
    const QDir pool(Pool());
    const QStringList locks = pool.entryList({QStringLiteral("*.lock")});
    return std::all_of(locks.begin(), locks.end(), [&](const QString& name) {
        return QTest::qWaitFor([&] { return IsFree(pool.filePath(name)); }, 1000);
    });
}

namespace person {

static QByteArray Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(10'000);
    return process.readAllStandardOutput();
}

unsigned long WindowNamed(const QString& pattern) {
    const QByteArray found =
        Run(QStringLiteral("xdotool"),
            {QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), pattern});
    const QList<QByteArray> windows = found.trimmed().split('\n');
    return windows.constLast().toULong();
}

bool SeesWindow(const QString& pattern, int milliseconds) {
    return QTest::qWaitFor([&] { return WindowNamed(pattern) != 0; }, milliseconds);
}

bool Press(const QString& windowPattern, const QString& keys) {
    const unsigned long window = WindowNamed(windowPattern);
    if (window == 0)
        return false;
    const QString id = QString::number(window);
    Run(QStringLiteral("xdotool"), {QStringLiteral("windowactivate"), QStringLiteral("--sync"), id});
    Run(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("--clearmodifiers"), keys});
    return true;
}

bool Close(const QString& windowPattern) {
    const unsigned long window = WindowNamed(windowPattern);
    if (window == 0)
        return false;
    Run(QStringLiteral("wmctrl"), {QStringLiteral("-i"), QStringLiteral("-c"), QString::number(window)});
    return true;
}

} // namespace person
