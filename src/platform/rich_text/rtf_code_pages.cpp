#include "platform/rich_text/rtf_code_pages.h"

#include <algorithm>
#include <iconv.h>
#include <map>
#include <mutex>

namespace platform {
namespace {

struct CodePageName {
    int codePage;
    const char* name; // as iconv(3) knows it
    bool multiByte = false;
};

constexpr CodePageName kCodePages[] = {
    {437, "CP437"},
    {708, "ISO-8859-6"},
    {737, "CP737"},
    {775, "CP775"},
    {819, "ISO-8859-1"},
    {850, "CP850"},
    {852, "CP852"},
    {855, "CP855"},
    {857, "CP857"},
    {860, "CP860"},
    {861, "CP861"},
    {862, "CP862"},
    {863, "CP863"},
    {864, "CP864"},
    {865, "CP865"},
    {866, "CP866"},
    {869, "CP869"},
    {874, "CP874"},
    {932, "CP932", true},
    {936, "GBK", true},
    {949, "CP949", true},
    {950, "BIG5-HKSCS", true},
    {1250, "CP1250"},
    {1251, "CP1251"},
    {1252, "CP1252"},
    {1253, "CP1253"},
    {1254, "CP1254"},
    {1255, "CP1255"},
    {1256, "CP1256"},
    {1257, "CP1257"},
    {1258, "CP1258"},
    {1361, "JOHAB", true},
    {10000, "MACINTOSH"},
    {10001, "CP932", true},
    {10002, "BIG5-HKSCS", true},
    {10003, "CP949", true},
    {10007, "MAC-CYRILLIC"},
    {10008, "GBK", true},
    {10017, "MAC-UK"},
    {10029, "MAC-CENTRALEUROPE"},
    {10079, "MAC-IS"},
    {20127, "CP1252"},
    {20866, "KOI8-R"},
    {21866, "KOI8-U"},
    {28591, "ISO-8859-1"},
    {28592, "ISO-8859-2"},
    {54936, "GB18030", true},
    {65001, "UTF-8", true},
};

struct CharsetCodePage {
    int charset;
    int codePage;
};

// RTF 1.9.1, \fcharset.
constexpr CharsetCodePage kCharsets[] = {
    {0, 1252},   {2, kSymbolCodePage}, {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008}, {81, 10002},
    {89, 10007}, {88, 10029},          {128, 932},  {129, 949},  {130, 1361}, {134, 936},  {136, 950},
    {161, 1253}, {162, 1254},          {163, 1258}, {177, 1255}, {178, 1256}, {179, 1256}, {180, 1256},
    {181, 1255}, {186, 1257},          {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850},
};

struct NameSuffix {
    QLatin1StringView suffix;
    int codePage;
};

constexpr NameSuffix kNameSuffixes[] = {
    {QLatin1StringView(" CE"), 1250},       {QLatin1StringView(" Cyr"), 1251},
    {QLatin1StringView(" Greek"), 1253},    {QLatin1StringView(" Tur"), 1254},
    {QLatin1StringView(" Baltic"), 1257},   {QLatin1StringView(" (Hebrew)"), 1255},
    {QLatin1StringView(" (Arabic)"), 1256},
};

// The Symbol font's characters from 0x20 on; 0 where it has none.
constexpr char16_t kSymbolFont[224] = {
    0x0020, 0x0021, 0x2200, 0x0023, 0x2203, 0x0025, 0x0026, 0x220B, 0x0028, 0x0029, 0x2217, 0x002B, 0x002C,
    0x2212, 0x002E, 0x002F, 0x0030, 0x0031, 0x0032, 0x0033, 0x0034, 0x0035, 0x0036, 0x0037, 0x0038, 0x0039,
    0x003A, 0x003B, 0x003C, 0x003D, 0x003E, 0x003F, 0x2245, 0x0391, 0x0392, 0x03A7, 0x0394, 0x0395, 0x03A6,
    0x0393, 0x0397, 0x0399, 0x03D1, 0x039A, 0x039B, 0x039C, 0x039D, 0x039F, 0x03A0, 0x0398, 0x03A1, 0x03A3,
    0x03A4, 0x03A5, 0x03C2, 0x03A9, 0x039E, 0x03A8, 0x0396, 0x005B, 0x2234, 0x005D, 0x22A5, 0x005F, 0x203E,
    0x03B1, 0x03B2, 0x03C7, 0x03B4, 0x03B5, 0x03C6, 0x03B3, 0x03B7, 0x03B9, 0x03D5, 0x03BA, 0x03BB, 0x03BC,
    0x03BD, 0x03BF, 0x03C0, 0x03B8, 0x03C1, 0x03C3, 0x03C4, 0x03C5, 0x03D6, 0x03C9, 0x03BE, 0x03C8, 0x03B6,
    0x007B, 0x007C, 0x007D, 0x223C, 0,      0,      0,      0,      0,      0,      0,      0,      0,
    0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,
    0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0,      0x20AC, 0x03D2,
    0x2032, 0x2264, 0x2044, 0x221E, 0x0192, 0x2663, 0x2666, 0x2665, 0x2660, 0x2194, 0x2190, 0x2191, 0x2192,
    0x2193, 0x00B0, 0x00B1, 0x2033, 0x2265, 0x00D7, 0x221D, 0x2202, 0x2022, 0x00F7, 0x2260, 0x2261, 0x2248,
    0x2026, 0x23D0, 0x23AF, 0x21B5, 0x2135, 0x2111, 0x211C, 0x2118, 0x2297, 0x2295, 0x2205, 0x2229, 0x222A,
    0x2283, 0x2287, 0x2284, 0x2282, 0x2286, 0x2208, 0x2209, 0x2220, 0x2207, 0x00AE, 0x00A9, 0x2122, 0x220F,
    0x221A, 0x22C5, 0x00AC, 0x2227, 0x2228, 0x21D4, 0x21D0, 0x21D1, 0x21D2, 0x21D3, 0x25CA, 0x2329, 0x00AE,
    0x00A9, 0x2122, 0x2211, 0x239B, 0x239C, 0x239D, 0x23A1, 0x23A2, 0x23A3, 0x23A7, 0x23A8, 0x23A9, 0x23AA,
    0,      0x232A, 0x222B, 0x2320, 0x23AE, 0x2321, 0x239E, 0x239F, 0x23A0, 0x23A4, 0x23A5, 0x23A6, 0x23AB,
    0x23AC, 0x23AD, 0,
};

struct SymbolByte {
    unsigned char byte;
    char16_t character;
};

constexpr SymbolByte kWingdings[] = {
    {0x6C, 0x25CF}, {0x6E, 0x25A0}, {0x6F, 0x25A1}, {0x71, 0x2751}, {0x72, 0x2752}, {0x73, 0x2B27},
    {0x74, 0x29EB}, {0x75, 0x25C6}, {0x76, 0x2756}, {0x77, 0x2B25}, {0x9F, 0x2022}, {0xA1, 0x25CB},
    {0xA7, 0x25AA}, {0xA8, 0x25FB}, {0xD8, 0x27A2}, {0xDF, 0x2190}, {0xE0, 0x2192}, {0xE8, 0x2794},
    {0xF0, 0x21E8}, {0xFB, 0x2717}, {0xFC, 0x2713}, {0xFD, 0x2612}, {0xFE, 0x2611},
};

const CodePageName& Entry(int codePage) {
    const auto has = [codePage](const CodePageName& entry) { return entry.codePage == codePage; };
    const auto* found = std::find_if(std::begin(kCodePages), std::end(kCodePages), has);
    if (found != std::end(kCodePages))
        return *found;
    return *std::find_if(std::begin(kCodePages), std::end(kCodePages),
                         [](const CodePageName& entry) { return entry.codePage == 1252; });
}

const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1);

} // namespace

