// Comparing text without case. Accents are told apart: É equals é, é differs from e.
#pragma once

#include <string_view>

namespace platform {

// Simple Unicode case folding of one character. No character beyond ASCII becomes an ASCII one (the Kelvin
// sign stays itself), so that ASCII text can be compared byte by byte within UTF-8.
char32_t FoldCharacter(char32_t character);

// Negative, zero or positive, as `left` stands before, with or behind `right`, both UTF-8: the order of the
// folded characters. Any bytes may come in.
int CompareCaseless(std::string_view left, std::string_view right);

} // namespace platform
