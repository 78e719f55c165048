#pragma once

#include "search/marking.h"

namespace platform {
class RichTextBox;
}

namespace quillbrook {

// Makes the characters of the marks blue and bold, as one change of the pane; size and all else of their
// format stay, so does the selection. Hidden text stays hidden, ranges beyond the end are cut off.
void PaintMarks(platform::RichTextBox& pane, const std::vector<TextRange>& marks);

} // namespace quillbrook
