#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "library/library_format.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class ExitTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void QuittingAfterReadingAsksNothing() {
        TestWindow window;
        QVERIFY(window.Show());
        window->categoryBrowser->lstTitle->setListIndex(0);
        QVERIFY(window->close());
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void QuittingAfterFormattingByButtonsAsksNothing() {
        TestWindow window;
        QVERIFY(window.Show());
        window->categoryBrowser->lstTitle->setListIndex(0);
        window->SetTab(Tab::EditForm);
        window->txtContent()->selectAll();
        window->editToolBar->btnBold->click();
        QVERIFY(window->State().DocumentSaved);
        QVERIFY(window->close());
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void AKeyInEitherPaneMakesTheDocumentUnsaved_data() {
        QTest::addColumn<bool>("myForms");
        QTest::newRow("the reading pane") << false;
        QTest::newRow("the pane of own forms") << true;
    }
    void AKeyInEitherPaneMakesTheDocumentUnsaved() {
        QFETCH(bool, myForms);
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(myForms ? Tab::MyForms : Tab::EditForm);
        platform::RichTextBox* pane = window->ActivePane();
        QTest::keyClicks(pane, u"a"_qs);
        QVERIFY(!window->State().DocumentSaved);
    }

    void NoToTheQuestionLeavesEverythingAsItWas() {
        TestWindow window;
        QVERIFY(window.Show());
        window->State().DocumentSaved = false;
        window.services.messageBox.answer = platform::MessageAnswer::No;
        QVERIFY(!window->close());
        QVERIFY(window->isVisible());
        QVERIFY(!window->State().DocumentSaved);
        QVERIFY(window->Windows().IsLoaded(u"frmPageSetup"_qs));
        // the library is still open
        window->categoryBrowser->CategoryButton(u"btnAffidavits"_qs)->click();
        QCOMPARE(window->categoryBrowser->lstTitle->ListCount(), 2);
    }

    void TheQuestionHasItsWords() {
        TestWindow window;
        QVERIFY(window.Show());
        window->State().DocumentSaved = false;
        window.services.messageBox.answer = platform::MessageAnswer::Yes;
        window->Menu(u"mnuExit"_qs)->trigger();
        QVERIFY(!window->isVisible());
        const auto& shown = window.services.messageBox.shown;
        QCOMPARE(shown.size(), size_t(1));
        QCOMPARE(shown[0].text, u"Are you sure you want to exit Quillbrook PRO?   "_qs);
        QCOMPARE(shown[0].title, u"Confirm Exit!"_qs);
        QCOMPARE(shown[0].buttons, platform::MessageButtons::YesNo);
        QCOMPARE(shown[0].icon, platform::MessageIcon::Question);
    }

    void TheLibraryIsClosed() {
        TestWindow window;
        QVERIFY(window.Show());
        QVERIFY(window->close());
        QVERIFY(!window->Store().OpenFormsTable());
        PublicVariables variables;
        LibraryStore next(variables);
        QVERIFY(next.OpenLibrary(window.library()->Path(), BuildLibraryPassword()));
        next.CloseLibrary();
    }

    void LeavingWritesNothingIntoTheLibrary() {
        TestWindow window;
        QVERIFY(window.Show());
        QFile library(window.library()->Path());
        QVERIFY(library.open(QIODevice::ReadOnly));
        const QByteArray before = library.readAll();
        QVERIFY(window->close());
        QVERIFY(library.seek(0));
        QVERIFY(library.readAll() == before);
        QCOMPARE(QDir(window.library()->Folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList(u"Data"_qs));
    }

    void TheWindowsThatTheExitTakesAwayAreThere() {
        TestWindow window;
        for (const char* name :
             {"frmPageSetup", "frmAbout", "frmContact", "frmJurat", "frmSave", "frmTheme", "frmVerification"})
            QVERIFY2(window->Windows().IsOffered(QLatin1String(name)), name);
    }

    void QuittingAfterAClauseOfTheMenuAsksNothing() {
        TestWindow window;
        QVERIFY(window.Show());
        window->categoryBrowser->lstTitle->setListIndex(0);
        const QString before = window->txtContent()->Text();
        window->Menu(u"mnuJuratIndividual"_qs)->trigger();
        QVERIFY(window->txtContent()->Text() != before);
        QVERIFY(window->close());
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TheLibraryIsClosedBeforeTheWindowsGo() {
        TestWindow window;
        QVERIFY(window.Show());
        std::optional<bool> isOpen;
        window->Windows().Offer(u"frmPageSetup"_qs, [] { return std::make_unique<QWidget>(); });
        connect(window->Windows().Load(u"frmPageSetup"_qs), &QObject::destroyed, this,
                [&] { isOpen = window->Store().OpenFormsTable().has_value(); });
        QVERIFY(window->close());
        QCOMPARE(isOpen, std::optional(false));
    }

    void LoadedWindowsGo() {
        TestWindow window;
        QVERIFY(window.Show());
        window->Windows().Offer(u"frmTheme"_qs, [] { return std::make_unique<QWidget>(); });
        QVERIFY(window->Windows().Load(u"frmTheme"_qs));
        QVERIFY(window->close());
        QVERIFY(window->Windows().Loaded().isEmpty());
    }
};

QTEST_MAIN(ExitTest)
#include "exit_test.moc"
