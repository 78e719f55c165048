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
struct PublicVariables;
struct WindowState;

// Saving, opening and beginning documents.
class FileCommands final : public QObject {
    Q_OBJECT

public:
    FileCommands(MyFormsPage& myForms, Workbench& workbench, WindowState& state, PublicVariables& variables,
                 WindowList& windows, platform::Services& services, QObject* parent);

    // Saves the active pane as a word processor document.
    void SetWordSaving(std::function<void()> save) { m_saveByWord = std::move(save); }

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
    PublicVariables& m_variables;
    WindowList& m_windows;
    platform::Services& m_services;
    platform::FileChoice m_dialog;
    std::function<void()> m_saveByWord;
};

} // namespace quillbrook
