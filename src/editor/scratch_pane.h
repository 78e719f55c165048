#pragma once

namespace platform {
class RichTextBox;
}

namespace quillbrook {

// Empties the scratch pane and gives what comes next black, upright text of 10 points.
void ResetScratchPane(platform::RichTextBox& pane);

} // namespace quillbrook
