#include "platform/database/ascii_needle.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#if defined(__x86_64__) && defined(__GNUC__)
#define PLATFORM_X86_SEARCH 1
#include <immintrin.h>
#endif

namespace platform {

static constexpr std::array<unsigned char, 256> MakeFoldTable() {
    std::array<unsigned char, 256> table{};
    for (int i = 0; i < 256; ++i)
        table[static_cast<std::size_t>(i)] = static_cast<unsigned char>(i >= 'A' && i <= 'Z' ? i + 0x20 : i);
    return table;
}

static constexpr std::array<unsigned char, 256> kFold = MakeFoldTable();

static unsigned char Fold(char c) {
    return kFold[static_cast<unsigned char>(c)];
}
static bool IsSmallLetter(char c) {
    return c >= 'a' && c <= 'z';
}

// How common a byte is in formatted English text; the bytes not named are rarest.
static std::size_t Commonness(char c) {
    static constexpr std::string_view order = "qzxjkvwygbmufhpc0123456789{}dl\\sinortae ";
    const std::size_t place = order.find(c);
    return place == std::string_view::npos ? 0 : place + 1;
}

// One search: the text, where the next candidate may start, and how many bytes may still be compared in vain
// before the search goes on in the slower way whose worst case is linear.
struct AsciiNeedle::Scan {
    std::string_view text;
    std::size_t next = 0;
    std::size_t last = 0; // the last offset at which the needle fits
    std::size_t budget = 0;
};

constexpr std::size_t kNotFound = std::string_view::npos;

AsciiNeedle::AsciiNeedle(std::string needle)
    : m_needle(std::move(needle))
    , m_borders(m_needle.size(), 0) {
    for (char& c : m_needle)
        c = static_cast<char>(Fold(c));
    std::size_t rarest = 0;
    for (std::size_t i = 1; i < m_needle.size(); ++i) {
        if (Commonness(m_needle[i]) < Commonness(m_needle[rarest]))
            rarest = i;
    }
    std::size_t second = rarest == 0 ? m_needle.size() - 1 : 0;
    for (std::size_t i = 0; i < m_needle.size(); ++i) {
        if (i != rarest && Commonness(m_needle[i]) < Commonness(m_needle[second]))
            second = i;
    }
    m_first = std::min(rarest, second);
    m_second = std::max(rarest, second);

    std::uint32_t border = 0;
    for (std::size_t i = 1; i < m_needle.size(); ++i) {
        while (border > 0 && m_needle[i] != m_needle[border])
            border = m_borders[border - 1];
        if (m_needle[i] == m_needle[border])
            ++border;
        m_borders[i] = border;
    }
}

bool AsciiNeedle::BeginsAt(const char* text) const {
    for (std::size_t i = 0; i < m_needle.size(); ++i) {
        if (Fold(text[i]) != static_cast<unsigned char>(m_needle[i]))
            return false;
    }
    return true;
}

// Compares at a candidate. A failure costs its bytes of the budget.
bool AsciiNeedle::Verify(Scan& scan, std::size_t start) const {
    const char* text = scan.text.data() + start;
    std::size_t i = 0;
    while (i < m_needle.size() && Fold(text[i]) == static_cast<unsigned char>(m_needle[i]))
        ++i;
    scan.budget -= std::min(scan.budget, i + 1);
    return i == m_needle.size();
}

// Each of the three goes through the candidates in order and returns the offset of the first occurrence. With
// nothing found or the budget spent they return kNotFound, and everything before `next` is then searched.
std::size_t AsciiNeedle::FindPortable(const AsciiNeedle& needle, Scan& scan) {
    const unsigned char first = static_cast<unsigned char>(needle.m_needle[needle.m_first]);
    const unsigned char second = static_cast<unsigned char>(needle.m_needle[needle.m_second]);
    const char* text = scan.text.data();
    for (; scan.next <= scan.last && scan.budget > 0; ++scan.next) {
        const std::size_t i = scan.next;
        if (Fold(text[i + needle.m_first]) == first && Fold(text[i + needle.m_second]) == second &&
            needle.Verify(scan, i))
            return i;
    }
    return kNotFound;
}

#ifdef PLATFORM_X86_SEARCH

std::size_t AsciiNeedle::FindSse2(const AsciiNeedle& needle, Scan& scan) {
    const char first = needle.m_needle[needle.m_first];
    const char second = needle.m_needle[needle.m_second];
    const __m128i firstByte = _mm_set1_epi8(first);
    const __m128i secondByte = _mm_set1_epi8(second);
    const __m128i firstCase = _mm_set1_epi8(IsSmallLetter(first) ? 0x20 : 0);
    const __m128i secondCase = _mm_set1_epi8(IsSmallLetter(second) ? 0x20 : 0);
    const char* const firstText = scan.text.data() + needle.m_first;
    const char* const secondText = scan.text.data() + needle.m_second;
    for (; scan.next + 15 <= scan.last && scan.budget > 0; scan.next += 16) {
        const auto load = [i = scan.next](const char* text) {
            return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + i));
        };
        const __m128i hits =
            _mm_and_si128(_mm_cmpeq_epi8(_mm_or_si128(load(firstText), firstCase), firstByte),
                          _mm_cmpeq_epi8(_mm_or_si128(load(secondText), secondCase), secondByte));
        for (auto mask = static_cast<unsigned>(_mm_movemask_epi8(hits)); mask != 0; mask &= mask - 1) {
            const std::size_t candidate = scan.next + static_cast<std::size_t>(std::countr_zero(mask));
            if (needle.Verify(scan, candidate))
                return candidate;
        }
    }
    return kNotFound;
}

