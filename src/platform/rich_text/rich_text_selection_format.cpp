#include "platform/rich_text/rich_text_selection_format.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_markers.h"

namespace platform {
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

// What a selection of cells covers of its table, with the last ones.
struct CellRange {
    int first = 0;
    int last = 0;
    int firstColumn = 0;
    int lastColumn = 0;
    bool operator==(const CellRange&) const = default;
};

CellRange SelectedRange(const QTextCursor& selection) {
    CellRange range;
    int count = 0;
    int columns = 0;
    selection.selectedTableCells(&range.first, &count, &range.firstColumn, &columns);
    range.last = range.first + count - 1;
    range.lastColumn = range.firstColumn + columns - 1;
    return range;
}

} // namespace

std::vector<QTextTableCell> SelectedCells(const QTextCursor& selection) {
    std::vector<QTextTableCell> cells;
    const QTextTable* const table = selection.hasComplexSelection() ? selection.currentTable() : nullptr;
    if (!table)
        return cells;
    const CellRange range = SelectedRange(selection);
    for (int row = range.first; row <= range.last; ++row) {
        for (int column = range.firstColumn; column <= range.lastColumn; ++column) {
            if (const QTextTableCell cell = table->cellAt(row, column);
                cell.row() == row && cell.column() == column)
                cells.push_back(cell);
        }
    }
    return cells;
}

QTextCursor WithWholeCells(const QTextCursor& selection) {
    const QTextTable* const table = selection.hasComplexSelection() ? selection.currentTable() : nullptr;
    if (!table)
        return selection;
    CellRange range = SelectedRange(selection);
    for (bool isWhole = false; !isWhole;) {
        const CellRange old = range;
        for (int row = old.first; row <= old.last; ++row) {
            for (int column = old.firstColumn; column <= old.lastColumn; ++column) {
                const QTextTableCell cell = table->cellAt(row, column);
                range.first = std::min(range.first, cell.row());
                range.last = std::max(range.last, cell.row() + cell.rowSpan() - 1);
                range.firstColumn = std::min(range.firstColumn, cell.column());
                range.lastColumn = std::max(range.lastColumn, cell.column() + cell.columnSpan() - 1);
            }
        }
        isWhole = range == old;
    }
    QTextCursor whole(selection);
    whole.setPosition(table->cellAt(range.first, range.firstColumn).firstPosition());
    whole.setPosition(table->cellAt(range.last, range.lastColumn).firstPosition(), QTextCursor::KeepAnchor);
    return whole;
}

namespace {

struct Range {
    int from = 0;
    int to = 0;
};

std::vector<Range> SelectedRanges(const QTextCursor& selection) {
    std::vector<Range> ranges;
    for (const QTextTableCell& cell : SelectedCells(selection))
        ranges.push_back(
            {cell.firstPosition(), cell.lastPosition() + 1}); // with the end of its last paragraph
    if (ranges.empty())
        ranges.push_back({selection.selectionStart(), selection.selectionEnd()});
    return ranges;
}

// Visits what `standsBack` is false of, and the rest only where that is nothing.
template <typename Each, typename StandsBack, typename Visit>
bool VisitInTurn(const Each& each, const StandsBack& standsBack, const Visit& visit) {
    bool visited = false;
    for (const bool rest : {false, true}) {
        each([&](const auto& item) {
            if (standsBack(item) != rest)
                return true;
            visited = true;
            return visit(item);
        });
        if (visited)
            break;
    }
    return visited;
}

} // namespace

void VisitCharFormats(const QTextCursor& selection,
                      const std::function<bool(const QTextCharFormat&)>& visit) {
    const QTextDocument& document = *selection.document();
    const std::vector<Range> ranges = SelectedRanges(selection);
    const auto eachBlock = [&](const std::function<bool(const QTextBlock&, Range)>& visitBlock) {
        for (const Range& range : ranges) {
            for (QTextBlock block = document.findBlock(range.from);
                 block.isValid() && block.position() < range.to; block = block.next()) {
                if (!visitBlock(block, range))
                    return;
            }
        }
    };
    const auto eachRun = [&](const std::function<bool(const QTextCharFormat&)>& visitFormat) {
        int known = -1;
        eachBlock([&](const QTextBlock& block, Range range) {
            for (auto it = block.begin(); !it.atEnd(); ++it) {
                const QTextFragment run = it.fragment();
                if (run.position() + run.length() <= range.from || run.charFormatIndex() == known)
                    continue;
                if (run.position() >= range.to)
                    break;
                known = run.charFormatIndex();
                if (!visitFormat(run.charFormat()))
                    return false;
            }
            return true;
        });
    };
    const auto eachEnd = [&](const std::function<bool(const QTextBlock&)>& visitEnd) {
        eachBlock([&](const QTextBlock& block, Range) { return visitEnd(block); });
    };
    if (VisitInTurn(eachRun, IsHidden, visit))
        return;
    VisitInTurn(eachEnd, IsStandIn, [&visit](const QTextBlock& block) { return visit(block.charFormat()); });
}

