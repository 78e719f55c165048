#include "platform/database/connection.h"

#include <QLoggingCategory>

#include <algorithm>

Q_LOGGING_CATEGORY(lcDatabase, "quillbrook.database", QtFatalMsg)

namespace platform {

Connection::Connection(Handle handle, bool exclusive)
    : m_handle(std::move(handle))
    , m_textReader(std::make_unique<TextReader>(m_handle.get()))
    , m_exclusive(exclusive)
    , m_probe(m_handle.get(), "SELECT 1 FROM sqlite_master") {}

Connection::~Connection() {
    Close();
}

void Connection::Close() {
    m_tables.clear();
    m_probe = {};
    m_textReader.reset();
    m_transaction = Transaction::None;
    m_handle.reset();
}

int Connection::FindTable(const QString& name) const {
    const auto found = std::find_if(m_tables.begin(), m_tables.end(), [&](const OpenTable& table) {
        return table.info.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == m_tables.end() ? -1 : static_cast<int>(found - m_tables.begin());
}

// The engine hands out a damaged page of a long value as zeros, without an error, and only then refuses every
// page until the reading ends. So before it ends, whether a page is still to be had tells what was read.
bool Connection::HasReadOnlyWholePages() {
    const bool whole = m_probe && m_probe.Step() == SQLITE_ROW;
    m_probe.Reset();
    return whole;
}

bool Connection::HasRow(int table, RowId row) {
    if (!m_handle)
        return false;
    OpenTable& open = At(table);
    if (!open.finder)
        open.finder =
            SqliteStatement(m_handle.get(), "SELECT 1 FROM " + open.info.MainName() + " WHERE _id = ?");
    const bool found = open.finder && open.finder.Bind(1, row) && open.finder.Step() == SQLITE_ROW;
    open.finder.Reset();
    return found;
}

SqliteStatement& Connection::FieldReader(int table, int field) {
    OpenTable& open = At(table);
    SqliteStatement& reader = open.readers[static_cast<std::size_t>(field)];
    if (!reader) {
        const bool isLong = open.info.fields[static_cast<std::size_t>(field)].IsLong();
        reader = SqliteStatement(m_handle.get(), "SELECT " + open.info.QualifiedName(field) + " FROM " +
                                                     open.info.From(isLong) + " WHERE t._id = ?");
    }
    return reader;
}

std::optional<QVariant> Connection::ReadField(int table, int field, RowId row) {
    if (!m_handle)
        return std::nullopt;
    SqliteStatement& reader = FieldReader(table, field);
    std::optional<QVariant> value;
    if (reader && reader.Bind(1, row) && reader.Step() == SQLITE_ROW)
        value = reader.Value(0);
    if (value && !HasReadOnlyWholePages())
        value.reset();
    reader.Reset();
    return value;
}

// A file that was deleted, moved away or replaced under the open handle could still be written, and nobody
// would find it again.
bool Connection::IsInItsPlace() {
    int moved = 0;
    return sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK &&
           moved == 0;
}

// Runs `work` as one transaction, or within the one begun as a part that is undone alone. `arrived` tells
// whether the file shows what was to be written.
template <typename Work, typename Arrived>
bool Connection::Write(Work work, Arrived arrived) {
    if (!m_handle || m_transaction == Transaction::Lost || !IsInItsPlace())
        return false;
    const bool part = m_transaction == Transaction::Begun;
    if (!RunSql(m_handle.get(), part ? "SAVEPOINT part" : "BEGIN IMMEDIATE"))
        return false;
    const bool worked = work();
    if (worked && RunSql(m_handle.get(), part ? "RELEASE part" : "COMMIT"))
        return true;
    qCWarning(lcDatabase) << "a write failed with code" << sqlite3_extended_errcode(m_handle.get());
    if (part && sqlite3_get_autocommit(m_handle.get()) == 0)
        RunSql(m_handle.get(), "ROLLBACK TO part; RELEASE part");
    else if (sqlite3_get_autocommit(m_handle.get()) == 0)
        RunSql(m_handle.get(), "ROLLBACK");
    if (part && sqlite3_get_autocommit(m_handle.get()) != 0)
        m_transaction = Transaction::Lost;
    return worked && !part && arrived() && Settle();
}

// A disk that fails at the very end of a commit leaves in doubt whether it counts. One more commit, which
// changes nothing, brings to the disk for good what the file shows.
bool Connection::Settle() {
    const qint64 version = ReadNumber(m_handle.get(), "PRAGMA user_version", -1);
    if (version >= 0 && RunSql(m_handle.get(), "BEGIN IMMEDIATE") &&
        RunSql(m_handle.get(), "PRAGMA user_version = " + QByteArray::number(version)) &&
        RunSql(m_handle.get(), "COMMIT"))
        return true;
    if (sqlite3_get_autocommit(m_handle.get()) == 0)
        RunSql(m_handle.get(), "ROLLBACK");
    return false;
}

bool Connection::Holds(int table, RowId row, const std::vector<FieldValue>& values) {
    return HasRow(table, row) && std::all_of(values.begin(), values.end(), [&](const FieldValue& value) {
               const std::optional<QVariant> held = ReadField(table, value.field, row);
               return held && held->isValid() == value.value.isValid() &&
                      held->toString() == value.value.toString();
           });
}

// The values are bound from parameter 1 on, the row behind them.
bool Connection::WriteValues(const QByteArray& sql, const std::vector<FieldValue>& values, RowId row) {
    SqliteStatement statement(m_handle.get(), sql);
    if (!statement)
        return false;
    int parameter = 0;
    for (const FieldValue& value : values) {
        if (!statement.Bind(++parameter, value.value))
            return false;
    }
    return statement.Bind(++parameter, row) && statement.Done();
}

struct SplitValues {
    std::vector<FieldValue> narrow;
    std::vector<FieldValue> texts;
};

static SplitValues Split(const TableInfo& table, const std::vector<FieldValue>& values) {
    SplitValues split;
    for (const FieldValue& value : values) {
        const bool isLong = table.fields[static_cast<std::size_t>(value.field)].IsLong();
        (isLong ? split.texts : split.narrow).push_back(value);
    }
    return split;
}

static QByteArray InsertSql(const TableInfo& table, const QByteArray& name,
                            const std::vector<FieldValue>& values) {
    QByteArray columns;
    QByteArray marks;
    for (const FieldValue& value : values) {
        columns += table.ColumnName(value.field) + ", ";
        marks += "?, ";
    }
    return "INSERT INTO " + name + " (" + columns + "_id) VALUES (" + marks + "?)";
}

static QByteArray UpdateSql(const TableInfo& table, const QByteArray& name,
                            const std::vector<FieldValue>& values) {
    QByteArray columns;
    for (const FieldValue& value : values)
        columns += (columns.isEmpty() ? "" : ", ") + table.ColumnName(value.field) + " = ?";
    return "UPDATE " + name + " SET " + columns + " WHERE _id = ?";
}

std::optional<RowId> Connection::InsertRow(int table, const std::vector<FieldValue>& values) {
    RowId row = 0;
    const auto work = [&] {
        const TableInfo& info = Table(table);
        const SplitValues split = Split(info, values);
        // behind every row, so that a new one is the last in file order
        row = ReadNumber(m_handle.get(), "SELECT coalesce(max(_id), 0) + 1 FROM " + info.MainName(), 0);
        return row > 0 && WriteValues(InsertSql(info, info.MainName(), split.narrow), split.narrow, row) &&
               (!info.HasLongTexts() ||
                WriteValues(InsertSql(info, info.TextName(), split.texts), split.texts, row));
    };
    return Write(work, [&] { return HasRow(table, row); }) ? std::optional(row) : std::nullopt;
}

bool Connection::WriteTexts(int table, RowId row, const std::vector<FieldValue>& values) {
    const TableInfo& info = Table(table);
    if (!WriteValues(UpdateSql(info, info.TextName(), values), values, row))
        return false;
    return sqlite3_changes(m_handle.get()) == 1 ||
           WriteValues(InsertSql(info, info.TextName(), values), values, row);
}

bool Connection::UpdateRow(int table, RowId row, const std::vector<FieldValue>& values) {
    const auto work = [&] {
        const TableInfo& info = Table(table);
        const SplitValues split = Split(info, values);
        if (!HasRow(table, row))
            return false;
        return (split.narrow.empty() ||
                WriteValues(UpdateSql(info, info.MainName(), split.narrow), split.narrow, row)) &&
               (split.texts.empty() || WriteTexts(table, row, split.texts));
    };
    return Write(work, [&] { return Holds(table, row, values); });
}

bool Connection::DeleteRow(int table, RowId row) {
    const auto work = [&] {
        return WriteValues("DELETE FROM " + Table(table).MainName() + " WHERE _id = ?", {}, row) &&
               sqlite3_changes(m_handle.get()) == 1;
    };
    return Write(work, [&] { return HasReadOnlyWholePages() && !HasRow(table, row); });
}

bool Connection::IndexText(int table, int field) {
    OpenTable& open = At(table);
    open.textIndex.reset();
    open.textIndexWasRead = false;
    const auto work = [&] {
        return BuildTextIndex(m_handle.get(), open.info, field) && HasReadOnlyWholePages();
    };
    return Write(work, [] { return false; }); // one that is in doubt is made again
}

bool Connection::Begin() {
    if (!m_handle || m_transaction != Transaction::None || !IsInItsPlace() ||
        !RunSql(m_handle.get(), "BEGIN IMMEDIATE"))
        return false;
    m_transaction = Transaction::Begun;
    return true;
}

bool Connection::Commit() {
    if (m_transaction != Transaction::Begun) {
        m_transaction = Transaction::None;
        return false;
    }
    if (!RunSql(m_handle.get(), "COMMIT")) {
        Rollback();
        return false;
    }
    m_transaction = Transaction::None;
    return true;
}

bool Connection::Rollback() {
    const bool begun = m_transaction != Transaction::None;
    m_transaction = Transaction::None;
    if (begun && sqlite3_get_autocommit(m_handle.get()) == 0)
        return RunSql(m_handle.get(), "ROLLBACK");
    return begun;
}

} // namespace platform
