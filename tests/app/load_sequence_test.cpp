#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "library/history_page.h"
#include "library/library_format.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/geometry.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "platform/controls/status_bar.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/search_page.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::Height;
using platform::Left;
using platform::Top;
using platform::Width;

static TestForm OwnForm(const char* title, const char* subCategory) {
    return {QLatin1String(title), QStringLiteral("My Forms"), QLatin1String(subCategory),
            QLatin1String(title)};
}

// Whether a control would be seen if its page were on top.
static bool IsOffered(const QWidget* control) {
    return !control->isHidden();
}

static QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class LoadSequenceTest : public QObject {
    Q_OBJECT

    // A program folder whose library is made of `bytes`.
    static void Spoil(const TestLibrary& library, const QByteArray& bytes) {
        QFile file(library.Path());
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    // The window stands there with empty lists, nothing was said, and the file is as it was.
    static void ComesUpEmpty(const TestLibrary& library) {
        const QByteArray before = BytesOf(library.Path());
        const QStringList entriesBefore = QDir(library.Folder() + u"/Data"_qs).entryList(QDir::Files);
        {
            TestWindow window(library.Folder());
            QVERIFY(window.loaded);
            QCOMPARE(window->categoryBrowser->lstSubCategory->ListCount(), 0);
            QCOMPARE(window->categoryBrowser->lstTitle->ListCount(), 0);
            QCOMPARE(window->myFormsPage->lstMySubCategory->ListCount(), 0);
            QVERIFY(window.services.messageBox.shown.empty());
            window->categoryBrowser->CategoryButton(u"btnSales"_qs)->click();
            QCOMPARE(window->categoryBrowser->lstSubCategory->ListCount(), 0);
        }
        QCOMPARE(BytesOf(library.Path()), before);
        QCOMPARE(QDir(library.Folder() + u"/Data"_qs).entryList(QDir::Files), entriesBefore);
    }

private Q_SLOTS:
    void TheWindowHasItsDesignSizeInTheMiddleOfTheScreen() {
        TestWindow window;
        QCOMPARE(Width(&*window), 11340);
        QCOMPARE(Height(&*window), 8265); // 8,260 is no whole number of pixels
        const QSize screen = QGuiApplication::primaryScreen()->size();
        QCOMPARE(window->x(), screen.width() / 2 - window->width() / 2);
        QCOMPARE(window->y(), screen.height() / 2 - window->height() / 2);
        QVERIFY(!window->isVisible());
    }

    void TheFirstPageOpensOnTheFirstCategory() {
        TestWindow window;
        QVERIFY(window.loaded);
        const CategoryBrowser& browser = *window->categoryBrowser;
        QCOMPARE(window->CurrentTab(), Tab::FormsExplorer);
        QCOMPARE(window->State().CurrentCategory, u"Acknowledgment / Jurat"_qs);
        QVERIFY(browser.CategoryButton(u"btnAcknowledgment"_qs)->Value());
        QCOMPARE(browser.lstSubCategory->Items(), QStringList({u"Acknowledgments"_qs, u"Jurats"_qs}));
        QCOMPARE(browser.lstSubCategory->ListIndex(), 0);
        QCOMPARE(browser.lstTitle->Items(),
                 QStringList({u"Acknowledgment Alone"_qs, u"Second Acknowledgment"_qs}));
        QCOMPARE(browser.lstTitle->ListIndex(), -1);
        QCOMPARE(window->txtContent()->Text(), QString());
        QCOMPARE(window->txtMyContent()->Text(), QString());
    }

    void TheCaptionIsThatOfTheFirstPage() {
        TestWindow window;
        QCOMPARE(window->Variables().PageTitle, u"Quillbrook by Atty. Merrow"_qs);
        QCOMPARE(window->windowTitle(), u"Quillbrook by Atty. Merrow"_qs);
    }

    void TheControlsStandWhereTheLoadPutsThem() {
        TestWindow window;
        QCOMPARE(Left(window->txtContent()), 1380);
        QCOMPARE(Top(window->txtContent()), 4290);
        QCOMPARE(Left(window->txtMyContent()), 1380);
        QCOMPARE(Top(window->txtMyContent()), 3300);
        QCOMPARE(Left(window->SSTab), 1260);
        QCOMPARE(Top(window->SSTab), 45); // 50 is no whole number of pixels
        QVERIFY(!IsOffered(window->txtMyContent()));
        QVERIFY(!IsOffered(window->editToolBar->fmeEditToolBar));
        QVERIFY(!IsOffered(window->rtfContent()));
    }

    // By the rules of a resize, before the window is seen.
    void ThePanesReachDownToTheStatusBar() {
        TestWindow window;
        const int foot = window->ScaleHeight() - Height(window->StatusBar1) - 150;
        for (const QWidget* pane :
             {static_cast<QWidget*>(window->txtContent()), static_cast<QWidget*>(window->txtMyContent())})
            QVERIFY2(std::abs(Top(pane) + Height(pane) - foot) <= 7, qPrintable(pane->objectName()));
        QCOMPARE(window->txtMyContent()->width(), window->txtContent()->width());
    }

    void NothingIsUnsavedAndNoNewFormIsBegun() {
        TestWindow window;
        QVERIFY(window->State().DocumentSaved);
        QVERIFY(!window->State().NewFormMode);
        QCOMPARE(window->State().SearchPaneTop, 2550);
        QCOMPARE(window->State().ThemeNumber, 7);
    }

    void TheSearchPageWaitsForAQuery() {
        TestWindow window;
        const SearchPage& page = *window->searchPage;
        QCOMPARE(page.fmeSearchResult->Caption(), u"Search Result!"_qs);
        QCOMPARE(Height(page.fmeSearchResult), 435);
        QVERIFY(!IsOffered(page.lstSearch));
        QVERIFY(!IsOffered(page.btnPreviousHit));
        QVERIFY(!IsOffered(page.btnNextHit));
        QVERIFY(!IsOffered(page.lblDisplayHits));
        QCOMPARE(page.lblSearchGuide->text(), QString());
        QCOMPARE(page.lblSearchGuide1->text(), QString());
    }

    void AScreenWithNFontsOffersOneLess() {
        TestWindow window;
        const QStringList fonts = QFontDatabase::families();
        QVERIFY(fonts.size() > 1);
        const platform::ComboBox& offered = *window->editToolBar->cboFonts;
        QCOMPARE(offered.ListCount(), int(fonts.size()) - 1);
        QVERIFY(!offered.Items().contains(fonts.last()));
        QCOMPARE(offered.currentIndex(), 0);
    }

    void TheFontSizesAreTheEvenOnesFromEightToFortyEight() {
        TestWindow window;
        const platform::ComboBox& sizes = *window->editToolBar->cboFontSize;
        QCOMPARE(sizes.ListCount(), 21);
        QCOMPARE(sizes.List(0), u"8"_qs);
        QCOMPARE(sizes.List(20), u"48"_qs);
        QCOMPARE(sizes.Text(), u"12"_qs);
    }

    void UndoHasNothingToUndo() {
        TestWindow window;
        QVERIFY(!window->editToolBar->btnUndo->isEnabled());
        QVERIFY(!window->editToolBar->btnRedo->isEnabled());
        QCOMPARE(window->editToolBar->btnMyUndo->pos(), window->editToolBar->btnUndo->pos());
        QCOMPARE(window->editToolBar->btnMyRedo->pos(), window->editToolBar->btnRedo->pos());
        QVERIFY(!IsOffered(window->editToolBar->btnMyUndo));
        QVERIFY(!IsOffered(window->editToolBar->btnMyRedo));
    }

    void WithoutOwnFormsTheirPageOpensOnEmptyFields() {
        TestWindow window;
        const MyFormsPage& page = *window->myFormsPage;
        QVERIFY(!IsOffered(page.fmeMyTitle));
        QVERIFY(!window->State().MyFormDisplayed);
        QVERIFY(IsOffered(page.btnNew));
        QVERIFY(IsOffered(page.btnAddNew));
        for (const platform::MyButton* button :
             {page.btnEdit, page.btnUpdate, page.btnCancelNew, page.btnDelete})
            QVERIFY2(!IsOffered(button), qPrintable(button->objectName()));
        QCOMPARE(page.txtMyTitle->text(), QString());
        QCOMPARE(page.cboMySubCategory->Text(), QString());
    }

    void WithOwnFormsTheFirstOneIsOnDisplay() {
        std::vector<TestForm> forms = SomeForms();
        forms.push_back(OwnForm("Zoning Clearance", "Land"));
        forms.push_back(OwnForm("Board Paper", "Corporate"));
        forms.push_back(OwnForm("Annual Report", "Corporate"));
        TestWindow window(forms);
        const MyFormsPage& page = *window->myFormsPage;
        QVERIFY(IsOffered(page.fmeMyTitle));
        QVERIFY(window->State().MyFormDisplayed);
        QCOMPARE(page.lstMySubCategory->Items(), QStringList({u"Corporate"_qs, u"Land"_qs}));
        QCOMPARE(page.lstMyTitle->Text(), u"Annual Report"_qs);
        QCOMPARE(page.txtMyTitle->text(), u"Annual Report"_qs);
        QCOMPARE(page.cboMySubCategory->Text(), u"Corporate"_qs);
        QCOMPARE(TestWindow::TextOf(window->txtMyContent()), u"Annual Report"_qs);
        for (const platform::MyButton* button : {page.btnNew, page.btnEdit, page.btnUpdate, page.btnDelete})
            QVERIFY2(IsOffered(button), qPrintable(button->objectName()));
        QVERIFY(!IsOffered(page.btnAddNew));
        QVERIFY(!IsOffered(page.btnCancelNew));
    }

    void ALibraryWithoutFormsStopsTheLoadAfterOpening() {
        TestWindow window(std::vector<TestForm>{});
        QVERIFY(window.loaded);
        QVERIFY(window->Variables().FormsDb);
        QCOMPARE(window->categoryBrowser->lstSubCategory->ListCount(), 0);
        QCOMPARE(window->State().ThemeNumber, 1); // the library holds 7
        QCOMPARE(window->windowTitle(), QString());
        QVERIFY(window.services.messageBox.shown.empty());
        QVERIFY(window->categoryBrowser->CategoryButton(u"btnAcknowledgment"_qs)->Value());
    }

    void ThePageSetupIsLoadedLastAndNotShown() {
        TestWindow window;
        QCOMPARE(window->Windows().Loaded(), QStringList(u"frmPageSetup"_qs));
        QVERIFY(!window->Windows().Load(u"frmPageSetup"_qs)->isVisible());
        TestWindow empty(std::vector<TestForm>{});
        QVERIFY(empty->Windows().Loaded().isEmpty());
    }

    void TheGuideOfTheQueryStandsStill() {
        TestWindow window;
        const auto* timer = window->findChild<QTimer*>(u"tmrUpdateSearchGuide"_qs);
        QVERIFY(timer);
        QCOMPARE(timer->interval(), 1);
        QVERIFY(!timer->isActive());
    }

    void AnEarlierInstanceIsBroughtForwardAndTheLibraryStaysShut() {
        TestLibrary library(SomeForms());
        ScriptedServices services;
        services.instance.earlierInstance = true;
        services.instance.titleOfEarlierWindow = u"Quillbrook PRO"_qs;
        frmMain window(services.services, library.Folder());
        QVERIFY(!window.Load());
        QVERIFY(services.instance.ended);
        QCOMPARE(services.instance.broughtForward, QStringList(u"Quillbrook PRO"_qs));
        // under its own title the search would find this process
        QCOMPARE(services.instance.titleWhileSearching, u"abcba - This App Will Be Closed"_qs);
        QVERIFY(!window.Variables().FormsDb);
        QCOMPARE(window.editToolBar->cboFonts->ListCount(), 0);
    }

    void AnEarlierInstanceWithoutAWindowLetsTheStartGoOnUnderAnotherTitle() {
        TestLibrary library(SomeForms());
        ScriptedServices services;
        services.instance.earlierInstance = true;
        frmMain window(services.services, library.Folder());
        QVERIFY(window.Load());
        QVERIFY(!services.instance.ended);
        QCOMPARE(services.instance.title, u"abcba - This App Will Be Closed"_qs);
        QCOMPARE(window.categoryBrowser->lstSubCategory->ListCount(), 2);
        window.Store().CloseLibrary();
    }

    void TheFirstStartKeepsItsTitleAndLooksForNobody() {
        TestWindow window;
        QCOMPARE(window.services.instance.title, u"Quillbrook PRO"_qs);
        QVERIFY(window.services.instance.broughtForward.isEmpty());
    }

    void AMissingLibraryGivesEmptyLists() {
        QTemporaryDir folder;
        TestWindow window(folder.path());
        QVERIFY(window.loaded);
        QCOMPARE(window->categoryBrowser->lstSubCategory->ListCount(), 0);
        QVERIFY(window.services.messageBox.shown.empty());
        QVERIFY(QDir(folder.path()).isEmpty());
    }

    void ALibraryThatCannotBeReadGivesEmptyListsAndStaysUntouched_data() {
        QTest::addColumn<QByteArray>("bytes");
        const TestLibrary sound(SomeForms());
        const QByteArray whole = BytesOf(sound.Path());
        QVERIFY(whole.size() > 8192);
        QTest::newRow("of zero length") << QByteArray();
        QTest::newRow("truncated") << whole.left(whole.size() / 2);
        QTest::newRow("cut within the first page") << whole.left(1000);
        QByteArray damaged = whole;
        for (qsizetype i = 4096; i < damaged.size(); i += 512)
            damaged[i] = char(~damaged[i]);
        QTest::newRow("damaged behind the first page") << damaged;
        damaged = whole;
        damaged[200] = char(~damaged[200]);
        QTest::newRow("damaged in the first page") << damaged;
        QTest::newRow("text") << QByteArray("Deed of Sale\n").repeated(1000);
        QTest::newRow("an unencrypted database")
            << QByteArray("SQLite format 3\0", 16) + QByteArray(8176, '\0');
    }
    void ALibraryThatCannotBeReadGivesEmptyListsAndStaysUntouched() {
        QFETCH(QByteArray, bytes);
        const TestLibrary library(SomeForms());
        QVERIFY(library.IsMade());
        Spoil(library, bytes);
        ComesUpEmpty(library);
    }

    void ALibraryOfALaterFormatStaysUntouched() {
        const TestLibrary library(SomeForms());
        QVERIFY(QFile::remove(library.Path()));
        platform::FileFormat later = LibraryFileFormat();
        later.version += 1;
        const auto database = platform::Database::CreateDatabase(
            library.Path(), u";pwd="_qs + BuildLibraryPassword(), later, LibraryTables());
        QVERIFY(database);
        database->Close();
        ComesUpEmpty(library);
    }

    void EachStartBeginsOnTheFirstPageAgain() {
        TestLibrary library(SomeForms());
        {
            TestWindow window(library.Folder());
            window->categoryBrowser->CategoryButton(u"btnAffidavits"_qs)->click();
            window->SetTab(Tab::History);
        }
        TestWindow window(library.Folder());
        QCOMPARE(window->CurrentTab(), Tab::FormsExplorer);
        QCOMPARE(window->State().CurrentCategory, u"Acknowledgment / Jurat"_qs);
        QCOMPARE(window->historyPage->lstHistory->ListCount(), 0);
    }
};

QTEST_MAIN(LoadSequenceTest)
#include "load_sequence_test.moc"
