// Formats of characters.
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {

void RtfReader::OnPlain(const Word&) {
    RtfCharState plain;
    plain.field = m_state.chars.field;
    plain.hyperlink = m_state.chars.hyperlink;
    m_state.chars = plain;
    ChooseDecoder();
}

void RtfReader::OnCharFlag(const Word& word) {
    m_state.chars.Set(static_cast<RtfCharState::Flag>(word.argument), Parameter(1) != 0);
}

void RtfReader::OnUnderline(const Word& word) {
    const bool on = word.argument >= 0 && Parameter(1) != 0;
    m_state.chars.Set(RtfCharState::Underline, on);
    m_state.chars.underline = on ? word.argument : 0;
}

void RtfReader::OnScript(const Word& word) {
    m_state.chars.Set(RtfCharState::Superscript, false);
    m_state.chars.Set(RtfCharState::Subscript, false);
    if (word.argument != 0 && Parameter(1) != 0)
        m_state.chars.Set(static_cast<RtfCharState::Flag>(word.argument), true);
}

void RtfReader::OnFont(const Word&) {
    if (m_state.destination == RtfDestination::FontTable) {
        EndFontName();
        m_font = std::max(0, m_token.parameter);
        if (m_tables.fonts.size() < kMostFonts)
            m_tables.fonts[m_font] = {};
        m_state.decoder = &RtfDecoder::Of(m_codePage);
        return;
    }
    m_state.chars.font = std::max(0, m_token.parameter);
    ChooseDecoder();
}

void RtfReader::OnFontSize(const Word&) {
    const int halfPoints = Parameter(24);
    if (halfPoints > 0)
        m_state.chars.halfPoints = std::min(halfPoints, kMostHalfPoints);
}

void RtfReader::OnCharNumber(const Word& word) {
    static constexpr int RtfCharState::*kMembers[] = {&RtfCharState::color, &RtfCharState::highlight,
                                                      &RtfCharState::background, &RtfCharState::language,
                                                      &RtfCharState::kerning};
    m_state.chars.*kMembers[word.argument] = std::clamp(m_token.parameter, 0, 0xFFFF);
}

void RtfReader::OnCharTwips(const Word&) {
    m_state.chars.spacing = std::clamp(m_token.parameter, -1'000, 1'000);
}

void RtfReader::OnBaseline(const Word& word) {
    m_state.chars.baseline = word.argument * std::clamp(Parameter(6), 0, kMostHalfPoints);
}

void RtfReader::OnCharStyle(const Word&) {
    if (m_state.destination == RtfDestination::StyleSheet)
        m_style = -1; // only styles of paragraphs are applied; text repeats what its style says
    else
        m_state.chars.style = std::clamp(m_token.parameter, 0, 0xFFFF);
}

} // namespace platform
