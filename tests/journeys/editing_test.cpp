// A form edited, formatted, undone and redone through keys and clicks, and exchanged over the clipboard.
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
using platform::RichTextBox;

class EditingJourney : public QObject {
    Q_OBJECT

    static void Click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }

private Q_SLOTS:
    void EditFormatUndoAndRedo() {
        TestWindow window;
        QVERIFY(window.Show());
        EditToolBar& bar = *window->editToolBar;
        RichTextBox& pane = *window->txtContent();
        TestWindow::ClickEntry(window->categoryBrowser->lstTitle, 0);
        const QString form = pane.TextRTF();
        QTest::mouseClick(pane.viewport(), Qt::LeftButton, Qt::NoModifier, {60, 40});
        QCOMPARE(window->CurrentTab(), Tab::EditForm);
        QVERIFY(pane.hasFocus());

        QTest::keyClick(&pane, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&pane, u" personally"_qs);
        QCOMPARE(pane.Text(), u"BEFORE ME personally"_qs);
        const QString typed = pane.TextRTF();

        // the last word in bold, of 20 points, in capitals
        QTest::keyClick(&pane, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(pane.SelText(), u"personally"_qs);
        Click(bar.btnBold);
        QVERIFY(bar.btnBold->Value());
        bar.cboFontSize->setFocus();
        bar.cboFontSize->lineEdit()->selectAll();
        QTest::keyClicks(bar.cboFontSize, u"20"_qs);
        QTest::keyClick(bar.cboFontSize, Qt::Key_Return);
        QCOMPARE(pane.SelFontSize(), std::optional(20.0));
        Click(bar.btnUpper);
        QCOMPARE(pane.Text(), u"BEFORE ME PERSONALLY"_qs);
        QVERIFY(pane.hasFocus());
        Click(bar.btnCenter);
        QCOMPARE(pane.SelAlignment(), std::optional(2));
        const QString formatted = pane.TextRTF();

        for (int i = 0; i < 4; ++i)
            Click(bar.btnUndo);
        QCOMPARE(pane.TextRTF(), typed);
        for (int i = 0; i < 11; ++i)
            QTest::keyClick(&pane, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(pane.TextRTF(), form);
        for (int i = 0; i < 15; ++i)
            Click(bar.btnRedo);
        QCOMPARE(pane.TextRTF(), formatted);
        QVERIFY(!bar.btnRedo->isEnabled());
    }

    void TheMenusShortcutsFormatToo() {
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::EditForm);
        RichTextBox& pane = *window->txtContent();
        QTest::keyClicks(&pane, u"one two"_qs);
        QTest::keyClick(&pane, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&pane, Qt::Key_B, Qt::ControlModifier);
        QTest::keyClick(&pane, Qt::Key_I, Qt::ControlModifier);
        QTest::keyClick(&pane, Qt::Key_U, Qt::ControlModifier);
        QTest::keyClick(&pane, Qt::Key_E, Qt::ControlModifier);
        QCOMPARE(pane.Text(), u"one two"_qs);
        QCOMPARE(pane.SelBold(), std::optional(true));
        QCOMPARE(pane.SelItalic(), std::optional(true));
        QCOMPARE(pane.SelUnderline(), std::optional(true));
        QCOMPARE(pane.SelAlignment(), std::optional(2));
        QVERIFY(window->editToolBar->btnItalic->Value());
    }

    void CutAndPasteMoveFormattedTextToTheOwnForm() {
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::EditForm);
        RichTextBox& pane = *window->txtContent();
        QTest::keyClicks(&pane, u"keep this"_qs);
        QTest::keyClick(&pane, Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        QTest::keyClick(&pane, Qt::Key_B, Qt::ControlModifier);
        QTest::keyClick(&pane, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(pane.Text(), u"keep "_qs);
        window->SetTab(Tab::MyForms);
        RichTextBox& mine = *window->txtMyContent();
        mine.setFocus();
        QTest::keyClick(&mine, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(mine.Text(), u"this"_qs);
        mine.selectAll();
        QCOMPARE(mine.SelBold(), std::optional(true));
    }
};

QTEST_MAIN(EditingJourney)
#include "editing_test.moc"
