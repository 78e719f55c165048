#include "platform/database/statement_lexer.h"

#include <array>

namespace platform {

static bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}
static bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}
static bool IsNameCharacter(QChar c) {
    return c.isLetterOrNumber() || c == u'_';
}

static bool IsKeyword(const QString& capitals) {
    static constexpr std::array keywords{"SELECT", "FROM", "WHERE", "AND", "OR", "NOT", "LIKE"};
    for (const char* keyword : keywords) {
        if (capitals == QLatin1String(keyword))
            return true;
    }
    return false;
}

Token StatementLexer::Next() {
    while (m_position < m_statement.size() && IsBlank(m_statement[m_position]))
        ++m_position;
    if (m_position >= m_statement.size())
        return {.kind = Token::Kind::End};
    const QChar c = m_statement[m_position];
    if (c == u'\'' || c == u'"')
        return Quoted(c);
    if (c == u'[')
        return Bracketed();
    const QChar next = At(m_position + 1);
    if (IsDigit(c) || ((c == u'-' || c == u'+' || c == u'.') && IsDigit(next)))
        return Number();
    if (IsNameCharacter(c))
        return Word();
    return Symbol();
}

Token StatementLexer::Quoted(QChar quote) {
    Token token{.kind = Token::Kind::Text};
    qsizetype from = m_position + 1;
    for (;;) {
        const qsizetype close = m_statement.indexOf(quote, from);
        if (close < 0)
            return {};
        token.text += QStringView(m_statement).mid(from, close - from);
        m_position = close + 1;
        if (At(m_position) != quote)
            break;
        token.text += quote;
        from = m_position + 1;
    }
    return token;
}

Token StatementLexer::Bracketed() {
    const qsizetype close = m_statement.indexOf(u']', m_position);
    if (close < 0)
        return {};
    const qsizetype from = m_position + 1;
    m_position = close + 1;
    return {.kind = Token::Kind::Name, .text = m_statement.mid(from, close - from)};
}

Token StatementLexer::Word() {
    const qsizetype from = m_position;
    while (IsNameCharacter(At(m_position)))
        ++m_position;
    const QString word = m_statement.mid(from, m_position - from);
    const QString capitals = word.toUpper();
    if (IsKeyword(capitals))
        return {.kind = Token::Kind::Keyword, .text = capitals};
    return {.kind = Token::Kind::Name, .text = word};
}

Token StatementLexer::Number() {
    const qsizetype from = m_position++;
    while (IsDigit(At(m_position)))
        ++m_position;
    if (At(m_position) == u'.' && m_statement[from] != u'.') {
        ++m_position;
        while (IsDigit(At(m_position)))
            ++m_position;
    }
    if (IsNameCharacter(At(m_position)) || At(m_position) == u'.' || m_position - from > 20)
        return {};
    bool read = false;
    const double number = QStringView(m_statement).mid(from, m_position - from).toDouble(&read);
    return read ? Token{.kind = Token::Kind::Number, .number = number} : Token{};
}

Token StatementLexer::Symbol() {
    static constexpr std::array symbols{"<>", "<=", ">=", "<", ">", "=", "(", ")", ",", "*", ";"};
    for (const char* symbol : symbols) {
        const QLatin1String text(symbol);
        if (QStringView(m_statement).mid(m_position).startsWith(text)) {
            m_position += text.size();
            return {.kind = Token::Kind::Symbol, .text = text};
        }
    }
    return {};
}

} // namespace platform
