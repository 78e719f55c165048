#include "search/query_strip.h"

#include "search/replace_all.h"

#include <algorithm>

namespace quillbrook {
namespace {

constexpr int kTrailLength = 4; // "AND " or "NOT "
constexpr int kLeadingPasses = 4;

constexpr const char* kOperatorsBetweenBlanks[] = {
    " AND ", " ANd ", " And ", " and ", " aND ", " anD ", " aNd ", " AnD ", //
    " NOT ", " NOt ", " Not ", " not ", " nOT ", " noT ", " nOt ", " NoT ", //
    " OR ",  " Or ",  " or ",  " oR ",
};

bool Begins(const QString& text, const char* capitals) {
    return text.startsWith(QLatin1String(capitals), Qt::CaseInsensitive);
}

bool Ends(const QString& text, const char* capitals) {
    return text.endsWith(QLatin1String(capitals), Qt::CaseInsensitive);
}

bool Is(const QString& text, const char* capitals) {
    return text.compare(QLatin1String(capitals), Qt::CaseInsensitive) == 0;
}

} // namespace

QString StripLeadingOperators(const QString& query, SearchMode mode) {
    if (mode == SearchMode::Phrase)
        return query;
    QString text = query;
    for (int pass = 0; pass < kLeadingPasses; ++pass) {
        if (Begins(text, "OR "))
            text.remove(0, 3);
        if (Begins(text, "AND ") || Begins(text, "NOT "))
            text.remove(0, 4);
    }
    return text;
}

QString StripTrailingOperators(const QString& query, SearchMode mode) {
    if (mode == SearchMode::Phrase)
        return query;
    QString text = query;
    if (Ends(text, " OR "))
        text.chop(3);
    if (Ends(text, " AND ") || Ends(text, " NOT "))
        text.chop(4);
    return text;
}

QString RemoveOperatorWords(const QString& query, SearchMode mode) {
    if (mode == SearchMode::Phrase)
        return query;
    QString text = query;
    for (const char* word : kOperatorsBetweenBlanks)
        text = ReplaceAll(text, QString::fromLatin1(word), QStringLiteral(" "));
    return text;
}

QString StripDanglingOperators(const QString& query) {
    QString text = query;
    if (Ends(text, " OR"))
        text.chop(2);
    if (Ends(text, " AND"))
        text.chop(3);
    if (Ends(text, " NOT"))
        text.chop(3);
    if (Is(text, "OR") || Is(text, "AND") || Is(text, "NOT"))
        text.clear();
    return text;
}

QString StripForMode(const QString& query, SearchMode mode) {
    if (mode == SearchMode::Phrase)
        return query;
    const QString text = StripTrailingOperators(StripLeadingOperators(query, mode), mode);
    return StripDanglingOperators(RemoveOperatorWords(text, mode));
}

void QueryKeyTrail::Append(int key) {
    const bool counts = key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
                        (key >= Qt::Key_A && key <= Qt::Key_Z);
    m_last += counts ? QChar(static_cast<char16_t>(key)) : QChar(u'\x10');
    if (m_last.size() > kTrailLength)
        m_last.remove(0, m_last.size() - kTrailLength);
}

CleanQuery CleanUpQuery(const QString& query, SearchMode mode, QueryKeyTrail& trail) {
    CleanQuery clean{StripLeadingOperators(query, mode)};
    const QString untrailed = StripTrailingOperators(clean.text, mode);
    clean.caretToEnd = untrailed != clean.text;
    clean.text = RemoveOperatorWords(untrailed, mode);
    if (mode == SearchMode::Phrase)
        return clean;
    // an operator typed a moment ago; emptying the trail for one keeps the others from matching
    for (const char* keys : {"OR ", "AND ", "NOT "}) {
        if (!trail.EndsWith(QLatin1String(keys)))
            continue;
        clean.text = RemoveOperatorWords(clean.text, mode);
        clean.caretToEnd = true;
        trail.Clear();
    }
    return clean;
}

bool IsQueryCharacter(uint code) {
    constexpr uint backspace = 8;
    constexpr uint wordBackspace = 127;
    return code == backspace || code == u' ' || (code >= u'0' && code <= u'9') ||
           (code >= u'A' && code <= u'Z') || (code >= u'a' && code <= u'z') || code == wordBackspace ||
           code == 164 || code == 165;
}

QString AfterKeyUp(const QString& query) {
    return query.startsWith(u' ') ? QString() : query;
}

int CaretAfterChange(const QString& before, const QString& after, int caret) {
    const qsizetype shorter = std::min(before.size(), after.size());
    qsizetype same = 0; // characters that are the same at the start
    while (same < shorter && before[same] == after[same])
        ++same;
    if (caret <= same)
        return caret;
    qsizetype sameBack = 0; // and at the end
    while (sameBack < shorter && before[before.size() - 1 - sameBack] == after[after.size() - 1 - sameBack])
        ++sameBack;
    const qsizetype behind = before.size() - caret;
    return static_cast<int>(behind <= sameBack ? after.size() - behind : same);
}

} // namespace quillbrook
