// What the engine is taught: LIKE with this program's patterns, and comparing text without case.
#pragma once

#include <sqlcipher/sqlite3.h>

namespace platform {

// False when the engine refuses one of them.
bool RegisterFunctions(sqlite3* handle);

} // namespace platform