int CodePageOfCharset(int charset) {
    for (const auto& [set, codePage] : kCharsets) {
        if (set == charset)
            return codePage;
    }
    return 0;
}

int CodePageOfFontName(QStringView name) {
    for (const auto& [suffix, codePage] : kNameSuffixes) {
        if (name.endsWith(suffix))
            return codePage;
    }
    return 0;
}

char16_t SymbolCharacter(QStringView fontName, unsigned char byte) {
    const auto privateUse = static_cast<char16_t>(0xF000 + byte);
    if (byte < 0x20)
        return privateUse;
    if (fontName.startsWith(u"Symbol", Qt::CaseInsensitive))
        return kSymbolFont[byte - 0x20] ? kSymbolFont[byte - 0x20] : privateUse;
    if (fontName.compare(u"Wingdings", Qt::CaseInsensitive) == 0) {
        for (const auto& [symbol, character] : kWingdings) {
            if (symbol == byte)
                return character;
        }
    }
    return privateUse;
}

const RtfDecoder& RtfDecoder::Of(int codePage) {
    static std::mutex mutex;
    static std::map<int, RtfDecoder> decoders;
    const std::scoped_lock lock(mutex);
    return decoders.try_emplace(Entry(codePage).codePage, codePage).first->second;
}

RtfDecoder::RtfDecoder(int codePage)
    : m_multiByte(Entry(codePage).multiByte)
    , m_iconv(iconv_open("UTF-16LE", Entry(codePage).name)) {
    FillTable();
}

