#include "platform/rich_text/rich_text_clipboard.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QTextFrame>
#include <QTextList>
#include <QUuid>
#include <algorithm>
#include <array>
#include <vector>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_file.h"
#include "platform/rich_text/rich_text_markers.h"
#include "platform/rich_text/rich_text_plain.h"
#include "platform/rich_text/rich_text_selection_format.h"
#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"

namespace platform {
namespace {

constexpr std::array kRtfNames = {"text/rtf", "application/rtf", "text/richtext"};
constexpr qsizetype kMostHtml = 8 * 1024 * 1024; // characters

// A document that answers every question for a resource with nothing.
class ClosedDocument final : public QTextDocument {
public:
    using QTextDocument::QTextDocument;

protected:
    QVariant loadResource(int, const QUrl&) override { return {}; }
};

int FrameDepth(const QTextFrame& frame) {
    int depth = 0;
    for (const QTextFrame* child : frame.childFrames())
        depth = std::max(depth, 1 + FrameDepth(*child));
    return depth;
}

struct Run {
    int begin;
    int end;
    QTextCharFormat format;
};

std::vector<Run> RunsOf(const QTextDocument& document) {
    std::vector<Run> runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment run = it.fragment();
            runs.push_back({run.position(), run.position() + run.length(), run.charFormat()});
        }
    }
    return runs;
}

// Headings and the like tell their size by steps from the text around them, which no file keeps.
void SettleSize(QTextCharFormat& format) {
    constexpr std::array kSizes = {8.0, 10.0, 12.0, 14.0, 18.0, 24.0, 29.0}; // points, from step -2 on
    const int step = format.intProperty(QTextFormat::FontSizeAdjustment);
    format.clearProperty(QTextFormat::FontSizeAdjustment);
    format.setFontPointSize(kSizes[size_t(std::clamp(step + 2, 0, int(kSizes.size()) - 1))]);
}

// HTML as it suits a box: no pictures, lists by paragraphs with markers of their own.
std::unique_ptr<QTextDocument> HtmlDocument(const QString& html, const QFont& font) {
    auto document = std::make_unique<ClosedDocument>();
    document->setDefaultFont(font);
    document->setUndoRedoEnabled(false);
    document->setHtml(html.left(kMostHtml));
    if (FrameDepth(*document->rootFrame()) > kMostTableLevels)
        return nullptr;
    QTextCursor cursor(document.get());
    cursor.beginEditBlock();
    // text in the source's own lines is broken like any other
    cursor.select(QTextCursor::Document);
    QTextBlockFormat wrapped;
    wrapped.setNonBreakableLines(false);
    cursor.mergeBlockFormat(wrapped);
    const std::vector<Run> runs = RunsOf(*document);
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        cursor.setPosition(run->begin);
        cursor.setPosition(run->end, QTextCursor::KeepAnchor);
        if (run->format.isImageFormat()) {
            cursor.removeSelectedText();
        } else if (run->format.hasProperty(QTextFormat::FontSizeAdjustment)) {
            QTextCharFormat format = run->format;
            SettleSize(format);
            cursor.setCharFormat(format);
        }
    }
    std::vector<std::pair<QTextBlock, QString>> markers;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        if (const QTextList* list = block.textList()) {
            const bool bullet = list->format().style() > QTextListFormat::ListDecimal;
            markers.emplace_back(block, bullet ? QStringLiteral("\u2022") : list->itemText(block));
        }
    }
    for (const auto& [block, marker] : markers) {
        QTextBlockFormat format = block.blockFormat();
        const double level = std::max(1, block.textList()->format().indent() + format.indent());
        format.clearProperty(QTextFormat::ObjectIndex);
        format.clearProperty(QTextFormat::BlockIndent);
        format.setLeftMargin(24 * level);
        format.setTextIndent(-24);
        format.setProperty(BulletText, marker);
        cursor.setPosition(block.position());
        cursor.setBlockFormat(format);
    }
    cursor.endEditBlock();
    return document;
}

