#pragma once

#include "library/library_content.h"

namespace quillbrook {

// A problem and the file it stands in.
struct LibraryProblem {
    QString file;
    int line = 1;
    QString text;

    // "file:line: error: text"
    QString Message() const;
};

struct CheckedLibrary {
    LibraryContent content;
    std::vector<LibraryProblem> problems; // ordered by file, then line; none when the library is good
};

// Reads all forms and clauses of a folder and checks them by themselves and against one another. Names of
// files are given as paths that begin with `folder`. `content` is fit for a library only when there are no
// problems.
CheckedLibrary CheckLibrary(const QString& folder);

} // namespace quillbrook
