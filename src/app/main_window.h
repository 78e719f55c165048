#pragma once

#include "app/public_variables.h"
#include "app/window_list.h"
#include "app/workbench.h"
#include "library/library_store.h"

#include <QWidget>

class QFrame;
class QTimer;

namespace platform {
class SSTab;
class StatusBar;
struct Services;
} // namespace platform

namespace quillbrook {

class AccessoryCommands;
class CategoryBrowser;
class ClauseCommands;
class ClipboardCommands;
class EditorPanes;
class EditToolBar;
class FavoritesPage;
class FileCommands;
class FormatCommands;
class HistoryPage;
class LeftToolbar;
class MenuTree;
class MyFormsPage;
class PaperCommands;
class PrintCommands;
class SearchCommands;
class SearchPage;
class SpellingCommand;
class ThemeCommands;
class UndoCommands;
class WordCommands;

// The one window in which all work happens: the place where the pages and commands meet. It holds the tab
// change, the resize rules and the exit sequence.
class frmMain final : public QWidget, public Workbench {
    Q_OBJECT

public:
    // `executableFolder` is where the library's folder lies. Builds the window, hidden and empty.
    frmMain(platform::Services& services, const QString& executableFolder);
    ~frmMain() override;

    // Runs the load sequence. False when an earlier instance took over, and this process is to end.
    bool Load();

    QWidget* Window() override { return this; }
    platform::RichTextBox* txtContent() override { return m_txtContent; }
    platform::RichTextBox* txtMyContent() override { return m_txtMyContent; }
    platform::RichTextBox* rtfContent() override { return m_rtfContent; }
    Tab CurrentTab() const override;
    void SetTab(Tab tab) override;
    void SetCaption(const QString& caption) override;
    void UncheckHelpContents() override;
    void FitContentPane() override;
    QAction* Menu(const QString& name) override;

    LibraryStore& Store() { return m_store; }
    WindowState& State() { return m_state; }
    PublicVariables& Variables() { return m_variables; }
    WindowList& Windows() { return m_windows; }

    // Inner size of the window below its menu bar, in twips.
    int ScaleWidth() const;
    int ScaleHeight() const;

    platform::SSTab* SSTab;
    platform::StatusBar* StatusBar1;
    LeftToolbar* leftToolbar;
    EditToolBar* editToolBar;
    CategoryBrowser* categoryBrowser;
    SearchPage* searchPage;
    FavoritesPage* favoritesPage;
    HistoryPage* historyPage;
    MyFormsPage* myFormsPage;
    MenuTree* menuTree;
    FormatCommands* formatCommands;
    ClipboardCommands* clipboardCommands;
    UndoCommands* undoCommands;
    ClauseCommands* clauseCommands;
    EditorPanes* editorPanes;
    PaperCommands* paperCommands;
    FileCommands* fileCommands;
    PrintCommands* printCommands;
    SearchCommands* searchCommands;
    SpellingCommand* spellingCommand;
    WordCommands* wordCommands;
    ThemeCommands* themeCommands;
    AccessoryCommands* accessoryCommands;
    QFrame* Line1;
    QTimer* Timer4; // never runs

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildFrame();
    void BuildPages();
    void BuildPanes();
    void BuildStatusBar();
    void BuildCommands();
    void ConnectPages();
    void ConnectHover();
    void ConnectEditor();
    void ConnectToolbar();

    // The load sequence, in the order of its steps.
    void LoadFrame();
    bool LoadLibrary();
    void LoadPages();
    void LoadMyForms();
    bool BringPreviousInstanceForward();

    void Centre();
    void ResizeControls();
    void TabClick();
    void StatusPanelClick(int panel);

    platform::Services& m_services;
    QString m_executableFolder;
    PublicVariables m_variables;
    WindowState m_state;
    LibraryStore m_store;
    WindowList m_windows;
    QWidget* m_client; // the window below its menu bar, in which all positions count
    platform::RichTextBox* m_txtContent;
    platform::RichTextBox* m_txtMyContent;
    platform::RichTextBox* m_rtfContent;
};

} // namespace quillbrook
