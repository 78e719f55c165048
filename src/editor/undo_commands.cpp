#include "editor/undo_commands.h"

#include "app/workbench.h"
#include "editor/edit_tool_bar.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"

#include <QAction>

namespace quillbrook {

using platform::MyButton;
using platform::RichTextBox;

UndoCommands::UndoCommands(EditToolBar& bar, Workbench& workbench, WindowState& state, QObject* parent)
    : QObject(parent)
    , m_bar(bar)
    , m_workbench(workbench)
    , m_state(state) {
    for (const MyButton* button : {bar.btnUndo, bar.btnMyUndo})
        connect(button, &MyButton::Click, this, &UndoCommands::Undo);
    for (const MyButton* button : {bar.btnRedo, bar.btnMyRedo})
        connect(button, &MyButton::Click, this, &UndoCommands::Redo);
    for (const QString& name : {QStringLiteral("mnuUndo"), QStringLiteral("mnuPopUndo")})
        connect(workbench.Menu(name), &QAction::triggered, this, &UndoCommands::Undo);
    for (const QString& name : {QStringLiteral("mnuRedo"), QStringLiteral("mnuPopRedo")})
        connect(workbench.Menu(name), &QAction::triggered, this, &UndoCommands::Redo);
}

UndoCommands::Pane UndoCommands::Of(bool myForms) {
    if (myForms)
        return {m_myHistory, m_workbench.txtMyContent(), m_bar.btnMyUndo, m_bar.btnMyRedo};
    return {m_history, m_workbench.txtContent(), m_bar.btnUndo, m_bar.btnRedo};
}

UndoCommands::Pane UndoCommands::Current() {
    return Of(m_workbench.CurrentTab() == Tab::MyForms);
}

void UndoCommands::SetUndoEnabled(const Pane& pane, bool enabled) {
    pane.undo->setEnabled(enabled);
    m_workbench.Menu(QStringLiteral("mnuUndo"))->setEnabled(enabled);
    m_workbench.Menu(QStringLiteral("mnuPopUndo"))->setEnabled(enabled);
}

void UndoCommands::SetRedoEnabled(const Pane& pane, bool enabled) {
    pane.redo->setEnabled(enabled);
    m_workbench.Menu(QStringLiteral("mnuRedo"))->setEnabled(enabled);
    m_workbench.Menu(QStringLiteral("mnuPopRedo"))->setEnabled(enabled);
}

void UndoCommands::Record(RichTextBox* box) {
    const Pane pane = Of(box == m_workbench.txtMyContent());
    const UndoControls controls = pane.history.Record([box] { return box->Snapshot(); });
    SetRedoEnabled(pane, controls.redo);
    SetUndoEnabled(pane, controls.undo);
}

// The caret goes to what changes, and the view follows it.
void UndoCommands::Write(const Pane& pane, const PaneHistory::Replay& replay) {
    if (!replay.Entry())
        return;
    if (replay.Entry()->IsEmpty())
        pane.box->setTextRTF(QString()); // a step that was never written
    else
        pane.box->setSnapshot(*replay.Entry());
    pane.box->ensureCursorVisible();
    // the same text written again is no change that would show the controls' state
    const UndoControls controls = pane.history.Controls();
    SetRedoEnabled(pane, controls.redo);
    SetUndoEnabled(pane, controls.undo);
}

void UndoCommands::Undo() {
    const Pane pane = Current();
    {
        const PaneHistory::Replay replay = pane.history.Undo();
        if (replay.IsAtOldest())
            SetUndoEnabled(pane, false);
        Write(pane, replay);
    }
    // back at the first state, which counts as unchanged
    if (!m_workbench.Menu(QStringLiteral("mnuUndo"))->isEnabled())
        m_state.DocumentSaved = true;
}

void UndoCommands::Redo() {
    const Pane pane = Current();
    const PaneHistory::Replay replay = pane.history.Redo();
    Write(pane, replay);
}

void UndoCommands::SwitchMyControlsOff() {
    SetUndoEnabled(Of(true), false);
    SetRedoEnabled(Of(true), false);
}

void UndoCommands::StartMyHistoryAfresh() {
    m_myHistory.StartAfresh(m_workbench.txtMyContent()->Snapshot());
    SwitchMyControlsOff();
}

void UndoCommands::ZeroMyHistory() {
    m_myHistory.ZeroCounters();
    SwitchMyControlsOff();
}

void UndoCommands::SyncUndoMenus() {
    const Tab tab = m_workbench.CurrentTab();
    if (tab != Tab::MyForms && tab != Tab::EditForm)
        return;
    const Pane pane = Current();
    SetUndoEnabled(pane, pane.undo->isEnabled());
    SetRedoEnabled(pane, pane.redo->isEnabled());
}

} // namespace quillbrook
