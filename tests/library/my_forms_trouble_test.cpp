// The pages over a library that can no longer be written: what is said, what stays on the screen, and that it
// goes on where the trouble ends.
#include "library/category_browser.h"
#include "library/favorites_page.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/faulty_files.h"
#include "tests/support/library_check.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;

class MyFormsTroubleTest : public QObject {
    Q_OBJECT

    enum class Trouble { FullDisk, DeadDisk, FolderAway };

    std::unique_ptr<FaultyFiles> m_files;
    std::unique_ptr<TestLibrary> m_library;
    std::unique_ptr<TestWindow> m_window;
    bool m_away = false;

    frmMain& Main() { return **m_window; }
    MyFormsPage& Page() { return *Main().myFormsPage; }
    platform::RichTextBox& Pane() { return *Main().txtMyContent(); }
    ScriptedMessageBox& Box() { return m_window->services.messageBox; }
    QString Folder() const { return m_library->Folder() + u"/Data"_qs; }

    void Begin() {
        QFETCH(int, trouble);
        if (Trouble(trouble) == Trouble::FolderAway)
            m_away = QDir().rename(Folder(), Folder() + u" away"_qs);
        else
            m_files->FailAfter(0, Trouble(trouble) == Trouble::FullDisk ? FaultyFiles::Fault::DiskFull
                                                                        : FaultyFiles::Fault::Dead);
    }
    void End() {
        m_files->Heal();
        if (m_away)
            QVERIFY(QDir().rename(Folder() + u" away"_qs, Folder()));
        m_away = false;
    }

    // What a dead disk does not give again need not be on the screen while it is dead.
    static bool CanBeRead() {
        QFETCH(int, trouble);
        return Trouble(trouble) != Trouble::DeadDisk;
    }

    static void AddTroubles() {
        QTest::addColumn<int>("trouble");
        QTest::newRow("full disk") << int(Trouble::FullDisk);
        QTest::newRow("dead disk") << int(Trouble::DeadDisk);
        QTest::newRow("folder away") << int(Trouble::FolderAway);
    }

    void Fill(const QString& title, const QString& subCategory, const QString& text) {
        Page().txtMyTitle->setText(title);
        Page().cboMySubCategory->setText(subCategory);
        Pane().setText(text);
    }

