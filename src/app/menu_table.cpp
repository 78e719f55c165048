#include "app/menu_table.h"

#include "clauses/clause_entries.h"
#include "output/paper_sizes.h"

#include <array>

namespace quillbrook {
namespace {

consteval MenuRow Menu(const char* name, const char* caption) {
    return {MenuKind::Menu, "", name, caption};
}

consteval MenuRow PopUp(const char* name) {
    return {MenuKind::PopUp, "", name};
}

consteval MenuRow Sub(const char* parent, const char* name, const char* caption) {
    return {MenuKind::SubMenu, parent, name, caption};
}

consteval MenuRow Item(const char* parent, const char* name, const char* caption, const char* shortcut = "") {
    return {MenuKind::Item, parent, name, caption, shortcut};
}

consteval MenuRow Bar(const char* parent, const char* name) {
    return {MenuKind::Bar, parent, name};
}

consteval MenuRow Disabled(MenuRow row) {
    row.isEnabled = false;
    return row;
}

consteval MenuRow Checkable(MenuRow row, bool isChecked = false) {
    row.isCheckable = true;
    row.isChecked = isChecked;
    return row;
}

// A clause stands where its own table says, under the caption given there.
consteval MenuRow Clause(const char* name) {
    const ClauseEntry* entry = FindClauseEntry(name);
    return Item(entry->menu, entry->name, entry->caption);
}

consteval MenuRow Size(Paper paper) {
    const PaperSize& size = kPaperSizes[static_cast<std::size_t>(paper)];
    return Checkable(Item("mnuPaperSize", size.menu, size.menuCaption), paper == Paper::Long);
}

// clang-format off
constexpr auto kRows = std::to_array<MenuRow>({
    Menu("mnuFile", "&File"),
    Item("mnuFile", "mnuNew", "&New", "Ctrl+N"),
    Item("mnuFile", "mnuOpen", "&Open...", "Ctrl+O"),
    Item("mnuFile", "mnuSave", "&Save...", "Ctrl+S"),
    Bar("mnuFile", "mnuFileBar1"),
    Item("mnuFile", "mnuPageSetup", "Page Setup..."),
    Bar("mnuFile", "mnuFileBar2"),
    Item("mnuFile", "mnuPrint", "&Print...", "Ctrl+P"),
    Item("mnuFile", "mnuPrintSetup", "Print Setup..."),
    Item("mnuFile", "mnuPrintPreview", "Print Preview"),
    Bar("mnuFile", "mnuFileBar3"),
    Item("mnuFile", "mnuExit", "&Quit", "Ctrl+Q"),

    Menu("mnuEdit", "&Edit"),
    Item("mnuEdit", "mnuSelectAll", "Select All     Ctrl+A"),
    Bar("mnuEdit", "Bar1"),
    Item("mnuEdit", "mnuCut", "Cut              Ctrl+X"),
    Item("mnuEdit", "mnuCopy", "Copy           Ctrl+C"),
    Item("mnuEdit", "mnuPaste", "Paste           Ctrl+V"),
    Bar("mnuEdit", "Bar2"),
    Disabled(Item("mnuEdit", "mnuUndo", "Undo")),
    Disabled(Item("mnuEdit", "mnuRedo", "Redo")),

    Menu("mnuPaperSize", "Paper Size"),
    Size(Paper::Long),
    Size(Paper::Short),
    Size(Paper::A4),
    Size(Paper::Custom),

    Menu("mnuFormat", "F&ormat"),
    Item("mnuFormat", "mnuFontDialog", "Fonts..."),
    Sub("mnuFormat", "mnuTextStyle", "Text Style"),
    Item("mnuTextStyle", "mnuBold", "Bold", "Ctrl+B"),
    Item("mnuTextStyle", "mnuItalic", "Italic", "Ctrl+I"),
    Item("mnuTextStyle", "mnuUnderline", "Underline", "Ctrl+U"),
    Sub("mnuFormat", "mnuAlignment", "Text Alignment"),
    Item("mnuAlignment", "mnuLeft", "Align Left", "Ctrl+L"),
    Item("mnuAlignment", "mnuRight", "Align Right", "Ctrl+R"),
    Item("mnuAlignment", "mnuCenter", "Align Center", "Ctrl+E"),
    Item("mnuFormat", "mnucolor", "Text Color..."),
    Bar("mnuFormat", "mnuFormatBar1"),
    Item("mnuFormat", "mnuBullet", "Bullet"),
    Sub("mnuFormat", "mnuIndent", "Indent"),
    Item("mnuIndent", "mnuIncreaseIndent", "Increase Indent"),
    Item("mnuIndent", "mnuDecreaseIndent", "Decrease Indent"),
    Bar("mnuFormat", "mnuFormatBar2"),
    Sub("mnuFormat", "mnuCase", "Change Case"),
    Item("mnuCase", "mnuUpperCase", "Upper Case"),
    Item("mnuCase", "mnuLowerCase", "Lower Case"),

    Menu("mnuTheme", "&Theme"),
    Item("mnuTheme", "mnuChangeColorTheme", "Select Color Theme"),
    Checkable(Item("mnuTheme", "mnuWindowsDefaultTheme", "Windows Default")),

    Menu("mnuAddtoForm", "&Add to Form"),
    Sub("mnuAddtoForm", "mnuAddJurat", "Jurat"),
    Clause("mnuJuratIndividual"),
    Clause("mnuJuratJoints"),
    Clause("mnuJuratMultiple"),
    Sub("mnuAddtoForm", "mnuAddAcknowledgment", "Acknowledgment"),
    Clause("mnuAckIndividual1Party"),
    Clause("mnuAckIndividuals2Party"),
    Clause("mnuAckIndividualsMultiParty"),
    Clause("mnuAckCorporation"),
    Clause("mnuAckMixed"),
    Sub("mnuAddtoForm", "mnuCaption", "Caption for Pleadings"),
    Clause("mnuCaptionSC"),
    Clause("mnuCaptionCA"),
    Sub("mnuCaption", "mnuCaptionRTC", "Regional Trial Court"),
    Clause("mnuCaptionRTCCivil"),
    Clause("mnuCaptionRTCCrim"),
    Sub("mnuCaption", "mnuCaptionMTC", "Municipal Trial Court"),
    Clause("mnuCaptionMTCCivil"),
    Clause("mnuCaptionMTCCrim"),
    Sub("mnuCaption", "mnuCaptionMTCC", "Municipal Trial Court in Cities"),
    Clause("mnuCaptionMTCCCivil"),
    Clause("mnuCaptionMTCCCrim"),
    Sub("mnuAddtoForm", "mnuVerification", "Verification for Pleadings"),
    Clause("mnuAddVerificationIndividual"),
    Clause("mnuVerificationCorporation"),
    Clause("mnuVerificationCertification"),
    Clause("mnuCertification"),
    Clause("mnuNoticeHearing"),
    Clause("mnuExplanation"),

    Menu("mnuHelp", "&Help"),
    Checkable(Item("mnuHelp", "mnuHelpContents", "Help Contents...", "F1")),
    Bar("mnuHelp", "mnuBar0"),
    Item("mnuHelp", "mnuContact", "Contact Atty. Merrow..."),
    Bar("mnuHelp", "mnuPopBar5"),
    Item("mnuHelp", "mnuAbout", "About Atty. Merrow..."),

    PopUp("mnuPopUp"),
    Disabled(Item("mnuPopUp", "mnuPopUndo", "Undo")),
    Disabled(Item("mnuPopUp", "mnuPopRedo", "Redo")),
    Bar("mnuPopUp", "mnuPopBar1"),
    Item("mnuPopUp", "mnuPopCut", "Cut"),
    Item("mnuPopUp", "mnuPopCopy", "Copy"),
    Item("mnuPopUp", "mnuPopPaste", "Paste"),
    Item("mnuPopUp", "mnuPopDelete", "Delete"),
    Bar("mnuPopUp", "mnuPopBar2"),
    Item("mnuPopUp", "mnuPopSelectAll", "Select All"),
    Bar("mnuPopUp", "mnuPopBar3"),
    Item("mnuPopUp", "mnuPopFonts", "Fonts..."),
    Item("mnuPopUp", "mnuPopColor", "Text Color..."),
    Bar("mnuPopUp", "mnuPopBar4"),
    Item("mnuPopUp", "mnuChangeColor", "Color Theme..."),
    Bar("mnuPopUp", "mnuPopBar6"),
    Item("mnuPopUp", "mnuPopAbout", "About..."),

    PopUp("mnuDropSave"),
    Item("mnuDropSave", "mnuSaveAsDocFile", "Save as .Doc File"),
    Item("mnuDropSave", "mnuSaveAsRTFFile", "Save as .RTF File"),
    Bar("mnuDropSave", "mnuDropSaveBar2"),
    Item("mnuDropSave", "mnuAddToMyForms", "Add to My Forms"),

    PopUp("mnuDropPrint"),
    Item("mnuDropPrint", "mnuPageSetupPrint", "Page Setup..."),
    Bar("mnuDropPrint", "mnuDropBar1"),
    Item("mnuDropPrint", "mnuPrinterSetupDrop", "Printer Setup"),
    Item("mnuDropPrint", "mnuPrintPreviewDrop", "Print Preview"),
});
// clang-format on

} // namespace

std::span<const MenuRow> MenuTable() {
    return kRows;
}

const MenuRow* FindMenuRow(std::string_view name) {
    for (const MenuRow& row : kRows) {
        if (name == row.name)
            return &row;
    }
    return nullptr;
}

std::vector<const MenuRow*> MenuRowsIn(std::string_view parent) {
    std::vector<const MenuRow*> rows;
    for (const MenuRow& row : kRows) {
        if (parent == row.parent)
            rows.push_back(&row);
    }
    return rows;
}

} // namespace quillbrook
