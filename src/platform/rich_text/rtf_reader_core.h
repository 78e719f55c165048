// The reader's inside; other code includes rtf_reader.h.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <array>
#include <memory>
#include <vector>

#include "platform/rich_text/rtf_code_pages.h"
#include "platform/rich_text/rtf_document_filler.h"
#include "platform/rich_text/rtf_flow.h"
#include "platform/rich_text/rtf_formats.h"
#include "platform/rich_text/rtf_pictures.h"
#include "platform/rich_text/rtf_tokenizer.h"

namespace platform {

class RtfReader;

// Arguments of the words that tell a list's numbers.
constexpr int kLevelKind = 0;
constexpr int kLevelStart = 1;
constexpr int kListId = 2;

// What the text of a group is.
enum class RtfDestination {
    Body,
    Ignored, // its words are obeyed for what follows in the group, its text is not shown
    FontTable,
    ColorTable,
    StyleSheet,
    FieldInstruction,
    Marker, // bullet or number of the paragraph as the writing program showed it
    OldList,
    OldListBefore,
    OldListAfter,
    ListTable,
    LevelText,
    Picture,
    Object,
    Unicode, // \upr: one group in the file's code page, one in Unicode
};

// One entry of the table of control words. `argument` tells words with a common handler apart.
struct RtfControlWord {
    using Handler = void (RtfReader::*)(const RtfControlWord& word);

    QLatin1StringView name;
    Handler handler = nullptr;
    int argument = 0;
    bool opensDestination = false; // stands at the start of a group, perhaps behind \*
};

// The entry of a control word, null for an unknown one.
const RtfControlWord* FindRtfControlWord(QByteArrayView name);

class RtfReader {
public:
    RtfReader(QByteArrayView source, QTextDocument& document);

    void Read();

private:
    friend struct RtfControlWords;
    using Word = RtfControlWord;

    // What a group saves at its start and gets back at its end.
    struct State {
        RtfDestination destination = RtfDestination::Body;
        RtfCharState chars;
        RtfParaState para;
        const RtfDecoder* decoder = nullptr; // null for a symbol font
        int unicodeSkip = 1;                 // \uc
        int field = 0;                       // number of the field around
        qsizetype begin = 0;                 // where the group starts in the source
        bool opensField = false;
        bool inOverride = false;                       // of a list override table
        RtfDestination outside = RtfDestination::Body; // of a group with two forms: what both stand in
    };

    struct Field {
        QString instruction;
        int hyperlink = 0;
        bool hasResult = false;
        qsizetype paragraphs = 0; // what stood before it
        qsizetype textLength = 0;
    };

    struct ListLevelDefinition {
        int kind = 0; // \levelnfc
        int start = 1;
        QString text; // characters 0 to 8 stand for the numbers of levels
    };

    struct ListDefinition {
        std::array<ListLevelDefinition, 9> levels;
        std::array<int, 9> counters{};
    };

    struct Style {
        RtfCharState chars;
        RtfParaState para;
    };

    enum class BorderTarget { None, Paragraph, Cell, Row };

    // rtf_reader.cpp: groups and text
    void OpenGroup();
    void CloseGroup();
    void LeaveGroup(const State& closed);
    void OnWord();
    void OnSymbol(char symbol);
    void OnText(QByteArrayView bytes);
    void OnHexByte(char byte);
    void AppendBytes(QByteArrayView bytes);
    void AppendToBody(QByteArrayView bytes);
    void AppendText(QStringView text);
    void AppendCharacter(char16_t character);
    void AppendUnicode(char32_t character);
    void AppendCapture(QStringView text);
    void FlushBytes();
    void SkipGroup();
    QByteArray KeepGroup();
    QByteArray SourceFrom(qsizetype begin) const;
    int CharFormat();
    void ForgetFormats();
    void ChooseDecoder();
    bool InBody() const { return m_state.destination == RtfDestination::Body; }
    int Parameter(int otherwise) const { return m_token.hasParameter ? m_token.parameter : otherwise; }
    int Twips() const;
    void Finish();
    void SetDocumentFormat();
    void AppendControls(QByteArray& controls) const;

    // rtf_reader_text.cpp: characters that words stand for, code pages, Unicode
    void OnCharacter(const Word& word);
    void OnUnicode(const Word& word);
    void OnUnicodeSkip(const Word& word);
    void OnCodePage(const Word& word);
    void OnUnicodeForms(const Word& word);
    void OnUnicodeForm(const Word& word);
    void OnParagraphEnd(const Word& word);
    void OnPage(const Word& word);
    void OnSectionEnd(const Word& word);
    void OnFootnoteMark(const Word& word);
    void EndParagraph();

    // rtf_reader_characters.cpp
    void OnPlain(const Word& word);
    void OnCharFlag(const Word& word);
    void OnUnderline(const Word& word);
    void OnScript(const Word& word);
    void OnFont(const Word& word);
    void OnFontSize(const Word& word);
    void OnCharNumber(const Word& word);
    void OnCharTwips(const Word& word);
    void OnBaseline(const Word& word);
    void OnCharStyle(const Word& word);

