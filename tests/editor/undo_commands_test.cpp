#include "editor/undo_commands.h"

#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MyButton;
using platform::RichTextBox;

class UndoCommandsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    EditToolBar& Bar() { return *Main().editToolBar; }
    RichTextBox& Pane() { return *Main().txtContent(); }

    // The controls of the reading pane and the menu entries of both.
    void VerifyControls(bool undo, bool redo) {
        QCOMPARE(Bar().btnUndo->isEnabled(), undo);
        QCOMPARE(Main().Menu(u"mnuUndo"_qs)->isEnabled(), undo);
        QCOMPARE(Main().Menu(u"mnuPopUndo"_qs)->isEnabled(), undo);
        QCOMPARE(Bar().btnRedo->isEnabled(), redo);
        QCOMPARE(Main().Menu(u"mnuRedo"_qs)->isEnabled(), redo);
        QCOMPARE(Main().Menu(u"mnuPopRedo"_qs)->isEnabled(), redo);
    }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::EditForm);
    }
    void cleanup() { m_window.reset(); }

    void EachKeyIsOneStep() {
        QTest::keyClicks(&Pane(), u"abc"_qs);
        QCOMPARE(Main().undoCommands->History().Index(), 3);
        VerifyControls(true, false);
        Bar().btnUndo->click();
        QCOMPARE(Pane().Text(), u"ab"_qs);
        VerifyControls(true, true);
        Bar().btnUndo->click();
        QCOMPARE(Pane().Text(), u"a"_qs);
        VerifyControls(false, true);
        Bar().btnRedo->click();
        Bar().btnRedo->click();
        QCOMPARE(Pane().Text(), u"abc"_qs);
        VerifyControls(true, false);
    }

    void TheBarShowsTheFormatAtTheCaretAfterwards() {
        Pane().setTextRTF(u"{\\rtf1{\\b\\fs28 title\\par}{\\fs24 plain words\\par}}"_qs);
        Pane().setSelStart(6);
        Pane().setSelLength(5);
        Bar().btnBold->click();
        Pane().setSelStart(11); // in bold text now
        QVERIFY(Bar().btnBold->Value());
        Bar().btnUndo->click();
        QCOMPARE(Pane().SelStart(), 11);
        QVERIFY(!Bar().btnBold->Value());
    }

    void UndoneAndRedoneChangesAreSeen() {
        Pane().setText(u"a line of a long form\n"_qs.repeated(200));
        Pane().setSelStart(0);
        QTest::keyClicks(&Pane(), u"x"_qs);
        Pane().verticalScrollBar()->setValue(Pane().verticalScrollBar()->maximum());
        Pane().setSelStart(4000);
        const auto sees = [&] { return Pane().viewport()->rect().contains(Pane().cursorRect()); };
        Bar().btnUndo->click();
        QCOMPARE(Pane().SelStart(), 0);
        QVERIFY(sees());
        Pane().setSelStart(4000);
        Bar().btnRedo->click();
        QCOMPARE(Pane().SelStart(), 1);
        QVERIFY(sees());
    }

    void UndoBringsTheFormatBackExactly() {
        Pane().setText(u"some text"_qs);
        Pane().selectAll();
        Pane().setSelAlignment(2);
        const QString source = Pane().TextRTF();
        Pane().setSelBold(true);
        const QString bold = Pane().TextRTF();
        QVERIFY(bold != source);
        Main().Menu(u"mnuUndo"_qs)->trigger();
        QCOMPARE(Pane().TextRTF(), source);
        Main().Menu(u"mnuRedo"_qs)->trigger();
        QCOMPARE(Pane().TextRTF(), bold);
    }

    void AnUndoThatReachesTheFirstStateCountsAsSaved() {
        QTest::keyClicks(&Pane(), u"ab"_qs);
        QVERIFY(!Main().State().DocumentSaved);
        Bar().btnUndo->click();
        QVERIFY(Main().State().DocumentSaved);
    }

    void AnUndoOnTheWayKeepsTheDocumentUnsaved() {
        QTest::keyClicks(&Pane(), u"abc"_qs);
        Bar().btnUndo->click();
        QVERIFY(!Main().State().DocumentSaved);
    }

    void TheFirstUndoAfterLoadingAFormBringsTheOneBefore() {
        Main().categoryBrowser->lstTitle->setText(u"Acknowledgment Alone"_qs);
        Main().categoryBrowser->lstTitle->setText(u"Second Acknowledgment"_qs);
        QCOMPARE(Pane().Text(), u"BEFORE ME, a notary"_qs);
        Bar().btnUndo->click();
        QCOMPARE(Pane().Text(), u"BEFORE ME"_qs);
    }

    void AnEditAfterAnUndoLeavesRedoOnAndItStepsIntoTheOlderEntries() {
        QTest::keyClicks(&Pane(), u"abc"_qs); // entries a, ab, abc
        Bar().btnUndo->click();
        Bar().btnUndo->click();
        QCOMPARE(Pane().Text(), u"a"_qs);
        Pane().setText(u"new"_qs); // entry 2
        VerifyControls(true, true);
        Bar().btnRedo->click();
        QCOMPARE(Pane().Text(), u"abc"_qs); // entry 3 of before
    }

    void ARedoIntoAStepThatWasNeverWrittenEmptiesThePane() {
        QTest::keyClicks(&Pane(), u"ab"_qs);
        Bar().btnUndo->click();
        Pane().setText(u"new"_qs); // entry 2
        Bar().btnRedo->click();
        QCOMPARE(Pane().Text(), QString());
    }

    void After80ChangesTheOldestReachableIsTheSixth() {
        for (int i = 1; i <= 80; ++i)
            Pane().setText(QString::number(i));
        QCOMPARE(Main().undoCommands->History().Index(), 75);
        for (int i = 0; i < 74; ++i)
            Main().undoCommands->Undo();
        QCOMPARE(Pane().Text(), u"6"_qs);
        VerifyControls(false, true);
    }

    void TheTwoPanesHaveHistoriesOfTheirOwn() {
        QTest::keyClicks(&Pane(), u"ab"_qs);
        Main().SetTab(Tab::MyForms);
        QTest::keyClicks(Main().txtMyContent(), u"xyz"_qs);
        Bar().btnMyUndo->click();
        QCOMPARE(Main().txtMyContent()->Text(), u"xy"_qs);
        QCOMPARE(Pane().Text(), u"ab"_qs);
        Main().SetTab(Tab::Search); // any other page works on the reading pane
        Main().Menu(u"mnuUndo"_qs)->setEnabled(true);
        Main().Menu(u"mnuUndo"_qs)->trigger();
        QCOMPARE(Pane().Text(), u"a"_qs);
        QCOMPARE(Main().txtMyContent()->Text(), u"xy"_qs);
    }

    void OnTheOwnPageItsButtonsAndTheMenusFollow() {
        Main().SetTab(Tab::MyForms);
        const bool undo = Bar().btnUndo->isEnabled();
        const bool redo = Bar().btnRedo->isEnabled();
        const auto verify = [this](bool canUndo, bool canRedo) {
            QCOMPARE(Bar().btnMyUndo->isEnabled(), canUndo);
            QCOMPARE(Main().Menu(u"mnuUndo"_qs)->isEnabled(), canUndo);
            QCOMPARE(Main().Menu(u"mnuPopUndo"_qs)->isEnabled(), canUndo);
            QCOMPARE(Bar().btnMyRedo->isEnabled(), canRedo);
            QCOMPARE(Main().Menu(u"mnuRedo"_qs)->isEnabled(), canRedo);
            QCOMPARE(Main().Menu(u"mnuPopRedo"_qs)->isEnabled(), canRedo);
        };
        verify(false, false);
        QTest::keyClicks(Main().txtMyContent(), u"xyz"_qs);
        verify(true, false);
        Main().Menu(u"mnuPopUndo"_qs)->trigger();
        verify(true, true);
        Bar().btnMyRedo->click();
        verify(true, false);
        QCOMPARE(Main().txtMyContent()->Text(), u"xyz"_qs);
        QCOMPARE(Bar().btnUndo->isEnabled(), undo);
        QCOMPARE(Bar().btnRedo->isEnabled(), redo);
    }

    void EveryControlRunsTheOneCommand_data() {
        QTest::addColumn<bool>("undoes");
        for (const char* name : {"mnuUndo", "btnUndo", "btnMyUndo", "mnuPopUndo"})
            QTest::newRow(name) << true;
        for (const char* name : {"mnuRedo", "btnRedo", "btnMyRedo", "mnuPopRedo"})
            QTest::newRow(name) << false;
    }
    void EveryControlRunsTheOneCommand() {
        QFETCH(bool, undoes);
        const QString name = QLatin1String(QTest::currentDataTag());
        const auto run = [&] {
            if (auto* button = Main().findChild<MyButton*>(name)) {
                button->setEnabled(true); // those of the other page are off
                button->click();
            } else
                Main().Menu(name)->trigger();
        };
        QTest::keyClicks(&Pane(), u"abc"_qs);
        if (!undoes)
            Bar().btnUndo->click();
        run();
        QCOMPARE(Pane().Text(), undoes ? u"ab"_qs : u"abc"_qs);

        Main().SetTab(Tab::MyForms);
        const QString reading = Pane().TextRTF();
        QTest::keyClicks(Main().txtMyContent(), u"xyz"_qs);
        if (!undoes)
            Bar().btnMyUndo->click();
        run();
        QCOMPARE(Main().txtMyContent()->Text(), undoes ? u"xy"_qs : u"xyz"_qs);
        QCOMPARE(Pane().TextRTF(), reading);
    }

    void AChangeOfThePaneThatIsNotOnTopShowsInTheSharedEntries() {
        Pane().setText(u"one"_qs);
        Main().SetTab(Tab::MyForms);
        QVERIFY(!Main().Menu(u"mnuUndo"_qs)->isEnabled());
        Pane().setText(u"two"_qs);
        QVERIFY(Main().Menu(u"mnuUndo"_qs)->isEnabled());
        QVERIFY(Main().Menu(u"mnuPopUndo"_qs)->isEnabled());
        QVERIFY(Bar().btnUndo->isEnabled());
        QVERIFY(!Bar().btnMyUndo->isEnabled());
    }

    void UndoAtTheFirstStateStaysThere() {
        QTest::keyClicks(&Pane(), u"a"_qs);
        QVERIFY(!Main().State().DocumentSaved);
        VerifyControls(false, false);
        Main().undoCommands->Undo(); // none of the controls leads here
        QCOMPARE(Pane().Text(), u"a"_qs);
        QCOMPARE(Main().undoCommands->History().Index(), 1);
        QCOMPARE(Main().undoCommands->History().RedoCount(), 1);
        VerifyControls(false, true);
        QVERIFY(Main().State().DocumentSaved);
    }

    void AnUndoIntoAnEmptyOwnFormRecordsNothing() {
        Main().SetTab(Tab::MyForms);
        RichTextBox& mine = *Main().txtMyContent();
        mine.setText(u"x"_qs);
        QTest::keyClick(&mine, Qt::Key_Delete);
        QCOMPARE(mine.Text(), QString());
        const QString empty = mine.TextRTF();
        QTest::keyClicks(&mine, u"y"_qs);
        const int index = Main().undoCommands->MyHistory().Index();
        Bar().btnMyUndo->click();
        QCOMPARE(mine.TextRTF(), empty);
        QCOMPARE(Main().undoCommands->MyHistory().Index(), index - 1);
        Bar().btnMyRedo->click();
        QCOMPARE(mine.Text(), u"y"_qs);
        QCOMPARE(Main().undoCommands->MyHistory().Index(), index);
    }

    void RedoLeavesWhetherTheDocumentIsSaved() {
        QTest::keyClicks(&Pane(), u"ab"_qs);
        Bar().btnUndo->click();
        for (const bool saved : {true, false}) {
            Main().State().DocumentSaved = saved;
            Bar().btnRedo->click();
            QCOMPARE(Main().State().DocumentSaved, saved);
            Bar().btnUndo->click();
        }
    }

    void TheCaretStaysAboutWhereItWas() {
        Pane().setText(u"one two three"_qs);
        Pane().setSelStart(7);
        QTest::keyClicks(&Pane(), u"X"_qs);
        Bar().btnUndo->click();
        QCOMPARE(Pane().Text(), u"one two three"_qs);
        QVERIFY(Pane().SelStart() >= 6 && Pane().SelStart() <= 8);
    }
};

QTEST_MAIN(UndoCommandsTest)
#include "undo_commands_test.moc"
