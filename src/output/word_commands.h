#pragma once

#include "output/mouse_pointer.h"
#include "output/word_transfer.h"

#include <QObject>

namespace platform {
struct FileChoice;
class MyButton;
} // namespace platform

namespace quillbrook {

struct WindowState;

// The commands that send the active pane to the word processor. Each waits until the word processor is done,
// and does nothing while another command uses it.
class WordCommands final : public QObject {
    Q_OBJECT

public:
    // Serves btnEditMSWord; the others are called by the commands of printing and of files. `dialog` is the
    // file dialog that they share.
    WordCommands(platform::MyButton& btnEditMSWord, platform::MyButton& btnPrint, Workbench& workbench,
                 WindowState& state, PaperCommands& paper, PublicVariables& variables,
                 platform::Services& services, platform::FileChoice& dialog, QObject* parent);

    // Leaves the document with the user, in a word processor of his own.
    void ExportPane();
    // Shows the word processor's print dialog. False when the word processor does not start.
    bool PrintPane();
    // Shows the document as it prints, until the user leaves it. False when the word processor does not
    // start.
    bool PreviewPane();
    // Asks for a file and saves the pane to it as a document of the word processor.
    void SaveAsMSDoc();

private:
    enum class Next { Done, FromTheStart };

    Next SaveOnce();
    bool AskWhereToSave();
    Next TellSaveError(int number);
    void TellSaved();
    void EndShown();
    void CleanUp();
    void CancelSave();
    void RestoreWindow();
    void FocusActivePane();
    void TellFailure(const QString& text, const QString& title);

    platform::MyButton& m_btnPrint;
    Workbench& m_workbench;
    WindowState& m_state;
    platform::Services& m_services;
    platform::FileChoice& m_dialog;
    WordTransfer m_transfer;
    MousePointer m_pointer;
};

} // namespace quillbrook
