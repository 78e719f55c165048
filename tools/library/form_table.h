#pragma once

#include "library/html_blocks.h"

#include <QTextCursor>

namespace quillbrook {

// Inserts a table at the cursor, which then stands in the paragraph behind it.
void InsertFormTable(QTextCursor& cursor, const Table& table);

// Whether a table without borders holds lines to sign on.
bool IsSignatureTable(const Table& table);

} // namespace quillbrook
