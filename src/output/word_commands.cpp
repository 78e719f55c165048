#include "output/word_commands.h"

#include "app/workbench.h"
#include "output/file_names.h"
#include "output/word_save_errors.h"
#include "platform/controls/focus.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"
#include "platform/word/word_application.h"

#include <QAction>

namespace quillbrook {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;
using platform::WordApplication;

WordCommands::WordCommands(platform::MyButton& btnEditMSWord, platform::MyButton& btnPrint,
                           Workbench& workbench, WindowState& state, PaperCommands& paper,
                           PublicVariables& variables, platform::Services& services,
                           platform::FileChoice& dialog, QObject* parent)
    : QObject(parent)
    , m_btnPrint(btnPrint)
    , m_workbench(workbench)
    , m_state(state)
    , m_services(services)
    , m_dialog(dialog)
    , m_transfer(workbench, paper, variables, services) {
    connect(&btnEditMSWord, &platform::MyButton::Click, this, &WordCommands::ExportPane);
}

void WordCommands::ExportPane() {
    const WordTurn turn = m_transfer.Turn();
    if (!turn.IsOurs())
        return;
    m_pointer.Hourglass();
    m_workbench.SetCaption(QStringLiteral("Exporting Form to MS Word\u00AE..."));
    if (!m_transfer.CreateObject()) {
        CleanUp();
        TellFailure(QStringLiteral("An error occurred while exporting the form to MS Word\u00AE.   \n\n"
                                   "If this problem persists, please restart this Program!   "),
                    QStringLiteral("MS Word\u00AE Error!"));
        return;
    }
    WordApplication& word = *m_transfer.WordApp();
    word.DocumentsAdd();
    m_transfer.PutPaneOnClipboard();
    m_transfer.FillDocument();
    m_pointer.Normal();
    word.SetVisible(true);
    word.WindowsApplicationActivate();
    RestoreWindow();
    m_transfer.Release(); // it is the user's from here on
}

bool WordCommands::PrintPane() {
    const WordTurn turn = m_transfer.Turn();
    if (!turn.IsOurs())
        return true;
    m_btnPrint.setEnabled(false);
    m_pointer.Hourglass();
    m_workbench.SetCaption(QStringLiteral("Opening Print Options..."));
    if (!m_transfer.CreateObject()) {
        CleanUp();
        m_btnPrint.setEnabled(true);
        return false;
    }
    WordApplication& word = *m_transfer.WordApp();
    word.SetVisible(false);
    word.DocumentsAdd();
    m_transfer.PutPaneOnClipboard();
    m_transfer.FillDocument();
    m_pointer.Normal();
    word.ShowDialog(platform::wdDialogFilePrint);
    word.SetVisible(false);
    m_btnPrint.setEnabled(true);
    EndShown();
    return true;
}

bool WordCommands::PreviewPane() {
    const WordTurn turn = m_transfer.Turn();
    if (!turn.IsOurs())
        return true;
    m_pointer.Hourglass();
    m_workbench.SetCaption(QStringLiteral("Opening Print Preview..."));
    m_transfer.PutPaneOnClipboard();
    if (!m_transfer.CreateObject()) {
        CleanUp();
        return false;
    }
    WordApplication& word = *m_transfer.WordApp();
    word.DocumentsAdd();
    m_transfer.FillDocument();
    word.SetVisible(true);
    m_pointer.Normal();
    word.WindowsApplicationActivate();
    word.ActiveDocumentPrintPreview();
    word.SetPageFit(platform::wdPageFitFullPage);
    while (word.PrintPreview()) {
        // the word processor has no other sign that the user is done; each answer is waited for
    }
    word.SetVisible(false);
    EndShown();
    return true;
}

void WordCommands::SaveAsMSDoc() {
    const WordTurn turn = m_transfer.Turn();
    if (!turn.IsOurs())
        return;
    while (SaveOnce() == Next::FromTheStart) {
    }
}

WordCommands::Next WordCommands::SaveOnce() {
    if (!AskWhereToSave()) {
        CancelSave();
        return Next::Done;
    }
    m_state.CurrentFilePath = WithExtension(m_dialog.FileName, QStringLiteral(".doc"));
    m_state.CurrentFileTitle = m_dialog.FileTitle();
    m_workbench.SetCaption(QStringLiteral("Saving Form as ") + m_state.CurrentFileTitle);
    m_pointer.Hourglass();
    m_transfer.PutPaneOnClipboard();
    // after a failed try this drops that instance and leaves it running, as Release says
    if (!m_transfer.CreateObject()) {
        CleanUp();
        TellFailure(QStringLiteral("An error occurred trying to save the Form in MS Word\u00AE Format.   \n\n"
                                   "If this problem persists, please restart the Program.   "),
                    QStringLiteral("Error Opening File!"));
        return TellSaveError(platform::kWordServerGone);
    }
    WordApplication& word = *m_transfer.WordApp();
    word.DocumentsAdd();
    m_transfer.FillDocument();
    if (const int error = word.ActiveDocumentSaveAs(m_state.CurrentFilePath))
        return TellSaveError(error);
    m_transfer.CloseAndQuit();
    m_pointer.Normal();
    RestoreWindow();
    TellSaved();
    FocusActivePane();
    if (m_workbench.CurrentTab() == Tab::MyForms)
        m_state.CurrentFilePath.clear();
    m_workbench.Menu(QStringLiteral("mnuSave"))->setEnabled(false);
    m_state.DocumentSaved = true;
    return Next::Done;
}

bool WordCommands::AskWhereToSave() {
    m_dialog.title = QStringLiteral("Save Form as an MS Word\u00AE Document");
    m_dialog.filter = QStringLiteral("Word Document (*.doc) (*.doc)");
    m_dialog.asksBeforeOverwriting = true;
    const PointerForDialog pointer(m_pointer);
    return m_services.commonDialog.ShowSave(m_workbench.Window(), m_dialog) && !m_dialog.FileName.isEmpty();
}

WordCommands::Next WordCommands::TellSaveError(int number) {
    const WordSaveError& error = FactsOfWordSaveError(number);
    MessageAnswer answer = MessageAnswer::Ok;
    {
        const PointerForDialog pointer(m_pointer);
        answer = m_services.messageBox.Show(
            m_workbench.Window(), QLatin1String(error.text), error.buttons, error.icon,
            error.title ? QString(QLatin1String(error.title)) : m_services.instance.ApplicationTitle());
    }
    if (error.then == AfterSaveError::StartAgain ||
        (error.then == AfterSaveError::AskForAnotherName && answer == MessageAnswer::Yes))
        return Next::FromTheStart;
    CancelSave();
    return Next::Done;
}

void WordCommands::TellSaved() {
    m_services.messageBox.Show(
        m_workbench.Window(),
        QStringLiteral("Form successfully saved as:   \n%1   ").arg(m_state.CurrentFileTitle),
        MessageButtons::Ok, MessageIcon::Information, m_services.instance.ApplicationTitle());
}

// The end of what the user has seen and left: the print dialog, the preview.
void WordCommands::EndShown() {
    m_pointer.Hourglass();
    CleanUp();
    FocusActivePane();
}

// Ends the word processor, and then what the window showed of it. What is not there is passed over.
void WordCommands::CleanUp() {
    m_transfer.CloseAndQuit();
    m_pointer.Normal();
    RestoreWindow();
}

// The end of a save that the user or an error has broken off: here the caption goes back first.
void WordCommands::CancelSave() {
    RestoreWindow();
    m_transfer.CloseAndQuit();
    m_pointer.Normal();
}

void WordCommands::RestoreWindow() {
    m_workbench.SetCaption(QStringLiteral("Quillbrook by Atty. Merrow"));
}

void WordCommands::FocusActivePane() {
    platform::SetFocus(m_workbench.ActivePane());
}

void WordCommands::TellFailure(const QString& text, const QString& title) {
    m_services.messageBox.Show(m_workbench.Window(), text, MessageButtons::Ok, MessageIcon::Critical, title);
}

} // namespace quillbrook
