#pragma once

#include "search/marking.h"

#include <optional>

namespace quillbrook {

// What a step from hit to hit selects in the pane. Without a start the selection keeps its own and only its
// length is set.
struct HitSelection {
    std::optional<int> start;
    int length = 0;

    bool operator==(const HitSelection&) const = default;
};

// The walk over the hits of all terms in the form on display. Terms are looked for in the text as it stands
// at each step, capitals or not. Neither end leads to the other. The last character of the text is not looked
// at. A step that comes to a hit puts its term into `word`, the program's CurrentSearchWord.
class HitWalk {
public:
    // Begins in front of the first hit. A form without marks gives a walk that goes nowhere.
    void Start(const MarkedForm& form);

    // btnNextHit: the next hit, of two at one place that of the term listed first. Empty when there is none;
    // the selection stays, and the walk has come to its end.
    std::optional<HitSelection> Next(const QString& text, QString& word);

    // btnPreviousHit: the last hit in front of the current one. With none, the walk begins anew and what the
    // pane has selected gets the length of `word`, whoever put it there.
    HitSelection Previous(const QString& text, QString& word);

    qsizetype HitScanPosition() const {
        return m_position;
    } // 2 + the start of the current hit, 1 before the first

private:
    HitSelection Selection(const QString& word) const;

    QStringList m_terms;
    qsizetype m_position = 1;
};

} // namespace quillbrook
