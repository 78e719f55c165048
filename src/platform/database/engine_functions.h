// What the engine is taught: LIKE with this program's patterns, for a text at hand and for the long text of a
// row, and comparing text without case.
#pragma once

#include "platform/database/text_reader.h"

#include <sqlcipher/sqlite3.h>

namespace platform {

// False when the engine refuses one of them.
bool RegisterFunctions(sqlite3* handle);

// like_text(pattern, row, table, column); `reader` outlives the statements that use it.
bool RegisterLikeText(sqlite3* handle, TextReader& reader);

} // namespace platform
