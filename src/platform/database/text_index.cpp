#include "platform/database/text_index.h"

#include "platform/database/sqlite_statement.h"

#include <array>

namespace platform {

constexpr std::size_t kMaxIndexedRows = 5'000'000;

static QByteArray ChangedName(const TableInfo& table) {
    return '"' + table.name.toLatin1() + "_changed\"";
}

struct Trigger {
    QByteArray name;
    QByteArray sql;
};

static std::array<Trigger, 5> Triggers(const TableInfo& table) {
    const auto trigger = [&](const char* kind, const char* event, const QByteArray& on,
                             const std::vector<const char*>& ids) {
        const QByteArray name = table.name.toLatin1() + kind;
        QByteArray sql = "CREATE TRIGGER \"" + name + "\" AFTER " + event + " ON " + on + " BEGIN";
        for (const char* id : ids)
            sql += " INSERT OR IGNORE INTO " + ChangedName(table) + " VALUES (" + id + ");";
        return Trigger{name, sql + " END"};
    };
    const QByteArray main = table.MainName();
    const QByteArray text = table.TextName();
    return {
        trigger("_inserted", "INSERT", main, {"new._id"}),
        trigger("_deleted", "DELETE", main, {"old._id"}),
        trigger("_text_inserted", "INSERT", text, {"new._id"}),
        trigger("_text_updated", "UPDATE", text, {"old._id", "new._id"}),
        trigger("_text_deleted", "DELETE", text, {"old._id"}),
    };
}

static bool DropTextIndex(sqlite3* handle, const TableInfo& table) {
    for (const Trigger& trigger : Triggers(table)) {
        if (!RunSql(handle, "DROP TRIGGER IF EXISTS \"" + trigger.name + '"'))
            return false;
    }
    if (!RunSql(handle, "DROP TABLE IF EXISTS " + ChangedName(table)) ||
        !RunSql(handle, "CREATE TABLE IF NOT EXISTS _text_index (TableName TEXT PRIMARY KEY, "
                        "FieldName TEXT NOT NULL, Bytes BLOB NOT NULL)"))
        return false;
    SqliteStatement drop(handle, "DELETE FROM _text_index WHERE TableName = ?");
    return drop && drop.Bind(1, table.name) && drop.Done();
}

// The index of all rows as they are; empty, in the outer optional, when a row cannot be read.
static std::optional<QByteArray> MakeBytes(sqlite3* handle, const TableInfo& table, int field) {
    SqliteStatement rows(handle, "SELECT t._id, " + table.QualifiedName(field) + " FROM " + table.From(true) +
                                     " ORDER BY t._id");
    if (!rows)
        return std::nullopt;
    RunIndexBuilder builder;
    std::size_t count = 0;
    int step = rows.Step();
    for (; step == SQLITE_ROW && count < kMaxIndexedRows; step = rows.Step(), ++count)
        builder.Add(rows.Integer(0), rows.View(1));
    if (step == SQLITE_ROW)
        return QByteArray();
    return step == SQLITE_DONE ? std::optional(builder.Write()) : std::nullopt;
}

bool BuildTextIndex(sqlite3* handle, const TableInfo& table, int field) {
    if (!DropTextIndex(handle, table))
        return false;
    const std::optional<QByteArray> bytes = MakeBytes(handle, table, field);
    if (!bytes)
        return false;
    if (bytes->isEmpty())
        return true;
    if (!RunSql(handle, "CREATE TABLE " + ChangedName(table) + " (_id INTEGER PRIMARY KEY)"))
        return false;
    for (const Trigger& trigger : Triggers(table)) {
        if (!RunSql(handle, trigger.sql))
            return false;
    }
    SqliteStatement insert(handle, "INSERT INTO _text_index VALUES (?, ?, ?)");
    return insert && insert.Bind(1, table.name) &&
           insert.Bind(2, table.fields[static_cast<std::size_t>(field)].name) && insert.Bind(3, *bytes) &&
           insert.Done();
}

static bool HasTrigger(sqlite3* handle, const Trigger& trigger) {
    SqliteStatement found(handle, "SELECT sql FROM sqlite_master WHERE type = 'trigger' AND name = ?");
    return found && found.Bind(1, QString::fromLatin1(trigger.name)) && found.Step() == SQLITE_ROW &&
           found.Text(0) == QString::fromLatin1(trigger.sql);
}

std::optional<TextIndex> LoadTextIndex(sqlite3* handle, const TableInfo& table) {
    SqliteStatement row(handle, "SELECT FieldName, Bytes FROM _text_index WHERE TableName = ?");
    if (!row || !row.Bind(1, table.name) || row.Step() != SQLITE_ROW)
        return std::nullopt;
    const int field = table.IndexOf(row.Text(0));
    if (field < 0 || !table.fields[static_cast<std::size_t>(field)].IsLong())
        return std::nullopt;
    for (const Trigger& trigger : Triggers(table)) {
        if (!HasTrigger(handle, trigger))
            return std::nullopt;
    }
    std::optional<RunIndex> runs = RunIndex::Read(row.Bytes(1));
    if (!runs)
        return std::nullopt;
    return TextIndex{field, std::move(*runs)};
}

std::optional<std::vector<std::int64_t>> ReadChangedRows(sqlite3* handle, const TableInfo& table) {
    SqliteStatement rows(handle, "SELECT _id FROM " + ChangedName(table) + " ORDER BY _id");
    if (!rows)
        return std::nullopt;
    std::vector<std::int64_t> changed;
    int step = rows.Step();
    for (; step == SQLITE_ROW; step = rows.Step())
        changed.push_back(rows.Integer(0));
    if (step != SQLITE_DONE)
        return std::nullopt;
    return changed;
}

} // namespace platform
