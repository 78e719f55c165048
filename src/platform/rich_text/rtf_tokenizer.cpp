#include "platform/rich_text/rtf_tokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace platform {
namespace {

// Bytes that end a run of text: braces, backslash, and all control characters.
constexpr std::array<bool, 256> MakeTextEnds() {
    std::array<bool, 256> ends{};
    for (std::size_t byte = 0; byte < 0x20; ++byte)
        ends[byte] = true;
    for (const char byte : {'{', '}', '\\'})
        ends[static_cast<unsigned char>(byte)] = true;
    return ends;
}

constexpr std::array<bool, 256> kTextEnds = MakeTextEnds();

bool EndsText(char byte) {
    return kTextEnds[static_cast<unsigned char>(byte)];
}
bool IsLetter(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}
bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

int HexDigit(char byte) {
    if (IsDigit(byte))
        return byte - '0';
    if (byte >= 'a' && byte <= 'f')
        return byte - 'a' + 10;
    if (byte >= 'A' && byte <= 'F')
        return byte - 'A' + 10;
    return -1;
}

} // namespace

RtfTokenizer::RtfTokenizer(QByteArrayView source)
    : m_begin(source.data())
    , m_next(source.data())
    , m_end(source.data() + source.size()) {}

bool RtfTokenizer::Next(RtfToken& token) {
    while (m_next != m_end) {
        token.begin = Position();
        const char byte = *m_next;
        if (!EndsText(byte)) {
            const char* const start = m_next;
            do
                ++m_next;
            while (m_next != m_end && !EndsText(*m_next));
            token.kind = RtfTokenKind::Text;
            token.text = QByteArrayView(start, m_next);
            return true;
        }
        ++m_next;
        switch (byte) {
        case '{':
            token.kind = RtfTokenKind::GroupStart;
            return true;
        case '}':
            token.kind = RtfTokenKind::GroupEnd;
            return true;
        case '\t':
            token.kind = RtfTokenKind::Symbol;
            token.symbol = '\t';
            return true;
        case '\\':
            if (ReadControl(token))
                return true;
            break;
        default: // line ends and stray control characters mean nothing
            break;
        }
    }
    token.kind = RtfTokenKind::End;
    token.begin = Position();
    return false;
}

// Reads what follows a backslash; false when it makes no token.
bool RtfTokenizer::ReadControl(RtfToken& token) {
    if (m_next == m_end)
        return false;
    if (IsLetter(*m_next))
        return ReadWord(token);
    const char symbol = *m_next++;
    if (symbol == '\'')
        return ReadHexByte(token);
    if (symbol == '\r' && m_next != m_end && *m_next == '\n')
        ++m_next; // an escaped line end of two bytes is one
    token.kind = RtfTokenKind::Symbol;
    token.symbol = symbol == '\r' ? '\n' : symbol;
    return true;
}

bool RtfTokenizer::ReadWord(RtfToken& token) {
    const char* const start = m_next;
    while (m_next != m_end && IsLetter(*m_next))
        ++m_next;
    token.kind = RtfTokenKind::Word;
    token.text = QByteArrayView(start, m_next);
    token.parameter = 0;
    token.hasParameter = false;
    const bool negative = m_next != m_end && *m_next == '-';
    if (negative)
        ++m_next;
    constexpr qint64 kMost = std::numeric_limits<int>::max();
    qint64 number = 0;
    while (m_next != m_end && IsDigit(*m_next)) {
        number = std::min(kMost, number * 10 + (*m_next++ - '0'));
        token.hasParameter = true;
    }
    token.parameter = static_cast<int>(negative ? -number : number);
    if (m_next != m_end && *m_next == ' ')
        ++m_next;
    if (token.text == QByteArrayView("bin") && token.hasParameter) {
        const qsizetype count = std::clamp<qsizetype>(token.parameter, 0, m_end - m_next);
        token.kind = RtfTokenKind::Binary;
        token.text = QByteArrayView(m_next, count);
        m_next += count;
    }
    return true;
}

// A byte of one hexadecimal digit is read as such; one of none is left out with what follows it untouched.
bool RtfTokenizer::ReadHexByte(RtfToken& token) {
    int value = -1;
    for (int digit = 0; digit < 2 && m_next != m_end && HexDigit(*m_next) >= 0; ++digit)
        value = (value < 0 ? 0 : value * 16) + HexDigit(*m_next++);
    if (value < 0)
        return false;
    token.kind = RtfTokenKind::HexByte;
    token.symbol = static_cast<char>(value);
    return true;
}

qsizetype RtfTokenizer::SkipGroup() {
    qsizetype depth = 1;
    RtfToken token;
    while (depth > 0 && Next(token)) {
        if (token.kind == RtfTokenKind::GroupStart)
            ++depth;
        else if (token.kind == RtfTokenKind::GroupEnd)
            --depth;
    }
    return Position();
}

} // namespace platform
