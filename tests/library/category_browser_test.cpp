#include "library/category_browser.h"

#include "library/category_buttons.h"
#include "library/favorites_page.h"
#include "library/history_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/search_page.h"
#include "tests/support/test_window.h"

#include <QAction>
#include <QLabel>
#include <QtTest>

using namespace quillbrook;
using platform::MyButton;

class CategoryBrowserTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    CategoryBrowser& Browser() { return *(*m_window)->categoryBrowser; }
    QString Pane() { return TestWindow::TextOf((*m_window)->txtContent()); }
    platform::ListBox& History() { return *(*m_window)->historyPage->lstHistory; }

    void Category(const QString& button) { Browser().CategoryButton(button)->click(); }
    void Title(const QString& title) { Browser().lstTitle->setText(title); }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
    }
    void cleanup() { m_window.reset(); }

    void EveryButtonHasItsCaptionAndCategory_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("category");
        const auto row = [](const char* name, const char* caption, const char* category) {
            QTest::newRow(name) << QString(QLatin1String(caption)) << QString(QLatin1String(category));
        };
        row("btnAcknowledgment", "Acknowledgment / Jurat", "Acknowledgment / Jurat");
        row("btnAffidavits", "Affidavits", "Affidavits");
        row("btnCorporateForms", "Corporate Forms", "Corporations");
        row("btnCriminalActions", "Criminal Actions", "Criminal Actions");
        row("btnGratuitousContracts", "Gratuitous Contracts", "Gratuitous Contracts");
        row("btnLaborManagement", "Labor and Management", "Labor-Management");
        row("btnLawPractice", "Law Practice", "Law Practice");
        row("btnLease", "Lease", "Lease");
        row("btnMortgages", "Mortgages", "Mortgages");
        row("btnMotions", "Motions", "Motions");
        row("btnNegotiableInstruments", "Negotiable Instruments", "Negotiable Instruments");
        row("btnPartnerships", "Partnerships", "Partnerships");
        row("btnPleadings", "Pleadings", "Pleadings");
        row("btnPowersofAttorney", "Powers of Attorney", "Power of Attorney");
        row("btnSales", "Sales", "Sales");
        row("btnSpecialContracts", "Special Contracts", "Special Contracts");
        row("btnMyForms", "My Forms", "My Forms");
    }
    void EveryButtonHasItsCaptionAndCategory() {
        QFETCH(QString, caption);
        const MyButton* button = Browser().CategoryButton(QLatin1String(QTest::currentDataTag()));
        QVERIFY(button);
        QCOMPARE(button->Caption(), caption);
        Category(button->objectName());
        QTEST((*m_window)->State().CurrentCategory, "category");
    }

    void ThePageHasItsHeadings() {
        QCOMPARE(Browser().lblQuillbrook->text(), u"Forms Explorer"_qs);
        QCOMPARE(Browser().fmeSubject->Caption(), u"Click Category:"_qs);
        QCOMPARE(Browser().fmeSubCategory->Caption(), u"Select Sub-Category:"_qs);
        QCOMPARE(Browser().fmeTitle->Caption(), u"Click Title to Display:"_qs);
        QCOMPARE((*m_window)->searchPage->lblSearch->text(), u"Advanced Search"_qs);
        QCOMPARE((*m_window)->favoritesPage->lblFavorites->text(), u"My Favorite Forms"_qs);
        QCOMPARE((*m_window)->historyPage->lblHistory->text(), u"Recently Opened Forms"_qs);
    }

    void ExactlyOneButtonIsPressedAfterAnyClick() {
        for (const auto& clicked : kCategoryButtons) {
            Category(QLatin1String(clicked.name));
            for (const auto& other : kCategoryButtons)
                QCOMPARE(Browser().CategoryButton(QLatin1String(other.name))->Value(), &other == &clicked);
        }
    }

    void ClearingTakesThePressedStateFromAll() {
        Browser().ClearCategoryButtons();
        for (const auto& row : kCategoryButtons)
            QVERIFY(!Browser().CategoryButton(QLatin1String(row.name))->Value());
    }

    void ACategoryListsItsSubCategoriesOnceAndTheTitlesOfTheFirst() {
        Category(u"btnAffidavits"_qs);
        QCOMPARE(Browser().lstSubCategory->Items(), QStringList(u"Loss"_qs));
        QCOMPARE(Browser().lstSubCategory->ListIndex(), 0);
        QCOMPARE(Browser().lstTitle->Items(), QStringList({u"Affidavit of Loss"_qs, u"Heir's Affidavit"_qs}));
        QCOMPARE(Browser().lstTitle->ListIndex(), -1);
    }

    void CategoriesWhoseTextDiffersFromTheirCaptionsListTheirForms() {
        Category(u"btnPowersofAttorney"_qs);
        QCOMPARE(Browser().lstTitle->Items(), QStringList(u"Special Power"_qs));
        Category(u"btnLaborManagement"_qs);
        QCOMPARE(Browser().lstTitle->Items(), QStringList(u"Labor Complaint"_qs));
        Category(u"btnCorporateForms"_qs);
        QCOMPARE(Browser().lstTitle->Items(), QStringList(u"Secretary Certificate"_qs));
    }

    void ThePressedButtonClickedAgainRefillsTheListsAndTheTitleIsNoLongerSelected() {
        Title(u"Second Acknowledgment"_qs);
        Browser().lstSubCategory->setText(u"Jurats"_qs);
        Category(u"btnAcknowledgment"_qs);
        QCOMPARE(Browser().lstSubCategory->Text(), u"Acknowledgments"_qs);
        QCOMPARE(Browser().lstTitle->ListCount(), 2);
        QCOMPARE(Browser().lstTitle->Text(), QString());
    }

    void ASubCategoryListsItsTitlesAndThePaneKeepsItsText() {
        Title(u"Acknowledgment Alone"_qs);
        Browser().lstSubCategory->setText(u"Jurats"_qs);
        QCOMPARE(Browser().lstTitle->Items(), QStringList(u"Jurat Alone"_qs));
        QCOMPARE(Pane(), u"BEFORE ME"_qs);
    }

    void ASubCategoryWithAnApostropheListsWhatWasReadBefore() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back({u"Sale to the Buyer"_qs, u"Sales"_qs, u"Buyer's"_qs, u"one"_qs});
        forms.push_back({u"Sale of Land"_qs, u"Sales"_qs, u"Land"_qs, u"two"_qs});
        m_window = std::make_unique<TestWindow>(forms);
        Category(u"btnSales"_qs);
        QCOMPARE(Browser().lstSubCategory->Items(), QStringList({u"Buyer's"_qs, u"Land"_qs}));
        QCOMPARE(Browser().lstTitle->Items(), QStringList()); // the result before has no titles
        Browser().lstSubCategory->setListIndex(1);
        Browser().lstSubCategory->setListIndex(0);
        QCOMPARE(Browser().lstTitle->Items(), QStringList(u"Sale of Land"_qs));
        QVERIFY(m_window->services.messageBox.shown.empty());
    }

    void ASubCategoryEmptiesTheQuery() {
        platform::ComboBox* query = (*m_window)->searchPage->cboQuery;
        query->setText(u"lease contract"_qs);
        Browser().lstSubCategory->setListIndex(1);
        QCOMPARE(query->Text(), QString());
    }

    void ATitleBringsItsFormIntoThePaneAndIntoTheHistory() {
        Title(u"Second Acknowledgment"_qs);
        QCOMPARE(Pane(), u"BEFORE ME, a notary"_qs);
        QCOMPARE(History().Items(), QStringList(u"Second Acknowledgment"_qs));
    }

    void ATitleReplacesWhatStandsInThePaneAtOnce() {
        (*m_window)->txtContent()->setText(u"typed by the user"_qs);
        Title(u"Acknowledgment Alone"_qs);
        QCOMPARE(Pane(), u"BEFORE ME"_qs);
        QVERIFY(m_window->services.messageBox.shown.empty());
    }

    void ATitleClickedThreeTimesStandsThreeTimesInTheHistory() {
        for (int i = 0; i < 3; ++i)
            Title(u"Acknowledgment Alone"_qs);
        QCOMPARE(History().ListCount(), 3);
        (*m_window)->SetTab(Tab::History);
        QCOMPARE(History().ListCount(), 1);
    }

    void ATitleTakesTheCheckMarkFromTheHelpEntryAndHidesTheHitButtons() {
        (*m_window)->Menu(u"mnuHelpContents"_qs)->setChecked(true);
        (*m_window)->searchPage->btnNextHit->show();
        Title(u"Acknowledgment Alone"_qs);
        QVERIFY(!(*m_window)->Menu(u"mnuHelpContents"_qs)->isChecked());
        QVERIFY((*m_window)->searchPage->btnNextHit->isHidden());
    }

    void ATitleWithAnApostropheAfterAListShowsNothingNewButEntersTheHistory() {
        Title(u"Acknowledgment Alone"_qs);
        Category(u"btnAffidavits"_qs);
        Title(u"Heir's Affidavit"_qs);
        QCOMPARE(Pane(), u"BEFORE ME"_qs);
        QCOMPARE(History().Items(), QStringList({u"Acknowledgment Alone"_qs, u"Heir's Affidavit"_qs}));
        QVERIFY(m_window->services.messageBox.shown.empty());
    }

    void ATitleWithAnApostropheAfterAFormBringsTheEarlierFormAgain() {
        Category(u"btnAffidavits"_qs);
        Title(u"Affidavit of Loss"_qs);
        (*m_window)->txtContent()->setText(u"changed"_qs);
        Title(u"Heir's Affidavit"_qs);
        QCOMPARE(Pane(), u"I lost it"_qs);
    }

    void ATitleReadsAgainFromTheLibrary() {
        Title(u"Acknowledgment Alone"_qs);
        const QString first = (*m_window)->txtContent()->TextRTF();
        Title(u"Second Acknowledgment"_qs);
        Title(u"Acknowledgment Alone"_qs);
        QCOMPARE((*m_window)->txtContent()->TextRTF(), first);
    }

    void WithoutASelectedTitleOnlyTheHitButtonsGo() {
        (*m_window)->txtContent()->setText(u"stays"_qs);
        (*m_window)->rtfContent()->setText(u"left alone"_qs);
        for (QWidget* control : {static_cast<QWidget*>((*m_window)->searchPage->btnPreviousHit),
                                 static_cast<QWidget*>((*m_window)->searchPage->btnNextHit),
                                 static_cast<QWidget*>((*m_window)->searchPage->lblDisplayHits)})
            control->show();
        Browser().DisplaySelectedTitle();
        QCOMPARE((*m_window)->txtContent()->Text(), u"stays"_qs);
        QCOMPARE((*m_window)->rtfContent()->Text(), u"left alone"_qs);
        QCOMPARE(History().ListCount(), 0);
        QVERIFY((*m_window)->searchPage->btnPreviousHit->isHidden());
        QVERIFY((*m_window)->searchPage->btnNextHit->isHidden());
        QVERIFY((*m_window)->searchPage->lblDisplayHits->isHidden());
    }

    void TheScratchPaneIsResetByEachTitle() {
        (*m_window)->rtfContent()->setText(u"left over"_qs);
        Title(u"Acknowledgment Alone"_qs);
        QCOMPARE((*m_window)->rtfContent()->Text(), QString());
        QCOMPARE((*m_window)->rtfContent()->SelFontSize(), std::optional(10.0));
        QCOMPARE((*m_window)->rtfContent()->SelBold(), std::optional(false));
        QCOMPARE((*m_window)->rtfContent()->SelColor(), std::optional(QColor(Qt::black)));
    }

    void AnEmptyCategoryAsksForAForm_data() {
        QTest::addColumn<QString>("button");
        QTest::newRow("the user's own") << u"btnMyForms"_qs;
        QTest::newRow("any other") << u"btnLease"_qs;
    }
    void AnEmptyCategoryAsksForAForm() {
        QFETCH(QString, button);
        Category(button);
        const auto& shown = m_window->services.messageBox.shown;
        QCOMPARE(shown.size(), size_t(1));
        QCOMPARE(shown[0].text, u"Would you like to add a new Form to your Collection?   "_qs);
        QCOMPARE(shown[0].title, u"Quillbrook PRO"_qs);
        QCOMPARE(shown[0].buttons, platform::MessageButtons::YesNo);
        QCOMPARE(shown[0].icon, platform::MessageIcon::Question);
    }

    void NoToTheQuestionKeepsTheTitlesOfTheLastCategory() {
        Title(u"Second Acknowledgment"_qs);
        (*m_window)->searchPage->cboQuery->setText(u"lease contract"_qs);
        Category(u"btnMyForms"_qs);
        QCOMPARE(Browser().lstSubCategory->ListCount(), 0);
        QCOMPARE(Browser().lstTitle->ListCount(), 2);
        QCOMPARE(Browser().lstTitle->Text(), u"Second Acknowledgment"_qs);
        QCOMPARE((*m_window)->searchPage->cboQuery->Text(), u"lease contract"_qs);
        QCOMPARE(Pane(), u"BEFORE ME, a notary"_qs);
        QCOMPARE((*m_window)->CurrentTab(), Tab::FormsExplorer);
    }

    void YesToTheQuestionBeginsANewForm() {
        m_window->services.messageBox.answer = platform::MessageAnswer::Yes;
        Browser().DisplayMyForms();
        QCOMPARE((*m_window)->CurrentTab(), Tab::MyForms);
        QVERIFY((*m_window)->State().NewFormMode);
    }

    void OwnFormsAreListedByTheirButton() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back({u"My Deed"_qs, u"My Forms"_qs, u"Deeds"_qs, u"text of mine"_qs});
        m_window = std::make_unique<TestWindow>(forms);
        Browser().DisplayMyForms();
        QVERIFY(Browser().btnMyForms->Value());
        QCOMPARE(Browser().lstSubCategory->Items(), QStringList(u"Deeds"_qs));
        Title(u"My Deed"_qs);
        QCOMPARE(Pane(), u"text of mine"_qs);
    }

    void PointingAtAListShowsTheEntryAndBelowTheLastOneTheProgramsName_data() {
        QTest::addColumn<QString>("list");
        QTest::newRow("lstTitle") << u"lstTitle"_qs;
        QTest::newRow("lstSubCategory") << u"lstSubCategory"_qs;
    }
    void PointingAtAListShowsTheEntryAndBelowTheLastOneTheProgramsName() {
        QFETCH(QString, list);
        QVERIFY(m_window->Show());
        auto* box = (*m_window)->findChild<platform::ListBox*>(list);
        const auto point = [&](const QPoint& place) {
            QTest::mouseMove((*m_window)->windowHandle(), box->viewport()->mapTo(&**m_window, place));
        };
        point(box->visualRect(box->model()->index(1, 0)).center());
        QTRY_COMPARE((*m_window)->windowTitle(), box->List(1));
        point({20, box->viewport()->height() - 4});
        QTRY_COMPARE((*m_window)->windowTitle(), u"Quillbrook"_qs);
    }

    void LeavingThePageAndComingBackKeepsListsAndSelection() {
        Title(u"Second Acknowledgment"_qs);
        (*m_window)->SetTab(Tab::Favorites);
        (*m_window)->SetTab(Tab::FormsExplorer);
        QCOMPARE(Browser().lstTitle->Text(), u"Second Acknowledgment"_qs);
        QCOMPARE(Browser().lstSubCategory->Text(), u"Acknowledgments"_qs);
    }
};

QTEST_MAIN(CategoryBrowserTest)
#include "category_browser_test.moc"
