#pragma once

#include <QObject>
#include <map>

namespace platform {
class Frame;
class HyperLabel;
class ListBox;
class MyButton;
struct Services;
} // namespace platform
class QLabel;

namespace quillbrook {

class LibraryStore;
class Workbench;
struct WindowState;

// The Forms Explorer page: category, sub-category, title, and the form stands in the reading pane.
class CategoryBrowser final : public QObject {
    Q_OBJECT

public:
    // Builds its controls on `page`, which owns them.
    CategoryBrowser(QWidget* page, Workbench& workbench, WindowState& state, LibraryStore& store,
                    platform::Services& services);

    // Takes the pressed state from all 17 category buttons.
    void ClearCategoryButtons();

    // Lists the sub-categories of the current category and selects the first, which lists its titles. Without
    // any, asks whether a new form shall be added to the collection.
    void DisplaySubCategories();

    // What a click on btnMyForms does.
    void DisplayMyForms();

    void RemoveDuplicateSubCategories();
    void RemoveDuplicateTitles();

    // Loads the form selected in lstTitle into the reading pane.
    void DisplaySelectedTitle();

    platform::MyButton* CategoryButton(const QString& name) const; // null for an unknown name

    QLabel* lblQuillbrook;
    platform::HyperLabel* httpFacebook;
    platform::HyperLabel* httpAttyMerrow;
    platform::MyButton* btnMyForms;
    platform::MyButton* cmdAddtoFavs;
    platform::MyButton* cmdSearchAgain;
    platform::Frame* fmeSubject;
    platform::Frame* fmeSubCategory;
    platform::ListBox* lstSubCategory;
    platform::Frame* fmeTitle;
    platform::ListBox* lstTitle;

Q_SIGNALS:
    void BrowsingBegan();                  // a sub-category was chosen: a pending search text goes
    void FormOpened(const QString& title); // for the history
    void PlainFormShown();                 // the pane holds a form without marked hits
    void NewFormWanted();                  // the user said Yes to a new form of his own

private:
    void BuildHeading(QWidget* page);
    void BuildCategories(QWidget* page);
    void BuildLists(QWidget* page);
    void ChooseCategory(const QString& button, const QString& category);
    void SubCategoryClick();
    void TitleClick();

    Workbench& m_workbench;
    WindowState& m_state;
    LibraryStore& m_store;
    platform::Services& m_services;
    std::map<QString, platform::MyButton*> m_categoryButtons;
};

} // namespace quillbrook
