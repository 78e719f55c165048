#include "platform/database/database.h"

#include "platform/database/connection.h"
#include "platform/database/recordset_state.h"

namespace platform {

// The password of a connect string, empty when there is none.
static QString PasswordOf(const QString& connect) {
    const QString start = QStringLiteral(";pwd=");
    return connect.startsWith(start, Qt::CaseInsensitive) ? connect.mid(start.size()) : QString();
}

Database::Database(std::shared_ptr<Connection> connection)
    : m_connection(std::move(connection)) {}

Database::~Database() {
    Close();
}

std::unique_ptr<Database> Database::OpenDatabase(const QString& path, bool exclusive, bool readOnly,
                                                 const QString& connect, FileFormat format) {
    const QString password = PasswordOf(connect);
    if (password.isEmpty())
        return nullptr;
    std::shared_ptr<Connection> connection = Connection::Open(path, exclusive, readOnly, password, format);
    return connection ? std::unique_ptr<Database>(new Database(std::move(connection))) : nullptr;
}

std::unique_ptr<Database> Database::CreateDatabase(const QString& path, const QString& connect,
                                                   FileFormat format, const std::vector<TableDef>& tables) {
    const QString password = PasswordOf(connect);
    if (password.isEmpty())
        return nullptr;
    std::shared_ptr<Connection> connection = Connection::Create(path, password, format, tables);
    return connection ? std::unique_ptr<Database>(new Database(std::move(connection))) : nullptr;
}

std::unique_ptr<QueryDef> Database::CreateQueryDef(const QString& name) {
    return name.isEmpty() ? std::unique_ptr<QueryDef>(new QueryDef(m_connection)) : nullptr;
}

std::unique_ptr<Recordset> Database::OpenRecordset(const QString& table) {
    SelectStatement all;
    all.table = table;
    auto state = Recordset::State::Run(m_connection, all);
    return state ? std::unique_ptr<Recordset>(new Recordset(std::move(state))) : nullptr;
}

bool Database::IndexText(const QString& table, const QString& field) {
    const int found = m_connection->FindTable(table);
    if (found < 0)
        return false;
    const TableInfo& info = m_connection->Table(found);
    const int column = info.IndexOf(field);
    return column >= 0 && info.fields[static_cast<std::size_t>(column)].IsLong() &&
           m_connection->IndexText(found, column);
}

bool Database::BeginTrans() {
    return m_connection->Begin();
}
bool Database::CommitTrans() {
    return m_connection->Commit();
}
bool Database::Rollback() {
    return m_connection->Rollback();
}
void Database::Close() {
    m_connection->Close();
}

QueryDef::QueryDef(std::shared_ptr<Connection> connection)
    : m_connection(std::move(connection)) {}

QueryDef::~QueryDef() = default;

std::unique_ptr<Recordset> QueryDef::OpenRecordset() {
    if (!m_connection)
        return nullptr;
    const std::optional<SelectStatement> statement = ParseStatement(m_sql);
    if (!statement)
        return nullptr;
    auto state = Recordset::State::Run(m_connection, *statement);
    return state ? std::unique_ptr<Recordset>(new Recordset(std::move(state))) : nullptr;
}

void QueryDef::Close() {
    m_connection.reset();
}

} // namespace platform
