// What reaches the library from the My Forms page and what does not: each test reads the stored rows.
#include "library/category_browser.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;

class MyFormsRowsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    MyFormsPage& Page() { return *Main().myFormsPage; }
    platform::RichTextBox& Pane() { return *Main().txtMyContent(); }
    ScriptedMessageBox& Box() { return m_window->services.messageBox; }

    void Fill(const QString& title, const QString& subCategory, const QString& text) {
        Page().txtMyTitle->setText(title);
        Page().cboMySubCategory->setText(subCategory);
        Pane().setText(text);
    }

    // The stored rows of the collection in the order of their titles: title, sub-category and text. Reads
    // past the page, whose current row stays.
    QStringList Rows() {
        platform::RichTextBox reader;
        QStringList rows;
        const auto query = Main().Variables().FormsDb->CreateQueryDef(QString());
        query->setSQL(u"SELECT * FROM Forms WHERE Category = 'My Forms'"_qs);
        const auto found = query->OpenRecordset();
        for (found->MoveFirst(); !found->AtEnd(); found->MoveNext()) {
            reader.setTextRTF(found->Field(u"Content"_qs)->toString());
            rows.append(QStringList({found->Field(u"Title"_qs)->toString(),
                                     found->Field(u"SubCategory"_qs)->toString(), reader.Text()})
                            .join(u'|'));
        }
        rows.sort();
        return rows;
    }

    const QStringList m_atStart = {u"Annual Report|Corporate|Text of Annual Report"_qs,
                                   u"Board Paper|Corporate|Text of Board Paper"_qs,
                                   u"Zoning Clearance|Land|Text of Zoning Clearance"_qs};

