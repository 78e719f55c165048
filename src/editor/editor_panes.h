#pragma once

#include <QObject>

class QKeyEvent;

namespace platform {
class RichTextBox;
}

namespace quillbrook {

class EditToolBar;
class FormatCommands;
class UndoCommands;
class Workbench;
struct WindowState;

// Empties a pane and begins it in the font of new forms, which the bar then shows.
void SetDefaultFont(platform::RichTextBox& pane, EditToolBar& bar);

// What the two visible panes do when their text, their selection, the keyboard or the mouse changes
// something.
class EditorPanes final : public QObject {
    Q_OBJECT

public:
    EditorPanes(EditToolBar& bar, FormatCommands& format, UndoCommands& undo, Workbench& workbench,
                WindowState& state, QObject* parent);

Q_SIGNALS:
    void PopUpWanted(const QPoint& globalPosition); // a mouse button other than the left one in a pane

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Connect(platform::RichTextBox* pane);
    void ContentChange();
    void MyContentChange();
    bool HandleKey(platform::RichTextBox* pane, const QKeyEvent& event);

    EditToolBar& m_bar;
    FormatCommands& m_format;
    UndoCommands& m_undo;
    Workbench& m_workbench;
    WindowState& m_state;
    bool m_restoringFont = false;
};

} // namespace quillbrook
