#include "library/form_table.h"

#include "library/form_formats.h"
#include "platform/rich_text/document_model.h"

#include <QRegularExpression>
#include <QTextTable>
#include <algorithm>
#include <cmath>

namespace quillbrook {
namespace {

using platform::TwipsToPixels;

constexpr int kGap = 108;          // twips: between a cell's edge and its text
constexpr int kBorderedSpace = 40; // twips: above and below the text of a bordered cell

// A table begins so far left that the text of its cells lines up with the paragraphs.
constexpr int kLeftEdge = -kGap;

// Right edge of each column, twips.
std::vector<int> RightEdges(const Table& table) {
    std::vector<int> edges;
    double percent = 0;
    for (const double column : table.widths) {
        percent += column;
        edges.push_back(kLeftEdge + static_cast<int>(std::lround(kTextWidth * percent / 100)));
    }
    return edges;
}

QTextTableFormat TableFormat(const Table& table) {
    QTextTableFormat format;
    QList<QTextLength> widths;
    QVariantList edges;
    int left = kLeftEdge;
    for (const int edge : RightEdges(table)) {
        widths.append(QTextLength(QTextLength::FixedLength, TwipsToPixels(edge - left)));
        edges.append(edge);
        left = edge;
    }
    format.setColumnWidthConstraints(widths);
    format.setProperty(platform::CellRightEdges, edges);
    format.setProperty(platform::TableLeft, kLeftEdge);
    format.setLeftMargin(TwipsToPixels(kLeftEdge + kGap));
    format.setCellPadding(TwipsToPixels(kGap) / 2);
    format.setCellSpacing(0);
    format.setBorder(0);
    format.setBorderCollapse(true);
    return format;
}

void SetBorders(QTextTableCellFormat& format) {
    format.setProperty(
        platform::CellBorders,
        QByteArrayLiteral("\\clbrdrt\\brdrs\\brdrw10\\clbrdrl\\brdrs\\brdrw10\\clbrdrb\\brdrs\\brdrw10"
                          "\\clbrdrr\\brdrs\\brdrw10"));
    format.setBorder(1);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(Qt::black);
}

QByteArray RowWords() {
    return "\\trgaph" + QByteArray::number(kGap) + "\\trleft" + QByteArray::number(kLeftEdge) + "\\trkeep";
}

bool IsSignatureCell(const TableCell& cell) {
    return BeginsWithSignatureLine(cell.runs) && PlainText(cell.runs).contains(QChar::LineSeparator) &&
           !PlainText(cell.runs).section(QChar::LineSeparator, 0, 0).endsWith(u',');
}

Qt::Alignment AlignmentOf(const TableCell& cell) {
    switch (cell.alignment) {
    case CellAlignment::Left:
        break;
    case CellAlignment::Center:
        return Qt::AlignHCenter;
    case CellAlignment::Right:
        return Qt::AlignRight;
    }
    return Qt::AlignLeft;
}

// A blank that is longer than its cell is wide would go on in the next line.
QString FitBlanks(const QString& text, qsizetype longest) {
    static const QRegularExpression blank(QStringLiteral("_{5,}"));
    QString fitted;
    qsizetype at = 0;
    for (const QRegularExpressionMatch& match : blank.globalMatch(text)) {
        fitted += text.mid(at, match.capturedStart() - at);
        fitted += QString(std::min(match.capturedLength(), longest), u'_');
        at = match.capturedEnd();
    }
    return fitted + text.mid(at);
}

void FillCell(const TableCell& cell, bool border, bool isSigned, int width, QTextCursor cursor) {
    QTextBlockFormat format;
    format.setAlignment(AlignmentOf(cell));
    // merged, not set: the format of the cell itself is held by the mark of its first paragraph
    cursor.mergeBlockCharFormat(TextFormat());
    if (isSigned) { // room to sign; an empty line, as the first paragraph of a cell has no space above it
        format.setProperty(platform::KeepWithNext, true);
        cursor.setBlockFormat(format);
        cursor.insertBlock(format, TextFormat());
        format.setTopMargin(TwipsToPixels(kRoomToSign - kLine));
    }
    if (border) {
        format.setTopMargin(TwipsToPixels(kBorderedSpace));
        format.setBottomMargin(TwipsToPixels(kBorderedSpace));
    }
    cursor.setBlockFormat(format);
    const int room = std::max((width - 2 * kGap) / kCharacterWidth, 5);
    for (const Run& run : cell.runs)
        cursor.insertText(FitBlanks(run.text, room), RunFormat(run, TextFormat()));
}

} // namespace

bool IsSignatureTable(const Table& table) {
    if (table.border)
        return false;
    return std::any_of(table.rows.begin(), table.rows.end(), [](const std::vector<TableCell>& row) {
        return std::any_of(row.begin(), row.end(), IsSignatureCell);
    });
}

void InsertFormTable(QTextCursor& cursor, const Table& table) {
    const int columns = static_cast<int>(table.widths.size());
    QTextTable* inserted =
        cursor.insertTable(static_cast<int>(table.rows.size()), columns, TableFormat(table));
    const std::vector<int> edges = RightEdges(table);
    int rowNumber = 0;
    for (const std::vector<TableCell>& row : table.rows) {
        const bool isSigned = !table.border && std::any_of(row.begin(), row.end(), IsSignatureCell);
        int column = 0;
        for (const TableCell& cell : row) {
            if (cell.columnSpan > 1)
                inserted->mergeCells(rowNumber, column, 1, cell.columnSpan);
            QTextTableCell target = inserted->cellAt(rowNumber, column);
            QTextTableCellFormat format = target.format().toTableCellFormat();
            if (column == 0)
                format.setProperty(platform::RowControls, RowWords());
            if (table.border)
                SetBorders(format);
            target.setFormat(format);

            const int left = column == 0 ? kLeftEdge : edges[static_cast<std::size_t>(column - 1)];
            column += cell.columnSpan;
            FillCell(cell, table.border, isSigned, edges[static_cast<std::size_t>(column - 1)] - left,
                     target.firstCursorPosition());
        }
        ++rowNumber;
    }
    cursor.setPosition(inserted->lastPosition() + 1);
}

} // namespace quillbrook
