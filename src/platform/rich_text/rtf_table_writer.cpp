// Tables: rows with their definitions, cells, tables in cells.
#include <QTextFrame>
#include <algorithm>
#include <cmath>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_body_writer.h"
#include "platform/rich_text/rtf_limits.h"

namespace platform {
namespace {

constexpr int kDefaultTextWidth = 9360; // twips: a sheet of letter paper between margins of an inch

int TextWidth(const QTextDocument& document) {
    const QTextFrameFormat format = document.rootFrame()->frameFormat();
    if (!format.hasProperty(PaperWidth))
        return kDefaultTextWidth;
    const auto margin = [&format](int property) {
        return format.hasProperty(property) ? format.intProperty(property) : 1800;
    };
    return std::max(1440, format.intProperty(PaperWidth) - margin(MarginLeft) - margin(MarginRight));
}

// Widths of a table's columns in twips, where the file that was read told no edges.
std::vector<int> ColumnWidths(const QTextDocument& document, const QTextTable& table) {
    const QList<QTextLength> constraints = table.format().columnWidthConstraints();
    const int textWidth = TextWidth(document);
    std::vector<int> widths(static_cast<std::size_t>(table.columns()), 0);
    int told = 0;
    int untold = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const QTextLength length = constraints.value(static_cast<qsizetype>(i));
        if (length.type() == QTextLength::FixedLength)
            widths[i] = std::max(60, static_cast<int>(std::lround(PixelsToTwips(length.rawValue()))));
        else if (length.type() == QTextLength::PercentageLength)
            widths[i] = std::max(60, static_cast<int>(std::lround(length.rawValue() * textWidth / 100)));
        told += widths[i];
        untold += widths[i] == 0 ? 1 : 0;
    }
    for (int& width : widths) {
        if (width == 0)
            width = std::max(360, (textWidth - told) / untold);
    }
    return widths;
}

bool IsLeftOut(const QTextTableCell& cell) {
    return cell.format().boolProperty(CellFiller) && cell.firstPosition() == cell.lastPosition();
}

RtfTableEdges EdgesOf(const QTextDocument& document, QTextTable& table) {
    RtfTableEdges edges;
    const QTextTableFormat format = table.format();
    edges.left = format.intProperty(TableLeft);
    const QVariantList told = format.property(CellRightEdges).toList();
    if (told.size() == table.columns()) {
        for (const QVariant& edge : told)
            edges.right.push_back(edge.toInt());
    } else {
        int right = edges.left;
        for (const int width : ColumnWidths(document, table))
            edges.right.push_back(right = std::min(right + width, kMostTwips));
    }
    const auto columns = static_cast<std::size_t>(table.columns());
    std::vector<bool> ends(columns, false);
    edges.toldByRow.assign(columns, -1);
    for (int row = 0; row < table.rows(); ++row) {
        for (int column = 0; column < table.columns();) {
            const QTextTableCell cell = table.cellAt(row, column);
            if (IsLeftOut(cell))
                break;
            const int next = column + std::max(1, cell.columnSpan());
            for (int inside = column; inside < next - 1; ++inside) {
                if (int& toldBy = edges.toldByRow[static_cast<std::size_t>(inside)];
                    toldBy < 0 && cell.row() == row)
                    toldBy = row;
            }
            ends[static_cast<std::size_t>(next) - 1] = true;
            column = next;
        }
    }
    for (std::size_t column = 0; column < columns; ++column) {
        if (ends[column])
            edges.toldByRow[column] = -1;
    }
    return edges;
}

struct Side {
    const char* word;
    double (QTextTableCellFormat::*width)() const;
    QTextFrameFormat::BorderStyle (QTextTableCellFormat::*style)() const;
    QBrush (QTextTableCellFormat::*brush)() const;
};

constexpr Side kSides[] = {
    {"\\clbrdrt", &QTextTableCellFormat::topBorder, &QTextTableCellFormat::topBorderStyle,
     &QTextTableCellFormat::topBorderBrush},
    {"\\clbrdrl", &QTextTableCellFormat::leftBorder, &QTextTableCellFormat::leftBorderStyle,
     &QTextTableCellFormat::leftBorderBrush},
    {"\\clbrdrb", &QTextTableCellFormat::bottomBorder, &QTextTableCellFormat::bottomBorderStyle,
     &QTextTableCellFormat::bottomBorderBrush},
    {"\\clbrdrr", &QTextTableCellFormat::rightBorder, &QTextTableCellFormat::rightBorderStyle,
     &QTextTableCellFormat::rightBorderBrush},
};

const char* BorderWord(QTextFrameFormat::BorderStyle style) {
    switch (style) {
    case QTextFrameFormat::BorderStyle_Dotted:
        return "\\brdrdot";
    case QTextFrameFormat::BorderStyle_Dashed:
        return "\\brdrdash";
    case QTextFrameFormat::BorderStyle_Double:
        return "\\brdrdb";
    case QTextFrameFormat::BorderStyle_DotDash:
        return "\\brdrdashd";
    case QTextFrameFormat::BorderStyle_DotDotDash:
        return "\\brdrdashdd";
    default:
        return "\\brdrs";
    }
}

} // namespace

void RtfBodyWriter::WriteTable(QTextTable& table, int level) {
    const RtfTableEdges edges = EdgesOf(m_document, table);
    for (int row = 0; row < table.rows(); ++row)
        WriteRow(table, edges, row, level);
}

