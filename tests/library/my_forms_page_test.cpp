// The My Forms page as its table of states and events, and its messages word for word.
#include "library/my_forms_page.h"

#include "editor/edit_tool_bar.h"
#include "editor/undo_commands.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/search_page.h"
#include "tests/support/my_forms_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;
using platform::MyButton;

class MyFormsPageTest : public QObject, MyFormsDesk {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_window.reset(); }

    void TheButtonsHaveTheirCaptionsAndTips_data() {
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("tip");
        QTest::newRow("btnNew") << u"New"_qs << u"Make New Form"_qs;
        QTest::newRow("btnEdit") << u"Edit"_qs << u"Edit Title & Category"_qs;
        QTest::newRow("btnAddNew") << u"Add"_qs << u"Add Form to the Collection"_qs;
        QTest::newRow("btnUpdate") << u"Update"_qs << u"Update / Save Changes to the Current Form"_qs;
        QTest::newRow("btnCancelNew") << u"Cancel"_qs << u"Cancel New Form"_qs;
        QTest::newRow("btnDelete") << u"Delete"_qs << u"Delete Current Form from the Collection"_qs;
    }
    void TheButtonsHaveTheirCaptionsAndTips() {
        TestWindow window;
        const auto* button = window->findChild<MyButton*>(QLatin1String(QTest::currentDataTag()));
        QVERIFY(button);
        QTEST(button->Caption(), "caption");
        QTEST(button->toolTip(), "tip");
    }

    void TheFramesHaveTheirCaptions() {
        TestWindow window;
        QCOMPARE(window->myFormsPage->frmSubCategory->Caption(), u"Click Category:"_qs);
        QCOMPARE(window->myFormsPage->fmeMyTitle->Caption(), u"Click Title:"_qs);
        QCOMPARE(window->myFormsPage->Frame5->Caption(), u"My Form's Category:"_qs);
        QCOMPARE(window->myFormsPage->Frame6->Caption(), u"My Form's Title:"_qs);
    }

    // --- transitions

    void EditDoubleClickAndAClickIntoThePaneShowTheFields_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("btnEdit") << 0;
        QTest::newRow("a double click on a title") << 1;
        QTest::newRow("a click into the pane") << 2;
    }
    void EditDoubleClickAndAClickIntoThePaneShowTheFields() {
        QFETCH(int, way);
        GoTo(MyFormsMode::Browsing);
        if (way == 0) {
            QTest::mouseClick(Page().btnEdit, Qt::LeftButton);
        } else if (way == 1) {
            platform::ListBox* list = Page().lstMyTitle;
            const QPoint first = list->visualRect(list->model()->index(0, 0)).center();
            QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, first);
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, first);
        } else {
            QTest::mouseClick(Pane().viewport(), Qt::LeftButton, Qt::NoModifier, {80, 40});
        }
        Verify(MyFormsMode::Editing);
        if (way == 0) // and not on the next button, which asks to save
            QVERIFY(HasFocus(Page().txtMyTitle));
    }

    void NewBeginsComposing_data() {
        QTest::addColumn<MyFormsMode>("from");
        QTest::newRow("browsing") << MyFormsMode::Browsing;
        QTest::newRow("editing") << MyFormsMode::Editing;
        QTest::newRow("empty") << MyFormsMode::Empty;
        QTest::newRow("composing") << MyFormsMode::Composing;
    }
    void NewBeginsComposing() {
        QFETCH(MyFormsMode, from);
        GoTo(from);
        Main().State().DocumentSaved = false;
        QTest::mouseClick(Page().btnNew, Qt::LeftButton);
        QVERIFY(!Main().State().DocumentSaved); // what was typed before is not saved by it
        Verify(MyFormsMode::Composing);
        QCOMPARE(Page().txtMyTitle->text(), QString());
        QCOMPARE(Page().cboMySubCategory->Text(), QString());
        QCOMPARE(Page().cboMySubCategory->ListCount(), from == MyFormsMode::Empty ? 0 : 2);
        QCOMPARE(Pane().Text(), QString());
        QCOMPARE(Pane().SelFontName(), std::optional(u"Times New Roman"_qs));
        QCOMPARE(Pane().SelFontSize(), std::optional(12.0));
        QCOMPARE(Main().editToolBar->cboFonts->Text(), u"Times New Roman"_qs);
        QCOMPARE(Main().editToolBar->cboFontSize->Text(), u"12"_qs);
        QVERIFY(HasFocus(Page().txtMyTitle));
        NothingToUndo();
    }

    void AClickWhileComposingKeepsItsButtons() {
        GoTo(MyFormsMode::Composing);
        QTest::mouseClick(Pane().viewport(), Qt::LeftButton, Qt::NoModifier, {80, 40});
        Verify(MyFormsMode::Composing);
    }

    void AClickIntoThePaneOfAnEmptyCollectionChangesNothing() {
        GoTo(MyFormsMode::Empty);
        QTest::mouseClick(Pane().viewport(), Qt::LeftButton, Qt::NoModifier, {80, 40});
        Verify(MyFormsMode::Empty);
    }

    void ATitleShowsItsForm() {
        GoTo(MyFormsMode::Browsing);
        TestWindow::ClickEntry(Page().lstMyTitle, 1);
        Verify(MyFormsMode::Browsing);
        QCOMPARE(Page().txtMyTitle->text(), u"Board Paper"_qs);
        QCOMPARE(Page().cboMySubCategory->Text(), u"Corporate"_qs);
        QCOMPARE(Pane().Text(), u"Text of Board Paper"_qs);
        QVERIFY(HasFocus(&Pane()));
        NothingToUndo();
        QCOMPARE(Main().undoCommands->MyHistory().Index(), 1);
    }

    void ASubCategoryShowsItsFirstForm() {
        GoTo(MyFormsMode::Browsing);
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        Verify(MyFormsMode::Browsing);
        QCOMPARE(Page().lstMyTitle->Items(), QStringList(u"Zoning Clearance"_qs));
        QCOMPARE(Pane().Text(), u"Text of Zoning Clearance"_qs);
    }

    void AnotherSubCategoryKeepsTheEditsOfTheFormOnDisplay() {
        GoTo(MyFormsMode::Editing);
        Page().txtMyTitle->setText(u"Annual Report 2026"_qs);
        Pane().setText(u"changed"_qs);
        Main().State().DocumentSaved = false;
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        Verify(MyFormsMode::Browsing);
        QVERIFY(Box().shown.empty());
        QVERIFY(!Main().State().DocumentSaved); // leaving still asks
        TestWindow::ClickEntry(Page().lstMySubCategory, 0);
        QCOMPARE(Page().lstMyTitle->Items(), QStringList({u"Annual Report 2026"_qs, u"Board Paper"_qs}));
        QCOMPARE(Pane().Text(), u"changed"_qs);
    }

    void AnotherSubCategoryWithAnEmptyTitleSavesNothing() {
        GoTo(MyFormsMode::Editing);
        Page().txtMyTitle->clear();
        Pane().setText(u"changed"_qs);
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        TestWindow::ClickEntry(Page().lstMySubCategory, 0);
        QCOMPARE(Pane().Text(), u"Text of Annual Report"_qs);
    }

    void UpdateStoresOnYesAndDiscardsOnNo_data() {
        QTest::addColumn<MyFormsMode>("from");
        QTest::addColumn<bool>("yes");
        QTest::newRow("browsing, yes") << MyFormsMode::Browsing << true;
        QTest::newRow("browsing, no") << MyFormsMode::Browsing << false;
        QTest::newRow("editing, yes") << MyFormsMode::Editing << true;
        QTest::newRow("editing, no") << MyFormsMode::Editing << false;
    }
    void UpdateStoresOnYesAndDiscardsOnNo() {
        QFETCH(MyFormsMode, from);
        QFETCH(bool, yes);
        GoTo(from);
        Pane().setText(u"changed"_qs);
        Main().State().DocumentSaved = false;
        Box().answer = yes ? MessageAnswer::Yes : MessageAnswer::No;
        Page().btnUpdate->click();
        VerifyOneMessage(u"Save Changes to the Current Form?   "_qs, platform::MessageButtons::YesNo);
        Verify(MyFormsMode::Browsing);
        QCOMPARE(Pane().Text(), yes ? u"changed"_qs : u"Text of Annual Report"_qs);
        QCOMPARE(Main().State().DocumentSaved, yes);
        NothingToUndo();
        QCOMPARE(Main().undoCommands->MyHistory().Index(), 0);
    }

    void UpdateAndDeleteShowTheFirstFormWhicheverWasOnDisplay_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("yes");
        QTest::newRow("update, yes") << u"btnUpdate"_qs << true;
        QTest::newRow("update, no") << u"btnUpdate"_qs << false;
        QTest::newRow("delete") << u"btnDelete"_qs << true;
    }
    void UpdateAndDeleteShowTheFirstFormWhicheverWasOnDisplay() {
        QFETCH(QString, button);
        QFETCH(bool, yes);
        std::vector<TestForm> forms = WithOwnForms();
        forms.push_back(Own(u"Lot Survey"_qs, u"Land"_qs));
        Open(forms);
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        TestWindow::ClickEntry(Page().lstMyTitle, 1);
        Box().answer = yes ? MessageAnswer::Yes : MessageAnswer::No;
        Main().findChild<MyButton*>(button)->click();
        QCOMPARE(Page().lstMySubCategory->Text(), u"Corporate"_qs);
        QCOMPARE(Page().lstMyTitle->Text(), u"Annual Report"_qs);
        QCOMPARE(Pane().Text(), u"Text of Annual Report"_qs);
    }

    void UpdateUnderANewSubCategoryMovesTheForm() {
        GoTo(MyFormsMode::Browsing);
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        Page().btnEdit->click();
        Page().cboMySubCategory->setText(u"Agrarian"_qs);
        Box().answer = MessageAnswer::Yes;
        Page().btnUpdate->click();
        QCOMPARE(Page().lstMySubCategory->Items(), QStringList({u"Agrarian"_qs, u"Corporate"_qs}));
        QCOMPARE(Page().cboMySubCategory->Items(), QStringList({u"Agrarian"_qs, u"Corporate"_qs}));
    }

    void UpdateWhileBrowsingStoresTheFieldsBehindTheFrame() {
        GoTo(MyFormsMode::Browsing);
        Page().txtMyTitle->setText(u"A New Name"_qs);
        Box().answer = MessageAnswer::Yes;
        Page().btnUpdate->click();
        QVERIFY(Page().lstMyTitle->Items().contains(u"A New Name"_qs));
    }

    void ARefusedTitleIsToldAndTheStateStays_data() {
        QTest::addColumn<MyFormsMode>("from");
        QTest::addColumn<QString>("title");
        QTest::newRow("of another own form") << MyFormsMode::Editing << u"Board Paper"_qs;
        QTest::newRow("of the library") << MyFormsMode::Editing << u"Special Power"_qs;
        QTest::newRow("in another case") << MyFormsMode::Editing << u"SPECIAL power"_qs;
        QTest::newRow("browsing") << MyFormsMode::Browsing << u"Board Paper"_qs;
    }
    void ARefusedTitleIsToldAndTheStateStays() {
        QFETCH(MyFormsMode, from);
        QFETCH(QString, title);
        GoTo(from);
        Fill(title, u"Corporate"_qs, u"changed"_qs);
        Page().btnUpdate->setFocus();
        Box().answer = MessageAnswer::Yes;
        Page().btnUpdate->click();
        QCOMPARE(Box().shown.size(), size_t(2));
        QCOMPARE(Box().shown[1].text,
                 u"A Form with the Title '"_qs + title +
                     u"'   \nalready exists! Please change the Title of your Form.   "_qs);
        QCOMPARE(Box().shown[1].icon, platform::MessageIcon::Information);
        QCOMPARE(Box().shown[1].title, u"My Forms"_qs);
        Verify(from);
        QVERIFY(HasFocus(Page().txtMyTitle));
        QCOMPARE(Pane().Text(), u"changed"_qs);
        // the row keeps its values
        Main().Store().FindMyFormByTitle(u"Annual Report"_qs);
        QCOMPARE(Main().Store().MyFormsField(u"SubCategory"_qs), std::optional(u"Corporate"_qs));
    }

    void UpdateNamesWhatIsMissing_data() { AddMissing(); }
    void UpdateNamesWhatIsMissing() {
        GoTo(MyFormsMode::Editing);
        VerifyMissing(Page().btnUpdate);
        Verify(MyFormsMode::Editing);
    }

    void UpdateOfAnEmptyCollectionActsAsAdd() {
        GoTo(MyFormsMode::Empty);
        Fill(u"First of Mine"_qs, u"Letters"_qs, u"Dear Client"_qs);
        Page().UpdateMyForm();
        QVERIFY(Box().shown.empty());
        Verify(MyFormsMode::Browsing);
        QCOMPARE(Page().lstMyTitle->Text(), u"First of Mine"_qs);
    }

    void AddStoresTheFormAndShowsTheFirstOne_data() {
        QTest::addColumn<MyFormsMode>("from");
        QTest::newRow("composing") << MyFormsMode::Composing;
        QTest::newRow("empty") << MyFormsMode::Empty;
    }
    void AddStoresTheFormAndShowsTheFirstOne() {
        QFETCH(MyFormsMode, from);
        GoTo(from);
        Fill(u"Motion of Mine"_qs, u"Motions"_qs, u"Comes now"_qs);
        Main().State().DocumentSaved = false;
        Page().btnAddNew->click();
        QVERIFY(Box().shown.empty());
        Verify(MyFormsMode::Browsing);
        QVERIFY(Main().State().DocumentSaved);
        NothingToUndo();
        QCOMPARE(Main().undoCommands->MyHistory().Index(), 0);
        QVERIFY(Page().lstMySubCategory->Items().contains(u"Motions"_qs));
        QCOMPARE(Page().lstMySubCategory->ListIndex(), 0);
        const bool first = from == MyFormsMode::Empty;
        QCOMPARE(Page().lstMyTitle->Text(), first ? u"Motion of Mine"_qs : u"Annual Report"_qs);
        Main().Store().FindMyFormByTitle(u"Motion of Mine"_qs);
        QVERIFY(Main().Store().MyFormsField(u"Content"_qs)->contains(u"Comes now"_qs));
    }

    void AddRefusesATitleThatIsThere_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("subCategory");
        QTest::newRow("of the library") << u"Special Power"_qs << u"Special Power"_qs << u"Special"_qs;
        QTest::newRow("in another case") << u"special POWER"_qs << u"Special Power"_qs << u"Special"_qs;
        QTest::newRow("of the user") << u"Board Paper"_qs << u"Board Paper"_qs << u"Corporate"_qs;
    }
    void AddRefusesATitleThatIsThere() {
        QFETCH(QString, title);
        QFETCH(QString, stored);
        QFETCH(QString, subCategory);
        GoTo(MyFormsMode::Composing);
        Fill(title, QString(), QString()); // the title is tested before the rest
        Page().btnAddNew->setFocus();
        Page().btnAddNew->click();
        VerifyOneMessage(u"A Form with the Title '"_qs + stored + u"'   \nalready exists under '"_qs +
                         subCategory + u"'.   \n\nPlease change the Title of your New Form.   "_qs);
        Verify(MyFormsMode::Composing);
        QVERIFY(HasFocus(Page().txtMyTitle));
    }

    void AddNamesWhatIsMissing_data() { AddMissing(); }
    void AddNamesWhatIsMissing() {
        GoTo(MyFormsMode::Composing);
        VerifyMissing(Page().btnAddNew);
        Verify(MyFormsMode::Composing);
    }

    void AddToAnEmptyCollectionNamesWhatIsMissing_data() { AddMissing(); }
    void AddToAnEmptyCollectionNamesWhatIsMissing() {
        GoTo(MyFormsMode::Empty);
        VerifyMissing(Page().btnAddNew);
        Verify(MyFormsMode::Empty);
    }

    void CancelGoesBackWithoutAsking_data() {
        QTest::addColumn<bool>("withEntries");
        QTest::newRow("with entries") << true;
        QTest::newRow("without entries") << false;
    }
    void CancelGoesBackWithoutAsking() {
        QFETCH(bool, withEntries);
        GoTo(withEntries ? MyFormsMode::Browsing : MyFormsMode::Empty);
        if (withEntries)
            TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        Main().searchPage->btnNextHit->show();
        Page().btnNew->click();
        Fill(u"Half"_qs, u"Way"_qs, u"done"_qs);
        Main().State().DocumentSaved = false;
        Page().btnCancelNew->click();
        QVERIFY(Box().shown.empty());
        QVERIFY(!Main().State().DocumentSaved);
        Verify(withEntries ? MyFormsMode::Browsing : MyFormsMode::Empty);
        QVERIFY(HasFocus(&Pane()));
        NothingToUndo();
        QCOMPARE(Main().searchPage->btnNextHit->isHidden(),
                 withEntries); // where a form is shown in its place
        if (withEntries) {     // the first one, whichever was on display before
            QCOMPARE(Page().lstMySubCategory->ListIndex(), 0);
            QCOMPARE(Pane().Text(), u"Text of Annual Report"_qs);
        }
    }

    void DeleteAsksAndDeletesOnYes_data() {
        QTest::addColumn<MyFormsMode>("from");
        QTest::newRow("browsing") << MyFormsMode::Browsing;
        QTest::newRow("editing") << MyFormsMode::Editing;
    }
    void DeleteAsksAndDeletesOnYes() {
        QFETCH(MyFormsMode, from);
        GoTo(from);
        Main().State().DocumentSaved = false;
        Page().btnDelete->click();
        VerifyOneMessage(u"Delete Current Form?   "_qs, platform::MessageButtons::YesNo);
        Verify(from);
        QCOMPARE(Page().lstMyTitle->ListCount(), 2);
        QCOMPARE(Page().txtMyTitle->text(), u"Annual Report"_qs);
        QVERIFY(!Main().State().DocumentSaved);
        Box().answer = MessageAnswer::Yes;
        Page().btnDelete->click();
        Verify(MyFormsMode::Browsing);
        QCOMPARE(Page().lstMyTitle->Items(), QStringList(u"Board Paper"_qs));
        QCOMPARE(Pane().Text(), u"Text of Board Paper"_qs);
        QVERIFY(Main().State().DocumentSaved);
    }

    void DeletingTheLastFormEmptiesThePage() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back(Own(u"Only One"_qs, u"Letters"_qs));
        Open(forms);
        Box().answer = MessageAnswer::Yes;
        Page().btnDelete->click();
        Verify(MyFormsMode::Empty);
        QCOMPARE(Page().txtMyTitle->text(), QString());
        QCOMPARE(Page().cboMySubCategory->Text(), QString());
        QCOMPARE(Pane().Text(), QString());
        QCOMPARE(Page().lstMyTitle->ListCount(), 0);
        QCOMPARE(Page().cboMySubCategory->ListCount(), 0);
        QVERIFY(HasFocus(&Pane()));
        NothingToUndo();
    }

    void DeleteInAnEmptyCollectionFindsNoForm() {
        GoTo(MyFormsMode::Empty);
        Main().State().DocumentSaved = false;
        Pane().setFocus();
        Page().DeleteMyForm();
        VerifyOneMessage(u"No Form was Found!   "_qs);
        QVERIFY(HasFocus(&Pane()));
        QVERIFY(!Main().State().DocumentSaved);
        Verify(MyFormsMode::Empty);
    }

    void ATabChangeKeepsTheState_data() {
        QTest::addColumn<MyFormsMode>("mode");
        QTest::newRow("browsing") << MyFormsMode::Browsing;
        QTest::newRow("editing") << MyFormsMode::Editing;
        QTest::newRow("composing") << MyFormsMode::Composing;
        QTest::newRow("empty") << MyFormsMode::Empty;
    }
    void ATabChangeKeepsTheState() {
        QFETCH(MyFormsMode, mode);
        GoTo(mode);
        Main().SetTab(Tab::Search);
        Main().SetTab(Tab::MyForms);
        Verify(mode);
    }

    // --- what stands beside the table

    void ATitleHidesTheHitControls() {
        GoTo(MyFormsMode::Browsing);
        Main().searchPage->btnNextHit->show();
        TestWindow::ClickEntry(Page().lstMyTitle, 0);
        QVERIFY(Main().searchPage->btnNextHit->isHidden());
    }

