#include "tests/support/faulty_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

struct FaultyFiles::File {
    sqlite3_file base;
    FaultyFiles* owner;
    std::shared_ptr<Content>* content; // owned
    std::shared_ptr<Content>& Shared() const { return *content; }
    // the system's own file lies right behind
    sqlite3_file* System() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    static File* Of(sqlite3_file* file) { return reinterpret_cast<File*>(file); }
};

FaultyFiles::FaultyFiles()
    : m_system(sqlite3_vfs_find(nullptr))
    , m_vfs(*m_system) {
    m_vfs.iVersion = 1;
    m_vfs.szOsFile = int(sizeof(File)) + m_system->szOsFile;
    m_vfs.pNext = nullptr;
    m_vfs.zName = "faulty";
    m_vfs.pAppData = this;
    m_vfs.xOpen = &Open;
    m_vfs.xDelete = &Delete;
    m_vfs.xAccess = [](sqlite3_vfs* vfs, const char* path, int flags, int* result) {
        return Of(vfs).m_system->xAccess(Of(vfs).m_system, path, flags, result);
    };
    m_vfs.xFullPathname = [](sqlite3_vfs* vfs, const char* path, int size, char* full) {
        return Of(vfs).m_system->xFullPathname(Of(vfs).m_system, path, size, full);
    };
    m_vfs.xRandomness = [](sqlite3_vfs* vfs, int size, char* bytes) {
        return Of(vfs).m_system->xRandomness(Of(vfs).m_system, size, bytes);
    };
    m_vfs.xSleep = [](sqlite3_vfs* vfs, int microseconds) {
        return Of(vfs).m_system->xSleep(Of(vfs).m_system, microseconds);
    };
    m_vfs.xCurrentTime = [](sqlite3_vfs* vfs, double* time) {
        return Of(vfs).m_system->xCurrentTime(Of(vfs).m_system, time);
    };
    m_vfs.xGetLastError = [](sqlite3_vfs* vfs, int size, char* text) {
        return Of(vfs).m_system->xGetLastError(Of(vfs).m_system, size, text);
    };
    sqlite3_vfs_register(&m_vfs, 1);
}

FaultyFiles::~FaultyFiles() {
    sqlite3_vfs_register(m_system, 1);
    sqlite3_vfs_unregister(&m_vfs);
}

void FaultyFiles::FailAfter(int changes, Fault fault, bool once) {
    m_fault = fault;
    m_armed = true;
    m_once = once;
    m_passing = changes;
    m_failures = 0;
}

void FaultyFiles::Heal() {
    m_armed = false;
}

bool FaultyFiles::Fails(Kind kind) {
    if (!m_armed)
        return false;
    if (m_passing > 0) {
        --m_passing;
        return false;
    }
    const bool concerned = m_fault == Fault::Dead || (m_fault == Fault::SyncError && kind == Kind::Sync) ||
                           (m_fault == Fault::DiskFull && (kind == Kind::Write || kind == Kind::Make)) ||
                           (m_fault == Fault::TornWrite && (kind == Kind::Write || kind == Kind::Shorten));
    if (!concerned)
        return false;
    ++m_failures;
    if (m_once)
        m_armed = false;
    return true;
}

QByteArray FaultyFiles::Apply(QByteArray bytes, const Change& change) {
    if (change.shortens) {
        bytes.truncate(change.offset);
        return bytes;
    }
    const qint64 end = change.offset + change.bytes.size();
    if (bytes.size() < end)
        bytes.append(QByteArray(end - bytes.size(), '\0'));
    return bytes.replace(change.offset, change.bytes.size(), change.bytes);
}

static QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int FaultyFiles::Open(sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags, int* outFlags) {
    FaultyFiles& owner = Of(vfs);
    file->pMethods = nullptr;
    const QString name = path ? QFile::decodeName(path) : QString();
    const bool watched = (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL)) != 0;
    const bool isNew = !QFileInfo::exists(name);
    if (watched && isNew && (flags & SQLITE_OPEN_CREATE) != 0 && owner.Fails(Kind::Make))
        return owner.m_fault == Fault::DiskFull ? SQLITE_FULL : SQLITE_CANTOPEN;
    File* opened = File::Of(file);
    const int result = owner.m_system->xOpen(owner.m_system, path, opened->System(), flags, outFlags);
    if (result != SQLITE_OK)
        return result;
    std::shared_ptr<Content> content = std::make_shared<Content>();
    if (watched) {
        Name& entry = owner.m_names[name];
        if (isNew) {
            entry.now = content;
        } else if (entry.now) {
            content = entry.now;
        } else { // seen for the first time
            content->onDisk = BytesOf(name);
            entry.onDisk = entry.now = content;
        }
    }
    opened->owner = &owner;
    opened->content = new std::shared_ptr<Content>(content);
    file->pMethods = Methods();
    return SQLITE_OK;
}

