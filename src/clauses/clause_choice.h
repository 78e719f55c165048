#pragma once

#include "clauses/clause_entries.h"

#include <array>
#include <cstddef>
#include <vector>

namespace quillbrook {

// What a dialog of clauses is made of: frames with the choices of these numbers, from `first` to `last`, in
// columns of frames.
struct ClauseFrame {
    ClauseDialog dialog;
    const char* name;
    const char* caption;
    int first;
    int last;
    int column;
};

constexpr std::array<ClauseFrame, 5> kClauseFrames = {{
    {ClauseDialog::frmJurat, "Frame1", "Jurat", 1, 3, 0},
    {ClauseDialog::frmJurat, "Frame2", "Acknowledgment", 4, 8, 0},
    {ClauseDialog::frmVerification, "Frame1", "Caption", 1, 8, 0},
    {ClauseDialog::frmVerification, "Frame2", "Verification / Certification", 9, 12, 1},
    {ClauseDialog::frmVerification, "Frame3", "Notice / Explanation", 13, 14, 1},
}};

// A dialog's own texts: its caption, and the picture at its corner, a button without any action. Both dialogs
// have OKButton "Add to Form" and CancelButton "Cancel".
struct ClauseDialogTexts {
    ClauseDialog dialog;
    const char* name;
    const char* caption;
    const char* picture;
    const char* icon;
    const char* tipTitle;
    const char* tip;
};

constexpr std::array<ClauseDialogTexts, 2> kClauseDialogs = {{
    {ClauseDialog::frmJurat, "frmJurat", "Add Jurat / Acknowledgment", "cmdAddJurat", "add-jurat",
     "Add Jurat", "Add Jurat / Acknowledgment to Affidavits / Contracts"},
    {ClauseDialog::frmVerification, "frmVerification", "Add to Pleading", "AddVerification",
     "add-verification", "Add Verification", "Add Verification and other Pleading Requirements"},
}};

constexpr const ClauseDialogTexts& TextsOf(ClauseDialog dialog) {
    return kClauseDialogs[static_cast<std::size_t>(dialog)];
}

// The clause of a dialog's choice; null for a number that is none.
const ClauseEntry* FindClauseChoice(ClauseDialog dialog, int choice);

// The choices that a click on one clears: those of the other frames, in ascending order. Choices of one frame
// exclude each other by themselves.
std::vector<int> ChoicesToClear(ClauseDialog dialog, int clicked);

// The clause of the first choice that is set, where `isSet[0]` is choice 1; null when none is.
const ClauseEntry* ChosenClause(ClauseDialog dialog, const std::vector<bool>& isSet);

} // namespace quillbrook
