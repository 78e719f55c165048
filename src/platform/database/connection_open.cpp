// Opening and making files: the order of the steps is what keeps a foreign or damaged file untouched.
#include "platform/database/connection.h"
#include "platform/database/engine_functions.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace platform {

constexpr qint64 kPageSize = 16384;
constexpr int kPageCacheKilobytes = 256 * 1024; // grows only as far as the file's pages are read
constexpr int kBusyMilliseconds = 100;          // outlasts another process's look at the file, no more
constexpr int kMaxValueBytes = 256 * 1024 * 1024;

// Opens and gives the key; nothing of the file is read yet. The format is pinned to the third version of the
// encryption, which later versions of the engine read too when told so.
Connection::Handle Connection::OpenHandle(const QString& path, int flags, const QString& password) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(QFile::encodeName(path).constData(), &opened,
                                       flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE, nullptr);
    Handle handle(opened);
    if (result != SQLITE_OK)
        return nullptr;
    sqlite3_extended_result_codes(opened, 1);
    sqlite3_busy_timeout(opened, kBusyMilliseconds);
    sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, kMaxValueBytes);
    sqlite3_limit(opened, SQLITE_LIMIT_ATTACHED, 0);
    QByteArray key = password.toUtf8();
    const bool keyed = sqlite3_key(opened, key.constData(), static_cast<int>(key.size())) == SQLITE_OK;
    key.fill('\0');
    if (!keyed || !RegisterFunctions(opened))
        return nullptr;
    QString engine;
    SqliteStatement version(opened, "PRAGMA cipher_version");
    if (version && version.Step() == SQLITE_ROW)
        engine = version.Text(0);
    if (engine.isEmpty()) // an engine without encryption would write plain text
        return nullptr;
    version = {};
    if (engine.section(u'.', 0, 0).toInt() >= 4 && !RunSql(opened, "PRAGMA cipher_compatibility = 3"))
        return nullptr;
    if (!RunSql(opened, "PRAGMA cipher_page_size = " + QByteArray::number(kPageSize)))
        return nullptr;
    return handle;
}

// A journal left by a crash is played back by the first reading, whatever the key. So the playing back is
// tried on a copy first, and the file itself is touched only when the copy opens.
bool Connection::JournalMayBePlayedBack(const QString& path, const QString& password, FileFormat format) {
    const QString journal = path + QStringLiteral("-journal");
    if (QFileInfo(journal).size() == 0)
        return true;
    {
        Handle handle = OpenHandle(path, SQLITE_OPEN_READONLY, password);
        SqliteStatement read(handle.get(), "PRAGMA application_id");
        if (handle && read && read.Step() == SQLITE_ROW)
            return true; // not one to play back
        if (!handle || sqlite3_extended_errcode(handle.get()) != SQLITE_READONLY_ROLLBACK)
            return false;
    }
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy"));
    if (!folder.isValid() || !QFile::copy(path, copy) ||
        !QFile::copy(journal, copy + QStringLiteral("-journal")))
        return true; // no room to try; the user's data goes first
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    QFile::setPermissions(copy + QStringLiteral("-journal"), QFile::ReadOwner | QFile::WriteOwner);
    Handle handle = OpenHandle(copy, SQLITE_OPEN_READWRITE, password);
    return handle && Check(handle.get(), copy, format);
}

// Whether the file is of the format and whole in length. Reads its first page, and so proves the key.
bool Connection::Check(sqlite3* handle, const QString& path, FileFormat format) {
    const qint64 pages = ReadNumber(handle, "PRAGMA page_count", 0);
    return pages > 0 && ReadNumber(handle, "PRAGMA application_id", -1) == format.applicationId &&
           ReadNumber(handle, "PRAGMA user_version", -1) == format.version &&
           QFileInfo(path).size() == pages * kPageSize;
}

