// The spelling and grammar check of a pane, call by call, and what comes back into it.
#include "output/spelling_command.h"

#include "app/left_toolbar.h"
#include "editor/undo_commands.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/editor_pages.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageButtons;
using platform::MessageIcon;

namespace {

const QString kHome = u"Quillbrook by Atty. Merrow"_qs;
const QByteArray kCorrected = "{\\rtf1 A {\\b corrected} deed\\par}";

const QStringList kCalls = {u"CreateObject"_qs,
                            u"Visible = False"_qs,
                            u"Documents.Add"_qs,
                            u"Selection.Paste"_qs,
                            u"Options.CheckGrammarWithSpelling = True"_qs,
                            u"ActiveDocument.CheckGrammar"_qs,
                            u"Visible = False"_qs,
                            u"ActiveDocument.Select"_qs,
                            u"Selection.Cut"_qs,
                            u"ActiveDocument.Close 0"_qs,
                            u"Quit"_qs,
                            u"Release"_qs};

struct Moment {
    QString call;
    QString caption;
    bool hourglass;
    bool enabled;
    QString pane;
    QByteArray clipboard;
};

// Lets the test look around while a message is shown.
class WatchedMessageBox final : public platform::MessageBoxService {
public:
    explicit WatchedMessageBox(std::function<void()> onShow)
        : m_onShow(std::move(onShow)) {}
    platform::MessageAnswer Show(QWidget*, const QString&, MessageButtons, MessageIcon,
                                 const QString&) override {
        m_onShow();
        return platform::MessageAnswer::Ok;
    }

private:
    std::function<void()> m_onShow;
};

bool HourglassShows() {
    return QGuiApplication::overrideCursor() && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

struct Desk {
    Desk() {
        Word().installed = true;
        Word().onCall = [this](const QString& call) {
            moments.push_back({call, window->windowTitle(), HourglassShows(),
                               window->leftToolbar->btnSpellCheck->isEnabled(), window->ActivePane()->Text(),
                               platform::ClipboardRTF()});
            if (call == u"ActiveDocument.CheckGrammar" && !corrected.isEmpty())
                Word().content = corrected;
        };
        window->SetTab(Tab::EditForm);
        window->txtContent()->setText(u"A dede"_qs);
        window->txtMyContent()->setText(u"My own dede"_qs);
    }
    ~Desk() { Word().onCall = nullptr; }

    RecordingWord& Word() { return window.services.wordProcessor; }
    void Check() { window->spellingCommand->CheckSpelling(); }
    // The same, with something to happen while its message is shown.
    void CheckAndSee(const std::function<void()>& onShow) {
        WatchedMessageBox box(onShow);
        ScriptedServices& other = window.services;
        platform::Services services{box,           other.instance,      other.commonDialog,
                                    other.printer, other.wordProcessor, other.sound,
                                    other.help};
        SpellingCommand command(*window->leftToolbar->btnSpellCheck, *window, *window->paperCommands,
                                window->Variables(), services, nullptr);
        command.CheckSpelling();
    }
    // Of the last call of this name.
    const Moment& At(const QString& call) const {
        for (auto moment = moments.rbegin(); moment != moments.rend(); ++moment)
            if (moment->call == call)
                return *moment;
        static const Moment none{u"none"_qs, {}, false, false, {}, {}};
        return none;
    }
    bool IsAtRest() {
        return window->windowTitle() == kHome && !HourglassShows() && !window->Variables().WordApp &&
               window->leftToolbar->btnSpellCheck->isEnabled();
    }

    TestWindow window;
    std::vector<Moment> moments;
    QByteArray corrected = kCorrected;
};

} // namespace

class SpellingCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheCallsComeInOrder() {
        Desk desk;
        desk.Check();
        QCOMPARE(desk.Word().calls, kCalls);
        QVERIFY(desk.IsAtRest());
    }

    void CaptionAndPointerTellHowFarItIs() {
        Desk desk;
        desk.Check();
        for (const QString& call : {u"CreateObject"_qs, u"Documents.Add"_qs, u"Selection.Paste"_qs}) {
            QCOMPARE(desk.At(call).caption, u"Opening Spelling & Grammar Checker..."_qs);
            QVERIFY(desk.At(call).hourglass);
        }
        for (const QString& call :
             {u"Options.CheckGrammarWithSpelling = True"_qs, u"ActiveDocument.CheckGrammar"_qs}) {
            QCOMPARE(desk.At(call).caption, u"Checking Spelling & Grammar..."_qs);
            QVERIFY(!desk.At(call).hourglass);
        }
        for (const QString& call : {u"Visible = False"_qs, u"ActiveDocument.Select"_qs, u"Selection.Cut"_qs,
                                    u"ActiveDocument.Close 0"_qs, u"Quit"_qs, u"Release"_qs}) {
            QCOMPARE(desk.At(call).caption, u"Checking Spelling & Grammar..."_qs);
            QVERIFY(desk.At(call).hourglass);
        }
        for (const Moment& moment : desk.moments)
            QVERIFY(!moment.enabled);
    }