int FaultyFiles::Delete(sqlite3_vfs* vfs, const char* path, int syncFolder) {
    FaultyFiles& owner = Of(vfs);
    const QString name = QFile::decodeName(path);
    if (QFileInfo::exists(name) && owner.Fails(Kind::Delete))
        return SQLITE_IOERR_DELETE;
    const int result = owner.m_system->xDelete(owner.m_system, path, syncFolder);
    const auto entry = owner.m_names.find(name);
    if (result == SQLITE_OK && entry != owner.m_names.end()) {
        entry->second.now.reset();
        if (syncFolder)
            entry->second.onDisk.reset();
    }
    return result;
}

int FaultyFiles::Close(sqlite3_file* file) {
    File* closed = File::Of(file);
    const int result = closed->System()->pMethods->xClose(closed->System());
    delete closed->content;
    return result;
}

int FaultyFiles::Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset) {
    File* written = File::Of(file);
    FaultyFiles& owner = *written->owner;
    const bool fails = owner.Fails(Kind::Write);
    if (fails && owner.m_fault == Fault::TornWrite)
        size /= 2;
    else if (fails)
        return owner.m_fault == Fault::DiskFull ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    const int result = written->System()->pMethods->xWrite(written->System(), bytes, size, offset);
    if (result == SQLITE_OK)
        written->Shared()->pending.push_back(
            {offset, QByteArray(static_cast<const char*>(bytes), size), false});
    return fails ? SQLITE_IOERR_WRITE : result;
}

int FaultyFiles::Truncate(sqlite3_file* file, sqlite3_int64 size) {
    File* shortened = File::Of(file);
    if (shortened->owner->Fails(Kind::Shorten))
        return SQLITE_IOERR_TRUNCATE;
    const int result = shortened->System()->pMethods->xTruncate(shortened->System(), size);
    if (result == SQLITE_OK)
        shortened->Shared()->pending.push_back({size, {}, true});
    return result;
}

// Brings the content to the disk, and with it the name under which it was made. The disk is the one played
// here: the real one is not waited for.
int FaultyFiles::Sync(sqlite3_file* file, int) {
    File* synced = File::Of(file);
    FaultyFiles& owner = *synced->owner;
    if (owner.Fails(Kind::Sync))
        return SQLITE_IOERR_FSYNC;
    const std::shared_ptr<Content>& content = synced->Shared();
    for (const Change& change : content->pending)
        content->onDisk = Apply(std::move(content->onDisk), change);
    content->pending.clear();
    for (auto& [path, name] : owner.m_names) {
        if (name.now == content)
            name.onDisk = content;
    }
    return SQLITE_OK;
}

const sqlite3_io_methods* FaultyFiles::Methods() {
    static const sqlite3_io_methods methods = [] {
        sqlite3_io_methods made{};
        made.iVersion = 1;
        made.xClose = &Close;
        made.xWrite = &Write;
        made.xTruncate = &Truncate;
        made.xSync = &Sync;
        made.xRead = [](sqlite3_file* file, void* bytes, int size, sqlite3_int64 offset) {
            sqlite3_file* system = File::Of(file)->System();
            return system->pMethods->xRead(system, bytes, size, offset);
        };
        made.xFileSize = [](sqlite3_file* file, sqlite3_int64* size) {
            sqlite3_file* system = File::Of(file)->System();
            return system->pMethods->xFileSize(system, size);
        };
        made.xLock = [](sqlite3_file* file, int level) {
            sqlite3_file* system = File::Of(file)->System();
            return system->pMethods->xLock(system, level);
        };
        made.xUnlock = [](sqlite3_file* file, int level) {
            sqlite3_file* system = File::Of(file)->System();
            return system->pMethods->xUnlock(system, level);
        };
        made.xCheckReservedLock = [](sqlite3_file* file, int* result) {
            sqlite3_file* system = File::Of(file)->System();
            return system->pMethods->xCheckReservedLock(system, result);
        };
        made.xFileControl = [](sqlite3_file* file, int operation, void* argument) {
            sqlite3_file* system = File::Of(file)->System();
            return system->pMethods->xFileControl(system, operation, argument);
        };
        made.xSectorSize = [](sqlite3_file* file) {
            sqlite3_file* system = File::Of(file)->System();
            return system->pMethods->xSectorSize(system);
        };
        made.xDeviceCharacteristics = [](sqlite3_file* file) {
            sqlite3_file* system = File::Of(file)->System();
            return system->pMethods->xDeviceCharacteristics(system);
        };
        return made;
    }();
    return &methods;
}

bool FaultyFiles::LeaveAfterPowerCut(const QString& folder, std::mt19937& random) const {
    for (const auto& [path, name] : m_names) {
        const std::shared_ptr<Content>& content = random() % 2 == 0 ? name.onDisk : name.now;
        if (!content)
            continue;
        QByteArray bytes = content->onDisk;
        for (Change change : content->pending) {
            const auto fate = random() % 3; // lost, arrived, or half arrived
            if (fate == 0)
                continue;
            if (fate == 2)
                change.bytes.truncate(change.bytes.size() / 2);
            bytes = Apply(std::move(bytes), change);
        }
        QFile file(QDir(folder).filePath(QFileInfo(path).fileName()));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            return false;
    }
    return true;
}
