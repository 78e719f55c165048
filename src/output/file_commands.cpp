#include "output/file_commands.h"

#include "app/public_variables.h"
#include "app/window_list.h"
#include "app/workbench.h"
#include "library/my_forms_page.h"
#include "output/file_names.h"
#include "output/save_dialog.h"
#include "output/save_errors.h"
#include "output/word_turn.h"
#include "platform/controls/focus.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_application.h"
#include "platform/word/word_clipboard.h"

#include <QAction>

namespace quillbrook {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;
using platform::RichTextBox;

FileCommands::FileCommands(MyFormsPage& myForms, Workbench& workbench, WindowState& state,
                           PublicVariables& variables, WindowList& windows, platform::Services& services,
                           QObject* parent)
    : QObject(parent)
    , m_myForms(myForms)
    , m_workbench(workbench)
    , m_state(state)
    , m_variables(variables)
    , m_windows(windows)
    , m_services(services) {
    windows.Offer(QStringLiteral("frmSave"), [this] {
        const bool ownForm = m_workbench.CurrentTab() == Tab::MyForms;
        return std::make_unique<frmSave>(ownForm, ownForm && !m_myForms.btnUpdate->isHidden(),
                                         m_workbench.Window());
    });
    const auto entry = [&](const char* name, void (FileCommands::*command)()) {
        connect(workbench.Menu(QLatin1String(name)), &QAction::triggered, this, command);
    };
    entry("mnuSave", &FileCommands::ShowSaveDialog);
    entry("mnuSaveAsDocFile", &FileCommands::SaveAsMSDoc);
    entry("mnuSaveAsRTFFile", &FileCommands::SaveAsRTFFile);
    entry("mnuOpen", &FileCommands::Open);
    entry("mnuNew", &FileCommands::New);
    connect(myForms.btnImport, &platform::MyButton::Click, this, &FileCommands::Open);
}

void FileCommands::ShowSaveDialog() {
    const QString name = QStringLiteral("frmSave");
    auto* dialog = qobject_cast<frmSave*>(m_windows.Load(name));
    dialog->exec();
    // the dialog is out of sight while its routine runs, and goes when that is done
    switch (dialog->Choice()) {
    case SaveChoice::WordDocument:
        SaveAsMSDoc();
        break;
    case SaveChoice::RichText:
        SavetoDisk();
        break;
    case SaveChoice::MyForms:
        m_myForms.AddtoMyForms();
        break;
    case SaveChoice::None:
        break;
    }
    m_windows.Unload(name);
}

void FileCommands::SaveAsMSDoc() {
    if (m_saveByWord)
        m_saveByWord();
}

void FileCommands::SavetoDisk() {
    QAction* mnuSave = m_workbench.Menu(QStringLiteral("mnuSave"));
    if (m_workbench.CurrentTab() == Tab::MyForms) {
        SaveAsRTFFile();
        mnuSave->setEnabled(false);
        platform::SetFocus(m_workbench.txtMyContent());
        return;
    }
    if (m_state.CurrentFilePath.isEmpty()) {
        SaveAsRTFFile();
        return;
    }
    if (const int error = m_workbench.txtContent()->SaveFile(m_state.CurrentFilePath)) {
        // here the user is never asked for another file, and about an open one he is told nothing
        if (error != kFileAlreadyOpen)
            TellSaveError(error);
        return;
    }
    TellSaved();
    mnuSave->setEnabled(false);
    platform::SetFocus(m_workbench.txtContent());
}

void FileCommands::SaveAsRTFFile() {
    while (AskWhereToSave()) {
        m_state.CurrentFilePath = WithExtension(m_dialog.FileName, QStringLiteral(".rtf"));
        m_state.CurrentFileTitle = m_dialog.FileTitle();
        const int error = SaveActivePane();
        if (error == 0)
            return;
        if (!TellSaveError(error))
            return;
    }
}

bool FileCommands::AskWhereToSave() {
    m_dialog.title = QStringLiteral("Save As");
    m_dialog.filter = QStringLiteral("Quillbrook (*.rtf) (*.rtf *.txt)");
    m_dialog.asksBeforeOverwriting = true;
    return m_services.commonDialog.ShowSave(m_workbench.Window(), m_dialog) && !m_dialog.FileName.isEmpty();
}

// 0 when the pane is saved, otherwise the number of the error.
int FileCommands::SaveActivePane() {
    RichTextBox* pane = m_workbench.ActivePane();
    if (const int error = pane->SaveFile(m_state.CurrentFilePath))
        return error;
    platform::SetFocus(pane);
    TellSaved();
    if (m_workbench.CurrentTab() == Tab::MyForms)
        m_state.CurrentFilePath.clear();
    m_workbench.Menu(QStringLiteral("mnuSave"))->setEnabled(false);
    // leaving still asks after a rich text file was saved: users know it so
    m_state.DocumentSaved = false;
    return 0;
}

void FileCommands::TellSaved() {
    m_services.messageBox.Show(
        m_workbench.Window(), QStringLiteral("Form successfully saved as:   \n") + m_state.CurrentFilePath,
        MessageButtons::Ok, MessageIcon::Information, m_services.instance.ApplicationTitle());
}

// True when the user shall be asked for a file again.
bool FileCommands::TellSaveError(int number) {
    const QString program = m_services.instance.ApplicationTitle();
    if (number == kFileAlreadyOpen)
        return m_services.messageBox.Show(m_workbench.Window(), QLatin1String(kAlreadyOpenQuestion),
                                          MessageButtons::YesNo, MessageIcon::Question,
                                          program) == MessageAnswer::Yes;
    const SaveErrorFacts& facts = FactsOfSaveError(number);
    m_services.messageBox.Show(m_workbench.Window(), QLatin1String(facts.text), MessageButtons::Ok,
                               facts.icon, facts.title ? QString(QLatin1String(facts.title)) : program);
    return facts.asksAgain;
}

void FileCommands::Open() {
    const WordTurn turn(m_variables);
    if (!turn.IsOurs())
        return;
    m_dialog.title = QStringLiteral("Open");
    m_dialog.filter = QStringLiteral("Supported Types (*.doc *.rtf *.txt)");
    m_dialog.asksBeforeOverwriting = false;
    if (!m_services.commonDialog.ShowOpen(m_workbench.Window(), m_dialog))
        return;
    m_state.CurrentFilePath = m_dialog.FileName;
    const QString title = m_dialog.FileTitle();
    m_state.CurrentFileTitle = m_dialog.FileName.toLower();
    if (IsWordDocument(m_state.CurrentFileTitle)) {
        OpenThroughWord(title);
        return;
    }
    RichTextBox* pane = PaneForOpening();
    pane->LoadFile(m_state.CurrentFilePath); // one that cannot be read leaves the pane as it was
    ShowOpened(pane, title);
}

RichTextBox* FileCommands::PaneForOpening() {
    if (m_workbench.CurrentTab() == Tab::MyForms)
        return m_workbench.txtMyContent();
    m_workbench.SetTab(Tab::EditForm);
    return m_workbench.txtContent();
}

void FileCommands::ShowOpened(RichTextBox* pane, const QString& title) {
    platform::SetFocus(pane);
    pane->setSelStart(0);
    pane->ensureCursorVisible();
    m_workbench.SetCaption(title);
}

// What the word processor leaves on the clipboard decides; without one, what lay there before.
void FileCommands::OpenThroughWord(const QString& title) {
    std::unique_ptr<platform::WordApplication>& word = m_variables.WordApp;
    m_workbench.SetCaption(QStringLiteral("Opening ") + title + QStringLiteral("..."));
    word.reset();
    word = m_services.wordProcessor.CreateWordApplication(m_workbench.Window());
    m_workbench.SetCaption(QStringLiteral("Converting ") + title + QStringLiteral("..."));
    if (word) {
        word->DocumentsOpen(m_state.CurrentFilePath);
        word->SelectionWholeStory();
        word->SelectionCopy();
    }
    const QByteArray source = platform::ClipboardRTF();
    if (source.isEmpty()) {
        m_services.messageBox.Show(m_workbench.Window(),
                                   QStringLiteral("An error occured while opening ") + title +
                                       QStringLiteral(".   "),
                                   MessageButtons::Ok, MessageIcon::Critical, QStringLiteral("Error"));
    } else {
        if (m_workbench.CurrentTab() == Tab::MyForms)
            m_myForms.StartNewMyForm();
        RichTextBox* pane = PaneForOpening();
        pane->setTextRTF(source);
        ShowOpened(pane, title);
    }
    if (word) {
        word->ActiveDocumentClose(platform::wdDoNotSaveChanges);
        word->Quit(platform::wdDoNotSaveChanges);
    }
    word.reset();
}

void FileCommands::New() {
    if (m_workbench.CurrentTab() == Tab::MyForms) {
        m_myForms.StartNewMyForm();
        return;
    }
    m_workbench.SetTab(Tab::EditForm);
    m_workbench.txtContent()->setText(QString());
    m_workbench.txtContent()->setFileName(QString());
    m_state.CurrentFilePath.clear();
    m_state.CurrentFileTitle.clear();
    platform::SetFocus(m_workbench.txtContent());
}

} // namespace quillbrook
