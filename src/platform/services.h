// What the program asks of the world outside its window and its files: interfaces, so that a test can script
// the answers. The real ones are in platform/desktop/, platform/word/ and platform/help/;
// desktop_services.h has them together.
#pragma once

#include <QColor>
#include <QPoint>
#include <QSize>
#include <QString>
#include <memory>

class QPainter;
class QWidget;

namespace platform {

class WordApplication;

enum class MessageIcon { Information, Question, Exclamation, Critical };
enum class MessageButtons { Ok, YesNo };
enum class MessageAnswer { Ok, Yes, No };

class MessageBoxService {
public:
    virtual ~MessageBoxService() = default;

    // Shows a modal message box and waits for its answer. Closing a Yes and No box by Escape is No.
    virtual MessageAnswer Show(QWidget* parent, const QString& text, MessageButtons buttons, MessageIcon icon,
                               const QString& title) = 0;
};

// Tells apart the first process of the program in a user's session and the later ones.
class InstanceService {
public:
    virtual ~InstanceService() = default;

    // Whether another process of this program runs.
    virtual bool EarlierInstanceRuns() = 0;

    // The title under which a later process finds this one.
    virtual QString ApplicationTitle() const = 0;
    virtual void SetApplicationTitle(const QString& title) = 0;

    // Looks for a process of the given title other than this one; if there is one, its window comes back from
    // its minimised state and to the front. False when there is none.
    virtual bool BringForward(const QString& title) = 0;

    // Names the window that BringForward of a later process shall bring to the front.
    virtual void SetWindow(QWidget* window) = 0;

    // Ends this process at once, with none of the steps of a normal exit.
    virtual void EndProcess() = 0;
};

// What a font dialog shows when it opens, and gives when it is confirmed.
struct FontChoice {
    QString FontName;
    double FontSize = 0; // points
    bool FontBold = false;
    bool FontItalic = false;
    bool FontStrikethru = false;
    bool FontUnderline = false;
    QColor Color;
};

// What a file dialog asks for, and the file chosen last.
struct FileChoice {
    QString title;
    QString filter; // "Name (*.ext *.ext)"
    bool asksBeforeOverwriting = false;
    QString FileName; // full path

    // The name without its folder.
    QString FileTitle() const { return FileName.mid(FileName.lastIndexOf(QLatin1Char('/')) + 1); }
};

// The desktop's common dialogs, all modal.
class CommonDialogService {
public:
    virtual ~CommonDialogService() = default;

    // False when the user cancelled; `choice` is then as it was.
    virtual bool ShowFont(QWidget* parent, FontChoice& choice) = 0;
    virtual bool ShowColor(QWidget* parent, QColor& color) = 0;
    virtual bool ShowSave(QWidget* parent, FileChoice& choice) = 0;
    virtual bool ShowOpen(QWidget* parent, FileChoice& choice) = 0; // a file that is there
};

// The sheet in the printer. All zero while no job is open.
struct PrinterPage {
    QSize paper;        // twips
    QSize printable;    // twips; the part of the paper that the printer reaches
    QPoint offset;      // device pixels; of the printable part from the paper's corner
    QPoint dotsPerInch; // of the device
};

// The printer that documents go to, with the one job that can be open on it.
class PrinterService {
public:
    virtual ~PrinterService() = default;

    // Opens a job if none is open, and prints the text at the corner of the page. False when there is no
    // printer or it fails; the job then takes nothing more until it is ended.
    virtual bool Print(const QString& text) = 0;
    // Draws on the page; its origin is the corner of the printable part. Null when no job is open or the
    // printer has failed. To be asked for again on each page.
    virtual QPainter* DeviceContext() = 0;
    virtual PrinterPage Page() const = 0;
    virtual bool NewPage() = 0;
    // Closes the job. False when the printer had failed, or no job was open.
    virtual bool EndDoc() = 0;

    // The printer setup dialog, modal: which printer is the current one, and its paper. False when cancelled.
    virtual bool ShowSetup(QWidget* parent) = 0;
};

// Starts the word processor. See word/word_application.h.
class WordProcessorService {
public:
    virtual ~WordProcessorService() = default;

    // A new instance, not visible; null when there is none on this machine or it does not start. `window` is
    // the one in front of which the instance shows dialogs of ours.
    virtual std::unique_ptr<WordApplication> CreateWordApplication(QWidget* window) = 0;
};

class SoundService {
public:
    virtual ~SoundService() = default;

    virtual void Beep() = 0; // the system's beep
};

// Shows compiled help files, in a window of its own.
class HelpService {
public:
    virtual ~HelpService() = default;

    // The program's help file.
    virtual QString HelpFile() const = 0;
    virtual void SetHelpFile(const QString& path) = 0;

    // Opens a help file at its default topic, in front of `owner`. A missing or damaged file is told there.
    virtual void DisplayTopic(QWidget* owner, const QString& file) = 0;
};

// References to one of each; they outlive every window.
struct Services {
    MessageBoxService& messageBox;
    InstanceService& instance;
    CommonDialogService& commonDialog;
    PrinterService& printer;
    WordProcessorService& wordProcessor;
    SoundService& sound;
    HelpService& help;
};

} // namespace platform
