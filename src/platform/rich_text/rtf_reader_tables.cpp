// Rows and cells of tables.
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {

constexpr int kWidestGap = 720; // twips

void RtfReader::OnRowDefaults(const Word&) {
    m_row = {};
    m_cell = {};
    m_sharedRow.reset();
    m_borderTarget = BorderTarget::None;
}

void RtfReader::OnRowNumber(const Word& word) {
    if (word.argument == 0)
        m_row.left = Twips();
    else
        m_row.gap = std::clamp(Twips(), 0, kWidestGap);
    AppendControls(m_row.controls);
    m_sharedRow.reset();
}

void RtfReader::OnRowControl(const Word&) {
    AppendControls(m_row.controls);
    m_sharedRow.reset();
}

// Word processors write the left padding of a cell under the name of the upper one: only the right one can be
// trusted, and the two hardly ever differ.
void RtfReader::OnRowPadding(const Word& word) {
    m_row.padding = std::clamp(Twips(), 0, kWidestGap);
    OnRowControl(word);
}

void RtfReader::OnCellEdge(const Word&) {
    m_cell.right = Twips();
    if (m_row.cells.size() < static_cast<std::size_t>(kMostColumns))
        m_row.cells.push_back(std::move(m_cell));
    m_cell = {};
    m_borderTarget = BorderTarget::None;
    m_sharedRow.reset();
}

void RtfReader::OnCellFlag(const Word& word) {
    static constexpr bool RtfCellDefinition::*kMembers[] = {
        &RtfCellDefinition::mergesNext, &RtfCellDefinition::mergedWithPrevious,
        &RtfCellDefinition::mergesBelow, &RtfCellDefinition::mergedWithAbove};
    m_cell.*kMembers[word.argument] = true;
}

void RtfReader::OnCellNumber(const Word& word) {
    if (word.argument < 0)
        m_cell.background = std::clamp(m_token.parameter, 0, 0xFFFF);
    else
        m_cell.verticalAlignment = word.argument;
}

void RtfReader::OnCellControl(const Word&) {
    AppendControls(m_cell.controls);
}

void RtfReader::OnCellPadding(const Word& word) {
    m_cell.padding = std::clamp(Twips(), 0, kWidestGap);
    OnCellControl(word);
}

void RtfReader::OnCellBorder(const Word& word) {
    AppendControls(m_cell.controls);
    m_borderTarget = BorderTarget::Cell;
    for (std::size_t side = 0; side < m_borderSides.size(); ++side)
        m_borderSides[side] = static_cast<int>(side) == word.argument;
}

void RtfReader::OnRowBorder(const Word&) {
    AppendControls(m_row.controls);
    m_borderTarget = BorderTarget::Row;
    m_sharedRow.reset();
}

int RtfReader::TableLevel(bool nested) const {
    return nested ? std::max(2, m_state.para.tableLevel) : 1;
}

// No row was told of, nor is the paragraph in one: then ends of cells mean nothing, those of rows a
// paragraph's.
bool RtfReader::IsOutsideTables(bool nested) const {
    return !nested && !m_state.para.inTable && m_row.cells.empty() && !m_flow.InTable();
}

void RtfReader::OnCell(const Word& word) {
    const bool nested = word.argument != 0;
    if (!InBody() || IsOutsideTables(nested))
        return;
    const RtfParaState saved = m_state.para;
    m_state.para.inTable = true;
    m_state.para.tableLevel = TableLevel(nested);
    EndParagraph();
    m_flow.EndCell(TableLevel(nested));
    m_state.para = saved;
}

void RtfReader::OnRow(const Word& word) {
    if (!InBody())
        return;
    const bool nested = word.argument != 0;
    if (IsOutsideTables(nested)) {
        if (m_flow.HasText())
            EndParagraph();
        return;
    }
    const int level = TableLevel(nested);
    if (m_flow.HasText())
        OnCell(word);
    if (!m_sharedRow)
        m_sharedRow = std::make_shared<const RtfRowDefinition>(m_row);
    m_flow.EndRow(level, m_row.cells.empty() ? nullptr : m_sharedRow);
}

} // namespace platform
