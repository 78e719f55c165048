// The pane of the My Forms page: its font, the format of what is stored from it, and what can be undone in
// it.
#include "editor/edit_tool_bar.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/my_forms_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class MyFormsPaneTest : public QObject, MyFormsDesk {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_window.reset(); }

    void ANewFormIsWrittenInItsOwnFont_data() {
        QTest::addColumn<MyFormsMode>("from");
        QTest::newRow("after a form in another one") << MyFormsMode::Editing;
        QTest::newRow("with another one chosen in the empty pane") << MyFormsMode::Empty;
    }
    void ANewFormIsWrittenInItsOwnFont() {
        QFETCH(MyFormsMode, from);
        GoTo(from);
        Pane().selectAll();
        Pane().setSelFontName(u"Arial"_qs);
        Pane().setSelFontSize(20);
        Main().editToolBar->cboFonts->setText(u"Arial"_qs);
        Main().editToolBar->cboFontSize->setText(u"20"_qs);
        Page().btnNew->click();
        QCOMPARE(Pane().SelFontName(), std::optional(u"Times New Roman"_qs));
        QCOMPARE(Pane().SelFontSize(), std::optional(12.0));
        QCOMPARE(Main().editToolBar->cboFonts->Text(), u"Times New Roman"_qs);
        QCOMPARE(Main().editToolBar->cboFontSize->Text(), u"12"_qs);
    }

    void UndoLeadsBackToTheFormThatWasLoadedAndNoFurther() {
        GoTo(MyFormsMode::Browsing);
        QTest::keyClicks(&Pane(), u"ab"_qs);
        Main().editToolBar->btnMyUndo->click();
        QVERIFY(Main().editToolBar->btnMyRedo->isEnabled());
        TestWindow::ClickEntry(Page().lstMyTitle, 1);
        NothingToUndo();
        const QString loaded = Pane().TextRTF();
        QTest::keyClicks(&Pane(), u"x"_qs);
        Main().editToolBar->btnMyUndo->click();
        QCOMPARE(Pane().TextRTF(), loaded);
        QVERIFY(!Main().editToolBar->btnMyUndo->isEnabled());
    }

    void TheFormatOfAnOwnFormIsKept() {
        GoTo(MyFormsMode::Composing);
        Fill(u"Bold One"_qs, u"Aaa"_qs, u"plain and bold"_qs);
        Pane().setSelStart(10);
        Pane().setSelLength(4);
        Pane().setSelBold(true);
        const QString source = Pane().TextRTF();
        Page().btnAddNew->click();
        QCOMPARE(Page().txtMyTitle->text(), u"Bold One"_qs);
        QCOMPARE(Pane().TextRTF(), source);
    }
};

QTEST_MAIN(MyFormsPaneTest)
#include "my_forms_pane_test.moc"
