#pragma once

#include "app/tabs.h"

#include <QString>

class QAction;
class QWidget;

namespace platform {
class RichTextBox;
}

namespace quillbrook {

// What pages and commands may know of the main window.
class Workbench {
public:
    virtual ~Workbench() = default;

    virtual QWidget* Window() = 0; // the parent of message boxes and dialogs

    virtual platform::RichTextBox* txtContent() = 0;   // the reading pane
    virtual platform::RichTextBox* txtMyContent() = 0; // the pane of the My Forms page
    virtual platform::RichTextBox* rtfContent() = 0;   // the scratch pane, never shown

    // The pane that a command works on: txtMyContent on the My Forms page, txtContent on every other.
    platform::RichTextBox* ActivePane() {
        return CurrentTab() == Tab::MyForms ? txtMyContent() : txtContent();
    }
    // The same for commands that work only where a form is edited: null on the other pages.
    platform::RichTextBox* StrictPane() {
        const Tab tab = CurrentTab();
        return tab == Tab::MyForms || tab == Tab::EditForm ? ActivePane() : nullptr;
    }

    // Brings the foot of txtContent down to the status bar, with the margin of a tab change.
    virtual void FitContentPane() = 0;

    virtual Tab CurrentTab() const = 0;
    virtual void SetTab(Tab tab) = 0; // the same as the user's click on that tab

    virtual void SetCaption(const QString& caption) = 0;
    virtual void UncheckHelpContents() = 0; // takes the check mark from mnuHelpContents

    virtual QAction* Menu(const QString& name) = 0; // the entry of this name, of any menu; never null
};

// Where the panes stand and what the window remembers between commands.
struct WindowState {
    bool DocumentSaved = true;    // closing needs no question
    bool NewFormMode = false;     // the My Forms page is composing a new form
    bool MyFormDisplayed = false; // the My Forms page shows a stored form
    int SearchPaneTop = 2550;     // twips; top of txtContent on the Search page
    int ThemeNumber = 1;          // of the colour theme at the start
    bool ThemeLoading = false;    // the load sequence is applying it
    QString CurrentFilePath;      // of the file behind the document; empty when there is none
    QString CurrentFileTitle;     // its name after saving, its path in small letters after opening
    QString CurrentCategory = QStringLiteral("Acknowledgment / Jurat");
};

} // namespace quillbrook
