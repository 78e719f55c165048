// The writer's inside; other code includes rtf_writer.h.
#pragma once

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <memory>
#include <vector>

#include "platform/rich_text/rtf_block_words.h"
#include "platform/rich_text/rtf_char_words.h"
#include "platform/rich_text/rtf_fields.h"
#include "platform/rich_text/rtf_numbers.h"
#include "platform/rich_text/rtf_output.h"

namespace platform {

// Where the columns of a table stand, in twips.
struct RtfTableEdges {
    int left = 0;
    std::vector<int> right;
    // For each column whose edge no cell ends at, the row that tells it by cells that are merged; else -1.
    std::vector<int> toldByRow;
};

// A part of a document that is written by itself: a paragraph outside of tables, or a table of the outermost
// level with all it holds.
struct RtfPart {
    QTextBlock first;
    QTextTable* table = nullptr; // null for a paragraph
};

// The part that holds `block`.
RtfPart PartAt(const QTextDocument& document, const QTextBlock& block);

// The block behind a part, invalid at the document's end.
QTextBlock BlockAfter(const QTextDocument& document, const RtfPart& part);

// Writes the parts of a document, each from a state that no other part leaves behind, so that a part's source
// depends on its content, the numbers of fonts and colours, and the fields around it alone.
class RtfBodyWriter {
public:
    // Without `withFields` all characters are taken to stand in none.
    RtfBodyWriter(const QTextDocument& document, bool withFields);

    // Whether any format of the document tells of a field or link.
    static bool HasFields(const QTextDocument& document);

    const RtfNumbers& Numbers() const { return m_numbers; }
    RtfFieldKeys& FieldKeys() { return m_fieldKeys; }

    // What fields the characters of a part stand in; empty when none does.
    RtfFieldSequence FieldsOf(const RtfPart& part);

    // Appends a part's source to `out`. Added fonts and colours that it needs are noted in `uses`.
    void Write(const RtfPart& part, const RtfFieldSteps& fields, RtfOutput& out, RtfNumbers::Uses& uses);

    // Whether the part that was written last ends a section.
    bool EndedSection() const { return m_endedSection; }

private:
    struct OpenField {
        RtfCharWords outside; // what holds again when the group ends
        bool openedBefore = false;
    };

    // What ends a paragraph.
    enum class Ending { Paragraph, Cell, NestedCell };

    // rtf_body_writer.cpp
    void WriteBlock(const QTextBlock& block, int level, Ending ending, bool atCellStart);
    void WriteStart(const RtfBlockFormats::Entry& paragraph, const RtfCharFormats::Entry& chars, int level);
    // What makes of the words in force those of the next characters.
    void WriteCharsAfter(const RtfCharWords& words, const RtfCharFormats::Entry& chars);
    void WriteRun(const QTextFragment& fragment, QStringView text, const RtfCharFormats::Entry& chars);
    void WriteEnding(const RtfBlockFormats::Entry& paragraph, Ending ending);
    void WriteObject(const QTextCharFormat& format);
    const RtfCharFormats::Entry& MarkOf(const QTextBlock& block, bool atCellStart);
    const RtfFieldStep* NextStep(RtfFieldKey key);
    void CloseFields(int count);
    void OpenGroup(int field);
    void OpenFields(const RtfFieldStep& step);
    void Note(const RtfNumbers::Uses& uses);
    void CollectFields(const QTextBlock& block, RtfFieldSequence& sequence);

    // rtf_table_writer.cpp
    void WriteTable(QTextTable& table, int level);
    void WriteRow(QTextTable& table, const RtfTableEdges& edges, int row, int level);
    void WriteRowDefinition(QTextTable& table, const RtfTableEdges& edges, int row);
    void WriteCellDefinition(QTextTable& table, const QTextTableCell& cell, int row);
    // Returns whether tables stand in the cell.
    bool WriteCell(const QTextTableCell& cell, int level);
    void WriteEmptyCell(int level);
    void WriteCellEnd(int level);

    const QTextDocument& m_document;
    RtfNumbers m_numbers;
    RtfBlockFormats m_blocks;
    RtfCharFormats m_chars;
    RtfFieldKeys m_fieldKeys;
    bool m_hasFields;

    RtfOutput* m_out = nullptr;
    RtfNumbers::Uses* m_uses = nullptr;
    RtfCharWords m_words; // in force
    std::vector<OpenField> m_open;
    const RtfFieldSteps* m_steps = nullptr;
    std::size_t m_nextStep = 0;
    RtfFieldKey m_key;
    bool m_restart = false; // the group that ended began in another paragraph: nothing is in force
    bool m_endedSection = false;
};

} // namespace platform
