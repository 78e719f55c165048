// The Search page through its real controls.
#include "search/search_commands.h"

#include "library/category_browser.h"
#include "library/history_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/geometry.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/status_bar.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/query_box.h"
#include "search/result_blink.h"
#include "search/search_page.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::Height;
using platform::Top;

static TestForm Form(const QString& title, const QString& content) {
    return {title, u"Sales"_qs, u"Land"_qs, content};
}

static std::vector<TestForm> Forms() {
    return {
        Form(u"One"_qs, u"a deed of sale of land"_qs),
        Form(u"Two"_qs, u"a deed of lease"_qs),
        Form(u"Three"_qs, u"a wholesale contract"_qs),
        Form(u"Four"_qs, u"the sale of the deed of sale\n"_qs),
        Form(u"Five"_qs, u"an affidavit of loss"_qs),
        Form(u"Six"_qs, u"an affidavit of two persons"_qs),
        Form(u"Heir's"_qs, u"an heirloom of the heirs"_qs),
    };
}

class SearchCommandsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    SearchPage& Page() { return *Main().searchPage; }
    platform::RichTextBox& Pane() { return *Main().txtContent(); }
    QLineEdit* Query() { return Page().cboQuery->lineEdit(); }

    void Search(const QString& query) {
        Page().cboQuery->setText(query);
        QTest::mouseClick(Page().cmdSearch, Qt::LeftButton);
    }

    void Choose(SearchMode mode) { Page().modeButtons[size_t(mode)]->click(); }

    std::pair<int, int> Selection() { return {Pane().SelStart(), Pane().SelLength()}; }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>(Forms());
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::Search);
    }
    void cleanup() { m_window.reset(); }

    void TheControlsHaveTheirCaptions() {
        QCOMPARE(Page().fmeSearch->Caption(), u"Enter Word(s) / Phrase to Look For"_qs);
        QCOMPARE(Page().fmeSearchMode->Caption(), u"Search Modes:"_qs);
        QCOMPARE(Page().cmdSearch->toolTip(), u"Begin Search!"_qs);
        QCOMPARE(Page().btnPreviousHit->Caption(), u"Previous Hit"_qs);
        QCOMPARE(Page().btnNextHit->Caption(), u"Next Hit"_qs);
        QCOMPARE(Page().lblDisplayHits->text(), u"Display Hits"_qs);
    }

    void TheModeButtonsHaveTheirCaptionsAndTips_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("tip");
        const QString all = u"Find Forms with ALL the search words."_qs;
        const QString any = u"Find Forms with ANY or EITHER of the search words."_qs;
        const QString phrase = u"Find Forms containing the ENTIRE PHRASE."_qs;
        QTest::newRow("optAND") << u"All Words"_qs << all;
        QTest::newRow("optOR") << u"Any / Either"_qs << any;
        QTest::newRow("optPHRASE") << u"Phrase"_qs << phrase;
        QTest::newRow("optAND1") << u"All Words (Find Forms w/ ALL the words)"_qs << all;
        QTest::newRow("optOR1") << u"Any / Either (Find Forms w/ ANY of the words)"_qs << any;
        QTest::newRow("optPHRASE1") << u"Entire Phrase (Find Forms w/ the phrase)"_qs << phrase;
    }
    void TheModeButtonsHaveTheirCaptionsAndTips() {
        const auto* button = Main().findChild<QRadioButton*>(QLatin1String(QTest::currentDataTag()));
        QVERIFY(button);
        QTEST(button->text(), "caption");
        QTEST(button->toolTip(), "tip");
    }

    void ThePageBeginsWithoutAGuide() {
        QCOMPARE(Page().lblSearchGuide->text(), QString());
        QCOMPARE(Page().lblSearchGuide1->text(), QString());
        QVERIFY(!Page().queryBox->tmrUpdateSearchGuide->isActive());
        QCOMPARE(Page().fmeSearchResult->Caption(), u"Search Result!"_qs);
        QCOMPARE(Height(Page().fmeSearchResult), 435);
    }

    // --- modes

    void AllWordsIsTheModeAtStart() {
        QCOMPARE(Page().Mode(), SearchMode::All);
        QVERIFY(Page().twinButtons[0]->isChecked());
        QVERIFY(Page().fmeSearchMode->isVisible());
    }

    void EachPairOfModeButtonsIsKeptEqual_data() {
        QTest::addColumn<bool>("viaTwin");
        QTest::newRow("by the small button") << false;
        QTest::newRow("by its twin") << true;
    }
    void EachPairOfModeButtonsIsKeptEqual() {
        QFETCH(bool, viaTwin);
        for (size_t chosen : {1U, 2U, 0U}) {
            QTest::mouseClick(viaTwin ? Page().twinButtons[chosen] : Page().modeButtons[chosen],
                              Qt::LeftButton, Qt::NoModifier, {8, 10});
            for (size_t i = 0; i < std::size(kSearchModes); ++i) {
                QCOMPARE(Page().modeButtons[i]->isChecked(), i == chosen);
                QCOMPARE(Page().twinButtons[i]->isChecked(), i == chosen);
            }
            QVERIFY(Query()->hasFocus() || Page().cboQuery->hasFocus());
        }
    }

    void AModeButtonCleansTheQueryAndShowsItsGuide() {
        Page().cboQuery->setText(u"deed or"_qs);
        Choose(SearchMode::Any);
        QCOMPARE(Page().cboQuery->Text(), u"deed "_qs);
        QCOMPARE(Page().lblSearchGuide->text(), u"Find Forms that have ANY of the words:"_qs);
        QCOMPARE(Page().lblSearchGuide1->text(), u"DEED or "_qs);
    }

    void PhraseLeavesTheQueryAsItIs() {
        Page().cboQuery->setText(u"deed and sale"_qs);
        Choose(SearchMode::Phrase);
        QCOMPARE(Page().cboQuery->Text(), u"deed and sale"_qs);
        QCOMPARE(Page().lblSearchGuide1->text(), u"\"DEED AND SALE\""_qs);
    }

    void TheFirstCharacterTakesTheLargeModesAway() {
        QTest::keyClicks(Page().cboQuery, u"*"_qs);
        QVERIFY(Page().fmeSearchMode->isVisible());
        QTest::keyClicks(Page().cboQuery, u"d"_qs);
        QVERIFY(!Page().fmeSearchMode->isVisible());
        QCOMPARE(Page().cboQuery->Text(), u"d"_qs);
        QTRY_COMPARE(Page().lblSearchGuide1->text(), u"D"_qs);
    }

    // --- the search

    void EnterSearchesAtOnce() {
        QTest::keyClicks(Page().cboQuery, u"deed sale"_qs);
        QTest::keyClick(Page().cboQuery, Qt::Key_Return);
        QCOMPARE(Page().lstSearch->Items(), QStringList({u"Four"_qs, u"One"_qs}));
    }

    void TheModesFindTheirForms() {
        Search(u"deed sale"_qs);
        QCOMPARE(Page().lstSearch->Items(), QStringList({u"Four"_qs, u"One"_qs}));
        Choose(SearchMode::Any);
        Search(u"deed sale"_qs);
        QCOMPARE(Page().lstSearch->Items(), QStringList({u"Four"_qs, u"One"_qs, u"Three"_qs, u"Two"_qs}));
        Choose(SearchMode::Phrase);
        Search(u"DEED of Sale"_qs);
        QCOMPARE(Page().lstSearch->Items(), QStringList({u"Four"_qs, u"One"_qs}));
    }

    void ThePageIsLaidOutByTheNumberFound_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("frameHeight");
        QTest::addColumn<bool>("shown");
        QTest::addColumn<int>("listHeight");
        QTest::addColumn<int>("paneTop");
        QTest::newRow("0") << u"mortgage"_qs << u"No Forms Found!!"_qs << 435 << false << 0 << 2550;
        QTest::newRow("1") << u"lease"_qs << u"1 Form Found!"_qs << 1035 << true << 540 << 3120;
        QTest::newRow("2") << u"affidavit"_qs << u"2 Forms Found!"_qs << 1035 << true << 540 << 3120;
        QTest::newRow("3") << u"sale"_qs << u"3 Forms Found!"_qs << 1275 << true << 780 << 3420;
        QTest::newRow("5 or more") << u"of"_qs << u"6 Forms Found!"_qs << 1755 << true << 1260 << 3900;
    }
    void ThePageIsLaidOutByTheNumberFound() {
        QFETCH(QString, query);
        QFETCH(int, frameHeight);
        QFETCH(bool, shown);
        QFETCH(int, listHeight);
        QFETCH(int, paneTop);
        Search(query);
        QTEST(Page().fmeSearchResult->Caption(), "caption");
        QCOMPARE(Height(Page().fmeSearchResult), frameHeight);
        QCOMPARE(Page().lstSearch->isVisible(), shown);
        if (shown)
            QCOMPARE(Height(Page().lstSearch), listHeight);
        QCOMPARE(Top(&Pane()), paneTop);
        QCOMPARE(Main().State().SearchPaneTop, paneTop);
        const int height = Main().ScaleHeight() - paneTop - Height(Main().StatusBar1) - 175;
        QVERIFY(std::abs(Height(&Pane()) - height) <= 7);
        const int buttons = Top(Page().fmeSearchResult) + frameHeight - Height(Page().btnPreviousHit) - 20;
        QVERIFY(std::abs(Top(Page().btnPreviousHit) - buttons) <= 7);
        QCOMPARE(Top(Page().btnNextHit), Top(Page().btnPreviousHit));
        QVERIFY(std::abs(Top(Page().lblDisplayHits) - (buttons - Height(Page().lblDisplayHits))) <= 15);
        // coming back to the page brings its layout back
        Main().SetTab(Tab::EditForm);
        Main().SetTab(Tab::Search);
        QCOMPARE(Top(&Pane()), paneTop);
    }

    void AnEmptyQueryAsksForSomething() {
        Search(u"lease"_qs);
        TestWindow::ClickEntry(Page().lstSearch, 0);
        Search(QString());
        QCOMPARE(Page().fmeSearchResult->Caption(), u"Please enter something!"_qs);
        QCOMPARE(Height(Page().fmeSearchResult), 435);
        QVERIFY(!Page().lstSearch->isVisible());
        QCOMPARE(Top(&Pane()), 2580);
        QVERIFY(Page().btnNextHit->isVisible()); // left as it was
        QVERIFY(Page().resultBlink->Timer1->isActive());
        QVERIFY(Page().resultBlink->Timer2->isActive());
        QCOMPARE(Page().cboQuery->ListCount(), 1);
    }

    void AnEmptyQueryTakesTheFocusAndMovesThePaneAlone() {
        Search(u"lease"_qs);
        const int buttons = Top(Page().btnNextHit);
        const int label = Top(Page().lblDisplayHits);
        Page().cboQuery->setText(QString());
        Pane().setFocus();
        Page().cmdSearch->click();
        QVERIFY(Query()->hasFocus() || Page().cboQuery->hasFocus());
        QCOMPARE(Top(Page().btnNextHit), buttons);
        QCOMPARE(Top(Page().btnPreviousHit), buttons);
        QCOMPARE(Top(Page().lblDisplayHits), label);
        QCOMPARE(Page().lstSearch->Items(), QStringList(u"Two"_qs)); // hidden, not cleared
        const int height = Main().ScaleHeight() - 2580 - Height(Main().StatusBar1) - 175;
        QVERIFY(std::abs(Height(&Pane()) - height) <= 7);
        QCOMPARE(Main().State().SearchPaneTop, 2580);
        Main().SetTab(Tab::EditForm);
        Main().SetTab(Tab::Search);
        QCOMPARE(Top(&Pane()), 2580);
    }

    void ASearchCleansTheQueryFirst() {
        QTest::keyClicks(Page().cboQuery, u"and deed"_qs);
        QTest::keyClick(Page().cboQuery, Qt::Key_Return); // before the clean-up of its own
        QCOMPARE(Page().cboQuery->Text(), u"deed"_qs);
        QCOMPARE(Page().cboQuery->Items(), QStringList(u"deed"_qs));
        QCOMPARE(Page().lblSearchGuide1->text(), u"DEED"_qs);
        QCOMPARE(Page().lstSearch->ListCount(), 3);
    }

    void PastedSignsAreOperatorsInAnyMode() {
        Choose(SearchMode::Any);
        Search(u"deed -lease"_qs);
        QCOMPARE(Page().lstSearch->Items(), QStringList({u"Four"_qs, u"One"_qs}));
        TestWindow::ClickEntry(Page().lstSearch, 1);
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QCOMPARE(Selection(), std::pair(2, 4));
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton); // what is excluded is no hit
        QCOMPARE(Selection(), std::pair(2, 4));
    }

    void AHitHasLinesBelowItToRead() {
        m_window.reset();
        std::vector<TestForm> forms = Forms();
        forms.push_back(Form(u"Long"_qs, u"a paragraph of a long form\n"_qs.repeated(40) +
                                             u"the quitclaim\n"_qs +
                                             u"what comes behind it\n"_qs.repeated(40)));
        m_window = std::make_unique<TestWindow>(forms);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::Search);
        Search(u"quitclaim"_qs);
        TestWindow::ClickEntry(Page().lstSearch, 0);
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QCOMPARE(Pane().SelText(), u"quitclaim"_qs);
        const QRect hit = Pane().cursorRect();
        QVERIFY(hit.top() >= 0);
        QVERIFY(hit.bottom() + 3 * hit.height() <= Pane().viewport()->height());
    }

    void AQueryOfOperatorsOnlyIsEmpty() {
        Search(u"and or "_qs);
        QCOMPARE(Page().fmeSearchResult->Caption(), u"Please enter something!"_qs);
    }

    void EachQueryJoinsTheList() {
        Search(u"lease"_qs);
        Search(u"lease"_qs);
        Search(u"sale"_qs);
        QCOMPARE(Page().cboQuery->Items(), QStringList({u"lease"_qs, u"lease"_qs, u"sale"_qs}));
    }

    void ASearchHidesTheHitControlsAndKeepsThePane() {
        Search(u"lease"_qs);
        TestWindow::ClickEntry(Page().lstSearch, 0);
        QVERIFY(Page().btnNextHit->isVisible());
        Search(u"sale"_qs);
        QVERIFY(Page().btnNextHit->isHidden());
        QVERIFY(Page().btnPreviousHit->isHidden());
        QVERIFY(Page().lblDisplayHits->isHidden());
        QCOMPARE(Pane().Text(), u"a deed of lease"_qs);
        QCOMPARE(Page().lstSearch->ListIndex(), -1);
    }

    void ARefusedStatementReadsTheRowsOfTheSearchBefore() {
        Search(u"affidavit"_qs);
        QCOMPARE(Page().lstSearch->ListCount(), 2);
        Search(u"heir's"_qs); // pasted: it cannot be typed
        QCOMPARE(Page().lstSearch->Items(), QStringList({u"Five"_qs, u"Six"_qs}));
    }

    void AQueryWithoutLetterOrDigitReadsTheRowsOfTheSearchBefore() {
        Search(u"affidavit"_qs);
        Search(u"***"_qs);
        QCOMPARE(Page().lstSearch->ListCount(), 2);
        QCOMPARE(Page().fmeSearchResult->Caption(), u"2 Forms Found!"_qs);
        // the terms of the search before are gone
        TestWindow::ClickEntry(Page().lstSearch, 0);
        Pane().selectAll();
        QCOMPARE(Pane().SelBold(), std::optional(false));
    }

    void TheResultsStandInAlphabeticalOrder() {
        Search(u"of"_qs);
        QCOMPARE(Page().lstSearch->Items(),
                 QStringList({u"Five"_qs, u"Four"_qs, u"Heir's"_qs, u"One"_qs, u"Six"_qs, u"Two"_qs}));
    }

    // --- the blinking caption

    void TheCaptionBlinksAndSettles() {
        Search(u"lease"_qs);
        ResultBlink& blink = *Page().resultBlink;
        QVERIFY(QMetaObject::invokeMethod(blink.Timer1, "timeout"));
        const auto first = Page().fmeSearchResult->Look();
        QVERIFY(first);
        QCOMPARE(first->points, 10.0);
        QVERIFY(first->bold);
        QVERIFY(QMetaObject::invokeMethod(blink.Timer1, "timeout"));
        const auto second = Page().fmeSearchResult->Look();
        const QSet<QRgb> colors{first->color.rgb(), second->color.rgb()};
        QCOMPARE(colors, QSet<QRgb>({qRgb(0, 0, 255), qRgb(0, 255, 0)}));
        QVERIFY(QMetaObject::invokeMethod(blink.Timer2, "timeout"));
        const platform::Frame::CaptionLook settled{QColor(0, 0, 192), 9, false};
        QVERIFY(Page().fmeSearchResult->Look() == settled);
        QVERIFY(!blink.Timer1->isActive());
        QVERIFY(!blink.Timer2->isActive());
    }

    // --- results

    void AResultIsShownWithItsHitsMarked() {
        Search(u"deed sale"_qs);
        Main().Menu(u"mnuHelpContents"_qs)->setChecked(true);
        TestWindow::ClickEntry(Page().lstSearch, 1);
        QCOMPARE(Pane().Text(), u"a deed of sale of land"_qs);
        for (const auto& [start, length] : {std::pair(2, 4), std::pair(10, 4)}) {
            Pane().setSelStart(start);
            Pane().setSelLength(length);
            QCOMPARE(Pane().SelColor(), std::optional(QColor(0, 0, 255)));
            QCOMPARE(Pane().SelBold(), std::optional(true));
        }
        Pane().setSelStart(6);
        Pane().setSelLength(4);
        QCOMPARE(Pane().SelBold(), std::optional(false));
        QVERIFY(!Main().Menu(u"mnuHelpContents"_qs)->isChecked());
        QVERIFY(Pane().hasFocus());
        QVERIFY(Page().btnPreviousHit->isVisible());
        QVERIFY(!Page().btnPreviousHit->isEnabled());
        QVERIFY(Page().btnNextHit->isVisible());
        QVERIFY(Page().lblDisplayHits->isVisible());
        QCOMPARE(Main().historyPage->lstHistory->Items(), QStringList(u"One"_qs));
        QVERIFY(Main().State().DocumentSaved);
    }

    void TheHitsAreWalkedForthAndBack() {
        Search(u"deed sale"_qs);
        TestWindow::ClickEntry(Page().lstSearch, 0); // "the sale of the deed of sale"
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QCOMPARE(Selection(), std::pair(4, 4));
        QVERIFY(Page().btnPreviousHit->isEnabled());
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QCOMPARE(Selection(), std::pair(16, 4));
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QCOMPARE(Selection(), std::pair(24, 4));
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QCOMPARE(Selection(), std::pair(24, 4)); // no wrap-around
        QTest::mouseClick(Page().btnPreviousHit, Qt::LeftButton);
        QVERIFY(Pane().hasFocus());
    }

    void PreviousGoesToTheHitBefore() {
        Search(u"deed sale"_qs);
        TestWindow::ClickEntry(Page().lstSearch, 0);
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QTest::mouseClick(Page().btnPreviousHit, Qt::LeftButton);
        QCOMPARE(Selection(), std::pair(4, 4));
    }

    void WithTheQueryEmptiedAResultIsShownPlain() {
        Search(u"lease"_qs);
        Page().cboQuery->setText(QString());
        TestWindow::ClickEntry(Page().lstSearch, 0);
        Pane().selectAll();
        QCOMPARE(Pane().SelBold(), std::optional(false));
        QTest::mouseClick(Page().btnNextHit, Qt::LeftButton);
        QCOMPARE(Pane().SelLength(), 15); // the selection stays
    }

    void AnotherWayOfShowingAFormHidesTheHitControls() {
        Search(u"lease"_qs);
        TestWindow::ClickEntry(Page().lstSearch, 0);
        Main().SetTab(Tab::History);
        TestWindow::ClickEntry(Main().historyPage->lstHistory, 0);
        QVERIFY(Page().btnNextHit->isHidden());
    }

    void ATitleWithAnApostropheShowsTheFirstRowOfTheSearch() {
        Search(u"of"_qs);
        Page().lstSearch->setText(u"Heir's"_qs);
        QCOMPARE(Pane().Text(), u"a deed of sale of land"_qs);
        QCOMPARE(Main().historyPage->lstHistory->Items(), QStringList(u"Heir's"_qs));
    }

    void TheMarksDoNotEnterTheHistoryOfChangesOneByOne() {
        Search(u"deed sale"_qs);
        QSignalSpy changes(&Pane(), &platform::RichTextBox::Change);
        TestWindow::ClickEntry(Page().lstSearch, 0);
        QCOMPARE(changes.size(), 1);
    }

    void SearchAgainComesBackToTheQuery() {
        Search(u"lease"_qs);
        Main().SetTab(Tab::FormsExplorer);
        QTest::mouseClick(Main().categoryBrowser->cmdSearchAgain, Qt::LeftButton);
        QCOMPARE(Main().CurrentTab(), Tab::Search);
        QVERIFY(Query()->hasFocus() || Page().cboQuery->hasFocus());
        QCOMPARE(Query()->cursorPosition(), 5);
        QCOMPARE(Main().categoryBrowser->cmdSearchAgain->toolTip(), u"Go to the Search Page!"_qs);
    }
};

QTEST_MAIN(SearchCommandsTest)
#include "search_commands_test.moc"
