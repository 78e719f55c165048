#include "platform/rich_text/rich_text_printing.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_markers.h"

namespace platform {
namespace {

constexpr double kScreenDpi = 96;
constexpr double kTwipsPerInch = 1440;
constexpr double kRoundingSlack = 0.5; // device pixels by which a piece may be too low

// A line of the laid-out document, in document coordinates.
struct Line {
    int position = 0;
    double top = 0;
    double bottom = 0;
};

std::vector<Line> LinesOf(const QTextBlock& block) {
    const QRectF box = block.document()->documentLayout()->blockBoundingRect(block);
    std::vector<Line> lines;
    const QTextLayout& layout = *block.layout();
    lines.reserve(static_cast<std::size_t>(layout.lineCount()));
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const double top = box.top() + line.y();
        lines.push_back({block.position() + line.textStart(), top, top + line.height()});
    }
    if (lines.empty())
        lines.push_back({block.position(), box.top(), box.bottom()});
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
    // the room that borders and paddings take; Qt tells no rectangle of a cell
    const QTextTableFormat format = table.format();
    double above = format.cellPadding();
    double below = format.cellPadding();
    for (int column = 0; column < table.columns(); ++column) {
        above = std::max(above, table.cellAt(begin, column).format().toTableCellFormat().topPadding());
        below = std::max(below, table.cellAt(end - 1, column).format().toTableCellFormat().bottomPadding());
    }
    const QPaintDevice* device = block.document()->documentLayout()->paintDevice();
    const double factor = device == nullptr ? 1 : device->logicalDpiY() / kScreenDpi;
    unit.top -= factor * (above + format.border());
    unit.bottom += factor * (below + format.border());
    return unit;
}

bool BreaksBefore(const QTextBlock& block) {
    return (block.blockFormat().pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore) != 0;
}

} // namespace

struct RichTextFormatter::Piece {
    double top = 0;
    double bottom = 0;
    int first = 0; // position of its first line
    int next = 0;  // of the first line behind it
    double nextTop = 0;
};

RichTextFormatter::RichTextFormatter(const QTextDocument& document)
    : m_source(document.clone()) {
    // what a clone does not copy
    m_source->setDefaultFont(document.defaultFont());
}

RichTextFormatter::~RichTextFormatter() = default;

int RichTextFormatter::Length() const {
    return m_source->characterCount() - 1;
}

// Qt scales all lengths to the device but the indents of paragraphs.
void RichTextFormatter::ScaleToDevice(double factor) {
    QTextCursor cursor(m_document.get());
    cursor.beginEditBlock();
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        bool changed = false;
        for (const int property : {int(QTextFormat::BlockLeftMargin), int(QTextFormat::BlockRightMargin),
                                   int(QTextFormat::TextIndent), int(MarkerIndent)}) {
            if (const double length = format.doubleProperty(property); length != 0) {
                format.setProperty(property, length * factor);
                changed = true;
            }
        }
        if (!changed)
            continue;
        cursor.setPosition(block.position());
        cursor.setBlockFormat(format);
    }
    cursor.endEditBlock();
}

// `width` and `height` in pixels of the screen.
void RichTextFormatter::ShrinkPictures(double width, double height) {
    struct Picture {
        int position;
        QTextImageFormat format;
    };
    std::vector<Picture> tooLarge;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (!it.fragment().charFormat().isImageFormat())
                continue;
            QTextImageFormat format = it.fragment().charFormat().toImageFormat();
            QSizeF size(format.width(), format.height());
            if (size.isEmpty()) {
                const QVariant resource =
                    m_document->resource(QTextDocument::ImageResource, QUrl(format.name()));
                size = resource.value<QImage>().size();
            }
            const double factor = std::min(width / size.width(), height / size.height());
            if (!(factor < 1))
                continue;
            format.setWidth(size.width() * factor);
            format.setHeight(size.height() * factor);
            for (int i = 0; i < it.fragment().length(); ++i)
                tooLarge.push_back({it.fragment().position() + i, format});
        }
    }
    QTextCursor cursor(m_document.get());
    for (const Picture& picture : tooLarge) {
        cursor.setPosition(picture.position);
        cursor.setPosition(picture.position + 1, QTextCursor::KeepAnchor);
        cursor.setCharFormat(picture.format);
    }
}

void RichTextFormatter::LayOut(QPaintDevice& device, double width, double height) {
    const QSizeF size(width, height);
    if (m_document && m_size == size && m_dpiX == device.logicalDpiX() && m_dpiY == device.logicalDpiY())
        return;
    m_size = size;
    m_dpiX = device.logicalDpiX();
    m_dpiY = device.logicalDpiY();
    m_nextFirst = -1;
    m_document.reset(m_source->clone());
    m_document->setUndoRedoEnabled(false);
    m_document->setDefaultFont(m_source->defaultFont());
    m_document->setDocumentMargin(0);
    ScaleToDevice(m_dpiX / kScreenDpi);
    // a picture stands on the base line: leave room for what hangs below it
    ShrinkPictures(width * kScreenDpi / m_dpiX, height * kScreenDpi / m_dpiY * 0.97 - 8);
    QTextOption option = m_document->defaultTextOption();
    option.setUseDesignMetrics(true);
    m_document->setDefaultTextOption(option);
    m_document->documentLayout()->setPaintDevice(&device);
    m_document->setTextWidth(width);
    m_document->size(); // all of it is laid out now
}

