#include "platform/rich_text/rtf_flow.h"

#include <algorithm>

#include "platform/rich_text/rtf_limits.h"

namespace platform {

RtfFlow::RtfFlow(RtfSink& sink, qsizetype mostCells)
    : m_sink(sink)
    , m_cellsLeft(mostCells) {}

QChar* RtfFlow::Extend(qsizetype length, int format) {
    const qsizetype start = m_paragraph.text.size();
    m_paragraph.text.resize(start + length);
    if (!m_paragraph.runs.empty() && m_paragraph.runs.back().format == format)
        m_paragraph.runs.back().length += length;
    else
        m_paragraph.runs.push_back({length, format});
    return m_paragraph.text.data() + start;
}

void RtfFlow::Append(QStringView text, int format) {
    if (!text.isEmpty())
        std::copy(text.begin(), text.end(), Extend(text.size(), format));
}

void RtfFlow::ReformatLast(int format) {
    if (m_paragraph.runs.empty())
        return;
    if (--m_paragraph.runs.back().length == 0)
        m_paragraph.runs.pop_back();
    m_paragraph.runs.push_back({1, format});
}

// Half of a character beyond U+FFFF alone is no text.
void RtfFlow::RepairSurrogates() {
    QString& text = m_paragraph.text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else
            text[i] = QChar(QChar::ReplacementCharacter);
    }
}

void RtfFlow::EndParagraph(const QTextBlockFormat& format, int markFormat, int level) {
    level = Settle(level);
    RepairSurrogates();
    m_paragraph.format = format;
    m_paragraph.markFormat = markFormat;
    ++m_paragraphs;
    if (level == 0) {
        m_sink.AddParagraph(m_paragraph);
        m_paragraph.text.resize(0);
        m_paragraph.runs.clear();
    } else {
        m_paragraph.text.squeeze();
        m_paragraph.runs.shrink_to_fit();
        m_open.back().cell.blocks.push_back({std::move(m_paragraph), nullptr});
        m_paragraph = {};
    }
}

void RtfFlow::EndCell(int level) {
    if (level > kMostTableLevels)
        return; // its paragraphs stand in the cell around it
    if (Settle(level) == 0)
        return;
    OpenTable& open = m_open.back();
    if (open.row.cells.size() >= static_cast<std::size_t>(kMostColumns)) {
        auto& last = open.row.cells.back().blocks;
        std::move(open.cell.blocks.begin(), open.cell.blocks.end(), std::back_inserter(last));
    } else {
        open.row.cells.push_back(std::move(open.cell));
        --m_cellsLeft;
    }
    open.cell = {};
}

void RtfFlow::EndRow(int level, std::shared_ptr<const RtfRowDefinition> definition) {
    if (level > kMostTableLevels || Settle(level) == 0)
        return;
    if (!m_open.back().cell.blocks.empty())
        EndCell(level);
    OpenTable& open = m_open.back();
    if (open.row.cells.empty())
        return;
    open.row.definition = std::move(definition);
    open.table.rows.push_back(std::move(open.row));
    open.row = {};
}

void RtfFlow::Finish(bool cellsOnly) {
    while (!m_open.empty()) {
        if (cellsOnly)
            m_open.back().cell.blocks.clear();
        CloseTable();
    }
}

// Closes and opens tables until `level`, held to what is honoured, is the open one; returns it.
int RtfFlow::Settle(int level) {
    level = std::clamp(level, 0, m_cellsLeft > 0 ? kMostTableLevels : 0);
    while (m_open.size() > static_cast<std::size_t>(level))
        CloseTable();
    while (m_open.size() < static_cast<std::size_t>(level))
        m_open.emplace_back();
    return level;
}

// A row without its end still counts; paragraphs that no cell's end followed stand behind the table, but for
// empty ones, which only tell that no \\pard followed the last row.
void RtfFlow::CloseTable() {
    OpenTable open = std::move(m_open.back());
    m_open.pop_back();
    auto& pending = open.cell.blocks;
    const bool isEmpty = std::all_of(pending.begin(), pending.end(), [](const RtfBlock& block) {
        return !block.table && block.paragraph.text.isEmpty();
    });
    if (isEmpty && !open.table.rows.empty())
        pending.clear();
    if (!open.row.cells.empty()) {
        if (!open.table.rows.empty())
            open.row.definition = open.table.rows.back().definition;
        open.table.rows.push_back(std::move(open.row));
    }
    if (!open.table.rows.empty()) {
        if (m_open.empty())
            m_sink.AddTable(open.table);
        else
            m_open.back().cell.blocks.push_back({{}, std::make_unique<RtfTable>(std::move(open.table))});
    }
    for (RtfBlock& block : open.cell.blocks) {
        if (!m_open.empty())
            m_open.back().cell.blocks.push_back(std::move(block));
        else if (block.table)
            m_sink.AddTable(*block.table);
        else
            m_sink.AddParagraph(block.paragraph);
    }
}

} // namespace platform
