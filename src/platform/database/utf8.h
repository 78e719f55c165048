// Stepping through UTF-8 by code points. A byte that begins no valid sequence counts as one U+FFFD, so any
// bytes can be walked, forwards and backwards over the same boundaries.
#pragma once

namespace platform {

struct Utf8Character {
    char32_t character = 0;
    int length = 0; // bytes
};

inline bool IsContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

// The character at `p`; p < end.
inline Utf8Character DecodeUtf8(const char* p, const char* end) {
    constexpr Utf8Character invalid{0xFFFD, 1};
    const auto at = [p](int i) { return static_cast<unsigned char>(p[i]); };
    const unsigned char lead = at(0);
    if (lead < 0x80)
        return {lead, 1};
    const int length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || end - p < length)
        return invalid;
    char32_t character = lead & (0x7F >> length);
    for (int i = 1; i < length; ++i) {
        if (!IsContinuation(at(i)))
            return invalid;
        character = (character << 6) | (at(i) & 0x3F);
    }
    const bool overlong = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (overlong || surrogate || character > 0x10FFFF)
        return invalid;
    return {character, length};
}

// Where the character that ends before `p` begins; begin < p <= end.
inline const char* StepBackUtf8(const char* begin, const char* p, const char* end) {
    const char* q = p - 1;
    while (q > begin && p - q < 4 && IsContinuation(static_cast<unsigned char>(*q)))
        --q;
    return DecodeUtf8(q, end).length == p - q ? q : p - 1;
}

} // namespace platform
