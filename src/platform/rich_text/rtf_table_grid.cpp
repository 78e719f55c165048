#include "platform/rich_text/rtf_table_grid.h"

#include <algorithm>
#include <cstdlib>

#include "platform/rich_text/rtf_limits.h"

namespace platform {
namespace {

constexpr int kSameEdge = 20;       // twips: edges nearer than that are one
constexpr int kLeastWidth = 60;     // twips; more than two of the above, so that a cell never vanishes
constexpr int kDefaultWidth = 1440; // twips, of a cell the file told no edge of

// Right edges of a row's cells, ascending.
std::vector<int> RightEdges(const RtfRow& row) {
    std::vector<int> edges;
    edges.reserve(row.cells.size());
    int last = row.definition ? row.definition->left : 0;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const bool told = row.definition && i < row.definition->cells.size();
        last = told ? std::max(row.definition->cells[i].right, last + kLeastWidth) : last + kDefaultWidth;
        edges.push_back(last);
    }
    return edges;
}

// Adds edges that are not there yet.
void AddEdges(const std::vector<int>& added, std::vector<int>& edges) {
    for (const int edge : added) {
        const auto at = std::lower_bound(edges.begin(), edges.end(), edge - kSameEdge);
        if (at == edges.end() || *at > edge + kSameEdge)
            edges.insert(at, edge);
    }
}

int ColumnOf(int edge, const std::vector<int>& edges) {
    return static_cast<int>(std::lower_bound(edges.begin(), edges.end(), edge - kSameEdge) - edges.begin());
}

qint64 VerticalMerges(const RtfRow& row) {
    if (!row.definition)
        return 0;
    return std::count_if(
        row.definition->cells.begin(), row.definition->cells.end(),
        [](const RtfCellDefinition& cell) { return cell.mergesBelow || cell.mergedWithAbove; });
}

// Grows with what Qt needs for a table; bounds it.
struct TableCost {
    qint64 rows = 0;
    qint64 cells = 0;
    qint64 verticalMerges = 0;

    bool Affordable(qint64 columns) const {
        const qint64 fields = rows * columns;
        const qint64 merges = verticalMerges + std::min(cells, fields - cells);
        return columns <= kMostColumns && fields <= 8 * cells + 256 && fields * merges <= kMostMergeWork;
    }
};

bool HasContent(const RtfCell& cell) {
    return std::any_of(cell.blocks.begin(), cell.blocks.end(),
                       [](const RtfBlock& block) { return block.table || !block.paragraph.text.isEmpty(); });
}

// The text of a merged cell is kept in the cell it is merged into.
void TakeIn(RtfCell& from, RtfCell& into) {
    if (HasContent(from))
        std::move(from.blocks.begin(), from.blocks.end(), std::back_inserter(into.blocks));
    from.blocks.clear();
}

std::vector<RtfGridCell> PlaceRow(RtfRow& row, const std::vector<int>& edges) {
    std::vector<RtfGridCell> placed;
    const std::vector<int> rights = RightEdges(row);
    int column = 0;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        const RtfCellDefinition* definition =
            row.definition && i < row.definition->cells.size() ? &row.definition->cells[i] : nullptr;
        const int end = ColumnOf(rights[i], edges) + 1;
        if (definition && definition->mergedWithPrevious && !placed.empty()) {
            placed.back().columnSpan += end - column;
            TakeIn(row.cells[i], *placed.back().cell);
        } else {
            placed.push_back({column, end - column, 1, &row.cells[i], definition});
        }
        column = end;
    }
    if (const int columns = static_cast<int>(edges.size()); column < columns)
        placed.push_back({column, columns - column, 1, nullptr, nullptr});
    return placed;
}

// Joins cells that are merged with the one above, where columns agree.
void MergeVertically(std::vector<std::vector<RtfGridCell>>& rows) {
    std::vector<RtfGridCell*> heads(static_cast<std::size_t>(kMostColumns) + 1);
    for (auto& row : rows) {
        std::vector<RtfGridCell*> next(heads.size());
        for (RtfGridCell& cell : row) {
            if (!cell.definition)
                continue;
            RtfGridCell* const head = heads[static_cast<std::size_t>(cell.column)];
            if (cell.definition->mergedWithAbove && head && head->columnSpan == cell.columnSpan) {
                ++head->rowSpan;
                cell.rowSpan = 0;
                TakeIn(*cell.cell, *head->cell);
                next[static_cast<std::size_t>(cell.column)] = head;
            } else if (cell.definition->mergesBelow || cell.definition->mergedWithAbove) {
                next[static_cast<std::size_t>(cell.column)] = &cell;
            }
        }
        heads = std::move(next);
    }
}

} // namespace

RtfGrid MakeRtfGrid(RtfTable& table, std::size_t first, std::size_t& next) {
    RtfGrid grid;
    TableCost cost;
    for (next = first; next < table.rows.size(); ++next) {
        RtfRow& row = table.rows[next];
        std::vector<int> edges = grid.edges;
        AddEdges(RightEdges(row), edges);
        ++cost.rows;
        cost.cells += static_cast<qint64>(row.cells.size());
        cost.verticalMerges += VerticalMerges(row);
        if (next != first && !cost.Affordable(static_cast<qint64>(edges.size())))
            break;
        grid.edges = std::move(edges);
        grid.rows.push_back(&row);
        const int left = row.definition ? row.definition->left : 0;
        grid.left = next == first ? left : std::min(grid.left, left);
    }
    for (RtfRow* row : grid.rows)
        grid.cells.push_back(PlaceRow(*row, grid.edges));
    MergeVertically(grid.cells);
    return grid;
}

} // namespace platform
