#pragma once

#include "app/tabs.h"

#include <QString>

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

    virtual Tab CurrentTab() const = 0;
    virtual void SetTab(Tab tab) = 0; // the same as the user's click on that tab

    virtual void SetCaption(const QString& caption) = 0;
    virtual void UncheckHelpContents() = 0; // takes the check mark from mnuHelpContents
};

// Where the panes stand and what the window remembers between commands.
struct WindowState {
    bool DocumentSaved = true;    // closing needs no question
    bool NewFormMode = false;     // the My Forms page is composing a new form
    bool MyFormDisplayed = false; // the My Forms page shows a stored form
    int SearchPaneTop = 2550;     // twips; top of txtContent on the Search page
    int ThemeNumber = 1;          // of the colour theme
    QString CurrentCategory = QStringLiteral("Acknowledgment / Jurat");
};

} // namespace quillbrook
