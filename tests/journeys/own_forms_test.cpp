// The user's own forms from the first one to the last change, and the ways back to a form: by keys and
// clicks, and over a restart.
#include "library/category_browser.h"
#include "library/favorites_page.h"
#include "library/history_page.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class OwnFormsJourney : public QObject {
    Q_OBJECT

    static void Click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }

    static void ClickTab(TestWindow& window, Tab tab) {
        QWidget* strip = window->SSTab->Strip();
        QTest::mouseClick(strip, Qt::LeftButton, Qt::NoModifier,
                          window->SSTab->Strip()->tabRect(int(tab)).center());
        QCOMPARE(window->CurrentTab(), tab);
    }

    static void ClickText(platform::ListBox* list, const QString& text) {
        const auto index = list->Items().indexOf(text);
        QVERIFY2(index >= 0, qPrintable(text));
        TestWindow::ClickEntry(list, int(index));
    }

    // Types in whatever has the focus.
    static void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void TypeInstead(const QString& text) {
        Press(Qt::Key_A, Qt::ControlModifier);
        Type(text);
    }

    static void Compose(TestWindow& window, const QString& title, const QString& subCategory,
                        const QString& text) {
        Click(window->myFormsPage->btnNew);
        Type(title);
        Press(Qt::Key_Return);
        Type(subCategory);
        Press(Qt::Key_Return);
        Type(text);
        Click(window->myFormsPage->btnAddNew);
        QVERIFY(window.services.messageBox.shown.empty());
    }

