// Where the format commands leave the focus, the buttons and the other pane.
#include "editor/format_commands.h"

#include "platform/controls/combo_box.h"
#include "tests/editor/format_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MyButton;
using platform::RichTextBox;

class FormatFocusTest : public QObject, FormatDesk {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
        Dialog().font = {u"Liberation Mono"_qs, 18, false, false, false, false, Qt::red};
        Dialog().color = Qt::red;
    }
    void cleanup() { m_window.reset(); }

    void OnlyTheCaseAndTheAlignmentEntriesGiveThePaneTheFocus_data() {
        QTest::addColumn<bool>("takesFocus");
        for (const char* name :
             {"btnBold",           "mnuBold",     "btnItalic",         "mnuItalic", "btnUnderline",
              "mnuUnderline",      "btnLeft",     "btnCenter",         "btnRight",  "btnIncrease",
              "mnuIncreaseIndent", "btnDecrease", "mnuDecreaseIndent", "mnuBullet", "btnFontDialog",
              "mnuFontDialog",     "mnuPopFonts", "btnFontColor",      "mnucolor",  "mnuPopColor"})
            QTest::newRow(name) << false;
        for (const char* name :
             {"mnuLeft", "mnuCenter", "mnuRight", "btnUpper", "mnuUpperCase", "btnLower", "mnuLowerCase"})
            QTest::newRow(name) << true;
    }
    void OnlyTheCaseAndTheAlignmentEntriesGiveThePaneTheFocus() {
        QFETCH(bool, takesFocus);
        Main().SetTab(Tab::EditForm);
        RichTextBox* pane = Main().txtContent();
        pane->setText(u"some text"_qs);
        for (const int length : {0, 4}) {
            pane->setSelStart(0);
            pane->setSelLength(length);
            Bar().cboFonts->setFocus();
            QVERIFY(!pane->hasFocus());
            Run(QLatin1String(QTest::currentDataTag()));
            QCOMPARE(pane->hasFocus(), takesFocus);
        }
    }

    void OnAnyPageAnAlignmentButtonShowsTheOtherTwoNotPressed_data() {
        QTest::addColumn<int>("tab");
        for (int tab = 0; tab < 6; ++tab)
            QTest::addRow("%d", tab) << tab;
    }
    void OnAnyPageAnAlignmentButtonShowsTheOtherTwoNotPressed() {
        QFETCH(int, tab);
        Main().SetTab(Tab(tab));
        Main().ActivePane()->setText(u"some text"_qs);
        MyButton* const buttons[] = {Bar().btnLeft, Bar().btnCenter, Bar().btnRight};
        for (MyButton* clicked : buttons) {
            for (MyButton* button : buttons)
                button->setValue(true);
            clicked->click();
            for (const MyButton* button : buttons)
                QCOMPARE(button->Value(), button == clicked);
        }
    }

    void AlignmentByMenuIsShownByTheSelectionChangeOfThePane() {
        Main().txtContent()->setText(u"some text"_qs);
        Main().SetTab(Tab::MyForms);
        Run(u"mnuRight"_qs);
        QVERIFY(Bar().btnRight->Value());
        QVERIFY(!Bar().btnLeft->Value());
    }

    void ABulletOverAMixedSelectionHangsAllOfIt() {
        RichTextBox* pane = Main().txtContent();
        pane->setText(u"one\ntwo\nthree"_qs);
        pane->setSelStart(4);
        Run(u"mnuBullet"_qs);
        pane->selectAll();
        QVERIFY(!pane->SelBullet());
        Run(u"mnuBullet"_qs);
        QCOMPARE(pane->SelBullet(), std::optional(true));
        QCOMPARE(pane->SelHangingIndent(), std::optional(350));
        Run(u"mnuBullet"_qs);
        QCOMPARE(pane->SelBullet(), std::optional(false));
        QCOMPARE(pane->SelHangingIndent(), std::optional(0));
    }

    void TheBulletLeavesThePaneOfOwnForms() {
        Main().txtContent()->setText(u"some text"_qs);
        Main().SetTab(Tab::MyForms);
        Main().txtMyContent()->setText(u"mine"_qs);
        const QString before = Main().txtMyContent()->TextRTF();
        Run(u"mnuBullet"_qs);
        QCOMPARE(Main().txtContent()->SelBullet(), std::optional(true));
        QCOMPARE(Main().txtMyContent()->TextRTF(), before);
    }

    void IndentsThatDifferStay() {
        Main().SetTab(Tab::EditForm);
        RichTextBox* pane = Main().txtContent();
        pane->setText(u"one\ntwo"_qs);
        pane->setSelIndent(700);
        pane->selectAll();
        QVERIFY(!pane->SelIndent());
        const QString before = pane->TextRTF();
        Run(u"btnIncrease"_qs);
        Run(u"btnDecrease"_qs);
        QCOMPARE(pane->TextRTF(), before);
    }

    void AFormatForTheTextTypedNextOutlivesAClickThatLeavesTheCaret_data() {
        QTest::addColumn<int>("caret");
        QTest::newRow("within the text") << 4;
        QTest::newRow("at the end") << 9;
    }
    void AFormatForTheTextTypedNextOutlivesAClickThatLeavesTheCaret() {
        QFETCH(int, caret);
        Main().SetTab(Tab::EditForm);
        RichTextBox* pane = Main().txtContent();
        pane->setText(u"some text"_qs);
        pane->setSelStart(caret);
        pane->setFocus();
        QTest::mouseClick(Bar().btnBold, Qt::LeftButton);
        QVERIFY(!pane->hasFocus());
        QVERIFY(Bar().btnBold->Value());
        QTest::mouseClick(pane->viewport(), Qt::LeftButton, {}, pane->cursorRect().center());
        QVERIFY(pane->hasFocus());
        QCOMPARE(pane->SelStart(), caret);
        QVERIFY(Bar().btnBold->Value());
        QTest::keyClicks(pane, u"x"_qs);
        pane->setSelStart(caret);
        pane->setSelLength(1);
        QCOMPARE(pane->SelText(), u"x"_qs);
        QCOMPARE(pane->SelBold(), std::optional(true));
    }

    void EachFormatCommandIsRecordedByTheChangeOfItsPane() {
        Main().SetTab(Tab::EditForm);
        RichTextBox* pane = Main().txtContent();
        pane->setText(u"some text"_qs);
        pane->setSelStart(0);
        pane->setSelLength(4);
        const QString before = pane->TextRTF();
        for (const QString& name :
             {u"btnBold"_qs, u"btnCenter"_qs, u"btnIncrease"_qs, u"btnUpper"_qs, u"mnucolor"_qs}) {
            Run(name);
            QVERIFY2(pane->TextRTF() != before, qPrintable(name));
            Run(u"mnuUndo"_qs);
            QCOMPARE(pane->TextRTF(), before);
            pane->setSelStart(0);
            pane->setSelLength(4);
        }
    }
};

QTEST_MAIN(FormatFocusTest)
#include "format_focus_test.moc"
