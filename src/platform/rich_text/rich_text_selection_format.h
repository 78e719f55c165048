// Formats of a range of a document as the members of a rich text box tell them: one value where the whole
// range agrees, nothing where it is mixed.
#pragma once

#include <QString>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFormat>
#include <QTextTable>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/rich_text/rich_text_typing_format.h"

namespace platform {

// Calls `visit` with the format of each run of characters of the selection, of selected cells of theirs, one
// after the other, leaving out runs with the same format as the run before; stops when it returns false.
// Hidden text counts only where nothing else is selected. A selection that holds only ends of paragraphs
// gives their formats.
void VisitCharFormats(const QTextCursor& selection, const std::function<bool(const QTextCharFormat&)>& visit);

// The one value of all that are taken.
template <typename Value>
class CommonValue {
public:
    // False once they differ.
    bool Take(Value value) {
        if (!m_common)
            m_common = std::move(value);
        else
            m_mixed = m_mixed || *m_common != value;
        return !m_mixed;
    }
    std::optional<Value> Get() const { return m_mixed ? std::nullopt : m_common; }

private:
    std::optional<Value> m_common;
    bool m_mixed = false;
};

// The value that `read` gives for every character of the selection, or for what is typed next at a caret.
template <typename Read>
auto CommonCharValue(const QTextCursor& cursor, Read&& read)
    -> std::optional<decltype(read(QTextCharFormat()))> {
    if (!cursor.hasSelection())
        return read(TypingFormat(cursor));
    CommonValue<decltype(read(QTextCharFormat()))> common;
    VisitCharFormats(cursor, [&](const QTextCharFormat& format) { return common.Take(read(format)); });
    return common.Get();
}

// Whether `has` is true of all that the formats of the selection are read from, and of its empty lines.
bool IsThroughout(const QTextCursor& selection, const std::function<bool(const QTextCharFormat&)>& has);

// The cells that begin in a selection of cells, row by row; none for any other selection.
std::vector<QTextTableCell> SelectedCells(const QTextCursor& selection);

// A selection of cells with the whole of the cells that reach into it from outside; any other selection as it
// is. Qt breaks down over a copy of cells where part of one is missing.
QTextCursor WithWholeCells(const QTextCursor& selection);

// Whether an empty paragraph is none of the text: it stands where Qt needs one beside a table, or a cell in a
// row that is shorter than the others.
bool IsStandIn(const QTextBlock& block);

// Calls `visit` with each paragraph that the selection touches, of selected cells with all of theirs, until
// it returns false; with stand-ins only where nothing else is selected. A selection that ends at the start of
// a paragraph does not touch it.
void VisitBlocks(const QTextCursor& selection, const std::function<bool(const QTextBlock&)>& visit);

// The value that `read` gives for every paragraph of the selection.
template <typename Read>
auto CommonBlockValue(const QTextCursor& cursor, Read&& read)
    -> std::optional<decltype(read(QTextBlockFormat()))> {
    CommonValue<decltype(read(QTextBlockFormat()))> common;
    int known = -1;
    VisitBlocks(cursor, [&](const QTextBlock& block) {
        if (block.blockFormatIndex() == known)
            return true;
        known = block.blockFormatIndex();
        return common.Take(read(block.blockFormat()));
    });
    return common.Get();
}

// What single formats say; `document` gives what they leave open.
QString FontNameOf(const QTextCharFormat& format, const QTextDocument& document);
double FontSizeOf(const QTextCharFormat& format, const QTextDocument& document);
QRgb ColorOf(const QTextCharFormat& format);
bool IsUnderlined(const QTextCharFormat& format); // by a line of any kind

// Lays `change` over the characters and the ends of paragraphs of the selection. Hidden text stays unseen:
// what it would look like when shown is changed.
void MergeCharFormat(const QTextCursor& selection, const QTextCharFormat& change);

// Gives each paragraph of the selection the format that `change` makes of its own, told as files have it;
// empty optional from `change` refuses the whole, with nothing changed. True when any format changed or all
// had it already, false when refused. `changed` tells which.
bool ChangeBlockFormats(const QTextCursor& selection,
                        const std::function<std::optional<QTextBlockFormat>(const QTextBlockFormat&)>& change,
                        bool& changed);

// Paragraphs that arose by parting one, the blocks from `first` to `last`, share its format: a page break is
// left to the first, a section's end to the last.
void PartBreaks(const QTextBlock& first, const QTextBlock& last);

} // namespace platform
