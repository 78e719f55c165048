// Running a selection: by the index over a long field where there is one that helps, else through all rows.
#include "platform/database/connection.h"
#include "platform/database/index_answer.h"

#include <QLoggingCategory>

#include <algorithm>
#include <functional>
#include <iterator>

Q_DECLARE_LOGGING_CATEGORY(lcDatabase)

namespace platform {

// Runs `work` within one reading. False when it fails or a page could not be read.
template <typename Work>
bool Connection::Read(Work work) {
    const bool ownReading = sqlite3_get_autocommit(m_handle.get()) != 0;
    if (ownReading && !RunSql(m_handle.get(), "BEGIN"))
        return false;
    const bool whole = work() && HasReadOnlyWholePages();
    m_textReader->Close();
    if (ownReading && sqlite3_get_autocommit(m_handle.get()) == 0)
        RunSql(m_handle.get(), "ROLLBACK"); // nothing was written
    return whole;
}

static bool BindValues(SqliteStatement& statement, const std::vector<Operand>& values) {
    int parameter = 0;
    return std::all_of(values.begin(), values.end(), [&](const Operand& value) {
        ++parameter;
        return value.kind == Operand::Kind::Number ? statement.Bind(parameter, value.number)
                                                   : statement.Bind(parameter, value.text);
    });
}

std::optional<std::vector<RowId>> Connection::Select(int table, const SelectStatement& statement,
                                                     const Selection& selection) {
    if (!m_handle)
        return std::nullopt;
    if (const TextIndex* index = IndexFor(table, statement)) {
        std::optional<std::vector<RowId>> rows;
        const bool whole = Read([&] {
            rows = SelectByIndex(table, *index, *statement.where, selection);
            return rows.has_value();
        });
        if (whole)
            return rows;
    }
    std::optional<std::vector<RowId>> rows;
    const bool whole = Read([&] {
        rows = Scan(selection);
        return rows.has_value();
    });
    if (!whole)
        return std::nullopt;
    return rows;
}

std::optional<std::vector<RowId>> Connection::Scan(const Selection& selection) {
    m_effort = {};
    SqliteStatement statement(m_handle.get(), selection.sql);
    if (!statement || !BindValues(statement, selection.values))
        return std::nullopt;
    std::vector<RowId> rows;
    int step = statement.Step();
    for (; step == SQLITE_ROW; step = statement.Step())
        rows.push_back(statement.Integer(0));
    if (step != SQLITE_DONE) {
        qCWarning(lcDatabase) << "a query failed with code" << step;
        return std::nullopt;
    }
    return rows;
}

// Null when none can answer. Who does not keep others out cannot know what they write meanwhile. It is read
// in a reading of its own, so that a damaged page of it spoils no query.
const TextIndex* Connection::IndexFor(int table, const SelectStatement& statement) {
    OpenTable& open = At(table);
    if (!m_exclusive || !statement.where || (open.textIndexWasRead && !open.textIndex))
        return nullptr;
    if (!open.textIndexWasRead) {
        const auto asks = [&](const FieldInfo& field) {
            return field.IsLong() && AsksForText(*statement.where, open.info, open.info.IndexOf(field.name));
        };
        const bool isInTransaction = sqlite3_get_autocommit(m_handle.get()) == 0;
        if (isInTransaction || std::none_of(open.info.fields.begin(), open.info.fields.end(), asks))
            return nullptr;
        open.textIndexWasRead = true;
        const bool whole = Read([&] {
            open.textIndex = LoadTextIndex(m_handle.get(), open.info);
            return true;
        });
        if (!whole)
            open.textIndex.reset();
    }
    const bool answers = open.textIndex && AsksForText(*statement.where, open.info, open.textIndex->field);
    return answers ? &*open.textIndex : nullptr;
}

// Those of the rows for which the selection's condition holds.
std::optional<std::vector<RowId>> Connection::Verify(const Selection& selection,
                                                     const std::vector<RowId>& rows) {
    if (rows.empty())
        return rows;
    SqliteStatement statement(m_handle.get(), selection.rowSql);
    if (!statement || !BindValues(statement, selection.values))
        return std::nullopt;
    const int idParameter = static_cast<int>(selection.values.size()) + 1;
    std::vector<RowId> found;
    for (const RowId row : rows) {
        if (!statement.Bind(idParameter, row))
            return std::nullopt;
        const int step = statement.Step();
        if (step == SQLITE_ROW)
            found.push_back(row);
        else if (step != SQLITE_DONE)
            return std::nullopt;
        statement.Restart();
    }
    return found;
}

std::optional<std::vector<RowId>> Connection::SelectByIndex(int table, const TextIndex& index,
                                                            const Condition& condition,
                                                            const Selection& selection) {
    const TableInfo& info = Table(table);
    std::optional<IndexAnswer> answer = AnswerByIndex(index, info, condition);
    const std::optional<std::vector<std::int64_t>> changed = ReadChangedRows(m_handle.get(), info);
    if (!answer || !changed)
        return Scan(selection);
    const std::vector<std::int64_t>& ids = index.runs.Rows();
    std::vector<RowId> doubtful;
    for (const std::int64_t id : *changed) {
        const auto known = std::lower_bound(ids.begin(), ids.end(), id);
        if (known == ids.end() || *known != id) {
            doubtful.push_back(id);
            continue;
        }
        const auto place = static_cast<std::size_t>(known - ids.begin());
        answer->rows.Remove(place);
        answer->possible.Add(place);
    }
    // looking at one row by itself costs more than at the next one
    if (answer->possible.Count() + doubtful.size() > ids.size() / 2 + 8)
        return Scan(selection);
    answer->possible.ForEach([&](std::size_t place) { doubtful.push_back(ids[place]); });
    std::sort(doubtful.begin(), doubtful.end());
    m_effort = {.byIndex = true, .looked = doubtful.size()};
    const std::optional<std::vector<RowId>> verified = Verify(selection, doubtful);
    if (!verified)
        return std::nullopt;
    std::vector<RowId> certain;
    answer->rows.ForEach([&](std::size_t place) { certain.push_back(ids[place]); });
    std::vector<RowId> rows;
    rows.reserve(certain.size() + verified->size());
    std::merge(certain.begin(), certain.end(), verified->begin(), verified->end(), std::back_inserter(rows));
    return rows;
}

// Rows of both are in ascending order, so one walk meets all of them.
bool Connection::WalkField(int table, int field, const std::vector<RowId>& rows,
                           std::vector<std::optional<QVariant>>& values) {
    const TableInfo& info = Table(table);
    SqliteStatement walk(m_handle.get(), "SELECT t._id, " + info.QualifiedName(field) + " FROM " +
                                             info.From(false) +
                                             " WHERE t._id BETWEEN ? AND ? ORDER BY t._id");
    if (!walk || !walk.Bind(1, rows.front()) || !walk.Bind(2, rows.back()))
        return false;
    std::size_t i = 0;
    int step = walk.Step();
    for (; step == SQLITE_ROW; step = walk.Step()) {
        const RowId row = walk.Integer(0);
        while (i < rows.size() && rows[i] < row)
            ++i;
        if (i < rows.size() && rows[i] == row)
            values[i] = walk.Value(1);
    }
    return step == SQLITE_DONE;
}

std::optional<std::vector<std::optional<QVariant>>> Connection::ReadFields(int table, int field,
                                                                           const std::vector<RowId>& rows) {
    if (!m_handle)
        return std::nullopt;
    std::vector<std::optional<QVariant>> values(rows.size());
    if (rows.empty())
        return values;
    const bool isLong = Table(table).fields[static_cast<std::size_t>(field)].IsLong();
    const auto span = static_cast<quint64>(rows.back()) - static_cast<quint64>(rows.front());
    const bool walks = !isLong && span / 4 < rows.size() &&
                       std::adjacent_find(rows.begin(), rows.end(), std::greater_equal<>()) == rows.end();
    const bool whole = Read([&] {
        if (walks)
            return WalkField(table, field, rows, values);
        SqliteStatement& reader = FieldReader(table, field);
        for (std::size_t i = 0; i < rows.size() && reader; ++i) {
            if (reader.Bind(1, rows[i]) && reader.Step() == SQLITE_ROW)
                values[i] = reader.Value(0);
            reader.Reset();
        }
        return static_cast<bool>(reader);
    });
    if (!whole)
        return std::nullopt;
    return values;
}

} // namespace platform
