#include "platform/rich_text/rtf_numbers.h"

#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_code_pages.h"
#include "platform/rich_text/rtf_output.h"
#include "platform/rich_text/rtf_tokenizer.h"

namespace platform {
namespace {

constexpr int kMostNameLength = 256;

// Uses are even for fonts, odd for colours.
int UseOfFont(int place) {
    return place * 2;
}
int UseOfColor(int place) {
    return place * 2 + 1;
}

void Note(int use, RtfNumbers::Uses& uses) {
    if (std::find(uses.begin(), uses.end(), use) == uses.end())
        uses.push_back(use);
}

// Source of a kept table without its closing brace, and without blanks before its first word, which would be
// read as text.
QByteArray WithoutBrace(const QByteArray& group) {
    const qsizetype start = group.indexOf('\\');
    const qsizetype end = group.lastIndexOf('}');
    return start > 0 && end > start ? '{' + group.sliced(start, end - start) : QByteArray();
}

// Name as a table can hold it.
QString Storable(QString name) {
    return name.remove(u';').simplified().left(kMostNameLength);
}

} // namespace

RtfNumbers::RtfNumbers(const QTextDocument& document) {
    const QTextFrameFormat format = document.rootFrame()->frameFormat();
    m_fontSource = WithoutBrace(format.property(platform::FontTable).toByteArray());
    m_colorSource = WithoutBrace(format.property(platform::ColorTable).toByteArray());
    ReadFonts(m_fontSource);
    ReadColors(m_colorSource);
    if (m_fontSource.isEmpty())
        m_fontSource = "{\\fonttbl";
}

void RtfNumbers::ReadFonts(const QByteArray& source) {
    RtfTokenizer tokenizer(source);
    RtfToken token;
    int number = -1;
    int charset = -1;
    int codePage = 0;
    QByteArray bytes;
    QString name;
    const auto flush = [&] {
        const bool told = codePage != 0 && codePage != kSymbolCodePage;
        RtfDecoder::Of(told ? codePage : 1252).Append(bytes, name);
        bytes.clear();
    };
    const auto end = [&] {
        flush();
        EndFont(number, name, charset, codePage);
        name.clear();
    };
    bool skip = false; // the bytes after \u
    while (tokenizer.Next(token)) {
        switch (token.kind) {
        case RtfTokenKind::Symbol:
            if (token.symbol == '*')
                tokenizer.SkipGroup();
            break;
        case RtfTokenKind::HexByte:
            if (!std::exchange(skip, false))
                bytes.append(token.symbol);
            break;
        case RtfTokenKind::Text:
            for (const char byte : token.text) {
                if (std::exchange(skip, false))
                    continue;
                if (byte == ';')
                    end();
                else
                    bytes.append(byte);
            }
            break;
        case RtfTokenKind::Word:
            if (token.text == QByteArrayView("f")) {
                number = std::max(0, token.parameter);
                charset = -1;
                codePage = 0;
                name.clear();
                bytes.clear();
                m_nextFont = std::max(m_nextFont, number + 1);
            } else if (token.text == QByteArrayView("fcharset")) {
                charset = token.parameter;
                codePage = CodePageOfCharset(charset);
            } else if (token.text == QByteArrayView("cpg")) {
                codePage = std::max(0, token.parameter);
            } else if (token.text == QByteArrayView("u")) {
                flush();
                name.append(QChar(static_cast<char16_t>(token.parameter)));
                skip = true;
            } else if (token.text == QByteArrayView("falt") || token.text == QByteArrayView("panose")) {
                tokenizer.SkipGroup();
            }
            break;
        default:
            break;
        }
    }
}

void RtfNumbers::EndFont(int number, const QString& name, int charset, int codePage) {
    const QString trimmed = name.trimmed().left(kMostNameLength);
    if (number < 0 || trimmed.isEmpty() || m_names.contains(number))
        return;
    m_names.insert(number, trimmed);
    const bool isSymbol =
        codePage == kSymbolCodePage || (codePage == 0 && charset <= 1 && trimmed == u"Symbol");
    m_symbolFonts.insert(number, isSymbol);
    if (const auto known = m_fonts.constFind(trimmed); known == m_fonts.constEnd() || *known > number)
        m_fonts.insert(trimmed, number);
}

void RtfNumbers::ReadColors(const QByteArray& source) {
    RtfTokenizer tokenizer(source);
    RtfToken token;
    int rgb = kAutomatic;
    while (tokenizer.Next(token)) {
        if (token.kind == RtfTokenKind::Text) {
            for (const char byte : token.text) {
                if (byte == ';')
                    m_colors.push_back(std::exchange(rgb, kAutomatic));
            }
        }
        if (token.kind != RtfTokenKind::Word)
            continue;
        const auto set = [&](int shift) {
            const int value = std::clamp(token.parameter, 0, 255);
            rgb = (rgb == kAutomatic ? 0 : rgb & ~(0xFF << shift)) | (value << shift);
        };
        if (token.text == QByteArrayView("red"))
            set(16);
        else if (token.text == QByteArrayView("green"))
            set(8);
        else if (token.text == QByteArrayView("blue"))
            set(0);
    }
    if (rgb != kAutomatic) { // its end is missing
        m_colorSource.append(';');
        m_colors.push_back(rgb);
    }
    if (m_colors.empty()) {
        m_colorSource = "{\\colortbl ;";
        m_colors.push_back(kAutomatic);
    }
    m_keptColors = m_colors.size();
}

int RtfNumbers::Font(const QString& name, int wanted, int family, bool fixedPitch, Uses& uses) {
    const QString stored = Storable(name);
    int number = -1;
    if (wanted >= 0 && m_names.value(wanted) == stored)
        number = wanted;
    else
        number = m_fonts.value(stored, -1);
    if (number < 0) {
        number = m_nextFont++;
        m_addedFontAt.insert(number, static_cast<int>(m_addedFonts.size()));
        m_addedFonts.push_back({number, stored, family, fixedPitch});
        m_names.insert(number, stored);
        m_fonts.insert(stored, number);
    }
    if (const auto place = m_addedFontAt.constFind(number); place != m_addedFontAt.constEnd())
        Note(UseOfFont(*place), uses);
    return number;
}

int RtfNumbers::Color(const QBrush& brush, bool behind, Uses& uses) {
    if (brush.style() == Qt::NoBrush) {
        if (behind || m_colors.front() == kAutomatic)
            return 0;
        return NewColor(kAutomatic, uses);
    }
    const int rgb = static_cast<int>(brush.color().rgb() & 0xFFFFFFU);
    if (!behind && m_colors.front() == rgb)
        return 0;
    return NewColor(rgb, uses);
}

// Number of a colour that is not the first; adds it when need be.
int RtfNumbers::NewColor(int rgb, Uses& uses) {
    const auto found = std::find(m_colors.begin() + 1, m_colors.end(), rgb);
    const auto number = static_cast<int>(found - m_colors.begin());
    if (found == m_colors.end()) {
        m_colors.push_back(rgb);
        m_addedColors.push_back(rgb);
    }
    if (static_cast<std::size_t>(number) >= m_keptColors)
        Note(UseOfColor(number - static_cast<int>(m_keptColors)), uses);
    return number;
}

std::optional<RtfNumbers::Count> RtfNumbers::CountOf(const std::vector<const Uses*>& uses) {
    Count count;
    for (const Uses* part : uses) {
        for (const int use : *part) {
            int& next = use % 2 == 0 ? count.fonts : count.colors;
            if (use / 2 > next)
                return std::nullopt;
            if (use / 2 == next)
                ++next;
        }
    }
    return count;
}

QByteArray RtfNumbers::FontTable(Count count) const {
    static constexpr const char* kFamilies[] = {"\\fnil",    "\\froman", "\\fswiss", "\\fmodern",
                                                "\\fscript", "\\fdecor", "\\ftech"};
    RtfOutput out;
    out.Raw(m_fontSource);
    for (int i = 0; i < count.fonts; ++i) {
        const NewFont& font = m_addedFonts[static_cast<std::size_t>(i)];
        out.Raw("{");
        out.Word("\\f", font.number);
        out.Words(kFamilies[std::clamp(font.family, 0, 6)]);
        if (font.fixedPitch)
            out.Words("\\fprq1");
        out.Words("\\fcharset0");
        out.Text(font.name);
        out.Text(u";");
        out.Raw("}");
    }
    out.Raw("}\n");
    return out.View().toByteArray();
}

QByteArray RtfNumbers::ColorTable(Count count) const {
    RtfOutput out;
    out.Raw(m_colorSource);
    for (int i = 0; i < count.colors; ++i) {
        const int rgb = m_addedColors[static_cast<std::size_t>(i)];
        if (rgb != kAutomatic) {
            out.Word("\\red", (rgb >> 16) & 0xFF);
            out.Word("\\green", (rgb >> 8) & 0xFF);
            out.Word("\\blue", rgb & 0xFF);
        }
        out.Raw(";");
    }
    out.Raw("}\n");
    return out.View().toByteArray();
}

} // namespace platform
