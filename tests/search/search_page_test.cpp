// What stays and what goes on the Search page during a run.
#include "search/search_page.h"

#include "appearance/look.h"
#include "library/category_browser.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/geometry.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "search/result_blink.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class SearchPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { ApplyLook(*qApp); }

    void QueryAndResultsAreWrittenInTheirFont() {
        TestWindow window;
        QVERIFY(window.Show());
        const SearchPage& page = *window->searchPage;
        QCOMPARE(page.cboQuery->font().family(), u"Arial"_qs);
        QCOMPARE(page.cboQuery->lineEdit()->font().family(), u"Arial"_qs);
        QCOMPARE(page.lstSearch->font().family(), u"Arial"_qs);
        QCOMPARE(page.lstSearch->font().pointSizeF(), QApplication::font().pointSizeF());
        QVERIFY(window->categoryBrowser->lstTitle->font().family() != u"Arial"_qs);
    }

    // Up to five titles are seen without scrolling.
    void TheListOfResultsHasRoomForItsTitles_data() {
        QTest::addColumn<int>("titles");
        for (int titles = 1; titles <= 6; ++titles)
            QTest::addRow("%d", titles) << titles;
    }
    void TheListOfResultsHasRoomForItsTitles() {
        QFETCH(int, titles);
        std::vector<TestForm> forms = SomeForms();
        for (int i = 0; i < titles; ++i)
            forms.push_back({u"Deed %1"_qs.arg(i), u"Sales"_qs, u"Land"_qs, u"quitclaim"_qs});
        TestWindow window(forms);
        QVERIFY(window.Show());
        window->SetTab(Tab::Search);
        SearchPage& page = *window->searchPage;
        page.cboQuery->setText(u"quitclaim"_qs);
        page.cmdSearch->click();
        platform::ListBox& list = *page.lstSearch;
        QCOMPARE(list.ListCount(), titles);
        QCoreApplication::processEvents();
        const int last = std::min(titles, 5) - 1;
        QVERIFY(list.visualRect(list.model()->index(last, 0)).bottom() < list.viewport()->height());
        QCOMPARE(list.verticalScrollBar()->maximum() > 0, titles > 5);
        TestWindow::ClickEntry(&list, last);
        QCOMPARE(list.ListIndex(), last);
    }

    void NothingBringsTheLargeModesBack() {
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::Search);
        SearchPage& page = *window->searchPage;
        QTest::keyClicks(page.cboQuery, u"o"_qs);
        QVERIFY(page.fmeSearchMode->isHidden());
        page.modeButtons[1]->click();
        QTest::keyClick(page.cboQuery, Qt::Key_Return);
        TestWindow::ClickEntry(page.lstSearch, 0);
        page.cboQuery->setText(QString());
        page.cmdSearch->click();
        window->SetTab(Tab::FormsExplorer);
        window->SetTab(Tab::Search);
        QVERIFY(page.fmeSearchMode->isHidden());
        for (const QRadioButton* button : page.modeButtons)
            QVERIFY(button->isVisible());
        // hidden they are kept equal all the same
        QVERIFY(page.twinButtons[1]->isChecked());
    }

    void EachSearchSetsTheCaptionBlinking_data() {
        QTest::addColumn<QString>("query");
        QTest::newRow("something found") << u"the"_qs;
        QTest::newRow("nothing found") << u"mortgage"_qs;
        QTest::newRow("nothing entered") << QString();
    }
    void EachSearchSetsTheCaptionBlinking() {
        QFETCH(QString, query);
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::Search);
        const SearchPage& page = *window->searchPage;
        page.resultBlink->Timer1->stop();
        page.resultBlink->Timer2->stop();
        page.cboQuery->setText(query);
        page.cmdSearch->click();
        QVERIFY(page.resultBlink->Timer1->isActive());
        QVERIFY(page.resultBlink->Timer2->isActive());
    }

    void AListThatIsHiddenKeepsItsHeight() {
        std::vector<TestForm> forms = SomeForms();
        for (int i = 0; i < 4; ++i)
            forms.push_back({u"Deed %1"_qs.arg(i), u"Sales"_qs, u"Land"_qs, u"quitclaim"_qs});
        TestWindow window(forms);
        QVERIFY(window.Show());
        window->SetTab(Tab::Search);
        const SearchPage& page = *window->searchPage;
        for (const QString& query : {u"quitclaim"_qs, u"mortgage"_qs, QString()}) {
            page.cboQuery->setText(query);
            page.cmdSearch->click();
            QCOMPARE(page.lstSearch->isVisible(), query == u"quitclaim"_qs);
            QCOMPARE(platform::Height(page.lstSearch), 1020);
        }
    }

    void AWindowWithoutFormsKeepsTheCaptionItWasMadeWith() {
        TestWindow window(std::vector<TestForm>{});
        QCOMPARE(window->searchPage->fmeSearchResult->Caption(), u"Search Result:"_qs);
    }

    void TheHitControlsStandBesideTheResultWithTheirLabelAbove() {
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::Search);
        SearchPage& page = *window->searchPage;
        page.cboQuery->setText(u"the"_qs);
        page.cmdSearch->click();
        TestWindow::ClickEntry(page.lstSearch, 0);
        QCOMPARE(page.btnNextHit->y(), page.btnPreviousHit->y());
        QVERIFY(page.btnNextHit->x() > page.btnPreviousHit->x());
        QVERIFY(std::abs(page.lblDisplayHits->geometry().bottom() + 1 - page.btnNextHit->y()) <= 1);
        QVERIFY(!page.lblDisplayHits->geometry().intersects(page.fmeSearchResult->geometry()));
    }
};

QTEST_MAIN(SearchPageTest)
#include "search_page_test.moc"
