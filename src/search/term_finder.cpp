#include "search/term_finder.h"

#include <algorithm>
#include <cstring>

namespace quillbrook {
namespace {

constexpr qsizetype kBlock = 64; // places looked at in one go, as a loop that compilers make vectors of

} // namespace

QString Capitals(QStringView text) {
    QString capitals(text.size(), Qt::Uninitialized);
    QChar* to = capitals.data();
    char16_t beyondAscii = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        beyondAscii = static_cast<char16_t>(beyondAscii | c);
        const bool isSmall = static_cast<char16_t>(c - u'a') <= u'z' - u'a';
        to[i] = QChar(static_cast<char16_t>(isSmall ? c ^ 0x20 : c));
    }
    if (beyondAscii < 0x80)
        return capitals;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar capital = text[i].toUpper();
        if (text[i].unicode() >= 0x80 && capital.unicode() >= 0x80)
            to[i] = capital;
    }
    return capitals;
}

TermFinder::TermFinder(QStringView term)
    : m_term(term)
    , m_first(term.front().unicode())
    , m_last(term.back().unicode()) {}

bool TermFinder::MayStartIn(const char16_t* block) const {
    const char16_t* ends = block + m_term.size() - 1;
    char16_t found = 0;
    for (qsizetype i = 0; i < kBlock; ++i)
        found = static_cast<char16_t>(found | ((block[i] == m_first) & (ends[i] == m_last)));
    return found != 0;
}

bool TermFinder::StartsAt(const char16_t* place) const {
    return place[0] == m_first && place[m_term.size() - 1] == m_last &&
           std::memcmp(place, m_term.utf16(), static_cast<std::size_t>(m_term.size()) * sizeof(char16_t)) ==
               0;
}

qsizetype TermFinder::First(QStringView text, qsizetype from, qsizetype end) const {
    const char16_t* characters = text.utf16();
    const qsizetype stop =
        std::min(end, text.size()) - m_term.size() + 1; // the first place too late for a start
    qsizetype place = std::max<qsizetype>(from, 0);
    while (place < stop) {
        const qsizetype blockEnd = std::min(place + kBlock, stop);
        if (blockEnd - place == kBlock && !MayStartIn(characters + place)) {
            place = blockEnd;
            continue;
        }
        for (; place < blockEnd; ++place) {
            if (StartsAt(characters + place))
                return place;
        }
    }
    return -1;
}

qsizetype TermFinder::Last(QStringView text, qsizetype from, qsizetype end) const {
    const char16_t* characters = text.utf16();
    const qsizetype begin = std::max<qsizetype>(from, 0);
    qsizetype stop = std::min(end, text.size()) - m_term.size() + 1;
    while (stop > begin) {
        const qsizetype blockBegin = std::max(stop - kBlock, begin);
        if (stop - blockBegin == kBlock && !MayStartIn(characters + blockBegin)) {
            stop = blockBegin;
            continue;
        }
        for (; stop > blockBegin; --stop) {
            if (StartsAt(characters + stop - 1))
                return stop - 1;
        }
    }
    return -1;
}

} // namespace quillbrook
