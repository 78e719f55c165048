#include "clauses/clause_choice.h"

namespace quillbrook {

const ClauseEntry* FindClauseChoice(ClauseDialog dialog, int choice) {
    for (const ClauseEntry& entry : kClauseEntries) {
        if (entry.dialog == dialog && entry.choice == choice)
            return &entry;
    }
    return nullptr;
}

std::vector<int> ChoicesToClear(ClauseDialog dialog, int clicked) {
    std::vector<int> choices;
    for (const ClauseFrame& frame : kClauseFrames) {
        if (frame.dialog != dialog || (clicked >= frame.first && clicked <= frame.last))
            continue;
        for (int choice = frame.first; choice <= frame.last; ++choice)
            choices.push_back(choice);
    }
    return choices;
}

const ClauseEntry* ChosenClause(ClauseDialog dialog, const std::vector<bool>& isSet) {
    for (std::size_t i = 0; i < isSet.size(); ++i) {
        if (isSet[i])
            return FindClauseChoice(dialog, static_cast<int>(i) + 1);
    }
    return nullptr;
}

} // namespace quillbrook
