#include "platform/word/office_profile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QUrl>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr int kMostProfiles = 32;

// What a first start would otherwise ask or tell the user.
constexpr char kSettings[] =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="FirstRun" oor:op="fuse"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay" oor:op="fuse"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="LastTipOfTheDayShown" oor:op="fuse"><value>2147483647</value></prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="LastTimeGetInvolvedShown" oor:op="fuse"><value>9999999999</value></prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="LastTimeDonateShown" oor:op="fuse"><value>9999999999</value></prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="WhatsNew" oor:op="fuse"><value>false</value></prop></item>
</oor:items>
)";

QString ProfileFolder(const QString& pool, int number) {
    return QStringLiteral("%1/%2").arg(pool).arg(number);
}

QString LockFile(const QString& folder) {
    return folder + QStringLiteral(".lock");
}

// Says whose hidden instance a profile has; gone when it is the user's.
QString OwnerFile(const QString& folder) {
    return folder + QStringLiteral(".owner");
}

QByteArray InstallationArgument(const QString& folder) {
    return "-env:UserInstallation=" + QUrl::fromLocalFile(folder).toEncoded();
}

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(64 * 1024) : QByteArray();
}

// A process by its number and the time it started at; empty when there is none.
QByteArray ProcessIdentity(const QByteArray& pid) {
    const QByteArray stat = ReadAll(QStringLiteral("/proc/%1/stat").arg(QLatin1String(pid)));
    // the name before the last bracket may hold anything; the start time is the 20th field behind it
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    return fields.size() > 20 ? pid + ' ' + fields[19] : QByteArray();
}

void EndInstancesOf(const QString& folder) {
    const QByteArray argument = InstallationArgument(folder);
    for (const QString& entry : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        bool isNumber = false;
        const int pid = entry.toInt(&isNumber);
        if (!isNumber || pid == ::getpid())
            continue;
        const QByteArray commandLine = ReadAll(QStringLiteral("/proc/%1/cmdline").arg(pid));
        if (commandLine.split('\0').contains(argument))
            ::kill(pid, SIGKILL);
    }
}

} // namespace

OfficeProfile::OfficeProfile(const QString& folder, int lock)
    : m_folder(folder)
    , m_lock(lock) {}

OfficeProfile::~OfficeProfile() {
    ::close(m_lock);
}

std::unique_ptr<OfficeProfile> OfficeProfile::Acquire(const QString& pool) {
    if (!QDir().mkpath(pool) || ::chmod(QFile::encodeName(pool).constData(), 0700) != 0)
        return nullptr;
    for (int number = 0; number < kMostProfiles; ++number) {
        const QString folder = ProfileFolder(pool, number);
        const int lock =
            ::open(QFile::encodeName(LockFile(folder)).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (lock < 0)
            return nullptr;
        if (::flock(lock, LOCK_EX | LOCK_NB) != 0) {
            ::close(lock);
            continue;
        }
        std::unique_ptr<OfficeProfile> profile(new OfficeProfile(folder, lock));
        return profile->Prepare() ? std::move(profile) : nullptr;
    }
    return nullptr;
}

bool OfficeProfile::Prepare() {
    const QString settings = m_folder + QStringLiteral("/user/registrymodifications.xcu");
    if (!QFile::exists(settings)) {
        m_new = true;
        QFile file(settings);
        if (!QDir().mkpath(m_folder + QStringLiteral("/user")) || !file.open(QIODevice::WriteOnly) ||
            file.write(kSettings) < 0)
            return false;
    }
    QSaveFile owner(OwnerFile(m_folder));
    return owner.open(QIODevice::WriteOnly) &&
           owner.write(ProcessIdentity(QByteArray::number(::getpid()))) > 0 && owner.commit();
}

QByteArray OfficeProfile::Argument() const {
    return InstallationArgument(m_folder);
}

void OfficeProfile::HandOver() {
    QFile::remove(OwnerFile(m_folder));
}

void OfficeProfile::Discard() {
    QDir(m_folder).removeRecursively();
}

int OfficeProfile::EndOrphans(const QString& pool) {
    int orphans = 0;
    for (int number = 0; number < kMostProfiles; ++number) {
        const QString folder = ProfileFolder(pool, number);
        const QByteArray owner = ReadAll(OwnerFile(folder));
        if (owner.isEmpty() || ProcessIdentity(owner.split(' ').constFirst()) == owner)
            continue;
        const int lock = ::open(QFile::encodeName(LockFile(folder)).constData(), O_RDWR | O_CLOEXEC);
        if (lock >= 0 && ::flock(lock, LOCK_EX | LOCK_NB) != 0) {
            ++orphans;
            EndInstancesOf(folder);
            // they need a moment to be gone
            for (int wait = 0; wait < 50 && ::flock(lock, LOCK_EX | LOCK_NB) != 0; ++wait)
                ::usleep(20'000);
            QDir(folder).removeRecursively();
        }
        QFile::remove(OwnerFile(folder));
        if (lock >= 0)
            ::close(lock);
    }
    return orphans;
}

} // namespace platform
