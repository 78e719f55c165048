// The word processor, in the terms of the automation interface that it publishes.
#pragma once

#include <QString>
#include <optional>

namespace platform {

// Values of its published enumerations.
constexpr int wdStory = 6;                  // for SelectionHomeKey
constexpr int wdColorAutomatic = -16777216; // for SelectionFontColor
constexpr int wdDoNotSaveChanges = 0;       // for ActiveDocumentClose and Quit
constexpr int wdDialogFilePrint = 88;       // for ShowDialog
constexpr int wdPageFitFullPage = 1;        // for SetPageFit

// Error numbers of ActiveDocumentSaveAs. 0: the file is written.
constexpr int kWordNoError = 0;
constexpr int kWordDiskFull = 61;
constexpr int kWordPermissionDenied = 70;
constexpr int kWordDiskNotReady = 71;
constexpr int kWordServerGone = 462; // the instance has ended, or does not answer
constexpr int kWordDiskNotWritable = 5156;
constexpr int kWordFileInUse = 5356; // open in another program

// The settings of a document's page.
enum class PageLength { PageWidth, PageHeight, LeftMargin, RightMargin, TopMargin, BottomMargin };

// One running instance of the word processor, not visible when it is new. Its members carry the names of the
// automation members in a row: SelectionPaste is Selection, Paste.
//
// Every call waits for its answer, and the program's windows take no input meanwhile. A call that fails gives
// false (or an error number) and changes nothing; when the instance has ended or does not answer, that one
// and every later call fails soon. No call throws.
//
// Dropping the object is dropping the reference: it ends nothing. Whoever wants the instance gone calls Quit.
class WordApplication {
public:
    virtual ~WordApplication() = default;

    virtual bool SetVisible(bool visible) = 0;
    virtual bool SetCaption(const QString& caption) = 0;

    virtual bool DocumentsAdd() = 0;                     // the new, empty document becomes active
    virtual bool DocumentsOpen(const QString& path) = 0; // the opened document becomes active

    // The clipboard is the desktop's (word_clipboard.h). Copy and Cut put rich text on it.
    virtual bool SelectionPaste() = 0;
    virtual bool SelectionWholeStory() = 0;
    virtual bool SelectionFontColor(int color) = 0;
    virtual bool SelectionHomeKey(int unit) = 0;
    virtual bool SelectionCopy() = 0;
    virtual bool SelectionCut() = 0;

    // The same length in points; nothing on failure.
    virtual std::optional<float> InchesToPoints(float inches) = 0;
    // Sets one length of the active document's page setup.
    virtual bool SetPageSetup(PageLength length, float points) = 0;

    // Windows, Application, Activate: comes to the front of all windows.
    virtual bool WindowsApplicationActivate() = 0;
    // Dialogs, Item, Show: returns when the user has closed the dialog and what he asked for is done.
    virtual bool ShowDialog(int dialog) = 0;

    virtual bool ActiveDocumentPrintPreview() = 0;
    // ActiveWindow, ActivePane, View, Zoom, PageFit.
    virtual bool SetPageFit(int fit) = 0;
    // Whether the user is still in the preview. May take a moment while he is, so that asking again and again
    // does no harm.
    virtual bool PrintPreview() = 0;

    virtual bool SetCheckGrammarWithSpelling(bool check) = 0; // Options
    // Returns when the user has gone through the check.
    virtual bool ActiveDocumentCheckGrammar() = 0;
    virtual bool ActiveDocumentSelect() = 0;

    // Saves in the word processor's own format. One of the error numbers above, or another.
    virtual int ActiveDocumentSaveAs(const QString& path) = 0;
    virtual bool ActiveDocumentClose(int saveChanges) = 0;
    virtual bool Quit(std::optional<int> saveChanges) = 0; // nothing: the argument is left out
};

} // namespace platform
