#pragma once

#include "clauses/clause_entries.h"

#include <QString>

namespace platform {
class Database;
}

// A clause of the test's library: two lines that name its table and key.
QString TestClause(quillbrook::ClauseRoutine routine, const char* number);

// Gives an open library all 22 clauses, in place of those it has. False when a row could not be written.
bool AddTestClauses(platform::Database& library);
