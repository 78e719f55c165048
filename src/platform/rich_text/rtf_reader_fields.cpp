// Fields and hyperlinks.
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {
namespace {

// The next word of a field's instruction from `at` on, quotes and escapes taken off.
QString NextArgument(const QString& instruction, qsizetype& at) {
    while (at < instruction.size() && instruction.at(at).isSpace())
        ++at;
    QString argument;
    const bool quoted = at < instruction.size() && instruction.at(at) == u'"';
    if (quoted)
        ++at;
    while (at < instruction.size()) {
        QChar character = instruction.at(at);
        if (quoted ? character == u'"' : character.isSpace()) {
            ++at;
            break;
        }
        // a backslash in quotes makes the next one plain; outside it begins a switch
        if (quoted && character == u'\\' && at + 1 < instruction.size()) {
            const QChar next = instruction.at(at + 1);
            if (next == u'\\' || next == u'"')
                character = instruction.at(++at);
        }
        argument.append(character);
        ++at;
    }
    return argument;
}

// The target of a HYPERLINK field; empty for any other.
QString HyperlinkOf(const QString& instruction) {
    qsizetype at = 0;
    if (NextArgument(instruction, at).compare(u"HYPERLINK", Qt::CaseInsensitive) != 0)
        return {};
    QString address;
    QString bookmark;
    while (at < instruction.size()) {
        const QString argument = NextArgument(instruction, at);
        if (argument == u"\\l")
            bookmark = NextArgument(instruction, at);
        else if (argument == u"\\o" || argument == u"\\t" || argument == u"\\s")
            NextArgument(instruction, at);
        else if (!argument.startsWith(u'\\') && address.isEmpty())
            address = argument;
    }
    return bookmark.isEmpty() ? address : address + u'#' + bookmark;
}

// The character of a SYMBOL field; 0 for any other.
char16_t SymbolOf(const QString& instruction) {
    qsizetype at = 0;
    if (NextArgument(instruction, at).compare(u"SYMBOL", Qt::CaseInsensitive) != 0)
        return 0;
    bool isNumber = false;
    const int number = NextArgument(instruction, at).toInt(&isNumber, 0);
    QString font;
    while (at < instruction.size()) {
        if (NextArgument(instruction, at) == u"\\f")
            font = NextArgument(instruction, at);
    }
    if (!isNumber || number < 0x20 || number > 0xFF)
        return 0;
    const auto byte = static_cast<unsigned char>(number);
    const char16_t symbol = SymbolCharacter(font, byte);
    return symbol < 0xF000 ? symbol : RtfDecoder::Of(1252).Character(static_cast<char>(byte));
}

// What a MACROBUTTON field shows: all behind the macro's name. Empty for any other field.
QString ButtonTextOf(const QString& instruction) {
    qsizetype at = 0;
    if (NextArgument(instruction, at).compare(u"MACROBUTTON", Qt::CaseInsensitive) != 0)
        return {};
    NextArgument(instruction, at);
    return instruction.mid(at).simplified();
}

} // namespace

void RtfReader::OnField(const Word&) {
    if (!InBody() || m_fields.size() >= static_cast<std::size_t>(kMostFormats))
        return;
    FlushBytes();
    Field field;
    field.paragraphs = m_flow.Paragraphs();
    field.textLength = m_flow.TextLength();
    m_fields.push_back(field);
    m_state.field = static_cast<int>(m_fields.size());
    m_state.opensField = true;
}

void RtfReader::OnFieldInstruction(const Word&) {
    if (m_state.field == 0 || m_state.destination != RtfDestination::Body) {
        if (m_state.destination != RtfDestination::FieldInstruction)
            SkipGroup();
        return;
    }
    m_state.destination = RtfDestination::FieldInstruction;
    m_capture.clear();
}

void RtfReader::OnFieldResult(const Word&) {
    if (!InBody() || m_state.field == 0)
        return;
    Field& field = m_fields[static_cast<std::size_t>(m_state.field) - 1];
    field.hasResult = true;
    m_state.chars.field = m_state.field;
    if (field.hyperlink != 0)
        m_state.chars.hyperlink = field.hyperlink;
}

void RtfReader::EndFieldInstruction(const State& closed) {
    Field& field = m_fields[static_cast<std::size_t>(closed.field) - 1];
    field.instruction = std::exchange(m_capture, {}).trimmed();
    if (QString target = HyperlinkOf(field.instruction); !target.isEmpty()) {
        m_tables.hyperlinks.push_back(std::move(target));
        field.hyperlink = static_cast<int>(m_tables.hyperlinks.size());
    }
}

// Of the fields without a result only symbols and buttons show by themselves.
void RtfReader::EndField(const State& closed) {
    const Field& field = m_fields[static_cast<std::size_t>(closed.field) - 1];
    const bool isEmpty = m_flow.Paragraphs() == field.paragraphs && m_flow.TextLength() == field.textLength;
    if (!isEmpty || !InBody())
        return;
    const int outside = std::exchange(m_state.chars.field, closed.field);
    if (const char16_t symbol = SymbolOf(field.instruction); symbol != 0 && !field.hasResult)
        AppendCharacter(symbol);
    else if (const QString text = ButtonTextOf(field.instruction); !text.isEmpty())
        AppendText(text);
    m_state.chars.field = outside;
}

} // namespace platform
