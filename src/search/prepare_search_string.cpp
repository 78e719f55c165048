#include "search/prepare_search_string.h"

#include "search/replace_all.h"

namespace quillbrook {

QString PrepareSearchString(const QString& query, SearchMode mode) {
    const QString words = CollapseBlanks(query, 6);
    switch (mode) {
    case SearchMode::All:
        return ReplaceAll(words, QStringLiteral(" "), QStringLiteral(" +"));
    case SearchMode::Any:
        return words;
    case SearchMode::Phrase:
        break;
    }
    return u'"' + words + u'"';
}

} // namespace quillbrook
