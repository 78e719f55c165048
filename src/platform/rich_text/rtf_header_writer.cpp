#include "platform/rich_text/rtf_header_writer.h"

#include <QTextDocument>
#include <QTextFrame>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_output.h"

namespace platform {
namespace {

struct NumberWord {
    int property;
    const char* word;
};

constexpr NumberWord kPaper[] = {
    {PaperWidth, "\\paperw"}, {PaperHeight, "\\paperh"}, {MarginLeft, "\\margl"},
    {MarginRight, "\\margr"}, {MarginTop, "\\margt"},    {MarginBottom, "\\margb"},
};

constexpr int kDefaultCodePage = 1252;

} // namespace

QByteArray RtfHeader(const QTextDocument& document, const RtfNumbers& numbers, RtfNumbers::Count added,
                     bool hasSections) {
    const QTextFrameFormat format = document.rootFrame()->frameFormat();
    RtfOutput out;
    out.Raw("{");
    out.Words("\\rtf1\\ansi");
    const int codePage = format.intProperty(FileCodePage);
    out.Word("\\ansicpg", codePage > 0 ? codePage : kDefaultCodePage);
    out.Words("\\uc1");
    out.Word("\\deff", format.intProperty(DefaultFont));
    if (format.hasProperty(DefaultLanguage))
        out.Word("\\deflang", format.intProperty(DefaultLanguage));
    out.Raw("\n");
    out.Raw(numbers.FontTable(added));
    out.Raw(numbers.ColorTable(added));
    for (const int property : {int(StyleSheet), int(ListTables), int(InfoGroup)}) {
        if (const QByteArray group = format.property(property).toByteArray(); !group.isEmpty()) {
            out.Raw(group);
            out.Raw("\n");
        }
    }
    for (const auto& [property, word] : kPaper) {
        if (format.hasProperty(property))
            out.Word(word, format.intProperty(property));
    }
    if (format.boolProperty(Landscape))
        out.Words("\\landscape");
    if (format.hasProperty(DefaultTab))
        out.Word("\\deftab", format.intProperty(DefaultTab));
    out.Words(format.property(FootnoteSettings).toByteArray());
    if (!hasSections)
        out.Words(format.property(SectionControls).toByteArray());
    out.Raw("\n");
    for (const QVariant& group : format.property(HeadersAndFooters).toList()) {
        out.Raw(group.toByteArray());
        out.Raw("\n");
    }
    return out.View().toByteArray();
}

QByteArray RtfEnd(const QTextDocument& document, bool hasSections) {
    const QByteArray section = document.rootFrame()->frameFormat().property(SectionControls).toByteArray();
    RtfOutput out;
    if (hasSections && !section.isEmpty()) {
        if (!section.startsWith("\\sectd"))
            out.Words("\\sectd");
        out.Words(section);
    }
    out.Raw("}\n");
    return out.View().toByteArray();
}

} // namespace platform
