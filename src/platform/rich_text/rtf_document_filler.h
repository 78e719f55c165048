#pragma once

#include <QSet>
#include <QTextCursor>

#include "platform/rich_text/rtf_flow.h"
#include "platform/rich_text/rtf_formats.h"

class QTextTable;

namespace platform {

struct RtfGrid;
struct RtfGridCell;

// Puts paragraphs and tables into a document at its end. One edit block lasts as long as the filler.
class RtfDocumentFiller final : public RtfSink {
public:
    RtfDocumentFiller(QTextDocument& document, const RtfFormats& formats, const RtfTables& tables);
    ~RtfDocumentFiller() override;

    void AddParagraph(RtfParagraph& paragraph) override;
    void AddTable(RtfTable& table) override;

    // Ends the document: an empty block left over from the last table is told to be no paragraph.
    void Finish();

private:
    void FillBlocks(std::vector<RtfBlock>& blocks);
    void AddGrid(RtfGrid& grid);
    void FillGrid(RtfGrid& grid, QTextTable& table);
    void SetCellFormat(const RtfGrid& grid, std::size_t row, const RtfGridCell& cell, QTextTable& table);
    void DrawBorders(const RtfCellDefinition& definition, QTextTableCellFormat& format) const;
    void MarkFiller();
    bool AtCellStart() const { return m_tablesOpen > 0 && m_blockIsFree && m_frameIsEmpty; }
    QByteArray Bounded(const QByteArray& controls);

    QTextCursor m_cursor;
    const RtfFormats& m_formats;
    const RtfTables& m_tables;
    QSet<QByteArray> m_controls;
    int m_tablesOpen = 0;
    bool m_blockIsFree = true;  // the block at the cursor belongs to no paragraph yet
    bool m_frameIsEmpty = true; // nothing stands before that block in its cell or document
};

} // namespace platform
