#include "clauses/clause_placement.h"

namespace quillbrook {
namespace {

constexpr int kShortestText = 2; // that takes a clause

// Character by character, so that positions in the result are those of the text.
QString UpperCase(const QString& text) {
    QString upper = text;
    for (QChar& character : upper)
        character = character.toUpper();
    return upper;
}

} // namespace

std::optional<QString> PreparedText(const QString& text) {
    if (text.isEmpty() || text == QLatin1String(" "))
        return QStringLiteral("  ");
    return std::nullopt;
}

std::optional<ClausePlace> PlaceOfClause(const QString& text, const QString& marker) {
    if (text.size() < kShortestText)
        return std::nullopt;
    const qsizetype at = UpperCase(text).indexOf(UpperCase(marker));
    if (at < 0)
        return ClausePlace{static_cast<int>(text.size()), 0};
    return ClausePlace{static_cast<int>(at), static_cast<int>(marker.size())};
}

} // namespace quillbrook
