#include "platform/database/like_pattern.h"

#include "platform/database/text_compare.h"
#include "platform/database/utf8.h"

#include <algorithm>
#include <array>
#include <string>

namespace platform {

constexpr std::size_t kWordBits = 64;
constexpr std::size_t kMaxWords = LikePattern::kMaxMixedElements / kWordBits;

bool LikePattern::Element::Matches(char32_t folded) const {
    const auto listed = [&] {
        return std::any_of(ranges.begin(), ranges.end(), [folded](const Range& range) {
            return range.first <= folded && folded <= range.last;
        });
    };
    switch (kind) {
    case Kind::Character:
        return folded == character;
    case Kind::Any:
        return true;
    case Kind::Digit:
        return folded >= U'0' && folded <= U'9';
    case Kind::List:
        return listed();
    case Kind::ListNot:
        return !listed();
    }
    return false;
}

// `p` stands behind the opening bracket and is moved behind the closing one.
bool LikePattern::TakeBracket(const char*& p, const char* end, std::vector<Element>& elements) {
    const char* close = std::find(p, end, ']');
    if (close == end)
        return false;
    std::vector<char32_t> listed;
    while (p < close) {
        const Utf8Character next = DecodeUtf8(p, close);
        listed.push_back(FoldCharacter(next.character));
        p += next.length;
    }
    p = close + 1;
    if (listed.empty())
        return true;
    Element element{.kind = Element::Kind::List};
    std::size_t i = 0;
    if (listed[0] == U'!' && listed.size() > 1) {
        element.kind = Element::Kind::ListNot;
        i = 1;
    }
    while (i < listed.size()) {
        Range range{listed[i], listed[i]};
        if (i + 2 < listed.size() && listed[i + 1] == U'-') {
            range.last = listed[i + 2];
            if (range.last < range.first)
                return false;
            i += 2;
        }
        element.ranges.push_back(range);
        ++i;
    }
    elements.push_back(std::move(element));
    return true;
}

std::optional<LikePattern> LikePattern::Compile(std::string_view pattern) {
    if (pattern.size() > kMaxBytes)
        return std::nullopt;
    LikePattern compiled;
    compiled.m_segments.emplace_back();
    const char* p = pattern.data();
    const char* const end = p + pattern.size();
    while (p < end) {
        const Utf8Character next = DecodeUtf8(p, end);
        p += next.length;
        std::vector<Element>& elements = compiled.m_segments.back().elements;
        if (next.character == U'*')
            compiled.m_segments.emplace_back();
        else if (next.character == U'?')
            elements.push_back({.kind = Element::Kind::Any});
        else if (next.character == U'#')
            elements.push_back({.kind = Element::Kind::Digit});
        else if (next.character != U'[')
            elements.push_back(
                {.kind = Element::Kind::Character, .character = FoldCharacter(next.character)});
        else if (!TakeBracket(p, end, elements))
            return std::nullopt;
    }
    // empty parts between the first and the last say nothing
    auto& segments = compiled.m_segments;
    if (segments.size() > 2) {
        segments.erase(std::remove_if(segments.begin() + 1, segments.end() - 1,
                                      [](const Segment& segment) { return segment.elements.empty(); }),
                       segments.end() - 1);
    }
    for (Segment& segment : segments) {
        segment.Finish();
        if (!segment.needle && segment.elements.size() > kMaxMixedElements)
            return std::nullopt;
    }
    return compiled;
}

void LikePattern::Segment::Finish() {
    if (elements.empty())
        return;
    bool plain = true;
    for (const Element& element : elements) {
        const bool character = element.kind == Element::Kind::Character;
        beyondAscii = beyondAscii || (character && element.character >= 0x80);
        plain = plain && character && element.character < 0x80;
    }
    if (plain) {
        std::string text;
        for (const Element& element : elements)
            text.push_back(static_cast<char>(element.character));
        needle.emplace(std::move(text));
        return;
    }
    words = (elements.size() + kWordBits - 1) / kWordBits;
    if (words > kMaxWords)
        return; // Compile refuses it
    asciiMasks.assign(0x80 * words, 0);
    for (std::size_t c = 0; c < 0x80; ++c) {
        for (std::size_t i = 0; i < elements.size(); ++i) {
            if (elements[i].Matches(FoldCharacter(static_cast<char32_t>(c))))
                asciiMasks[c * words + i / kWordBits] |= std::uint64_t{1} << (i % kWordBits);
        }
    }
}

// Behind the segment when it stands at `p`, else null.
const char* LikePattern::Segment::MatchAt(const char* p, const char* end) const {
    if (needle) {
        const bool fits = static_cast<std::size_t>(end - p) >= needle->size();
        return fits && needle->BeginsAt(p) ? p + needle->size() : nullptr;
    }
    for (const Element& element : elements) {
        if (p == end)
            return nullptr;
        const Utf8Character next = DecodeUtf8(p, end);
        if (!element.Matches(FoldCharacter(next.character)))
            return nullptr;
        p += next.length;
    }
    return p;
}

// Where the segment begins when it ends at `end` and does not begin before `begin`, else null.
const char* LikePattern::Segment::MatchBefore(const char* begin, const char* end) const {
    const char* p = end;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (p == begin)
            return nullptr;
        p = StepBackUtf8(begin, p, end);
    }
    return MatchAt(p, end) == end ? p : nullptr;
}

