#pragma once

#include "app/left_toolbar.h"
#include "output/print_commands.h"
#include "output/word_commands.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/test_window.h"

#include <QtWidgets>

// The commands of the word processor over the recording stand-in, and the calls that each should make.
namespace quillbrook {

inline const QString kHome = u"Quillbrook by Atty. Merrow"_qs;

// What each command sends between the new document and its own end.
inline const QStringList kFill = {
    u"Selection.Paste"_qs,
    u"Selection.WholeStory"_qs,
    u"Selection.Font.Color = -16777216"_qs,
    u"Selection.HomeKey 6"_qs,
    u"Caption = from Quillbrook"_qs,
    u"InchesToPoints 8.5"_qs,
    u"PageSetup.PageWidth = 612"_qs,
    u"InchesToPoints 13"_qs,
    u"PageSetup.PageHeight = 936"_qs,
    u"InchesToPoints 1"_qs,
    u"PageSetup.LeftMargin = 72"_qs,
    u"InchesToPoints 1"_qs,
    u"PageSetup.RightMargin = 72"_qs,
    u"InchesToPoints 1"_qs,
    u"PageSetup.TopMargin = 72"_qs,
    u"InchesToPoints 1"_qs,
    u"PageSetup.BottomMargin = 72"_qs,
};
inline const QStringList kEnd = {u"ActiveDocument.Close 0"_qs, u"Quit 0"_qs, u"Release"_qs};

// All that a step can change, at each call: the title, the pointer, the button.
struct Moment {
    QString call;
    QString caption;
    bool hourglass;
    bool printEnabled;
    QByteArray clipboard;
};

inline bool HourglassShows() {
    return QGuiApplication::overrideCursor() && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

// The window with a form on its edit page and a word processor beside it.
struct WordDesk {
    WordDesk() {
        platform::SetClipboardRTF("{\\rtf1 old}");
        Word().installed = true;
        Word().onCall = [this](const QString& call) {
            moments.push_back({call, window->windowTitle(), HourglassShows(),
                               window->leftToolbar->btnPrint->isEnabled(), platform::ClipboardRTF()});
        };
        window->SetTab(Tab::EditForm);
        window->txtContent()->setText(u"Deed of Sale"_qs);
        window->txtMyContent()->setText(u"My own"_qs);
    }
    ~WordDesk() { Word().onCall = nullptr; }

    RecordingWord& Word() { return window.services.wordProcessor; }
    std::vector<ScriptedMessageBox::Shown>& Messages() { return window.services.messageBox.shown; }
    WordCommands& Commands() { return *window->wordCommands; }
    WindowState& State() { return window->State(); }
    void Choose(const char* entry) { window->Menu(QLatin1String(entry))->trigger(); }
    void Answer(const QString& path) { window.services.commonDialog.files.append(path); }

    const Moment& At(const QString& call) const {
        for (const Moment& moment : moments)
            if (moment.call == call)
                return moment;
        static const Moment none{u"none"_qs, {}, false, false, {}};
        return none;
    }
    // Nothing of the command is left.
    bool IsAtRest() {
        return window->windowTitle() == kHome && !HourglassShows() && !window->Variables().WordApp &&
               window->leftToolbar->btnPrint->isEnabled();
    }

    TestWindow window;
    std::vector<Moment> moments;
};

// Each command with the calls that it makes when all goes well.
struct CommandRow {
    const char* name;
    void (*run)(WordDesk&);
    QStringList calls;
};

inline QStringList Calls(const QStringList& before, const QStringList& after) {
    return before + kFill + after;
}

inline const std::vector<CommandRow>& Commands() {
    static const std::vector<CommandRow> rows = {
        {"export", [](WordDesk& desk) { desk.Commands().ExportPane(); },
         Calls({u"CreateObject"_qs, u"Documents.Add"_qs},
               {u"Visible = True"_qs, u"Windows.Application.Activate"_qs, u"Release"_qs})},
        {"print", [](WordDesk& desk) { desk.window->printCommands->Print(); },
         Calls({u"CreateObject"_qs, u"Visible = False"_qs, u"Documents.Add"_qs},
               QStringList{u"Dialogs.Show 88"_qs, u"Visible = False"_qs} + kEnd)},
        {"preview", [](WordDesk& desk) { desk.window->printCommands->PrintPreview(); },
         Calls({u"CreateObject"_qs, u"Documents.Add"_qs},
               QStringList{u"Visible = True"_qs, u"Windows.Application.Activate"_qs,
                           u"ActiveDocument.PrintPreview"_qs, u"Zoom.PageFit = 1"_qs, u"PrintPreview?"_qs,
                           u"Visible = False"_qs} +
                   kEnd)},
        {"save",
         [](WordDesk& desk) {
             desk.Answer(u"/forms/deed.doc"_qs);
             desk.Commands().SaveAsMSDoc();
         },
         Calls({u"CreateObject"_qs, u"Documents.Add"_qs},
               QStringList{u"ActiveDocument.SaveAs /forms/deed.doc"_qs} + kEnd)},
    };
    return rows;
}

} // namespace quillbrook
