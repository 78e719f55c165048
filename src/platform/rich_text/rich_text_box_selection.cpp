// The members of the rich text box that work on the selection.
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_box_edit.h"
#include "platform/rich_text/rich_text_clipboard.h"
#include "platform/rich_text/rich_text_file.h"
#include "platform/rich_text/rich_text_markers.h"
#include "platform/rich_text/rich_text_paragraph_format.h"
#include "platform/rich_text/rich_text_plain.h"
#include "platform/rich_text/rich_text_selection_format.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"

namespace platform {
namespace {

constexpr double kMostPoints = 1638;
constexpr std::array kAlignments = {Qt::AlignLeft | Qt::AlignAbsolute, Qt::AlignRight | Qt::AlignAbsolute,
                                    Qt::Alignment(Qt::AlignHCenter), Qt::Alignment(Qt::AlignJustify)};

// Whether the format of a paragraph's end is of nothing else: Qt keeps it with the end before it, which may
// be the edge of a cell or a table.
bool HasEndOfItsOwn(const QTextBlock& block) {
    return block.position() == 0 ||
           block.document()->characterAt(block.position() - 1) == QChar::ParagraphSeparator;
}

// The formats of all paragraphs from the one the selection begins in to the one it ends in; none for a block
// that is no paragraph.
std::vector<std::optional<QTextBlockFormat>> ParagraphFormats(const QTextCursor& selection) {
    std::vector<std::optional<QTextBlockFormat>> formats;
    const QTextBlock last = selection.document()->findBlock(selection.selectionEnd());
    for (QTextBlock block = selection.document()->findBlock(selection.selectionStart()); block.isValid();
         block = block.next()) {
        formats.push_back(IsFiller(block) ? std::nullopt : std::optional(block.blockFormat()));
        if (block == last)
            break;
    }
    return formats;
}

void SetParagraphFormats(QTextBlock block, const std::vector<std::optional<QTextBlockFormat>>& formats) {
    for (const std::optional<QTextBlockFormat>& format : formats) {
        if (format && *format != block.blockFormat())
            QTextCursor(block).setBlockFormat(*format);
        block = block.next();
    }
}

// Puts text as it may stand in a document, with U+2028 for breaks inside of a paragraph, in the place of what
// is selected, or at the caret: in the format of the first character replaced, or of the caret, which
// `cursor` has behind the text, too.
void ReplaceText(QTextCursor& cursor, const QString& plain) {
    QTextDocument& document = *cursor.document();
    QTextCharFormat format = TypingFormat(cursor);
    if (cursor.hasSelection()) {
        VisitCharFormats(cursor, [&format](const QTextCharFormat& first) {
            format = SeenFormat(first);
            return false;
        });
    }
    // where several paragraphs are replaced, Qt would give the line behind the end of the first or of the
    // text
    const QTextBlock behind = document.findBlock(cursor.selectionEnd());
    const bool keepsEnd = behind.position() > cursor.selectionStart() && !cursor.hasComplexSelection() &&
                          cursor.selectionEnd() < document.characterCount() - 1 &&
                          !behind.blockFormat().boolProperty(Filler);
    const QTextCharFormat end = TextOnlyFormat(behind.charFormat());
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    format = FormatInField(format, cursor);
    const int start = cursor.position();
    const bool wasFiller = !plain.isEmpty() && cursor.blockFormat().boolProperty(Filler);
    if (wasFiller) { // what the selection left of its tables; else the new lines would be fillers, too
        QTextBlockFormat block = cursor.blockFormat();
        block.clearProperty(Filler);
        cursor.setBlockFormat(block);
    }
    if (document.isEmpty() || (wasFiller && HasEndOfItsOwn(cursor.block())))
        cursor.setBlockCharFormat(format);
    cursor.insertText(plain, format);
    // at the start of a cell the format is the cell's as well, with its span and borders
    if (keepsEnd && HasEndOfItsOwn(cursor.block()))
        cursor.setBlockCharFormat(end);
    PartBreaks(document.findBlock(start), cursor.block());
    cursor.endEditBlock();
    cursor.setCharFormat(format);
}

// Replaces what is selected by what `convert` makes of its text. The paragraphs keep their formats where they
// stay as many. To be called within an edit block, as all would be laid out again for each of them.
void ConvertText(QTextCursor& cursor, const std::function<QString(const QString&)>& convert) {
    if (!cursor.hasSelection())
        return;
    const int start = cursor.selectionStart();
    const QString raw = cursor.selectedText();
    const std::vector<std::optional<QTextBlockFormat>> formats = ParagraphFormats(cursor);
    const int paragraphs = cursor.document()->blockCount();
    ReplaceText(cursor, WithLineBreaks(NormalizedText(convert(PlainText(raw))), raw));
    if (cursor.document()->blockCount() == paragraphs) // now all of one format
        SetParagraphFormats(cursor.document()->findBlock(start), formats);
}

bool IsBold(const QTextCharFormat& format) {
    return format.fontWeight() > QFont::Medium;
}

} // namespace

int RichTextBox::SelStart() const {
    return textCursor().selectionStart();
}

bool RichTextBox::setSelStart(int start) {
    if (start < 0)
        return false;
    Edit edit(*this);
    QTextCursor cursor = textCursor();
    const int position = std::min(start, document()->characterCount() - 1);
    // a caret that stays keeps the format set for what is typed next
    if (cursor.hasSelection() || cursor.position() != position) {
        cursor.setPosition(position);
        setTextCursor(cursor);
        ShowMarginAtCaret();
    }
    return true;
}

int RichTextBox::SelLength() const {
    const QTextCursor cursor = textCursor();
    return cursor.selectionEnd() - cursor.selectionStart();
}

bool RichTextBox::setSelLength(int length) {
    if (length < 0)
        return false;
    Edit edit(*this);
    QTextCursor cursor = textCursor();
    const int start = cursor.selectionStart();
    const int end = start + std::min(length, document()->characterCount() - 1 - start);
    if (cursor.selectionEnd() != end) {
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    return true;
}

QString RichTextBox::SelText() const {
    return Text().mid(SelStart(), SelLength());
}

bool RichTextBox::setSelText(const QString& text) {
    if (text.size() > kMostTextBytes)
        return false;
    InsertText(text);
    return true;
}

void RichTextBox::ConvertSelText(const std::function<QString(const QString&)>& convert) {
    Edit edit(*this);
    QTextCursor cursor = textCursor();
    // the range of the selection holds but parts of the first and the last cell, and cells of other columns
    const std::vector<QTextTableCell> cells = SelectedCells(cursor);
    cursor.beginEditBlock(); // laid out once
    if (cells.empty())
        ConvertText(cursor, convert);
    for (auto cell = cells.rbegin(); cell != cells.rend(); ++cell) { // the places before it stay
        cursor.setPosition(cell->firstPosition());
        cursor.setPosition(cell->lastPosition(), QTextCursor::KeepAnchor);
        ConvertText(cursor, convert);
    }
    cursor.endEditBlock();
    if (!cells.empty())
        cursor.setPosition(cells.back().lastPosition());
    setTextCursor(cursor);
    ScrollToCaret();
}

QString RichTextBox::SelRTF() const {
    return QString::fromLatin1(WriteRtf(textCursor()));
}

bool RichTextBox::setSelRTF(const QString& source) {
    if (source.size() > kMostSourceBytes)
        return false;
    const QByteArray bytes = source.toUtf8();
    if (!IsRtf(bytes))
        return setSelText(source);
    const std::unique_ptr<QTextDocument> document = ReadRtf(bytes);
    if (!document)
        return false;
    InsertForeign(*document);
    return true;
}

// ---- inserting

// Makes the caret's place one for text: an empty paragraph that only parts tables becomes one of the text,
// and the caret takes the format of what is typed there.
void RichTextBox::FitCaretForText() {
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection())
        return;
    const QTextBlock block = cursor.block();
    const bool isFiller = IsFiller(block);
    const QTextCharFormat text = TypingFormat(cursor);
    if (!isFiller && text == cursor.charFormat())
        return;
    if (isFiller) {
        QTextBlockFormat format = block.blockFormat();
        format.clearProperty(Filler);
        cursor.beginEditBlock();
        cursor.setBlockFormat(format);
        cursor.setBlockCharFormat(text);
        cursor.endEditBlock();
    }
    cursor.setCharFormat(text);
    setTextCursor(cursor);
}

void RichTextBox::InsertText(const QString& text) {
    Edit edit(*this);
    const QString plain = NormalizedText(text);
    if (plain.isEmpty() && !textCursor().hasSelection())
        return;
    FitCaretForText();
    FitWrapping(plain);
    QTextCursor cursor = textCursor();
    ReplaceText(cursor, plain);
    setTextCursor(cursor);
    ScrollToCaret();
}

// Enter: parts the paragraph; in an empty one of a list ends the list there.
void RichTextBox::InsertParagraph() {
    Edit edit(*this);
    FitCaretForText();
    QTextCursor cursor = textCursor();
    const QTextBlock block = cursor.block();
    if (!cursor.hasSelection() && block.length() <= 1 && block.blockFormat().hasProperty(BulletText)) {
        setSelBullet(false);
        setSelHangingIndent(0);
        return;
    }
    QTextCharFormat format = TypingFormat(cursor);
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    format = FormatInField(format, cursor);
    const QTextBlock first = cursor.block();
    QTextCharFormat end = format;
    if (!first.charFormat().hasProperty(FieldId))
        end.clearProperty(FieldId);
    cursor.insertBlock(cursor.blockFormat(), end);
    PartBreaks(first, cursor.block());
    cursor.endEditBlock();
    cursor.setCharFormat(format);
    setTextCursor(cursor);
    ScrollToCaret();
}

void RichTextBox::InsertForeign(QTextDocument& source) {
    Edit edit(*this);
    FitCaretForText();
    FitWrapping(source.toRawText());
    QTextCursor cursor = textCursor();
    InsertDocument(cursor, source);
    ScrollToCaret();
}

// ---- formats of characters

bool RichTextBox::SetCharFormat(const QTextCharFormat& change,
                                const std::function<bool(const QTextCharFormat&)>& isThere) {
    const QTextCursor cursor = textCursor();
    if (IsThroughout(cursor, isThere))
        return true;
    Edit edit(*this);
    edit.FormatSet();
    if (cursor.hasSelection()) {
        MergeCharFormat(cursor, change);
        return true;
    }
    QTextCharFormat format = TypingFormat(cursor);
    format.merge(change);
    setCurrentCharFormat(format);
    if (document()->isEmpty()) {
        // nothing but the paragraph's end can hold the format while the caret is elsewhere
        QTextCursor all(document());
        all.setBlockCharFormat(textCursor().charFormat());
        edit.Forget();
    }
    return true;
}

std::optional<QColor> RichTextBox::SelColor() const {
    const std::optional<QRgb> color = CommonCharValue(textCursor(), ColorOf);
    return color ? std::optional<QColor>(QColor::fromRgb(*color)) : std::nullopt;
}

bool RichTextBox::setSelColor(const QColor& color) {
    if (!color.isValid())
        return false;
    QTextCharFormat change;
    change.setForeground(QColor::fromRgb(color.rgb()));
    return SetCharFormat(change, [rgb = color.rgb() | 0xff000000U](const QTextCharFormat& format) {
        return ColorOf(format) == rgb;
    });
}

std::optional<QString> RichTextBox::SelFontName() const {
    return CommonCharValue(textCursor(),
                           [this](const QTextCharFormat& format) { return FontNameOf(format, *document()); });
}

bool RichTextBox::setSelFontName(const QString& name) {
    if (name.trimmed().isEmpty())
        return false;
    QTextCharFormat change;
    change.setFontFamilies({name});
    // what told of the old font
    change.setFontStyleHint(QFont::AnyStyle);
    change.setFontFixedPitch(false);
    change.setProperty(FontNumber, -1);
    return SetCharFormat(
        change, [&](const QTextCharFormat& format) { return FontNameOf(format, *document()) == name; });
}

std::optional<double> RichTextBox::SelFontSize() const {
    return CommonCharValue(textCursor(),
                           [this](const QTextCharFormat& format) { return FontSizeOf(format, *document()); });
}

bool RichTextBox::setSelFontSize(double points) {
    if (!(points > 0 && points <= kMostPoints))
        return false;
    QTextCharFormat change;
    change.setFontPointSize(points);
    return SetCharFormat(
        change, [&](const QTextCharFormat& format) { return FontSizeOf(format, *document()) == points; });
}

std::optional<bool> RichTextBox::SelBold() const {
    return CommonCharValue(textCursor(), IsBold);
}

bool RichTextBox::setSelBold(bool on) {
    QTextCharFormat change;
    change.setFontWeight(on ? QFont::Bold : QFont::Normal);
    return SetCharFormat(change, [on](const QTextCharFormat& format) { return IsBold(format) == on; });
}

std::optional<bool> RichTextBox::SelItalic() const {
    return CommonCharValue(textCursor(), [](const QTextCharFormat& format) { return format.fontItalic(); });
}

bool RichTextBox::setSelItalic(bool on) {
    QTextCharFormat change;
    change.setFontItalic(on);
    return SetCharFormat(change, [on](const QTextCharFormat& format) { return format.fontItalic() == on; });
}

std::optional<bool> RichTextBox::SelStrikeThru() const {
    return CommonCharValue(textCursor(),
                           [](const QTextCharFormat& format) { return format.fontStrikeOut(); });
}

bool RichTextBox::setSelStrikeThru(bool on) {
    QTextCharFormat change;
    change.setFontStrikeOut(on);
    change.setProperty(DoubleStrike, false);
    return SetCharFormat(change,
                         [on](const QTextCharFormat& format) { return format.fontStrikeOut() == on; });
}

std::optional<bool> RichTextBox::SelUnderline() const {
    return CommonCharValue(textCursor(), IsUnderlined);
}

bool RichTextBox::setSelUnderline(bool on) {
    QTextCharFormat change;
    change.setFontUnderline(on);
    change.setProperty(UnderlineKind, int(UnderlineKinds::Plain));
    return SetCharFormat(change, [on](const QTextCharFormat& format) { return IsUnderlined(format) == on; });
}

// ---- formats of paragraphs

bool RichTextBox::ChangeBlocks(
    const std::function<std::optional<QTextBlockFormat>(const QTextBlockFormat&)>& change) {
    Edit edit(*this);
    bool changed = false;
    if (!ChangeBlockFormats(textCursor(), change, changed))
        return false;
    if (changed) {
        edit.FormatSet();
        ScrollToCaret();
    }
    return true;
}

std::optional<int> RichTextBox::SelAlignment() const {
    return CommonBlockValue(textCursor(), AlignmentOf);
}

bool RichTextBox::setSelAlignment(int alignment) {
    if (alignment < AlignedLeft || alignment > Justified)
        return false;
    return ChangeBlocks([alignment](const QTextBlockFormat& old) {
        QTextBlockFormat format = old;
        if (AlignmentOf(old) != alignment)
            format.setAlignment(kAlignments[static_cast<std::size_t>(alignment)]);
        return std::optional(format);
    });
}

std::optional<int> RichTextBox::SelIndent() const {
    return CommonBlockValue(textCursor(),
                            [](const QTextBlockFormat& format) { return IndentOf(FileBlockFormat(format)); });
}

bool RichTextBox::setSelIndent(int twips) {
    return ChangeBlocks([twips](const QTextBlockFormat& old) {
        return IndentOf(old) == twips ? std::optional(old) : WithIndents(old, twips, HangingIndentOf(old));
    });
}

std::optional<int> RichTextBox::SelHangingIndent() const {
    return CommonBlockValue(textCursor(), [](const QTextBlockFormat& format) {
        return HangingIndentOf(FileBlockFormat(format));
    });
}

bool RichTextBox::setSelHangingIndent(int twips) {
    return ChangeBlocks([twips](const QTextBlockFormat& old) {
        return HangingIndentOf(old) == twips ? std::optional(old) : WithIndents(old, IndentOf(old), twips);
    });
}

std::optional<bool> RichTextBox::SelBullet() const {
    return CommonBlockValue(textCursor(), [](const QTextBlockFormat& format) {
        return !format.stringProperty(BulletText).isEmpty();
    });
}

bool RichTextBox::setSelBullet(bool on) {
    Edit edit(*this);
    m_listsChanged = true;
    return ChangeBlocks([on](const QTextBlockFormat& old) {
        const bool isBullet = !old.stringProperty(BulletText).isEmpty();
        return std::optional(isBullet == on ? old : WithBullet(old, on));
    });
}

} // namespace platform
