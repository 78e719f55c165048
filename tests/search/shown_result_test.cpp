// A search result on display and the walk over its hits, through the real controls.
#include "search/search_commands.h"

#include "library/category_browser.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/search_page.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class ShownResultTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    SearchPage& Page() { return *Main().searchPage; }
    platform::RichTextBox& Pane() { return *Main().txtContent(); }

    void Search(const QString& query) {
        Page().cboQuery->setText(query);
        Page().cmdSearch->click();
    }
    void ShowFirst(const QString& query) {
        Search(query);
        TestWindow::ClickEntry(Page().lstSearch, 0);
    }
    std::pair<int, int> Selection() { return {Pane().SelStart(), Pane().SelLength()}; }

private Q_SLOTS:
    void init() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back({u"A Deed"_qs, u"Sales"_qs, u"Land"_qs, u"the sale of the deed of sale\n"_qs});
        m_window = std::make_unique<TestWindow>(forms);
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::Search);
    }
    void cleanup() { m_window.reset(); }

    // The source is searched, the text is marked.
    void ATitleWithoutAHitInItsTextIsShownUnmarked() {
        ShowFirst(u"fonttbl"_qs);
        QCOMPARE(Pane().Text(), u"the sale of the deed of sale\n"_qs);
        Pane().selectAll();
        QCOMPARE(Pane().SelBold(), std::optional(false));
        QCOMPARE(Pane().SelColor(), std::optional(QColor(Qt::black)));
        QVERIFY(Page().btnNextHit->isVisible());
        Pane().setSelStart(3);
        Pane().setSelLength(2);
        Page().btnNextHit->click();
        QCOMPARE(Selection(), std::pair(3, 2));
        QVERIFY(Page().btnPreviousHit->isEnabled());
    }

    void AStepGivesThePaneTheFocus_data() {
        QTest::addColumn<bool>("forth");
        QTest::newRow("next") << true;
        QTest::newRow("previous") << false;
    }
    void AStepGivesThePaneTheFocus() {
        QFETCH(bool, forth);
        ShowFirst(u"deed"_qs);
        Page().btnNextHit->click();
        Page().cboQuery->setFocus();
        QVERIFY(!Pane().hasFocus());
        (forth ? Page().btnNextHit : Page().btnPreviousHit)->click();
        QVERIFY(Pane().hasFocus());
    }

    void WithNothingInFrontPreviousSetsTheLengthAlone() {
        ShowFirst(u"deed sale"_qs);
        Page().btnNextHit->click();
        QCOMPARE(Selection(), std::pair(4, 4));
        Pane().setSelStart(1);
        Page().btnPreviousHit->click();
        QCOMPARE(Selection(), std::pair(1, 4));
        Page().btnNextHit->click(); // the walk begins anew
        QCOMPARE(Selection(), std::pair(4, 4));
        QVERIFY(Page().btnPreviousHit->isEnabled());
    }

    void WhatIsLookedForIsKnownToAll() {
        QString& word = Main().Variables().CurrentSearchWord;
        word = u"before"_qs;
        Search(u"deed sale lease"_qs);
        QCOMPARE(word, u"before"_qs); // a search marks nothing yet
        Page().modeButtons[size_t(SearchMode::Any)]->click();
        ShowFirst(u"deed sale lease"_qs);
        QCOMPARE(word, u"lease"_qs); // looked for last, in vain
        Page().btnNextHit->click();
        QCOMPARE(word, u"SALE"_qs);
        Page().btnNextHit->click();
        QCOMPARE(word, u"DEED"_qs);
        Page().btnPreviousHit->click();
        QCOMPARE(word, u"SALE"_qs);
    }

    void AFormShownPlainLeavesWhatWasLookedFor() {
        Search(u"deed"_qs);
        Page().cboQuery->setText(QString());
        Main().Variables().CurrentSearchWord = u"before"_qs;
        TestWindow::ClickEntry(Page().lstSearch, 0);
        QCOMPARE(Main().Variables().CurrentSearchWord, u"before"_qs);
    }

    void TheMarkerOfAClauseGivesTheLengthToo() {
        ShowFirst(u"sale"_qs);
        Page().btnNextHit->click();
        Main().Variables().CurrentSearchWord = u"(JURAT)"_qs; // as the clause commands set it
        Page().btnPreviousHit->click();
        QCOMPARE(Selection(), std::pair(4, 7));
    }

    // The earlier result has no text then, and the scratch pane was emptied for the one that does not come.
    void ATitleWithAnApostropheBehindAListOfTitlesEmptiesThePane() {
        Search(u"heirs"_qs);
        QCOMPARE(Page().lstSearch->Items(), QStringList(u"Heir's Affidavit"_qs));
        Pane().setText(u"left alone"_qs);
        Main().rtfContent()->setText(u"left over"_qs);
        Main().SetTab(Tab::Favorites);
        Main().SetTab(Tab::Search);
        TestWindow::ClickEntry(Page().lstSearch, 0);
        QCOMPARE(Pane().Text(), QString());
    }

    void EqualTitlesStandOnceInTheResult() {
        Page().lstSearch->AddItems({u"Lease"_qs, u"Deed"_qs, u"Lease"_qs, u"lease"_qs, u"Deed"_qs});
        Main().searchCommands->RemoveDuplicateResults();
        QCOMPARE(Page().lstSearch->Items(), QStringList({u"Deed"_qs, u"Lease"_qs, u"lease"_qs}));
    }

    void BehindABrowsedListARefusedStatementFindsItsTitles() {
        Main().SetTab(Tab::FormsExplorer);
        Main().categoryBrowser->lstSubCategory->setText(u"Acknowledgments"_qs);
        const QStringList titles = Main().categoryBrowser->lstTitle->Items();
        QCOMPARE(titles.size(), 2);
        Main().SetTab(Tab::Search);
        Search(u"heir's"_qs);
        QCOMPARE(Page().lstSearch->Items(), titles);
        QCOMPARE(Page().fmeSearchResult->Caption(), u"2 Forms Found!"_qs);
    }

    void BehindAShownFormARefusedStatementFindsItsTitle() {
        Search(u"the"_qs);
        const int row = int(Page().lstSearch->Items().indexOf(u"Labor Complaint"_qs));
        QVERIFY(row > 0);
        TestWindow::ClickEntry(Page().lstSearch, row);
        Search(u"heir's"_qs);
        QCOMPARE(Page().lstSearch->Items(), QStringList(u"Labor Complaint"_qs));
        QCOMPARE(Page().fmeSearchResult->Caption(), u"1 Form Found!"_qs);
    }

    void WithoutAnEarlierResultARefusedStatementFindsNothing() {
        m_window = std::make_unique<TestWindow>(
            std::vector<TestForm>{{u"Heir's"_qs, u"Sales"_qs, u"Land"_qs, u"the heir's land"_qs}});
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::Search);
        Search(u"heir's"_qs);
        QCOMPARE(Page().lstSearch->ListCount(), 0);
        QCOMPARE(Page().fmeSearchResult->Caption(), u"No Forms Found!!"_qs);
    }
};

QTEST_MAIN(ShownResultTest)
#include "shown_result_test.moc"
