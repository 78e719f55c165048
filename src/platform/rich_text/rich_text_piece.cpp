#include "platform/rich_text/rich_text_piece.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <optional>
#include <vector>

#include "platform/rich_text/document_model.h"

namespace platform {
namespace {

constexpr double kScreenDpi = 96;
constexpr double kRoundingSlack = 0.5; // device pixels by which a piece may be too low

// A line of the laid-out document, in document coordinates.
struct Line {
    int position = 0;
    double top = 0;
    double bottom = 0;
    double left = 0;
    double width = 0;

    QRectF Box() const { return {left, top, width, bottom - top}; }
};

std::vector<Line> LinesOf(const QTextBlock& block) {
    const QRectF box = block.document()->documentLayout()->blockBoundingRect(block);
    std::vector<Line> lines;
    const QTextLayout& layout = *block.layout();
    lines.reserve(static_cast<std::size_t>(layout.lineCount()));
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const double top = box.top() + line.y();
        lines.push_back(
            {block.position() + line.textStart(), top, top + line.height(), box.left(), box.width()});
    }
    if (lines.empty())
        lines.push_back({block.position(), box.top(), box.bottom(), box.left(), box.width()});
    return lines;
}

// The outermost table that holds a block, null for none.
QTextTable* OutermostTable(const QTextBlock& block) {
    QTextTable* table = nullptr;
    for (QTextFrame* frame = QTextCursor(block).currentFrame(); frame != nullptr;
         frame = frame->parentFrame()) {
        if (auto* found = qobject_cast<QTextTable*>(frame))
            table = found;
    }
    return table;
}

// Rows of a table that cells reaching over several tie together: their blocks and their extent.
struct RowUnit {
    QTextBlock first;
    QTextBlock end; // behind the last
    double top = 0;
    double bottom = 0;
};

// Of no properties outside of the table.
QTextTableCellFormat CellFormat(const QTextTable& table, int row, int column) {
    if (row < 0 || row >= table.rows())
        return {};
    return table.cellAt(row, column).format().toTableCellFormat();
}

RowUnit RowsAround(const QTextTable& table, const QTextBlock& block) {
    int begin = table.cellAt(block.position()).row();
    int end = begin + 1;
    for (int row = begin; row < end; ++row) {
        const int oldBegin = begin;
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            begin = std::min(begin, cell.row());
            end = std::max(end, cell.row() + cell.rowSpan());
        }
        if (begin < oldBegin)
            row = begin - 1;
    }
    end = std::min(end, table.rows());
    RowUnit unit;
    unit.first = table.cellAt(begin, 0).firstCursorPosition().block();
    unit.end = table.cellAt(end - 1, table.columns() - 1).lastCursorPosition().block().next();
    bool started = false;
    const auto widen = [&unit, &started](double top, double bottom) {
        unit.top = started ? std::min(unit.top, top) : top;
        unit.bottom = started ? std::max(unit.bottom, bottom) : bottom;
        started = true;
    };
    for (QTextBlock inside = unit.first; inside.isValid() && inside != unit.end; inside = inside.next()) {
        for (const Line& line : LinesOf(inside))
            widen(line.top, line.bottom);
    }
    // the room that borders and paddings take; Qt tells no rectangle of a cell. Rows share the border between
    // them, which is drawn half in each.
    const QTextTableFormat format = table.format();
    double above = format.cellPadding();
    double below = format.cellPadding();
    for (int column = 0; column < table.columns(); ++column) {
        const QTextTableCellFormat upper = CellFormat(table, begin, column);
        const QTextTableCellFormat lower = CellFormat(table, end - 1, column);
        above = std::max(above,
                         upper.topPadding() + std::max(upper.topBorder(),
                                                       CellFormat(table, begin - 1, column).bottomBorder()));
        below = std::max(below, lower.bottomPadding() + std::max(lower.bottomBorder(),
                                                                 CellFormat(table, end, column).topBorder()));
    }
    const QPaintDevice* device = block.document()->documentLayout()->paintDevice();
    const double factor = device == nullptr ? 1 : device->logicalDpiY() / kScreenDpi;
    unit.top -= factor * (above + format.border());
    unit.bottom += factor * (below + format.border());
    return unit;
}

bool IsKeptWithNext(const QTextBlock& block) {
    return block.blockFormat().boolProperty(KeepWithNext);
}

bool BreaksBefore(const QTextBlock& block) {
    return (block.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore) != 0;
}

// Goes from block to block and takes what fits.
class Walk {
public:
    Walk(const QTextDocument& document, int first, const PrintPiece* before, double height);

    PrintPiece Run();

private:
    void Enter(const QTextBlock& block);
    bool TakeParagraph();
    bool TakeRow(const QTextTable& table);
    bool TakePartOfRow(const RowUnit& unit);
    template <typename Rule>
    void HideLines(const RowUnit& unit, Rule&& isHidden);
    void Take(double bottom);
    bool Stop(int position, double top);
    bool StopBefore(int position, double top);

    const QTextDocument& m_document;
    const double m_height;
    QTextBlock m_block;
    std::vector<Line> m_lines;   // of the block
    std::size_t m_start = 0;     // the line to go on with
    double m_end = 0;            // the page's
    double m_lowest = 0;         // of what is taken
    double m_done = 0;           // lines of the first row that end above this are on the page before
    bool m_any = false;          // anything is taken
    std::optional<Line> m_chain; // first line of the paragraphs kept with the one that comes now
    PrintPiece m_piece;
};

