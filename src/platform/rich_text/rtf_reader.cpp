#include "platform/rich_text/rtf_reader.h"

#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {
namespace {

bool IsAscii(QByteArrayView bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

// Characters that a QTextDocument takes for its own marks.
char16_t Harmless(char16_t character) {
    switch (character) {
    case 0xFDD0:
    case 0xFDD1:
    case QChar::ObjectReplacementCharacter:
        return QChar::ReplacementCharacter;
    case QChar::ParagraphSeparator:
        return QChar::LineSeparator;
    default:
        return character;
    }
}

} // namespace

std::unique_ptr<QTextDocument> ReadRtf(QByteArrayView source) {
    if (source.startsWith(QByteArrayView("\xEF\xBB\xBF")))
        source = source.sliced(3);
    qsizetype start = 0;
    while (start < source.size() && QByteArrayView(" \t\r\n\0", 5).contains(source[start]))
        ++start;
    source = source.sliced(start);
    if (!source.startsWith(QByteArrayView("{\\rtf")))
        return nullptr;
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    RtfReader(source, *document).Read();
    return document;
}

RtfReader::RtfReader(QByteArrayView source, QTextDocument& document)
    : m_tokenizer(source)
    , m_document(document)
    , m_formats(m_tables)
    , m_filler(document, m_formats, m_tables)
    , m_flow(m_filler, std::min<qsizetype>(kMostCells, source.size() / 8 + 64))
    , m_pictures(document) {
    m_formats.Index(RtfCharState());
    m_state.decoder = &RtfDecoder::Of(m_codePage);
}

void RtfReader::Read() {
    while (!m_done && m_tokenizer.Next(m_token)) {
        const bool justOpened = std::exchange(m_groupJustOpened, false);
        const bool fresh = std::exchange(m_groupIsFresh, false);
        switch (m_token.kind) {
        case RtfTokenKind::Text:
            // careless programs write "{ \\fonttbl" and "{*\\generator"
            m_groupIsFresh =
                fresh && m_token.text.size() == 1 && QByteArrayView(" *").contains(m_token.text[0]);
            OnText(m_token.text);
            break;
        case RtfTokenKind::HexByte:
            OnHexByte(m_token.symbol);
            break;
        case RtfTokenKind::Word:
            m_groupIsFresh = fresh;
            OnWord();
            break;
        case RtfTokenKind::Symbol:
            m_groupIsFresh = fresh && m_token.symbol == '*';
            m_optional = justOpened && m_token.symbol == '*';
            OnSymbol(m_token.symbol);
            break;
        case RtfTokenKind::GroupStart:
            OpenGroup();
            break;
        case RtfTokenKind::GroupEnd:
            CloseGroup();
            break;
        case RtfTokenKind::Binary:
            if (m_state.destination == RtfDestination::Picture)
                m_picture.bytes.append(m_token.text);
            break;
        case RtfTokenKind::End:
            break;
        }
    }
    Finish();
}

void RtfReader::OpenGroup() {
    FlushBytes();
    m_bytesToSkip = 0;
    if (m_states.size() >= static_cast<std::size_t>(kMostGroups)) {
        m_tokenizer.SkipGroup();
        return;
    }
    m_states.push_back(m_state);
    m_state.begin = m_token.begin;
    m_state.opensField = false;
    m_groupJustOpened = true;
    m_groupIsFresh = true;
    m_optional = false;
    switch (m_state.destination) {
    case RtfDestination::Picture:
    case RtfDestination::Object:
    case RtfDestination::Unicode:
        m_state.destination = RtfDestination::Ignored;
        break;
    default:
        break;
    }
}

void RtfReader::CloseGroup() {
    FlushBytes();
    m_bytesToSkip = 0;
    if (m_states.size() <= 1) {
        // the file's end; a last paragraph without its \par has the formats that hold here
        m_done = !m_states.empty();
        return;
    }
    const State closed = std::move(m_state);
    m_state = std::move(m_states.back());
    m_states.pop_back();
    LeaveGroup(closed);
}

// Takes in what a group told once it is whole.
void RtfReader::LeaveGroup(const State& closed) {
    if (closed.opensField)
        EndField(closed);
    if (m_state.destination == RtfDestination::StyleSheet && closed.destination == RtfDestination::StyleSheet)
        EndStyle(closed);
    if (closed.destination == m_state.destination)
        return;
    switch (closed.destination) {
    case RtfDestination::FontTable:
        EndFontName();
        KeepTable(closed);
        ChooseDecoder();
        break;
    case RtfDestination::ColorTable:
    case RtfDestination::StyleSheet:
    case RtfDestination::ListTable:
        KeepTable(closed);
        break;
    case RtfDestination::FieldInstruction:
        EndFieldInstruction(closed);
        break;
    case RtfDestination::Marker:
        m_marker = std::exchange(m_capture, {});
        m_hasMarker = true;
        break;
    case RtfDestination::OldListBefore:
        m_oldList.before = std::exchange(m_capture, {});
        break;
    case RtfDestination::OldListAfter:
        m_oldList.after = std::exchange(m_capture, {});
        break;
    case RtfDestination::OldList:
        m_state.para.oldList = m_oldList;
        break;
    case RtfDestination::LevelText:
        if (!m_lists.empty() && m_listLevel >= 0) {
            auto& level = m_lists.back().levels[static_cast<std::size_t>(m_listLevel)];
            level.text = m_capture.mid(1); // the first character is the length
        }
        m_capture.clear();
        break;
    case RtfDestination::Picture:
        EndPicture();
        break;
    case RtfDestination::Object:
        EndObject(closed);
        break;
    case RtfDestination::Body:
    case RtfDestination::Ignored:
    case RtfDestination::Unicode:
        break;
    }
}

void RtfReader::OnWord() {
    if (m_bytesToSkip > 0) {
        --m_bytesToSkip;
        return;
    }
    FlushBytes();
    const RtfControlWord* word = FindRtfControlWord(m_token.text);
    const bool optional = std::exchange(m_optional, false);
    const bool opensGroup = m_groupIsFresh && m_states.size() > 1;
    if (word && (!word->opensDestination || opensGroup) &&
        !(optional && opensGroup && !word->opensDestination))
        (this->*word->handler)(*word);
    else if (optional && opensGroup)
        SkipGroup();
}

void RtfReader::OnSymbol(char symbol) {
    if (m_bytesToSkip > 0 && symbol != '*') {
        --m_bytesToSkip;
        return;
    }
    switch (symbol) {
    case '*':
        return;
    case '{':
    case '}':
    case '\\':
        AppendBytes(QByteArrayView(&symbol, 1));
        return;
    default:
        break;
    }
    FlushBytes();
    switch (symbol) {
    case '~':
        AppendCharacter(QChar::Nbsp);
        break;
    case '-':
        AppendCharacter(QChar::SoftHyphen);
        break;
    case '_':
        AppendCharacter(0x2011);
        break;
    case '\t':
        AppendCharacter(QChar::Tabulation);
        break;
    case '\n':
        if (InBody())
            EndParagraph();
        break;
    default: // index marks and such
        break;
    }
}

void RtfReader::OnText(QByteArrayView bytes) {
    if (m_bytesToSkip > 0) {
        const qsizetype skipped = std::min<qsizetype>(m_bytesToSkip, bytes.size());
        m_bytesToSkip -= static_cast<int>(skipped);
        bytes = bytes.sliced(skipped);
    }
    if (!bytes.isEmpty())
        AppendBytes(bytes);
}

void RtfReader::OnHexByte(char byte) {
    if (m_bytesToSkip > 0) {
        --m_bytesToSkip;
        return;
    }
    const auto value = static_cast<unsigned char>(byte);
    if (m_state.destination == RtfDestination::LevelText && value < 0x20) {
        AppendCharacter(value);
    } else if (value >= 0x20 || !m_bytes.isEmpty()) {
        AppendBytes(QByteArrayView(&byte, 1));
    } else if (value == '\t') {
        AppendCharacter(QChar::Tabulation);
    }
}

void RtfReader::AppendBytes(QByteArrayView bytes) {
    switch (m_state.destination) {
    case RtfDestination::Body:
        AppendToBody(bytes);
        return;
    case RtfDestination::Picture:
        m_picture.AppendHex(bytes);
        return;
    case RtfDestination::ColorTable:
        AppendColors(bytes);
        return;
    case RtfDestination::Ignored:
    case RtfDestination::ListTable:
    case RtfDestination::OldList:
    case RtfDestination::Object:
    case RtfDestination::Unicode:
    case RtfDestination::StyleSheet:
        return;
    default:
        AppendToBody(bytes);
        return;
    }
}

// Decodes bytes of shown or captured text.
void RtfReader::AppendToBody(QByteArrayView bytes) {
    if (m_state.decoder && m_state.decoder->IsMultiByte()) {
        if (m_bytes.isEmpty() && InBody() && IsAscii(bytes)) {
            QChar* out = m_flow.Extend(bytes.size(), CharFormat());
            std::transform(bytes.begin(), bytes.end(), out, [](char byte) { return QLatin1Char(byte); });
        } else {
            m_bytes.append(bytes);
        }
        return;
    }
    QString captured;
    QChar* out;
    if (InBody()) {
        out = m_flow.Extend(bytes.size(), CharFormat());
    } else {
        captured.resize(bytes.size());
        out = captured.data();
    }
    if (m_state.decoder) {
        for (const char byte : bytes)
            *out++ = QChar(m_state.decoder->Character(byte));
    } else {
        const QString name = m_tables.fonts.value(m_state.chars.font).name;
        for (const char byte : bytes)
            *out++ = QChar(SymbolCharacter(name, static_cast<unsigned char>(byte)));
    }
    if (!captured.isEmpty())
        AppendText(captured);
}

void RtfReader::FlushBytes() {
    if (m_bytes.isEmpty())
        return;
    m_decoded.resize(0);
    (m_state.decoder ? *m_state.decoder : RtfDecoder::Of(m_codePage)).Append(m_bytes, m_decoded);
    m_bytes.resize(0);
    for (QChar& character : m_decoded)
        character = QChar(Harmless(character.unicode()));
    AppendText(m_decoded);
}

void RtfReader::AppendText(QStringView text) {
    switch (m_state.destination) {
    case RtfDestination::Body:
        m_flow.Append(text, CharFormat());
        break;
    case RtfDestination::FontTable:
        AppendFontNames(text);
        break;
    case RtfDestination::FieldInstruction:
    case RtfDestination::Marker:
    case RtfDestination::OldListBefore:
    case RtfDestination::OldListAfter:
    case RtfDestination::LevelText:
        AppendCapture(text);
        break;
    default:
        break;
    }
}

void RtfReader::AppendCharacter(char16_t character) {
    AppendText(QStringView(&character, 1));
}

void RtfReader::AppendUnicode(char32_t character) {
    if (character < 0x20 && character != QChar::Tabulation)
        return;
    for (const char16_t unit : QChar::fromUcs4(character))
        AppendCharacter(Harmless(unit));
}

void RtfReader::AppendCapture(QStringView text) {
    if (m_capture.size() < kMostCapture)
        m_capture.append(text.first(std::min<qsizetype>(text.size(), kMostCapture - m_capture.size())));
}

// Leaves the group that is open, without reading it.
void RtfReader::SkipGroup() {
    if (m_states.size() < 2)
        return;
    m_tokenizer.SkipGroup();
    m_groupIsFresh = false;
    m_state = std::move(m_states.back());
    m_states.pop_back();
}

// Leaves the group that is open and gives its source.
QByteArray RtfReader::KeepGroup() {
    const qsizetype begin = m_state.begin;
    SkipGroup();
    return SourceFrom(begin);
}

// The source from `begin` to here, with all bytes beyond ASCII written as \'hh.
QByteArray RtfReader::SourceFrom(qsizetype begin) const {
    const QByteArrayView source = m_tokenizer.Source().sliced(begin, m_tokenizer.Position() - begin);
    if (IsAscii(source) || source.toByteArray().contains("\\bin"))
        return source.toByteArray();
    QByteArray plain;
    plain.reserve(source.size() + source.size() / 4);
    for (const char byte : source) {
        if (static_cast<unsigned char>(byte) < 0x80)
            plain.append(byte);
        else
            plain.append("\\'").append(QByteArray(1, byte).toHex());
    }
    return plain;
}

int RtfReader::CharFormat() {
    if (m_lastFormat < 0 || m_state.chars != m_lastChars) {
        m_lastChars = m_state.chars;
        m_lastFormat = m_formats.Index(m_lastChars);
    }
    return m_lastFormat;
}

// A font or colour table tells what the numbers of the formats are.
void RtfReader::ForgetFormats() {
    m_formats.ForgetStates();
    m_lastFormat = -1;
}

int RtfReader::Twips() const {
    return std::clamp(m_token.parameter, -kMostTwips, kMostTwips);
}

// Keeps the current control word as it stood.
void RtfReader::AppendControls(QByteArray& controls) const {
    if (controls.size() > kMostWords)
        return;
    controls.append('\\').append(m_token.text);
    if (m_token.hasParameter)
        controls.append(QByteArray::number(m_token.parameter));
}

void RtfReader::Finish() {
    FlushBytes();
    if (m_flow.HasText())
        EndParagraph();
    // in a whole file, text of a row that no end of a cell follows is shown by no program
    m_flow.Finish(m_done && !m_row.cells.empty());
    m_filler.Finish();
    SetDocumentFormat();
}

void RtfReader::SetDocumentFormat() {
    QTextFrameFormat format = m_document.rootFrame()->frameFormat();
    for (auto number = m_documentValues.cbegin(); number != m_documentValues.cend(); ++number)
        format.setProperty(number.key(), number.value());
    QVariantMap instructions;
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        instructions.insert(QString::number(i + 1), m_fields[i].instruction);
    const auto keep = [&format](int property, const QVariant& value, bool told) {
        if (told)
            format.setProperty(property, value);
    };
    keep(FieldInstructions, instructions, !instructions.isEmpty());
    keep(HeadersAndFooters, m_headers, !m_headers.isEmpty());
    keep(ListTables, m_listTables, !m_listTables.isEmpty());
    keep(SectionControls, m_section, !m_section.isEmpty());
    keep(FootnoteSettings, m_documentControls, !m_documentControls.isEmpty());
    keep(FileCodePage, m_codePage, true);
    m_document.rootFrame()->setFrameFormat(format);
    if (const int tab = m_documentValues.value(DefaultTab, 720).toInt(); tab > 0) {
        QTextOption option = m_document.defaultTextOption();
        option.setTabStopDistance(TwipsToPixels(tab));
        m_document.setDefaultTextOption(option);
    }
}

} // namespace platform
