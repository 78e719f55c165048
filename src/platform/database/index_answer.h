// What an index over a field says about a condition, before a text is read.
#pragma once

#include "platform/database/schema.h"
#include "platform/database/statement.h"
#include "platform/database/text_index.h"

namespace platform {

// Whether the condition asks for the field's text by LIKE somewhere, so that an index over it can help.
bool AsksForText(const Condition& condition, const TableInfo& table, int field);

// Sets over the rows of the index, as they were when it was made.
struct IndexAnswer {
    RowSet rows;     // the condition holds
    RowSet possible; // it may hold; to be looked at
};

// Empty when a pattern of the condition is malformed: whether that is refused depends on the rows it meets.
std::optional<IndexAnswer> AnswerByIndex(const TextIndex& index, const TableInfo& table,
                                         const Condition& condition);

} // namespace platform
