#include "platform/database/text_compare.h"

#include "platform/database/utf8.h"

#include <QChar>

namespace platform {

char32_t FoldCharacter(char32_t character) {
    if (character < 0x80)
        return character >= U'A' && character <= U'Z' ? character + 0x20 : character;
    const char32_t folded = QChar::toCaseFolded(character);
    return folded < 0x80 ? character : folded;
}

int CompareCaseless(std::string_view left, std::string_view right) {
    const char* l = left.data();
    const char* r = right.data();
    const char* const lEnd = l + left.size();
    const char* const rEnd = r + right.size();
    while (l < lEnd && r < rEnd) {
        const Utf8Character lNext = DecodeUtf8(l, lEnd);
        const Utf8Character rNext = DecodeUtf8(r, rEnd);
        if (lNext.character != rNext.character) {
            const char32_t lFolded = FoldCharacter(lNext.character);
            const char32_t rFolded = FoldCharacter(rNext.character);
            if (lFolded != rFolded)
                return lFolded < rFolded ? -1 : 1;
        }
        l += lNext.length;
        r += rNext.length;
    }
    return static_cast<int>(l < lEnd) - static_cast<int>(r < rEnd);
}

} // namespace platform
