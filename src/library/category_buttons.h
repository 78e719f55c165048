#pragma once

#include <array>

namespace quillbrook {

// A category button: the name of the control, the caption on it, and the category in the library that it
// stands for, which is not always the same text.
struct CategoryButton {
    const char* name;
    const char* caption;
    const char* category;
};

constexpr std::array<CategoryButton, 17> kCategoryButtons = {{
    {"btnAcknowledgment", "Acknowledgment / Jurat", "Acknowledgment / Jurat"},
    {"btnAffidavits", "Affidavits", "Affidavits"},
    {"btnCorporateForms", "Corporate Forms", "Corporations"},
    {"btnCriminalActions", "Criminal Actions", "Criminal Actions"},
    {"btnGratuitousContracts", "Gratuitous Contracts", "Gratuitous Contracts"},
    {"btnLaborManagement", "Labor and Management", "Labor-Management"},
    {"btnLawPractice", "Law Practice", "Law Practice"},
    {"btnLease", "Lease", "Lease"},
    {"btnMortgages", "Mortgages", "Mortgages"},
    {"btnMotions", "Motions", "Motions"},
    {"btnNegotiableInstruments", "Negotiable Instruments", "Negotiable Instruments"},
    {"btnPartnerships", "Partnerships", "Partnerships"},
    {"btnPleadings", "Pleadings", "Pleadings"},
    {"btnPowersofAttorney", "Powers of Attorney", "Power of Attorney"},
    {"btnSales", "Sales", "Sales"},
    {"btnSpecialContracts", "Special Contracts", "Special Contracts"},
    {"btnMyForms", "My Forms", "My Forms"},
}};

} // namespace quillbrook
