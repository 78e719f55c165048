#include "library/library_store.h"

#include "library/library_format.h"
#include "tests/support/test_library.h"

#include <QtTest>

using namespace quillbrook;

class LibraryStoreTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestLibrary> m_library;
    std::unique_ptr<PublicVariables> m_variables;
    std::unique_ptr<LibraryStore> m_store;

    void Open() {
        m_variables = std::make_unique<PublicVariables>();
        m_store = std::make_unique<LibraryStore>(*m_variables);
        QVERIFY(m_store->OpenLibrary(m_library->Path(), BuildLibraryPassword()));
    }

    void Close() {
        m_store->CloseLibrary();
        m_store.reset();
        m_variables.reset();
    }

    void Reopen() {
        Close();
        Open();
    }

private Q_SLOTS:
    void init() {
        m_library = std::make_unique<TestLibrary>(SomeForms());
        QVERIFY(m_library->IsMade());
        Open();
    }

    void cleanup() {
        if (m_store)
            Close();
        m_library.reset();
    }

    void TheFormsTableTellsItsRowCount() { QCOMPARE(m_store->OpenFormsTable(), std::optional(8)); }

    void AListHoldsOneEntryForEachFormInFileOrder() {
        QCOMPARE(m_store->ListSubCategories(QStringLiteral("Acknowledgment / Jurat")),
                 QStringList({QStringLiteral("Jurats"), QStringLiteral("Acknowledgments"),
                              QStringLiteral("Acknowledgments")}));
    }

    void TextIsComparedWithoutCase() {
        QCOMPARE(m_store->ListTitles(QStringLiteral("AFFIDAVITS"), QStringLiteral("loss")).size(), 2);
    }

    void AnEmptyResultGivesAnEmptyList() {
        QCOMPARE(m_store->ListSubCategories(QStringLiteral("No Such Category")), QStringList());
    }

    void AFormIsFoundByItsTitleInWhateverCategory() {
        QVERIFY(m_store->FindFormByTitle(QStringLiteral("Special Power")));
        QVERIFY(m_store->SearchField(QStringLiteral("Content"))->contains(QStringLiteral("KNOW ALL MEN")));
        QCOMPARE(*m_store->SearchField(QStringLiteral("Category")), QStringLiteral("Power of Attorney"));
    }

    void ATitleListHasNoContentField() {
        m_store->ListTitles(QStringLiteral("Affidavits"), QStringLiteral("Loss"));
        QVERIFY(!m_store->SearchField(QStringLiteral("Content")));
    }

    void ARefusedStatementAfterAListLeavesNothingToRead() {
        m_store->ListTitles(QStringLiteral("Affidavits"), QStringLiteral("Loss"));
        QVERIFY(!m_store->FindFormByTitle(QStringLiteral("Heir's Affidavit")));
        QVERIFY(!m_store->SearchField(QStringLiteral("Content")));
    }

    void ARefusedStatementAfterAFormReadsTheEarlierForm() {
        m_store->FindFormByTitle(QStringLiteral("Affidavit of Loss"));
        QVERIFY(!m_store->FindFormByTitle(QStringLiteral("Heir's Affidavit")));
        QVERIFY(m_store->SearchField(QStringLiteral("Content"))->contains(QStringLiteral("I lost it")));
    }

    void ARefusedListStatementFillsNothing() {
        m_store->ListTitles(QStringLiteral("Affidavits"), QStringLiteral("Loss"));
        QCOMPARE(m_store->ListSubCategories(QStringLiteral("Notary's")), QStringList());
    }

    void AFavouriteMarkedTwiceStandsOnce() {
        QVERIFY(m_store->SetFavorite(QStringLiteral("Special Power"), 1));
        QVERIFY(m_store->SetFavorite(QStringLiteral("Special Power"), 1));
        QCOMPARE(m_store->ListFavorites(), QStringList(QStringLiteral("Special Power")));
    }

    void FavouritesSurviveTheClosing() {
        m_store->SetFavorite(QStringLiteral("Special Power"), 1);
        Reopen();
        QCOMPARE(m_store->ListFavorites(), QStringList(QStringLiteral("Special Power")));
        m_store->SetFavorite(QStringLiteral("Special Power"), 0);
        QCOMPARE(m_store->ListFavorites(), QStringList());
    }

    void ATitleWithAnApostropheMarksNoFormAtAll() {
        m_store->FindFormByTitle(QStringLiteral("Affidavit of Loss"));
        QVERIFY(!m_store->SetFavorite(QStringLiteral("Heir's Affidavit"), 1));
        QCOMPARE(m_store->ListFavorites(), QStringList());
    }

    void AddingUsesTheEmptyResultOfTheDuplicateTest() {
        QVERIFY(!m_store->FindMyFormByTitle(QStringLiteral("My Deed")));
        QVERIFY(m_store->MyFormsAtEnd());
        QVERIFY(
            m_store->AddMyForm(QStringLiteral("My Deed"), QStringLiteral("Deeds"), QStringLiteral("text")));
        QCOMPARE(m_store->ListMyForms(), QStringList(QStringLiteral("Deeds")));
        QCOMPARE(m_store->ListMyTitles(QStringLiteral("Deeds")), QStringList(QStringLiteral("My Deed")));
        QCOMPARE(m_store->ListFavorites(), QStringList());
    }

    void ATitleOfTheLibraryIsFoundByTheDuplicateTestWhateverItsCase() {
        QVERIFY(m_store->FindMyFormByTitle(QStringLiteral("SPECIAL POWER")));
        QVERIFY(!m_store->MyFormsAtEnd());
        QCOMPARE(*m_store->MyFormsField(QStringLiteral("SubCategory")), QStringLiteral("Special"));
    }

    void ARepeatedTitleIsRefusedAndTheRowKeepsItsValues() {
        m_store->FindMyFormByTitle(QStringLiteral("My Deed"));
        m_store->AddMyForm(QStringLiteral("My Deed"), QStringLiteral("Deeds"), QStringLiteral("text"));
        m_store->FindMyFormByTitle(QStringLiteral("My Deed"));
        QVERIFY(!m_store->UpdateMyForm(QStringLiteral("special power"), QStringLiteral("Other"),
                                       QStringLiteral("changed")));
        QVERIFY(m_store->FindMyFormByTitle(QStringLiteral("My Deed")));
        QCOMPARE(*m_store->MyFormsField(QStringLiteral("SubCategory")), QStringLiteral("Deeds"));
        QCOMPARE(*m_store->MyFormsField(QStringLiteral("Content")), QStringLiteral("text"));
    }

    void AnUpdateLeavesTheRowAmongTheUsersOwnForms() {
        m_store->FindMyFormByTitle(QStringLiteral("Special Power"));
        QVERIFY(m_store->UpdateMyForm(QStringLiteral("My Power"), QStringLiteral("Powers"),
                                      QStringLiteral("text")));
        QVERIFY(m_store->FindMyFormByTitle(QStringLiteral("My Power")));
        QCOMPARE(*m_store->MyFormsField(QStringLiteral("Category")), QStringLiteral("My Forms"));
    }

    void AfterADeletionThereIsNoCurrentRow() {
        m_store->FindMyFormByTitle(QStringLiteral("Special Power"));
        QVERIFY(m_store->DeleteMyForm());
        QVERIFY(!m_store->MyFormsField(QStringLiteral("Title")));
        QVERIFY(!m_store->DeleteMyForm());
        QVERIFY(!m_store->SaveMyFormText(QStringLiteral("x"), QStringLiteral("y")));
        QVERIFY(!m_store->UpdateMyForm(QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")));
        QCOMPARE(m_store->OpenFormsTable(), std::optional(7));
    }

    void NothingIsSavedBehindTheEndOfTheCollection() {
        m_store->ListMyForms();
        QVERIFY(!m_store->SaveMyFormText(QStringLiteral("x"), QStringLiteral("y")));
        QVERIFY(!m_store->FindFormByTitle(QStringLiteral("x")));
    }

    // ... by a title that the statement cannot hold either: no row but that on display is ever changed
    void ARefusedTitleLeavesTheCollectionAtItsEnd() {
        m_store->FindMyFormByTitle(QStringLiteral("My Deed"));
        QVERIFY(
            m_store->AddMyForm(QStringLiteral("My Deed"), QStringLiteral("Deeds"), QStringLiteral("text")));
        m_store->ListMyForms();
        QVERIFY(!m_store->FindMyFormByTitle(QStringLiteral("Heir's Deed")));
        QVERIFY(m_store->MyFormsAtEnd());
        QVERIFY(!m_store->MyFormsField(QStringLiteral("Title")));
        QVERIFY(!m_store->SaveMyFormText(QStringLiteral("x"), QStringLiteral("y")));
        QVERIFY(!m_store->DeleteMyForm());
        QVERIFY(
            m_store->AddMyForm(QStringLiteral("Heir's Deed"), QStringLiteral("Deeds"), QStringLiteral("z")));
        QCOMPARE(m_store->ListMyForms().size(), 2);
    }

    void AFormIsAddedBehindAListOfTitlesToo() {
        m_store->ListMyTitles(QStringLiteral("Deeds"));
        QVERIFY(!m_store->FindMyFormByTitle(QStringLiteral("Heir's Deed")));
        QVERIFY(m_store->MyFormsAtEnd());
        QVERIFY(
            m_store->AddMyForm(QStringLiteral("Heir's Deed"), QStringLiteral("Deeds"), QStringLiteral("z")));
        QCOMPARE(m_store->ListMyForms(), QStringList(QStringLiteral("Deeds")));
        QCOMPARE(m_store->SearchForms(QStringLiteral("SELECT * FROM Forms WHERE Content LIKE 'z'")),
                 QStringList(QStringLiteral("Heir's Deed")));
    }

    void ARefusedTitleKeepsTheRowOnDisplay() {
        m_store->FindMyFormByTitle(QStringLiteral("Special Power"));
        QVERIFY(!m_store->FindMyFormByTitle(QStringLiteral("Heir's Deed")));
        QVERIFY(!m_store->MyFormsAtEnd());
        QCOMPARE(*m_store->MyFormsField(QStringLiteral("Title")), QStringLiteral("Special Power"));
    }

    void TheThemeNumberIsReadAndWritten() {
        QCOMPARE(m_store->ReadThemeNumber(), std::optional(7));
        QVERIFY(m_store->WriteThemeNumber(34));
        Reopen();
        QCOMPARE(m_store->ReadThemeNumber(), std::optional(34));
    }

    void AClauseIsReadByItsKey() {
        QCOMPARE(*m_store->ReadClause(QStringLiteral("Jurat"), QStringLiteral("1")),
                 QStringLiteral("SUBSCRIBED"));
        QVERIFY(!m_store->ReadClause(QStringLiteral("Jurat"), QStringLiteral("9")));
        QVERIFY(!m_store->ReadClause(QStringLiteral("Caption"), QStringLiteral("1")));
    }

    void ASecondProcessOfTheLibraryIsKeptOut() {
        PublicVariables variables;
        LibraryStore second(variables);
        QVERIFY(!second.OpenLibrary(m_library->Path(), BuildLibraryPassword()));
        QVERIFY(!second.OpenFormsTable());
    }

    void WithoutALibraryEveryOperationYieldsNothing() {
        Close();
        m_variables = std::make_unique<PublicVariables>();
        m_store = std::make_unique<LibraryStore>(*m_variables);
        QVERIFY(
            !m_store->OpenLibrary(m_library->Path() + QStringLiteral(".missing"), BuildLibraryPassword()));
        QVERIFY(!m_store->OpenFormsTable());
        QCOMPARE(m_store->ListSubCategories(QStringLiteral("Affidavits")), QStringList());
        QCOMPARE(m_store->ListMyForms(), QStringList());
        QVERIFY(!m_store->FindFormByTitle(QStringLiteral("Special Power")));
        QVERIFY(!m_store->SetFavorite(QStringLiteral("Special Power"), 1));
        QVERIFY(!m_store->DeleteMyForm());
        QVERIFY(!m_store->ReadThemeNumber());
        QVERIFY(!m_store->WriteThemeNumber(2));
    }

    void TheWrongPasswordOpensNothing() {
        Close();
        PublicVariables variables;
        LibraryStore store(variables);
        QVERIFY(!store.OpenLibrary(m_library->Path(), QStringLiteral("000000000000")));
        QVERIFY(!variables.FormsDb);
    }
};

QTEST_MAIN(LibraryStoreTest)
#include "library_store_test.moc"
