#pragma once

#include "editor/edit_tool_bar.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

namespace quillbrook {

// The window with what the tests of the format commands do in it.
class FormatDesk {
protected:
    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    EditToolBar& Bar() { return *Main().editToolBar; }
    ScriptedCommonDialog& Dialog() { return m_window->services.commonDialog; }

    // The edit page's pane with a text and a selection.
    platform::RichTextBox* Edit(const QString& text, int start = 0, int length = 0) {
        Main().SetTab(Tab::EditForm);
        platform::RichTextBox* pane = Main().txtContent();
        pane->setText(text);
        pane->setSelStart(start);
        pane->setSelLength(length);
        return pane;
    }

    // Clicks a button, or chooses a menu entry.
    void Run(const QString& name) {
        if (auto* button = Main().findChild<platform::MyButton*>(name))
            button->click();
        else
            Main().Menu(name)->trigger();
    }
};

} // namespace quillbrook
