#pragma once

#include "search/parse.h"

#include <QStringList>
#include <vector>

namespace quillbrook {

// Characters of a pane's plain text, as the pane counts them: from 0, line ends included.
struct TextRange {
    int start = 0;
    int length = 0;

    bool operator==(const TextRange&) const = default;
};

// MarkTermHits: where a term stands in a text, capitals or not, as a plain part of whatever word, in the
// order of the text. Overlapping hits all count. A scan does not begin at the last character, so that one is
// no hit of a term of one letter when the character in front of it is, or when it is the whole text.
std::vector<TextRange> MarkTermHits(const QString& text, const QString& term);

struct MarkedForm {
    std::vector<TextRange> marks; // of all terms, one after the other
    QStringList cboDisplayHit; // the terms that occur, in capitals; one that was asked for twice stands twice
    QString CurrentSearchWord; // the last term that was looked for; empty when there was none
};

// The marks of the terms of a search in the order of their slots. Empty slots are passed over.
MarkedForm MarkForm(const QString& text, const SearchTerms& terms);

// The same characters as ranges in the order of the text that neither overlap nor touch.
std::vector<TextRange> WithoutOverlaps(std::vector<TextRange> marks);

} // namespace quillbrook
