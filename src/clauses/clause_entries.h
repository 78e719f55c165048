#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quillbrook {

// The routine that puts a clause into a pane; each has its own table in the library.
enum class ClauseRoutine { InsertJurat, InsertCaption, InsertVerification };

// A routine's table and the field of the table's keys.
struct ClauseTable {
    ClauseRoutine routine;
    const char* table;
    const char* keyField;
};

constexpr std::array<ClauseTable, 3> kClauseTables = {{
    {ClauseRoutine::InsertJurat, "Jurat", "JuratNo"},
    {ClauseRoutine::InsertCaption, "Caption", "CaptionNo"},
    {ClauseRoutine::InsertVerification, "Verification", "VerificationNo"},
}};

constexpr const ClauseTable& TableOf(ClauseRoutine routine) {
    return kClauseTables[static_cast<std::size_t>(routine)];
}

// The dialogs that offer the clauses beside the menu.
enum class ClauseDialog { frmJurat, frmVerification };

// A clause: the menu it stands in, its entry and caption there; the dialog's choice of the same clause, which
// is Option and HyperLabel of this number, and its text; the routine, the clause's key in the library, and
// the place in a form that it takes (none for a caption, which goes on top).
//
// The keys are those of the library file and are never renumbered. A verification's place takes any of the
// three verifications.
struct ClauseEntry {
    const char* menu;
    const char* name;
    const char* caption;
    ClauseDialog dialog;
    int choice;
    const char* choiceText;
    ClauseRoutine routine;
    const char* number;
    const char* marker;
};

// clang-format off
namespace clause_rows {

using enum ClauseRoutine;
using enum ClauseDialog;

constexpr std::array<ClauseEntry, 22> kClauseEntries = {{
    {"mnuAddJurat", "mnuJuratIndividual", "For Individual Affiant", frmJurat, 1, "Jurat for Individual Affiant", InsertJurat, "1", "(JURAT)"},
    {"mnuAddJurat", "mnuJuratJoints", "For Joint Affiants", frmJurat, 2, "Jurat for Joint Affiants", InsertJurat, "2", "(JURAT)"},
    {"mnuAddJurat", "mnuJuratMultiple", "For Multiple Affiants", frmJurat, 3, "Jurat for Multiple Affiants", InsertJurat, "3", "(JURAT)"},
    {"mnuAddAcknowledgment", "mnuAckIndividual1Party", "For an Individual - 1-Party Instrument", frmJurat, 4, "Individual (1-Party Instrument)", InsertJurat, "4", "(ACKNOWLEDGMENT)"},
    {"mnuAddAcknowledgment", "mnuAckIndividuals2Party", "For Individuals - 2-Party Instrument", frmJurat, 5, "Individuals (2-Party Instrument)", InsertJurat, "5", "(ACKNOWLEDGMENT)"},
    {"mnuAddAcknowledgment", "mnuAckIndividualsMultiParty", "For Individuals - Multi-Party Instrument", frmJurat, 6, "Individuals (Multi-Party Instrument)", InsertJurat, "6", "(ACKNOWLEDGMENT)"},
    {"mnuAddAcknowledgment", "mnuAckCorporation", "For and in behalf of a Corporation", frmJurat, 7, "For and in behalf of a Corporation", InsertJurat, "7", "(ACKNOWLEDGMENT)"},
    {"mnuAddAcknowledgment", "mnuAckMixed", "For Mixed Individual and Corporation", frmJurat, 8, "Individual and a Corporation", InsertJurat, "8", "(ACKNOWLEDGMENT)"},
    {"mnuCaption", "mnuCaptionSC", "Supreme Court", frmVerification, 1, "Supreme Court", InsertCaption, "1", ""},
    {"mnuCaption", "mnuCaptionCA", "Court of Appeals", frmVerification, 2, "Court of Appeals", InsertCaption, "2", ""},
    {"mnuCaptionRTC", "mnuCaptionRTCCivil", "Civil Case", frmVerification, 3, "RTC - Civil Case", InsertCaption, "3", ""},
    {"mnuCaptionRTC", "mnuCaptionRTCCrim", "Criminal Case", frmVerification, 4, "RTC - Criminal Case", InsertCaption, "4", ""},
    {"mnuCaptionMTC", "mnuCaptionMTCCivil", "Civil Case", frmVerification, 5, "MTC - Civil Case", InsertCaption, "5", ""},
    {"mnuCaptionMTC", "mnuCaptionMTCCrim", "Criminal Case", frmVerification, 6, "MTC - Criminal Case", InsertCaption, "6", ""},
    {"mnuCaptionMTCC", "mnuCaptionMTCCCivil", "Civil Case", frmVerification, 7, "MTCC - Civil Case", InsertCaption, "7", ""},
    {"mnuCaptionMTCC", "mnuCaptionMTCCCrim", "Criminal Case", frmVerification, 8, "MTCC - Criminal Case", InsertCaption, "8", ""},
    {"mnuVerification", "mnuAddVerificationIndividual", "Verification by an Individual", frmVerification, 9, "Verification by an Individual", InsertVerification, "1", "(VERIFICATION)"},
    {"mnuVerification", "mnuVerificationCorporation", "Verification for Corporation", frmVerification, 10, "Verification for a Corporation", InsertVerification, "2", "(VERIFICATION)"},
    {"mnuVerification", "mnuVerificationCertification", "Verification with Certification", frmVerification, 11, "Verification w/ Certification", InsertVerification, "3", "(VERIFICATION)"},
    {"mnuVerification", "mnuCertification", "Certification of Non-Forum Shopping", frmVerification, 12, "Certification of Non-Forum Shopping", InsertVerification, "4", "(CERTIFICATION OF NON-FORUM SHOPPING)"},
    {"mnuVerification", "mnuNoticeHearing", "Notice of Hearing for Motions", frmVerification, 13, "Notice of Hearing", InsertVerification, "5", "(NOTICE OF HEARING)"},
    {"mnuVerification", "mnuExplanation", "Explanation for Non-Personal Service", frmVerification, 14, "Explanation for Non-Personal Service", InsertVerification, "6", "(EXPLANATION)"},
}};

} // namespace clause_rows
// clang-format on

using clause_rows::kClauseEntries;

// The clause of a menu entry; null for a name that is none.
constexpr const ClauseEntry* FindClauseEntry(std::string_view name) {
    for (const ClauseEntry& entry : kClauseEntries) {
        if (name == entry.name)
            return &entry;
    }
    return nullptr;
}

} // namespace quillbrook
