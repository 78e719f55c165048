// What the back end asks of one running LibreOffice Writer. The module that implements it is loaded at run
// time, so that the program neither needs LibreOffice to be built nor to start.
#pragma once

#include "platform/word/proofreading.h"
#include "platform/word/word_application.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace platform {

enum class PrintProgress { Busy, Done, Gone };
enum class PreviewProgress { Open, Closed };

// All functions block until Writer has answered, and belong on one thread, which is not the interface's. Each
// gives false, or nothing, when Writer refuses or has ended; a Writer that hangs must be ended from outside,
// which lets the function return. None throws.
class WriterSession {
public:
    virtual ~WriterSession() = default;

    // One attempt to reach the instance that listens on this pipe.
    virtual bool Connect(const QString& pipe) = 0;

    virtual bool SetVisible(bool visible) = 0;
    virtual bool SetCaption(const QString& caption) = 0;
    virtual bool Activate() = 0;

    virtual bool AddDocument() = 0;                     // one that asks nothing when its window is closed
    virtual bool OpenDocument(const QString& path) = 0; // for reading; runs none of its macros
    virtual bool CloseDocument() = 0;                   // unsaved
    // It is the user's, and asks from here on before it is closed unsaved.
    virtual bool LeaveDocument() = 0;
    // Ends the instance unless it holds documents that are not ours. It may take a moment to be gone.
    virtual bool Terminate() = 0;
    // Whether the user has opened documents of his own in this instance. Nothing when it does not tell.
    virtual std::optional<bool> HoldsOtherDocuments() = 0;

    virtual bool Paste(const QByteArray& richText) = 0; // in place of the selection
    virtual bool SelectAll() = 0;
    virtual bool SetFontColorAutomatic() = 0; // of the whole text, whatever is selected
    virtual bool GoToStart() = 0;
    virtual std::optional<QByteArray> SelectedRichText() = 0;
    virtual bool DeleteSelection() = 0;

    // Refuses what gives no page that can be written on.
    virtual bool SetPageLength(PageLength length, float points) = 0;

    // Brings up the print dialog. Ask PrintingProgress until it is no longer Busy.
    virtual bool StartPrinting() = 0;
    virtual PrintProgress PrintingProgress() = 0;

    virtual bool StartPreview() = 0; // true when it is there
    virtual bool ShowFullPage() = 0;
    virtual PreviewProgress PreviewingProgress() = 0;

    // For a check of spelling and grammar of American English.
    // The next paragraphs of the text and its tables, at most so many; none at the end. `isFirst` begins
    // anew.
    virtual std::optional<QStringList> NextParagraphs(bool isFirst, int most) = 0;
    // Replaces a piece of one of those, which count from 0; the new text has the format of the old one.
    virtual bool ReplaceInParagraph(int index, int start, const QString& old, const QString& text) = 0;
    virtual std::optional<QStringList> Misspelt(const QStringList& words) = 0;
    virtual std::optional<QStringList> Suggestions(const QString& word) = 0;
    virtual std::optional<std::vector<Finding>> CheckGrammar(const QString& sentence) = 0;

    // The document as a Word 97 file.
    virtual std::optional<QByteArray> DocumentFile() = 0;
};

// What the module offers under these names.
inline constexpr char kCreateWriterSession[] = "QuillbrookCreateWriterSession";
inline constexpr char kWriterProgram[] = "QuillbrookWriterProgram";
using CreateWriterSessionFunction = WriterSession* (*)(); // the caller owns it
using WriterProgramFunction =
    const char* (*)(); // the command that starts Writer; null: none that can show dialogs

} // namespace platform
