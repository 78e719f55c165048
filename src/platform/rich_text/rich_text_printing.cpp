#include "platform/rich_text/rich_text_printing.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>
#include <vector>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_markers.h"
#include "platform/rich_text/rich_text_piece.h"
#include "platform/twips.h"

namespace platform {
namespace {

constexpr double kScreenDpi = 96;
constexpr double kTouch = 0.25; // device pixels

// What is left of a rectangle without some lines. Lines that touch are rounded alike.
QRegion Shown(const QRectF& clip, const std::vector<QRectF>& hidden) {
    QRegion region(clip.toAlignedRect());
    for (const QRectF& line : hidden)
        region -= QRect(QPoint(qRound(line.left()), qRound(line.top())),
                        QPoint(qRound(line.right()) - 1, qRound(line.bottom()) - 1));
    return region;
}

// Whether a paragraph of lines stands outside of tables.
bool IsInFlow(const QTextBlock& block) {
    return QTextCursor(block).currentFrame() == block.document()->rootFrame() &&
           block.layout()->lineCount() > 0;
}

// Whether a paragraph has nothing of its own under its lines, so that they can be drawn one by one.
bool IsPlain(const QTextBlock& block) {
    return IsInFlow(block) && !block.blockFormat().hasProperty(QTextFormat::BackgroundBrush);
}

// Draws the paragraph at the start of a piece if the piece begins within it, and gives where the rest of the
// piece begins. Qt would draw the line before the piece as well: clipped away, but there in the text of a
// PDF.
double DrawPartedParagraph(QPainter& painter, const QTextDocument& document, const PrintPiece& piece) {
    const QTextBlock block = document.findBlock(piece.first);
    const QTextLayout& layout = *block.layout();
    if (!IsPlain(block) || layout.position().y() + layout.lineAt(0).y() >= piece.top - kTouch)
        return piece.top;
    painter.setPen(Qt::black);
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        const double top = layout.position().y() + line.y();
        if (top >= piece.top - kTouch && top + line.height() <= piece.bottom + kTouch)
            line.draw(&painter, layout.position());
    }
    return document.documentLayout()->blockBoundingRect(block).bottom();
}

// Where the text of a piece is. What only touches it are the lines of the pages beside it; the border of a
// table reaches over them.
QRectF TextOf(const PrintPiece& piece, const QTextDocument& document, double width) {
    double top = piece.top;
    double bottom = piece.bottom;
    const QAbstractTextDocumentLayout& layout = *document.documentLayout();
    const QTextBlock first = document.findBlock(piece.first);
    const QTextBlock before = first.previous();
    // an empty paragraph beside a table stands within the height of the table
    const auto hasText = [](const QTextBlock& block) { return block.length() > 1 && IsInFlow(block); };
    if (before.isValid() && first.position() == piece.first && hasText(before))
        top = std::max(top, layout.blockBoundingRect(before).bottom());
    const QTextBlock behind = document.findBlock(piece.next);
    if (piece.next == behind.position() && hasText(behind))
        bottom = std::min(bottom, behind.layout()->position().y() + behind.layout()->lineAt(0).y());
    return {0, top + kTouch, width, bottom - top - 2 * kTouch};
}

// Draws what of a piece is within `clip` from `top` on, each marker before its paragraph: who copies from a
// PDF or has it read aloud gets them in the order in which they were drawn.
void DrawInOrder(QPainter& painter, const QTextDocument& document, const PrintPiece& piece,
                 const QRectF& clip, double top) {
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, Qt::black);
    context.clip = clip;
    context.clip.setTop(top);
    QTextBlock unmarked = document.findBlock(piece.first);
    const auto drawTo = [&](double bottom, int position) {
        context.clip.setBottom(bottom);
        if (context.clip.isValid())
            document.documentLayout()->draw(&painter, context);
        DrawMarkers(painter, unmarked, clip, position);
    };
    for (QTextBlock block = unmarked; block.isValid() && block.position() < piece.next;
         block = block.next()) {
        const QTextLayout& layout = *block.layout();
        if (block.blockFormat().stringProperty(BulletText).isEmpty() || !IsPlain(block))
            continue;
        const double first = layout.position().y() + layout.lineAt(0).y();
        if (first < top - kTouch)
            continue;
        drawTo(first - kTouch, block.position());
        context.clip.setTop(first + kTouch);
        unmarked = block.next();
        DrawMarkers(painter, block, clip, block.position() + 1);
    }
    drawTo(clip.bottom(), piece.next);
}

} // namespace

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
    m_pieces.clear();
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

int RichTextFormatter::FormatRange(QPainter& painter, const QRect& rectangle, int first, bool render) {
    if (!painter.isActive() || rectangle.width() <= 0 || rectangle.height() <= 0 || first >= Length())
        return Length();
    QPaintDevice& device = *painter.device();
    const auto toDots = [](int twips, int dpi) { return double(twips) * dpi / kTwipsPerInch; };
    const double x = toDots(rectangle.x(), device.logicalDpiX());
    const double y = toDots(rectangle.y(), device.logicalDpiY());
    const double width = toDots(rectangle.width(), device.logicalDpiX());
    const double height = toDots(rectangle.height(), device.logicalDpiY());
    LayOut(device, width, height);
    m_document->documentLayout()->setPaintDevice(painter.device()); // the last one may be gone
    const auto before = m_pieces.find(first);
    const PrintPiece piece = MeasurePiece(*m_document, std::max(first, 0),
                                          before == m_pieces.end() ? nullptr : &before->second, height);
    if (render) {
        // indents below zero and wide tables reach into the margins, as they do in other programs
        const QRectF clip(-x, piece.top, std::max(width, double(device.width())), piece.bottom - piece.top);
        painter.save();
        painter.translate(x, y - piece.top);
        painter.setClipRect(clip, Qt::IntersectClip);
        if (!piece.hidden.empty())
            painter.setClipRegion(Shown(clip, piece.hidden), Qt::IntersectClip);
        const QRectF text = TextOf(piece, *m_document, width);
        const double rest = DrawPartedParagraph(painter, *m_document, piece) + kTouch;
        DrawInOrder(painter, *m_document, piece, text, std::max(rest, text.top()));
        painter.restore();
    }
    m_pieces.insert_or_assign(piece.next, piece);
    return piece.next;
}

} // namespace platform
