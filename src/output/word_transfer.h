#pragma once

#include "output/word_turn.h"

#include <QString>

namespace platform {
struct Services;
class WordApplication;
} // namespace platform

namespace quillbrook {

class PaperCommands;
class Workbench;

// What the commands that send the active pane to the word processor do with it: start it, hand it the pane
// and the page of the page setup, and end it. Steps that it refuses are passed over, and the next one runs.
class WordTransfer {
public:
    WordTransfer(Workbench& workbench, PaperCommands& paper, PublicVariables& variables,
                 platform::Services& services);

    // To be held by each command from its first step to its last.
    WordTurn Turn() { return WordTurn(m_variables); }

    // Makes WordApp a new instance. When that fails it is null.
    bool CreateObject();
    // Null between two commands.
    platform::WordApplication* WordApp() const;

    // The active pane's whole rich text, and nothing else, comes on the clipboard.
    void PutPaneOnClipboard();
    // Pastes the clipboard into the active document of WordApp, with all text in the automatic colour, the
    // caret at the start, our title and our page.
    void FillDocument();

    // Closes the active document unsaved, ends the instance, and drops it.
    void CloseAndQuit();
    // Drops the instance, which goes on running.
    void Release();

private:
    void TransferPage(platform::WordApplication& word);

    Workbench& m_workbench;
    PaperCommands& m_paper;
    PublicVariables& m_variables;
    platform::Services& m_services;
};

} // namespace quillbrook