    void VerifySoundAfterClosing() {
        m_window.reset();
        QCOMPARE(CheckLibrary(m_library->Path()).problems, QStringList());
    }

private Q_SLOTS:
    void init() {
        std::vector<TestForm> forms = SomeForms();
        for (const QString& title : {u"Annual Report"_qs, u"Board Paper"_qs})
            forms.push_back({title, u"My Forms"_qs, u"Corporate"_qs, u"Text of "_qs + title});
        forms.push_back({u"Zoning Clearance"_qs, u"My Forms"_qs, u"Land"_qs, u"Clear"_qs});
        m_library = std::make_unique<TestLibrary>(forms);
        QVERIFY(m_library->IsMade());
        m_files = std::make_unique<FaultyFiles>();
        m_window = std::make_unique<TestWindow>(m_library->Folder());
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::MyForms);
    }
    void cleanup() {
        m_window.reset();
        m_files.reset();
        m_library.reset();
        m_away = false;
    }

    void AFormThatCannotBeAddedStaysOnTheScreen_data() { AddTroubles(); }
    void AFormThatCannotBeAddedStaysOnTheScreen() {
        Page().btnNew->click();
        Fill(u"Motion of Mine"_qs, u"Motions"_qs, u"Comes now"_qs);
        Main().State().DocumentSaved = false;
        Begin();
        Page().btnAddNew->click();
        QVERIFY(Box().shown.empty());
        QVERIFY(Main().State().NewFormMode);
        QVERIFY(!Main().State().DocumentSaved); // leaving the program still asks
        QVERIFY(Page().btnAddNew->isVisible());
        QCOMPARE(Page().txtMyTitle->text(), u"Motion of Mine"_qs);
        QCOMPARE(Pane().Text(), u"Comes now"_qs);
        End();
        Page().btnAddNew->click();
        QVERIFY(Box().shown.empty());
        QVERIFY(Main().State().DocumentSaved);
        QVERIFY(Page().lstMySubCategory->Items().contains(u"Motions"_qs));
        VerifySoundAfterClosing();
    }

    void AnUpdateThatFailsBlamesTheTitleAndStaysOnTheScreen_data() { AddTroubles(); }
    void AnUpdateThatFailsBlamesTheTitleAndStaysOnTheScreen() {
        Page().btnEdit->click();
        Fill(u"Annual Report"_qs, u"Corporate"_qs, u"changed"_qs);
        Box().answer = MessageAnswer::Yes;
        Begin();
        Page().btnUpdate->click();
        QCOMPARE(Box().shown.size(), size_t(2));
        QCOMPARE(Box().shown[1].text, u"A Form with the Title 'Annual Report'   \n"
                                      u"already exists! Please change the Title of your Form.   "_qs);
        QVERIFY(!Page().fmeMyTitle->isVisible());
        QCOMPARE(Pane().Text(), u"changed"_qs);
        End();
        Page().btnUpdate->click();
        QCOMPARE(Box().shown.size(), size_t(3));
        QCOMPARE(Pane().Text(), u"changed"_qs); // the first form is the one on display again
        VerifySoundAfterClosing();
    }

    void AFormThatCannotBeDeletedComesBack_data() { AddTroubles(); }
    void AFormThatCannotBeDeletedComesBack() {
        Box().answer = MessageAnswer::Yes;
        Begin();
        Page().btnDelete->click();
        QCOMPARE(Box().shown.size(), size_t(1)); // the question alone
        if (!CanBeRead()) {
            End();
            VerifySoundAfterClosing();
            TestWindow again(m_library->Folder());
            again->SetTab(Tab::MyForms);
            QCOMPARE(again->myFormsPage->lstMyTitle->Items(),
                     QStringList({u"Annual Report"_qs, u"Board Paper"_qs}));
            return;
        }
        QCOMPARE(Page().lstMyTitle->Items(), QStringList({u"Annual Report"_qs, u"Board Paper"_qs}));
        QCOMPARE(Pane().Text(), u"Text of Annual Report"_qs);
        End();
        Page().btnDelete->click();
        QCOMPARE(Page().lstMyTitle->Items(), QStringList(u"Board Paper"_qs));
        VerifySoundAfterClosing();
    }

    void ASilentSaveThatFailsSaysNothing_data() { AddTroubles(); }
    void ASilentSaveThatFailsSaysNothing() {
        Page().btnEdit->click();
        Pane().setText(u"changed"_qs);
        Begin();
        TestWindow::ClickEntry(Page().lstMySubCategory, 1);
        QVERIFY(Box().shown.empty());
        if (CanBeRead())
            QCOMPARE(Pane().Text(), u"Clear"_qs);
        End();
        TestWindow::ClickEntry(Page().lstMySubCategory, 0);
        QCOMPARE(Pane().Text(), u"Text of Annual Report"_qs);
        VerifySoundAfterClosing();
    }

    void AFavouriteThatCannotBeMarkedSaysNothingAndIsNotOnTheList_data() { AddTroubles(); }
    void AFavouriteThatCannotBeMarkedSaysNothingAndIsNotOnTheList() {
        Main().SetTab(Tab::FormsExplorer);
        Main().categoryBrowser->lstTitle->setText(u"Acknowledgment Alone"_qs);
        Begin();
        Main().categoryBrowser->cmdAddtoFavs->click();
        QVERIFY(Box().shown.empty());
        Main().SetTab(Tab::Favorites);
        QCOMPARE(Main().favoritesPage->lstFavorites->ListCount(), 0);
        End();
        Main().SetTab(Tab::FormsExplorer);
        Main().categoryBrowser->cmdAddtoFavs->click();
        Main().SetTab(Tab::Favorites);
        QCOMPARE(Main().favoritesPage->lstFavorites->Items(), QStringList(u"Acknowledgment Alone"_qs));
        VerifySoundAfterClosing();
    }

    void TheNextStartWithoutAFolderComesUpEmpty() {
        m_window.reset();
        QVERIFY(QDir(Folder()).removeRecursively());
        m_window = std::make_unique<TestWindow>(m_library->Folder());
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::MyForms);
        QCOMPARE(Page().lstMySubCategory->ListCount(), 0);
        Fill(u"Motion of Mine"_qs, u"Motions"_qs, u"Comes now"_qs);
        Page().btnAddNew->click();
        QVERIFY(Box().shown.empty());
        QCOMPARE(Pane().Text(), u"Comes now"_qs);
        QVERIFY(!QFileInfo::exists(Folder())); // nothing is made in its place
    }
};

QTEST_MAIN(MyFormsTroubleTest)
#include "my_forms_trouble_test.moc"
