#include "library/form_document.h"

#include "library/form_formats.h"
#include "library/form_table.h"
#include "library/list_numbering.h"
#include "platform/rich_text/document_model.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <algorithm>
#include <utility>

namespace quillbrook {
namespace {

constexpr int kDefaultLanguage = 1033; // English, United States

class DocumentMaker {
public:
    explicit DocumentMaker(QTextDocument& document)
        : m_document(document)
        , m_cursor(&document) {}

    void Make(const std::vector<Block>& blocks) {
        m_cursor.beginEditBlock();
        for (std::size_t i = 0; i < blocks.size(); ++i)
            AddBlock(blocks[i], i + 1 < blocks.size() ? &blocks[i + 1] : nullptr);
        if (m_blockIsFree && !blocks.empty()) // room to write on behind a table
            AddParagraph(QTextBlockFormat(), {}, TextFormat(), false);
        m_cursor.endEditBlock();
        SetPage();
    }

private:
    void AddBlock(const Block& block, const Block* next) {
        if (const auto* table = std::get_if<Table>(&block.content))
            return AddTable(*table);
        if (m_afterTable)
            AddGap(false);
        const bool wasMarker = std::exchange(m_afterMarker, false);
        if (const auto* paragraph = std::get_if<Paragraph>(&block.content)) {
            m_afterMarker = IsMarker(paragraph->runs);
            QTextBlockFormat format = ParagraphFormat(*paragraph, NeighboursOf(*paragraph, next));
            if (wasMarker && !m_afterMarker) // a clause has no space below, but one above
                format.setTopMargin(std::max(format.topMargin(), platform::TwipsToPixels(kLine)));
            AddParagraph(format,
                         paragraph->kind == ParagraphClass::Sign ? FitSignatureLines(paragraph->runs)
                                                                 : paragraph->runs,
                         ParagraphTextFormat(paragraph->kind), block.newPage);
        } else {
            AddList(std::get<List>(block.content), 0, block.newPage);
        }
        if (next && std::holds_alternative<Table>(next->content)) { // the gap before the table is the space
            QTextBlockFormat flush;
            flush.setBottomMargin(0);
            if (m_cursor.block().text().trimmed().endsWith(u':')) // it says what the table is
                flush.setProperty(platform::KeepWithNext, true);
            m_cursor.mergeBlockFormat(flush);
        }
    }

    Neighbours NeighboursOf(const Paragraph& paragraph, const Block* next) const {
        Neighbours neighbours;
        const auto* behind = next ? std::get_if<Paragraph>(&next->content) : nullptr;
        const auto* table = next ? std::get_if<Table>(&next->content) : nullptr;
        if (behind && IsSignature(behind->kind)) {
            neighbours.beforeSignature = true;
            neighbours.continuesSignature = behind->kind == paragraph.kind;
        } else if (table && IsSignatureTable(*table)) {
            neighbours.beforeSignature = true;
        }
        return neighbours;
    }

    void AddParagraph(QTextBlockFormat format, const Runs& runs, const QTextCharFormat& text, bool newPage) {
        if (newPage)
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        if (m_blockIsFree) {
            m_cursor.setBlockFormat(format);
            m_cursor.setBlockCharFormat(text);
        } else {
            m_cursor.insertBlock(format, text);
        }
        const bool isJustified = format.alignment() == Qt::AlignJustify;
        for (const Run& run : isJustified ? ShortenBlanks(runs) : runs)
            m_cursor.insertText(run.text, RunFormat(run, text));
        m_blockIsFree = false;
        m_afterTable = false;
    }

    void AddList(const List& list, int level, bool newPage) {
        const int listNumber = m_lists.Add(list);
        int number = list.start;
        for (const ListItem& item : list.items) {
            AddParagraph(ListItemFormat(level, MarkerText(list, number++), listNumber),
                         WithBoldBracket(item.runs), TextFormat(), std::exchange(newPage, false));
            for (const List& nested : item.nested)
                AddList(nested, level + 1, false);
        }
    }

    // A low paragraph parts each table from what stands before and behind it: spaces of paragraphs have no
    // effect beside a table, empty paragraphs no height, and readers would join two tables that follow each
    // other.
    void AddGap(bool keepWithNext) {
        QTextBlockFormat format;
        if (keepWithNext)
            format.setProperty(platform::KeepWithNext, true);
        QTextCharFormat text = TextFormat();
        text.setFontPointSize(kGapSize);
        AddParagraph(format, {Run{QString(QChar::Nbsp)}}, text, false);
    }

    void AddTable(const Table& table) {
        AddGap(true);
        InsertFormTable(m_cursor, table);
        m_blockIsFree = true;
        m_afterTable = true;
    }

    void SetPage() {
        QTextFrameFormat page = m_document.rootFrame()->frameFormat();
        page.setProperty(platform::PaperWidth, kPaperWidth);
        page.setProperty(platform::PaperHeight, kPaperHeight);
        page.setProperty(platform::MarginLeft, kMarginLeft);
        page.setProperty(platform::MarginRight, kMarginRight);
        page.setProperty(platform::MarginTop, kMarginTop);
        page.setProperty(platform::MarginBottom, kMarginBottom);
        page.setProperty(platform::DefaultTab, kHalfInch);
        page.setProperty(platform::DefaultLanguage, kDefaultLanguage);
        if (const QByteArray lists = m_lists.Source(); !lists.isEmpty())
            page.setProperty(platform::ListTables, lists);
        m_document.rootFrame()->setFrameFormat(page);
    }

    QTextDocument& m_document;
    QTextCursor m_cursor;
    ListTable m_lists;
    bool m_blockIsFree = true; // the cursor stands in an empty paragraph that is not of the form yet
    bool m_afterTable = false;
    bool m_afterMarker = false;
};

} // namespace

std::unique_ptr<QTextDocument> MakeFormDocument(const std::vector<Block>& blocks) {
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    QFont font;
    font.setFamilies({QStringLiteral("Times New Roman")});
    font.setStyleHint(QFont::Serif);
    font.setPointSizeF(kFontSize);
    document->setDefaultFont(font);
    QTextOption option = document->defaultTextOption();
    option.setTabStopDistance(platform::TwipsToPixels(kHalfInch));
    document->setDefaultTextOption(option);
    document->setDocumentMargin(0);
    DocumentMaker(*document).Make(blocks);
    return document;
}

} // namespace quillbrook