private Q_SLOTS:
    void init() {
        std::vector<TestForm> forms = SomeForms();
        for (const auto& [title, subCategory] :
             {std::pair(u"Board Paper"_qs, u"Corporate"_qs), std::pair(u"Annual Report"_qs, u"Corporate"_qs),
              std::pair(u"Zoning Clearance"_qs, u"Land"_qs)})
            forms.push_back({title, u"My Forms"_qs, subCategory, u"Text of "_qs + title});
        m_window = std::make_unique<TestWindow>(forms);
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::MyForms);
        QCOMPARE(Rows(), m_atStart);
    }
    void cleanup() { m_window.reset(); }

    void AnotherSubCategoryStoresTitleAndTextButNoSubCategory() {
        Page().btnEdit->click();
        Fill(u"Annual Report 2026"_qs, u"Agrarian"_qs, u"changed"_qs);
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        QCOMPARE(Rows(),
                 QStringList({u"Annual Report 2026|Corporate|changed"_qs, m_atStart[1], m_atStart[2]}));
    }

    void AnotherTitleStoresNothing() {
        Fill(u"Annual Report 2026"_qs, u"Corporate"_qs, u"changed"_qs);
        TestWindow::ClickEntry(Page().lstMyTitle, 1);
        QCOMPARE(Pane().Text(), u"Text of Board Paper"_qs);
        QCOMPARE(Rows(), m_atStart);
    }

    void AnotherSubCategoryUnderATakenTitleStoresNothingAndSaysNothing() {
        Page().btnEdit->click();
        Fill(u"Board Paper"_qs, u"Corporate"_qs, u"changed"_qs);
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        QVERIFY(Box().shown.empty());
        QCOMPARE(Pane().Text(), u"Text of Zoning Clearance"_qs);
        QCOMPARE(Rows(), m_atStart);
    }

    void ASubCategoryChosenWhileComposingDropsTheNewForm() {
        Page().btnNew->click();
        Fill(u"Half"_qs, u"Way"_qs, u"done"_qs);
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        QVERIFY(Main().State().MyFormDisplayed);
        QVERIFY(!Main().State().NewFormMode);
        QVERIFY(!Page().btnCancelNew->isVisible());
        QCOMPARE(Pane().Text(), u"Text of Zoning Clearance"_qs);
        QCOMPARE(Rows(), m_atStart);
    }

    void CancellingStoresNothing() {
        Page().btnNew->click();
        Fill(u"Half"_qs, u"Way"_qs, u"done"_qs);
        Page().btnCancelNew->click();
        QCOMPARE(Rows(), m_atStart);
    }

    void ANewFormStoresNothingOfTheOneOnDisplay() {
        Page().btnEdit->click();
        Pane().setText(u"changed"_qs);
        Page().btnNew->click();
        QCOMPARE(Rows(), m_atStart);
    }

    void ARefusedUpdateKeepsTheRowAndTheWarningAtTheEnd() {
        Page().btnEdit->click();
        Fill(u"Special Power"_qs, u"Agrarian"_qs, u"changed"_qs);
        Main().State().DocumentSaved = false;
        Box().answer = MessageAnswer::Yes;
        Page().btnUpdate->click();
        QCOMPARE(Box().shown.size(), size_t(2));
        QCOMPARE(Rows(), m_atStart);
        QVERIFY(!Main().State().DocumentSaved);
        // with another title the same row takes the changes
        Page().txtMyTitle->setText(u"Special Report"_qs);
        Page().btnUpdate->click();
        QCOMPARE(Rows(), QStringList({m_atStart[1], u"Special Report|Agrarian|changed"_qs, m_atStart[2]}));
        QVERIFY(Main().State().DocumentSaved);
    }

    void AnUpdateAnsweredWithNoStoresNothing() {
        Page().btnEdit->click();
        Fill(u"Annual Report 2026"_qs, u"Agrarian"_qs, u"changed"_qs);
        Page().btnUpdate->click();
        QCOMPARE(Rows(), m_atStart);
        QCOMPARE(Page().txtMyTitle->text(), u"Annual Report"_qs);
        QCOMPARE(Page().cboMySubCategory->Text(), u"Corporate"_qs);
    }

    // The text is tested last, the title before the category.
    void AFormThatIsIncompleteIsNotAdded_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("subCategory");
        QTest::addColumn<QString>("text");
        QTest::newRow("no title") << QString() << u"c"_qs << u"t"_qs;
        QTest::newRow("a taken title") << u"board paper"_qs << u"c"_qs << u"t"_qs;
        QTest::newRow("no category") << u"New One"_qs << QString() << u"t"_qs;
        QTest::newRow("no text") << u"New One"_qs << u"c"_qs << QString();
    }
    void AFormThatIsIncompleteIsNotAdded() {
        QFETCH(QString, title);
        QFETCH(QString, subCategory);
        QFETCH(QString, text);
        Page().btnNew->click();
        Fill(title, subCategory, text);
        Main().State().DocumentSaved = false;
        Page().btnAddNew->click();
        QCOMPARE(Box().shown.size(), size_t(1));
        QCOMPARE(Rows(), m_atStart);
        QVERIFY(!Main().State().DocumentSaved);
        QCOMPARE(Page().txtMyTitle->text(), title);
        QCOMPARE(Page().cboMySubCategory->Text(), subCategory);
        QCOMPARE(Pane().Text(), text);
    }

    void DeletingTakesTheRowOnDisplayAlone() {
        TestWindow::ClickEntry(Page().lstMyTitle, 1);
        Pane().setText(u"changed"_qs);
        Page().btnDelete->click(); // No
        QCOMPARE(Rows(), m_atStart);
        QCOMPARE(Pane().Text(), u"changed"_qs);
        Box().answer = MessageAnswer::Yes;
        Page().btnDelete->click();
        QCOMPARE(Rows(), QStringList({m_atStart[0], m_atStart[2]}));
    }

    // Coming from another page is a click on the sub-category, which keeps the edits of the form on display.
    void AddingFromAnotherPageKeepsTheEditsOfTheFormOnDisplay() {
        Page().btnEdit->click();
        Pane().setText(u"changed"_qs);
        Main().SetTab(Tab::FormsExplorer);
        Main().categoryBrowser->lstTitle->setText(u"Acknowledgment Alone"_qs);
        Page().AddtoMyForms();
        QCOMPARE(Box().shown.size(), size_t(1));
        QCOMPARE(Box().shown[0].text, u"The Form has no TITLE!   "_qs);
        QCOMPARE(Rows(), QStringList({u"Annual Report|Corporate|changed"_qs, m_atStart[1], m_atStart[2]}));
        QCOMPARE(Page().cboMySubCategory->Text(), QString());
        QCOMPARE(Pane().Text(), u"BEFORE ME"_qs);
    }
};

QTEST_MAIN(MyFormsRowsTest)
#include "my_forms_rows_test.moc"
