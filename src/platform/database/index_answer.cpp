#include "platform/database/index_answer.h"

#include "platform/database/like_pattern.h"

#include <algorithm>

namespace platform {

namespace {

// What a condition can come to for each row. A row may be in several sets: then its text would have to be
// read.
struct Outcomes {
    RowSet yes;
    RowSet no;
    RowSet missing; // neither, as with a text that is not there
};

class Reader {
public:
    Reader(const TextIndex& index, const TableInfo& table)
        : m_index(index.runs)
        , m_table(table)
        , m_field(index.field) {}

    std::optional<Outcomes> Read(const Condition& condition) const;

private:
    std::optional<Outcomes> ReadJoined(const Condition& condition) const;
    std::optional<Outcomes> ReadLike(const Condition& condition) const;
    Outcomes Unknown() const;

    const RunIndex& m_index;
    const TableInfo& m_table;
    int m_field;
};

} // namespace

static bool IsField(const Operand& operand, const TableInfo& table, int field) {
    return operand.kind == Operand::Kind::Field && table.IndexOf(operand.text) == field;
}

Outcomes Reader::Unknown() const {
    RowSet all(m_index.Rows().size());
    all.AddAll();
    return {all, all, all};
}

std::optional<Outcomes> Reader::ReadLike(const Condition& condition) const {
    const QByteArray text = condition.right.text.toUtf8();
    const std::optional<LikePattern> pattern =
        LikePattern::Compile({text.constData(), static_cast<std::size_t>(text.size())});
    if (!pattern)
        return std::nullopt;
    if (!IsField(condition.left, m_table, m_field))
        return Unknown();
    const TextNeedle needle = pattern->Needle();
    RowSet found = m_index.WithText();
    RowSet possible = m_index.WithText();
    for (const RunNeedle& run : needle.runs) {
        RowSet rows = m_index.Find(run);
        found &= rows;
        rows |= m_index.Partial();
        possible &= rows;
    }
    RowSet missing(m_index.Rows().size());
    missing.AddAll();
    missing -= m_index.WithText();
    RowSet no = m_index.WithText();
    if (needle.exact)
        no -= found;
    return Outcomes{std::move(possible), std::move(no), std::move(missing)};
}

// Of two conditions joined by AND: true when both are, false when one is, else missing. By OR the same with
// true and false changed over.
static Outcomes JoinByAnd(Outcomes left, const Outcomes& right) {
    RowSet missing = right.yes;
    missing |= right.missing;
    missing &= left.missing;
    RowSet alsoMissing = std::move(left.yes);
    left.yes = alsoMissing;
    left.yes &= right.yes;
    alsoMissing &= right.missing;
    missing |= alsoMissing;
    left.missing = std::move(missing);
    left.no |= right.no;
    return left;
}

std::optional<Outcomes> Reader::ReadJoined(const Condition& condition) const {
    const bool isOr = condition.kind == Condition::Kind::Or;
    std::optional<Outcomes> joined;
    for (const Condition& child : condition.children) {
        std::optional<Outcomes> next = Read(child);
        if (!next)
            return std::nullopt;
        if (isOr)
            std::swap(next->yes, next->no);
        joined = joined ? JoinByAnd(std::move(*joined), *next) : std::move(*next);
    }
    if (joined && isOr)
        std::swap(joined->yes, joined->no);
    return joined;
}

std::optional<Outcomes> Reader::Read(const Condition& condition) const {
    switch (condition.kind) {
    case Condition::Kind::Like:
        return ReadLike(condition);
    case Condition::Kind::And:
    case Condition::Kind::Or:
        return ReadJoined(condition);
    case Condition::Kind::Not: {
        std::optional<Outcomes> outcomes = Read(condition.children.front());
        if (outcomes)
            std::swap(outcomes->yes, outcomes->no);
        return outcomes;
    }
    default:
        return Unknown();
    }
}

bool AsksForText(const Condition& condition, const TableInfo& table, int field) {
    if (condition.kind == Condition::Kind::Like)
        return IsField(condition.left, table, field);
    return std::any_of(condition.children.begin(), condition.children.end(),
                       [&](const Condition& child) { return AsksForText(child, table, field); });
}

std::optional<IndexAnswer> AnswerByIndex(const TextIndex& index, const TableInfo& table,
                                         const Condition& condition) {
    std::optional<Outcomes> outcomes = Reader(index, table).Read(condition);
    if (!outcomes)
        return std::nullopt;
    IndexAnswer answer{.rows = outcomes->yes, .possible = outcomes->yes};
    answer.rows -= outcomes->no;
    answer.rows -= outcomes->missing;
    answer.possible -= answer.rows;
    return answer;
}

} // namespace platform