    // rtf_reader_paragraphs.cpp: also document and section
    void OnParagraphDefaults(const Word& word);
    void OnAlignment(const Word& word);
    void OnParaTwips(const Word& word);
    void OnParaFlag(const Word& word);
    void OnParaNumber(const Word& word);
    void OnLineMultiple(const Word& word);
    void OnTab(const Word& word);
    void OnTabKind(const Word& word);
    void OnParaStyle(const Word& word);
    void ApplyStyle(const Style& style);
    void OnParaBorder(const Word& word);
    void OnBorder(const Word& word);
    void OnDocumentNumber(const Word& word);
    void OnDocumentControl(const Word& word);
    void OnSectionDefaults(const Word& word);
    void OnSectionControl(const Word& word);
    void OnDefaultFont(const Word& word);

    // rtf_reader_tables.cpp: tables of the text
    void OnRowDefaults(const Word& word);
    void OnRowNumber(const Word& word);
    void OnRowControl(const Word& word);
    void OnRowPadding(const Word& word);
    void OnCellEdge(const Word& word);
    void OnCellFlag(const Word& word);
    void OnCellNumber(const Word& word);
    void OnCellControl(const Word& word);
    void OnCellPadding(const Word& word);
    void OnCellBorder(const Word& word);
    void OnRowBorder(const Word& word);
    void OnCell(const Word& word);
    void OnRow(const Word& word);
    int TableLevel(bool nested) const;
    bool IsOutsideTables(bool nested) const;

    // rtf_reader_destinations.cpp: fonts, colours, styles, kept and skipped groups, objects
    void OnSkippedGroup(const Word& word);
    void OnIgnoredRest(const Word& word);
    void OnTransparentGroup(const Word& word);
    void OnObjectResult(const Word& word);
    void OnKeptGroup(const Word& word);
    void OnEmbeddedGroup(const Word& word);
    void OnDestination(const Word& word);
    void OnFontAttribute(const Word& word);
    void OnColorPart(const Word& word);
    void AppendFontNames(QStringView text);
    void EndFontName();
    void AppendColors(QByteArrayView bytes);
    void KeepTable(const State& closed);
    void EndStyle(const State& closed);
    void EndObject(const State& closed);
    void AppendObject(const QByteArray& source);

    // rtf_reader_fields.cpp
    void OnField(const Word& word);
    void OnFieldInstruction(const Word& word);
    void OnFieldResult(const Word& word);
    void EndFieldInstruction(const State& closed);
    void EndField(const State& closed);

    // rtf_reader_lists.cpp
    void OnOldListKind(const Word& word);
    void OnOldListStart(const Word& word);
    void OnList(const Word& word);
    void OnListNumber(const Word& word);
    void OnParagraphList(const Word& word);
    QString Marker();
    QString NextNumber(ListDefinition& list, int level);
    QString NextOldNumber(const RtfOldList& list);
    ListDefinition* ListOf(int override);

    // rtf_reader_pictures.cpp
    void OnPicture(const Word& word);
    void OnPictureKind(const Word& word);
    void OnPictureNumber(const Word& word);
    void EndPicture();

    RtfTokenizer m_tokenizer;
    QTextDocument& m_document;
    RtfTables m_tables;
    RtfFormats m_formats;
    RtfDocumentFiller m_filler;
    RtfFlow m_flow;
    RtfToken m_token;

    State m_state;
    std::vector<State> m_states;
    bool m_groupJustOpened = false;
    bool m_groupIsFresh = false; // nothing but words stood in the group so far
    bool m_optional = false;     // \* stood before
    bool m_done = false;
    int m_bytesToSkip = 0; // that stand for the last \u
    QByteArray m_bytes;    // of a code page of several bytes, not decoded yet
    QString m_decoded;
    QString m_capture; // text of a group that is no body
    RtfCharState m_lastChars;
    int m_lastFormat = -1;

    int m_codePage = 1252;
    int m_font = 0; // entry of the font table being read
    RtfColor m_color;
    int m_style = -1;
    QHash<int, Style> m_styles;

    std::vector<Field> m_fields;
    RtfOldList m_oldList;
    RtfOldList m_countedList; // of the paragraph before
    int m_oldNumber = 0;
    QString m_marker;
    bool m_hasMarker = false;
    std::vector<ListDefinition> m_lists;
    int m_listLevel = -1;
    QHash<int, int> m_overrides;   // number of the override -> number in m_lists
    QHash<int, int> m_listNumbers; // \listid -> number in m_lists
    int m_overrideId = 0;

    RtfPictures m_pictures;
    RtfPicture m_picture;
    int m_objects = 0;
    qsizetype m_objectParagraphs = 0;
    qsizetype m_objectText = 0;
    bool m_footnoteMark = false;

    RtfRowDefinition m_row;
    RtfCellDefinition m_cell;
    std::shared_ptr<const RtfRowDefinition> m_sharedRow; // m_row as rows hold it; null when m_row changed
    BorderTarget m_borderTarget = BorderTarget::None;
    std::array<bool, 4> m_borderSides{}; // of the cell

    QTextOption::TabType m_tabType = QTextOption::LeftTab;
    bool m_pageBreak = false; // before the next paragraph
    int m_sections = 0;
    QByteArray m_section;
    QByteArray m_documentControls;
    QHash<int, QVariant> m_documentValues;
    QVariantList m_headers;
    QByteArray m_listTables;
    RtfParaState m_lastPara;
    QString m_lastMarker;
    QTextBlockFormat m_lastBlockFormat;
    bool m_hasLastBlockFormat = false;
};

} // namespace platform
