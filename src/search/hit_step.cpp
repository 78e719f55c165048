#include "search/hit_step.h"

#include "search/term_finder.h"

#include <algorithm>

namespace quillbrook {

void HitWalk::Start(const MarkedForm& form) {
    m_terms = form.cboDisplayHit;
    m_position = 1;
}

HitSelection HitWalk::Selection(const QString& word) const {
    return {static_cast<int>(m_position - 2), static_cast<int>(word.size())};
}

std::optional<HitSelection> HitWalk::Next(const QString& text, QString& word) {
    const qsizetype length = text.size();
    if (m_position >= length)
        return std::nullopt;
    const QString capitals = Capitals(text);
    qsizetype nearest = -1;
    for (const QString& term : m_terms) {
        // only a hit that starts before the nearest one matters
        const qsizetype end = nearest < 0 ? length - 1 : std::min(length - 1, nearest + term.size() - 1);
        const qsizetype hit = TermFinder(term).First(capitals, m_position - 1, end);
        if (hit < 0)
            continue;
        nearest = hit;
        word = term;
    }
    if (nearest < 0) {
        m_position += length; // past the end, where later steps stop
        return std::nullopt;
    }
    m_position = nearest + 2;
    return Selection(word);
}

HitSelection HitWalk::Previous(const QString& text, QString& word) {
    const QString capitals = Capitals(text);
    const qsizetype current = m_position - 2;                            // start of the current hit
    const qsizetype headEnd = std::min(m_position, capitals.size()) - 1; // behind what is looked at
    qsizetype best = -1;
    for (const QString& term : m_terms) {
        // a term of one letter would find the current hit again
        const qsizetype end = std::min(headEnd, current + term.size() - 1);
        const qsizetype hit = TermFinder(term).Last(capitals, best + 1, end);
        if (hit < 0)
            continue;
        best = hit;
        word = term;
    }
    m_position = best + 2;
    if (best < 0)
        return {std::nullopt, static_cast<int>(word.size())};
    return Selection(word);
}

} // namespace quillbrook
