// A pleading from the library is completed with a caption and a verification, and taken back step by step.
#include "app/left_toolbar.h"
#include "clauses/clause_chooser.h"
#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/option_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_clauses.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::RichTextBox;

namespace {

const QString kPleading = u"COMPLAINT\nPlaintiff states:\n(VERIFICATION)\nAnnexes"_qs;
const QString kCaption = TestClause(ClauseRoutine::InsertCaption, "3");
const QString kVerification = TestClause(ClauseRoutine::InsertVerification, "2");

std::vector<TestForm> APleading() {
    return {{u"Jurat"_qs, u"Acknowledgment / Jurat"_qs, u"Jurats"_qs, u"SUBSCRIBED"_qs},
            {u"Complaint"_qs, u"Pleadings"_qs, u"Complaints"_qs, kPleading},
            {u"Affidavit"_qs, u"Affidavits"_qs, u"General"_qs, u"I swear.\n(jurat)"_qs}};
}

// Whether the dialog gets the keyboard.
bool TakesKeys(const QWidget* dialog) {
    return QTest::qWaitFor([dialog] { return dialog->isAncestorOf(QApplication::focusWidget()); });
}

// Opens a dialog by its button and does there what `answer` says while it is modal.
template <typename Answer>
bool Choose(TestWindow& window, platform::MyButton* button, Answer answer) {
    bool answered = false;
    QTimer::singleShot(0, &*window, [&] {
        auto* dialog = qobject_cast<ClauseChooser*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        if (TakesKeys(dialog)) {
            answer(*dialog);
            answered = !dialog->isVisible();
        }
        if (dialog->isVisible())
            dialog->reject();
    });
    QTest::mouseClick(button, Qt::LeftButton);
    return answered;
}

void Press(Qt::Key key) {
    QTest::keyClick(QApplication::focusWidget(), key);
}

} // namespace

class ClausesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void APleadingIsCompletedAndTakenBackStepByStep() {
        TestWindow window(APleading());
        QVERIFY(AddTestClauses(*window->Variables().FormsDb));
        QVERIFY(window.Show());
        RichTextBox* pane = window->txtContent();
        QTest::mouseClick(window->categoryBrowser->CategoryButton(u"btnPleadings"_qs), Qt::LeftButton);
        TestWindow::ClickEntry(window->categoryBrowser->lstSubCategory, 0);
        TestWindow::ClickEntry(window->categoryBrowser->lstTitle, 0);
        QCOMPARE(pane->Text(), kPleading);
        window->SetTab(Tab::EditForm);
        const QString asOpened = pane->TextRTF();

        window->Menu(u"mnuCaptionRTCCivil"_qs)->trigger();
        QCOMPARE(pane->Text(), QString(kCaption + kPleading));
        const QString withCaption = pane->TextRTF();

        QVERIFY(Choose(window, window->leftToolbar->AddVerification, [](ClauseChooser& dialog) {
            QTest::mouseClick(dialog.HyperLabel(10), Qt::LeftButton);
            QTest::mouseClick(dialog.OKButton, Qt::LeftButton);
        }));
        QCOMPARE(pane->Text(), QString(kCaption + kPleading).replace(u"(VERIFICATION)"_qs, kVerification));
        const QString complete = pane->TextRTF();

