#include "clauses/clause_commands.h"

#include "app/window_list.h"
#include "app/workbench.h"
#include "clauses/clause_choice.h"
#include "clauses/clause_placement.h"
#include "clauses/clause_variables.h"
#include "library/library_store.h"
#include "platform/rich_text/rich_text_box.h"

#include <QAction>
#include <QDialog>

namespace quillbrook {

ClauseCommands::ClauseCommands(Workbench& workbench, LibraryStore& store, PublicVariables& variables,
                               WindowList& windows, QObject* parent)
    : QObject(parent)
    , m_workbench(workbench)
    , m_store(store)
    , m_variables(variables)
    , m_windows(windows) {
    for (const ClauseEntry& entry : kClauseEntries) {
        connect(workbench.Menu(QLatin1String(entry.name)), &QAction::triggered, this,
                [this, &entry] { InsertEntry(entry); });
    }
}

void ClauseCommands::InsertEntry(const ClauseEntry& entry) {
    ChooseClause(m_variables, entry);
    switch (entry.routine) {
    case ClauseRoutine::InsertJurat:
        InsertJurat();
        break;
    case ClauseRoutine::InsertCaption:
        InsertCaption();
        break;
    case ClauseRoutine::InsertVerification:
        InsertVerification();
        break;
    }
}

void ClauseCommands::InsertJurat() {
    InsertAtMarker(ClauseRoutine::InsertJurat);
}

void ClauseCommands::InsertVerification() {
    InsertAtMarker(ClauseRoutine::InsertVerification);
}

void ClauseCommands::InsertAtMarker(ClauseRoutine routine) {
    PreparePane(*m_workbench.txtContent());
    PreparePane(*m_workbench.txtMyContent());
    const QString clause = Fetch(routine);
    InsertClause(*m_workbench.ActivePane(), m_variables.CurrentSearchWord, clause);
}

void ClauseCommands::InsertCaption() {
    InsertClauseAt(*m_workbench.ActivePane(), PlaceOfCaption(), Fetch(ClauseRoutine::InsertCaption));
}

QString ClauseCommands::Fetch(ClauseRoutine routine) {
    return m_store.ReadClause(QLatin1String(TableOf(routine).table), ChosenNumber(m_variables, routine))
        .value_or(QString());
}

void ClauseCommands::AddJurat() {
    m_variables.JuratNumber.clear();
    ShowModally(ClauseDialog::frmJurat);
    if (!m_variables.JuratNumber.isEmpty())
        InsertJurat();
}

void ClauseCommands::AddVerification() {
    m_variables.CaptionNumber.clear();
    m_variables.VerificationNumber.clear();
    ShowModally(ClauseDialog::frmVerification);
    if (!m_variables.CaptionNumber.isEmpty())
        InsertCaption();
    if (!m_variables.VerificationNumber.isEmpty())
        InsertVerification();
}

void ClauseCommands::ShowModally(ClauseDialog dialog) {
    const QLatin1String name(TextsOf(dialog).name);
    if (auto* window = qobject_cast<QDialog*>(m_windows.Load(name)))
        window->exec();
}

} // namespace quillbrook
