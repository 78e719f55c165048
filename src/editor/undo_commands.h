#pragma once

#include "editor/undo_history.h"

#include <QObject>

namespace platform {
class MyButton;
class RichTextBox;
} // namespace platform

namespace quillbrook {

class EditToolBar;
class Workbench;
struct WindowState;

// Undo and redo of the two panes, each with a history of its own, and the buttons and menu entries of both.
// The history of the reading pane goes on over the forms that are loaded into it.
class UndoCommands final : public QObject {
    Q_OBJECT

public:
    UndoCommands(EditToolBar& bar, Workbench& workbench, WindowState& state, QObject* parent);

    // One step of the pane of the current page.
    void Undo();
    void Redo();

    // Of a pane's change event, after what the pane does there itself.
    void Record(platform::RichTextBox* pane);

    // A form was loaded into txtMyContent: its text is the one entry of the history, nothing can be undone.
    void StartMyHistoryAfresh();
    // A form was stored: no entries.
    void ZeroMyHistory();

    // Brings the menu entries in line with the buttons of the page that is on top.
    void SyncUndoMenus();

    const PaneHistory& History() const { return m_history; }
    const PaneHistory& MyHistory() const { return m_myHistory; }

private:
    struct Pane {
        PaneHistory& history;
        platform::RichTextBox* box;
        platform::MyButton* undo;
        platform::MyButton* redo;
    };

    Pane Of(bool myForms);
    Pane Current();
    void SetUndoEnabled(const Pane& pane, bool enabled);
    void SetRedoEnabled(const Pane& pane, bool enabled);
    void SwitchMyControlsOff();
    void Write(const Pane& pane, const PaneHistory::Replay& replay);

    EditToolBar& m_bar;
    Workbench& m_workbench;
    WindowState& m_state;
    PaneHistory m_history;
    PaneHistory m_myHistory;
};

} // namespace quillbrook
