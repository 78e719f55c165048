// The command that puts the form on the screen into the collection, from whatever page.
#include "library/category_browser.h"
#include "library/my_forms_page.h"

#include "tests/support/my_forms_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;

class MyFormsAddingTest : public QObject, MyFormsDesk {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_window.reset(); }

    void TheFormOnTheScreenGoesIntoTheCollection_data() {
        QTest::addColumn<bool>("withEntries");
        QTest::newRow("beside others") << true;
        QTest::newRow("as the first") << false;
    }
    void TheFormOnTheScreenGoesIntoTheCollection() {
        QFETCH(bool, withEntries);
        Open(withEntries ? WithOwnForms() : SomeForms());
        Main().SetTab(Tab::FormsExplorer);
        Main().categoryBrowser->lstTitle->setText(u"Acknowledgment Alone"_qs);
        Main().txtContent()->selectAll();
        Main().txtContent()->setSelBold(true);
        Main().Menu(u"mnuAddToMyForms"_qs)->trigger();
        QCOMPARE(Main().CurrentTab(), Tab::MyForms);
        VerifyOneMessage(u"The Form has no TITLE!   "_qs);
        QVERIFY(HasFocus(Page().txtMyTitle));
        QCOMPARE(Pane().Text(), u"BEFORE ME"_qs);
        QCOMPARE(Pane().TextRTF(), Main().txtContent()->TextRTF());
        QVERIFY(!Main().State().DocumentSaved);
        Verify(MyFormsMode::Composing);
        Page().txtMyTitle->setText(u"My Acknowledgment"_qs);
        Page().cboMySubCategory->setText(u"Notarial"_qs);
        Page().btnAddNew->click();
        Verify(MyFormsMode::Browsing);
        QVERIFY(Page().lstMySubCategory->Items().contains(u"Notarial"_qs));
    }

    void OnTheOwnPageTheVisibleButtonActs_data() {
        QTest::addColumn<MyFormsMode>("mode");
        QTest::addColumn<QString>("message");
        QTest::newRow("browsing") << MyFormsMode::Browsing << u"Save Changes to the Current Form?   "_qs;
        QTest::newRow("editing") << MyFormsMode::Editing << u"Save Changes to the Current Form?   "_qs;
        QTest::newRow("composing") << MyFormsMode::Composing << u"The Form has no TITLE!   "_qs;
        QTest::newRow("empty") << MyFormsMode::Empty << u"The Form has no TITLE!   "_qs;
    }
    void OnTheOwnPageTheVisibleButtonActs() {
        QFETCH(MyFormsMode, mode);
        QFETCH(QString, message);
        GoTo(mode);
        Page().AddtoMyForms();
        QCOMPARE(Box().shown.size(), size_t(1));
        QCOMPARE(Box().shown[0].text, message);
        QVERIFY(!Main().State().DocumentSaved);
    }

    void TheCommandForAnyPageLeavesTheDocumentUnsavedEvenWhereItStoresIt_data() {
        QTest::addColumn<MyFormsMode>("mode");
        QTest::newRow("update") << MyFormsMode::Browsing;
        QTest::newRow("add") << MyFormsMode::Composing;
    }
    void TheCommandForAnyPageLeavesTheDocumentUnsavedEvenWhereItStoresIt() {
        QFETCH(MyFormsMode, mode);
        GoTo(mode);
        Fill(u"A Motion"_qs, u"Aaa"_qs, u"Comes now"_qs);
        Box().answer = MessageAnswer::Yes;
        Page().AddtoMyForms();
        Verify(MyFormsMode::Browsing);
        QCOMPARE(Page().lstMyTitle->Items(), QStringList(u"A Motion"_qs));
        // a form that is added asks nothing and overwrites none
        const bool added = mode == MyFormsMode::Composing;
        QCOMPARE(Box().shown.size(), size_t(added ? 0 : 1));
        QCOMPARE(Main().Store().FindMyFormByTitle(u"Annual Report"_qs), added);
        QVERIFY(!Main().State().DocumentSaved);
    }
};

QTEST_MAIN(MyFormsAddingTest)
#include "my_forms_adding_test.moc"
