// Own forms whose titles and sub-categories are unusual: apostrophes, case, other alphabets.
#include "library/my_forms_page.h"

#include "tests/support/my_forms_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;

class MyFormsTitlesTest : public QObject, MyFormsDesk {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_window.reset(); }

    void SubCategoriesThatDifferInCaseAreTwoEntries() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back(Own(u"One"_qs, u"Letters"_qs));
        forms.push_back(Own(u"Two"_qs, u"letters"_qs));
        forms.push_back(Own(u"Three"_qs, u"Letters"_qs));
        Open(forms);
        QCOMPARE(Page().lstMySubCategory->ListCount(), 2);
        QCOMPARE(Page().cboMySubCategory->ListCount(), 2);
        QCOMPARE(Page().lstMyTitle->ListCount(), 3); // the engine compares without case
    }

    void ATitleWithAnApostropheIsTakenForTheRowBefore() {
        GoTo(MyFormsMode::Browsing); // the recordset stands on "Annual Report"
        Page().btnNew->click();
        Fill(u"Heir's Waiver"_qs, u"Estate"_qs, u"text"_qs);
        Page().btnAddNew->click();
        VerifyOneMessage(u"A Form with the Title 'Annual Report'   \nalready exists under 'Corporate'.   \n\n"
                         u"Please change the Title of your New Form.   "_qs);
    }

    void ATitleWithAnApostropheIsAddedBehindTheEnd() {
        GoTo(MyFormsMode::Empty); // the recordset stands at its end
        Fill(u"Heir's Waiver"_qs, u"Estate"_qs, u"text"_qs);
        Page().btnAddNew->click();
        QVERIFY(Box().shown.empty());
        QCOMPARE(Page().lstMyTitle->Items(), QStringList(u"Heir's Waiver"_qs));
    }

    // ... also where the list on display begins with such a title, whose form cannot be looked up
    void ATitleWithAnApostropheIsAddedBesideAnother() {
        GoTo(MyFormsMode::Empty);
        Fill(u"Heir's Waiver"_qs, u"Estate"_qs, u"text"_qs);
        Page().btnAddNew->click();
        Page().btnNew->click();
        Fill(u"Client's Deed"_qs, u"Estate"_qs, u"the deed"_qs);
        Page().btnAddNew->click();
        QVERIFY(Box().shown.empty());
        Verify(MyFormsMode::Browsing);
        QCOMPARE(Page().lstMyTitle->Items(), QStringList({u"Client's Deed"_qs, u"Heir's Waiver"_qs}));
    }

    void ASubCategoryTypedInAnotherCaseIsAnotherEntry() {
        GoTo(MyFormsMode::Composing);
        Page().txtMyTitle->setText(u"Letter"_qs);
        Page().cboMySubCategory->setFocus();
        QTest::keyClicks(Page().cboMySubCategory->lineEdit(), u"corporate"_qs);
        QTest::keyClick(Page().cboMySubCategory->lineEdit(), Qt::Key_Return);
        QVERIFY(HasFocus(&Pane()));
        QCOMPARE(Page().cboMySubCategory->Text(), u"corporate"_qs);
        QTest::keyClicks(&Pane(), u"text"_qs);
        Page().btnAddNew->click();
        QVERIFY(Box().shown.empty());
        QCOMPARE(Page().lstMySubCategory->Items(),
                 QStringList({u"Corporate"_qs, u"corporate"_qs, u"Land"_qs}));
        QCOMPARE(Page().cboMySubCategory->Items(), Page().lstMySubCategory->Items());
    }

    void ATitleWithAnApostropheAtTheHeadOfAListDeletesNoOtherForm() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back(Own(u"Zeta"_qs, u"Estate"_qs));
        forms.push_back(Own(u"Heir's Waiver"_qs, u"Estate"_qs));
        Open(forms);
        QCOMPARE(Page().lstMyTitle->Text(), u"Heir's Waiver"_qs);
        QCOMPARE(Page().txtMyTitle->text(), QString());
        Box().answer = MessageAnswer::Yes;
        Page().btnDelete->click();
        QCOMPARE(Page().lstMyTitle->Items(), QStringList({u"Heir's Waiver"_qs, u"Zeta"_qs}));
    }

    void ASubCategoryWithAnApostropheListsTheTitlesReadBefore() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back(Own(u"First"_qs, u"Client's"_qs));
        forms.push_back(Own(u"Second"_qs, u"Land"_qs));
        Open(forms); // the statement for the titles is refused: those of the whole collection are in force
        QCOMPARE(Page().lstMyTitle->Items(), QStringList({u"First"_qs, u"Second"_qs}));
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        QCOMPARE(Page().lstMyTitle->Items(), QStringList(u"Second"_qs));
        TestWindow::ClickEntry(Page().lstMySubCategory, 0);
        QCOMPARE(Page().lstMyTitle->Items(), QStringList(u"Second"_qs));
        QCOMPARE(Pane().Text(), u"Text of Second"_qs);
        QVERIFY(Box().shown.empty());
    }

    void UnusualTitlesAndCategoriesAreKept_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("subCategory");
        QTest::newRow("accents") << u"Escritura de Cesión nº 5"_qs << u"Ñandú"_qs;
        QTest::newRow("double quotes") << u"The \"Deed\""_qs << u"\"Quoted\""_qs;
        QTest::newRow("right to left") << u"עסקה"_qs << u"حقوق"_qs;
        QTest::newRow("300 characters") << QString(300, u'x') << QString(300, u'y');
        QTest::newRow("leading blanks") << u"  Deed"_qs << u"   Land"_qs;
        QTest::newRow("beyond 16 bits") << u"Deed 𝔄"_qs << u"📄"_qs;
        QTest::newRow("pattern characters") << u"100% * ? # [a]"_qs << u"*"_qs;
    }
    void UnusualTitlesAndCategoriesAreKept() {
        QFETCH(QString, title);
        QFETCH(QString, subCategory);
        GoTo(MyFormsMode::Empty);
        Fill(title, subCategory, u"text"_qs);
        Page().btnAddNew->click();
        QVERIFY(Box().shown.empty());
        QCOMPARE(Page().lstMySubCategory->Items(), QStringList(subCategory));
        QCOMPARE(Page().lstMyTitle->Items(), QStringList(title));
        QCOMPARE(Page().txtMyTitle->text(), title);
        QCOMPARE(Pane().Text(), u"text"_qs);
    }
};

QTEST_MAIN(MyFormsTitlesTest)
#include "my_forms_titles_test.moc"
