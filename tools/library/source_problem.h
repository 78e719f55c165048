#pragma once

#include <QString>
#include <vector>

namespace quillbrook {

// What is wrong in a source file, and on which of its lines (from 1).
struct SourceProblem {
    int line = 1;
    QString text;
};

using SourceProblems = std::vector<SourceProblem>;

} // namespace quillbrook
