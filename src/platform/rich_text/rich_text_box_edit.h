// The rich text box's inside; other code includes rich_text_box.h.
#pragma once

#include "platform/rich_text/rich_text_box.h"

namespace platform {

// One change of a box: while any guard lives the box tells nothing; when the outermost one ends it tells
// Change once if the document changed, and SelChange if the selection moved or its format was set.
class RichTextBox::Edit {
public:
    explicit Edit(RichTextBox& box);
    ~Edit();
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;

    // The format at the selection was set.
    void FormatSet() { m_box.m_selTouched = true; }
    // What the document told of since this guard began is no change of content or format.
    void Forget() { m_box.m_touched = m_touchedBefore; }

    // What is set is wanted as it is: no list is counted again, no font kept.
    void TakeAsGiven() { m_box.m_asGiven = true; }

private:
    RichTextBox& m_box;
    bool m_touchedBefore;
    QTextCharFormat m_formatBefore; // of what is typed, kept by the outermost guard of a box with text
    bool m_hadText = false;
    int m_blocksBefore = 0;
};

} // namespace platform
