#pragma once

#include "library/html_blocks.h"
#include "library/html_tokenizer.h"

namespace quillbrook {

constexpr int kMostListLevels = 4;
constexpr int kMostTableColumns = 12;
constexpr int kMostTableRows = 200;

// Reads the body of a form from the tokens from index `first` on. Strict: whatever is not of the format (see
// docs/library-format.md) is reported, the block it stands in is left out and reading goes on behind it.
std::vector<Block> ReadBlocks(const std::vector<HtmlToken>& tokens, std::size_t first,
                              SourceProblems& problems);

// The same from text.
std::vector<Block> ReadBlocks(QStringView source, SourceProblems& problems);

} // namespace quillbrook