// Behind the first occurrence at or after `p`, else null.
const char* LikePattern::Segment::Find(const char* p, const char* end) const {
    const std::string_view text(p, static_cast<std::size_t>(end - p));
    if (needle) {
        const std::size_t found = needle->Find(text);
        return found == std::string_view::npos ? nullptr : p + found + needle->size();
    }
    if (beyondAscii && IsAscii(text))
        return nullptr;
    return FindMixed(p, end);
}

// Bit i of the state says that the elements up to i match the characters just read; all are advanced at once.
const char* LikePattern::Segment::FindMixed(const char* p, const char* end) const {
    std::array<std::uint64_t, kMaxWords> state{};
    std::array<std::uint64_t, kMaxWords> otherMask{};
    char32_t other = 0; // the character of otherMask
    const std::uint64_t lastBit = std::uint64_t{1} << ((elements.size() - 1) % kWordBits);
    while (p < end) {
        const Utf8Character next = DecodeUtf8(p, end);
        p += next.length;
        const std::uint64_t* mask = otherMask.data();
        if (next.character < 0x80) {
            mask = &asciiMasks[next.character * words];
        } else if (next.character != other) {
            other = next.character;
            otherMask.fill(0);
            const char32_t folded = FoldCharacter(other);
            for (std::size_t i = 0; i < elements.size(); ++i) {
                if (elements[i].Matches(folded))
                    otherMask[i / kWordBits] |= std::uint64_t{1} << (i % kWordBits);
            }
        }
        std::uint64_t carry = 1;
        for (std::size_t w = 0; w < words; ++w) {
            const std::uint64_t shifted = (state[w] << 1) | carry;
            carry = state[w] >> (kWordBits - 1);
            state[w] = shifted & mask[w];
        }
        if ((state[words - 1] & lastBit) != 0)
            return p;
    }
    return nullptr;
}

bool LikePattern::Matches(std::string_view text) const {
    const char* p = text.data();
    const char* end = p + text.size();
    const Segment& first = m_segments.front();
    if (!first.elements.empty())
        p = first.MatchAt(p, end);
    if (p == nullptr)
        return false;
    if (m_segments.size() == 1)
        return p == end;
    const Segment& last = m_segments.back();
    if (!last.elements.empty())
        end = last.MatchBefore(p, end);
    if (end == nullptr)
        return false;
    // the first occurrence of each part leaves the most room for the next
    for (std::size_t i = 1; i + 1 < m_segments.size() && p != nullptr; ++i)
        p = m_segments[i].Find(p, end);
    return p != nullptr;
}

// Parts of ASCII only cannot be mistaken in a character that was cut through.
bool LikePattern::IsDecidedByABeginning() const {
    return m_segments.size() > 1 && m_segments.back().elements.empty() &&
           std::all_of(m_segments.begin(), m_segments.end(),
                       [](const Segment& segment) { return segment.elements.empty() || segment.needle; });
}

TextNeedle LikePattern::Needle() const {
    TextNeedle needle;
    const auto isCharacter = [](const Element& element) { return element.kind == Element::Kind::Character; };
    const auto isRun = [&](const Element& element) {
        return isCharacter(element) && element.character < 0x80 &&
               IsRunByte(static_cast<char>(element.character));
    };
    for (const Segment& segment : m_segments) {
        const auto& elements = segment.elements;
        for (std::size_t i = 0; i < elements.size();) {
            if (!isRun(elements[i])) {
                ++i;
                continue;
            }
            RunNeedle run{.text = {}, .begins = i > 0 && isCharacter(elements[i - 1])};
            for (; i < elements.size() && isRun(elements[i]); ++i)
                run.text.push_back(static_cast<char>(elements[i].character));
            run.ends = i < elements.size() && isCharacter(elements[i]);
            needle.runs.push_back(std::move(run));
        }
    }
    const std::size_t segments = m_segments.size();
    const bool isOpen =
        segments > 1 && m_segments.front().elements.empty() && m_segments.back().elements.empty();
    const bool isAny = segments == 2 && isOpen;
    const bool isOneRun = segments == 3 && isOpen && needle.runs.size() == 1 &&
                          needle.runs[0].text.size() == m_segments[1].elements.size();
    needle.exact = isAny || isOneRun;
    return needle;
}

} // namespace platform
