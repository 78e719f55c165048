// Groups that are no text: tables of fonts, colours and styles, groups kept or skipped, objects.
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_reader_core.h"

namespace platform {
namespace {

enum FontAttribute { Charset = 7, Pitch = 8, FontCodePage = 9 };

} // namespace

void RtfReader::OnSkippedGroup(const Word&) {
    SkipGroup();
}

// What stands behind the word in its group is for readers without nested tables; some programs open no group
// for it.
void RtfReader::OnIgnoredRest(const Word&) {
    if (InBody())
        m_state.destination = RtfDestination::Ignored;
}

// Groups whose content stands where they stand.
void RtfReader::OnTransparentGroup(const Word&) {}

void RtfReader::OnObjectResult(const Word&) {
    if (m_states.back().destination == RtfDestination::Object)
        m_state.destination = RtfDestination::Body;
}

void RtfReader::OnKeptGroup(const Word& word) {
    const bool inBody = m_states.back().destination == RtfDestination::Body;
    const QByteArray source = KeepGroup();
    if (!inBody)
        return;
    if (word.argument != HeadersAndFooters)
        m_documentValues.insert(word.argument, source);
    else if (m_headers.size() < kMostSections)
        m_headers.append(source);
}

// Footnotes and drawings: one character of the text stands for the group.
void RtfReader::OnEmbeddedGroup(const Word&) {
    const bool inBody = m_states.back().destination == RtfDestination::Body;
    const RtfCharState chars = m_state.chars;
    QByteArray source = KeepGroup();
    if (!inBody)
        return;
    if (std::exchange(m_footnoteMark, false))
        source = "{\\chftn" + source + "}";
    const RtfCharState outside = std::exchange(m_state.chars, chars);
    AppendObject(source);
    m_state.chars = outside;
}

void RtfReader::AppendObject(const QByteArray& source) {
    QTextCharFormat format = m_formats.At(CharFormat());
    format.setProperty(EmbeddedObject, source);
    format.setProperty(ObjectNumber, ++m_objects);
    m_flow.Append(u"\uFFFC", m_formats.Add(format));
}

void RtfReader::OnDestination(const Word& word) {
    const auto destination = static_cast<RtfDestination>(word.argument);
    const RtfDestination outside = m_state.destination;
    switch (destination) {
    case RtfDestination::OldListBefore:
    case RtfDestination::OldListAfter:
        if (outside != RtfDestination::OldList)
            return SkipGroup();
        break;
    case RtfDestination::LevelText:
        if (outside != RtfDestination::ListTable)
            return SkipGroup();
        break;
    default:
        if (outside != RtfDestination::Body)
            return SkipGroup();
        break;
    }
    m_state.destination = destination;
    m_capture.clear();
    switch (destination) {
    case RtfDestination::FontTable:
    case RtfDestination::ColorTable:
        m_color = {};
        m_font = 0;
        break;
    case RtfDestination::StyleSheet:
        m_state.chars = {};
        m_state.para = {};
        break;
    case RtfDestination::ListTable:
        m_state.inOverride = word.name.startsWith(QLatin1StringView("listoverride"));
        break;
    case RtfDestination::OldList:
        m_oldList = {};
        break;
    case RtfDestination::Object:
        m_objectParagraphs = m_flow.Paragraphs();
        m_objectText = m_flow.TextLength();
        break;
    default:
        break;
    }
}

// What a table in front of the text told is read, and kept as it stood.
void RtfReader::KeepTable(const State& closed) {
    switch (closed.destination) {
    case RtfDestination::FontTable:
        m_documentValues.insert(FontTable, SourceFrom(closed.begin));
        ForgetFormats();
        break;
    case RtfDestination::ColorTable:
        m_documentValues.insert(ColorTable, SourceFrom(closed.begin));
        ForgetFormats();
        break;
    case RtfDestination::StyleSheet:
        m_documentValues.insert(StyleSheet, SourceFrom(closed.begin));
        break;
    case RtfDestination::ListTable:
        m_listTables.append(SourceFrom(closed.begin));
        break;
    default:
        break;
    }
}

void RtfReader::OnFontAttribute(const Word& word) {
    if (m_state.destination != RtfDestination::FontTable)
        return;
    const auto font = m_tables.fonts.find(m_font);
    if (font == m_tables.fonts.end())
        return;
    switch (word.argument) {
    case Charset:
        font->charset = m_token.parameter;
        font->codePage = CodePageOfCharset(m_token.parameter);
        if (font->codePage != 0 && font->codePage != kSymbolCodePage)
            m_state.decoder = &RtfDecoder::Of(font->codePage);
        break;
    case Pitch:
        font->fixedPitch = m_token.parameter == 1;
        break;
    case FontCodePage:
        font->codePage = std::max(0, m_token.parameter);
        break;
    default:
        font->family = word.argument;
        break;
    }
}

void RtfReader::AppendFontNames(QStringView text) {
    for (qsizetype end = text.indexOf(u';'); end >= 0; end = text.indexOf(u';')) {
        AppendCapture(text.first(end));
        EndFontName();
        text = text.sliced(end + 1);
    }
    AppendCapture(text);
}

void RtfReader::EndFontName() {
    const QString name = std::exchange(m_capture, {}).trimmed().left(256);
    const auto font = m_tables.fonts.find(m_font);
    if (name.isEmpty() || font == m_tables.fonts.end() || !font->name.isEmpty())
        return;
    font->name = name;
    if (font->charset <= 1 && font->codePage == 0)
        font->codePage = CodePageOfFontName(name);
    if (font->codePage == 0 && name == u"Symbol")
        font->codePage = kSymbolCodePage;
}

void RtfReader::OnColorPart(const Word& word) {
    if (m_state.destination != RtfDestination::ColorTable)
        return;
    const int value = std::clamp(m_token.parameter, 0, 255);
    m_color.rgb = (m_color.rgb & ~(0xFF << word.argument)) | (value << word.argument);
    m_color.automatic = false;
}

void RtfReader::AppendColors(QByteArrayView bytes) {
    for (const char byte : bytes) {
        if (byte != ';')
            continue;
        if (m_tables.colors.size() < static_cast<std::size_t>(kMostColors))
            m_tables.colors.push_back(m_color);
        m_color = {};
    }
}

void RtfReader::EndStyle(const State& closed) {
    const int number = std::exchange(m_style, -1);
    if (number >= 0 && m_styles.size() < kMostStyles)
        m_styles.insert(number, {closed.chars, closed.para});
}

// An object is shown by its result: a picture that carries the object, or text alone. One without a result is
// a character that carries it.
void RtfReader::EndObject(const State& closed) {
    const bool sameParagraph = m_flow.Paragraphs() == m_objectParagraphs;
    const qsizetype added = m_flow.TextLength() - m_objectText;
    if (!sameParagraph || added < 0 || added > 1)
        return;
    if (added == 0) {
        AppendObject(SourceFrom(closed.begin));
        return;
    }
    if (!m_flow.LastIsObject())
        return;
    QTextCharFormat format = m_formats.At(m_flow.LastFormat());
    format.setProperty(EmbeddedObject, SourceFrom(closed.begin));
    format.setProperty(ObjectNumber, ++m_objects);
    m_flow.ReformatLast(m_formats.Add(format));
}

} // namespace platform
