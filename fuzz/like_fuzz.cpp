// Patterns and texts of LIKE: the first line is the pattern, the rest the text. Compared with the same rules
// written as plainly as they can be.
#include "platform/database/like_pattern.h"
#include "platform/database/text_compare.h"
#include "platform/database/utf8.h"

#include <cstdlib>
#include <vector>

using namespace platform;

static std::vector<char32_t> Folded(std::string_view text) {
    std::vector<char32_t> folded;
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p < end) {
        const Utf8Character next = DecodeUtf8(p, end);
        folded.push_back(FoldCharacter(next.character));
        p += next.length;
    }
    return folded;
}

// One step of a pattern without brackets over all prefixes of the text at once.
static bool PlainMatch(const std::vector<char32_t>& pattern, const std::vector<char32_t>& text) {
    std::vector<bool> reached(text.size() + 1, false);
    reached[0] = true;
    for (const char32_t p : pattern) {
        std::vector<bool> next(text.size() + 1, false);
        for (std::size_t i = 0; i <= text.size(); ++i) {
            if (p == U'*') {
                next[i] = reached[i] || (i > 0 && next[i - 1]);
            } else if (i > 0 && reached[i - 1]) {
                const char32_t c = text[i - 1];
                next[i] = p == U'?' || (p == U'#' ? c >= U'0' && c <= U'9' : c == p);
            }
        }
        reached = next;
    }
    return reached.back();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 4096)
        return 0;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t split = std::min(input.find('\n'), size);
    const std::string_view pattern = input.substr(0, split);
    const std::string_view text = input.substr(std::min(split + 1, size));
    const std::optional<LikePattern> compiled = LikePattern::Compile(pattern);
    if (!compiled)
        return 0;
    const bool matches = compiled->Matches(text);
    if (pattern.find('[') == std::string_view::npos && matches != PlainMatch(Folded(pattern), Folded(text)))
        std::abort();
    return 0;
}
