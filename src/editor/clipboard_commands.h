#pragma once

#include <QObject>

namespace quillbrook {

class EditToolBar;
class Workbench;
struct WindowState;

// Cut, copy, paste, delete and select all, on the pane of the current page.
//
// Each does what its key does in the pane, and counts as that key: a command whose key stands for a character
// makes the document an unsaved one, pasting excepted. Cut and copy empty the clipboard first, so that with
// nothing selected it ends up empty.
class ClipboardCommands final : public QObject {
    Q_OBJECT

public:
    ClipboardCommands(EditToolBar& bar, Workbench& workbench, WindowState& state, QObject* parent);

    void Cut();
    void Copy();
    void CopyByButton(); // keeps whether the document is saved
    void Paste();
    void Delete();
    void SelectAll();

private:
    void CountAsTyping();

    Workbench& m_workbench;
    WindowState& m_state;
};

} // namespace quillbrook
