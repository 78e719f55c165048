#pragma once

#include <vector>

#include "platform/rich_text/rtf_flow.h"

namespace platform {

struct RtfGridCell {
    int column = 0;
    int columnSpan = 1;
    int rowSpan = 1;                               // 0 for a cell that one above has taken in
    RtfCell* cell = nullptr;                       // null where the row ends before the table's right edge
    const RtfCellDefinition* definition = nullptr; // null when the file told none
};

// The rows of a table on common columns.
struct RtfGrid {
    int left = 0;           // twips
    std::vector<int> edges; // right edge of each column, twips, ascending
    std::vector<RtfRow*> rows;
    std::vector<std::vector<RtfGridCell>> cells; // for each row, from left to right, covering all columns
};

// Lays rows from `first` on over common columns; `next` is then the first row that was left for another
// table, because one table of them all would cost more than their size warrants. Takes at least one row.
RtfGrid MakeRtfGrid(RtfTable& table, std::size_t first, std::size_t& next);

} // namespace platform
