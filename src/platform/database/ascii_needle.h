// Finding a short ASCII text in a long UTF-8 one without case, as fast as memory is read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class AsciiNeedle {
public:
    // `needle` is ASCII and not empty; its capitals are made small.
    explicit AsciiNeedle(std::string needle);

    std::size_t size() const { return m_needle.size(); }

    // The offset of the first occurrence, or std::string_view::npos. Time is linear in the text.
    std::size_t Find(std::string_view text) const;

    // Whether `text`, at least as long as the needle, begins with it.
    bool BeginsAt(const char* text) const;

private:
    struct Scan;
    static std::size_t FindPortable(const AsciiNeedle& needle, Scan& scan);
    static std::size_t FindSse2(const AsciiNeedle& needle, Scan& scan);
    static std::size_t FindAvx2(const AsciiNeedle& needle, Scan& scan);
    bool Verify(Scan& scan, std::size_t start) const;
    std::size_t FindLinear(std::string_view text, std::size_t from) const;

    std::string m_needle;
    std::size_t m_first = 0; // offsets of the two bytes that are rarest in running text
    std::size_t m_second = 0;
    std::vector<std::uint32_t> m_borders; // of each prefix, the longest proper border
};

// Whether every byte is below 0x80.
bool IsAscii(std::string_view text);

} // namespace platform
