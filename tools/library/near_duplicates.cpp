#include "library/near_duplicates.h"

#include <algorithm>

namespace quillbrook {
namespace {

// FNV-1a, 64 bits: the same on every machine.
quint64 Hash(const QString& text) {
    quint64 hash = 14'695'981'039'346'656'037u;
    for (const QChar character : text) {
        hash ^= character.unicode();
        hash *= 1'099'511'628'211u;
    }
    return hash;
}

} // namespace

Shingles ShinglesOf(const std::vector<Word>& words) {
    Shingles shingles;
    constexpr std::size_t length = kShingleWords;
    const std::size_t count = words.empty() ? 0 : std::max<std::size_t>(words.size(), length) - length + 1;
    for (std::size_t i = 0; i < count; ++i) {
        QString run;
        for (std::size_t j = i; j < std::min(i + length, words.size()); ++j)
            run += words[j].text.toCaseFolded() + u' ';
        shingles.push_back(Hash(run));
    }
    std::sort(shingles.begin(), shingles.end());
    shingles.erase(std::unique(shingles.begin(), shingles.end()), shingles.end());
    return shingles;
}

double Likeness(const Shingles& a, const Shingles& b) {
    std::size_t shared = 0;
    for (auto i = a.begin(), j = b.begin(); i != a.end() && j != b.end();) {
        if (*i == *j) {
            ++shared;
            ++i;
            ++j;
        } else if (*i < *j) {
            ++i;
        } else {
            ++j;
        }
    }
    const std::size_t all = a.size() + b.size() - shared;
    return all == 0 ? 0 : static_cast<double>(shared) / static_cast<double>(all);
}

std::vector<AlikePair> FindAlike(const std::vector<Shingles>& texts, double most) {
    std::vector<AlikePair> pairs;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t j = i + 1; j < texts.size(); ++j) {
            // texts of very different length cannot share so much
            const auto [shorter, longer] = std::minmax({texts[i].size(), texts[j].size()});
            if (static_cast<double>(shorter) <= most * static_cast<double>(longer))
                continue;
            if (const double likeness = Likeness(texts[i], texts[j]); likeness > most)
                pairs.push_back({i, j, likeness});
        }
    }
    return pairs;
}

} // namespace quillbrook
