#pragma once

#include "app/public_variables.h"
#include "clauses/clause_entries.h"

namespace quillbrook {

// The shared variable that carries the key of the clause chosen for a routine.
inline QString& ChosenNumber(PublicVariables& variables, ClauseRoutine routine) {
    switch (routine) {
    case ClauseRoutine::InsertJurat:
        break;
    case ClauseRoutine::InsertCaption:
        return variables.CaptionNumber;
    case ClauseRoutine::InsertVerification:
        return variables.VerificationNumber;
    }
    return variables.JuratNumber;
}

// Chooses a clause for its routine: its key and its marker. A caption has none, and leaves what is looked
// for.
inline void ChooseClause(PublicVariables& variables, const ClauseEntry& entry) {
    ChosenNumber(variables, entry.routine) = QLatin1String(entry.number);
    if (*entry.marker)
        variables.CurrentSearchWord = QLatin1String(entry.marker);
}

} // namespace quillbrook
