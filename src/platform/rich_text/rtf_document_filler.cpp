#include "platform/rich_text/rtf_document_filler.h"

#include <QTextDocument>
#include <QTextTable>
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_table_grid.h"

namespace platform {
namespace {

constexpr int kMostControls = 1'000; // Qt compares formats that differ only in byte arrays one by one

// Half the space between the texts of neighbouring cells, told by itself or as a padding.
int GapOf(const RtfRowDefinition* row) {
    if (!row)
        return 0;
    if (row->gap != 0)
        return row->gap;
    int padding = row->padding;
    for (const RtfCellDefinition& cell : row->cells)
        padding = std::max(padding, cell.padding);
    return padding;
}

QTextTableFormat TableFormat(const RtfGrid& grid) {
    QTextTableFormat format;
    QList<QTextLength> widths;
    QVariantList edges;
    int left = grid.left;
    for (const int edge : grid.edges) {
        widths.append(QTextLength(QTextLength::FixedLength, TwipsToPixels(std::max(edge - left, 15))));
        edges.append(edge);
        left = edge;
    }
    const int gap = GapOf(grid.rows.front()->definition.get());
    format.setColumnWidthConstraints(widths);
    format.setProperty(CellRightEdges, edges);
    format.setProperty(TableLeft, grid.left);
    format.setLeftMargin(TwipsToPixels(std::max(grid.left + gap, 0)));
    format.setCellPadding(TwipsToPixels(gap) / 2);
    format.setCellSpacing(0);
    format.setBorder(0);
    format.setBorderCollapse(true);
    return format;
}

} // namespace

RtfDocumentFiller::RtfDocumentFiller(QTextDocument& document, const RtfFormats& formats,
                                     const RtfTables& tables)
    : m_cursor(&document)
    , m_formats(formats)
    , m_tables(tables) {
    m_cursor.beginEditBlock();
}

RtfDocumentFiller::~RtfDocumentFiller() {
    m_cursor.endEditBlock();
}

void RtfDocumentFiller::AddParagraph(RtfParagraph& paragraph) {
    const QTextCharFormat& mark = m_formats.At(paragraph.markFormat);
    if (m_blockIsFree) {
        m_cursor.setBlockFormat(paragraph.format);
        if (!AtCellStart())
            m_cursor.setBlockCharFormat(mark);
    } else {
        m_cursor.insertBlock(paragraph.format, mark);
    }
    m_blockIsFree = false;
    m_frameIsEmpty = false;
    if (paragraph.runs.size() == 1) {
        m_cursor.insertText(paragraph.text, m_formats.At(paragraph.runs.front().format));
        return;
    }
    qsizetype at = 0;
    for (const RtfRun& run : paragraph.runs) {
        m_cursor.insertText(paragraph.text.mid(at, run.length), m_formats.At(run.format));
        at += run.length;
    }
}

void RtfDocumentFiller::AddTable(RtfTable& table) {
    for (std::size_t row = 0; row < table.rows.size();) {
        RtfGrid grid = MakeRtfGrid(table, row, row);
        AddGrid(grid);
    }
}

void RtfDocumentFiller::Finish() {
    if (m_blockIsFree && !m_frameIsEmpty)
        MarkFiller();
}

void RtfDocumentFiller::MarkFiller() {
    QTextBlockFormat format;
    format.setProperty(Filler, true);
    QTextCharFormat small;
    small.setFontPointSize(kFillerPoints);
    m_cursor.setBlockFormat(format);
    if (!AtCellStart())
        m_cursor.setBlockCharFormat(small);
}

void RtfDocumentFiller::FillBlocks(std::vector<RtfBlock>& blocks) {
    for (RtfBlock& block : blocks) {
        if (block.table)
            AddTable(*block.table);
        else
            AddParagraph(block.paragraph);
    }
}

void RtfDocumentFiller::AddGrid(RtfGrid& grid) {
    if (m_blockIsFree)
        MarkFiller();
    QTextTable* table = m_cursor.insertTable(static_cast<int>(grid.rows.size()),
                                             static_cast<int>(grid.edges.size()), TableFormat(grid));
    for (std::size_t row = 0; row < grid.cells.size(); ++row) {
        for (const RtfGridCell& cell : grid.cells[row]) {
            if (cell.rowSpan > 1 || (cell.rowSpan == 1 && cell.columnSpan > 1))
                table->mergeCells(static_cast<int>(row), cell.column, cell.rowSpan, cell.columnSpan);
        }
    }
    FillGrid(grid, *table);
    m_cursor.setPosition(table->lastPosition() + 1);
    m_blockIsFree = true;
    m_frameIsEmpty = false;
}

void RtfDocumentFiller::FillGrid(RtfGrid& grid, QTextTable& table) {
    ++m_tablesOpen;
    for (std::size_t row = 0; row < grid.cells.size(); ++row) {
        for (const RtfGridCell& cell : grid.cells[row]) {
            if (cell.rowSpan == 0)
                continue;
            SetCellFormat(grid, row, cell, table);
            if (!cell.cell)
                continue;
            m_cursor.setPosition(table.cellAt(static_cast<int>(row), cell.column).firstPosition());
            m_blockIsFree = true;
            m_frameIsEmpty = true;
            FillBlocks(cell.cell->blocks);
            Finish();
        }
    }
    --m_tablesOpen;
}

void RtfDocumentFiller::SetCellFormat(const RtfGrid& grid, std::size_t row, const RtfGridCell& cell,
                                      QTextTable& table) {
    QTextTableCell target = table.cellAt(static_cast<int>(row), cell.column);
    // Qt holds the format of a cell's first paragraph end in the cell's own format
    QTextCharFormat mark;
    if (cell.cell && !cell.cell->blocks.empty() && !cell.cell->blocks.front().table)
        mark = m_formats.At(cell.cell->blocks.front().paragraph.markFormat);
    mark.clearBackground();
    mark.clearProperty(QTextFormat::TextVerticalAlignment);
    mark.merge(target.format());
    QTextTableCellFormat format = mark.toTableCellFormat();
    const auto& rowDefinition = grid.rows[row]->definition;
    if (cell.column == 0 && rowDefinition && !rowDefinition->controls.isEmpty())
        format.setProperty(RowControls, Bounded(rowDefinition->controls));
    if (!cell.cell)
        format.setProperty(CellFiller, true);
    if (const RtfCellDefinition* definition = cell.definition) {
        if (!definition->controls.isEmpty())
            format.setProperty(CellBorders, Bounded(definition->controls));
        if (definition->verticalAlignment != 0)
            format.setVerticalAlignment(
                static_cast<QTextCharFormat::VerticalAlignment>(definition->verticalAlignment));
        if (const QBrush brush = m_tables.Brush(definition->background);
            definition->background && brush.style() != Qt::NoBrush)
            format.setBackground(brush);
        DrawBorders(*definition, format);
    }
    target.setFormat(format);
}

void RtfDocumentFiller::DrawBorders(const RtfCellDefinition& definition, QTextTableCellFormat& format) const {
    struct Side {
        void (QTextTableCellFormat::*setWidth)(qreal);
        void (QTextTableCellFormat::*setStyle)(QTextFrameFormat::BorderStyle);
        void (QTextTableCellFormat::*setBrush)(const QBrush&);
    };
    static constexpr std::array<Side, 4> kSides{{
        {&QTextTableCellFormat::setTopBorder, &QTextTableCellFormat::setTopBorderStyle,
         &QTextTableCellFormat::setTopBorderBrush},
        {&QTextTableCellFormat::setLeftBorder, &QTextTableCellFormat::setLeftBorderStyle,
         &QTextTableCellFormat::setLeftBorderBrush},
        {&QTextTableCellFormat::setBottomBorder, &QTextTableCellFormat::setBottomBorderStyle,
         &QTextTableCellFormat::setBottomBorderBrush},
        {&QTextTableCellFormat::setRightBorder, &QTextTableCellFormat::setRightBorderStyle,
         &QTextTableCellFormat::setRightBorderBrush},
    }};
    for (std::size_t side = 0; side < kSides.size(); ++side) {
        const RtfBorder& border = definition.borders[side];
        if (border.width <= 0)
            continue;
        const QBrush brush = m_tables.Brush(border.color);
        (format.*kSides[side].setWidth)(std::max(1.0, TwipsToPixels(border.width)));
        (format.*kSides[side].setStyle)(static_cast<QTextFrameFormat::BorderStyle>(border.style));
        (format.*kSides[side].setBrush)(border.color && brush.style() != Qt::NoBrush ? brush
                                                                                     : QBrush(Qt::black));
    }
}

// Control words as they stand in the file, or none when the file has more different ones than any author
// would.
QByteArray RtfDocumentFiller::Bounded(const QByteArray& controls) {
    if (m_controls.size() < kMostControls)
        m_controls.insert(controls);
    return m_controls.contains(controls) ? controls : QByteArray();
}

} // namespace platform