private:
    static void AddMissing() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("subCategory");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focus");
        QTest::newRow("all") << QString() << QString() << QString() << u"The Form has no TITLE!   "_qs
                             << u"txtMyTitle"_qs;
        QTest::newRow("title") << QString() << u"c"_qs << u"t"_qs << u"The Form has no TITLE!   "_qs
                               << u"txtMyTitle"_qs;
        QTest::newRow("category and text")
            << u"New One"_qs << QString() << QString() << u"Please enter the Form's Category!   "_qs
            << u"cboMySubCategory"_qs;
        QTest::newRow("category") << u"New One"_qs << QString() << u"t"_qs
                                  << u"Please enter the Form's Category!   "_qs << u"cboMySubCategory"_qs;
        QTest::newRow("text") << u"New One"_qs << u"c"_qs << QString() << u"The Form is empty!   "_qs
                              << u"txtMyContent"_qs;
    }

    void VerifyMissing(MyButton* button) {
        QFETCH(QString, title);
        QFETCH(QString, subCategory);
        QFETCH(QString, text);
        QFETCH(QString, message);
        QFETCH(QString, focus);
        Fill(title, subCategory, text);
        button->setFocus();
        button->click();
        VerifyOneMessage(message);
        QVERIFY(HasFocus(Main().findChild<QWidget*>(focus)));
        QCOMPARE(Page().txtMyTitle->text(), title);
    }
};

QTEST_MAIN(MyFormsPageTest)
#include "my_forms_page_test.moc"
