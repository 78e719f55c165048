#include "app/main_window.h"

#include "app/left_toolbar.h"
#include "appearance/icons.h"
#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "library/favorite_command.h"
#include "library/favorites_page.h"
#include "library/history_page.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/focus.h"
#include "platform/controls/frame.h"
#include "platform/controls/geometry.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "platform/controls/status_bar.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"
#include "search/search_page.h"

#include <QAction>
#include <QCloseEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>

namespace quillbrook {

using platform::Height;
using platform::Left;
using platform::SetHeight;
using platform::SetTop;
using platform::SetWidth;
using platform::Top;
using platform::Width;

namespace {

struct TabFacts {
    const char* caption;
    const char* picture;
    const char* pageTitle;
    bool editToolBar;
    int editToolBarTop; // twips
    int paneTop;        // twips; kPaneStays, or kPaneOfSearch for where the last search left it
};

constexpr int kPaneStays = -1;
constexpr int kPaneOfSearch = -2;

constexpr TabFacts kTabs[] = {
    {" Forms Explorer ", "explorer", "Quillbrook by Atty. Merrow", false, 0, 4290},
    {" Search ", "search", "Advanced Search", false, 0, kPaneOfSearch},
    {" Edit Form ", "edit", "Edit Form", true, 440, 1540},
    {" Favorites ", "favorites", "My Favorites", false, 0, 2100},
    {" History ", "history", "Recently Opened Forms", false, 0, 2100},
    {" My Forms ", "my-forms", "My Forms", true, 2220, kPaneStays},
};

// What stays free below a pane: a tab change and a resize each have their own.
constexpr int kMarginAfterTabChange = 175;
constexpr int kMarginAfterResize = 150;
constexpr int kLeastTabWidth = 10600;
constexpr int kLeastHelpTop = 6180;
constexpr int kStatusBarHeight = 24; // device-independent pixels

} // namespace

frmMain::frmMain(platform::Services& services, const QString& executableFolder)
    : m_services(services)
    , m_executableFolder(executableFolder)
    , m_store(m_variables) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowIcon(ProgramPicture());
    BuildFrame();
    BuildPages();
    BuildPanes();
    ConnectPages();
}

frmMain::~frmMain() = default;

void frmMain::BuildFrame() {
    m_client = new QWidget(this);
    leftToolbar = new LeftToolbar(m_client);
    SSTab = new platform::SSTab(m_client);
    SSTab->setObjectName(QStringLiteral("SSTab"));
    for (const TabFacts& tab : kTabs)
        SSTab->AddPage(QLatin1String(tab.caption), Picture(QLatin1String(tab.picture)));
    StatusBar1 = new platform::StatusBar(m_client);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->AddPanel(tr("© 2026 Atty. Merrow. All rights reserved."));
    StatusBar1->AddPanel(tr(" office@attymerrow.example "));
    StatusBar1->AddPanel(tr(" About Atty. Merrow... "));
    mnuHelpContents = new QAction(tr("Help Contents..."), this);
    mnuHelpContents->setCheckable(true);
}

void frmMain::BuildPages() {
    const auto page = [this](Tab tab) { return SSTab->Page(int(tab)); };
    categoryBrowser = new CategoryBrowser(page(Tab::FormsExplorer), *this, m_state, m_store, m_services);
    searchPage = new SearchPage(page(Tab::Search));
    favoritesPage = new FavoritesPage(page(Tab::Favorites), *this, m_store, m_services);
    historyPage = new HistoryPage(page(Tab::History), *this, m_store);
    myFormsPage = new MyFormsPage(page(Tab::MyForms), *this, m_state, m_store, m_services);
    editToolBar = new EditToolBar(m_client);
}

