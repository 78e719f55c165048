#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <array>
#include <cstdint>
#include <vector>

namespace platform {

// Reads one LZX bit stream: words of 16 bits, low byte first, each taken from its high bit. What is asked for
// beyond the end is zero and puts the stream in the failed state.
class LzxBits {
public:
    explicit LzxBits(QByteArrayView bytes)
        : m_bytes(bytes) {}

    std::uint32_t Peek16();
    void Skip(int count);          // at most 16
    std::uint32_t Take(int count); // at most 17
    bool HasFailed() const { return m_hasFailed; }

    // From the next whole word on: raw bytes. A stream that stands on a word's border skips that word.
    void AlignForRawBytes();
    bool TakeRaw(char* to, qsizetype count);
    void SkipRaw(qsizetype count);

private:
    void Fill();

    QByteArrayView m_bytes;
    qsizetype m_position = 0;
    std::uint32_t m_bits = 0; // the next bits, in its high end
    int m_count = 0;
    int m_beyond = 0; // bits of m_count that the stream does not have
    bool m_hasFailed = false;
};

// A prefix code made of the lengths of its symbols' codes, 0 to 16 bits.
class LzxTree {
public:
    // False for lengths that make no code. All lengths 0 are an empty code: no symbol can then be read.
    bool Make(const std::uint8_t* lengths, int count);
    // -1 when no symbol has the code that comes.
    int Read(LzxBits& bits) const;

private:
    std::array<std::uint16_t, 17> m_ofLength{}; // symbols with a code of this many bits
    std::vector<std::uint16_t> m_symbols;       // by code
};

// Decompresses the LZX stream of a compiled help file, which comes in frames of 32 KiB, each of which begins
// on a byte. Damaged input gives false and never more than a frame; nothing outside the buffers is touched.
class LzxDecoder {
public:
    static constexpr int kFrame = 0x8000; // bytes

    // `windowBits`: 15 to 21; how far back a match can reach.
    explicit LzxDecoder(int windowBits);

    // Begins anew, as the stream does at every reset point.
    void Reset();

    // Appends the bytes of a frame, always kFrame, to `out`, which holds all that was decoded since the last
    // reset.
    bool DecodeFrame(QByteArrayView frame, QByteArray& out);

private:
    bool ReadBlockHeader(LzxBits& bits);
    bool ReadLengths(LzxBits& bits, std::uint8_t* lengths, int first, int last);
    bool ReadRun(LzxBits& bits, int length, QByteArray& out);
    bool ReadMatch(LzxBits& bits, int symbol, int& length);
    bool ReadOffset(LzxBits& bits, int slot);
    bool CopyMatch(int length, QByteArray& out) const;

    enum BlockType { kVerbatim = 1, kAligned = 2, kRaw = 3 };

    int m_windowBits;
    int m_mainCount;
    bool m_atStart = true;
    int m_blockType = 0;
    int m_blockLeft = 0;       // bytes
    bool m_hasPadding = false; // a raw block of odd length is followed by a byte of none
    std::array<std::uint32_t, 3> m_offsets{1, 1, 1}; // of the last matches
    std::array<std::uint8_t, 256 + 50 * 8> m_mainLengths{};
    std::array<std::uint8_t, 249> m_lengthLengths{};
    LzxTree m_main;
    LzxTree m_length;
    LzxTree m_aligned;
};

} // namespace platform
