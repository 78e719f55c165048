// The pattern of LIKE, compiled once and matched against many texts.
//
//   *        any run of characters, the empty one included
//   ?        one character
//   #        one digit, 0 to 9
//   [list]   one character of the list; a-z in it is a range, '-' first or last is itself; [] is nothing
//   [!list]  one character that is not of the list; [!] is the exclamation mark
//
// The whole text is matched, without case (see FoldCharacter). A character is a code point.
#pragma once

#include "platform/database/ascii_needle.h"
#include "platform/database/text_needle.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace platform {

class LikePattern {
public:
    static constexpr std::size_t kMaxBytes = 16 * 1024;
    static constexpr std::size_t kMaxMixedElements = 1024; // of a part between two '*' that is no plain ASCII

    // Takes UTF-8. Empty when a bracket is not closed, a range runs backwards, or the pattern is too long.
    static std::optional<LikePattern> Compile(std::string_view pattern);

    // `text` is UTF-8; any bytes may come in. Time is linear in the text for a given pattern.
    bool Matches(std::string_view text) const;

    // A text of which a beginning matches, cut off anywhere, matches as a whole.
    bool IsDecidedByABeginning() const;

    // What an index over the texts' runs can say about the pattern.
    TextNeedle Needle() const;

private:
    struct Range {
        char32_t first = 0;
        char32_t last = 0;
    };
    struct Element { // matches exactly one character
        enum class Kind { Character, Any, Digit, List, ListNot };
        Kind kind = Kind::Character;
        char32_t character = 0;         // folded
        std::vector<Range> ranges = {}; // folded
        bool Matches(char32_t folded) const;
    };
    // What stands between two '*'.
    struct Segment {
        std::vector<Element> elements;
        std::optional<AsciiNeedle> needle;     // when all elements are ASCII characters
        bool beyondAscii = false;              // an element is a character beyond ASCII
        std::size_t words = 0;                 // 64-bit words in a mask
        std::vector<std::uint64_t> asciiMasks; // for each ASCII character the elements it matches

        void Finish();
        const char* MatchAt(const char* p, const char* end) const;
        const char* MatchBefore(const char* begin, const char* end) const;
        const char* Find(const char* p, const char* end) const;
        const char* FindMixed(const char* p, const char* end) const;
    };
    static bool TakeBracket(const char*& p, const char* end, std::vector<Element>& elements);

    std::vector<Segment> m_segments; // one more than there are '*'
};

} // namespace platform
