// Formats of paragraphs; controls of the document and its sections.
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {

void RtfReader::OnParagraphDefaults(const Word&) {
    m_state.para = {};
    m_borderTarget = BorderTarget::None;
    m_tabType = QTextOption::LeftTab;
}

void RtfReader::OnAlignment(const Word& word) {
    m_state.para.alignment = word.argument;
}

void RtfReader::OnParaTwips(const Word& word) {
    static constexpr int RtfParaState::*kMembers[] = {&RtfParaState::left,      &RtfParaState::right,
                                                      &RtfParaState::firstLine, &RtfParaState::before,
                                                      &RtfParaState::after,     &RtfParaState::lineHeight};
    m_state.para.*kMembers[word.argument] = Twips();
}

void RtfReader::OnParaFlag(const Word& word) {
    static constexpr bool RtfParaState::*kMembers[] = {
        &RtfParaState::keepTogether, &RtfParaState::keepWithNext, &RtfParaState::pageBreakBefore,
        &RtfParaState::widowControl, &RtfParaState::inTable};
    m_state.para.*kMembers[word.argument] = Parameter(1) != 0;
}

void RtfReader::OnParaNumber(const Word& word) {
    static constexpr int RtfParaState::*kMembers[] = {&RtfParaState::outline, &RtfParaState::shading,
                                                      &RtfParaState::background, &RtfParaState::tableLevel,
                                                      &RtfParaState::listLevel};
    m_state.para.*kMembers[word.argument] = std::clamp(m_token.parameter, 0, 0x7FFF);
}

void RtfReader::OnLineMultiple(const Word& word) {
    if (word.argument == 0)
        m_state.para.lineHeightIsMultiple = Parameter(1) != 0;
    else
        m_state.para.rightToLeft = word.argument == 1;
}

void RtfReader::OnTab(const Word&) {
    if (m_state.para.tabs.size() < kMostTabs && m_state.destination != RtfDestination::StyleSheet)
        m_state.para.tabs.append({Twips(), m_tabType});
    m_tabType = QTextOption::LeftTab;
}

void RtfReader::OnTabKind(const Word& word) {
    m_tabType = static_cast<QTextOption::TabType>(word.argument);
}

void RtfReader::OnParaStyle(const Word&) {
    const int number = std::clamp(m_token.parameter, 0, 0xFFFF);
    if (m_state.destination == RtfDestination::StyleSheet) {
        m_style = number;
        return;
    }
    m_state.para.style = number;
    const auto style = m_styles.constFind(number);
    if (!InBody() || style == m_styles.constEnd())
        return;
    ApplyStyle(*style);
}

// Sets what a style tells and nothing has told otherwise since the last \\pard and \\plain.
void RtfReader::ApplyStyle(const Style& style) {
    const RtfParaState unset;
    static constexpr int RtfParaState::*kNumbers[] = {
        &RtfParaState::alignment, &RtfParaState::left,  &RtfParaState::right,      &RtfParaState::firstLine,
        &RtfParaState::before,    &RtfParaState::after, &RtfParaState::lineHeight, &RtfParaState::outline};
    for (const auto member : kNumbers) {
        if (m_state.para.*member == unset.*member)
            m_state.para.*member = style.para.*member;
    }
    if (m_state.para.lineHeight == style.para.lineHeight)
        m_state.para.lineHeightIsMultiple = style.para.lineHeightIsMultiple;
    RtfCharState plain;
    plain.field = m_state.chars.field;
    plain.hyperlink = m_state.chars.hyperlink;
    if (m_state.chars != plain)
        return;
    m_state.chars = style.chars;
    m_state.chars.field = plain.field;
    m_state.chars.hyperlink = plain.hyperlink;
    ChooseDecoder();
}

void RtfReader::OnParaBorder(const Word&) {
    m_borderTarget = BorderTarget::Paragraph;
    AppendControls(m_state.para.borders);
}

// Kind, width and colour of the border that the last word began.
void RtfReader::OnBorder(const Word& word) {
    switch (m_borderTarget) {
    case BorderTarget::None:
        return;
    case BorderTarget::Paragraph:
        AppendControls(m_state.para.borders);
        return;
    case BorderTarget::Row:
        AppendControls(m_row.controls);
        m_sharedRow.reset();
        return;
    case BorderTarget::Cell:
        break;
    }
    AppendControls(m_cell.controls);
    for (std::size_t side = 0; side < m_borderSides.size(); ++side) {
        RtfBorder& border = m_cell.borders[side];
        if (!m_borderSides[side])
            continue;
        if (word.argument >= 0) { // a kind: QTextFrameFormat::BorderStyle
            border.style = word.argument;
            border.width =
                word.argument == QTextFrameFormat::BorderStyle_None ? 0 : std::max(border.width, 15);
        } else if (word.argument == -1) {
            border.width =
                border.style == QTextFrameFormat::BorderStyle_None ? 0 : std::clamp(Twips(), 1, 240);
        } else if (word.argument == -2) {
            border.color = std::clamp(m_token.parameter, 0, 0xFFFF);
        }
    }
}

void RtfReader::OnDocumentNumber(const Word& word) {
    if (word.argument == Landscape)
        m_documentValues.insert(Landscape, true);
    else
        m_documentValues.insert(word.argument, Twips());
}

void RtfReader::OnDocumentControl(const Word&) {
    if (InBody())
        AppendControls(m_documentControls);
}

void RtfReader::OnSectionDefaults(const Word&) {
    if (InBody())
        m_section = "\\sectd";
}

void RtfReader::OnSectionControl(const Word&) {
    if (InBody())
        AppendControls(m_section);
}

void RtfReader::OnDefaultFont(const Word&) {
    m_tables.defaultFont = std::max(0, m_token.parameter);
    m_documentValues.insert(DefaultFont, m_tables.defaultFont);
    ForgetFormats();
}

} // namespace platform
