#pragma once

#include <QByteArray>
#include <QString>
#include <QTextFormat>
#include <array>
#include <memory>
#include <vector>

namespace platform {

struct RtfRun {
    qsizetype length = 0;
    int format = 0; // number in RtfFormats
};

struct RtfParagraph {
    QString text;
    std::vector<RtfRun> runs;
    QTextBlockFormat format;
    int markFormat = 0; // format of the paragraph's end
};

struct RtfBorder {
    int width = 0; // twips, 0 for none
    int style = 0; // QTextFrameFormat::BorderStyle
    int color = 0; // number in the colour table
};

struct RtfCellDefinition {
    int right = 0; // twips from the page's left margin
    bool mergesNext = false;
    bool mergedWithPrevious = false;
    bool mergesBelow = false;
    bool mergedWithAbove = false;
    int verticalAlignment = 0;        // QTextCharFormat::VerticalAlignment
    int background = 0;               // number in the colour table
    int padding = 0;                  // twips, right of the text
    std::array<RtfBorder, 4> borders; // top, left, bottom, right
    QByteArray controls;
};

struct RtfRowDefinition {
    int left = 0;    // twips
    int gap = 0;     // twips, half the space between the texts of neighbouring cells
    int padding = 0; // twips, right of the text of each cell, where there is no gap
    QByteArray controls;
    std::vector<RtfCellDefinition> cells;
};

struct RtfTable;

// A paragraph, or a table where there is one.
struct RtfBlock {
    RtfParagraph paragraph;
    std::unique_ptr<RtfTable> table;
};

struct RtfCell {
    std::vector<RtfBlock> blocks;
};

struct RtfRow {
    std::vector<RtfCell> cells;
    std::shared_ptr<const RtfRowDefinition> definition; // null when the file told none
};

struct RtfTable {
    std::vector<RtfRow> rows;
};

// Takes the paragraphs and tables of a flow of text in their order.
class RtfSink {
public:
    virtual ~RtfSink() = default;
    virtual void AddParagraph(RtfParagraph& paragraph) = 0;
    virtual void AddTable(RtfTable& table) = 0;
};

// Gathers text into paragraphs, paragraphs into cells, cells into rows and tables; what is whole goes to the
// sink. Levels count tables inside one another: 0 is outside of all.
class RtfFlow {
public:
    // `mostCells` is how many table cells are honoured; the text of further ones stands outside of tables.
    RtfFlow(RtfSink& sink, qsizetype mostCells);

    // Makes room for `length` characters of a format at the end of the open paragraph; the caller writes
    // them.
    QChar* Extend(qsizetype length, int format);
    void Append(QStringView text, int format);

    bool HasText() const { return !m_paragraph.text.isEmpty(); }
    qsizetype TextLength() const { return m_paragraph.text.size(); }
    qsizetype Paragraphs() const { return m_paragraphs; }

    bool LastIsObject() const { return m_paragraph.text.endsWith(QChar::ObjectReplacementCharacter); }
    // Format of the last character of the open paragraph, which must have one.
    int LastFormat() const { return m_paragraph.runs.back().format; }
    // Gives the last character of the open paragraph another format.
    void ReformatLast(int format);

    void EndParagraph(const QTextBlockFormat& format, int markFormat, int level);
    // Ends the cell that the paragraphs of this level went into.
    void EndCell(int level);
    void EndRow(int level, std::shared_ptr<const RtfRowDefinition> definition);
    // Whether a table has begun and nothing outside of it followed yet.
    bool InTable() const { return !m_open.empty(); }
    // Gives the sink all that is still held; of tables only whole cells with `cellsOnly`. The open paragraph
    // is left out: end it before when it counts.
    void Finish(bool cellsOnly);

private:
    struct OpenTable {
        RtfTable table;
        RtfRow row;
        RtfCell cell;
    };

    int Settle(int level);
    void CloseTable();
    void RepairSurrogates();

    RtfSink& m_sink;
    RtfParagraph m_paragraph;
    std::vector<OpenTable> m_open;
    qsizetype m_cellsLeft;
    qsizetype m_paragraphs = 0;
};

} // namespace platform
