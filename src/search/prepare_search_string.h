#pragma once

#include "search/search_mode.h"

#include <QString>

namespace quillbrook {

// Rewrites a query for Parse: every word but the first behind a plus sign for All words, the whole between
// double quotes for Phrase. A blank at the end becomes a lone plus sign.
QString PrepareSearchString(const QString& query, SearchMode mode);

} // namespace quillbrook
