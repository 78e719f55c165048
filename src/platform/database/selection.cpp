#include "platform/database/selection.h"

#include <array>

namespace platform {

namespace {

class Builder {
public:
    explicit Builder(const TableInfo& table)
        : m_table(table) {}

    std::optional<Selection> Build(const SelectStatement& statement);

private:
    bool Append(const Condition& condition);
    bool AppendTest(const Condition& condition);
    bool AppendJoined(const Condition& condition, const char* joiner);
    bool AppendOperand(const Operand& operand);
    bool IsNumber(const Operand& operand) const;
    bool IsLong(const Operand& operand) const;

    const TableInfo& m_table;
    Selection m_selection;
    QByteArray m_where;
    bool m_usesLongTexts = false;
};

// How tightly a condition binds, as in the engine.
int Tightness(Condition::Kind kind) {
    switch (kind) {
    case Condition::Kind::Or:
        return 0;
    case Condition::Kind::And:
        return 1;
    case Condition::Kind::Not:
        return 2;
    default:
        return 3;
    }
}

const char* Symbol(Condition::Kind kind) {
    static constexpr std::array symbols{" = ", " <> ", " < ", " <= ", " > ", " >= "};
    return symbols[static_cast<std::size_t>(kind)];
}

bool Builder::IsNumber(const Operand& operand) const {
    if (operand.kind != Operand::Kind::Field)
        return operand.kind == Operand::Kind::Number;
    const int field = m_table.IndexOf(operand.text);
    return field >= 0 && m_table.fields[static_cast<std::size_t>(field)].IsNumber();
}

bool Builder::IsLong(const Operand& operand) const {
    const int field = operand.kind == Operand::Kind::Field ? m_table.IndexOf(operand.text) : -1;
    return field >= 0 && m_table.fields[static_cast<std::size_t>(field)].IsLong();
}

// A quoted name as a text.
QByteArray AsText(QByteArray name) {
    return name.replace('"', '\'');
}

bool Builder::AppendOperand(const Operand& operand) {
    if (operand.kind != Operand::Kind::Field) {
        m_where += '?';
        m_selection.values.push_back(operand);
        return true;
    }
    const int field = m_table.IndexOf(operand.text);
    if (field < 0)
        return false;
    m_usesLongTexts = m_usesLongTexts || m_table.fields[static_cast<std::size_t>(field)].IsLong();
    m_where += m_table.QualifiedName(field);
    return true;
}

bool Builder::AppendTest(const Condition& condition) {
    if (condition.kind == Condition::Kind::Like && IsLong(condition.left)) {
        m_where += "like_text(";
        if (!AppendOperand(condition.right))
            return false;
        const QByteArray table = m_table.TextName();
        const QByteArray column = m_table.ColumnName(m_table.IndexOf(condition.left.text));
        m_where += ", t._id, " + AsText(table) + ", " + AsText(column) + ')';
        return true;
    }
    if (condition.kind == Condition::Kind::Like) {
        m_where += "like(";
        if (!AppendOperand(condition.right))
            return false;
        m_where += ", ";
        if (!AppendOperand(condition.left))
            return false;
        m_where += ')';
        return true;
    }
    const bool numbers = IsNumber(condition.left);
    if (numbers != IsNumber(condition.right) || !AppendOperand(condition.left))
        return false;
    m_where += Symbol(condition.kind);
    if (!AppendOperand(condition.right))
        return false;
    if (!numbers) // two values have no column's comparison to go by
        m_where += QByteArray(" COLLATE ") + kCollation;
    return true;
}

bool Builder::AppendJoined(const Condition& condition, const char* joiner) {
    const int tightness = Tightness(condition.kind);
    for (std::size_t i = 0; i < condition.children.size(); ++i) {
        const Condition& child = condition.children[i];
        if (i > 0 || condition.kind == Condition::Kind::Not)
            m_where += joiner;
        const bool apart = Tightness(child.kind) <= tightness && child.kind != condition.kind;
        if (apart)
            m_where += '(';
        if (!Append(child))
            return false;
        if (apart)
            m_where += ')';
    }
    return true;
}

bool Builder::Append(const Condition& condition) {
    switch (condition.kind) {
    case Condition::Kind::Or:
        return AppendJoined(condition, " OR ");
    case Condition::Kind::And:
        return AppendJoined(condition, " AND ");
    case Condition::Kind::Not:
        return AppendJoined(condition, "NOT ");
    default:
        return AppendTest(condition);
    }
}

std::optional<Selection> Builder::Build(const SelectStatement& statement) {
    if (statement.fields.isEmpty()) {
        for (std::size_t i = 0; i < m_table.fields.size(); ++i)
            m_selection.fields.push_back(static_cast<int>(i));
    }
    for (const QString& name : statement.fields) {
        const int field = m_table.IndexOf(name);
        if (field < 0)
            return std::nullopt;
        m_selection.fields.push_back(field);
    }
    if (statement.where && !Append(*statement.where))
        return std::nullopt;
    m_selection.sql = "SELECT t._id FROM " + m_table.From(m_usesLongTexts);
    if (statement.where) {
        m_selection.rowSql = m_selection.sql + " WHERE (" + m_where + ") AND t._id = ?";
        m_selection.sql += " WHERE " + m_where;
    }
    m_selection.sql += " ORDER BY t._id";
    return std::move(m_selection);
}

} // namespace

std::optional<Selection> BuildSelection(const TableInfo& table, const SelectStatement& statement) {
    return Builder(table).Build(statement);
}

} // namespace platform