    void TheClipboardCarriesThePane_data() { EachEditorPage(); }
    void TheClipboardCarriesThePane() {
        QFETCH(int, tab);
        Desk desk;
        desk.window->SetTab(Tab(tab));
        const QByteArray source = desk.window->ActivePane()->TextRTF().toLatin1();
        const QByteArray before = "{\\rtf1 lay there\\par}";
        platform::SetClipboardRTF(before);
        desk.Check();
        QCOMPARE(desk.At(u"Documents.Add"_qs).clipboard, before);
        QCOMPARE(desk.At(u"Selection.Paste"_qs).clipboard, source);
    }

    void ThePaneChangesBehindTheCutAndTheInstanceEndsBehindIt() {
        Desk desk;
        desk.Check();
        QCOMPARE(desk.At(u"Selection.Cut"_qs).pane, u"A dede"_qs);
        QCOMPARE(desk.At(u"ActiveDocument.Close 0"_qs).pane, u"A corrected deed"_qs);
    }

    void TheCorrectedTextComesBackWithItsFormats() {
        for (const bool saved : {true, false}) {
            Desk desk;
            desk.window->txtContent()->setSelStart(3);
            desk.window->State().DocumentSaved = saved;
            desk.Check();
            QCOMPARE(desk.window->txtContent()->Text(), u"A corrected deed"_qs);
            QVERIFY(desk.window->txtContent()->TextRTF().contains(u"\\b"_qs));
            QCOMPARE(desk.window->txtContent()->SelStart(), 0);
            QCOMPARE(desk.window->State().DocumentSaved, saved);
            QCOMPARE(platform::ClipboardRTF(), kCorrected);
        }
    }

    void TheEndIsTold() {
        Desk desk;
        desk.Check();
        QCOMPARE(desk.window.services.messageBox.shown.size(), 1U);
        const auto& told = desk.window.services.messageBox.shown[0];
        QCOMPARE(told.text, u"Spell & Grammar Check completed!   "_qs);
        QCOMPARE(told.title, u"Quillbrook PRO"_qs);
        QCOMPARE(told.icon, MessageIcon::Information);
        QCOMPARE(told.buttons, MessageButtons::Ok);
    }

    void TheMessageComesWhenEverythingIsBack_data() {
        QTest::addColumn<bool>("installed");
        QTest::newRow("completed") << true;
        QTest::newRow("no word processor") << false;
    }
    void TheMessageComesWhenEverythingIsBack() {
        QFETCH(bool, installed);
        Desk desk;
        desk.Word().installed = installed;
        bool shown = false;
        desk.CheckAndSee([&] {
            shown = true;
            QVERIFY(desk.IsAtRest());
            QCOMPARE(desk.window->txtContent()->Text(), installed ? u"A corrected deed"_qs : u"A dede"_qs);
        });
        QVERIFY(shown);
    }

    void EachPageChecksItsOwnPane_data() {
        QTest::addColumn<int>("tab");
        for (int tab = 0; tab < 6; ++tab)
            QTest::addRow("%d", tab) << tab;
    }
    void EachPageChecksItsOwnPane() {
        QFETCH(int, tab);
        Desk desk;
        desk.window->SetTab(Tab(tab));
        desk.Check();
        const bool mine = tab == 5;
        QCOMPARE(desk.window->txtContent()->Text(), mine ? u"A dede"_qs : u"A corrected deed"_qs);
        QCOMPARE(desk.window->txtMyContent()->Text(), mine ? u"A corrected deed"_qs : u"My own dede"_qs);
    }

    void UndoTakesTheCheckBack() {
        Desk desk;
        QVERIFY(desk.window.Show());
        desk.window->SetTab(Tab::EditForm);
        QTest::keyClicks(desk.window->txtContent(), u"x"_qs);
        const QString before = desk.window->txtContent()->Text();
        desk.Check();
        QCOMPARE(desk.window->txtContent()->Text(), u"A corrected deed"_qs);
        desk.window->Menu(u"mnuUndo"_qs)->trigger();
        QCOMPARE(desk.window->txtContent()->Text(), before);
    }

    void ATextWithoutErrorsIsOneMoreStepToUndo() {
        Desk desk;
        desk.corrected.clear();
        const int before = desk.window->undoCommands->History().Index();
        desk.Check();
        QCOMPARE(desk.window->txtContent()->Text(), u"A dede"_qs);
        QCOMPARE(desk.window->undoCommands->History().Index(), before + 1);
    }

