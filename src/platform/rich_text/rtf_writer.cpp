#include "platform/rich_text/rtf_writer.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextFrame>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_selection_format.h"
#include "platform/rich_text/rtf_body_writer.h"
#include "platform/rich_text/rtf_header_writer.h"

namespace platform {
namespace {

// What kept groups and formats refer to; the sheet of paper and what is printed around the text stay behind.
constexpr int kPropertiesOfSelection[] = {FontTable,  ColorTable,        StyleSheet,
                                          ListTables, FieldInstructions, DefaultLanguage,
                                          DefaultTab, FileCodePage,      DefaultFont};

std::unique_ptr<QTextDocument> DocumentOf(const QTextCursor& selection) {
    const QTextDocument& from = *selection.document();
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    document->setDefaultFont(from.defaultFont());
    QTextCursor(document.get()).insertFragment(selection.selection());
    // a paragraph that is selected in part keeps its format
    if (const QTextBlock first = from.findBlock(selection.selectionStart());
        from.frameAt(first.position()) == from.rootFrame() && document->frameAt(0) == document->rootFrame()) {
        QTextCursor target(document.get());
        target.setBlockFormat(first.blockFormat());
        target.setBlockCharFormat(first.charFormat());
    }
    const QTextFrameFormat kept = from.rootFrame()->frameFormat();
    QTextFrameFormat format = document->rootFrame()->frameFormat();
    for (const int property : kPropertiesOfSelection) {
        if (kept.hasProperty(property))
            format.setProperty(property, kept.property(property));
    }
    document->rootFrame()->setFrameFormat(format);
    for (const QTextFormat& any : document->allFormats()) {
        if (!any.isImageFormat())
            continue;
        const QString name = any.toImageFormat().name();
        const auto copy = [&](int type, const QUrl& url) {
            document->addResource(type, url, from.resource(type, url));
        };
        copy(QTextDocument::ImageResource, QUrl(name));
        copy(PictureData, PictureDataName(name));
        copy(PictureFormat, PictureFormatName(name));
    }
    return document;
}

} // namespace

QByteArray WriteRtf(const QTextDocument& document) {
    const bool hasFields = RtfBodyWriter::HasFields(document);
    RtfBodyWriter writer(document, hasFields);
    std::vector<RtfPart> parts;
    std::vector<RtfFieldSteps> plan;
    if (hasFields) {
        std::vector<RtfFieldSequence> sequences;
        for (QTextBlock block = document.begin(); block.isValid();) {
            parts.push_back(PartAt(document, block));
            sequences.push_back(writer.FieldsOf(parts.back()));
            block = BlockAfter(document, parts.back());
        }
        std::vector<const RtfFieldSequence*> pointers;
        for (const RtfFieldSequence& sequence : sequences)
            pointers.push_back(&sequence);
        plan = PlanFields(pointers, writer.FieldKeys());
    }
    RtfOutput body;
    RtfNumbers::Uses uses;
    bool hasSections = false;
    const RtfFieldSteps none;
    std::size_t number = 0;
    for (QTextBlock block = document.begin(); block.isValid(); ++number) {
        const RtfPart part = hasFields ? parts[number] : PartAt(document, block);
        writer.Write(part, hasFields ? plan[number] : none, body, uses);
        hasSections = hasSections || writer.EndedSection();
        block = BlockAfter(document, part);
    }
    QByteArray source = RtfHeader(document, writer.Numbers(), writer.Numbers().All(), hasSections);
    const QByteArray end = RtfEnd(document, hasSections);
    source.reserve(source.size() + body.Size() + end.size());
    source.append(body.View());
    return source.append(end);
}

QByteArray WriteRtf(const QTextCursor& selection) {
    if (!selection.hasSelection())
        return {};
    const std::unique_ptr<QTextDocument> document = DocumentOf(WithWholeCells(selection));
    return WriteRtf(*document);
}

} // namespace platform
