// The open file: the engine's handle, the catalogue of its tables, and the reading and writing of rows.
// Shared by a database, its queries and its recordsets; once closed, everything fails.
#pragma once

#include "platform/database/schema.h"
#include "platform/database/selection.h"
#include "platform/database/sqlite_statement.h"
#include "platform/database/text_index.h"
#include "platform/database/text_reader.h"

namespace platform {

using RowId = qint64;

struct FieldValue {
    int field = 0;
    QVariant value; // QString, a whole number, or invalid for a missing value
};

class Connection {
public:
    // See Database::OpenDatabase and CreateDatabase; `password` is not empty.
    static std::shared_ptr<Connection> Open(const QString& path, bool exclusive, bool readOnly,
                                            const QString& password, FileFormat format);
    static std::shared_ptr<Connection> Create(const QString& path, const QString& password, FileFormat format,
                                              const std::vector<TableDef>& tables);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Close();
    bool IsOpen() const { return m_handle != nullptr; }

    // The index of a table, -1 when there is none or the file is closed.
    int FindTable(const QString& name) const;
    const TableInfo& Table(int table) const { return m_tables[static_cast<std::size_t>(table)].info; }

    // The ids of the rows in file order; empty when the engine refuses or a page cannot be read. `selection`
    // is that of `statement` on `table`.
    std::optional<std::vector<RowId>> Select(int table, const SelectStatement& statement,
                                             const Selection& selection);

    // How the last selection was answered.
    struct Effort {
        bool byIndex = false;   // or by looking at all rows
        std::size_t looked = 0; // with the index: rows that had to be looked at all the same
    };
    const Effort& LastEffort() const { return m_effort; }

    // See Database::IndexText.
    bool IndexText(int table, int field);

    bool HasRow(int table, RowId row);
    // Empty when there is no such row or it cannot be read.
    std::optional<QVariant> ReadField(int table, int field, RowId row);
    // The same of many rows at once, far faster; empty when one of the pages cannot be read.
    std::optional<std::vector<std::optional<QVariant>>> ReadFields(int table, int field,
                                                                   const std::vector<RowId>& rows);

    // Each is one transaction, on disk when it returns, or a part of the one begun.
    std::optional<RowId> InsertRow(int table, const std::vector<FieldValue>& values);
    bool UpdateRow(int table, RowId row, const std::vector<FieldValue>& values);
    bool DeleteRow(int table, RowId row);

    bool Begin();
    bool Commit();
    bool Rollback();

private:
    struct CloseHandle {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };
    using Handle = std::unique_ptr<sqlite3, CloseHandle>;

    struct OpenTable {
        TableInfo info;
        SqliteStatement finder;               // made when first needed
        std::vector<SqliteStatement> readers; // one a field, made when first needed
        std::optional<TextIndex> textIndex;   // read when first needed
        bool textIndexWasRead = false;
    };
    // An explicit transaction that the engine has given up, as it does on a full disk, is lost: nothing more
    // is written until it is ended.
    enum class Transaction { None, Begun, Lost };

    Connection(Handle handle, bool exclusive);
    static Handle OpenHandle(const QString& path, int flags, const QString& password);
    static bool JournalMayBePlayedBack(const QString& path, const QString& password, FileFormat format);
    static bool Check(sqlite3* handle, const QString& path, FileFormat format);
    static bool Configure(sqlite3* handle, bool exclusive);
    static std::shared_ptr<Connection> Wrap(Handle handle, bool exclusive);
    static bool Fill(sqlite3* handle, FileFormat format, const std::vector<TableDef>& tables);

    bool HasReadOnlyWholePages();
    template <typename Work>
    bool Read(Work work);
    std::optional<std::vector<RowId>> Scan(const Selection& selection);
    SqliteStatement& FieldReader(int table, int field);
    bool WalkField(int table, int field, const std::vector<RowId>& rows,
                   std::vector<std::optional<QVariant>>& values);
    const TextIndex* IndexFor(int table, const SelectStatement& statement);
    std::optional<std::vector<RowId>> Verify(const Selection& selection, const std::vector<RowId>& rows);
    std::optional<std::vector<RowId>> SelectByIndex(int table, const TextIndex& index,
                                                    const Condition& condition, const Selection& selection);
    bool IsInItsPlace();
    OpenTable& At(int table) { return m_tables[static_cast<std::size_t>(table)]; }
    template <typename Work, typename Arrived>
    bool Write(Work work, Arrived arrived);
    bool Settle();
    bool Holds(int table, RowId row, const std::vector<FieldValue>& values);
    bool WriteValues(const QByteArray& sql, const std::vector<FieldValue>& values, RowId row);
    bool WriteTexts(int table, RowId row, const std::vector<FieldValue>& values);

    // the order matters: the statements of m_tables go before the handle
    Handle m_handle;
    std::unique_ptr<TextReader> m_textReader;
    const bool m_exclusive;
    std::vector<OpenTable> m_tables;
    SqliteStatement m_probe;
    Transaction m_transaction = Transaction::None;
    Effort m_effort;
};

} // namespace platform