RichTextFormatter::Piece RichTextFormatter::Measure(int first, double height) const {
    Piece piece;
    QTextBlock block = m_document->findBlock(first);
    std::vector<Line> lines = LinesOf(block);
    std::size_t start = lines.size() - 1;
    while (start > 0 && lines[start].position > first)
        --start;
    piece.first = lines[start].position;
    piece.top = lines[start].top;
    if (first == m_nextFirst)
        piece.top = std::min(piece.top, m_nextTop);
    else if (const QTextTable* table = OutermostTable(block); table != nullptr && start == 0) {
        // the borders and the neighbours of the first cell of a row belong to it
        const RowUnit unit = RowsAround(*table, block);
        if (unit.first == block)
            piece.top = unit.top;
    }
    const double end = piece.top + height + kRoundingSlack;
    piece.bottom = piece.top;
    double lowest = piece.top; // of what is taken

    const auto stopAt = [&piece, &lowest, height](int position, double top) {
        piece.next = position;
        piece.nextTop = top;
        piece.bottom = std::min(std::max(lowest, top), piece.top + height);
        return piece;
    };

    bool any = false; // anything is taken
    while (block.isValid()) {
        if (any && BreaksBefore(block) && start == 0)
            return stopAt(lines[start].position, lines[start].top);

        const QTextTable* table = OutermostTable(block);
        if (table != nullptr) {
            const RowUnit unit = RowsAround(*table, block);
            if (unit.bottom <= end) {
                lowest = std::max(lowest, unit.bottom);
                any = true;
                block = unit.end;
                if (block.isValid())
                    lines = LinesOf(block);
                start = 0;
                continue;
            }
            if (any && unit.bottom - unit.top <= height)
                return stopAt(unit.first.position(), unit.top);
            // a row taller than a page: cut where no line of any cell is cut
            double cut = end;
            for (bool moved = true; moved;) {
                moved = false;
                for (QTextBlock inside = unit.first; inside.isValid() && inside != unit.end;
                     inside = inside.next()) {
                    for (const Line& line : LinesOf(inside)) {
                        if (line.top > piece.top && line.top < cut - kRoundingSlack &&
                            line.bottom > cut + kRoundingSlack) {
                            cut = line.top;
                            moved = true;
                        }
                    }
                }
            }
            if (cut <= lowest && any)
                return stopAt(lines[start].position, lines[start].top);
            for (QTextBlock inside = block; inside.isValid() && inside != unit.end; inside = inside.next()) {
                for (const Line& line : LinesOf(inside)) {
                    if (line.top >= cut - kRoundingSlack && line.position > piece.first) {
                        piece.next = line.position;
                        piece.nextTop = cut;
                        piece.bottom = cut;
                        return piece;
                    }
                }
            }
            lowest = std::max(lowest, unit.bottom);
            any = true;
            block = unit.end;
            if (block.isValid())
                lines = LinesOf(block);
            start = 0;
            continue;
        }

        const bool together = block.blockFormat().nonBreakableLines() && start == 0;
        if (any && together && lines.back().bottom > end && lines.back().bottom - lines.front().top <= height)
            return stopAt(lines.front().position, lines.front().top);
        for (std::size_t i = start; i < lines.size(); ++i) {
            if (any && lines[i].bottom > end)
                return stopAt(lines[i].position, lines[i].top);
            lowest = std::max(lowest, lines[i].bottom);
            any = true;
        }
        block = block.next();
        if (block.isValid())
            lines = LinesOf(block);
        start = 0;
    }
    piece.next = Length();
    piece.nextTop = lowest;
    piece.bottom = piece.top + height;
    return piece;
}

int RichTextFormatter::FormatRange(QPainter& painter, const QRect& rectangle, int first, bool render) {
    if (!painter.isActive() || rectangle.width() <= 0 || rectangle.height() <= 0 || first >= Length())
        return Length();
    QPaintDevice& device = *painter.device();
    const double x = rectangle.x() * device.logicalDpiX() / kTwipsPerInch;
    const double y = rectangle.y() * device.logicalDpiY() / kTwipsPerInch;
    const double width = rectangle.width() * device.logicalDpiX() / kTwipsPerInch;
    const double height = rectangle.height() * device.logicalDpiY() / kTwipsPerInch;
    LayOut(device, width, height);
    m_document->documentLayout()->setPaintDevice(painter.device()); // the last one may be gone
    const Piece piece = Measure(std::max(first, 0), height);
    if (render) {
        const QRectF clip(0, piece.top, width, piece.bottom - piece.top);
        painter.save();
        painter.translate(x, y - piece.top);
        painter.setClipRect(clip, Qt::IntersectClip);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = clip;
        context.palette.setColor(QPalette::Text, Qt::black);
        m_document->documentLayout()->draw(&painter, context);
        DrawMarkers(painter, m_document->findBlock(piece.first), clip, piece.next);
        painter.restore();
    }
    m_nextFirst = piece.next;
    m_nextTop = piece.nextTop;
    return piece.next;
}

} // namespace platform
