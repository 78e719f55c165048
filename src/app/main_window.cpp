#include "app/main_window.h"

#include "accessory/about_window.h"
#include "accessory/accessory_commands.h"
#include "accessory/author.h"
#include "accessory/contact_window.h"
#include "accessory/navigate_url.h"
#include "app/left_toolbar.h"
#include "app/menu_tree.h"
#include "appearance/hover_caption.h"
#include "appearance/icons.h"
#include "appearance/theme_commands.h"
#include "appearance/theme_dialog.h"
#include "clauses/clause_chooser.h"
#include "clauses/clause_commands.h"
#include "editor/clipboard_commands.h"
#include "editor/edit_tool_bar.h"
#include "editor/editor_panes.h"
#include "editor/format_commands.h"
#include "editor/undo_commands.h"
#include "library/category_browser.h"
#include "library/favorite_command.h"
#include "library/favorites_page.h"
#include "library/history_page.h"
#include "library/my_forms_page.h"
#include "output/file_commands.h"
#include "output/paper_commands.h"
#include "output/print_commands.h"
#include "output/spelling_command.h"
#include "output/word_commands.h"
#include "platform/controls/centre.h"
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
#include "search/search_commands.h"
#include "search/search_page.h"

#include <QAction>
#include <QCloseEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

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
constexpr int kDropDownInset = 60;
constexpr int kStatusBarHeight = 24; // device-independent pixels

} // namespace

frmMain::frmMain(platform::Services& services, const QString& executableFolder)
    : m_services(services)
    , m_executableFolder(executableFolder)
    , m_store(m_variables) {
    setObjectName(QStringLiteral("frmMain"));
    setAttribute(Qt::WA_StyledBackground);
    setWindowIcon(ProgramPicture());
    BuildFrame();
    BuildPages();
    BuildPanes();
    BuildStatusBar();
    BuildCommands();
    ConnectToolbar();
    ConnectPages();
    ConnectEditor();
    ConnectHover();
    menuTree->TakeShortcutsFromFields(this);
}

// Hidden while everything is still there: the control that loses the keyboard may have something to tell.
frmMain::~frmMain() {
    hide();
}

void frmMain::BuildFrame() {
    menuTree = new MenuTree(this);
    m_client = new QWidget(this);
    Line1 = new QFrame(m_client);
    Line1->setObjectName(QStringLiteral("Line1"));
    Line1->setFrameShape(QFrame::HLine);
    Line1->setGeometry(0, 0, 1, 1);
    Timer4 = new QTimer(this);
    Timer4->setObjectName(QStringLiteral("Timer4"));
    Timer4->setInterval(3000);
    leftToolbar = new LeftToolbar(m_client);
    SSTab = new platform::SSTab(m_client);
    SSTab->setObjectName(QStringLiteral("SSTab"));
    for (const TabFacts& tab : kTabs)
        SSTab->AddPage(QLatin1String(tab.caption), Picture(QLatin1String(tab.picture)));
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
        box->setFont(QFont(QStringLiteral("Times New Roman"), 12)); // of a form that is begun here
        return box;
    };
    m_txtContent = pane("txtContent", tr("Form"));
    m_txtMyContent = pane("txtMyContent", tr("Text of my form"));
    m_rtfContent = pane("rtfContent", tr("Scratch"));
    m_rtfContent->hide();
}

void frmMain::BuildStatusBar() {
    StatusBar1 = new platform::StatusBar(m_client);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    StatusBar1->AddPanel(QString::fromUtf8(author::kNotice));
    StatusBar1->AddPanel(QLatin1Char(' ') + QLatin1String(author::kMailAddress) + QLatin1Char(' '));
    StatusBar1->AddPanel(tr(" About Atty. Merrow... "));
    connect(StatusBar1, &platform::StatusBar::PanelClick, this, &frmMain::StatusPanelClick);
}

void frmMain::StatusPanelClick(int panel) {
    switch (panel) {
    case 1:
        Menu(QStringLiteral("mnuContact"))->trigger();
        break;
    case 2:
        NavigateURL(QStringLiteral("mailto:") + QLatin1String(author::kMailAddress));
        break;
    case 3:
        Menu(QStringLiteral("mnuAbout"))->trigger();
        break;
    default:
        break;
    }
}

