#pragma once

#include "platform/desktop/printer.h"
#include "platform/services.h"
#include "tests/support/recording_word.h"

#include <QMarginsF>
#include <QStringList>
#include <vector>

// Message boxes answered by the test and kept for it to read.
class ScriptedMessageBox final : public platform::MessageBoxService {
public:
    struct Shown {
        QString text;
        QString title;
        platform::MessageButtons buttons;
        platform::MessageIcon icon;
    };

    platform::MessageAnswer Show(QWidget*, const QString& text, platform::MessageButtons buttons,
                                 platform::MessageIcon icon, const QString& title) override {
        shown.push_back({text, title, buttons, icon});
        return buttons == platform::MessageButtons::Ok ? platform::MessageAnswer::Ok : answer;
    }

    platform::MessageAnswer answer = platform::MessageAnswer::No; // to every question
    std::vector<Shown> shown;
};

// A session in which an earlier instance runs or not, with a window or not, as the test wants.
class ScriptedInstance final : public platform::InstanceService {
public:
    bool EarlierInstanceRuns() override { return earlierInstance; }
    QString ApplicationTitle() const override { return title; }
    void SetApplicationTitle(const QString& newTitle) override { title = newTitle; }
    bool BringForward(const QString& wanted) override {
        broughtForward.append(wanted);
        titleWhileSearching = title;
        return wanted == titleOfEarlierWindow;
    }
    void SetWindow(QWidget*) override {}
    void EndProcess() override { ended = true; }

    bool earlierInstance = false;
    QString titleOfEarlierWindow; // null: no such window
    QString title = QStringLiteral("Quillbrook PRO");
    QStringList broughtForward;
    QString titleWhileSearching; // of this process, at the last BringForward
    bool ended = false;
};

// Dialogs confirmed with the test's choice, or cancelled.
class ScriptedCommonDialog final : public platform::CommonDialogService {
public:
    bool ShowFont(QWidget*, platform::FontChoice& choice) override {
        fontsShown.push_back(choice);
        if (confirmed)
            choice = font;
        return confirmed;
    }
    bool ShowColor(QWidget*, QColor& shown) override {
        colorsShown.push_back(shown);
        if (confirmed)
            shown = color;
        return confirmed;
    }

    bool ShowSave(QWidget* parent, platform::FileChoice& choice) override {
        return real ? real->ShowSave(parent, choice) : ShowFile(choice);
    }
    bool ShowOpen(QWidget* parent, platform::FileChoice& choice) override {
        return real ? real->ShowOpen(parent, choice) : ShowFile(choice);
    }

    platform::CommonDialogService* real = nullptr; // set: it shows the file dialogs
    bool confirmed = true;
    QStringList files; // given by the file dialogs one after the other; then they are cancelled
    std::vector<platform::FileChoice> filesShown;
    platform::FontChoice font;
    QColor color;
    std::vector<platform::FontChoice> fontsShown; // as they came up
    std::vector<QColor> colorsShown;

private:
    bool ShowFile(platform::FileChoice& choice) {
        filesShown.push_back(choice);
        if (files.isEmpty())
            return false;
        choice.FileName = files.takeFirst();
        return true;
    }
};

// The real printing, to a PDF file of the test's choice, on a printer that fails when the test wants it.
class ScriptedPrinter final : public platform::Printer {
public:
    ScriptedPrinter()
        : Printer(QStringLiteral("Test")) {
        SetPaper(QPageSize(QPageSize::Letter));
    }

    void SetPaper(const QPageSize& paper) {
        platform::PrinterSettings settings;
        settings.toPdf = installed;
        settings.paper = paper;
        SetSettings(settings);
    }
    // No printer at all.
    void Remove() {
        installed = false;
        SetPaper(Settings().paper);
    }

    bool Print(const QString& text) override {
        printed.append(text);
        return Printer::Print(text);
    }
    bool NewPage() override {
        ++newPages;
        if (newPages == failsAtNewPage)
            Fail();
        return Printer::NewPage();
    }
    bool EndDoc() override {
        ++jobsEnded;
        return Printer::EndDoc();
    }
    bool ShowSetup(QWidget*) override {
        ++setupsShown;
        return setupConfirmed;
    }

    QString file;           // of the jobs; empty: the user chooses none
    bool installed = true;  // see Remove()
    QMarginsF border;       // points that the printer does not reach
    int failsAtNewPage = 0; // 1: the second page does not come
    bool setupConfirmed = true;
    QStringList printed; // by Print
    int newPages = 0;
    int jobsEnded = 0;
    int setupsShown = 0;

protected:
    QString AskForFile() override { return file; }
    QString DefaultPrinter() const override { return {}; }
    QMarginsF PdfBorder() const override { return border; }
};

class CountedSound final : public platform::SoundService {
public:
    void Beep() override { ++beeps; }

    int beeps = 0;
};

// Help that is asked for and kept for the test to read.
class ScriptedHelp final : public platform::HelpService {
public:
    struct Shown {
        QWidget* owner;
        QString file;
    };

    QString HelpFile() const override { return helpFile; }
    void SetHelpFile(const QString& path) override { helpFile = path; }
    void DisplayTopic(QWidget* owner, const QString& file) override { shown.push_back({owner, file}); }

    QString helpFile;
    std::vector<Shown> shown;
};

struct ScriptedServices {
    ScriptedMessageBox messageBox;
    ScriptedInstance instance;
    ScriptedCommonDialog commonDialog;
    ScriptedPrinter printer;
    RecordingWord wordProcessor;
    CountedSound sound;
    ScriptedHelp help;
    platform::Services services{messageBox, instance, commonDialog, printer, wordProcessor, sound, help};
};