__attribute__((target("avx2"))) std::size_t AsciiNeedle::FindAvx2(const AsciiNeedle& needle, Scan& scan) {
    const char first = needle.m_needle[needle.m_first];
    const char second = needle.m_needle[needle.m_second];
    const __m256i firstByte = _mm256_set1_epi8(first);
    const __m256i secondByte = _mm256_set1_epi8(second);
    const __m256i firstCase = _mm256_set1_epi8(IsSmallLetter(first) ? 0x20 : 0);
    const __m256i secondCase = _mm256_set1_epi8(IsSmallLetter(second) ? 0x20 : 0);
    for (; scan.next + 63 <= scan.last && scan.budget > 0; scan.next += 64) {
        const auto* a = reinterpret_cast<const __m256i*>(scan.text.data() + scan.next + needle.m_first);
        const auto* b = reinterpret_cast<const __m256i*>(scan.text.data() + scan.next + needle.m_second);
        const __m256i low = _mm256_and_si256(
            _mm256_cmpeq_epi8(_mm256_or_si256(_mm256_loadu_si256(a), firstCase), firstByte),
            _mm256_cmpeq_epi8(_mm256_or_si256(_mm256_loadu_si256(b), secondCase), secondByte));
        const __m256i high = _mm256_and_si256(
            _mm256_cmpeq_epi8(_mm256_or_si256(_mm256_loadu_si256(a + 1), firstCase), firstByte),
            _mm256_cmpeq_epi8(_mm256_or_si256(_mm256_loadu_si256(b + 1), secondCase), secondByte));
        std::uint64_t mask =
            static_cast<std::uint32_t>(_mm256_movemask_epi8(low)) |
            static_cast<std::uint64_t>(static_cast<std::uint32_t>(_mm256_movemask_epi8(high))) << 32;
        for (; mask != 0; mask &= mask - 1) {
            const std::size_t candidate = scan.next + static_cast<std::size_t>(std::countr_zero(mask));
            if (needle.Verify(scan, candidate))
                return candidate;
        }
    }
    return kNotFound;
}

#endif

// Knuth, Morris and Pratt: never looks at a byte of the text twice.
std::size_t AsciiNeedle::FindLinear(std::string_view text, std::size_t from) const {
    std::size_t matched = 0;
    for (std::size_t i = from; i < text.size(); ++i) {
        const char c = static_cast<char>(Fold(text[i]));
        while (matched > 0 && c != m_needle[matched])
            matched = m_borders[matched - 1];
        if (c == m_needle[matched])
            ++matched;
        if (matched == m_needle.size())
            return i + 1 - matched;
    }
    return kNotFound;
}

std::size_t AsciiNeedle::Find(std::string_view text) const {
    if (text.size() < m_needle.size())
        return kNotFound;
    Scan scan{.text = text,
              .last = text.size() - m_needle.size(),
              .budget = 4 * text.size() + 16 * m_needle.size()};
    std::size_t found = kNotFound;
#ifdef PLATFORM_X86_SEARCH
    static const auto wide = __builtin_cpu_supports("avx2") ? &FindAvx2 : &FindSse2;
    found = wide(*this, scan);
#endif
    if (found == kNotFound)
        found = FindPortable(*this, scan); // the rest of less than one step
    if (found == kNotFound && scan.budget == 0)
        found = FindLinear(text, scan.next);
    return found;
}

bool IsAscii(std::string_view text) {
    const char* p = text.data();
    std::size_t left = text.size();
    for (; left >= 32; p += 32, left -= 32) {
        std::array<std::uint64_t, 4> words;
        std::memcpy(words.data(), p, sizeof words);
        if (((words[0] | words[1] | words[2] | words[3]) & 0x8080808080808080U) != 0)
            return false;
    }
    return std::all_of(p, p + left, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace platform
