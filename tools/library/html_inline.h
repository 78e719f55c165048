#pragma once

#include "library/html_blocks.h"
#include "library/html_tokenizer.h"

namespace quillbrook {

// Whether a tag changes text within a paragraph: <b>, </b>, <br> and the like.
bool IsInlineTag(const HtmlToken& token);

// Reads text and inline tags from index `at` on up to the first tag that is no inline tag, where `at` is then
// left. White space folds to one blank and vanishes at the ends and beside line breaks and tabs. False when
// something was reported.
bool ReadRuns(const std::vector<HtmlToken>& tokens, std::size_t& at, Runs& runs, SourceProblems& problems);

} // namespace quillbrook
