#include "platform/database/statement.h"

#include "platform/database/like_pattern.h"
#include "platform/database/statement_lexer.h"

#include <array>

namespace platform {

namespace {

// Recursive descent; a member that returns empty has refused the statement.
class Parser {
public:
    explicit Parser(const QString& statement)
        : m_lexer(statement)
        , m_token(m_lexer.Next()) {}

    std::optional<SelectStatement> Select();

private:
    using Parsed = std::optional<Condition>;

    void Advance() { m_token = m_lexer.Next(); }
    bool Take(Token::Kind kind, QLatin1String text) {
        if (!m_token.Is(kind, text))
            return false;
        Advance();
        return true;
    }
    bool TakeKeyword(const char* text) { return Take(Token::Kind::Keyword, QLatin1String(text)); }
    bool TakeSymbol(const char* text) { return Take(Token::Kind::Symbol, QLatin1String(text)); }

    std::optional<QString> Name();
    std::optional<QStringList> FieldList();
    Parsed Or();
    Parsed And();
    Parsed Not();
    Parsed Primary();
    Parsed Test();
    std::optional<Operand> TakeOperand();
    std::optional<Operand> Pattern();
    template <typename Part>
    Parsed Joined(const char* keyword, Condition::Kind kind, Part part);

    StatementLexer m_lexer;
    Token m_token;
    int m_depth = 0;
    int m_conditions = 0;
};

std::optional<QString> Parser::Name() {
    if (m_token.kind != Token::Kind::Name)
        return std::nullopt;
    const QString name = m_token.text;
    Advance();
    return name;
}

std::optional<QStringList> Parser::FieldList() {
    QStringList fields;
    if (TakeSymbol("*"))
        return fields;
    do {
        const std::optional<QString> name = Name();
        if (!name || fields.contains(*name, Qt::CaseInsensitive))
            return std::nullopt;
        fields.append(*name);
    } while (TakeSymbol(","));
    return fields;
}

std::optional<SelectStatement> Parser::Select() {
    SelectStatement select;
    if (!TakeKeyword("SELECT"))
        return std::nullopt;
    const std::optional<QStringList> fields = FieldList();
    if (!fields || !TakeKeyword("FROM"))
        return std::nullopt;
    select.fields = *fields;
    const std::optional<QString> table = Name();
    if (!table)
        return std::nullopt;
    select.table = *table;
    if (TakeKeyword("WHERE")) {
        select.where = Or();
        if (!select.where)
            return std::nullopt;
    }
    TakeSymbol(";");
    if (m_token.kind != Token::Kind::End)
        return std::nullopt;
    return select;
}

template <typename Part>
Parser::Parsed Parser::Joined(const char* keyword, Condition::Kind kind, Part part) {
    Parsed first = (this->*part)();
    if (!first || !m_token.Is(Token::Kind::Keyword, QLatin1String(keyword)))
        return first;
    Condition joined{.kind = kind};
    joined.children.push_back(std::move(*first));
    while (TakeKeyword(keyword)) {
        Parsed next = (this->*part)();
        if (!next)
            return std::nullopt;
        joined.children.push_back(std::move(*next));
    }
    return joined;
}

Parser::Parsed Parser::Or() {
    return Joined("OR", Condition::Kind::Or, &Parser::And);
}

Parser::Parsed Parser::And() {
    return Joined("AND", Condition::Kind::And, &Parser::Not);
}

Parser::Parsed Parser::Not() {
    if (!TakeKeyword("NOT"))
        return Primary();
    if (++m_depth > kMaxStatementDepth)
        return std::nullopt;
    Parsed negated = Not();
    --m_depth;
    if (!negated)
        return std::nullopt;
    Condition condition{.kind = Condition::Kind::Not};
    condition.children.push_back(std::move(*negated));
    return condition;
}

Parser::Parsed Parser::Primary() {
    if (!TakeSymbol("("))
        return Test();
    if (++m_depth > kMaxStatementDepth)
        return std::nullopt;
    Parsed inner = Or();
    --m_depth;
    if (!inner || !TakeSymbol(")"))
        return std::nullopt;
    return inner;
}

std::optional<Operand> Parser::TakeOperand() {
    Operand operand{.text = m_token.text, .number = m_token.number};
    if (m_token.kind == Token::Kind::Name)
        operand.kind = Operand::Kind::Field;
    else if (m_token.kind == Token::Kind::Text)
        operand.kind = Operand::Kind::Text;
    else if (m_token.kind == Token::Kind::Number)
        operand.kind = Operand::Kind::Number;
    else
        return std::nullopt;
    Advance();
    return operand;
}

std::optional<Operand> Parser::Pattern() {
    const std::optional<Operand> pattern = TakeOperand();
    if (!pattern || pattern->kind != Operand::Kind::Text)
        return std::nullopt;
    const QByteArray utf8 = pattern->text.toUtf8();
    if (!LikePattern::Compile({utf8.constData(), static_cast<std::size_t>(utf8.size())}))
        return std::nullopt;
    return pattern;
}

Parser::Parsed Parser::Test() {
    struct Comparison {
        const char* symbol;
        Condition::Kind kind;
    };
    static constexpr std::array comparisons{
        Comparison{"=", Condition::Kind::Equal},   Comparison{"<>", Condition::Kind::NotEqual},
        Comparison{"<", Condition::Kind::Less},    Comparison{"<=", Condition::Kind::LessOrEqual},
        Comparison{">", Condition::Kind::Greater}, Comparison{">=", Condition::Kind::GreaterOrEqual},
    };
    if (++m_conditions > kMaxStatementConditions)
        return std::nullopt;
    const std::optional<Operand> left = TakeOperand();
    if (!left)
        return std::nullopt;
    Condition test{.left = *left};
    const bool negated = TakeKeyword("NOT");
    std::optional<Operand> right;
    if (TakeKeyword("LIKE")) {
        test.kind = Condition::Kind::Like;
        right = Pattern();
    } else if (!negated) {
        for (const Comparison& comparison : comparisons) {
            if (TakeSymbol(comparison.symbol)) {
                test.kind = comparison.kind;
                right = TakeOperand();
                break;
            }
        }
    }
    if (!right)
        return std::nullopt;
    test.right = *right;
    if (!negated)
        return test;
    Condition condition{.kind = Condition::Kind::Not};
    condition.children.push_back(std::move(test));
    return condition;
}

} // namespace

std::optional<SelectStatement> ParseStatement(const QString& statement) {
    if (statement.size() > kMaxStatementLength)
        return std::nullopt;
    return Parser(statement).Select();
}

} // namespace platform
