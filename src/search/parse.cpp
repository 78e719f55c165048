#include "search/parse.h"

#include <algorithm>

namespace quillbrook {
namespace {

bool HoldsLetterOrDigit(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar c) {
        return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9');
    });
}

QStringView WithoutEndBlanks(QStringView text) {
    while (text.startsWith(u' '))
        text = text.mid(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

// A character that no query makes a difference by, when `at` is past the end.
QChar CharacterAt(QStringView text, qsizetype at) {
    return at < text.size() ? text[at] : QChar(u' ');
}

// The next piece of a query.
struct Piece {
    QStringView text; // without sign and quotes, blanks at its ends left in
    QStringView rest; // of the query
    bool isClosed = true;
};

// A phrase whose opening quote is at `open`, with `before` characters in front of it that the first blank of
// the query begins. That blank is taken to be the query's first character, as it is unless a word is written
// onto a closing quote; there the phrase comes out longer.
Piece TakePhrase(QStringView query, qsizetype open, qsizetype before, qsizetype closeFrom) {
    const qsizetype close = query.indexOf(u'"', closeFrom);
    if (close < 0)
        return {query.mid(open + 1), {}, false};
    return {query.mid(open + 1, close - before - 1), query.mid(close + 1)};
}

Piece TakePiece(QStringView query, qsizetype blank) {
    const QChar first = CharacterAt(query, blank + 1);
    if (first == u'"')
        return TakePhrase(query, blank + 1, 1, blank + 2);
    if (CharacterAt(query, blank + 2) == u'"') // a phrase behind a sign has one character at least
        return TakePhrase(query, blank + 2, 2, blank + 4);
    const qsizetype cut = first == u'+' || first == u'-' ? 2 : 0;
    const qsizetype end = query.indexOf(u' ', blank + 2);
    return {query.left(end + 1).mid(cut), query.mid(std::max<qsizetype>(query.indexOf(u' ', blank + 1), 0))};
}

} // namespace

ParsedQuery Parse(const QString& search) {
    ParsedQuery parsed;
    if (!HoldsLetterOrDigit(search))
        return parsed;
    const QString padded = u' ' + WithoutEndBlanks(search).toString() + u' ';
    QStringView query = padded;
    QString conditions;
    for (bool isFirst = true;; isFirst = false) {
        const qsizetype blank = query.indexOf(u' ');
        if (blank < 0 || blank + 1 >= query.size())
            break;
        const QChar marker = query[blank + 1];
        const Piece piece = TakePiece(query, blank);
        query = piece.rest;
        if (marker == u' ')
            continue;
        QString term = WithoutEndBlanks(piece.text).toString();
        if (!piece.isClosed) {
            term = term.remove(u'"');
            if (WithoutEndBlanks(term).isEmpty())
                continue;
        }
        const bool isSigned = marker == u'+' || marker == u'-';
        if (!isFirst)
            conditions += isSigned ? QStringLiteral(" AND") : QStringLiteral(" OR");
        conditions +=
            marker == u'-' ? QStringLiteral(" Content NOT LIKE '*") : QStringLiteral(" Content LIKE '*");
        conditions += term + QStringLiteral("*'");
        if (marker == u'-')
            continue;
        if (parsed.termCount < static_cast<int>(parsed.terms.size()))
            parsed.terms[static_cast<std::size_t>(parsed.termCount)] = term;
        ++parsed.termCount;
    }
    if (!conditions.isEmpty())
        parsed.statement = QStringLiteral("SELECT * FROM Forms WHERE") + conditions;
    return parsed;
}

} // namespace quillbrook