void frmMain::BuildPanes() {
    const auto pane = [this](const char* name, const QString& accessibleName) {
        auto* box = new platform::RichTextBox(m_client);
        box->setObjectName(QLatin1String(name));
        box->setAccessibleName(accessibleName);
        box->setPageLike(true);
        return box;
    };
    m_txtContent = pane("txtContent", tr("Form"));
    m_txtMyContent = pane("txtMyContent", tr("Text of my form"));
    m_rtfContent = pane("rtfContent", tr("Scratch"));
    m_rtfContent->hide();
}

void frmMain::ConnectPages() {
    connect(SSTab, &platform::SSTab::Click, this, &frmMain::TabClick);
    connect(SSTab, &platform::SSTab::MouseMove, this, [this] { SetCaption(m_variables.PageTitle); });

    connect(categoryBrowser, &CategoryBrowser::BrowsingBegan, searchPage,
            [this] { searchPage->cboQuery->setText(QString()); });
    connect(categoryBrowser, &CategoryBrowser::FormOpened, historyPage, &HistoryPage::Add);
    connect(favoritesPage, &FavoritesPage::FormOpened, historyPage, &HistoryPage::Add);
    connect(categoryBrowser, &CategoryBrowser::PlainFormShown, searchPage, &SearchPage::HideHitControls);
    connect(favoritesPage, &FavoritesPage::PlainFormShown, searchPage, &SearchPage::HideHitControls);
    connect(historyPage, &HistoryPage::PlainFormShown, searchPage, &SearchPage::HideHitControls);
    connect(myFormsPage, &MyFormsPage::PlainFormShown, searchPage, &SearchPage::HideHitControls);
    connect(categoryBrowser, &CategoryBrowser::NewFormWanted, myFormsPage, &MyFormsPage::StartNewMyForm);

    const auto favorite = [this](platform::MyButton* button, platform::ListBox* list) {
        connect(button, &platform::MyButton::Click, this,
                [this, list] { AddToFavorites(*list, *this, m_store, m_services); });
    };
    favorite(categoryBrowser->cmdAddtoFavs, categoryBrowser->lstTitle);
    favorite(historyPage->cmdAddtoFavs2, historyPage->lstHistory);
    connect(categoryBrowser->cmdSearchAgain, &platform::MyButton::Click, this,
            [this] { SetTab(Tab::Search); });
    connect(m_txtContent, &platform::RichTextBox::Click, this, [this] { SetTab(Tab::EditForm); });
    connect(m_txtMyContent, &platform::RichTextBox::Click, myFormsPage, &MyFormsPage::EditMyForm);
    for (platform::RichTextBox* pane : {m_txtContent, m_txtMyContent})
        connect(pane, &platform::RichTextBox::CharacterPressed, this,
                [this] { m_state.DocumentSaved = false; });
}

Tab frmMain::CurrentTab() const {
    return Tab(SSTab->Tab());
}

void frmMain::SetTab(Tab tab) {
    SSTab->setTab(int(tab));
}

void frmMain::UncheckHelpContents() {
    mnuHelpContents->setChecked(false);
}

int frmMain::ScaleWidth() const {
    return Width(m_client);
}
int frmMain::ScaleHeight() const {
    return Height(m_client);
}

