// The index over a long field, as it lies in the file.
//
// The table "_text_index" keeps for a table the indexed field and the index's bytes. "Forms_changed" holds
// the ids of the rows of "Forms" that were made, deleted or given another text since. The engine itself notes
// them, by triggers, in the transaction of the write: whatever writes to the file cannot leave the index
// unaware. Where the index is missing, or one of its triggers, or its bytes are not whole, there is no index.
#pragma once

#include "platform/database/run_index.h"
#include "platform/database/schema.h"

namespace platform {

struct TextIndex {
    int field = 0;
    RunIndex runs;
};

// Makes the index anew from all rows, within the running transaction. A field whose index would be too large
// is left without one, which is no failure. False when the engine refuses.
bool BuildTextIndex(sqlite3* handle, const TableInfo& table, int field);

// Empty when the table has none that can be used.
std::optional<TextIndex> LoadTextIndex(sqlite3* handle, const TableInfo& table);

// The ids of the rows that are not as the index knows them, ascending. Empty when they cannot be read.
std::optional<std::vector<std::int64_t>> ReadChangedRows(sqlite3* handle, const TableInfo& table);

} // namespace platform
