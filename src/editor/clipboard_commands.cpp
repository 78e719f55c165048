#include "editor/clipboard_commands.h"

#include "app/workbench.h"
#include "editor/edit_tool_bar.h"
#include "platform/controls/focus.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"

#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>

namespace quillbrook {

using platform::MyButton;
using platform::RichTextBox;

ClipboardCommands::ClipboardCommands(EditToolBar& bar, Workbench& workbench, WindowState& state,
                                     QObject* parent)
    : QObject(parent)
    , m_workbench(workbench)
    , m_state(state) {
    connect(bar.btnCut, &MyButton::Click, this, &ClipboardCommands::Cut);
    connect(bar.btnCopy, &MyButton::Click, this, &ClipboardCommands::CopyByButton);
    connect(bar.btnPaste, &MyButton::Click, this, &ClipboardCommands::Paste);
    const auto entry = [&](const char* name, void (ClipboardCommands::*command)()) {
        connect(workbench.Menu(QLatin1String(name)), &QAction::triggered, this, command);
    };
    entry("mnuCut", &ClipboardCommands::Cut);
    entry("mnuPopCut", &ClipboardCommands::Cut);
    entry("mnuCopy", &ClipboardCommands::Copy);
    entry("mnuPopCopy", &ClipboardCommands::Copy);
    entry("mnuPaste", &ClipboardCommands::Paste);
    entry("mnuPopPaste", &ClipboardCommands::Paste);
    entry("mnuPopDelete", &ClipboardCommands::Delete);
    entry("mnuSelectAll", &ClipboardCommands::SelectAll);
    entry("mnuPopSelectAll", &ClipboardCommands::SelectAll);
}

void ClipboardCommands::CountAsTyping() {
    m_state.DocumentSaved = false;
}

void ClipboardCommands::Cut() {
    RichTextBox* pane = m_workbench.ActivePane();
    QGuiApplication::clipboard()->clear();
    platform::SetFocus(pane);
    pane->cut();
    CountAsTyping();
}

void ClipboardCommands::Copy() {
    RichTextBox* pane = m_workbench.ActivePane();
    QGuiApplication::clipboard()->clear();
    platform::SetFocus(pane);
    pane->copy();
    CountAsTyping();
}

void ClipboardCommands::CopyByButton() {
    const bool saved = m_state.DocumentSaved;
    Copy();
    m_state.DocumentSaved = saved;
}

void ClipboardCommands::Paste() {
    RichTextBox* pane = m_workbench.ActivePane();
    platform::SetFocus(pane);
    pane->paste();
}

void ClipboardCommands::Delete() {
    RichTextBox* pane = m_workbench.ActivePane();
    platform::SetFocus(pane);
    // all that the key takes care of: the font of an emptied pane, the bullets and numbers of what is left
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(pane, &press);
}

void ClipboardCommands::SelectAll() {
    RichTextBox* pane = m_workbench.ActivePane();
    platform::SetFocus(pane);
    pane->selectAll();
    CountAsTyping();
}

} // namespace quillbrook
