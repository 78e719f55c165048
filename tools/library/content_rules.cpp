#include "library/content_rules.h"

#include "library/clause_kinds.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <array>

namespace quillbrook {
namespace {

constexpr qsizetype kLongestAlmostMarker = 60;
constexpr int kMostSlips = 2; // letters by which a marker may be misspelt to be taken for one

// How many letters must be put in, left out or changed to make one text of the other.
int Distance(const QString& a, const QString& b) {
    std::vector<int> row(static_cast<std::size_t>(b.size()) + 1);
    for (std::size_t i = 0; i < row.size(); ++i)
        row[i] = static_cast<int>(i);
    for (qsizetype i = 0; i < a.size(); ++i) {
        int diagonal = row[0]++;
        for (qsizetype j = 0; j < b.size(); ++j) {
            const std::size_t column = static_cast<std::size_t>(j) + 1;
            const int changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[column];
            row[column] = std::min({changed, row[column] + 1, row[column - 1] + 1});
        }
    }
    return row.back();
}

// Only the letters, as capitals.
QString Letters(const QString& text) {
    QString letters;
    for (const QChar character : text)
        if (character.isLetter())
            letters += character.toUpper();
    return letters;
}

// The marker that a bracketed text is or is meant to be; none when it is like none.
std::optional<QLatin1String> MeantMarker(const QString& text) {
    const QString letters = Letters(text);
    for (const QLatin1String marker : kMarkers) {
        const QString wanted = Letters(marker);
        const int slips = wanted.size() < 8 ? 1 : kMostSlips;
        if (std::abs(letters.size() - wanted.size()) <= slips && Distance(letters, wanted) <= slips)
            return marker;
    }
    return std::nullopt;
}

bool IsAlmostMarker(const QString& text) {
    static const QRegularExpression oneBracketAtLeast(QStringLiteral("^[(\\[{]|[)\\]}][.,;:]?$"));
    return text.size() <= kLongestAlmostMarker && oneBracketAtLeast.match(text).hasMatch();
}

// What the instrument is called, the category it must lie in (any when empty), the marker it needs, and the
// words that serve in place of the marker.
struct NeededMarker {
    QLatin1String title; // begins so, or holds it as a word when it begins with a blank
    QLatin1String category;
    QLatin1String marker;
    QLatin1String orText;
};

constexpr std::array<NeededMarker, 8> kNeededMarkers = {{
    {QLatin1String("Affidavit"), QLatin1String(), QLatin1String("(JURAT)"),
     QLatin1String("SUBSCRIBED AND SWORN")},
    {QLatin1String("Joint Affidavit"), QLatin1String(), QLatin1String("(JURAT)"),
     QLatin1String("SUBSCRIBED AND SWORN")},
    {QLatin1String("Complaint-Affidavit"), QLatin1String(), QLatin1String("(JURAT)"),
     QLatin1String("SUBSCRIBED AND SWORN")},
    {QLatin1String("Deed of"), QLatin1String(), QLatin1String("(ACKNOWLEDGMENT)"),
     QLatin1String("BEFORE ME")},
    {QLatin1String("Power of Attorney"), QLatin1String(), QLatin1String("(ACKNOWLEDGMENT)"),
     QLatin1String("BEFORE ME")},
    {QLatin1String("Articles of"), QLatin1String(), QLatin1String("(ACKNOWLEDGMENT)"),
     QLatin1String("BEFORE ME")},
    {QLatin1String("Complaint"), QLatin1String("Pleadings"), QLatin1String("(VERIFICATION)"),
     QLatin1String("VERIFICATION")},
    {QLatin1String("Petition"), QLatin1String("Pleadings"), QLatin1String("(VERIFICATION)"),
     QLatin1String("VERIFICATION")},
}};

struct Pair {
    QChar open;
    QChar close;
};

constexpr std::array<Pair, 3> kPairs = {{
    {u'(', u')'},
    {u'[', u']'},
    {u'\u201C', u'\u201D'},
}};

// The first bracket of a line that pairs with nothing; null when all do.
QChar Unpaired(const QString& text) {
    static const QRegularExpression enumeration(QStringLiteral("(^|\\x{2028})[ \\t]*[0-9A-Za-z]{1,4}\\)"));
    static const QRegularExpression venue(QStringLiteral("\\t *\\)( *S\\.S\\.)?(?=\\x{2028}|$)"));
    QString rest = text;
    rest.replace(enumeration, QStringLiteral("\\1"));
    rest.remove(venue);
    QString open;
    for (const QChar character : std::as_const(rest)) {
        for (const Pair& pair : kPairs) {
            if (character == pair.open) {
                open += character;
            } else if (character == pair.close) {
                if (!open.endsWith(pair.open))
                    return open.isEmpty() ? character : open.back();
                open.chop(1);
            }
        }
    }
    return open.isEmpty() ? QChar() : open.back();
}

// Whether a text that opens a quotation without closing it is followed by a paragraph that opens it again.
bool QuotationGoesOn(const FormTexts& texts, std::size_t at) {
    const auto opens = [](const FormText& text) { return text.text.startsWith(u'\u201C'); };
    return opens(texts[at]) &&
           std::any_of(texts.begin() + static_cast<std::ptrdiff_t>(at) + 1, texts.end(), opens);
}

} // namespace

SourceProblems CheckMarkerSpelling(const FormTexts& texts) {
    SourceProblems problems;
    for (const FormText& text : texts) {
        const QString trimmed = text.text.trimmed();
        if (std::find(kMarkers.begin(), kMarkers.end(), trimmed) != kMarkers.end())
            continue;
        if (IsAlmostMarker(trimmed)) {
            if (const auto marker = MeantMarker(trimmed)) {
                problems.push_back({text.line, QStringLiteral("%1 is not spelt %2").arg(trimmed, *marker)});
                continue;
            }
        }
        for (const QLatin1String marker : kMarkers)
            if (text.text.contains(marker))
                problems.push_back({text.line, QStringLiteral("%1 within a longer text").arg(marker)});
    }
    return problems;
}

SourceProblems CheckMarkersPresent(const FormSource& form) {
    const FormTexts texts = TextsOf(form.blocks);
    const auto holds = [&texts](QLatin1String wanted) {
        return std::any_of(texts.begin(), texts.end(),
                           [wanted](const FormText& text) { return text.text.contains(wanted); });
    };
    for (const NeededMarker& needed : kNeededMarkers) {
        if (!form.title.startsWith(needed.title) ||
            (!needed.category.isEmpty() && form.category != needed.category))
            continue;
        if (!holds(needed.marker) && !holds(needed.orText))
            return {{form.titleLine,
                     QStringLiteral("\"%1\" needs the marker %2").arg(form.title, needed.marker)}};
    }
    return {};
}

SourceProblems CheckBlanks(const FormTexts& texts) {
    static const QRegularExpression blank(QStringLiteral("_{5,}"));
    static const QRegularExpression shortBlank(QStringLiteral("(?<!_)_{1,4}(?!_)"));
    static const QRegularExpression dots(QStringLiteral("\\.{4,}|\\x{2026}{2,}"));
    SourceProblems problems;
    bool found = false;
    for (const FormText& text : texts) {
        found = found || blank.match(text.text).hasMatch();
        if (shortBlank.match(text.text).hasMatch())
            problems.push_back({text.line, QStringLiteral("blank of fewer than five underscores")});
        if (dots.match(text.text).hasMatch())
            problems.push_back({text.line, QStringLiteral("blank drawn with dots")});
    }
    if (!found)
        problems.push_back({texts.empty() ? 1 : texts.front().line, QStringLiteral("no blank to fill")});
    return problems;
}

SourceProblems CheckLength(const FormTexts& texts) {
    const std::size_t words = WordsOf(texts).size();
    if (words >= kShortestForm)
        return {};
    return {{texts.empty() ? 1 : texts.front().line,
             QStringLiteral("%1 words, fewer than %2").arg(words).arg(kShortestForm)}};
}

SourceProblems CheckBrackets(const FormTexts& texts) {
    SourceProblems problems;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QChar unpaired = Unpaired(texts[i].text);
        if (unpaired.isNull())
            continue;
        if (unpaired != u'\u201C' || !QuotationGoesOn(texts, i))
            problems.push_back({texts[i].line, QStringLiteral("%1 without its counterpart").arg(unpaired)});
    }
    return problems;
}

} // namespace quillbrook