bool IsThroughout(const QTextCursor& selection, const std::function<bool(const QTextCharFormat&)>& has) {
    if (CommonCharValue(selection, has) != true)
        return false;
    if (!selection.hasSelection())
        return true;
    const QTextDocument& document = *selection.document();
    const bool withLastEnd =
        !selection.hasComplexSelection() && selection.selectionEnd() == document.characterCount() - 1;
    for (const Range& range : SelectedRanges(selection)) {
        for (QTextBlock block = document.findBlock(range.from);
             block.isValid() && block.position() <= range.to; block = block.next()) {
            const bool isSelected = block.position() < range.to || withLastEnd;
            if (isSelected && block.length() <= 1 && !IsStandIn(block) && !IsHidden(block.charFormat()) &&
                !has(block.charFormat()))
                return false;
        }
    }
    return true;
}

bool IsStandIn(const QTextBlock& block) {
    if (block.length() > 1)
        return false;
    if (IsFiller(block))
        return true;
    const auto* const table = qobject_cast<const QTextTable*>(block.document()->frameAt(block.position()));
    if (!table)
        return false;
    const QTextTableCell cell = table->cellAt(block.position());
    return cell.isValid() && cell.format().boolProperty(CellFiller) &&
           cell.firstPosition() == cell.lastPosition();
}

namespace {

void VisitAllBlocks(const QTextCursor& selection, const std::function<bool(const QTextBlock&)>& visit) {
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

} // namespace

void VisitBlocks(const QTextCursor& selection, const std::function<bool(const QTextBlock&)>& visit) {
    VisitInTurn([&selection](const auto& visitBlock) { VisitAllBlocks(selection, visitBlock); }, IsStandIn,
                visit);
}

QString FontNameOf(const QTextCharFormat& format, const QTextDocument& document) {
    const QStringList families = format.fontFamilies().toStringList();
    return families.isEmpty() ? document.defaultFont().family() : families.first();
}

double FontSizeOf(const QTextCharFormat& format, const QTextDocument& document) {
    if (IsHidden(format) && format.hasProperty(HiddenSize))
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

bool IsUnderlined(const QTextCharFormat& format) {
    const QTextCharFormat::UnderlineStyle style = format.underlineStyle();
    return style != QTextCharFormat::NoUnderline && style != QTextCharFormat::SpellCheckUnderline;
}

namespace {

// The format of characters, or of the end of a paragraph.
struct PlacedFormat {
    int position = 0; // of the characters, or where the paragraph begins
    int length = 0;   // 0 for the end of a paragraph
    QTextCharFormat format;
};

std::vector<PlacedFormat> HiddenFormats(const QTextDocument& document, int from, int to) {
    std::vector<PlacedFormat> hidden;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (const QTextCharFormat end = block.charFormat(); IsHidden(end))
            hidden.push_back({block.position(), 0, end});
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            const int start = std::max(run.position(), from);
            const int length = std::min(run.position() + run.length(), to) - start;
            if (length > 0 && IsHidden(run.charFormat()))
                hidden.push_back({start, length, run.charFormat()});
        }
    }
    return hidden;
}

std::vector<PlacedFormat> FillerEnds(const QTextDocument& document, int from, int to) {
    std::vector<PlacedFormat> ends;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() <= to;
         block = block.next()) {
        if (IsFiller(block))
            ends.push_back({block.position(), 0, block.charFormat()});
    }
    return ends;
}

QTextCharFormat FormatAt(const PlacedFormat& place, QTextCursor cursor) {
    if (place.length == 0)
        return cursor.document()->findBlock(place.position).charFormat();
    cursor.setPosition(place.position + 1);
    return cursor.charFormat();
}

void SetFormat(const PlacedFormat& placed, QTextCursor cursor) {
    if (FormatAt(placed, cursor) == placed.format)
        return;
    cursor.setPosition(placed.position);
    if (placed.length == 0) {
        cursor.setBlockCharFormat(placed.format);
        return;
    }
    cursor.setPosition(placed.position + placed.length, QTextCursor::KeepAnchor);
    cursor.setCharFormat(placed.format);
}

// The format of hidden text with a change to how it looks when shown.
QTextCharFormat ChangedUnseen(const QTextCharFormat& hidden, const QTextCharFormat& change) {
    QTextCharFormat format = hidden;
    format.merge(change);
    format.setFontPointSize(hidden.fontPointSize());
    format.setForeground(hidden.foreground());
    if (change.hasProperty(QTextFormat::FontPointSize))
        format.setProperty(HiddenSize, static_cast<int>(std::lround(change.fontPointSize() * 2)));
    return format;
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

    const std::vector<PlacedFormat> hidden = HiddenFormats(document, from, to);
    std::vector<PlacedFormat> kept = FillerEnds(document, from, to);
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
        SetFormat({block.position(), 0, format}, cursor);
    }
    for (const PlacedFormat& end : kept)
        SetFormat(end, cursor);
    for (const PlacedFormat& old : hidden) {
        if (FormatAt(old, cursor) != old.format)
            SetFormat({old.position, old.length, ChangedUnseen(old.format, change)}, cursor);
    }
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
