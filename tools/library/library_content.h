// All that goes into a library file, in the order in which it goes there.
#pragma once

#include "library/form_source.h"

namespace quillbrook {

struct LibraryForm {
    QString file; // as it was found
    FormSource source;
};

struct LibraryClause {
    QString table; // Jurat, Caption or Verification
    int number = 1;
    QString text;      // lines separated by '\n', none behind the last one
    QString file = {}; // as it was found
};

// Forms are ordered by category, then sub-category, then title; clauses by table, then number.
struct LibraryContent {
    std::vector<LibraryForm> forms;
    std::vector<LibraryClause> clauses;
};

} // namespace quillbrook