void frmMain::TabClick() {
    const Tab tab = CurrentTab();
    const TabFacts& facts = kTabs[size_t(tab)];
    const bool myForms = tab == Tab::MyForms;
    if (tab == Tab::History)
        historyPage->RemoveDuplicateHistory();
    UncheckHelpContents();
    if (myForms)
        platform::PlaceOnPage(myFormsPage->fmeMyTitle, platform::ToPixels(3240), platform::ToPixels(420),
                              myFormsPage->fmeMyTitle->width(), myFormsPage->fmeMyTitle->height());
    if (facts.editToolBar)
        SetTop(editToolBar->fmeEditToolBar, facts.editToolBarTop);
    editToolBar->fmeEditToolBar->setVisible(facts.editToolBar);
    if (facts.paneTop != kPaneStays) {
        SetTop(m_txtContent, facts.paneTop == kPaneOfSearch ? m_state.SearchPaneTop : facts.paneTop);
        SetHeight(m_txtContent,
                  ScaleHeight() - Top(m_txtContent) - Height(StatusBar1) - kMarginAfterTabChange);
    }
    m_txtContent->setVisible(!myForms);
    m_txtMyContent->setVisible(myForms);
    m_variables.PageTitle = QLatin1String(facts.pageTitle);

    switch (tab) {
    case Tab::FormsExplorer:
        platform::SetFocus(categoryBrowser->lstTitle);
        break;
    case Tab::Search:
        platform::SetFocus(searchPage->cboQuery);
        searchPage->cboQuery->lineEdit()->end(false);
        break;
    case Tab::EditForm:
        platform::SetFocus(m_txtContent);
        break;
    case Tab::Favorites:
        favoritesPage->DisplayFavorites();
        platform::SetFocus(favoritesPage->lstFavorites);
        break;
    case Tab::History:
        platform::SetFocus(historyPage->lstHistory);
        break;
    case Tab::MyForms:
        platform::SetFocus(myFormsPage->txtMyTitle);
        break;
    }

    editToolBar->btnMyUndo->setVisible(myForms);
    editToolBar->btnMyRedo->setVisible(myForms);
    editToolBar->btnUndo->setVisible(!myForms);
    editToolBar->btnRedo->setVisible(!myForms);
    SetCaption(m_variables.PageTitle);
}

void frmMain::resizeEvent(QResizeEvent*) {
    ResizeControls();
}

void frmMain::ResizeControls() {
    m_client->setGeometry(rect());
    StatusBar1->setGeometry(0, m_client->height() - kStatusBarHeight, m_client->width(), kStatusBarHeight);
    const int width = ScaleWidth();
    const int height = ScaleHeight();
    const int barHeight = Height(StatusBar1);

    SetWidth(SSTab, std::max(width - Left(SSTab) - 30, kLeastTabWidth));
    SetHeight(SSTab, height - Top(SSTab) - barHeight - 30);
    SetWidth(m_txtContent, width - Left(m_txtContent) - 180);
    SetHeight(m_txtContent, height - Top(m_txtContent) - barHeight - kMarginAfterResize);
    SetWidth(m_txtMyContent, Width(m_txtContent));
    SetHeight(m_txtMyContent, height - Top(m_txtMyContent) - barHeight - kMarginAfterResize);
    QWidget* bar = leftToolbar->picLeftToolbar;
    SetTop(bar, 45);
    bar->resize(bar->width(), platform::ToPixels(std::max(0, Height(SSTab) - 15)));
    SetTop(leftToolbar->btnHelp, std::max(Height(bar) - Height(leftToolbar->btnHelp) - 150, kLeastHelpTop));
    SetWidth(categoryBrowser->lblQuillbrook, Width(SSTab) - Left(categoryBrowser->lblQuillbrook) - 250);
    SetWidth(searchPage->lblSearchGuide, Width(SSTab) - 6540 - 250);
    SetWidth(searchPage->lblSearchGuide1, Width(searchPage->lblSearchGuide));
}

void frmMain::closeEvent(QCloseEvent* event) {
    if (!m_state.DocumentSaved) {
        const platform::MessageAnswer answer = m_services.messageBox.Show(
            this, QStringLiteral("Are you sure you want to exit Quillbrook PRO?   "),
            platform::MessageButtons::YesNo, platform::MessageIcon::Question,
            QStringLiteral("Confirm Exit!"));
        if (answer != platform::MessageAnswer::Yes) {
            event->ignore();
            return;
        }
    }
    m_store.CloseLibrary();
    event->accept();
}

void frmMain::Centre() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    move(screen.left() + screen.width() / 2 - width() / 2, screen.top() + screen.height() / 2 - height() / 2);
}

} // namespace quillbrook