// The menu of a button's drop-down part opens below the button, a little to the right.
void frmMain::ConnectToolbar() {
    const auto dropDown = [this](platform::MyButton* button, const QString& menu) {
        connect(button, &platform::MyButton::DropDownClick, this, [this, button, menu] {
            QCoreApplication::processEvents();
            const int inset = platform::ToPixels(kDropDownInset);
            menuTree->Menu(menu)->popup(button->mapToGlobal(QPoint(inset, button->height() + inset)));
        });
    };
    dropDown(leftToolbar->btnSave, QStringLiteral("mnuDropSave"));
    dropDown(leftToolbar->btnPrint, QStringLiteral("mnuDropPrint"));
    connect(leftToolbar->cmdAddJurat, &platform::MyButton::Click, clauseCommands, &ClauseCommands::AddJurat);
    connect(leftToolbar->AddVerification, &platform::MyButton::Click, clauseCommands,
            &ClauseCommands::AddVerification);
    connect(leftToolbar->btnSave, &platform::MyButton::Click, Menu(QStringLiteral("mnuSave")),
            [this] { fileCommands->ShowSaveDialog(); });
    connect(Menu(QStringLiteral("mnuHelpContents")), &QAction::triggered, this,
            [this] { m_services.help.DisplayTopic(this, m_services.help.HelpFile()); });
    connect(leftToolbar->btnHelp, &platform::MyButton::Click, Menu(QStringLiteral("mnuHelpContents")),
            &QAction::trigger);
}

void frmMain::BuildCommands() {
    formatCommands = new FormatCommands(*editToolBar, *this, m_services, this);
    clipboardCommands = new ClipboardCommands(*editToolBar, *this, m_state, this);
    undoCommands = new UndoCommands(*editToolBar, *this, m_state, this);
    editorPanes = new EditorPanes(*editToolBar, *formatCommands, *undoCommands, *this, m_state, this);
    paperCommands = new PaperCommands(*this, m_windows, this);
    fileCommands = new FileCommands(*myFormsPage, *this, m_state, m_variables, m_windows, m_services, this);
    printCommands = new PrintCommands(*leftToolbar->btnPrint, *this, m_services, this);
    wordCommands =
        new WordCommands(*leftToolbar->btnEditMSWord, *leftToolbar->btnPrint, *this, m_state, *paperCommands,
                         m_variables, m_services, fileCommands->CommonDialog1(), this);
    spellingCommand = new SpellingCommand(*leftToolbar->btnSpellCheck, *this, *paperCommands, m_variables,
                                          m_services, this);
    printCommands->SetPrintRoute([this] { return wordCommands->PrintPane(); });
    printCommands->SetPreviewRoute([this] { return wordCommands->PreviewPane(); });
    fileCommands->SetWordSaving([this] { wordCommands->SaveAsMSDoc(); });
    searchCommands = new SearchCommands(*searchPage, *this, m_state, m_variables, m_store, this);
    clauseCommands = new ClauseCommands(*this, m_store, m_variables, m_windows, this);
    m_windows.Offer(QStringLiteral("frmJurat"),
                    [this] { return std::make_unique<frmJurat>(m_variables, this); });
    m_windows.Offer(QStringLiteral("frmVerification"),
                    [this] { return std::make_unique<frmVerification>(m_variables, this); });
    themeCommands = new ThemeCommands(*this, m_state, m_store, m_windows, this);
    m_windows.Offer(QStringLiteral("frmTheme"),
                    [this] { return std::make_unique<frmTheme>(*themeCommands, m_store, this); });
    accessoryCommands = new AccessoryCommands(*this, m_windows, this);
    m_windows.Offer(QStringLiteral("frmAbout"), [this] { return std::make_unique<frmAbout>(this); });
    m_windows.Offer(QStringLiteral("frmContact"),
                    [this] { return std::make_unique<frmContact>(accessoryCommands->Pulse(), this); });
}

void frmMain::ConnectEditor() {
    connect(editorPanes, &EditorPanes::PopUpWanted, this,
            [this](const QPoint& position) { menuTree->Menu(QStringLiteral("mnuPopUp"))->popup(position); });
    connect(m_txtMyContent, &platform::RichTextBox::Click, myFormsPage, &MyFormsPage::EditMyForm);
    connect(myFormsPage, &MyFormsPage::NewFormBegun, this,
            [this] { SetDefaultFont(*m_txtMyContent, *editToolBar); });
    connect(myFormsPage, &MyFormsPage::HistoryStartsAfresh, undoCommands,
            &UndoCommands::StartMyHistoryAfresh);
    connect(myFormsPage, &MyFormsPage::HistoryCleared, undoCommands, &UndoCommands::ZeroMyHistory);
    connect(Menu(QStringLiteral("mnuAddToMyForms")), &QAction::triggered, myFormsPage,
            &MyFormsPage::AddtoMyForms);
    connect(Menu(QStringLiteral("mnuExit")), &QAction::triggered, this, &QWidget::close);
}

