// From a query typed to its hits, by keyboard and mouse, and back again.
#include "library/category_browser.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/search_page.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class SearchJourney : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TypeSearchOpenWalkTheHitsAndComeBack() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back(
            {u"Deed of Sale"_qs, u"Sales"_qs, u"Land"_qs,
             u"This deed of sale is a deed between the seller and the buyer.\nThe sale is final.\n"_qs});
        TestWindow window(forms);
        QVERIFY(window.Show());
        SearchPage& page = *window->searchPage;
        platform::RichTextBox& pane = *window->txtContent();

        QTest::mouseClick(window->SSTab->Strip(), Qt::LeftButton, Qt::NoModifier,
                          window->SSTab->Strip()->tabRect(1).center());
        QTest::keyClicks(QApplication::focusWidget(), u"deed and sale"_qs);
        QTRY_COMPARE(page.cboQuery->Text(), u"deed sale"_qs);
        QCOMPARE(page.lblSearchGuide1->text(), u"DEED + SALE"_qs);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(page.fmeSearchResult->Caption(), u"1 Form Found!"_qs);

        TestWindow::ClickEntry(page.lstSearch, 0);
        QVERIFY(pane.Text().startsWith(u"This deed of sale"_qs));
        QStringList walked;
        for (int i = 0; i < 4; ++i) {
            QTest::mouseClick(page.btnNextHit, Qt::LeftButton);
            walked.append(QString::number(pane.SelStart()) + u' ' + pane.SelText());
        }
        QCOMPARE(walked, QStringList({u"5 deed"_qs, u"13 sale"_qs, u"23 deed"_qs, u"66 sale"_qs}));
        QTest::mouseClick(page.btnPreviousHit, Qt::LeftButton);
        QCOMPARE(pane.SelStart(), 23);

        window->SetTab(Tab::FormsExplorer);
        QTest::mouseClick(window->categoryBrowser->cmdSearchAgain, Qt::LeftButton);
        QTest::keyClicks(QApplication::focusWidget(), u" lease"_qs);
        QCOMPARE(page.cboQuery->Text(), u"deed sale lease"_qs);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(page.fmeSearchResult->Caption(), u"No Forms Found!!"_qs);
        QVERIFY(page.btnNextHit->isHidden());
        QVERIFY(window->close());
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TypingInTheMiddleOfTheQueryWorks() {
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::Search);
        platform::ComboBox* query = window->searchPage->cboQuery;
        QTest::keyClicks(query, u"deed sale"_qs);
        query->lineEdit()->setCursorPosition(4);
        for (const QChar c : u" of"_qs) {
            QTest::keyClick(query, c.toLatin1());
            QTest::qWait(10); // the clean-up runs between the keys
        }
        QCOMPARE(query->Text(), u"deed of sale"_qs);
        QCOMPARE(query->lineEdit()->cursorPosition(), 7);
    }
};

QTEST_MAIN(SearchJourney)
#include "search_test.moc"