void RenamePicture(QTextCharFormat& format, const QTextDocument& source, QTextDocument& target) {
    const QString name = format.toImageFormat().name();
    const QString free = QStringLiteral("picture-") + QUuid::createUuid().toString(QUuid::WithoutBraces);
    target.addResource(QTextDocument::ImageResource, QUrl(free),
                       source.resource(QTextDocument::ImageResource, QUrl(name)));
    target.addResource(PictureData, PictureDataName(free),
                       source.resource(PictureData, PictureDataName(name)));
    target.addResource(PictureFormat, PictureFormatName(free),
                       source.resource(PictureFormat, PictureFormatName(name)));
    format.setProperty(QTextFormat::ImageName, free);
}

int HighestField(const QVariantMap& instructions) {
    int highest = 0;
    for (auto it = instructions.begin(); it != instructions.end(); ++it)
        highest = std::max(highest, it.key().toInt());
    return highest;
}

bool SameTable(const QTextDocument& a, const QTextDocument& b, int property) {
    return a.rootFrame()->frameFormat().property(property) == b.rootFrame()->frameFormat().property(property);
}

// Gives the source names and numbers of the target.
void Adapt(QTextDocument& source, QTextDocument& target) {
    const bool sameFonts = SameTable(source, target, FontTable) && SameTable(source, target, ColorTable);
    const bool sameLists = SameTable(source, target, ListTables);
    const bool sameStyles = SameTable(source, target, StyleSheet);

    QTextFrameFormat targetRoot = target.rootFrame()->frameFormat();
    QVariantMap fields = targetRoot.property(FieldInstructions).toMap();
    const QVariantMap newFields = source.rootFrame()->frameFormat().property(FieldInstructions).toMap();
    const int shift = HighestField(fields);

    QTextCursor cursor(&source);
    cursor.beginEditBlock();
    const std::vector<Run> runs = RunsOf(source);
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        QTextCharFormat format = run->format;
        if (format.isImageFormat())
            RenamePicture(format, source, target);
        if (const int field = format.intProperty(FieldId); field > 0)
            format.setProperty(FieldId, field + shift);
        if (!sameFonts)
            format.clearProperty(FontNumber);
        if (!sameStyles)
            format.clearProperty(CharacterStyle);
        cursor.setPosition(run->begin);
        cursor.setPosition(run->end, QTextCursor::KeepAnchor);
        if (!sameFonts && format.hasProperty(EmbeddedObject) && !format.isImageFormat()) {
            cursor.removeSelectedText(); // its source counts in the fonts of its own file
            continue;
        }
        if (!sameFonts)
            format.clearProperty(EmbeddedObject);
        if (format != run->format)
            cursor.setCharFormat(format);
    }
    for (QTextBlock block = source.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.clearProperty(SectionBreak);
        if (!sameStyles)
            format.clearProperty(ParagraphStyle);
        if (!sameLists) {
            format.clearProperty(ListOverride);
            format.clearProperty(ListLevel);
        }
        if (format != block.blockFormat()) {
            cursor.setPosition(block.position());
            cursor.setBlockFormat(format);
        }
    }
    cursor.endEditBlock();

    if (!newFields.isEmpty()) {
        for (auto it = newFields.begin(); it != newFields.end(); ++it)
            fields.insert(QString::number(it.key().toInt() + shift), it.value());
        targetRoot.setProperty(FieldInstructions, fields);
        target.rootFrame()->setFrameFormat(targetRoot);
    }
}

// The paragraph that takes an insertion, as it was before.
struct Place {
    QTextBlockFormat format;
    bool atStart = false;    // inserted at its start
    bool isEmpty = false;    // the paragraph
    bool isAllEmpty = false; // the whole document
};