RtfDecoder::~RtfDecoder() {
    if (m_iconv != kNoConverter)
        iconv_close(m_iconv);
}

void RtfDecoder::FillTable() {
    for (std::size_t byte = 0; byte < 256; ++byte) {
        m_table[byte] = static_cast<char16_t>(byte);
        if (byte < 0x80 || m_multiByte || m_iconv == kNoConverter)
            continue;
        char in = static_cast<char>(byte);
        char* inAt = &in;
        std::size_t inLeft = 1;
        char16_t out[2] = {};
        char* outAt = reinterpret_cast<char*>(out);
        std::size_t outLeft = sizeof out;
        iconv(m_iconv, nullptr, nullptr, nullptr, nullptr);
        // a second call without input gives what a converter with combining characters still holds
        if (iconv(m_iconv, &inAt, &inLeft, &outAt, &outLeft) != static_cast<std::size_t>(-1) &&
            iconv(m_iconv, nullptr, nullptr, &outAt, &outLeft) != static_cast<std::size_t>(-1) && out[0] != 0)
            m_table[byte] = out[0];
    }
}

void RtfDecoder::Append(QByteArrayView bytes, QString& text) const {
    if (m_multiByte) {
        AppendMultiByte(bytes, text);
        return;
    }
    const qsizetype start = text.size();
    text.resize(start + bytes.size());
    QChar* out = text.data() + start;
    for (const char byte : bytes)
        *out++ = QChar(Character(byte));
}

void RtfDecoder::AppendMultiByte(QByteArrayView bytes, QString& text) const {
    if (m_iconv == kNoConverter) {
        text.append(QString::fromLatin1(bytes));
        return;
    }
    // one converter serves all documents, and a conversion begun is state
    static std::mutex mutex;
    const std::scoped_lock lock(mutex);
    iconv(m_iconv, nullptr, nullptr, nullptr, nullptr);
    const qsizetype start = text.size();
    text.resize(start + bytes.size() * 2 + 4);
    char* out = reinterpret_cast<char*>(text.data() + start);
    std::size_t outLeft = static_cast<std::size_t>(bytes.size() * 2 + 4) * sizeof(QChar);
    char* in = const_cast<char*>(bytes.data());
    std::size_t inLeft = static_cast<std::size_t>(bytes.size());
    while (inLeft > 0 && outLeft > 2 * sizeof(QChar)) {
        if (iconv(m_iconv, &in, &inLeft, &out, &outLeft) != static_cast<std::size_t>(-1) || inLeft == 0)
            break;
        *reinterpret_cast<QChar*>(out) = QChar(QChar::ReplacementCharacter);
        out += sizeof(QChar);
        outLeft -= sizeof(QChar);
        ++in;
        --inLeft;
    }
    if (outLeft > sizeof(QChar))
        iconv(m_iconv, nullptr, nullptr, &out, &outLeft);
    text.resize(reinterpret_cast<QChar*>(out) - text.data());
}

} // namespace platform
