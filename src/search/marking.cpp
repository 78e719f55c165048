#include "search/marking.h"

#include "search/term_finder.h"

#include <algorithm>

namespace quillbrook {
namespace {

// Both in capitals, the term not empty.
std::vector<TextRange> ScanForHits(const QString& text, const QString& term) {
    std::vector<TextRange> hits;
    const TermFinder finder(term);
    for (qsizetype from = 0; from < text.size() - 1;) {
        const qsizetype hit = finder.First(text, from, text.size());
        if (hit < 0)
            break;
        hits.push_back({static_cast<int>(hit), static_cast<int>(term.size())});
        from = hit + 1;
    }
    return hits;
}

} // namespace

std::vector<TextRange> MarkTermHits(const QString& text, const QString& term) {
    if (term.isEmpty())
        return {};
    return ScanForHits(Capitals(text), Capitals(term));
}

MarkedForm MarkForm(const QString& text, const SearchTerms& terms) {
    MarkedForm form;
    const QString capitals = Capitals(text);
    for (const QString& term : terms) {
        if (term.isEmpty())
            continue;
        form.CurrentSearchWord = term;
        const QString entry = Capitals(term);
        const std::vector<TextRange> hits = ScanForHits(capitals, entry);
        if (hits.empty())
            continue;
        form.marks.insert(form.marks.end(), hits.begin(), hits.end());
        form.cboDisplayHit.append(entry);
    }
    return form;
}

std::vector<TextRange> WithoutOverlaps(std::vector<TextRange> marks) {
    std::sort(marks.begin(), marks.end(),
              [](const TextRange& left, const TextRange& right) { return left.start < right.start; });
    std::vector<TextRange> apart;
    for (const TextRange& mark : marks) {
        if (apart.empty() || mark.start > apart.back().start + apart.back().length) {
            apart.push_back(mark);
            continue;
        }
        TextRange& last = apart.back();
        last.length = std::max(last.length, mark.start + mark.length - last.start);
    }
    return apart;
}

} // namespace quillbrook
