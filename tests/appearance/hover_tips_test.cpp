// The title bar as a reading line: the mouse over the lists of the real window.
#include "appearance/look.h"
#include "library/category_browser.h"
#include "library/favorites_page.h"
#include "library/history_page.h"
#include "library/my_forms_page.h"
#include "platform/controls/list_box.h"
#include "platform/controls/ss_tab.h"
#include "search/search_page.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class HoverTipsTest : public QObject {
    Q_OBJECT

    static void MoveTo(QWidget* target, const QPoint& place, Qt::MouseButtons buttons = Qt::NoButton) {
        QMouseEvent move(QEvent::MouseMove, place, target->mapToGlobal(QPointF(place)), Qt::NoButton, buttons,
                         Qt::NoModifier);
        QApplication::sendEvent(target, &move);
    }
    static QPoint ItemOf(platform::ListBox* list, int index) {
        return list->visualRect(list->model()->index(index, 0)).center();
    }

private Q_SLOTS:
    void initTestCase() { ApplyLook(*qApp); } // its rules let buttons follow the mouse

    void AnItemStandsInTheTitleBarWhole() {
        std::vector<TestForm> forms = SomeForms();
        const QString longTitle = u"Affidavit of "_qs + QString(200, u'x');
        forms.push_back({longTitle, u"Acknowledgment / Jurat"_qs, u"Acknowledgments"_qs, u"text"_qs});
        TestWindow window(forms);
        QVERIFY(window.Show());
        platform::ListBox* list = window->categoryBrowser->lstTitle;
        MoveTo(list->viewport(), ItemOf(list, 1));
        QCOMPARE(window->windowTitle(), longTitle);
        MoveTo(list->viewport(), ItemOf(list, 0));
        QCOMPARE(window->windowTitle(), u"Acknowledgment Alone"_qs);
    }

    void AnItemReachesFromSideToSide_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("tab");
        QTest::newRow("titles") << u"lstTitle"_qs << 0;
        QTest::newRow("sub-categories") << u"lstSubCategory"_qs << 0;
        QTest::newRow("results") << u"lstSearch"_qs << 1;
        QTest::newRow("favourites") << u"lstFavorites"_qs << 3;
        QTest::newRow("history") << u"lstHistory"_qs << 4;
    }
    void AnItemReachesFromSideToSide() {
        QFETCH(QString, name);
        QFETCH(int, tab);
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab(tab));
        auto* list = window->findChild<platform::ListBox*>(name);
        list->resize(200, 100);
        list->show();
        list->SetItems({u"Deed"_qs});
        for (const int x : {0, list->viewport()->width() - 1}) {
            window->SetCaption(QString());
            MoveTo(list->viewport(), {x, ItemOf(list, 0).y()});
            QCOMPARE(window->windowTitle(), u"Deed"_qs);
        }
    }

    void BesideTheItemsEachListHasItsTitle_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("empty");
        QTest::addColumn<QString>("title");
        const QList<std::pair<QString, QString>> lists = {{u"lstTitle"_qs, u"Quillbrook"_qs},
                                                          {u"lstSubCategory"_qs, u"Quillbrook"_qs},
                                                          {u"lstSearch"_qs, u"Search Results"_qs},
                                                          {u"lstFavorites"_qs, u"My Favorite Forms"_qs},
                                                          {u"lstHistory"_qs, u"Recently Opened Forms"_qs}};
        for (const auto& [name, title] : lists) {
            QTest::newRow(qPrintable(name + u", empty"_qs)) << name << true << title;
            QTest::newRow(qPrintable(name + u", below its items"_qs)) << name << false << title;
        }
    }
    void BesideTheItemsEachListHasItsTitle() {
        QFETCH(QString, name);
        QFETCH(bool, empty);
        TestWindow window;
        auto* list = window->findChild<platform::ListBox*>(name);
        list->resize(200, 100);
        list->SetItems(empty ? QStringList() : QStringList(u"Only One"_qs));
        if (!empty) {
            MoveTo(list->viewport(), ItemOf(list, 0));
            QCOMPARE(window->windowTitle(), u"Only One"_qs);
        }
        MoveTo(list->viewport(), {50, 80});
        QTEST(window->windowTitle(), "title");
    }

    void WithAButtonDownTheTitleStays_data() {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::newRow("left") << Qt::LeftButton;
        QTest::newRow("right") << Qt::RightButton;
        QTest::newRow("middle") << Qt::MiddleButton;
    }
    void WithAButtonDownTheTitleStays() {
        QFETCH(Qt::MouseButton, button);
        TestWindow window;
        platform::ListBox* list = window->categoryBrowser->lstTitle;
        MoveTo(list->viewport(), ItemOf(list, 0), button);
        QCOMPARE(window->windowTitle(), u"Quillbrook by Atty. Merrow"_qs);
    }

    void OnThePageTheTitleComesBack() {
        TestWindow window;
        QVERIFY(window.Show());
        platform::ListBox* list = window->categoryBrowser->lstTitle;
        MoveTo(list->viewport(), ItemOf(list, 0));
        MoveTo(window->SSTab->Page(0), {2, 2});
        QCOMPARE(window->windowTitle(), u"Quillbrook by Atty. Merrow"_qs);
        MoveTo(list->viewport(), ItemOf(list, 0));
        MoveTo(window->SSTab->Strip(), {2, 2});
        QCOMPARE(window->windowTitle(), u"Quillbrook by Atty. Merrow"_qs);
        MoveTo(list->viewport(), ItemOf(list, 0));
        MoveTo(window->SSTab, {1, 1}); // left of the tabs
        QCOMPARE(window->windowTitle(), u"Quillbrook by Atty. Merrow"_qs);
    }

    void EachPageHasItsTitle_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("title");
        QTest::newRow("browser") << 0 << u"Quillbrook by Atty. Merrow"_qs;
        QTest::newRow("search") << 1 << u"Advanced Search"_qs;
        QTest::newRow("editor") << 2 << u"Edit Form"_qs;
        QTest::newRow("favourites") << 3 << u"My Favorites"_qs;
        QTest::newRow("history") << 4 << u"Recently Opened Forms"_qs;
        QTest::newRow("own forms") << 5 << u"My Forms"_qs;
    }
    void EachPageHasItsTitle() {
        QFETCH(int, tab);
        TestWindow window;
        window->SetTab(Tab(tab));
        window->SetCaption(u"An entry"_qs);
        MoveTo(window->SSTab->Page(tab), {2, 2});
        QTEST(window->windowTitle(), "title");
    }

    void OnAnotherControlItStays() {
        TestWindow window;
        QVERIFY(window.Show());
        platform::ListBox* list = window->categoryBrowser->lstTitle;
        MoveTo(list->viewport(), ItemOf(list, 0));
        MoveTo(window->findChild<QWidget*>(u"picLeftToolbar"_qs), {5, 5});
        MoveTo(window->findChild<QWidget*>(u"btnSave"_qs), {5, 5});
        QCOMPARE(window->windowTitle(), u"Acknowledgment Alone"_qs);
    }

    void OnAControlOfThePageItStaysToo_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"btnMyForms", "cmdAddtoFavs", "cmdSearchAgain", "httpAttyMerrow",
                                 "lblQuillbrook", "fmeTitle", "btnSales"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void OnAControlOfThePageItStaysToo() {
        QFETCH(QString, name);
        TestWindow window;
        QVERIFY(window.Show());
        platform::ListBox* list = window->categoryBrowser->lstTitle;
        MoveTo(list->viewport(), ItemOf(list, 0));
        MoveTo(window->findChild<QWidget*>(name), {5, 5});
        QCOMPARE(window->windowTitle(), u"Acknowledgment Alone"_qs);
    }

    // What has a meaning of its own for Qt is shown as it stands, too.
    void ATitleOfAnyCharactersIsShown() {
        TestWindow window;
        QVERIFY(window.Show());
        platform::ListBox* list = window->categoryBrowser->lstTitle;
        list->SetItems({u"Deed [*] of Sale & Lease [*][*]"_qs});
        MoveTo(list->viewport(), ItemOf(list, 0));
        QCOMPARE(window->windowHandle()->title(), u"Deed [*] of Sale & Lease [*][*]"_qs);
    }

    void AChangeOfTabBringsItBack() {
        TestWindow window;
        platform::ListBox* list = window->categoryBrowser->lstTitle;
        MoveTo(list->viewport(), ItemOf(list, 0));
        window->SetTab(Tab::Favorites);
        QCOMPARE(window->windowTitle(), u"My Favorites"_qs);
    }

    void OtherListsLeaveItAlone_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("my titles") << u"lstMyTitle"_qs;
        QTest::newRow("my sub-categories") << u"lstMySubCategory"_qs;
    }
    void OtherListsLeaveItAlone() {
        QFETCH(QString, name);
        TestWindow window;
        auto* list = window->findChild<platform::ListBox*>(name);
        list->SetItems({u"One"_qs});
        MoveTo(list->viewport(), ItemOf(list, 0));
        QCOMPARE(window->windowTitle(), u"Quillbrook by Atty. Merrow"_qs);
    }
};

QTEST_MAIN(HoverTipsTest)
#include "hover_tips_test.moc"
