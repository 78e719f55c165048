// One prepared statement of the engine, finalized with its owner.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <memory>
#include <optional>
#include <sqlcipher/sqlite3.h>
#include <string_view>

namespace platform {

class SqliteStatement {
public:
    SqliteStatement() = default;
    // Null (see operator bool) when the engine refuses the text.
    SqliteStatement(sqlite3* handle, const QByteArray& sql);

    explicit operator bool() const { return m_statement != nullptr; }

    // Parameters count from 1. An invalid variant is a missing value.
    bool Bind(int parameter, qint64 value);
    bool Bind(int parameter, double value);
    bool Bind(int parameter, const QString& value);
    bool Bind(int parameter, const QVariant& value);
    bool Bind(int parameter, const QByteArray& bytes);

    // SQLITE_ROW, SQLITE_DONE or the error.
    int Step();
    bool Done() { return Step() == SQLITE_DONE; }

    // Columns count from 0. Numbers as int, text as QString.
    QVariant Value(int column) const;
    qint64 Integer(int column) const;
    QString Text(int column) const;
    QByteArray Bytes(int column) const;
    // The text as UTF-8 until the next step; empty for a missing value.
    std::optional<std::string_view> View(int column) const;

    // Ends the reading; the bound values are dropped, or stay.
    void Reset();
    void Restart();

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

// Runs a text without rows of interest. False on an error.
bool RunSql(sqlite3* handle, const QByteArray& sql);

// The first column of the first row as a number; `fallback` when there is none.
qint64 ReadNumber(sqlite3* handle, const QByteArray& sql, qint64 fallback);

} // namespace platform
