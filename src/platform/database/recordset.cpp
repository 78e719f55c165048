#include "platform/database/recordset_state.h"

#include <algorithm>
#include <limits>

namespace platform {

std::unique_ptr<Recordset::State> Recordset::State::Run(const std::shared_ptr<Connection>& connection,
                                                        const SelectStatement& statement) {
    const int table = connection->FindTable(statement.table);
    if (table < 0)
        return nullptr;
    const std::optional<Selection> selection = BuildSelection(connection->Table(table), statement);
    if (!selection)
        return nullptr;
    std::optional<std::vector<RowId>> rows = connection->Select(table, statement, *selection);
    if (!rows)
        return nullptr;
    auto state = std::make_unique<State>();
    state->connection = connection;
    state->table = table;
    state->fields = selection->fields;
    state->rows = std::move(*rows);
    state->MoveTo(0);
    return state;
}

bool Recordset::State::IsOpen() const {
    return connection && connection->IsOpen();
}

int Recordset::State::IndexOf(const QString& name) const {
    if (!IsOpen())
        return -1;
    const int field = connection->Table(table).IndexOf(name);
    return std::find(fields.begin(), fields.end(), field) == fields.end() ? -1 : field;
}

// A move drops what was staged.
void Recordset::State::MoveTo(std::size_t newPosition) {
    EndStaging();
    position = std::min(newPosition, rows.size());
    place = position < rows.size() ? Place::OnRow : Place::End;
}

void Recordset::State::EndStaging() {
    staging = Staging::None;
    staged.clear();
}

Recordset::Recordset(std::unique_ptr<State> state)
    : m_state(std::move(state)) {}

Recordset::~Recordset() = default;

int Recordset::RecordCount() const {
    return m_state->IsOpen() ? static_cast<int>(m_state->rows.size()) : 0;
}

bool Recordset::MoveFirst() {
    if (!m_state->IsOpen())
        return false;
    m_state->MoveTo(0);
    return m_state->place == State::Place::OnRow;
}

bool Recordset::MoveNext() {
    if (!m_state->IsOpen() || m_state->place == State::Place::End)
        return false;
    // where a row was deleted, the one behind it has taken its position
    m_state->MoveTo(m_state->position + (m_state->place == State::Place::AfterDelete ? 0 : 1));
    return m_state->place == State::Place::OnRow;
}

bool Recordset::AtEnd() const {
    return !m_state->IsOpen() || m_state->place == State::Place::End;
}

std::optional<QVariant> Recordset::Field(const QString& name) const {
    const int field = m_state->IndexOf(name);
    if (field < 0 || m_state->place != State::Place::OnRow)
        return std::nullopt;
    return m_state->connection->ReadField(m_state->table, field, m_state->rows[m_state->position]);
}

std::vector<QVariant> Recordset::ReadAll(const QString& name) {
    std::vector<QVariant> all;
    if (!m_state->IsOpen())
        return all;
    m_state->MoveTo(m_state->rows.size());
    const int field = m_state->IndexOf(name);
    if (field < 0)
        return all;
    const auto values = m_state->connection->ReadFields(m_state->table, field, m_state->rows);
    for (std::size_t i = 0; i < m_state->rows.size(); ++i) {
        std::optional<QVariant> value =
            values ? (*values)[i] : m_state->connection->ReadField(m_state->table, field, m_state->rows[i]);
        if (value)
            all.push_back(std::move(*value));
    }
    return all;
}

bool Recordset::Edit() {
    m_state->EndStaging();
    if (!m_state->IsOpen() || m_state->place != State::Place::OnRow ||
        !m_state->connection->HasRow(m_state->table, m_state->rows[m_state->position]))
        return false;
    m_state->staging = State::Staging::Edit;
    return true;
}

bool Recordset::AddNew() {
    m_state->EndStaging();
    if (!m_state->IsOpen())
        return false;
    m_state->staging = State::Staging::Add;
    return true;
}

// A value as the column keeps it; empty when it cannot be kept there.
static std::optional<QVariant> Fitting(const QVariant& value, bool number) {
    if (!value.isValid())
        return value;
    if (!number)
        return value.typeId() == QMetaType::QString || value.canConvert<double>()
                   ? std::optional<QVariant>(value.toString())
                   : std::nullopt;
    bool read = false;
    const qint64 whole = value.toLongLong(&read);
    using Limits = std::numeric_limits<int>;
    if (!read || whole < Limits::min() || whole > Limits::max())
        return std::nullopt;
    return QVariant(whole);
}

bool Recordset::SetField(const QString& name, const QVariant& value) {
    const int field = m_state->IndexOf(name);
    if (field < 0 || m_state->staging == State::Staging::None)
        return false;
    const TableInfo& table = m_state->connection->Table(m_state->table);
    const std::optional<QVariant> fitting =
        Fitting(value, table.fields[static_cast<std::size_t>(field)].IsNumber());
    if (!fitting)
        return false;
    auto& staged = m_state->staged;
    const auto earlier = std::find_if(staged.begin(), staged.end(),
                                      [field](const FieldValue& known) { return known.field == field; });
    if (earlier != staged.end())
        earlier->value = *fitting;
    else
        staged.push_back({field, *fitting});
    return true;
}

bool Recordset::Update() {
    const State::Staging staging = m_state->staging;
    const std::vector<FieldValue> values = std::move(m_state->staged);
    m_state->EndStaging();
    if (staging == State::Staging::None || !m_state->IsOpen())
        return false;
    if (staging == State::Staging::Edit)
        return m_state->connection->UpdateRow(m_state->table, m_state->rows[m_state->position], values);
    const std::optional<RowId> added = m_state->connection->InsertRow(m_state->table, values);
    if (added)
        m_state->rows.push_back(*added);
    return added.has_value();
}

bool Recordset::Delete() {
    m_state->EndStaging();
    if (!m_state->IsOpen() || m_state->place != State::Place::OnRow ||
        !m_state->connection->DeleteRow(m_state->table, m_state->rows[m_state->position]))
        return false;
    m_state->rows.erase(m_state->rows.begin() + static_cast<std::ptrdiff_t>(m_state->position));
    m_state->place = State::Place::AfterDelete;
    return true;
}

void Recordset::Close() {
    m_state->EndStaging();
    m_state->connection.reset();
}

} // namespace platform
