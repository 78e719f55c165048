#include "platform/rich_text/rich_text_markers.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <algorithm>
#include <cmath>

#include "platform/rich_text/document_model.h"

namespace platform {
namespace {

constexpr double kDefaultTab = 720 / kTwipsPerPixel;
constexpr double kLeastGap = 4; // pixels between a marker and the text

QFont MarkerFont(const QTextCharFormat& text, const QTextDocument& document) {
    QFont font = text.font().resolve(document.defaultFont());
    font.setUnderline(false);
    font.setStrikeOut(false);
    return font;
}

// How far behind the marker's start the text begins, in pixels: at the left indent of a hanging paragraph, or
// at the next tab stop when the marker reaches over it.
double Advance(const QTextBlockFormat& format, double markerWidth, const QTextDocument& document) {
    const double start = format.leftMargin() + format.textIndent();
    double advance = 0;
    const auto consider = [&advance, markerWidth](double stop) {
        if (stop >= markerWidth && (advance <= 0 || stop < advance))
            advance = stop;
    };
    if (format.textIndent() < 0)
        consider(-format.textIndent());
    for (const QTextOption::Tab& tab : format.tabPositions())
        consider(tab.position);
    if (advance > 0)
        return advance;
    const int twips = document.rootFrame()->frameFormat().intProperty(DefaultTab);
    const double step = twips > 0 ? TwipsToPixels(twips) : kDefaultTab;
    const double stop = (std::floor((start + markerWidth) / step) + 1) * step - start;
    return std::max(stop, markerWidth + kLeastGap);
}

// The outermost table around a block, null outside of tables.
const QTextTable* TableAround(const QTextBlock& block) {
    const QTextTable* table = nullptr;
    for (QTextFrame* frame = QTextCursor(block).currentFrame(); frame != nullptr;
         frame = frame->parentFrame()) {
        if (const auto* found = qobject_cast<QTextTable*>(frame))
            table = found;
    }
    return table;
}

} // namespace

QTextBlockFormat FileBlockFormat(const QTextBlockFormat& format) {
    if (!format.hasProperty(MarkerIndent))
        return format;
    QTextBlockFormat file = format;
    const double indent = format.doubleProperty(MarkerIndent);
    if (indent != 0)
        file.setTextIndent(indent);
    else
        file.clearProperty(QTextFormat::TextIndent);
    if (format.hasProperty(MarkerTabs))
        file.setProperty(QTextFormat::TabPositions, format.property(MarkerTabs));
    else
        file.clearProperty(QTextFormat::TabPositions);
    file.clearProperty(MarkerIndent);
    file.clearProperty(MarkerTabs);
    return file;
}

QTextBlockFormat ShownBlockFormat(const QTextBlockFormat& fileFormat, const QTextCharFormat& text,
                                  const QTextDocument& document) {
    const QString marker = fileFormat.stringProperty(BulletText);
    if (marker.isEmpty())
        return fileFormat;
    const double width = QFontMetricsF(MarkerFont(text, document)).horizontalAdvance(marker);
    const double advance = Advance(fileFormat, width, document);
    QTextBlockFormat shown = fileFormat;
    shown.setProperty(MarkerIndent, fileFormat.textIndent());
    shown.setTextIndent(fileFormat.textIndent() + advance);
    if (fileFormat.hasProperty(QTextFormat::TabPositions)) {
        shown.setProperty(MarkerTabs, fileFormat.property(QTextFormat::TabPositions));
        QList<QTextOption::Tab> tabs;
        for (QTextOption::Tab tab : fileFormat.tabPositions()) {
            tab.position -= advance;
            if (tab.position > 0)
                tabs.append(tab);
        }
        shown.setTabPositions(tabs);
    }
    return shown;
}

QTextCharFormat FirstCharFormat(const QTextBlock& block) {
    const auto first = block.begin();
    return first.atEnd() ? block.charFormat() : first.fragment().charFormat();
}

void ShowMarkers(QTextDocument& document, int from, int to) {
    QTextCursor cursor(&document);
    // paragraphs of one list are alike: their formats are made once
    QHash<std::pair<int, int>, QTextBlockFormat> made;
    bool editing = false;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        if (!format.hasProperty(BulletText) && !format.hasProperty(MarkerIndent))
            continue;
        if (!editing) {
            cursor.beginEditBlock();
            editing = true;
        }
        const auto first = block.begin();
        const std::pair<int, int> key(block.blockFormatIndex(),
                                      first.atEnd() ? -1 : first.fragment().charFormatIndex());
        auto known = made.constFind(key);
        if (known == made.constEnd() || key.second < 0)
            known =
                made.insert(key, ShownBlockFormat(FileBlockFormat(format), FirstCharFormat(block), document));
        if (*known == format)
            continue;
        cursor.setPosition(block.position());
        cursor.setBlockFormat(*known);
    }
    if (editing)
        cursor.endEditBlock();
}

void DrawMarkers(QPainter& painter, QTextBlock block, const QRectF& clip, int lastPosition) {
    if (!block.isValid())
        return;
    const QTextDocument& document = *block.document();
    const QAbstractTextDocumentLayout* layout = document.documentLayout();
    const QPaintDevice* device = layout->paintDevice();
    for (; block.isValid() && block.position() < lastPosition; block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        const QString marker = format.stringProperty(BulletText);
        if (marker.isEmpty() || block.layout()->lineCount() == 0)
            continue;
        const QRectF box = layout->blockBoundingRect(block);
        const QTextLine line = block.layout()->lineAt(0);
        const double top = box.top() + line.y();
        if (top > clip.bottom())
            continue;
        if (top + line.height() < clip.top())
            continue;
        const QTextCharFormat text = FirstCharFormat(block);
        QFont font = MarkerFont(text, document);
        if (device != nullptr)
            font = QFont(font, device);
        const double advance =
            format.hasProperty(MarkerIndent) ? format.textIndent() - format.doubleProperty(MarkerIndent) : 0;
        const QRectF natural = line.naturalTextRect();
        double x = box.left() + natural.left() - advance;
        if (block.textDirection() == Qt::RightToLeft)
            x = box.left() + natural.right() + advance -
                QFontMetricsF(font, painter.device()).horizontalAdvance(marker);
        painter.setFont(font);
        painter.setPen(text.foreground().style() == Qt::NoBrush ? QColor(Qt::black)
                                                                : text.foreground().color());
        painter.drawText(QPointF(x, top + line.ascent()), marker);
    }
}

void DrawMarkersInside(QPainter& painter, const QTextDocument& document, const QRectF& clip) {
    const QAbstractTextDocumentLayout* layout = document.documentLayout();
    const int top = layout->hitTest(clip.topLeft(), Qt::FuzzyHit);
    const int bottom = layout->hitTest(clip.bottomLeft(), Qt::FuzzyHit);
    if (top < 0 || bottom < 0)
        return;
    QTextBlock first = document.findBlock(std::min(top, bottom));
    const QTextBlock last = document.findBlock(std::max(top, bottom));
    // the cells of a row stand beside each other, but one after the other in the text
    if (const QTextTable* table = TableAround(first))
        first = document.findBlock(table->firstPosition());
    int end = last.position() + last.length();
    if (const QTextTable* table = TableAround(last))
        end = table->lastPosition() + 1;
    DrawMarkers(painter, first, clip, end);
}

} // namespace platform
