#include "platform/rich_text/rich_text_typing_format.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_markers.h"

namespace platform {
namespace {

bool IsOfFiller(const QTextCharFormat& end) {
    return end.fontPointSize() == kFillerPoints && !IsHidden(end);
}

} // namespace

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

QTextCharFormat SeenFormat(const QTextCharFormat& format) {
    QTextCharFormat text = TextOnlyFormat(format);
    if (IsHidden(text)) {
        text.clearForeground();
        text.setFontPointSize(format.intProperty(HiddenSize) / 2.0);
        text.clearProperty(HiddenText);
        text.clearProperty(HiddenSize);
    }
    return text;
}

QTextCharFormat TypingFormat(const QTextCursor& caret) {
    const QTextBlock block = caret.block();
    QTextCharFormat format = caret.charFormat();
    if (block.length() == 1 && IsOfFiller(format)) {
        format.clearProperty(QTextFormat::FontPointSize);
        QTextBlock other = block.previous();
        while (other.isValid() && other.blockFormat().boolProperty(Filler))
            other = other.previous();
        if (other.isValid())
            format = FirstCharFormat(other);
        // neither the link of other text nor the shade of a cell
        for (const int property :
             {int(QTextFormat::IsAnchor), int(QTextFormat::AnchorHref), int(QTextFormat::AnchorName),
              int(QTextFormat::BackgroundBrush), int(QTextFormat::TextVerticalAlignment)})
            format.clearProperty(property);
    }
    return FormatInField(SeenFormat(format), caret);
}

QTextCharFormat FormatInField(const QTextCharFormat& format, const QTextCursor& caret) {
    if (!format.hasProperty(FieldId))
        return format;
    const QTextBlock block = caret.block();
    const int inBlock = caret.position() - block.position();
    QTextCursor behind(block); // of a character: there its format is read
    const auto formatAt = [&](int position) {
        behind.setPosition(position + 1);
        return behind.charFormat();
    };
    const QTextCharFormat before =
        inBlock > 0 ? formatAt(caret.position() - 1) : block.previous().charFormat();
    const QTextCharFormat next =
        inBlock < block.length() - 1 ? formatAt(caret.position()) : block.charFormat();
    const int field = format.intProperty(FieldId);
    if (before.intProperty(FieldId) == field && next.intProperty(FieldId) == field)
        return format;
    QTextCharFormat outside = format;
    outside.clearProperty(FieldId);
    return outside;
}

void FreeLooseFillers(QTextDocument& document, int from, int to) {
    QTextBlock block = document.findBlock(from);
    if (block.previous().isValid())
        block = block.previous();
    for (bool isBehind = false; block.isValid() && !isBehind; block = block.next()) {
        isBehind = block.position() > to;
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::EndOfBlock);
        if (!block.blockFormat().boolProperty(Filler)) {
            if (IsOfFiller(block.charFormat())) // it took in the end of one
                cursor.setBlockCharFormat(TypingFormat(cursor));
            continue;
        }
        const QTextFrame* const frame = document.frameAt(block.position());
        const auto isText = [&document, frame](const QTextBlock& other) {
            return !other.isValid() || document.frameAt(other.position()) == frame;
        };
        if (frame != document.rootFrame() || !isText(block.previous()) || !isText(block.next()))
            continue;
        QTextBlockFormat format = block.blockFormat();
        format.clearProperty(Filler);
        cursor.setBlockFormat(format);
        cursor.setBlockCharFormat(TypingFormat(cursor));
    }
}

} // namespace platform
