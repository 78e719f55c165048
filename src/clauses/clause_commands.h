#pragma once

#include "clauses/clause_entries.h"

#include <QObject>

namespace quillbrook {

class LibraryStore;
class WindowList;
class Workbench;
struct PublicVariables;

// Puts the library's clauses into the pane of the current page: straight from the menu, or through a dialog.
// A clause takes on the format of the place where it lands, and each of its lines is a paragraph there. The
// commands show no message, move no focus and leave the selection where the insertion does.
class ClauseCommands final : public QObject {
    Q_OBJECT

public:
    // `windows` offers the dialogs frmJurat and frmVerification.
    ClauseCommands(Workbench& workbench, LibraryStore& store, PublicVariables& variables, WindowList& windows,
                   QObject* parent);

    // The clause of JuratNumber or VerificationNumber goes in place of the first CurrentSearchWord, or to the
    // end. A pane of one character takes none; an empty one, the other pane too, is given two blanks first. A
    // clause that the library does not have is an empty text: its marker goes, nothing comes.
    void InsertJurat();
    void InsertVerification();
    // The clause of CaptionNumber goes on top.
    void InsertCaption();

    // Shows the dialog, and inserts what is chosen there; after Cancel, nothing.
    void AddJurat();
    void AddVerification();

private:
    void InsertEntry(const ClauseEntry& entry);
    void InsertAtMarker(ClauseRoutine routine);
    QString Fetch(ClauseRoutine routine);
    void ShowModally(ClauseDialog dialog);

    Workbench& m_workbench;
    LibraryStore& m_store;
    PublicVariables& m_variables;
    WindowList& m_windows;
};

} // namespace quillbrook