Walk::Walk(const QTextDocument& document, int first, const PrintPiece* before, double height)
    : m_document(document)
    , m_height(height) {
    Enter(document.findBlock(first));
    m_start = m_lines.size() - 1;
    while (m_start > 0 && m_lines[m_start].position > first)
        --m_start;
    m_piece.first = m_lines[m_start].position;
    m_piece.top = m_lines[m_start].top;
    if (before != nullptr) {
        m_piece.top = std::min(m_piece.top, before->nextTop);
        m_done = before->nextDone;
    } else if (const QTextTable* table = OutermostTable(m_block); table != nullptr && m_start == 0) {
        // the borders and the neighbours of the first cell of a row belong to it
        const RowUnit unit = RowsAround(*table, m_block);
        if (unit.first == m_block)
            m_piece.top = unit.top;
    }
    m_end = m_piece.top + height + kRoundingSlack;
    m_lowest = m_piece.top;
    m_piece.bottom = m_piece.top;
}

PrintPiece Walk::Run() {
    while (m_block.isValid()) {
        if (m_any && m_start == 0 && BreaksBefore(m_block)) {
            Stop(m_lines.front().position, m_lines.front().top);
            return m_piece;
        }
        const QTextTable* table = OutermostTable(m_block);
        if (!(table != nullptr ? TakeRow(*table) : TakeParagraph()))
            return m_piece;
    }
    m_piece.next = m_document.characterCount() - 1;
    m_piece.nextTop = m_lowest;
    m_piece.bottom = m_piece.top + m_height;
    return m_piece;
}

void Walk::Enter(const QTextBlock& block) {
    m_block = block;
    m_lines = block.isValid() ? LinesOf(block) : std::vector<Line>();
    m_start = 0;
}

void Walk::Take(double bottom) {
    m_lowest = std::max(m_lowest, bottom);
    m_any = true;
}

bool Walk::Stop(int position, double top) {
    m_piece.next = position;
    m_piece.nextTop = top;
    m_piece.bottom = std::min(std::max(m_lowest, top), m_piece.top + m_height);
    return false;
}

// Stops before a paragraph or row, and before what is to be kept with it.
bool Walk::StopBefore(int position, double top) {
    if (!m_chain || m_chain->position <= m_piece.first)
        return Stop(position, top);
    m_lowest = std::min(m_lowest, m_chain->top);
    return Stop(m_chain->position, m_chain->top);
}

bool Walk::TakeParagraph() {
    const Line& first = m_lines.front();
    const bool together = m_start == 0 && m_block.blockFormat().boolProperty(KeepTogether);
    if (m_any && together && m_lines.back().bottom > m_end && m_lines.back().bottom - first.top <= m_height)
        return StopBefore(first.position, first.top);
    for (std::size_t i = m_start; i < m_lines.size(); ++i) {
        if (m_any && m_lines[i].bottom > m_end)
            return i == 0 ? StopBefore(first.position, first.top) : Stop(m_lines[i].position, m_lines[i].top);
        Take(m_lines[i].bottom);
    }
    if (!IsKeptWithNext(m_block))
        m_chain.reset();
    else if (!m_chain)
        m_chain = first;
    Enter(m_block.next());
    return true;
}

bool Walk::TakeRow(const QTextTable& table) {
    const RowUnit unit = RowsAround(table, m_block);
    if (!m_any && m_done > m_piece.top)
        HideLines(unit, [this](const Line& line) { return line.bottom <= m_done + kRoundingSlack; });
    if (unit.bottom > m_end) {
        if (m_any && unit.bottom - unit.top <= m_height)
            return StopBefore(unit.first.position(), unit.top);
        if (!TakePartOfRow(unit))
            return false;
    }
    Take(unit.bottom);
    m_chain.reset();
    Enter(unit.end);
    return true;
}

template <typename Rule>
void Walk::HideLines(const RowUnit& unit, Rule&& isHidden) {
    for (QTextBlock block = unit.first; block.isValid() && block != unit.end; block = block.next()) {
        for (const Line& line : LinesOf(block)) {
            if (isHidden(line))
                m_piece.hidden.push_back(line.Box());
        }
    }
}

// A row taller than a page: each cell goes on with its first line that does not fit. True when nothing of the
// row is left for the next piece.
bool Walk::TakePartOfRow(const RowUnit& unit) {
    const Line* next = nullptr;
    bool anyFits = !m_any; // what begins a page is taken, as far as the page goes
    double nextTop = m_end;
    std::vector<Line> lines;
    for (QTextBlock block = unit.first; block.isValid() && block != unit.end; block = block.next()) {
        const std::vector<Line> ofBlock = LinesOf(block);
        lines.insert(lines.end(), ofBlock.begin(), ofBlock.end());
    }
    for (const Line& line : lines) {
        if (line.bottom <= m_end) {
            anyFits = true;
            continue;
        }
        if (line.position <= m_piece.first)
            continue;
        if (next == nullptr)
            next = &line;
        if (line.top > m_piece.top + kRoundingSlack)
            nextTop = std::min(nextTop, line.top);
    }
    if (!anyFits)
        return StopBefore(unit.first.position(), unit.top);
    if (next == nullptr)
        return true;
    HideLines(unit, [this](const Line& line) {
        return line.bottom > m_end && line.top < m_end && line.top > m_piece.top + kRoundingSlack;
    });
    m_lowest = m_end;
    m_piece.nextDone = m_end;
    return Stop(next->position, nextTop);
}

} // namespace

PrintPiece MeasurePiece(const QTextDocument& document, int first, const PrintPiece* before, double height) {
    return Walk(document, first, before, height).Run();
}

} // namespace platform