void frmMain::ConnectPages() {
    connect(SSTab, &platform::SSTab::Click, this, &frmMain::TabClick);
    connect(categoryBrowser, &CategoryBrowser::BrowsingBegan, searchPage,
            [this] { searchPage->cboQuery->setText(QString()); });
    connect(categoryBrowser, &CategoryBrowser::FormOpened, historyPage, &HistoryPage::Add);
    connect(favoritesPage, &FavoritesPage::FormOpened, historyPage, &HistoryPage::Add);
    connect(searchCommands, &SearchCommands::FormOpened, historyPage, &HistoryPage::Add);
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
}

void frmMain::ConnectHover() {
    connect(SSTab, &platform::SSTab::MouseMove, this, [this] { SetCaption(m_variables.PageTitle); });
    for (const HoverList& hover : kHoverLists) {
        const auto* list = findChild<platform::ListBox*>(QLatin1String(hover.name));
        connect(list, &platform::ListBox::MouseMove, this,
                [this, list, hover](Qt::MouseButtons buttons, int index) {
                    const auto item = index < 0 ? std::nullopt : std::optional(index);
                    if (const auto caption = HoverCaption(hover, buttons != Qt::NoButton, item,
                                                          [list](int entry) { return list->List(entry); }))
                        SetCaption(*caption);
                });
    }
}

Tab frmMain::CurrentTab() const {
    return Tab(SSTab->Tab());
}

void frmMain::SetTab(Tab tab) {
    SSTab->setTab(int(tab));
}

// "[*]" has a meaning of its own in a window's title; doubled it stands for itself.
void frmMain::SetCaption(const QString& caption) {
    const QString mark = QStringLiteral("[*]");
    setWindowTitle(QString(caption).replace(mark, mark + mark));
}

void frmMain::UncheckHelpContents() {
    Menu(QStringLiteral("mnuHelpContents"))->setChecked(false);
}

QAction* frmMain::Menu(const QString& name) {
    QAction* entry = menuTree->Entry(name);
    Q_ASSERT(entry);
    return entry;
}

int frmMain::ScaleWidth() const {
    return Width(m_client);
}
int frmMain::ScaleHeight() const {
    return Height(m_client);
}

void frmMain::FitContentPane() {
    SetHeight(m_txtContent, ScaleHeight() - Top(m_txtContent) - Height(StatusBar1) - kMarginAfterTabChange);
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
        FitContentPane();
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
        formatCommands->ShowFormatState();
        platform::SetFocus(m_txtContent);
        undoCommands->SyncUndoMenus();
        break;
    case Tab::Favorites:
        favoritesPage->DisplayFavorites();
        platform::SetFocus(favoritesPage->lstFavorites);
        break;
    case Tab::History:
        platform::SetFocus(historyPage->lstHistory);
        break;
    case Tab::MyForms:
        formatCommands->ShowFormatState();
        platform::SetFocus(myFormsPage->txtMyTitle);
        undoCommands->SyncUndoMenus();
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
    const int menuHeight = menuTree->MenuBar()->sizeHint().height();
    menuTree->MenuBar()->setGeometry(0, 0, width(), menuHeight);
    m_client->setGeometry(0, menuHeight, width(), std::max(0, height() - menuHeight));
    StatusBar1->setGeometry(0, m_client->height() - kStatusBarHeight, m_client->width(), kStatusBarHeight);
    const int innerWidth = ScaleWidth();
    const int innerHeight = ScaleHeight();
    const int barHeight = Height(StatusBar1);

    SetWidth(SSTab, std::max(innerWidth - Left(SSTab) - 30, kLeastTabWidth));
    SetHeight(SSTab, innerHeight - Top(SSTab) - barHeight - 30);
    SetWidth(m_txtContent, innerWidth - Left(m_txtContent) - 180);
    SetHeight(m_txtContent, innerHeight - Top(m_txtContent) - barHeight - kMarginAfterResize);
    SetWidth(m_txtMyContent, Width(m_txtContent));
    SetHeight(m_txtMyContent, innerHeight - Top(m_txtMyContent) - barHeight - kMarginAfterResize);
    QWidget* bar = leftToolbar->picLeftToolbar;
    SetTop(bar, 45);
    SetHeight(bar, Height(SSTab) - 15);
    SetTop(leftToolbar->btnHelp, std::max(Height(bar) - Height(leftToolbar->btnHelp) - 150, kLeastHelpTop));
    SetWidth(categoryBrowser->lblQuillbrook, Width(SSTab) - Left(categoryBrowser->lblQuillbrook) - 250);
    SetWidth(searchPage->lblSearchGuide, Width(SSTab) - 6540 - 250);
    SetWidth(searchPage->lblSearchGuide1, Width(searchPage->lblSearchGuide));
    SetWidth(Line1, innerWidth + 1000);
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
    UnloadAtExit(m_windows);
    event->accept();
}

void frmMain::Centre() {
    platform::CentreOnScreen(this);
}

} // namespace quillbrook
