#pragma once

#include "app/public_variables.h"
#include "clauses/clause_entries.h"

#include <array>
#include <cstddef>

namespace quillbrook {

// The shared variable that carries the key of the clause chosen for a routine.
inline QString& ChosenNumber(PublicVariables& variables, ClauseRoutine routine) {
    constexpr std::array kNumbers = {&PublicVariables::JuratNumber, &PublicVariables::CaptionNumber,
                                     &PublicVariables::VerificationNumber};
    return variables.*kNumbers[static_cast<std::size_t>(routine)];
}

// Chooses a clause for its routine: its key and its marker. A caption has none, and leaves what is looked
// for.
inline void ChooseClause(PublicVariables& variables, const ClauseEntry& entry) {
    ChosenNumber(variables, entry.routine) = QLatin1String(entry.number);
    if (*entry.marker)
        variables.CurrentSearchWord = QLatin1String(entry.marker);
}

} // namespace quillbrook