    void ThePaneIsAskedForAnewWhenTheTextComesBack() {
        Desk desk;
        const auto record = desk.Word().onCall;
        desk.Word().onCall = [&](const QString& call) {
            record(call);
            if (call == u"ActiveDocument.CheckGrammar")
                desk.window->SetTab(Tab::MyForms);
        };
        desk.Check();
        QCOMPARE(desk.window->txtContent()->Text(), u"A dede"_qs);
        QCOMPARE(desk.window->txtMyContent()->Text(), u"A corrected deed"_qs);
    }

    void AnEmptyPaneIsCheckedAllTheSame() {
        Desk desk;
        desk.corrected.clear();
        desk.window->txtContent()->setText(QString());
        desk.Check();
        QVERIFY(desk.Word().calls.contains(u"ActiveDocument.CheckGrammar"_qs));
        QCOMPARE(desk.window->txtContent()->Text(), QString());
        QCOMPARE(desk.window.services.messageBox.shown.size(), 1U);
    }

    void WithoutAWordProcessorTheErrorIsToldAndThePaneStays() {
        Desk desk;
        desk.Word().installed = false;
        desk.Check();
        QCOMPARE(desk.Word().calls, QStringList{u"CreateObject"_qs});
        const auto& told = desk.window.services.messageBox.shown;
        QCOMPARE(told.size(), 1U);
        QCOMPARE(told[0].text, u"Error in starting the Grammar & Spell Check Engine!   \n\n"
                               "If this problem persists, please restart the Program!   "_qs);
        QCOMPARE(told[0].title, u"Grammar/Spell Check Error!"_qs);
        QCOMPARE(told[0].icon, MessageIcon::Critical);
        QCOMPARE(desk.window->txtContent()->Text(), u"A dede"_qs);
        QVERIFY(desk.IsAtRest());
    }

    void AFailingStepIsPassedOver_data() {
        QTest::addColumn<QString>("member");
        for (const char* member : {"Visible", "Documents.Add", "Selection.Paste",
                                   "Options.CheckGrammarWithSpelling", "ActiveDocument.CheckGrammar",
                                   "ActiveDocument.Select", "Selection.Cut", "ActiveDocument.Close", "Quit"})
            QTest::newRow(member) << QString::fromLatin1(member);
    }
    void AFailingStepIsPassedOver() {
        QFETCH(QString, member);
        Desk desk;
        desk.Word().failing.insert(member);
        desk.Check();
        QCOMPARE(desk.Word().calls, kCalls);
        QCOMPARE(desk.window.services.messageBox.shown.size(), 1U);
        QCOMPARE(desk.window.services.messageBox.shown[0].text, u"Spell & Grammar Check completed!   "_qs);
        QVERIFY(desk.IsAtRest());
    }

    void WhenTheCutFailsThePaneKeepsWhatItSent() {
        Desk desk;
        desk.Word().failing = {u"Selection.Paste"_qs, u"ActiveDocument.CheckGrammar"_qs,
                               u"ActiveDocument.Select"_qs, u"Selection.Cut"_qs};
        desk.corrected.clear();
        desk.Check();
        QCOMPARE(desk.window->txtContent()->Text(), u"A dede"_qs);
    }

    void WhatIsNotOnTheClipboardIsNotInThePane() {
        Desk desk;
        desk.Word().failing = {u"Selection.Cut"_qs};
        const auto record = desk.Word().onCall;
        desk.Word().onCall = [record](const QString& call) {
            record(call);
            if (call == u"Selection.Cut")
                QGuiApplication::clipboard()->clear();
        };
        desk.Check();
        QCOMPARE(desk.window->txtContent()->Text(), QString());
        QCOMPARE(desk.window.services.messageBox.shown[0].text, u"Spell & Grammar Check completed!   "_qs);
    }

    void ThePaneHasTheKeyboardAtTheEnd_data() { EachEditorPage(); }
    void ThePaneHasTheKeyboardAtTheEnd() {
        QFETCH(int, tab);
        Desk desk;
        QVERIFY(desk.window.Show());
        desk.window->SetTab(Tab(tab));
        desk.window->leftToolbar->btnSave->setFocus();
        bool hadFocus = false;
        desk.CheckAndSee([&] {
            hadFocus = desk.window->ActivePane()->hasFocus();
            desk.window->leftToolbar->btnSave->setFocus();
        });
        QVERIFY(hadFocus);
        QVERIFY(desk.window->ActivePane()->hasFocus());
    }

    void TheButtonRunsTheCheck() {
        Desk desk;
        QCOMPARE(desk.window->leftToolbar->btnSpellCheck->toolTip(),
                 u"Check Document for Spelling & Grammatical Errors"_qs);
        QVERIFY(desk.window.Show());
        QTest::mouseClick(desk.window->leftToolbar->btnSpellCheck, Qt::LeftButton);
        QCOMPARE(desk.window->txtContent()->Text(), u"A corrected deed"_qs);
    }
};

QTEST_MAIN(SpellingCommandTest)
#include "spelling_command_test.moc"
