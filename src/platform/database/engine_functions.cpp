#include "platform/database/engine_functions.h"

#include "platform/database/like_pattern.h"
#include "platform/database/schema.h"
#include "platform/database/text_compare.h"

#include <memory>
#include <new>

namespace platform {

static std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

// like(pattern, text). The compiled pattern is kept by the engine from one row to the next.
static void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return; // null
    const auto* kept = static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0));
    std::optional<LikePattern> compiled;
    if (kept == nullptr) {
        compiled = LikePattern::Compile(TextOf(arguments[0]));
        if (!compiled) {
            sqlite3_result_error(context, "malformed pattern", -1);
            return;
        }
    }
    const LikePattern& pattern = kept != nullptr ? *kept : *compiled;
    sqlite3_result_int(context, pattern.Matches(TextOf(arguments[1])) ? 1 : 0);
    if (kept == nullptr) { // last: the engine may drop what it is given at once
        sqlite3_set_auxdata(context, 0, new LikePattern(std::move(*compiled)),
                            [](void* pattern) { delete static_cast<LikePattern*>(pattern); });
    }
}

static int Collate(void*, int leftBytes, const void* left, int rightBytes, const void* right) {
    return CompareCaseless({static_cast<const char*>(left), static_cast<std::size_t>(leftBytes)},
                           {static_cast<const char*>(right), static_cast<std::size_t>(rightBytes)});
}

bool RegisterFunctions(sqlite3* handle) {
    return sqlite3_create_function_v2(handle, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, Like,
                                      nullptr, nullptr, nullptr) == SQLITE_OK &&
           sqlite3_create_collation_v2(handle, kCollation, SQLITE_UTF8, nullptr, Collate, nullptr) ==
               SQLITE_OK;
}

} // namespace platform
