#include "output/spelling_command.h"

#include "app/workbench.h"
#include "platform/controls/focus.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_application.h"
#include "platform/word/word_clipboard.h"

namespace quillbrook {

using platform::MessageIcon;
using platform::RichTextBox;
using platform::WordApplication;

SpellingCommand::SpellingCommand(platform::MyButton& btnSpellCheck, Workbench& workbench,
                                 PaperCommands& paper, PublicVariables& variables,
                                 platform::Services& services, QObject* parent)
    : QObject(parent)
    , m_btnSpellCheck(btnSpellCheck)
    , m_workbench(workbench)
    , m_services(services)
    , m_transfer(workbench, paper, variables, services) {
    connect(&btnSpellCheck, &platform::MyButton::Click, this, &SpellingCommand::CheckSpelling);
}

void SpellingCommand::CheckSpelling() {
    const WordTurn turn = m_transfer.Turn();
    if (!turn.IsOurs())
        return;
    m_btnSpellCheck.setEnabled(false);
    m_pointer.Hourglass();
    m_workbench.SetCaption(QStringLiteral("Opening Spelling & Grammar Checker..."));
    if (!m_transfer.CreateObject()) {
        RestoreWindow();
        Tell(QStringLiteral("Error in starting the Grammar & Spell Check Engine!   \n\n"
                            "If this problem persists, please restart the Program!   "),
             MessageIcon::Critical, QStringLiteral("Grammar/Spell Check Error!"));
        return;
    }
    WordApplication& word = *m_transfer.WordApp();
    word.SetVisible(false);
    word.DocumentsAdd();
    m_transfer.PutPaneOnClipboard();
    word.SelectionPaste();
    m_workbench.SetCaption(QStringLiteral("Checking Spelling & Grammar..."));
    m_pointer.Normal();
    word.SetCheckGrammarWithSpelling(true);
    word.ActiveDocumentCheckGrammar();
    m_pointer.Hourglass();
    word.SetVisible(false);
    word.ActiveDocumentSelect();
    word.SelectionCut();
    TakeBackPane();
    word.ActiveDocumentClose(platform::wdDoNotSaveChanges);
    word.Quit(std::nullopt);
    m_transfer.Release();
    RestoreWindow();
    Tell(QStringLiteral("Spell & Grammar Check completed!   "), MessageIcon::Information,
         QStringLiteral("Quillbrook PRO"));
    platform::SetFocus(m_workbench.ActivePane());
}

// Where a step has failed, what the clipboard holds is taken all the same.
void SpellingCommand::TakeBackPane() {
    RichTextBox* pane = m_workbench.ActivePane();
    pane->setTextRTF(platform::ClipboardRTF());
    platform::SetFocus(pane);
    pane->setSelStart(0);
    pane->ensureCursorVisible();
}

void SpellingCommand::RestoreWindow() {
    m_workbench.SetCaption(QStringLiteral("Quillbrook by Atty. Merrow"));
    m_pointer.Normal();
    m_btnSpellCheck.setEnabled(true);
}

void SpellingCommand::Tell(const QString& text, MessageIcon icon, const QString& title) {
    m_services.messageBox.Show(m_workbench.Window(), text, platform::MessageButtons::Ok, icon, title);
}

} // namespace quillbrook
