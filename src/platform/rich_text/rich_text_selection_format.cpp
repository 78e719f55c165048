#include "platform/rich_text/rich_text_selection_format.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <cmath>
#include <vector>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_markers.h"
#include "platform/rich_text/rtf_limits.h"

namespace platform {
namespace {

int RoundToTwips(double pixels) {
    return static_cast<int>(std::lround(PixelsToTwips(pixels)));
}

void SetOrClear(QTextBlockFormat& format, int property, double pixels) {
    if (pixels != 0)
        format.setProperty(property, pixels);
    else
        format.clearProperty(property);
}

} // namespace

void VisitCharFormats(const QTextDocument& document, int from, int to,
                      const std::function<bool(const QTextCharFormat&)>& visit) {
    int known = -1;
    const auto visitIndex = [&](int index, const auto& format) {
        if (index == known)
            return true;
        known = index;
        return visit(format());
    };
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            if (run.position() + run.length() <= from)
                continue;
            if (run.position() >= to)
                break;
            if (!visitIndex(run.charFormatIndex(), [&run] { return run.charFormat(); }))
                return;
        }
    }
    if (known >= 0)
        return;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        if (!visitIndex(block.charFormatIndex(), [&block] { return block.charFormat(); }))
            return;
    }
}

namespace {

QTextBlock FirstBlock(const QTextCursor& cursor) {
    return cursor.document()->findBlock(cursor.selectionStart());
}

QTextBlock LastBlock(const QTextCursor& cursor) {
    QTextBlock last = cursor.document()->findBlock(cursor.selectionEnd());
    if (cursor.hasSelection() && last.position() == cursor.selectionEnd() &&
        last.position() > cursor.selectionStart())
        last = last.previous();
    return last;
}

} // namespace

std::vector<QTextTableCell> SelectedCells(const QTextCursor& selection) {
    std::vector<QTextTableCell> cells;
    const QTextTable* const table = selection.hasComplexSelection() ? selection.currentTable() : nullptr;
    if (!table)
        return cells;
    int firstRow = 0;
    int rows = 0;
    int firstColumn = 0;
    int columns = 0;
    selection.selectedTableCells(&firstRow, &rows, &firstColumn, &columns);
    for (int row = firstRow; row < firstRow + rows; ++row) {
        for (int column = firstColumn; column < firstColumn + columns; ++column) {
            if (const QTextTableCell cell = table->cellAt(row, column);
                cell.row() == row && cell.column() == column)
                cells.push_back(cell);
        }
    }
    return cells;
}

void VisitCharFormats(const QTextCursor& selection,
                      const std::function<bool(const QTextCharFormat&)>& visit) {
    const std::vector<QTextTableCell> cells = SelectedCells(selection);
    if (cells.empty()) {
        VisitCharFormats(*selection.document(), selection.selectionStart(), selection.selectionEnd(), visit);
        return;
    }
    bool isEmpty = true;
    bool goesOn = true;
    const auto visitNext = [&](const QTextCharFormat& format) { return goesOn = visit(format); };
    for (const QTextTableCell& cell : cells) {
        if (goesOn && cell.firstPosition() < cell.lastPosition()) {
            isEmpty = false;
            VisitCharFormats(*selection.document(), cell.firstPosition(), cell.lastPosition(), visitNext);
        }
    }
    for (const QTextTableCell& cell : cells) {
        if (isEmpty && goesOn)
            visitNext(cell.firstCursorPosition().block().charFormat());
    }
}

void VisitBlocks(const QTextCursor& selection, const std::function<bool(const QTextBlock&)>& visit) {
    const auto visitFrom = [&visit](QTextBlock block, const QTextBlock& last) {
        for (; block.isValid(); block = block.next()) {
            if (!visit(block))
                return false;
            if (block == last)
                break;
        }
        return true;
    };
    const std::vector<QTextTableCell> cells = SelectedCells(selection);
    if (cells.empty())
        visitFrom(FirstBlock(selection), LastBlock(selection));
    for (const QTextTableCell& cell : cells) {
        if (!visitFrom(cell.firstCursorPosition().block(), cell.lastCursorPosition().block()))
            return;
    }
}

QString FontNameOf(const QTextCharFormat& format, const QTextDocument& document) {
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() ? document.defaultFont().family() : families.first();
}

double FontSizeOf(const QTextCharFormat& format, const QTextDocument& document) {
    if (format.boolProperty(HiddenText) && format.hasProperty(HiddenSize))
        return format.intProperty(HiddenSize) / 2.0;
    if (format.hasProperty(QTextFormat::FontPointSize))
        return format.fontPointSize();
    const QFont font = format.font().resolve(document.defaultFont());
    if (font.pointSizeF() > 0)
        return font.pointSizeF();
    return font.pixelSize() * 72.0 / 96.0;
}

