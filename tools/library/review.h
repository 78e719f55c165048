#pragma once

#include "library/checker.h"
#include "library/spelling.h"

namespace quillbrook {

// Reads a library over: what its forms hold, how they and the clauses are spelt, and whether two forms are
// the same text under two titles. Ordered by file, then line; none when nothing is wrong. That there is no
// dictionary is a problem too.
std::vector<LibraryProblem> ReviewLibrary(const LibraryContent& content,
                                          const SpellingDictionary& dictionary);

} // namespace quillbrook
