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

namespace platform {

// Alignment as a number. Justified text has a number of its own, so that it is neither taken for another
// alignment nor lost.
enum TextAlignment { AlignedLeft = 0, AlignedRight = 1, AlignedCenter = 2, Justified = 3 };

// Calls `visit` with the format of each run of the characters from `from` up to `to`, one after the other,
// leaving out runs with the same format as the run before; stops when it returns false. A range that holds
// only ends of paragraphs gives their formats.
void VisitCharFormats(const QTextDocument& document, int from, int to,
                      const std::function<bool(const QTextCharFormat&)>& visit);

// The same for the selection; of selected cells for all of their text, or, where they have none, their ends.
void VisitCharFormats(const QTextCursor& selection, const std::function<bool(const QTextCharFormat&)>& visit);

// The value that `read` gives for every character of the selection, or for what is typed next at a caret.
template <typename Read>
auto CommonCharValue(const QTextCursor& cursor, Read&& read)
    -> std::optional<decltype(read(QTextCharFormat()))> {
    if (!cursor.hasSelection())
        return read(cursor.charFormat());
    std::optional<decltype(read(QTextCharFormat()))> common;
    bool mixed = false;
    VisitCharFormats(cursor, [&](const QTextCharFormat& format) {
        auto value = read(format);
        if (!common)
            common = std::move(value);
        else
            mixed = *common != value;
        return !mixed;
    });
    if (mixed)
        return std::nullopt;
    return common;
}

// The cells that begin in a selection of cells, row by row; none for any other selection.
std::vector<QTextTableCell> SelectedCells(const QTextCursor& selection);

// Calls `visit` with each paragraph that the selection touches, of selected cells with all of theirs, until
// it returns false. A selection that ends at the start of a paragraph does not touch it.
void VisitBlocks(const QTextCursor& selection, const std::function<bool(const QTextBlock&)>& visit);

// The value that `read` gives for every paragraph of the selection.
template <typename Read>
auto CommonBlockValue(const QTextCursor& cursor, Read&& read)
    -> std::optional<decltype(read(QTextBlockFormat()))> {
    std::optional<decltype(read(QTextBlockFormat()))> common;
    bool mixed = false;
    int known = -1;
    VisitBlocks(cursor, [&](const QTextBlock& block) {
        if (block.blockFormatIndex() == known)
            return true;
        known = block.blockFormatIndex();
        auto value = read(block.blockFormat());
        if (!common)
            common = std::move(value);
        else
            mixed = *common != value;
        return !mixed;
    });
    if (mixed)
        return std::nullopt;
    return common;
}

// What single formats say; `document` gives what they leave open.
QString FontNameOf(const QTextCharFormat& format, const QTextDocument& document);
double FontSizeOf(const QTextCharFormat& format, const QTextDocument& document);
QRgb ColorOf(const QTextCharFormat& format);
int AlignmentOf(const QTextBlockFormat& format);

// Lays `change` over the characters and the ends of paragraphs of the selection. Hidden text keeps its
// format, so that it stays unseen.
void MergeCharFormat(const QTextCursor& selection, const QTextCharFormat& change);

// Gives each paragraph of the selection the format that `change` makes of its own, told as files have it;
// empty optional from `change` refuses the whole, with nothing changed. True when any format changed or all
// had it already, false when refused. `changed` tells which.
bool ChangeBlockFormats(const QTextCursor& selection,
                        const std::function<std::optional<QTextBlockFormat>(const QTextBlockFormat&)>& change,
                        bool& changed);

// Indents in twips, as the box tells them: the first line's place, and how far the others stand right of it.
int IndentOf(const QTextBlockFormat& fileFormat);
int HangingIndentOf(const QTextBlockFormat& fileFormat);
// Empty when a line would stand left of the margin.
std::optional<QTextBlockFormat> WithIndents(const QTextBlockFormat& fileFormat, int indent, int hanging);

// Makes a paragraph one of a list of bullets, or takes it out of any list.
QTextBlockFormat WithBullet(const QTextBlockFormat& fileFormat, bool bullet);

// A format for text, from one that may be of a picture or an object.
QTextCharFormat TextOnlyFormat(const QTextCharFormat& format);

// Makes the fillers that the positions `from` to `to` touch, and their neighbours, paragraphs of the text
// where they part no tables any more.
void FreeLooseFillers(QTextDocument& document, int from, int to);

// Paragraphs that arose by parting one, the blocks from `first` to `last`, share its format: a page break is
// left to the first, a section's end to the last.
void PartBreaks(const QTextBlock& first, const QTextBlock& last);

} // namespace platform
