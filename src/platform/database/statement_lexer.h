// The words of a statement, one after the other.
#pragma once

#include <QString>

namespace platform {

struct Token {
    enum class Kind { End, Invalid, Name, Keyword, Text, Number, Symbol };
    Kind kind = Kind::Invalid;
    QString text = {}; // a name or text as meant, a keyword in capitals, a symbol
    double number = 0;
    bool Is(Kind wanted, QLatin1String wantedText) const { return kind == wanted && text == wantedText; }
};

class StatementLexer {
public:
    explicit StatementLexer(const QString& statement)
        : m_statement(statement) {}

    // End for ever after the last one; after Invalid nothing that follows has a meaning.
    Token Next();

private:
    QChar At(qsizetype i) const { return i < m_statement.size() ? m_statement[i] : QChar(); }
    Token Quoted(QChar quote);
    Token Bracketed();
    Token Word();
    Token Number();
    Token Symbol();

    const QString m_statement;
    qsizetype m_position = 0;
};

} // namespace platform
