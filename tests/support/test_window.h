#pragma once

#include "app/main_window.h"
#include "tests/support/scripted_services.h"
#include "tests/support/test_library.h"

#include <memory>

namespace platform {
class ListBox;
}

// The main window over a library of its own, with scripted services; loaded, and hidden until Show().
class TestWindow {
public:
    explicit TestWindow(const std::vector<TestForm>& forms = SomeForms());
    // Over the program folder of another: its library is read from there.
    explicit TestWindow(const QString& programFolder);
    ~TestWindow();

    // Shows the window and waits until it has the keyboard. False when the display gives it no focus.
    bool Show();

    // Clicks the entry of a list box with the left mouse button, as the user does.
    static void ClickEntry(platform::ListBox* list, int index);

    // What the pane shows, as plain text.
    static QString TextOf(const platform::RichTextBox* pane);

    TestLibrary* library() { return m_library.get(); }
    quillbrook::frmMain& operator*() { return *m_window; }
    quillbrook::frmMain* operator->() { return m_window.get(); }

    ScriptedServices services;
    bool loaded = false;

private:
    void Load(const QString& programFolder);

    std::unique_ptr<TestLibrary> m_library;
    std::unique_ptr<quillbrook::frmMain> m_window;
};
