// Characters that control words stand for, code pages and Unicode, ends of paragraphs.
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {

void RtfReader::OnCharacter(const Word& word) {
    AppendCharacter(static_cast<char16_t>(word.argument));
}

void RtfReader::OnUnicode(const Word&) {
    // RTF 1.9.1: numbers beyond 32767 are written negative; some programs write characters beyond U+FFFF
    // whole
    int value = m_token.parameter;
    if (value < 0)
        value += 0x10000;
    m_bytesToSkip = m_state.unicodeSkip;
    if (value <= 0 || value > 0x10FFFF)
        return;
    const bool symbol = !m_state.decoder || (value >= 0xF020 && value <= 0xF0FF);
    if (symbol && value >= 0xF020 && value <= 0xF0FF) {
        const QString name = m_tables.fonts.value(m_state.chars.font).name;
        AppendCharacter(SymbolCharacter(name, static_cast<unsigned char>(value & 0xFF)));
    } else {
        AppendUnicode(static_cast<char32_t>(value));
    }
}

void RtfReader::OnUnicodeSkip(const Word&) {
    m_state.unicodeSkip = std::clamp(Parameter(1), 0, kMostUnicodeSkip);
}

// \ansicpg with its number, or a character set of old by name
void RtfReader::OnCodePage(const Word& word) {
    const int codePage = word.argument != 0 ? word.argument : m_token.parameter;
    if (codePage <= 0)
        return;
    m_codePage = codePage;
    ChooseDecoder();
}

// The font's code page governs its bytes, else the document's.
void RtfReader::ChooseDecoder() {
    int codePage = m_codePage;
    const int number = m_state.chars.font < 0 ? m_tables.defaultFont : m_state.chars.font;
    if (const auto font = m_tables.fonts.constFind(number); font != m_tables.fonts.constEnd()) {
        if (font->codePage != 0)
            codePage = font->codePage;
    }
    m_state.decoder = codePage == kSymbolCodePage ? nullptr : &RtfDecoder::Of(codePage);
}

void RtfReader::OnUnicodeForms(const Word&) {
    m_state.outside = m_state.destination;
    m_state.destination = RtfDestination::Unicode;
}

void RtfReader::OnUnicodeForm(const Word&) {
    if (m_states.back().destination == RtfDestination::Unicode)
        m_state.destination = m_state.outside;
}

void RtfReader::OnParagraphEnd(const Word&) {
    if (InBody())
        EndParagraph();
}

void RtfReader::EndParagraph() {
    RtfParaState& para = m_state.para;
    const bool pageBreak = std::exchange(m_pageBreak, false) && !para.pageBreakBefore;
    if (pageBreak)
        para.pageBreakBefore = true;
    QString marker = Marker();
    if (!m_hasLastBlockFormat || marker != m_lastMarker || para != m_lastPara) {
        m_lastBlockFormat = m_formats.Paragraph(para, marker);
        m_lastPara = para;
        m_lastMarker = std::move(marker);
        m_hasLastBlockFormat = true;
    }
    m_flow.EndParagraph(m_lastBlockFormat, CharFormat(), para.Level());
    if (pageBreak)
        para.pageBreakBefore = false;
}

void RtfReader::OnPage(const Word&) {
    if (!InBody() || m_state.para.Level() > 0)
        return;
    if (m_flow.HasText() || m_pageBreak)
        EndParagraph();
    m_pageBreak = true;
}

void RtfReader::OnSectionEnd(const Word&) {
    if (!InBody())
        return;
    // the control words of a section hold for what stands before its end
    QTextBlockFormat format = m_formats.Paragraph(m_state.para, Marker());
    if (std::exchange(m_pageBreak, false))
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    if (++m_sections < kMostSections)
        format.setProperty(SectionBreak, m_section.isEmpty() ? QByteArray("\\sectd") : m_section);
    m_flow.EndParagraph(format, CharFormat(), 0);
    m_pageBreak = true;
}

// The automatic number of a footnote stands for nothing without the footnote, which keeps it.
void RtfReader::OnFootnoteMark(const Word&) {
    m_footnoteMark = InBody();
}

} // namespace platform
