#include "app/left_toolbar.h"
#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "library/favorites_page.h"
#include "library/history_page.h"
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

constexpr int kStays = -1;

class TabChangeTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;
    frmMain& Main() { return **m_window; }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
    }
    void cleanup() { m_window.reset(); }

    void EveryTabHasItsCaptionAndPicture() {
        const QTabBar* strip = Main().SSTab->Strip();
        const QStringList captions{u" Forms Explorer "_qs, u" Search "_qs,  u" Edit Form "_qs,
                                   u" Favorites "_qs,      u" History "_qs, u" My Forms "_qs};
        QCOMPARE(strip->count(), int(captions.size()));
        QCOMPARE(strip->iconSize(), QSize(16, 16));
        for (int tab = 0; tab < strip->count(); ++tab) {
            QCOMPARE(strip->tabText(tab), captions[tab]);
            QVERIFY(!strip->tabIcon(tab).pixmap(16).isNull());
        }
    }

    void EachPageHoldsItsControls_data() {
        QTest::addColumn<QString>("controls");
        QTest::newRow("0")
            << u"lblQuillbrook httpFacebook httpAttyMerrow btnMyForms cmdAddtoFavs cmdSearchAgain "
               u"fmeSubject fmeSubCategory fmeTitle"_qs;
        QTest::newRow("1") << u"fmeSearchResult fmeSearchMode fmeSearch btnNextHit btnPreviousHit "
                              u"lblDisplayHits lblSearchGuide1 lblSearchGuide lblSearch"_qs;
        QTest::newRow("2") << QString();
        QTest::newRow("3") << u"lstFavorites cmdRemove lblFavorites"_qs;
        QTest::newRow("4") << u"lstHistory cmdClearHist cmdAddtoFavs2 lblHistory"_qs;
        QTest::newRow("5")
            << u"fmeMyTitle fmeImport Frame5 Frame6 frmSubCategory btnUpdate btnAddNew btnEdit "
               u"btnNew btnDelete btnCancelNew"_qs;
    }
    void EachPageHoldsItsControls() {
        QFETCH(QString, controls);
        const QWidget* page = Main().SSTab->Page(QString::fromLatin1(QTest::currentDataTag()).toInt());
        QSet<QString> held;
        for (const QWidget* control : page->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            held.insert(control->objectName());
        const QStringList expected = controls.split(u' ', Qt::SkipEmptyParts);
        QCOMPARE(held, QSet<QString>(expected.begin(), expected.end()));
    }

    // They lie over the pages and are no part of any.
    void ThePanesAndTheFormattingBarAreTheWindowsOwn() {
        Main().SetTab(Tab::EditForm);
        for (QWidget* control : {static_cast<QWidget*>(Main().txtContent()),
                                 static_cast<QWidget*>(Main().editToolBar->fmeEditToolBar)}) {
            QVERIFY(!Main().SSTab->isAncestorOf(control));
            const QPoint middle = control->mapTo(&Main(), control->rect().center());
            QVERIFY(Main().SSTab->rect().contains(Main().SSTab->mapFrom(&Main(), middle)));
            QWidget* seen = Main().childAt(middle);
            QVERIFY(seen == control || control->isAncestorOf(seen));
        }
        QVERIFY(!Main().SSTab->isAncestorOf(Main().txtMyContent()));
    }

    void EachTabLaysOutItsPage_data() {
        QTest::addColumn<QString>("pageTitle");
        QTest::addColumn<int>("barTop"); // kStays: the bar is hidden
        QTest::addColumn<int>("paneTop");
        QTest::addColumn<QString>("focus");
        QTest::newRow("0") << u"Quillbrook by Atty. Merrow"_qs << kStays << 4290 << u"lstTitle"_qs;
        QTest::newRow("1") << u"Advanced Search"_qs << kStays << 2550 << u"cboQuery"_qs;
        QTest::newRow("2") << u"Edit Form"_qs << 440 << 1540 << u"txtContent"_qs;
        QTest::newRow("3") << u"My Favorites"_qs << kStays << 2100 << u"lstFavorites"_qs;
        QTest::newRow("4") << u"Recently Opened Forms"_qs << kStays << 2100 << u"lstHistory"_qs;
        QTest::newRow("5") << u"My Forms"_qs << 2220 << kStays << u"txtMyTitle"_qs;
    }
    void EachTabLaysOutItsPage() {
        QFETCH(QString, pageTitle);
        QFETCH(int, barTop);
        QFETCH(int, paneTop);
        QFETCH(QString, focus);
        const int tab = QString::fromLatin1(QTest::currentDataTag()).toInt();
        Main().SetTab(tab == 3 ? Tab::History : Tab::Favorites); // from another page
        Main().txtContent()->move(1, 1);
        const QPoint before = Main().txtContent()->pos();
        Main().Menu(u"mnuHelpContents"_qs)->setChecked(true);
        Main().leftToolbar->btnSave->setFocus(); // which no change of page takes by itself

        QTest::mouseClick(Main().SSTab->Strip(), Qt::LeftButton, Qt::NoModifier,
                          Main().SSTab->Strip()->tabRect(tab).center());

        QCOMPARE(int(Main().CurrentTab()), tab);
        QCOMPARE(Main().Variables().PageTitle, pageTitle);
        QCOMPARE(Main().windowTitle(), pageTitle);
        QVERIFY(!Main().Menu(u"mnuHelpContents"_qs)->isChecked());
        const QFrame* bar = Main().editToolBar->fmeEditToolBar;
        QCOMPARE(bar->isVisible(), barTop != kStays);
        if (barTop != kStays)
            QCOMPARE(Top(bar), 15 * qRound(barTop / 15.0)); // the nearest pixel
        const bool myForms = tab == 5;
        QCOMPARE(Main().txtContent()->isVisible(), !myForms);
        QCOMPARE(Main().txtMyContent()->isVisible(), myForms);
        if (paneTop == kStays) {
            QCOMPARE(Main().txtContent()->pos(), before);
        } else {
            QCOMPARE(Top(Main().txtContent()), 15 * qRound(paneTop / 15.0));
            const int height =
                Main().ScaleHeight() - Top(Main().txtContent()) - Height(Main().StatusBar1) - 175;
            QCOMPARE(Height(Main().txtContent()), 15 * qRound(height / 15.0));
        }
        QWidget* focused = QApplication::focusWidget();
        QVERIFY(focused);
        const QWidget* named = focused;
        while (named && named->objectName() != focus)
            named = named->parentWidget();
        QVERIFY2(named, qPrintable(focused->objectName()));
    }

    void TheUndoButtonsOfThePageAreShown() {
        const EditToolBar& bar = *Main().editToolBar;
        for (int tab = 5; tab >= 0; --tab) {
            Main().SetTab(Tab(tab));
            QCOMPARE(bar.btnMyUndo->isHidden(), tab != 5);
            QCOMPARE(bar.btnMyRedo->isHidden(), tab != 5);
            QCOMPARE(bar.btnUndo->isHidden(), tab == 5);
            QCOMPARE(bar.btnRedo->isHidden(), tab == 5);
        }
    }

    void TheSearchPagePutsThePaneWhereTheLastSearchLeftIt() {
        Main().State().SearchPaneTop = 3900;
        Main().SetTab(Tab::Search);
        QCOMPARE(Top(Main().txtContent()), 3900);
    }

    void TheCaretOfTheQueryStandsAtItsEnd() {
        platform::ComboBox* query = Main().searchPage->cboQuery;
        query->setText(u"deed of sale"_qs);
        query->lineEdit()->setCursorPosition(0);
        Main().SetTab(Tab::Search);
        QCOMPARE(query->lineEdit()->cursorPosition(), 12);
        QVERIFY(!query->lineEdit()->hasSelectedText());
    }

    void TheFavouritesAreReadAgain() {
        Main().Store().SetFavorite(u"Special Power"_qs, 1);
        QCOMPARE(Main().favoritesPage->lstFavorites->ListCount(), 0);
        Main().SetTab(Tab::Favorites);
        QCOMPARE(Main().favoritesPage->lstFavorites->Items(), QStringList(u"Special Power"_qs));
    }

    void RepeatsLeaveTheHistory() {
        for (const QString& title : {u"b"_qs, u"a"_qs, u"b"_qs})
            Main().historyPage->Add(title);
        Main().SetTab(Tab::History);
        QCOMPARE(Main().historyPage->lstHistory->Items(), QStringList({u"b"_qs, u"a"_qs}));
    }

    void TheTitlesOfOwnFormsGoBackToTheirPlaceAndKeepTheirVisibility() {
        QWidget* frame = Main().myFormsPage->fmeMyTitle;
        frame->move(0, 0);
        Main().SetTab(Tab::MyForms);
        QCOMPARE(Left(frame), 3240);
        QCOMPARE(platform::ToTwips(frame->mapTo(Main().SSTab, QPoint()).y()), 420);
        QVERIFY(frame->isHidden()); // the collection is empty
    }

    void AnotherPageBringsTheCaptionBackFromAHover() {
        Main().SetCaption(u"Deed of Absolute Sale"_qs);
        Main().SetTab(Tab::Search);
        QCOMPARE(Main().windowTitle(), u"Advanced Search"_qs);
    }

    void TheUndoMenusFollowTheButtonsOfTheEditPages() {
        EditToolBar& bar = *Main().editToolBar;
        bar.btnUndo->setEnabled(true);
        bar.btnMyRedo->setEnabled(true);
        const auto menus = [this] {
            return std::tuple(
                Main().Menu(u"mnuUndo"_qs)->isEnabled(), Main().Menu(u"mnuPopUndo"_qs)->isEnabled(),
                Main().Menu(u"mnuRedo"_qs)->isEnabled(), Main().Menu(u"mnuPopRedo"_qs)->isEnabled());
        };
        Main().SetTab(Tab::EditForm);
        QCOMPARE(menus(), std::tuple(true, true, false, false));
        Main().SetTab(Tab::Search);
        QCOMPARE(menus(), std::tuple(true, true, false, false)); // other pages leave them
        Main().SetTab(Tab::MyForms);
        QCOMPARE(menus(), std::tuple(false, false, true, true));
    }

    void AResizeOnTheEditPageMakesTheMarginOfAResizeAndTheNextTabThatOfATab() {
        const auto below = [this] {
            return Main().ScaleHeight() - Top(Main().txtContent()) - Height(Main().txtContent()) -
                   Height(Main().StatusBar1);
        };
        Main().SetTab(Tab::EditForm);
        QVERIFY(std::abs(below() - 175) <= 7);
        Main().resize(Main().width(), Main().height() + 40);
        QCoreApplication::processEvents();
        QVERIFY(std::abs(below() - 150) <= 7);
        Main().SetTab(Tab::Search);
        QVERIFY(std::abs(below() - 175) <= 7);
    }

    void TheMouseOverThePageBringsItsTitleBack() {
        Main().SetCaption(u"Deed of Absolute Sale"_qs);
        QTest::mouseMove(Main().windowHandle(),
                         Main().SSTab->mapTo(&Main(), QPoint(3, Main().SSTab->height() - 3)));
        QTRY_COMPARE(Main().windowTitle(), u"Quillbrook by Atty. Merrow"_qs);
    }
};

QTEST_MAIN(TabChangeTest)
#include "tab_change_test.moc"