void RtfBodyWriter::WriteRow(QTextTable& table, const RtfTableEdges& edges, int row, int level) {
    if (level == 1)
        WriteRowDefinition(table, edges, row);
    bool hasTables = false;
    for (int column = 0; column < table.columns();) {
        const QTextTableCell cell = table.cellAt(row, column);
        const int next = column + std::max(1, cell.columnSpan());
        if (IsLeftOut(cell))
            break;
        if (cell.row() == row)
            hasTables = WriteCell(cell, level) || hasTables;
        else
            WriteEmptyCell(level);
        for (int inside = column; inside < next - 1; ++inside) {
            if (edges.toldByRow[static_cast<std::size_t>(inside)] == row)
                WriteEmptyCell(level);
        }
        column = next;
    }
    if (level == 1) {
        // rows of tables within have told their own definitions meanwhile
        if (hasTables)
            WriteRowDefinition(table, edges, row);
        m_out->Raw("\\row\n");
        return;
    }
    m_out->Raw("{\\*\\nesttableprops");
    WriteRowDefinition(table, edges, row);
    m_out->Words("\\nestrow");
    m_out->Raw("}{\\nonesttables\\par}");
}

void RtfBodyWriter::WriteRowDefinition(QTextTable& table, const RtfTableEdges& edges, int row) {
    m_out->Words("\\trowd");
    const QByteArray controls = table.cellAt(row, 0).format().property(RowControls).toByteArray();
    m_out->Words(controls);
    const QTextTableFormat format = table.format();
    if (controls.isEmpty()) {
        if (!format.hasProperty(CellRightEdges)) {
            // Qt's padding stands on both sides of a cell's text, the file's gap is half of that between two
            m_out->Word(
                "\\trgaph",
                std::clamp(static_cast<int>(std::lround(2 * PixelsToTwips(format.cellPadding()))), 0, 720));
        }
        if (edges.left != 0)
            m_out->Word("\\trleft", edges.left);
    }
    for (int column = 0; column < table.columns();) {
        const QTextTableCell cell = table.cellAt(row, column);
        const int next = column + std::max(1, cell.columnSpan());
        if (IsLeftOut(cell))
            break;
        bool merged = false;
        for (int inside = column; inside < next - 1; ++inside) {
            if (edges.toldByRow[static_cast<std::size_t>(inside)] != row)
                continue;
            m_out->Words(merged ? "\\clmrg" : "\\clmgf");
            WriteCellDefinition(table, cell, row);
            m_out->Word("\\cellx", edges.right[static_cast<std::size_t>(inside)]);
            merged = true;
        }
        if (merged)
            m_out->Words("\\clmrg");
        WriteCellDefinition(table, cell, row);
        m_out->Word("\\cellx", edges.right[static_cast<std::size_t>(next) - 1]);
        column = next;
    }
}

void RtfBodyWriter::WriteCellDefinition(QTextTable& table, const QTextTableCell& cell, int row) {
    const QTextTableCellFormat format = cell.format().toTableCellFormat();
    if (cell.rowSpan() > 1)
        m_out->Words(cell.row() == row ? "\\clvmgf" : "\\clvmrg");
    const QByteArray borders = format.property(CellBorders).toByteArray();
    m_out->Words(borders);
    RtfNumbers::Uses uses;
    const bool isOurs = !table.format().hasProperty(CellRightEdges);
    for (const Side& side : kSides) {
        if (!borders.isEmpty())
            break;
        double width = (format.*side.width)();
        QTextFrameFormat::BorderStyle style = (format.*side.style)();
        QBrush brush = (format.*side.brush)();
        if (width <= 0 && isOurs) {
            width = table.format().border();
            style = table.format().borderStyle();
            brush = table.format().borderBrush();
        }
        if (width <= 0)
            continue;
        m_out->Words(side.word);
        m_out->Words(BorderWord(style));
        m_out->Word("\\brdrw", std::clamp(static_cast<int>(std::lround(PixelsToTwips(width))), 1, 240));
        if (brush.style() != Qt::NoBrush && brush.color() != QColor(Qt::black))
            m_out->Word("\\brdrcf", m_numbers.Color(brush, true, uses));
    }
    switch (format.verticalAlignment()) {
    case QTextCharFormat::AlignTop:
        m_out->Words("\\clvertalt");
        break;
    case QTextCharFormat::AlignMiddle:
        m_out->Words("\\clvertalc");
        break;
    case QTextCharFormat::AlignBottom:
        m_out->Words("\\clvertalb");
        break;
    default:
        break;
    }
    if (const int color = m_numbers.Color(format.background(), true, uses); color != 0)
        m_out->Word("\\clcbpat", color);
    Note(uses);
}

bool RtfBodyWriter::WriteCell(const QTextTableCell& cell, int level) {
    bool hasTables = false;
    const auto end = cell.end();
    for (auto at = cell.begin(); at != end;) {
        auto next = at;
        ++next;
        if (QTextFrame* const frame = at.currentFrame()) {
            if (auto* const table = qobject_cast<QTextTable*>(frame)) {
                WriteTable(*table, level + 1);
                hasTables = true;
            }
        } else {
            const QTextBlock block = at.currentBlock();
            Ending ending = Ending::Paragraph;
            if (next == end)
                ending = level == 1 ? Ending::Cell : Ending::NestedCell;
            WriteBlock(block, level, ending, block.position() == cell.firstPosition());
        }
        at = next;
    }
    return hasTables;
}

void RtfBodyWriter::WriteEmptyCell(int level) {
    m_out->Words("\\pard\\intbl");
    if (level > 1)
        m_out->Word("\\itap", level);
    WriteCellEnd(level);
}

void RtfBodyWriter::WriteCellEnd(int level) {
    if (level == 1) {
        m_out->Words("\\cell");
        return;
    }
    m_out->Words("\\nestcell");
    m_out->Raw("{\\nonesttables\\par}");
}

} // namespace platform
