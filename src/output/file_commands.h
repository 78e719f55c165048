#pragma once

#include "platform/services.h"

#include <QObject>
#include <functional>

namespace platform {
class MyButton;
class RichTextBox;
} // namespace platform

namespace quillbrook {

class MyFormsPage;
class WindowList;
class Workbench;
struct WindowState;

// Saving, opening and beginning documents.
class FileCommands final : public QObject {
    Q_OBJECT

public:
    FileCommands(MyFormsPage& myForms, Workbench& workbench, WindowState& state, WindowList& windows,
                 platform::Services& services, QObject* parent);

    // Saves the active pane as a word processor document.
    void SetWordSaving(std::function<void()> save) { m_saveByWord = std::move(save); }
    // Opens a document in the word processor, puts its text on the clipboard, and closes it again when the
    // second function runs. Without them the clipboard stays as it is.
    void SetWordOpening(std::function<void(const QString& path)> open, std::function<void()> close) {
        m_openByWord = std::move(open);
        m_closeWord = std::move(close);
    }

    // The one file dialog of all commands: it keeps its last file name between them.
    platform::FileChoice& CommonDialog1() { return m_dialog; }

    // mnuSave: the dialog that asks where a form shall go.
    void ShowSaveDialog();

    void SaveAsMSDoc();
    // Saves the reading pane to its file without asking, or asks for one; own forms are always asked for.
    void SavetoDisk();
    // Asks for a file and saves the active pane to it as rich text.
    void SaveAsRTFFile();
    void Open();
    void New();

private:
    bool AskWhereToSave();
    int SaveActivePane();
    bool TellSaveError(int number);
    void TellSaved();
    void OpenThroughWord(const QString& title);
    void ShowOpened(platform::RichTextBox* pane, const QString& title);
    platform::RichTextBox* PaneForOpening();

    MyFormsPage& m_myForms;
    Workbench& m_workbench;
    WindowState& m_state;
    WindowList& m_windows;
    platform::Services& m_services;
    platform::FileChoice m_dialog;
    std::function<void()> m_saveByWord;
    std::function<void(const QString&)> m_openByWord;
    std::function<void()> m_closeWord;
};

} // namespace quillbrook