// A paragraph's format goes with its end: what stands before the insertion ends with the first inserted
// paragraph, what stands behind keeps its own end.
void FormatEnds(const QTextBlock& first, const QTextBlock& last, const QTextDocument& source,
                const Place& place) {
    const QTextBlockFormat begin = source.begin().blockFormat();
    const auto set = [](const QTextBlock& block, const QTextBlockFormat& format) {
        if (block.blockFormat() != format)
            QTextCursor(block).setBlockFormat(format);
    };
    const bool tableFirst = begin.boolProperty(Filler);
    if (first == last) {
        if (place.isAllEmpty && !tableFirst)
            set(first, begin);
        return;
    }
    if (tableFirst && last.length() <= 1)
        return;
    QTextBlockFormat before = tableFirst ? first.blockFormat() : begin; // before a table it keeps what it has
    QTextBlockFormat behind = place.isEmpty ? last.blockFormat() : place.format;
    if (tableFirst) {
        if (behind.hasProperty(SectionBreak))
            before.clearProperty(SectionBreak);
        if (before.hasProperty(QTextFormat::PageBreakPolicy))
            behind.clearProperty(QTextFormat::PageBreakPolicy);
    } else if (!place.atStart && place.format.hasProperty(QTextFormat::PageBreakPolicy)) {
        before.setPageBreakPolicy(place.format.pageBreakPolicy());
        behind.clearProperty(QTextFormat::PageBreakPolicy);
    }
    set(first, before);
    set(last, behind);
}

} // namespace

std::unique_ptr<QMimeData> MimeOfSelection(const QTextCursor& selection) {
    if (!selection.hasSelection())
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    const QByteArray source = WriteRtf(selection);
    for (const char* name : kRtfNames)
        data->setData(QLatin1String(name), source);
    data->setHtml(QTextDocumentFragment(WithWholeCells(selection)).toHtml());
    data->setText(PlainText(*selection.document())
                      .mid(selection.selectionStart(), selection.selectionEnd() - selection.selectionStart())
                      .remove(QChar(QChar::ObjectReplacementCharacter)));
    return data;
}

bool HasDocument(const QMimeData& data) {
    return data.hasText() || data.hasHtml() || !RtfOf(data).isEmpty();
}

QByteArray RtfOf(const QMimeData& data) {
    for (const char* name : kRtfNames) {
        QByteArray source = data.data(QLatin1String(name));
        while (source.endsWith('\0'))
            source.chop(1);
        if (!source.isEmpty())
            return source;
    }
    return {};
}

std::unique_ptr<QTextDocument> DocumentOfMime(const QMimeData& data, const QFont& font) {
    if (const QByteArray source = RtfOf(data); !source.isEmpty() && source.size() <= kMostSourceBytes) {
        if (std::unique_ptr<QTextDocument> document = ReadRtf(source)) {
            // the last end of a paragraph is none in a file; the text tells whether it was selected
            if (data.hasText() && data.text().endsWith(u'\n') && !PlainText(*document).endsWith(u'\n')) {
                QTextCursor cursor(document.get());
                cursor.movePosition(QTextCursor::End);
                cursor.insertBlock(QTextBlockFormat());
            }
            return document;
        }
    }
    if (data.hasHtml() && data.html().size() <= kMostHtml) {
        // what a form cannot keep is not shown first to be lost with the first step of undo
        if (const std::unique_ptr<QTextDocument> document = HtmlDocument(data.html(), font))
            return ReadRtf(WriteRtf(*document));
    }
    return nullptr;
}

void InsertDocument(QTextCursor cursor, QTextDocument& source) {
    QTextDocument& target = *cursor.document();
    cursor.beginEditBlock();
    Adapt(source, target);
    cursor.removeSelectedText();
    const Place place{cursor.blockFormat(), cursor.atBlockStart(), cursor.block().length() <= 1,
                      target.isEmpty()};
    const int from = cursor.position();
    cursor.insertFragment(QTextDocumentFragment(&source));
    FormatEnds(target.findBlock(from), cursor.block(), source, place);
    ShowMarkers(target, from, cursor.position());
    cursor.endEditBlock();
    // where a table comes last, the rest of the line stands at the end of its filler
    FreeLooseFillers(target, cursor.position(), cursor.position());
}

} // namespace platform
