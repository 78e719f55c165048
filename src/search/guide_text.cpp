#include "search/guide_text.h"

#include "search/replace_all.h"

namespace quillbrook {

GuideText MakeGuideText(const QString& query, SearchMode mode) {
    const SearchModeFacts& facts = FactsOf(mode);
    QString words = CollapseBlanks(query.toUpper(), 10);
    if (mode == SearchMode::Phrase)
        words = u'"' + words + u'"';
    else
        words = ReplaceAll(words, QStringLiteral(" "), QString::fromLatin1(facts.joiner));
    return {QString::fromLatin1(facts.sentence), words};
}

} // namespace quillbrook
