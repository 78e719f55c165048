// A database in one encrypted file, reached by a database handle, temporary queries and recordsets.
//
// The rule for failures: an operation that fails changes nothing and returns false, an empty optional or
// null. No operation throws. Nothing is logged unless the category "quillbrook.database" is switched on.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <optional>
#include <vector>

namespace platform {

// One column of a table to be made. Text is compared without case, accents told apart.
struct ColumnDef {
    enum class Kind { Text, LongText, Number };
    QString name;
    Kind kind = Kind::Text;
    bool required = false; // refuses a missing value
    bool unique = false;   // refuses a second row with an equal value (text: without case)
    int defaultNumber = 0; // for Number: the value of a row that does not name it
};

struct TableDef {
    QString name;
    std::vector<ColumnDef> columns;
};

// What tells a file of this program from another's: both stand in the file's header.
struct FileFormat {
    qint32 applicationId = 0;
    int version = 0;
};

class Connection; // the open file; shared by the objects below, so that a recordset may outlive its query
class Recordset;
class QueryDef;

class Database {
public:
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Opens an existing file. `connect` is ";pwd=" followed by the password. Exclusive keeps out every other
    // process until Close. Null when the file is missing, locked, not of `format` (a later version included),
    // damaged, or the password is wrong; the file is then as it was, byte for byte.
    static std::unique_ptr<Database> OpenDatabase(const QString& path, bool exclusive, bool readOnly,
                                                  const QString& connect, FileFormat format);

    // Makes a new file with empty tables and opens it exclusively. Null when it exists or cannot be written.
    static std::unique_ptr<Database> CreateDatabase(const QString& path, const QString& connect,
                                                    FileFormat format, const std::vector<TableDef>& tables);

    // A query definition that is not stored in the file; `name` must be empty.
    std::unique_ptr<QueryDef> CreateQueryDef(const QString& name = {});

    // All rows of a table with all its fields. Null when there is no such table.
    std::unique_ptr<Recordset> OpenRecordset(const QString& table);

    // Makes an index over a long text field, so that LIKE need not read every text; it finds the same rows.
    // One field of a table can have it; one that was there is made anew. It lies in the file and knows which
    // rows were written since: these are read as without it, so make it anew after many writes. False when
    // there is no such field or the file cannot be written.
    bool IndexText(const QString& table, const QString& field);

    // Many writes as one: everything between Begin and Commit is on disk together or not at all.
    bool BeginTrans();
    bool CommitTrans();

    // Undoes everything since Begin; so does closing the file. False when nothing was begun.
    bool Rollback();

    // Closes the file; recordsets of it fail from here on.
    void Close();

private:
    explicit Database(std::shared_ptr<Connection> connection);
    std::shared_ptr<Connection> m_connection;
};

class QueryDef {
public:
    ~QueryDef();
    void setSQL(const QString& statement) { m_sql = statement; }
    const QString& SQL() const { return m_sql; }

    // Runs the statement. Null when the engine refuses it; see statement.h for what it takes.
    std::unique_ptr<Recordset> OpenRecordset();

    // Closes the definition; its recordsets stay open. A closed one opens nothing.
    void Close();

private:
    friend class Database;
    explicit QueryDef(std::shared_ptr<Connection> connection);
    std::shared_ptr<Connection> m_connection;
    QString m_sql;
};

// The rows of a result with one of them current, the first one at the start. Rows are kept by their identity
// and fields read when asked for, so a result of long texts costs nothing until one is read.
class Recordset {
public:
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    int RecordCount() const;

    // False when there is no such row; the position is then at the end.
    bool MoveFirst();
    bool MoveNext();
    bool AtEnd() const;

    // The value of a field of the current row: text as QString, numbers as int, a missing value as an invalid
    // QVariant. Empty when there is no current row or the result has no such field.
    std::optional<QVariant> Field(const QString& name) const;

    // The values of a field over all rows in their order, without those that cannot be read; the position is
    // then at the end. What MoveFirst, Field and MoveNext in a loop give, but fast for thousands of rows.
    std::vector<QVariant> ReadAll(const QString& name);

    // Edit stages changes of the current row, AddNew those of a new one; SetField stages a value; Update
    // writes them in one transaction, on disk when it returns. A refused Update (a repeated unique value, a
    // full disk, a file that is no longer in its place) writes nothing and ends the staging. A row added is
    // the result's last and does not become the current one. A move drops what was staged.
    bool Edit();
    bool AddNew();
    bool SetField(const QString& name, const QVariant& value);
    bool Update();

    // Deletes the current row; there is no current row until the next move, which goes to the row behind it.
    bool Delete();

    void Close();

private:
    friend class Database;
    friend class QueryDef;
    struct State;
    explicit Recordset(std::unique_ptr<State> state);
    std::unique_ptr<State> m_state;
};

} // namespace platform