private Q_SLOTS:
    void ComposeRenameMoveAndDelete() {
        const TestLibrary library(SomeForms());
        {
            TestWindow window(library.Folder());
            QVERIFY(window.Show());
            MyFormsPage& page = *window->myFormsPage;
            platform::RichTextBox& pane = *window->txtMyContent();
            auto& box = window.services.messageBox;
            box.answer = platform::MessageAnswer::Yes;
            ClickTab(window, Tab::MyForms);
            QVERIFY(page.btnAddNew->isVisible());

            Compose(window, u"Demand Letter"_qs, u"Letters"_qs, u"Please pay."_qs);
            Compose(window, u"Lease of Land"_qs, u"Contracts"_qs, u"The lessor lets."_qs);
            QCOMPARE(page.lstMySubCategory->Items(), QStringList({u"Contracts"_qs, u"Letters"_qs}));
            QCOMPARE(pane.Text(), u"The lessor lets."_qs);

            // a new name and a new text, by a double click and the keys
            ClickText(page.lstMySubCategory, u"Letters"_qs);
            const QModelIndex first = page.lstMyTitle->model()->index(0, 0);
            const QPoint place = page.lstMyTitle->visualRect(first).center();
            QTest::mouseClick(page.lstMyTitle->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            QTest::mouseDClick(page.lstMyTitle->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            QVERIFY(!page.fmeMyTitle->isVisible());
            Click(page.txtMyTitle);
            TypeInstead(u"Final Demand"_qs);
            QTest::mouseClick(pane.viewport(), Qt::LeftButton, Qt::NoModifier, {60, 40});
            Press(Qt::Key_End, Qt::ControlModifier);
            Type(u" At once."_qs);
            Click(page.btnUpdate);
            QCOMPARE(box.shown.size(), size_t(1));
            ClickText(page.lstMySubCategory, u"Letters"_qs);
            QCOMPARE(page.lstMyTitle->Items(), QStringList(u"Final Demand"_qs));
            QCOMPARE(pane.Text(), u"Please pay. At once."_qs);

            // into another category, which takes the place of the old one
            Click(page.btnEdit);
            Click(page.cboMySubCategory->lineEdit());
            TypeInstead(u"Collection"_qs);
            Click(page.btnUpdate);
            QCOMPARE(page.lstMySubCategory->Items(), QStringList({u"Collection"_qs, u"Contracts"_qs}));

            ClickText(page.lstMySubCategory, u"Contracts"_qs);
            Click(page.btnDelete);
            QCOMPARE(page.lstMySubCategory->Items(), QStringList(u"Collection"_qs));
            QCOMPARE(box.shown.size(), size_t(3));
            QVERIFY(window->close());
        }
        TestWindow next(library.Folder());
        QVERIFY(next.Show());
        ClickTab(next, Tab::MyForms);
        QCOMPARE(next->myFormsPage->lstMyTitle->Items(), QStringList(u"Final Demand"_qs));
        QCOMPARE(next->txtMyContent()->Text(), u"Please pay. At once."_qs);
        next.services.messageBox.answer = platform::MessageAnswer::Yes;
        Click(next->myFormsPage->btnDelete);
        QCOMPARE(next->myFormsPage->lstMySubCategory->ListCount(), 0);
        QVERIFY(next->myFormsPage->btnAddNew->isVisible());
    }

    void AFormOfTheLibraryBecomesOnesOwn() {
        TestWindow window;
        QVERIFY(window.Show());
        MyFormsPage& page = *window->myFormsPage;
        ClickText(window->categoryBrowser->lstTitle, u"Acknowledgment Alone"_qs);
        window->Menu(u"mnuAddToMyForms"_qs)->trigger();
        QCOMPARE(window->CurrentTab(), Tab::MyForms);
        QCOMPARE(window.services.messageBox.shown.size(), size_t(1));
        Type(u"My Acknowledgment"_qs); // the focus is in the title already
        Press(Qt::Key_Return);
        Type(u"Notarial"_qs);
        Click(page.btnAddNew);
        QCOMPARE(window.services.messageBox.shown.size(), size_t(1));
        QCOMPARE(page.lstMySubCategory->Items(), QStringList(u"Notarial"_qs));
        QCOMPARE(page.lstMyTitle->Items(), QStringList(u"My Acknowledgment"_qs));
        QCOMPARE(window->txtMyContent()->Text(), u"BEFORE ME"_qs);
    }

    void MarkFavouritesAndReturnThroughTheHistory() {
        const TestLibrary library(SomeForms());
        {
            TestWindow window(library.Folder());
            QVERIFY(window.Show());
            CategoryBrowser& browser = *window->categoryBrowser;
            FavoritesPage& favorites = *window->favoritesPage;
            HistoryPage& history = *window->historyPage;

            ClickText(browser.lstTitle, u"Second Acknowledgment"_qs);
            Click(browser.cmdAddtoFavs);
            Click(browser.CategoryButton(u"btnAffidavits"_qs));
            ClickText(browser.lstTitle, u"Affidavit of Loss"_qs);
            ClickTab(window, Tab::Favorites);
            QCOMPARE(favorites.lstFavorites->Items(), QStringList(u"Second Acknowledgment"_qs));
            ClickText(favorites.lstFavorites, u"Second Acknowledgment"_qs);
            QCOMPARE(window->txtContent()->Text(), u"BEFORE ME, a notary"_qs);

            ClickTab(window, Tab::History);
            QCOMPARE(history.lstHistory->Items().mid(0, 2),
                     QStringList({u"Second Acknowledgment"_qs, u"Affidavit of Loss"_qs}));
            ClickText(history.lstHistory, u"Affidavit of Loss"_qs);
            QCOMPARE(window->txtContent()->Text(), u"I lost it"_qs);
            Click(history.cmdAddtoFavs2);
            history.lstHistory->setFocus();
            Press(Qt::Key_Up);
            QCOMPARE(window->txtContent()->Text(), u"BEFORE ME, a notary"_qs);

            ClickTab(window, Tab::Favorites);
            QCOMPARE(favorites.lstFavorites->Items(),
                     QStringList({u"Affidavit of Loss"_qs, u"Second Acknowledgment"_qs}));
            ClickText(favorites.lstFavorites, u"Second Acknowledgment"_qs);
            Click(favorites.cmdRemove);
            ClickTab(window, Tab::History);
            Click(history.cmdClearHist);
            QCOMPARE(history.lstHistory->ListCount(), 0);
            QVERIFY(window.services.messageBox.shown.empty());
            QVERIFY(window->close());
        }
        TestWindow next(library.Folder());
        QVERIFY(next.Show());
        ClickTab(next, Tab::History);
        QCOMPARE(next->historyPage->lstHistory->ListCount(), 0);
        ClickTab(next, Tab::Favorites);
        QCOMPARE(next->favoritesPage->lstFavorites->Items(), QStringList(u"Affidavit of Loss"_qs));
    }
};

QTEST_MAIN(OwnFormsJourney)
#include "own_forms_test.moc"