QRgb ColorOf(const QTextCharFormat& format) {
    const QBrush brush = format.foreground();
    return brush.style() == Qt::NoBrush || brush.color().alpha() == 0 ? qRgb(0, 0, 0)
                                                                      : (brush.color().rgb() | 0xff000000U);
}

int AlignmentOf(const QTextBlockFormat& format) {
    const Qt::Alignment alignment = format.alignment();
    if (alignment.testFlag(Qt::AlignJustify))
        return Justified;
    if (alignment.testFlag(Qt::AlignHCenter))
        return AlignedCenter;
    if (alignment.testFlag(Qt::AlignRight))
        return AlignedRight;
    return AlignedLeft;
}

namespace {

// What a change leaves as it is.
struct KeptFormat {
    int position = 0; // of characters, or of the paragraph whose end is meant
    int length = 0;   // 0 for the end of a paragraph
    QTextCharFormat format;
};

std::vector<KeptFormat> HiddenFormats(const QTextDocument& document, int from, int to) {
    std::vector<KeptFormat> kept;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (const QTextCharFormat end = block.charFormat(); end.boolProperty(HiddenText))
            kept.push_back({block.position(), 0, end});
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            if (run.position() < to && run.position() + run.length() > from &&
                run.charFormat().boolProperty(HiddenText))
                kept.push_back({run.position(), run.length(), run.charFormat()});
        }
    }
    return kept;
}

void SetEnd(const QTextBlock& block, const QTextCharFormat& format) {
    if (block.charFormat() != format)
        QTextCursor(block).setBlockCharFormat(format);
}

void PutBack(const std::vector<KeptFormat>& formats, QTextCursor cursor) {
    for (const KeptFormat& kept : formats) {
        if (kept.length == 0) {
            SetEnd(cursor.document()->findBlock(kept.position), kept.format);
            continue;
        }
        cursor.setPosition(kept.position);
        cursor.setPosition(kept.position + kept.length, QTextCursor::KeepAnchor);
        cursor.setCharFormat(kept.format);
    }
}

} // namespace

// Qt keeps the format of a paragraph's end with the end before it: there the paragraph behind a selection
// would take the change, and the first one of the selection, or of a selected cell, would not.
void MergeCharFormat(const QTextCursor& selection, const QTextCharFormat& change) {
    const QTextDocument& document = *selection.document();
    const QTextTable* const cells = selection.hasComplexSelection() ? selection.currentTable() : nullptr;
    const int from = cells ? cells->firstPosition() : selection.selectionStart();
    const int to = cells ? cells->lastPosition() : selection.selectionEnd();
    const QTextBlock first = document.findBlock(from);
    const QTextBlock behind = document.findBlock(to);

    std::vector<KeptFormat> kept = HiddenFormats(document, from, to);
    std::vector<QTextBlock> missed;
    if (cells) {
        for (const QTextTableCell& cell : SelectedCells(selection)) // Qt changes no others
            missed.push_back(cell.firstCursorPosition().block());
    } else if (first != behind) {
        missed.push_back(first);
        // the very last end cannot be selected: it goes with a selection that comes to it
        if (to != document.characterCount() - 1)
            kept.push_back({behind.position(), 0, behind.charFormat()});
    }

    QTextCursor cursor(selection);
    cursor.beginEditBlock();
    cursor.mergeCharFormat(change);
    for (const QTextBlock& block : missed) {
        QTextCharFormat format = block.charFormat();
        format.merge(change);
        SetEnd(block, format);
    }
    PutBack(kept, cursor);
    cursor.endEditBlock();
}

bool ChangeBlockFormats(const QTextCursor& selection,
                        const std::function<std::optional<QTextBlockFormat>(const QTextBlockFormat&)>& change,
                        bool& changed) {
    changed = false;
    const QTextDocument& document = *selection.document();
    std::vector<std::pair<int, QTextBlockFormat>> formats;
    bool refused = false;
    VisitBlocks(selection, [&](const QTextBlock& block) {
        const std::optional<QTextBlockFormat> format = change(FileBlockFormat(block.blockFormat()));
        refused = !format;
        if (refused)
            return false;
        QTextBlockFormat shown = ShownBlockFormat(*format, FirstCharFormat(block), document);
        if (shown != block.blockFormat())
            formats.emplace_back(block.position(), std::move(shown));
        return true;
    });
    if (refused)
        return false;
    if (formats.empty())
        return true;
    QTextCursor cursor(selection);
    cursor.beginEditBlock();
    for (const auto& [position, format] : formats) {
        cursor.setPosition(position);
        cursor.setBlockFormat(format);
    }
    cursor.endEditBlock();
    changed = true;
    return true;
}