        QVERIFY(window->editToolBar->btnUndo->isEnabled());
        QTest::mouseClick(window->editToolBar->btnUndo, Qt::LeftButton);
        QCOMPARE(pane->TextRTF(), withCaption);
        QTest::mouseClick(window->editToolBar->btnUndo, Qt::LeftButton);
        QCOMPARE(pane->TextRTF(), asOpened);
        QTest::mouseClick(window->editToolBar->btnRedo, Qt::LeftButton);
        QTest::mouseClick(window->editToolBar->btnRedo, Qt::LeftButton);
        QCOMPARE(pane->TextRTF(), complete);
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TheKeyboardAloneAddsAJurat() {
        TestWindow window(APleading());
        QVERIFY(AddTestClauses(*window->Variables().FormsDb));
        QVERIFY(window.Show());
        QTest::mouseClick(window->categoryBrowser->CategoryButton(u"btnAffidavits"_qs), Qt::LeftButton);
        TestWindow::ClickEntry(window->categoryBrowser->lstTitle, 0);
        window->leftToolbar->cmdAddJurat->setFocus();
        bool added = false;
        QTimer::singleShot(0, &*window, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog && TakesKeys(dialog)) {
                Press(Qt::Key_Down);
                Press(Qt::Key_Space);
                Press(Qt::Key_Return);
                added = !dialog->isVisible();
            }
            if (dialog)
                dialog->hide();
        });
        Press(Qt::Key_Space);
        QVERIFY(added);
        QCOMPARE(window->txtContent()->Text(),
                 QString(u"I swear.\n"_qs + TestClause(ClauseRoutine::InsertJurat, "2")));
    }

    void TheSecondChoiceReplacesTheFirst() {
        TestWindow window(APleading());
        QVERIFY(AddTestClauses(*window->Variables().FormsDb));
        QVERIFY(window.Show());
        window->txtContent()->setText(u"Deed\n(JURAT)\n(ACKNOWLEDGMENT)"_qs);
        QVERIFY(Choose(window, window->leftToolbar->cmdAddJurat, [](ClauseChooser& dialog) {
            QTest::mouseClick(dialog.Option(2), Qt::LeftButton);
            QTest::mouseClick(dialog.Option(5), Qt::LeftButton);
            QVERIFY(!dialog.Option(2)->Value());
            QTest::mouseClick(dialog.OKButton, Qt::LeftButton);
        }));
        QCOMPARE(window->txtContent()->Text(),
                 QString(u"Deed\n(JURAT)\n"_qs + TestClause(ClauseRoutine::InsertJurat, "5")));
    }

    void OKWithoutAChoiceChangesNothing() {
        TestWindow window(APleading());
        QVERIFY(window.Show());
        for (platform::MyButton* button :
             {window->leftToolbar->cmdAddJurat, window->leftToolbar->AddVerification}) {
            QVERIFY(Choose(window, button, [](ClauseChooser& dialog) {
                QTest::mouseClick(dialog.OKButton, Qt::LeftButton);
            }));
        }
        QCOMPARE(window->txtContent()->Text(), QString());
        QCOMPARE(window->txtMyContent()->Text(), QString());
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void ACancelledChoiceIsStillSetNextTimeAndOKThenAddsIt() {
        TestWindow window(APleading());
        QVERIFY(AddTestClauses(*window->Variables().FormsDb));
        QVERIFY(window.Show());
        window->txtContent()->setText(kPleading);
        window->Variables().CurrentSearchWord = u"before"_qs;
        ClauseChooser* first = nullptr;
        QVERIFY(Choose(window, window->leftToolbar->AddVerification, [&](ClauseChooser& dialog) {
            first = &dialog;
            QTest::mouseClick(dialog.HyperLabel(3), Qt::LeftButton);
            QTest::mouseClick(dialog.CancelButton, Qt::LeftButton);
        }));
        QCOMPARE(window->txtContent()->Text(), kPleading);
        QVERIFY(Choose(window, window->leftToolbar->AddVerification, [&](ClauseChooser& dialog) {
            QCOMPARE(&dialog, first);
            QVERIFY(dialog.Option(3)->Value());
            QTest::mouseClick(dialog.OKButton, Qt::LeftButton);
        }));
        QCOMPARE(window->txtContent()->Text(), QString(kCaption + kPleading));
        QCOMPARE(window->Variables().CurrentSearchWord, u"before"_qs); // a caption has no marker
    }

    void TheDialogsAreLoadedAtFirstUseAndLeaveWithTheWindow() {
        TestWindow window(APleading());
        QVERIFY(window.Show());
        QVERIFY(!window->Windows().IsLoaded(u"frmJurat"_qs));
        QVERIFY(
            Choose(window, window->leftToolbar->cmdAddJurat, [](ClauseChooser&) { Press(Qt::Key_Escape); }));
        QVERIFY(window->Windows().IsLoaded(u"frmJurat"_qs));
        QVERIFY(!window->Windows().IsLoaded(u"frmVerification"_qs));
        QVERIFY(window->close());
        QVERIFY(!window->Windows().IsLoaded(u"frmJurat"_qs));
    }
};

QTEST_MAIN(ClausesTest)
#include "clauses_test.moc"
