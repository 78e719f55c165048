#pragma once

#include "search/search_mode.h"

#include <QString>

namespace quillbrook {

// How a query is going to be read.
struct GuideText {
    QString lblSearchGuide;  // the mode, as a sentence
    QString lblSearchGuide1; // the words in capitals with their joiner, or the phrase between double quotes
};

// A blank at the end of the query shows as a joiner with nothing behind it yet.
GuideText MakeGuideText(const QString& query, SearchMode mode);

} // namespace quillbrook
