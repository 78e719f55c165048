#include "library/category_browser.h"
#include "library/favorites_page.h"
#include "library/history_page.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/search_page.h"
#include "tests/support/test_window.h"

#include <QAction>
#include <QLabel>
#include <QtTest>

using namespace quillbrook;

class FavoritesAndHistoryTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    FavoritesPage& Favorites() { return *Main().favoritesPage; }
    HistoryPage& History() { return *Main().historyPage; }
    CategoryBrowser& Browser() { return *Main().categoryBrowser; }
    ScriptedMessageBox& Box() { return m_window->services.messageBox; }

    void VerifyMessage(const QString& text) {
        QCOMPARE(Box().shown.size(), size_t(1));
        QCOMPARE(Box().shown[0].text, text);
        QCOMPARE(Box().shown[0].title, u"No Form Selected"_qs);
        QCOMPARE(Box().shown[0].icon, platform::MessageIcon::Information);
        QCOMPARE(Box().shown[0].buttons, platform::MessageButtons::Ok);
    }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
    }
    void cleanup() { m_window.reset(); }

    void TheButtonsHaveTheirCaptionsAndTips_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("tip");
        const QString add = u"Add the Highlighted Form to My Favorites!"_qs;
        QTest::newRow("cmdAddtoFavs") << u"Favorite"_qs << add;
        QTest::newRow("cmdAddtoFavs2") << u"Favorite"_qs << add;
        QTest::newRow("cmdRemove") << u"Remove"_qs << u"Remove the Highlighted Form from My Favorites!"_qs;
        QTest::newRow("cmdClearHist") << u"Clear"_qs << u"Clear the History List!"_qs;
    }
    void TheButtonsHaveTheirCaptionsAndTips() {
        const auto* button = Main().findChild<platform::MyButton*>(QLatin1String(QTest::currentDataTag()));
        QVERIFY(button);
        QTEST(button->Caption(), "caption");
        QTEST(button->toolTip(), "tip");
    }

    void ThePagesHaveTheirHeadings() {
        QCOMPARE(Favorites().lblFavorites->text(), u"My Favorite Forms"_qs);
        QCOMPARE(History().lblHistory->text(), u"Recently Opened Forms"_qs);
    }

    void TheFavouritesStandInAlphabeticalOrder() {
        for (const QString& title : {u"Special Power"_qs, u"Affidavit of Loss"_qs, u"Labor Complaint"_qs})
            Main().Store().SetFavorite(title, 1);
        Main().SetTab(Tab::Favorites);
        QCOMPARE(Favorites().lstFavorites->Items(),
                 QStringList({u"Affidavit of Loss"_qs, u"Labor Complaint"_qs, u"Special Power"_qs}));
    }

    // Its form cannot be looked up: the pane keeps its text, and the title enters the history all the same.
    void AFavouriteWithAnApostropheEntersTheHistoryAndLeavesThePane() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back({u"Heir's Waiver"_qs, u"Affidavits"_qs, u"Loss"_qs, u"We waive"_qs, 1});
        m_window = std::make_unique<TestWindow>(forms);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::Favorites);
        History().cmdClearHist->click();
        Main().txtContent()->setText(u"left alone"_qs);
        TestWindow::ClickEntry(Favorites().lstFavorites, 0);
        QCOMPARE(TestWindow::TextOf(Main().txtContent()), u"left alone"_qs);
        QCOMPARE(History().lstHistory->Items(), QStringList(u"Heir's Waiver"_qs));
        Favorites().cmdRemove->click(); // marks no row, and says nothing
        QVERIFY(Box().shown.empty());
        QCOMPARE(Favorites().lstFavorites->Items(), QStringList(u"Heir's Waiver"_qs));
    }

    void AFavouriteIsOnTheListWhenItsPageIsNextChosen() {
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        Browser().cmdAddtoFavs->click();
        QVERIFY(Box().shown.empty());
        QCOMPARE(Favorites().lstFavorites->ListCount(), 0);
        Main().SetTab(Tab::Favorites);
        QCOMPARE(Favorites().lstFavorites->Items(), QStringList(u"Acknowledgment Alone"_qs));
    }

    void AFavouriteAddedAgainStaysOnTheListOnce() {
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        Browser().cmdAddtoFavs->click();
        Browser().cmdAddtoFavs->click();
        Main().SetTab(Tab::Favorites);
        QCOMPARE(Favorites().lstFavorites->ListCount(), 1);
    }

    void WithoutASelectedTitleTheFavouriteButtonAsks_data() {
        QTest::addColumn<int>("tab");
        QTest::newRow("cmdAddtoFavs") << 0;
        QTest::newRow("cmdAddtoFavs2") << 4;
    }
    void WithoutASelectedTitleTheFavouriteButtonAsks() {
        QFETCH(int, tab);
        Main().SetTab(Tab(tab));
        Main().txtContent()->setFocus();
        Main().findChild<platform::MyButton*>(QLatin1String(QTest::currentDataTag()))->click();
        VerifyMessage(u"Please Select a Form to Add to the Favorites List!   "_qs);
        QVERIFY(tab == 0 ? Browser().lstTitle->hasFocus() : History().lstHistory->hasFocus());
    }

    void AFormOfTheHistoryBecomesAFavourite() {
        Browser().lstTitle->setText(u"Second Acknowledgment"_qs);
        Main().SetTab(Tab::History);
        TestWindow::ClickEntry(History().lstHistory, 0);
        History().cmdAddtoFavs2->click();
        Main().SetTab(Tab::Favorites);
        QCOMPARE(Favorites().lstFavorites->Items(), QStringList(u"Second Acknowledgment"_qs));
    }

    void RemovingLeavesNothingSelectedAndASecondClickAsks() {
        Main().Store().SetFavorite(u"Special Power"_qs, 1);
        Main().Store().SetFavorite(u"Affidavit of Loss"_qs, 1);
        Main().SetTab(Tab::Favorites);
        TestWindow::ClickEntry(Favorites().lstFavorites, 0);
        Favorites().cmdRemove->click();
        QCOMPARE(Favorites().lstFavorites->Items(), QStringList(u"Special Power"_qs));
        QCOMPARE(Favorites().lstFavorites->ListIndex(), -1);
        QCOMPARE(TestWindow::TextOf(Main().txtContent()), u"I lost it"_qs); // the form stays on the screen
        QCOMPARE(History().lstHistory->Items(), QStringList(u"Affidavit of Loss"_qs));
        QVERIFY(Box().shown.empty());
        Favorites().cmdRemove->click();
        VerifyMessage(u"Click the Form to Remove from the Favorites List!   "_qs);
        QVERIFY(Favorites().lstFavorites->hasFocus());
    }

    void AFavouriteShowsItsFormAndEntersTheHistory() {
        Main().Store().SetFavorite(u"Special Power"_qs, 1);
        Main().SetTab(Tab::Favorites);
        Main().Menu(u"mnuHelpContents"_qs)->setChecked(true);
        Main().searchPage->btnNextHit->show();
        Main().rtfContent()->setText(u"left over"_qs);
        TestWindow::ClickEntry(Favorites().lstFavorites, 0);
        QCOMPARE(TestWindow::TextOf(Main().txtContent()), u"KNOW ALL MEN"_qs);
        QCOMPARE(Main().CurrentTab(), Tab::Favorites);
        QVERIFY(!Main().Menu(u"mnuHelpContents"_qs)->isChecked());
        QVERIFY(Main().searchPage->btnNextHit->isHidden());
        QCOMPARE(Main().rtfContent()->Text(), QString());
        QVERIFY(Main().txtContent()->hasFocus());
        TestWindow::ClickEntry(Favorites().lstFavorites, 0);
        QCOMPARE(History().lstHistory->ListCount(), 2); // until its page is next chosen
        Main().SetTab(Tab::History);
        QCOMPARE(History().lstHistory->Items(), QStringList(u"Special Power"_qs));
    }

    void ATitleOpenedFiveTimesStandsOnceWhenThePageIsChosen() {
        for (int i = 0; i < 5; ++i)
            Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        QCOMPARE(History().lstHistory->ListCount(), 5);
        Main().SetTab(Tab::History);
        QCOMPARE(History().lstHistory->ListCount(), 1);
    }

    void AnEntryOfTheHistoryShowsItsFormAndTheListDoesNotGrow() {
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        Browser().lstTitle->setText(u"Second Acknowledgment"_qs);
        Main().SetTab(Tab::History);
        Main().rtfContent()->setText(u"left alone"_qs);
        Main().Menu(u"mnuHelpContents"_qs)->setChecked(true);
        TestWindow::ClickEntry(History().lstHistory, 0);
        QCOMPARE(TestWindow::TextOf(Main().txtContent()), u"BEFORE ME"_qs);
        QCOMPARE(History().lstHistory->ListCount(), 2);
        QCOMPARE(Main().rtfContent()->Text(), u"left alone"_qs);
        QCOMPARE(Main().CurrentTab(), Tab::History);
        QVERIFY(!Main().Menu(u"mnuHelpContents"_qs)->isChecked());
        QVERIFY(Main().txtContent()->hasFocus());
    }

    void TheHistoryKeepsTheOrderOfTheFirstOpenings() {
        for (const QString& title :
             {u"Second Acknowledgment"_qs, u"Acknowledgment Alone"_qs, u"Second Acknowledgment"_qs})
            Browser().lstTitle->setText(title);
        Main().SetTab(Tab::History);
        QCOMPARE(History().lstHistory->Items(),
                 QStringList({u"Second Acknowledgment"_qs, u"Acknowledgment Alone"_qs}));
    }

    void TheChosenEntryStaysChosenWhenRepeatsGo() {
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        Browser().lstTitle->setText(u"Second Acknowledgment"_qs);
        Main().SetTab(Tab::History);
        TestWindow::ClickEntry(History().lstHistory, 1);
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        Main().SetTab(Tab::FormsExplorer);
        Main().SetTab(Tab::History);
        QCOMPARE(History().lstHistory->ListCount(), 2);
        QCOMPARE(History().lstHistory->Text(), u"Second Acknowledgment"_qs);
        // it was not chosen anew, and the button finds it
        QCOMPARE(TestWindow::TextOf(Main().txtContent()), u"BEFORE ME"_qs);
        History().cmdAddtoFavs2->click();
        QVERIFY(Box().shown.empty());
        QCOMPARE(Main().Store().ListFavorites(), QStringList(u"Second Acknowledgment"_qs));
    }

    void AChosenRepeatGoesAndNothingIsChosen() {
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        Main().SetTab(Tab::History);
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        TestWindow::ClickEntry(History().lstHistory, 1);
        Main().SetTab(Tab::Favorites);
        Main().SetTab(Tab::History);
        QCOMPARE(History().lstHistory->ListCount(), 1);
        QCOMPARE(History().lstHistory->ListIndex(), -1);
    }

    void ClearingAsksNothing() {
        Main().SetTab(Tab::History);
        History().cmdClearHist->click();
        Browser().lstTitle->setText(u"Acknowledgment Alone"_qs);
        History().cmdClearHist->click();
        QCOMPARE(History().lstHistory->ListCount(), 0);
        QVERIFY(Box().shown.empty());
    }

    void OwnFormsOpenedOnTheirPageDoNotEnterTheHistory() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back({u"Mine"_qs, u"My Forms"_qs, u"Letters"_qs, u"text"_qs});
        m_window = std::make_unique<TestWindow>(forms);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::MyForms);
        QCOMPARE(History().lstHistory->ListCount(), 0);
    }

    void FavouritesSurviveARestartAndTheHistoryDoesNot() {
        TestLibrary library(SomeForms());
        {
            TestWindow window(library.Folder());
            window->categoryBrowser->lstTitle->setText(u"Acknowledgment Alone"_qs);
            window->categoryBrowser->cmdAddtoFavs->click();
        }
        TestWindow window(library.Folder());
        window->SetTab(Tab::Favorites);
        QCOMPARE(window->favoritesPage->lstFavorites->Items(), QStringList(u"Acknowledgment Alone"_qs));
        QCOMPARE(window->historyPage->lstHistory->ListCount(), 0);
    }

    void ATitleWithAnApostropheIsNotMarkedAndNothingIsSaid() {
        Browser().CategoryButton(u"btnAffidavits"_qs)->click();
        Browser().lstTitle->setText(u"Heir's Affidavit"_qs);
        Browser().cmdAddtoFavs->click();
        QVERIFY(Box().shown.empty());
        Main().SetTab(Tab::Favorites);
        QCOMPARE(Favorites().lstFavorites->ListCount(), 0);
    }
};

QTEST_MAIN(FavoritesAndHistoryTest)
#include "favorites_and_history_test.moc"
