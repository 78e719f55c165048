#pragma once

#include "platform/database/database.h"
#include "platform/word/word_application.h"

#include <QString>
#include <memory>

namespace quillbrook {

// The state that every window may read and write; one for the process.
struct PublicVariables {
    std::unique_ptr<platform::Database> FormsDb; // open from the load of the main window to exit
    QString PageTitle;                           // the caption of the current page

    // The keys of the clauses chosen last; empty: none. A command or a dialog sets one right before its
    // clause is inserted, and no insertion clears it.
    QString JuratNumber;
    QString CaptionNumber;
    QString VerificationNumber;

    // The word processor of the command that is running; null between two commands.
    std::unique_ptr<platform::WordApplication> WordApp;
    bool WordInUse = false; // such a command runs, from its first step to its last

    QString CurrentSearchWord; // what is looked for: a hit's term, or the marker that a clause is to replace
};

} // namespace quillbrook
