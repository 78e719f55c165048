#pragma once

#include <QLatin1String>
#include <array>

namespace quillbrook {

// A table of clauses, which is also the folder its texts lie in: they are numbered from 1 to `count`.
struct ClauseKind {
    QLatin1String table;
    int count;
};

constexpr std::array<ClauseKind, 3> kClauseKinds = {{
    {QLatin1String("Jurat"), 8},
    {QLatin1String("Caption"), 8},
    {QLatin1String("Verification"), 6},
}};

// The places in a form that a clause can take.
constexpr std::array<QLatin1String, 6> kMarkers = {{
    QLatin1String("(JURAT)"),
    QLatin1String("(ACKNOWLEDGMENT)"),
    QLatin1String("(VERIFICATION)"),
    QLatin1String("(CERTIFICATION OF NON-FORUM SHOPPING)"),
    QLatin1String("(NOTICE OF HEARING)"),
    QLatin1String("(EXPLANATION)"),
}};

} // namespace quillbrook
