#pragma once

#include <QObject>

class QLineEdit;
namespace platform {
class ComboBox;
class Frame;
class ListBox;
class MyButton;
struct Services;
} // namespace platform

namespace quillbrook {

class LibraryStore;
class Workbench;
struct WindowState;

// The four states of the My Forms page.
enum class MyFormsMode { Browsing, Editing, Composing, Empty };

// What a state shows of the page's frame of titles and its command buttons.
struct MyFormsView {
    bool fmeMyTitle, btnNew, btnEdit, btnAddNew, btnUpdate, btnCancelNew, btnDelete;
};
constexpr MyFormsView ViewOf(MyFormsMode mode) {
    switch (mode) {
    case MyFormsMode::Browsing:
        return {true, true, true, false, true, false, true};
    case MyFormsMode::Editing:
        return {false, true, false, false, true, false, true};
    case MyFormsMode::Composing:
        return {false, true, false, true, false, true, false};
    case MyFormsMode::Empty:
        break;
    }
    return {false, true, false, true, false, false, false};
}

// The My Forms page: the user's own forms.
class MyFormsPage final : public QObject {
    Q_OBJECT

public:
    // Builds its controls on `page`, which owns them.
    MyFormsPage(QWidget* page, Workbench& workbench, WindowState& state, LibraryStore& store,
                platform::Services& services);

    // Fills the lists from the library and shows the first form of the first sub-category.
    void DisplayMySubCategories();

    // Loads the form selected in lstMyTitle into the page's pane.
    void MyTitleClick();

    // Empties fields and pane for a new form.
    void StartNewMyForm();

    // Brings the fields of title and category into view: btnEdit, and a click into the pane.
    void EditMyForm();

    // Stores what fields and pane hold as a new form, or says what is missing. The pane keeps its text when
    // the form is not stored.
    void AddNewMyForm();

    // Stores the changes to the form on display, after asking; Yes and No alike show the first form again. In
    // an empty collection it adds what fields and pane hold.
    void UpdateMyForm();

    // Leaves a new form without asking.
    void CancelNewMyForm();

    // Deletes the form on display, after asking.
    void DeleteMyForm();

    // Puts the form on the screen into the collection, from whatever page.
    void AddtoMyForms();

    // Shows the frame of titles and the buttons of a state, and sets MyFormDisplayed to what it is there.
    void Show(MyFormsMode mode);

    void RemoveDuplicateMySubCategories();
    void RemoveDuplicateMyCategoryChoices();
    void RemoveDuplicateMyTitles();

    platform::Frame* frmSubCategory;
    platform::ListBox* lstMySubCategory;
    platform::Frame* fmeMyTitle;
    platform::ListBox* lstMyTitle;
    platform::Frame* Frame5;
    platform::ComboBox* cboMySubCategory;
    platform::Frame* Frame6;
    QLineEdit* txtMyTitle;
    platform::Frame* fmeImport;
    platform::MyButton* btnImport;
    platform::MyButton* btnNew;
    platform::MyButton* btnEdit;
    platform::MyButton* btnAddNew;
    platform::MyButton* btnUpdate;
    platform::MyButton* btnCancelNew;
    platform::MyButton* btnDelete;

Q_SIGNALS:
    void PlainFormShown();
    void NewFormBegun();        // the pane is to be empty, in the font of new forms
    void HistoryStartsAfresh(); // the pane's text is the one entry of its history of changes
    void HistoryCleared();      // there is nothing to undo or redo

private:
    void BuildLists(QWidget* page);
    void BuildFields(QWidget* page);
    void BuildButtons(QWidget* page);
    void MySubCategoryClick();

    bool HasTitle();
    bool HasSubCategoryAndText();
    bool IsTitleFree();
    void ShowBeginnings();
    void Inform(const QString& text, QWidget* next);
    bool Confirm(const QString& question);

    Workbench& m_workbench;
    WindowState& m_state;
    LibraryStore& m_store;
    platform::Services& m_services;
};

} // namespace quillbrook
