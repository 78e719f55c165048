#include "platform/database/schema.h"

#include "platform/database/sqlite_statement.h"

#include <algorithm>

namespace platform {

constexpr std::size_t kMaxTables = 64;
constexpr std::size_t kMaxFields = 64;

static QByteArray Quote(const QByteArray& name) {
    return '"' + name + '"';
}

static bool IsValidName(const QString& name) {
    const auto isLetter = [](QChar c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); };
    return !name.isEmpty() && name.size() <= 64 && isLetter(name[0]) &&
           std::all_of(name.begin(), name.end(),
                       [&](QChar c) { return isLetter(c) || (c >= u'0' && c <= u'9'); });
}

template <typename Named>
static bool HaveValidNames(const std::vector<Named>& list) {
    QStringList seen;
    for (const Named& named : list) {
        if (!IsValidName(named.name) || seen.contains(named.name, Qt::CaseInsensitive))
            return false;
        seen.append(named.name);
    }
    return true;
}

int TableInfo::IndexOf(const QString& field) const {
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const FieldInfo& info) {
        return info.name.compare(field, Qt::CaseInsensitive) == 0;
    });
    return found == fields.end() ? -1 : static_cast<int>(found - fields.begin());
}

bool TableInfo::HasLongTexts() const {
    return std::any_of(fields.begin(), fields.end(), [](const FieldInfo& field) { return field.IsLong(); });
}

QByteArray TableInfo::MainName() const {
    return Quote(name.toLatin1());
}
QByteArray TableInfo::TextName() const {
    return Quote(name.toLatin1() + "_text");
}

QByteArray TableInfo::ColumnName(int field) const {
    return Quote(fields[static_cast<std::size_t>(field)].name.toLatin1());
}

QByteArray TableInfo::QualifiedName(int field) const {
    return (fields[static_cast<std::size_t>(field)].IsLong() ? "x." : "t.") + ColumnName(field);
}

QByteArray TableInfo::From(bool withLongTexts) const {
    QByteArray from = MainName() + " AS t";
    if (withLongTexts)
        from += " LEFT JOIN " + TextName() + " AS x ON x._id = t._id";
    return from;
}

bool AreValidTables(const std::vector<TableDef>& tables) {
    return tables.size() <= kMaxTables && HaveValidNames(tables) &&
           std::all_of(tables.begin(), tables.end(), [](const TableDef& table) {
               return !table.columns.empty() && table.columns.size() <= kMaxFields &&
                      HaveValidNames(table.columns);
           });
}

static QByteArray ColumnSql(const ColumnDef& column) {
    QByteArray sql = ", " + Quote(column.name.toLatin1());
    if (column.kind == ColumnDef::Kind::Number)
        sql += " INTEGER DEFAULT " + QByteArray::number(column.defaultNumber);
    else
        sql += QByteArray(" TEXT COLLATE ") + kCollation;
    if (column.required)
        sql += " NOT NULL";
    if (column.unique)
        sql += " UNIQUE";
    return sql;
}

static bool CreateTable(sqlite3* handle, const TableDef& table, SqliteStatement& describe) {
    TableInfo info{.name = table.name, .fields = {}};
    QByteArray mainColumns;
    QByteArray textColumns;
    for (const ColumnDef& column : table.columns) {
        (column.kind == ColumnDef::Kind::LongText ? textColumns : mainColumns) += ColumnSql(column);
        const bool described = describe.Bind(1, table.name) &&
                               describe.Bind(2, static_cast<qint64>(info.fields.size())) &&
                               describe.Bind(3, column.name) &&
                               describe.Bind(4, static_cast<qint64>(column.kind)) && describe.Done();
        describe.Reset();
        if (!described)
            return false;
        info.fields.push_back({column.name, column.kind});
    }
    if (!RunSql(handle, "CREATE TABLE " + info.MainName() + " (_id INTEGER PRIMARY KEY" + mainColumns + ")"))
        return false;
    return !info.HasLongTexts() ||
           RunSql(handle, "CREATE TABLE " + info.TextName() + " (_id INTEGER PRIMARY KEY REFERENCES " +
                              info.MainName() + " ON DELETE CASCADE" + textColumns + ")");
}

bool CreateTables(sqlite3* handle, const std::vector<TableDef>& tables) {
    if (!RunSql(handle,
                "CREATE TABLE _catalogue (TableName TEXT NOT NULL, Position INTEGER NOT NULL, FieldName "
                "TEXT NOT NULL, Kind INTEGER NOT NULL, PRIMARY KEY (TableName, Position))"))
        return false;
    SqliteStatement describe(handle, "INSERT INTO _catalogue VALUES (?, ?, ?, ?)");
    return describe && std::all_of(tables.begin(), tables.end(), [&](const TableDef& table) {
               return CreateTable(handle, table, describe);
           });
}

std::optional<std::vector<TableInfo>> ReadCatalogue(sqlite3* handle) {
    SqliteStatement rows(
        handle, "SELECT TableName, FieldName, Kind FROM _catalogue ORDER BY TableName, Position LIMIT 4097");
    if (!rows)
        return std::nullopt;
    std::vector<TableInfo> tables;
    int step = rows.Step();
    for (; step == SQLITE_ROW; step = rows.Step()) {
        const QString table = rows.Text(0);
        const qint64 kind = rows.Integer(2);
        if (kind < 0 || kind > static_cast<qint64>(ColumnDef::Kind::Number))
            return std::nullopt;
        if (tables.empty() || tables.back().name != table)
            tables.push_back({.name = table, .fields = {}});
        tables.back().fields.push_back({rows.Text(1), static_cast<ColumnDef::Kind>(kind)});
    }
    const bool valid = step == SQLITE_DONE && tables.size() <= kMaxTables && HaveValidNames(tables) &&
                       std::all_of(tables.begin(), tables.end(), [](const TableInfo& table) {
                           return table.fields.size() <= kMaxFields && HaveValidNames(table.fields);
                       });
    if (!valid)
        return std::nullopt;
    return tables;
}

} // namespace platform
