#pragma once

#include <QString>
#include <array>
#include <optional>

namespace quillbrook {

// SearchTerm1 to SearchTerm7: the words and phrases to mark in a form that was found, in the order of the
// query. Slots that are not in use, and a lone plus sign's, are empty.
using SearchTerms = std::array<QString, 7>;

struct ParsedQuery {
    std::optional<QString> statement; // the whole SQL statement
    SearchTerms terms;
    int termCount = 0; // goes on past the slots
};

// Turns words, +words, -words and phrases between double quotes into the statement that finds the forms:
// plain pieces are joined with OR, those behind a sign with AND, the minus sign excludes and leaves no term.
// The engine's precedence of AND over OR decides. Nothing is escaped.
//
// No statement and no terms when `search` holds no letter and no digit of ASCII. A double quote that is not
// closed takes the rest of the query as its phrase; with nothing behind it, it is passed over, and a query of
// nothing else gives no statement.
ParsedQuery Parse(const QString& search);

} // namespace quillbrook
