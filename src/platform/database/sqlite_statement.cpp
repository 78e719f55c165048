#include "platform/database/sqlite_statement.h"

#include <algorithm>
#include <limits>

namespace platform {

SqliteStatement::SqliteStatement(sqlite3* handle, const QByteArray& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle, sql.constData(), static_cast<int>(sql.size()), &statement, nullptr) ==
        SQLITE_OK)
        m_statement.reset(statement);
}

bool SqliteStatement::Bind(int parameter, qint64 value) {
    return sqlite3_bind_int64(m_statement.get(), parameter, value) == SQLITE_OK;
}

bool SqliteStatement::Bind(int parameter, double value) {
    return sqlite3_bind_double(m_statement.get(), parameter, value) == SQLITE_OK;
}

bool SqliteStatement::Bind(int parameter, const QString& value) {
    const QByteArray utf8 = value.toUtf8();
    return sqlite3_bind_text64(m_statement.get(), parameter, utf8.constData(),
                               static_cast<sqlite3_uint64>(utf8.size()), SQLITE_TRANSIENT,
                               SQLITE_UTF8) == SQLITE_OK;
}

bool SqliteStatement::Bind(int parameter, const QVariant& value) {
    if (!value.isValid())
        return sqlite3_bind_null(m_statement.get(), parameter) == SQLITE_OK;
    if (value.typeId() == QMetaType::QString)
        return Bind(parameter, value.toString());
    return Bind(parameter, value.toLongLong());
}

bool SqliteStatement::Bind(int parameter, const QByteArray& bytes) {
    return sqlite3_bind_blob64(m_statement.get(), parameter, bytes.constData(),
                               static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT) == SQLITE_OK;
}

int SqliteStatement::Step() {
    return sqlite3_step(m_statement.get());
}

qint64 SqliteStatement::Integer(int column) const {
    return sqlite3_column_int64(m_statement.get(), column);
}

QString SqliteStatement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    return QString::fromUtf8(text, sqlite3_column_bytes(m_statement.get(), column));
}

QByteArray SqliteStatement::Bytes(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement.get(), column));
    return {bytes, sqlite3_column_bytes(m_statement.get(), column)};
}

std::optional<std::string_view> SqliteStatement::View(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    if (text == nullptr)
        return std::nullopt;
    return std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(m_statement.get(), column)));
}

QVariant SqliteStatement::Value(int column) const {
    switch (sqlite3_column_type(m_statement.get(), column)) {
    case SQLITE_INTEGER:
    case SQLITE_FLOAT: {
        using Limits = std::numeric_limits<int>;
        return static_cast<int>(std::clamp<qint64>(Integer(column), Limits::min(), Limits::max()));
    }
    case SQLITE_TEXT:
        return Text(column);
    default:
        return {};
    }
}

void SqliteStatement::Reset() {
    if (!m_statement)
        return;
    sqlite3_reset(m_statement.get());
    sqlite3_clear_bindings(m_statement.get());
}

void SqliteStatement::Restart() {
    sqlite3_reset(m_statement.get());
}

bool RunSql(sqlite3* handle, const QByteArray& sql) {
    return sqlite3_exec(handle, sql.constData(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

qint64 ReadNumber(sqlite3* handle, const QByteArray& sql, qint64 fallback) {
    SqliteStatement statement(handle, sql);
    return statement && statement.Step() == SQLITE_ROW ? statement.Integer(0) : fallback;
}

} // namespace platform
