#pragma once

#include "library/library_content.h"

namespace quillbrook {

// The document that lists a library: how many forms each category and sub-category has, then all titles. The
// same library gives the same text, to the byte.
QString MarkdownList(const LibraryContent& content);

} // namespace quillbrook