bool Connection::Configure(sqlite3* handle, bool exclusive) {
    if (exclusive) {
        if (!RunSql(handle, "PRAGMA locking_mode = EXCLUSIVE"))
            return false;
        // A file that cannot be written can only be held against writers.
        const bool held = sqlite3_db_readonly(handle, "main") == 1
                              ? RunSql(handle, "PRAGMA user_version")
                              : RunSql(handle, "BEGIN EXCLUSIVE") && RunSql(handle, "COMMIT");
        if (!held)
            return false;
    }
    // DELETE leaves nothing beside the file once it is closed; TRUNCATE and PERSIST would.
    return RunSql(handle, "PRAGMA journal_mode = DELETE") && RunSql(handle, "PRAGMA synchronous = FULL") &&
           RunSql(handle, "PRAGMA foreign_keys = ON") && RunSql(handle, "PRAGMA temp_store = MEMORY") &&
           RunSql(handle, "PRAGMA trusted_schema = OFF") && RunSql(handle, "PRAGMA cell_size_check = ON") &&
           RunSql(handle, "PRAGMA cache_size = -" + QByteArray::number(kPageCacheKilobytes));
}

std::shared_ptr<Connection> Connection::Wrap(Handle handle, bool exclusive) {
    std::optional<std::vector<TableInfo>> tables = ReadCatalogue(handle.get());
    if (!tables)
        return nullptr;
    std::shared_ptr<Connection> connection(new Connection(std::move(handle), exclusive));
    if (!RegisterLikeText(connection->m_handle.get(), *connection->m_textReader))
        return nullptr;
    for (TableInfo& info : *tables) {
        const std::size_t fields = info.fields.size();
        connection->m_tables.push_back(
            {.info = std::move(info), .finder = {}, .readers = {}, .textIndex = {}});
        connection->m_tables.back().readers.resize(fields);
    }
    return connection;
}

std::shared_ptr<Connection> Connection::Open(const QString& path, bool exclusive, bool readOnly,
                                             const QString& password, FileFormat format) {
    const QFileInfo file(path);
    const QString fullPath = file.absoluteFilePath();
    if (path.isEmpty() || !file.isFile() || file.size() == 0 ||
        !JournalMayBePlayedBack(fullPath, password, format))
        return nullptr;
    Handle handle = OpenHandle(fullPath, readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE, password);
    if (!handle || !Check(handle.get(), fullPath, format) || !Configure(handle.get(), exclusive))
        return nullptr;
    // What a crash left and was not played back is an empty shell; with the lock held it is nobody's.
    if (exclusive && sqlite3_db_readonly(handle.get(), "main") == 0)
        QFile::remove(fullPath + QStringLiteral("-journal"));
    return Wrap(std::move(handle), exclusive);
}

bool Connection::Fill(sqlite3* handle, FileFormat format, const std::vector<TableDef>& tables) {
    return RunSql(handle, "BEGIN EXCLUSIVE") &&
           RunSql(handle, "PRAGMA application_id = " + QByteArray::number(format.applicationId)) &&
           RunSql(handle, "PRAGMA user_version = " + QByteArray::number(format.version)) &&
           CreateTables(handle, tables) && RunSql(handle, "COMMIT");
}

std::shared_ptr<Connection> Connection::Create(const QString& path, const QString& password,
                                               FileFormat format, const std::vector<TableDef>& tables) {
    if (path.isEmpty() || !AreValidTables(tables))
        return nullptr;
    const QString fullPath = QFileInfo(path).absoluteFilePath();
    QFile file(fullPath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return nullptr;
    file.close();
    Handle handle = OpenHandle(fullPath, SQLITE_OPEN_READWRITE, password);
    std::shared_ptr<Connection> connection;
    if (handle && RunSql(handle.get(), "PRAGMA locking_mode = EXCLUSIVE") &&
        RunSql(handle.get(), "PRAGMA synchronous = FULL") && Fill(handle.get(), format, tables) &&
        Configure(handle.get(), true))
        connection = Wrap(std::move(handle), true);
    if (!connection) {
        handle.reset();
        QFile::remove(fullPath);
        QFile::remove(fullPath + QStringLiteral("-journal"));
    }
    return connection;
}

} // namespace platform
