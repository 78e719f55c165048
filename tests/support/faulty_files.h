// A layer between the database engine and its files that fails, tears writes and cuts the power when a test
// wants it. Standing in the engine's own place for files, it needs no right and no particular file system.
#pragma once

#include <QByteArray>
#include <QString>
#include <map>
#include <memory>
#include <random>
#include <sqlcipher/sqlite3.h>
#include <vector>

class FaultyFiles {
public:
    enum class Fault {
        DiskFull,  // nothing is written, no file is made; the rest works
        TornWrite, // half of what was to be written is; nothing is shortened
        SyncError, // what was written does not reach the disk
        Dead,      // nothing at all is changed any more, as after a power cut
    };

    // From here to its end every file that the engine opens goes through this layer. One at a time.
    FaultyFiles();
    ~FaultyFiles();
    FaultyFiles(const FaultyFiles&) = delete;
    FaultyFiles& operator=(const FaultyFiles&) = delete;

    // Lets the next `changes` changes of files pass (a file made, written, shortened, brought to the disk or
    // deleted), then fails: at that one change only, or from then on.
    void FailAfter(int changes, Fault fault, bool once = false);

    // No more failures.
    void Heal();

    // Whether a change has failed since FailAfter.
    bool HasFailed() const { return m_failures > 0; }

    // Writes what a power cut at this moment might leave of the watched files into `folder`, under their own
    // names. Whatever has been brought to the disk is there; of the rest, `random` chooses.
    bool LeaveAfterPowerCut(const QString& folder, std::mt19937& random) const;

private:
    struct Change {
        qint64 offset = 0;
        QByteArray bytes;
        bool shortens = false; // to `offset` bytes
    };
    // A file's content: what is on the disk for sure, and the changes since.
    struct Content {
        QByteArray onDisk;
        std::vector<Change> pending;
    };
    // A file's name may stand for another content on the disk than in the running system.
    struct Name {
        std::shared_ptr<Content> onDisk;
        std::shared_ptr<Content> now;
    };
    struct File;

    enum class Kind { Make, Write, Shorten, Sync, Delete };
    bool Fails(Kind kind);
    static QByteArray Apply(QByteArray bytes, const Change& change);

    static FaultyFiles& Of(sqlite3_vfs* vfs) { return *static_cast<FaultyFiles*>(vfs->pAppData); }
    static int Open(sqlite3_vfs* vfs, const char* path, sqlite3_file* file, int flags, int* outFlags);
    static int Delete(sqlite3_vfs* vfs, const char* path, int syncFolder);
    static int Close(sqlite3_file* file);
    static int Write(sqlite3_file* file, const void* bytes, int size, sqlite3_int64 offset);
    static int Truncate(sqlite3_file* file, sqlite3_int64 size);
    static int Sync(sqlite3_file* file, int flags);
    static const sqlite3_io_methods* Methods();

    sqlite3_vfs* m_system;
    sqlite3_vfs m_vfs;
    std::map<QString, Name> m_names; // by path
    Fault m_fault = Fault::Dead;
    bool m_armed = false;
    bool m_once = false;
    int m_passing = 0;
    int m_failures = 0;
};
