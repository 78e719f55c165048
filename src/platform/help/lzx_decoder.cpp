#include "platform/help/lzx_decoder.h"

#include <algorithm>
#include <cstring>

namespace platform {

namespace {

constexpr int kPreTreeCount = 20;
constexpr int kShortestMatch = 2;
constexpr int kLengthInSymbol = 7; // a match of this length has more of it in the code of lengths
constexpr int kRepeatedOffsets = 3;

int SlotCount(int windowBits) {
    constexpr std::array<int, 7> kSlots{30, 32, 34, 36, 38, 42, 50};
    return kSlots[size_t(windowBits - 15)];
}

// How many bits follow an offset's slot, and where the slot's offsets begin.
constexpr int ExtraBits(int slot) {
    return slot < 4 ? 0 : std::min(slot / 2 - 1, 17);
}

constexpr auto kSlotBases = [] {
    std::array<std::uint32_t, 50> bases{};
    std::uint32_t base = 0;
    for (int slot = 0; slot < 50; ++slot) {
        bases[size_t(slot)] = base;
        base += 1u << ExtraBits(slot);
    }
    return bases;
}();

} // namespace

void LzxBits::Fill() {
    while (m_count <= 16) {
        std::uint32_t word = 0;
        if (m_position < m_bytes.size()) {
            word = std::uint8_t(m_bytes[m_position]);
            if (m_position + 1 < m_bytes.size())
                word |= std::uint32_t(std::uint8_t(m_bytes[m_position + 1])) << 8;
        } else {
            m_beyond += 16;
        }
        m_position += 2;
        m_bits |= word << (16 - m_count);
        m_count += 16;
    }
}

std::uint32_t LzxBits::Peek16() {
    Fill();
    return m_bits >> 16;
}

void LzxBits::Skip(int count) {
    Fill();
    m_bits <<= count;
    m_count -= count;
    if (m_count < m_beyond)
        m_hasFailed = true;
}

std::uint32_t LzxBits::Take(int count) {
    if (count == 0)
        return 0;
    if (count > 16) {
        const std::uint32_t high = Take(count - 16);
        return (high << 16) | Take(16);
    }
    const std::uint32_t value = Peek16() >> (16 - count);
    Skip(count);
    return value;
}

void LzxBits::AlignForRawBytes() {
    Fill();
    const int beforeBorder = m_count % 16 == 0 ? 16 : m_count % 16;
    Skip(beforeBorder);
    m_position -= m_count / 8;
    m_bits = 0;
    m_count = 0;
    m_beyond = 0;
}

bool LzxBits::TakeRaw(char* to, qsizetype count) {
    if (m_count != 0 || m_hasFailed || m_position > m_bytes.size() || count > m_bytes.size() - m_position)
        return false;
    std::memcpy(to, m_bytes.data() + m_position, size_t(count));
    m_position += count;
    return true;
}

void LzxBits::SkipRaw(qsizetype count) {
    m_position += count;
}

bool LzxTree::Make(const std::uint8_t* lengths, int count) {
    m_ofLength = {};
    m_symbols.clear();
    for (int symbol = 0; symbol < count; ++symbol) {
        if (lengths[symbol] > 16)
            return false;
        ++m_ofLength[lengths[symbol]];
    }
    m_ofLength[0] = 0;
    std::array<int, 18> first{};
    std::int32_t free = 1;
    for (size_t length = 1; length <= 16; ++length) {
        free = free * 2 - m_ofLength[length];
        if (free < 0)
            return false;
        first[length + 1] = first[length] + m_ofLength[length];
    }
    m_symbols.resize(size_t(first[17]));
    for (int symbol = 0; symbol < count; ++symbol) {
        if (lengths[symbol] != 0)
            m_symbols[size_t(first[lengths[symbol]]++)] = std::uint16_t(symbol);
    }
    return true;
}

int LzxTree::Read(LzxBits& bits) const {
    const std::uint32_t ahead = bits.Peek16();
    std::uint32_t firstCode = 0;
    std::uint32_t index = 0;
    for (int length = 1; length <= 16; ++length) {
        const std::uint32_t code = ahead >> (16 - length);
        const std::uint32_t count = m_ofLength[size_t(length)];
        if (code - firstCode < count) {
            bits.Skip(length);
            return m_symbols[index + code - firstCode];
        }
        index += count;
        firstCode = (firstCode + count) << 1;
    }
    return -1;
}

LzxDecoder::LzxDecoder(int windowBits)
    : m_windowBits(std::clamp(windowBits, 15, 21))
    , m_mainCount(256 + SlotCount(m_windowBits) * 8) {}

void LzxDecoder::Reset() {
    m_atStart = true;
    m_blockType = 0;
    m_blockLeft = 0;
    m_hasPadding = false;
    m_offsets = {1, 1, 1};
    m_mainLengths = {};
    m_lengthLengths = {};
}

bool LzxDecoder::DecodeFrame(QByteArrayView frame, QByteArray& out) {
    LzxBits bits(frame);
    if (m_atStart) {
        // the stream of a program has its jumps rewritten; help is no program
        if (bits.Take(1) != 0)
            return false;
        m_atStart = false;
    }
    int left = kFrame;
    while (left > 0) {
        if (m_blockLeft == 0 && !ReadBlockHeader(bits))
            return false;
        const int run = std::min(left, m_blockLeft);
        if (!ReadRun(bits, run, out))
            return false;
        m_blockLeft -= run;
        left -= run;
        if (m_blockLeft == 0 && m_hasPadding) {
            bits.SkipRaw(1);
            m_hasPadding = false;
        }
    }
    return true;
}

bool LzxDecoder::ReadBlockHeader(LzxBits& bits) {
    m_blockType = int(bits.Take(3));
    m_blockLeft = int(bits.Take(16) << 8);
    m_blockLeft |= int(bits.Take(8));
    if (m_blockLeft == 0 || bits.HasFailed())
        return false;
    if (m_blockType == kRaw) {
        bits.AlignForRawBytes();
        std::array<char, 12> raw{};
        if (!bits.TakeRaw(raw.data(), qsizetype(raw.size())))
            return false;
        for (size_t i = 0; i < 12; ++i) {
            std::uint32_t& offset = m_offsets[i / 4];
            offset = (offset >> 8) | (std::uint32_t(std::uint8_t(raw[i])) << 24);
        }
        m_hasPadding = m_blockLeft % 2 != 0;
        return true;
    }
    if (m_blockType == kAligned) {
        std::array<std::uint8_t, 8> lengths{};
        for (std::uint8_t& length : lengths)
            length = std::uint8_t(bits.Take(3));
        if (!m_aligned.Make(lengths.data(), int(lengths.size())))
            return false;
    } else if (m_blockType != kVerbatim) {
        return false;
    }
    return ReadLengths(bits, m_mainLengths.data(), 0, 256) &&
           ReadLengths(bits, m_mainLengths.data(), 256, m_mainCount) &&
           m_main.Make(m_mainLengths.data(), m_mainCount) &&
           ReadLengths(bits, m_lengthLengths.data(), 0, int(m_lengthLengths.size())) &&
           m_length.Make(m_lengthLengths.data(), int(m_lengthLengths.size()));
}

// The lengths come as differences from those of the block before, in a small code of their own.
bool LzxDecoder::ReadLengths(LzxBits& bits, std::uint8_t* lengths, int first, int last) {
    std::array<std::uint8_t, kPreTreeCount> preLengths{};
    for (std::uint8_t& length : preLengths)
        length = std::uint8_t(bits.Take(4));
    LzxTree preTree;
    if (!preTree.Make(preLengths.data(), kPreTreeCount))
        return false;
    const auto changed = [](std::uint8_t before, int difference) {
        return std::uint8_t((before + 17 - difference) % 17);
    };
    int at = first;
    while (at < last) {
        const int symbol = preTree.Read(bits);
        if (symbol < 0 || bits.HasFailed())
            return false;
        int run = 1;
        std::uint8_t value = 0;
        if (symbol == 17) {
            run = 4 + int(bits.Take(4));
        } else if (symbol == 18) {
            run = 20 + int(bits.Take(5));
        } else if (symbol == 19) {
            run = 4 + int(bits.Take(1));
            const int difference = preTree.Read(bits);
            if (difference < 0 || difference > 16)
                return false;
            value = changed(lengths[at], difference);
        } else {
            value = changed(lengths[at], symbol);
        }
        if (run > last - at)
            return false;
        std::fill_n(lengths + at, run, value);
        at += run;
    }
    return !bits.HasFailed();
}

bool LzxDecoder::ReadRun(LzxBits& bits, int length, QByteArray& out) {
    if (m_blockType == kRaw) {
        const qsizetype before = out.size();
        out.resize(before + length);
        if (bits.TakeRaw(out.data() + before, length))
            return true;
        out.resize(before);
        return false;
    }
    int left = length;
    while (left > 0) {
        const int symbol = m_main.Read(bits);
        if (symbol < 0 || bits.HasFailed())
            return false;
        if (symbol < 256) {
            out.append(char(symbol));
            --left;
            continue;
        }
        int match = 0;
        if (!ReadMatch(bits, symbol - 256, match) || match > left || !CopyMatch(match, out))
            return false;
        left -= match;
    }
    return !bits.HasFailed();
}

bool LzxDecoder::ReadMatch(LzxBits& bits, int symbol, int& length) {
    length = symbol % 8;
    if (length == kLengthInSymbol) {
        const int more = m_length.Read(bits);
        if (more < 0)
            return false;
        length += more;
    }
    length += kShortestMatch;
    return ReadOffset(bits, symbol / 8);
}

bool LzxDecoder::ReadOffset(LzxBits& bits, int slot) {
    if (slot < kRepeatedOffsets) {
        std::swap(m_offsets[0], m_offsets[size_t(slot)]);
        return true;
    }
    const int extra = ExtraBits(slot);
    std::uint32_t rest = 0;
    if (m_blockType == kAligned && extra >= 3) {
        rest = bits.Take(extra - 3) << 3;
        const int low = m_aligned.Read(bits);
        if (low < 0)
            return false;
        rest += std::uint32_t(low);
    } else {
        rest = bits.Take(extra);
    }
    m_offsets = {kSlotBases[size_t(slot)] - 2 + rest, m_offsets[0], m_offsets[1]};
    return true;
}

// A match may reach into what it writes: it then repeats itself.
bool LzxDecoder::CopyMatch(int length, QByteArray& out) const {
    const std::uint32_t offset = m_offsets[0];
    if (offset == 0 || offset > (1u << m_windowBits) || offset > std::uint64_t(out.size()))
        return false;
    const qsizetype to = out.size();
    out.resize(to + length);
    char* bytes = out.data();
    for (qsizetype i = to; i < to + length; ++i)
        bytes[i] = bytes[i - qsizetype(offset)];
    return true;
}

} // namespace platform
