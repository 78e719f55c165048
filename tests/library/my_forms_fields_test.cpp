// The fields of title and category of the My Forms page, and the lists beside them: how they lie and are
// written in.
#include "library/my_forms_page.h"

#include "app/menu_tree.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/focus.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/my_forms_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class MyFormsFieldsTest : public QObject, MyFormsDesk {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_window.reset(); }

    void TheTitlesLieOverTheFieldsUntilTheyAreHidden() {
        GoTo(MyFormsMode::Browsing);
        QWidget* page = Page().fmeMyTitle->parentWidget();
        const auto isSeen = [page](QWidget* frame) {
            const QWidget* seen = page->childAt(frame->geometry().center());
            return seen == frame || frame->isAncestorOf(seen);
        };
        QVERIFY(isSeen(Page().fmeMyTitle));
        QVERIFY(!isSeen(Page().Frame5));
        QVERIFY(!isSeen(Page().Frame6));
        Page().btnEdit->click();
        QVERIFY(isSeen(Page().Frame5));
        QVERIFY(isSeen(Page().Frame6));
    }

    void EnterMovesOnThroughTheFields() {
        GoTo(MyFormsMode::Composing);
        QTest::keyClick(Page().txtMyTitle, Qt::Key_Return);
        QVERIFY(HasFocus(Page().cboMySubCategory));
        QTest::keyClick(Page().cboMySubCategory->lineEdit(), Qt::Key_Return);
        QVERIFY(HasFocus(&Pane()));
    }

    void ALongTitleShowsItsBeginning() {
        Open({Own(u"Claim against the heirs of Don Santiago"_qs, u"Land cases of the second district"_qs)});
        QCOMPARE(Page().txtMyTitle->cursorPosition(), 0);
        QCOMPARE(Page().cboMySubCategory->lineEdit()->cursorPosition(), 0);
        Page().btnNew->click();
        QTest::keyClicks(Page().txtMyTitle, u"Deed of Sale"_qs);
        QTest::keyClick(Page().txtMyTitle, Qt::Key_Return);
        QCOMPARE(Page().txtMyTitle->cursorPosition(), 0);
    }

    // A menu or another window has the keyboard for a moment, and the title is still being written.
    void ATitleBeingWrittenKeepsItsCaret_data() {
        QTest::addColumn<QString>("borrower");
        for (const char* borrower : {"another window", "a menu", "the menu bar"})
            QTest::newRow(borrower) << QString::fromLatin1(borrower);
    }
    void ATitleBeingWrittenKeepsItsCaret() {
        QFETCH(QString, borrower);
        GoTo(MyFormsMode::Composing);
        QTest::keyClicks(Page().txtMyTitle, u"Deed of "_qs);
        QMenu entries(&Main());
        QWidget window;
        if (borrower == u"the menu bar") {
            QTest::keyPress(Main().windowHandle(), Qt::Key_Alt, Qt::AltModifier);
            QTest::keyRelease(Main().windowHandle(), Qt::Key_Alt);
            QVERIFY(HasFocus(Main().menuTree->MenuBar()));
            QTest::keyClick(Main().windowHandle(), Qt::Key_Escape);
        } else if (borrower == u"a menu") {
            entries.addAction(u"Entry"_qs);
            entries.popup(Main().pos());
            QVERIFY(QTest::qWaitForWindowExposed(&entries));
            entries.close();
        } else {
            window.show();
            window.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            Main().activateWindow();
        }
        QTRY_VERIFY(HasFocus(Page().txtMyTitle));
        QTest::keyClicks(Page().txtMyTitle, u"Sale"_qs);
        QCOMPARE(Page().txtMyTitle->text(), u"Deed of Sale"_qs);
    }

    // However the keyboard went in between.
    void ATitleThatIsLeftShowsItsBeginning_data() {
        QTest::addColumn<QString>("borrower");
        for (const char* borrower : {"none", "a dialog", "the menu bar"})
            QTest::newRow(borrower) << QString::fromLatin1(borrower);
    }
    void ATitleThatIsLeftShowsItsBeginning() {
        QFETCH(QString, borrower);
        GoTo(MyFormsMode::Composing);
        QTest::keyClicks(Page().txtMyTitle, u"Claim against the heirs of Don Santiago"_qs);
        QVERIFY(Page().txtMyTitle->cursorPosition() > 0);
        QDialog dialog(&Main());
        if (borrower == u"a dialog") {
            dialog.setModal(true);
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            dialog.close();
        } else if (borrower == u"the menu bar") {
            QTest::keyPress(Main().windowHandle(), Qt::Key_Alt, Qt::AltModifier);
            QTest::keyRelease(Main().windowHandle(), Qt::Key_Alt);
            QVERIFY(HasFocus(Main().menuTree->MenuBar()));
        }
        platform::SetFocus(Page().cboMySubCategory);
        QTRY_VERIFY(HasFocus(Page().cboMySubCategory));
        QCOMPARE(Page().txtMyTitle->cursorPosition(), 0);
    }

    void LongEntriesAreReadWhole() {
        Open({Own(u"Claim of the heirs of Don Santiago of the second district"_qs, u"Land"_qs)});
        const platform::ListBox& titles = *Page().lstMyTitle;
        QVERIFY(titles.visualRect(titles.model()->index(0, 0)).height() > 2 * titles.fontMetrics().height());
    }
};

QTEST_MAIN(MyFormsFieldsTest)
#include "my_forms_fields_test.moc"
