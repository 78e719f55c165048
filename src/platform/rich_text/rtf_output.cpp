#include "platform/rich_text/rtf_output.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace platform {
namespace {

constexpr qsizetype kMostOfOneUnit = 9; // "\u-12345?"

// Characters that stand for themselves.
constexpr std::array<bool, 128> MakePlain() {
    std::array<bool, 128> plain{};
    for (std::size_t character = 0x20; character < 0x7F; ++character)
        plain[character] = character != '\\' && character != '{' && character != '}';
    return plain;
}

constexpr std::array<bool, 128> kPlain = MakePlain();

char* PutUnicode(char* out, char16_t unit) {
    *out++ = '\\';
    *out++ = 'u';
    // RTF 1.9.1: \u takes a signed number of 16 bits
    out = std::to_chars(out, out + 6, static_cast<int>(static_cast<std::int16_t>(unit))).ptr;
    *out++ = '?';
    return out;
}

} // namespace

char* RtfOutput::Room(qsizetype bytes) {
    if (m_buffer.size() - m_size < bytes)
        m_buffer.resize(std::max<qsizetype>(m_buffer.size() * 2, m_size + bytes + 4096));
    return m_buffer.data() + m_size;
}

void RtfOutput::Append(QByteArrayView source) {
    if (source.isEmpty())
        return;
    std::memcpy(Room(source.size()), source.data(), static_cast<std::size_t>(source.size()));
    m_size += source.size();
}

void RtfOutput::Words(QByteArrayView words) {
    if (words.isEmpty())
        return;
    Append(words);
    m_afterWord = true;
}

void RtfOutput::Word(QByteArrayView word, int number) {
    char* const start = Room(word.size() + 12);
    std::memcpy(start, word.data(), static_cast<std::size_t>(word.size()));
    char* const end = std::to_chars(start + word.size(), start + word.size() + 12, number).ptr;
    m_size += end - start;
    m_afterWord = true;
}

void RtfOutput::Raw(QByteArrayView source) {
    if (source.isEmpty())
        return;
    Append(source);
    m_afterWord = false;
}

void RtfOutput::Text(QStringView text, bool inSymbols) {
    if (text.isEmpty())
        return;
    char* const start = Room(text.size() * kMostOfOneUnit + 1);
    char* out = start;
    bool afterWord = m_afterWord;
    const char16_t* const end = text.utf16() + text.size();
    for (const char16_t* at = text.utf16(); at != end; ++at) {
        const char16_t unit = *at;
        if (unit < 128 && kPlain[unit] && !inSymbols) {
            if (afterWord)
                *out++ = ' ';
            afterWord = false;
            *out++ = static_cast<char>(unit);
            continue;
        }
        if (unit == u'\t') {
            out = std::copy_n("\\tab", 4, out);
            afterWord = true;
            continue;
        }
        if (unit == u'\u2028') {
            out = std::copy_n("\\line", 5, out);
            afterWord = true;
            continue;
        }
        if (unit < 0x20 || unit == u'\u2029' || unit == u'\uFDD0' || unit == u'\uFDD1' || unit == u'\uFFFC')
            continue;
        afterWord = false;
        if (unit < 0x7F && !inSymbols) { // a brace or backslash
            *out++ = '\\';
            *out++ = static_cast<char>(unit);
        } else if (!QChar::isSurrogate(unit)) {
            out = PutUnicode(out, unit);
        } else if (QChar::isHighSurrogate(unit) && at + 1 != end && QChar::isLowSurrogate(at[1])) {
            out = PutUnicode(PutUnicode(out, unit), at[1]);
            ++at;
        } else {
            out = PutUnicode(out, QChar::ReplacementCharacter);
        }
    }
    m_size += out - start;
    m_afterWord = afterWord;
}

void RtfOutput::Hex(QByteArrayView bytes) {
    static constexpr char kDigits[] = "0123456789abcdef";
    char* out = Room(bytes.size() * 2 + 1);
    char* const start = out;
    if (m_afterWord)
        *out++ = ' ';
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        *out++ = kDigits[value >> 4];
        *out++ = kDigits[value & 15];
    }
    m_size += out - start;
    m_afterWord = false;
}

} // namespace platform
