#include "editor/scratch_pane.h"

#include "platform/rich_text/rich_text_box.h"

namespace quillbrook {

void ResetScratchPane(platform::RichTextBox& pane) {
    pane.setTextRTF(QString());
    pane.setSelStart(0);
    pane.setSelLength(int(pane.TextRTF().size()));
    pane.setSelColor(Qt::black);
    pane.setSelBold(false);
    pane.setSelFontSize(10);
}

} // namespace quillbrook
