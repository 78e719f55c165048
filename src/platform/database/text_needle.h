// What a pattern asks of the runs of a text.
#pragma once

#include "platform/database/token_runs.h"

namespace platform {

struct TextNeedle {
    // A text that matches has, for each of these, a run that it asks for.
    std::vector<RunNeedle> runs;
    // The other way round too: a text that has them matches.
    bool exact = false;
};

} // namespace platform
