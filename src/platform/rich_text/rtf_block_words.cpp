#include "platform/rich_text/rtf_block_words.h"

#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_markers.h"
#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_output.h"

namespace platform {
namespace {

int Twips(double pixels) {
    return std::clamp(static_cast<int>(std::lround(PixelsToTwips(pixels))), -kMostTwips, kMostTwips);
}

void WriteAlignment(const QTextBlockFormat& format, bool always, RtfOutput& out) {
    const Qt::Alignment alignment = format.alignment() & Qt::AlignHorizontal_Mask;
    if (alignment.testFlag(Qt::AlignRight))
        out.Words("\\qr");
    else if (alignment.testFlag(Qt::AlignHCenter))
        out.Words("\\qc");
    else if (alignment.testFlag(Qt::AlignJustify))
        out.Words("\\qj");
    else if (always)
        out.Words("\\ql");
}

// Returns whether anything was written.
bool WriteLineHeight(const QTextBlockFormat& format, RtfOutput& out) {
    const double height = format.lineHeight();
    // RTF 1.9.1: \sl counts 240 to the line with \slmult1; else it is a least height, negative an exact one
    switch (format.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        out.Word("\\sl", std::clamp(static_cast<int>(std::lround(height * 2.4)), 1, kMostTwips));
        out.Words("\\slmult1");
        return true;
    case QTextBlockFormat::MinimumHeight:
        out.Word("\\sl", std::max(1, Twips(height)));
        out.Words("\\slmult0");
        return true;
    case QTextBlockFormat::FixedHeight:
        out.Word("\\sl", -std::max(1, Twips(height)));
        out.Words("\\slmult0");
        return true;
    default:
        return false;
    }
}

void WriteLengths(const QTextBlockFormat& format, double indentWidth, bool always, RtfOutput& out) {
    const auto write = [&](const char* word, double pixels) {
        if (const int twips = Twips(pixels); twips != 0 || always)
            out.Word(word, twips);
    };
    write("\\fi", format.textIndent());
    write("\\li", format.leftMargin() + format.indent() * indentWidth);
    write("\\ri", format.rightMargin());
    write("\\sb", format.topMargin());
    write("\\sa", format.bottomMargin());
    if (!WriteLineHeight(format, out) && always)
        out.Words("\\sl0\\slmult0");
}

// Positions in the file count from the page's left margin; the stop at the left indent of a hanging first
// line is implied there.
void WriteTabs(const QTextBlockFormat& format, double indentWidth, RtfOutput& out) {
    const double lineStart = format.leftMargin() + format.indent() * indentWidth + format.textIndent();
    bool implied = format.textIndent() < 0;
    int count = 0;
    for (const QTextOption::Tab& tab : format.tabPositions()) {
        if (implied && tab.type == QTextOption::LeftTab &&
            std::abs(tab.position + format.textIndent()) < 0.01) {
            implied = false;
            continue;
        }
        if (++count > kMostTabs)
            return;
        switch (tab.type) {
        case QTextOption::RightTab:
            out.Words("\\tqr");
            break;
        case QTextOption::CenterTab:
            out.Words("\\tqc");
            break;
        case QTextOption::DelimiterTab:
            out.Words("\\tqdec");
            break;
        case QTextOption::LeftTab:
            break;
        }
        out.Word("\\tx", Twips(tab.position + lineStart));
    }
}

const char* OldListWords(ListKinds kind) {
    switch (kind) {
    case ListKinds::None:
        return "\\pnlvlcont";
    case ListKinds::Bullet:
        return "\\pnlvlblt";
    case ListKinds::Decimal:
        return "\\pnlvlbody\\pndec";
    case ListKinds::LowerLetter:
        return "\\pnlvlbody\\pnlcltr";
    case ListKinds::UpperLetter:
        return "\\pnlvlbody\\pnucltr";
    case ListKinds::LowerRoman:
        return "\\pnlvlbody\\pnlcrm";
    case ListKinds::UpperRoman:
        break;
    }
    return "\\pnlvlbody\\pnucrm";
}

// RTF 1.9.1, "Bullets and Numbering": the older form, which needs no list table.
QByteArray OldListGroup(const QTextBlockFormat& format, bool inSymbols) {
    RtfOutput out;
    const QString marker = format.stringProperty(BulletText);
    const bool known = format.hasProperty(ListKind);
    ListKinds kind = marker.size() == 1 ? ListKinds::Bullet : ListKinds::Decimal;
    if (known)
        kind = static_cast<ListKinds>(format.intProperty(ListKind));
    QString before = format.stringProperty(ListTextBefore);
    if (kind == ListKinds::Bullet && !format.hasProperty(ListTextBefore))
        before = marker;
    out.Raw("{\\*\\pn");
    out.Words(OldListWords(kind));
    const int start = format.hasProperty(ListStart) ? format.intProperty(ListStart) : 1;
    if (start != 1 || kind != ListKinds::Bullet)
        out.Word("\\pnstart", start);
    if (const int indent = -Twips(format.textIndent()); indent > 0)
        out.Word("\\pnindent", indent);
    const auto writeText = [&out, inSymbols](const char* start, const QString& text) {
        if (text.isEmpty())
            return;
        out.Raw("{");
        out.Words(start);
        out.Text(text, inSymbols);
        out.Raw("}");
    };
    writeText("\\pntxtb", before);
    writeText("\\pntxta", format.stringProperty(ListTextAfter));
    out.Raw("}");
    return out.View().toByteArray();
}

void WriteFlags(const QTextBlockFormat& format, RtfOutput& out) {
    if (format.boolProperty(KeepTogether))
        out.Words("\\keep");
    if (format.boolProperty(KeepWithNext))
        out.Words("\\keepn");
    if ((format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore) != 0)
        out.Words("\\pagebb");
    if (format.boolProperty(WidowControl))
        out.Words("\\widctlpar");
    if (format.boolProperty(RightToLeft) || format.layoutDirection() == Qt::RightToLeft)
        out.Words("\\rtlpar");
    if (format.hasProperty(OutlineLevel))
        out.Word("\\outlinelevel", format.intProperty(OutlineLevel));
    if (format.hasProperty(ParagraphShading))
        out.Word("\\shading", format.intProperty(ParagraphShading));
}

} // namespace

RtfBlockFormats::RtfBlockFormats(const QTextDocument& document, RtfNumbers& numbers)
    : m_numbers(numbers)
    , m_indentWidth(document.indentWidth()) {}

std::unique_ptr<RtfBlockFormats::Entry> RtfBlockFormats::Make(const QTextBlockFormat& anyFormat) {
    const QTextBlockFormat format = FileBlockFormat(anyFormat);
    auto entry = std::make_unique<Entry>();
    entry->isFiller = format.boolProperty(Filler);
    entry->section = format.property(SectionBreak).toByteArray();
    entry->marker = format.stringProperty(BulletText);
    const int list = format.intProperty(ListOverride);
    if (format.hasProperty(ListKind) || (list == 0 && !entry->marker.isEmpty())) {
        entry->oldList = OldListGroup(format, false);
        entry->oldListInSymbols = OldListGroup(format, true);
    }
    entry->isList = list != 0 || !entry->oldList.isEmpty();

    RtfOutput out;
    out.Words("\\pard");
    // a style sets what is not told, so with one all is told
    const int style = format.intProperty(ParagraphStyle);
    if (style != 0)
        out.Word("\\s", style);
    WriteAlignment(format, style != 0, out);
    WriteLengths(format, m_indentWidth, style != 0, out);
    WriteTabs(format, m_indentWidth, out);
    WriteFlags(format, out);
    if (const int color = m_numbers.Color(format.background(), true, entry->uses); color != 0)
        out.Word("\\cbpat", color);
    out.Words(format.property(ParagraphBorder).toByteArray());
    if (list != 0) {
        out.Word("\\ls", list);
        out.Word("\\ilvl", format.intProperty(ListLevel));
    }
    entry->words = out.View().toByteArray();
    return entry;
}

void RtfBlockFormats::WriteList(const Entry& entry, bool inSymbols, RtfOutput& out) {
    out.Raw("{");
    out.Words(entry.oldList.isEmpty() ? "\\listtext" : "\\pntext");
    out.Text(entry.marker, inSymbols);
    out.Words("\\tab");
    out.Raw("}");
    out.Raw(inSymbols ? entry.oldListInSymbols : entry.oldList);
}

} // namespace platform