int IndentOf(const QTextBlockFormat& fileFormat) {
    return RoundToTwips(fileFormat.leftMargin() + fileFormat.textIndent());
}

int HangingIndentOf(const QTextBlockFormat& fileFormat) {
    return -RoundToTwips(fileFormat.textIndent());
}

std::optional<QTextBlockFormat> WithIndents(const QTextBlockFormat& fileFormat, int indent, int hanging) {
    const qint64 left = qint64(indent) + hanging;
    if (indent < 0 || left < 0 || indent > kMostTwips || left > kMostTwips)
        return std::nullopt;
    QTextBlockFormat format = fileFormat;
    const double oldStart = format.leftMargin() + format.textIndent();
    SetOrClear(format, QTextFormat::BlockLeftMargin, TwipsToPixels(double(left)));
    SetOrClear(format, QTextFormat::TextIndent, TwipsToPixels(-hanging));

    // tab stops stay where they are on the page; the stop at the left indent goes with it
    QList<QTextOption::Tab> tabs;
    const double newStart = TwipsToPixels(indent);
    bool impliedLeft = fileFormat.textIndent() < 0;
    for (QTextOption::Tab tab : fileFormat.tabPositions()) {
        if (impliedLeft && tab.type == QTextOption::LeftTab &&
            std::abs(tab.position + fileFormat.textIndent()) < 0.01) {
            impliedLeft = false;
            continue;
        }
        tab.position += oldStart - newStart;
        if (tab.position > 0)
            tabs.append(tab);
    }
    if (hanging > 0) {
        const QTextOption::Tab stop(TwipsToPixels(hanging), QTextOption::LeftTab);
        auto place = tabs.begin();
        while (place != tabs.end() && place->position < stop.position)
            ++place;
        tabs.insert(place, stop);
    }
    if (tabs.isEmpty())
        format.clearProperty(QTextFormat::TabPositions);
    else
        format.setTabPositions(tabs);
    return format;
}

QTextBlockFormat WithBullet(const QTextBlockFormat& fileFormat, bool bullet) {
    QTextBlockFormat format = fileFormat;
    for (const int property : {int(BulletText), int(ListKind), int(ListOverride), int(ListLevel),
                               int(ListStart), int(ListTextBefore), int(ListTextAfter)})
        format.clearProperty(property);
    if (bullet) {
        format.setProperty(BulletText, QStringLiteral("\u2022"));
        format.setProperty(ListKind, int(ListKinds::Bullet));
    }
    return format;
}

QTextCharFormat TextOnlyFormat(const QTextCharFormat& format) {
    if (!format.hasProperty(QTextFormat::ObjectType) && !format.hasProperty(EmbeddedObject))
        return format;
    QTextCharFormat text = format;
    for (const int property :
         {int(QTextFormat::ObjectType), int(QTextFormat::ObjectIndex), int(QTextFormat::ImageName),
          int(QTextFormat::ImageWidth), int(QTextFormat::ImageHeight), int(QTextFormat::ImageQuality),
          int(EmbeddedObject), int(ObjectNumber), int(PictureWidth), int(PictureHeight)})
        text.clearProperty(property);
    return text;
}

void FreeLooseFillers(QTextDocument& document, int from, int to) {
    QTextBlock block = document.findBlock(from);
    if (block.previous().isValid())
        block = block.previous();
    for (bool isBehind = false; block.isValid() && !isBehind; block = block.next()) {
        isBehind = block.position() > to;
        if (!block.blockFormat().boolProperty(Filler))
            continue;
        const QTextFrame* const frame = document.frameAt(block.position());
        const auto isText = [&document, frame](const QTextBlock& other) {
            return !other.isValid() || document.frameAt(other.position()) == frame;
        };
        if (frame != document.rootFrame() || !isText(block.previous()) || !isText(block.next()))
            continue;
        QTextBlockFormat format = block.blockFormat();
        format.clearProperty(Filler);
        QTextCharFormat text = block.charFormat();
        text.clearProperty(QTextFormat::FontPointSize);
        QTextCursor cursor(block);
        cursor.setBlockFormat(format);
        cursor.setBlockCharFormat(text);
    }
}

void PartBreaks(const QTextBlock& first, const QTextBlock& last) {
    if (!first.isValid() || first == last)
        return;
    QTextCursor cursor(first);
    cursor.beginEditBlock();
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (block != first)
            format.clearProperty(QTextFormat::PageBreakPolicy);
        if (block != last)
            format.clearProperty(SectionBreak);
        if (format != block.blockFormat()) {
            cursor.setPosition(block.position());
            cursor.setBlockFormat(format);
        }
        if (block == last)
            break;
    }
    cursor.endEditBlock();
}

} // namespace platform
