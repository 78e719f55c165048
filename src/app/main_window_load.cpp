// The load sequence of the main window: the order of its steps is part of what it does.

#include "app/left_toolbar.h"
#include "app/library_paths.h"
#include "app/main_window.h"
#include "appearance/theme_commands.h"
#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "library/library_format.h"
#include "library/my_forms_page.h"
#include "platform/controls/frame.h"
#include "platform/controls/geometry.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"
#include "search/search_page.h"

#include <QAction>
#include <QFontDatabase>
#include <QFrame>
#include <QLabel>

namespace quillbrook {

using platform::Move;

bool frmMain::Load() {
    LoadFrame();
    if (m_services.instance.EarlierInstanceRuns() && BringPreviousInstanceForward())
        return false;
    m_services.instance.SetWindow(this);

    editToolBar->FillFonts(QFontDatabase::families());
    for (platform::MyButton* button : {editToolBar->btnUndo, editToolBar->btnRedo})
        button->setEnabled(false);
    for (const char* entry : {"mnuUndo", "mnuRedo", "mnuPopUndo", "mnuPopRedo"})
        Menu(QLatin1String(entry))->setEnabled(false);
    categoryBrowser->CategoryButton(QStringLiteral("btnAcknowledgment"))->setValue(true);
    searchPage->lblSearchGuide->clear();
    searchPage->lblSearchGuide1->clear();
    Centre();

    if (LoadLibrary())
        LoadPages();
    return true;
}

void frmMain::LoadFrame() {
    m_state.NewFormMode = false;
    m_state.DocumentSaved = true;
    resize(platform::ToPixels(11340), platform::ToPixels(8260));
    m_txtMyContent->hide();
    Move(m_txtMyContent, 1380, 3300);
    Move(m_txtContent, 1380, 4290);
    Move(leftToolbar->picLeftToolbar, 0, 45);
    leftToolbar->picLeftToolbar->resize(platform::ToPixels(1200), leftToolbar->picLeftToolbar->height());
    Move(SSTab, 1260, 50);
    Move(editToolBar->fmeEditToolBar, 1380, 440);
    ResizeControls();
    SetCaption(m_variables.PageTitle);
    Centre();
}

bool frmMain::BringPreviousInstanceForward() {
    platform::InstanceService& instance = m_services.instance;
    const QString title = instance.ApplicationTitle();
    // the search must not find this process itself
    instance.SetApplicationTitle(QStringLiteral("abcba - This App Will Be Closed"));
    if (!instance.BringForward(title))
        return false;
    instance.EndProcess();
    return true;
}

// Opens the library. False when it has no forms, or none that can be read: the window then comes up as it is.
bool frmMain::LoadLibrary() {
    const LibraryPaths paths(m_executableFolder);
    m_store.OpenLibrary(paths.LibraryPath, BuildLibraryPassword());
    const std::optional<int> rows = m_store.OpenFormsTable();
    return rows && *rows > 0;
}

void frmMain::LoadPages() {
    m_txtContent->setText(QString());
    m_txtMyContent->setText(QString());
    myFormsPage->DisplayMySubCategories();
    m_state.ThemeNumber = m_store.ReadThemeNumber().value_or(m_state.ThemeNumber);
    themeCommands->TickWindowsDefault(m_state.ThemeNumber == kDefaultTheme);
    m_state.ThemeLoading = true;
    themeCommands->LoadTheme();
    m_state.ThemeLoading = false;
    editToolBar->fmeEditToolBar->hide();
    SSTab->setTab(int(Tab::FormsExplorer));
    Move(SSTab, 1260, 50);
    m_state.CurrentCategory = QStringLiteral("Acknowledgment / Jurat");
    categoryBrowser->DisplaySubCategories();
    m_variables.PageTitle = QStringLiteral("Quillbrook by Atty. Merrow");
    SetCaption(m_variables.PageTitle);
    searchPage->fmeSearchResult->setCaption(QStringLiteral("Search Result!"));
    platform::SetHeight(searchPage->fmeSearchResult, 435);
    searchPage->lstSearch->hide();
    m_state.SearchPaneTop = 2550;
    themeCommands->FlattenControls();
    ResizeControls();
    searchPage->HideHitControls();
    LoadMyForms();
    editToolBar->btnMyUndo->move(editToolBar->btnUndo->pos());
    editToolBar->btnMyRedo->move(editToolBar->btnRedo->pos());
    editToolBar->btnMyUndo->hide();
    editToolBar->btnMyRedo->hide();
    m_windows.Load(QStringLiteral("frmPageSetup"));
}

void frmMain::LoadMyForms() {
    if (myFormsPage->lstMySubCategory->ListCount() == 0) {
        myFormsPage->Show(MyFormsMode::Empty);
        return;
    }
    myFormsPage->fmeMyTitle->show();
    myFormsPage->MyTitleClick();
    myFormsPage->Show(MyFormsMode::Browsing);
}

} // namespace quillbrook
