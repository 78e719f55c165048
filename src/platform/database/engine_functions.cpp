#include "platform/database/engine_functions.h"

#include "platform/database/like_pattern.h"
#include "platform/database/schema.h"
#include "platform/database/text_compare.h"

#include <memory>
#include <new>

namespace platform {

// Of a long text so much lies beside its row; what is behind it costs pages of its own.
constexpr std::size_t kBeginning = 2000;

static std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

// The compiled pattern of the first argument, kept by the engine from one row to the next.
class KeptPattern {
public:
    KeptPattern(sqlite3_context* context, sqlite3_value* text)
        : m_context(context)
        , m_pattern(static_cast<const LikePattern*>(sqlite3_get_auxdata(context, 0))) {
        if (m_pattern != nullptr)
            return;
        m_compiled = LikePattern::Compile(TextOf(text));
        if (m_compiled)
            m_pattern = &*m_compiled;
        else
            sqlite3_result_error(context, "malformed pattern", -1);
    }
    ~KeptPattern() { // last of all: the engine may drop what it is given at once
        if (m_compiled)
            sqlite3_set_auxdata(m_context, 0, new LikePattern(std::move(*m_compiled)),
                                [](void* pattern) { delete static_cast<LikePattern*>(pattern); });
    }
    KeptPattern(const KeptPattern&) = delete;
    KeptPattern& operator=(const KeptPattern&) = delete;

    explicit operator bool() const { return m_pattern != nullptr; }
    const LikePattern* operator->() const { return m_pattern; }

private:
    sqlite3_context* m_context;
    const LikePattern* m_pattern;
    std::optional<LikePattern> m_compiled;
};

// like(pattern, text)
static void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL || sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return; // null
    if (const KeptPattern pattern(context, arguments[0]); pattern)
        sqlite3_result_int(context, pattern->Matches(TextOf(arguments[1])) ? 1 : 0);
}

// like_text(pattern, row, table, column)
static void LikeText(sqlite3_context* context, int, sqlite3_value** arguments) {
    TextReader& reader = *static_cast<TextReader*>(sqlite3_user_data(context));
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL)
        return; // null
    int result = reader.GoTo(TextOf(arguments[2]), TextOf(arguments[3]), sqlite3_value_int64(arguments[1]));
    if (result == SQLITE_OK && reader.IsMissing())
        return; // null
    const KeptPattern pattern(context, arguments[0]);
    if (!pattern)
        return;
    bool matches = false;
    if (result == SQLITE_OK && pattern->IsDecidedByABeginning()) {
        result = reader.Read(kBeginning);
        matches = result == SQLITE_OK && pattern->Matches(reader.Text());
    }
    if (result == SQLITE_OK && !matches) {
        result = reader.Read(reader.Size());
        matches = result == SQLITE_OK && pattern->Matches(reader.Text());
    }
    if (result == SQLITE_OK)
        sqlite3_result_int(context, matches ? 1 : 0);
    else
        sqlite3_result_error_code(context, result);
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

bool RegisterLikeText(sqlite3* handle, TextReader& reader) {
    return sqlite3_create_function_v2(handle, "like_text", 4, SQLITE_UTF8, &reader, LikeText, nullptr,
                                      nullptr, nullptr) == SQLITE_OK;
}

} // namespace platform
