#include "editor/editor_panes.h"

#include "app/workbench.h"
#include "editor/edit_tool_bar.h"
#include "editor/format_commands.h"
#include "editor/undo_commands.h"
#include "platform/controls/combo_box.h"
#include "platform/rich_text/rich_text_box.h"

#include <QAction>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace quillbrook {

using platform::RichTextBox;

EditorPanes::EditorPanes(EditToolBar& bar, FormatCommands& format, UndoCommands& undo, Workbench& workbench,
                         WindowState& state, QObject* parent)
    : QObject(parent)
    , m_bar(bar)
    , m_format(format)
    , m_undo(undo)
    , m_workbench(workbench)
    , m_state(state) {
    Connect(workbench.txtContent());
    Connect(workbench.txtMyContent());
    connect(workbench.txtContent(), &RichTextBox::Change, this, &EditorPanes::ContentChange);
    connect(workbench.txtMyContent(), &RichTextBox::Change, this, &EditorPanes::MyContentChange);
    connect(workbench.txtContent(), &RichTextBox::Click, this, [this] { m_workbench.SetTab(Tab::EditForm); });
}

// To the next control in the order of the Tab key, or the one before.
static void LeaveByTab(QWidget* control, bool forward) {
    QWidget* next = control;
    do {
        next = forward ? next->nextInFocusChain() : next->previousInFocusChain();
    } while (next != control &&
             (!(next->focusPolicy() & Qt::TabFocus) || !next->isVisibleTo(control->window()) ||
              !next->isEnabled() || next->focusProxy()));
    next->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

bool EditorPanes::eventFilter(QObject* watched, QEvent* event) {
    auto* pane = qobject_cast<RichTextBox*>(watched);
    if (pane && event->type() == QEvent::KeyPress && HandleKey(pane, *static_cast<QKeyEvent*>(event)))
        return true;
    return QObject::eventFilter(watched, event);
}

// Tab writes a tab where a form is edited, and goes on to the next control where it is only read; with Ctrl
// it always goes on. The keys of undo and redo mean this program's.
bool EditorPanes::HandleKey(RichTextBox* pane, const QKeyEvent& event) {
    const bool isTab = event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab;
    if (isTab) {
        const bool back = event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
        const bool writes =
            m_workbench.StrictPane() == pane && !event.modifiers().testFlag(Qt::ControlModifier);
        if (writes && !back)
            return false;
        LeaveByTab(pane, !back);
        return true;
    }
    const bool isUndo = event.matches(QKeySequence::Undo);
    const bool isRedo = event.matches(QKeySequence::Redo) ||
                        (event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier);
    if (!isUndo && !isRedo)
        return false;
    if (!event.text().isEmpty())
        m_state.DocumentSaved = false; // control characters too, which do not come to the box here
    m_workbench.Menu(isUndo ? QStringLiteral("mnuUndo") : QStringLiteral("mnuRedo"))->trigger();
    return true;
}

void EditorPanes::Connect(RichTextBox* pane) {
    pane->installEventFilter(this);
    connect(pane, &RichTextBox::CharacterPressed, this, [this] { m_state.DocumentSaved = false; });
    connect(pane, &RichTextBox::SelChange, this, [this, pane] { m_format.ShowFormatState(pane); });
    connect(pane, &RichTextBox::MousePressed, this, [this](Qt::MouseButton button, const QPoint& position) {
        if (button != Qt::LeftButton)
            Q_EMIT PopUpWanted(position);
    });
}

void EditorPanes::ContentChange() {
    RichTextBox* pane = m_workbench.txtContent();
    const bool hasText = !pane->document()->isEmpty();
    m_workbench.Menu(QStringLiteral("mnuNew"))->setEnabled(hasText);
    m_workbench.Menu(QStringLiteral("mnuSave"))->setEnabled(hasText);
    m_undo.Record(pane);
}

void EditorPanes::MyContentChange() {
    if (m_restoringFont)
        return;
    RichTextBox* pane = m_workbench.txtMyContent();
    if (pane->document()->isEmpty()) {
        const QScopedValueRollback restoring(m_restoringFont, true);
        SetDefaultFont(*pane, m_bar);
    }
    m_undo.Record(pane);
}

void SetDefaultFont(RichTextBox& pane, EditToolBar& bar) {
    const QString font = QStringLiteral("Times New Roman");
    pane.setTextRTF(QString());
    pane.setSelFontName(font);
    pane.setSelFontSize(12);
    bar.cboFonts->setText(font);
    bar.cboFontSize->setText(QStringLiteral("12"));
}

} // namespace quillbrook
