#include "app/left_toolbar.h"
#include "app/menu_tree.h"
#include "library/category_browser.h"
#include "platform/controls/geometry.h"
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

// Lengths are told in twips and set in whole pixels.
static void CompareTwips(int actual, int expected, const char* what) {
    QVERIFY2(std::abs(actual - expected) <= 7,
             qPrintable(
                 QStringLiteral("%1: %2 instead of %3").arg(QLatin1String(what)).arg(actual).arg(expected)));
}

class ResizeTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;
    frmMain& Main() { return **m_window; }

    void Resize(int width, int height) {
        Main().resize(width, height);
        QCoreApplication::processEvents();
    }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->Show());
    }
    void cleanup() { m_window.reset(); }

    void EverythingFollowsTheInnerSize_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("as designed") << QSize(756, 551);
        QTest::newRow("wide") << QSize(1400, 551);
        QTest::newRow("tall") << QSize(756, 1000);
        QTest::newRow("large") << QSize(1500, 1100);
        QTest::newRow("small") << QSize(500, 450);
    }
    void EverythingFollowsTheInnerSize() {
        QFETCH(QSize, size);
        Resize(size.width(), size.height());
        QCOMPARE(Main().size(), size);
        const QRect menus = Main().menuTree->MenuBar()->geometry();
        QCOMPARE(menus, QRect(0, 0, size.width(), Main().menuTree->MenuBar()->sizeHint().height()));
        CompareTwips(Main().ScaleHeight(), platform::ToTwips(size.height() - menus.height()), "inner height");
        const int width = Main().ScaleWidth();
        const int height = Main().ScaleHeight();
        const int bar = Height(Main().StatusBar1);
        const auto* tabs = Main().SSTab;
        CompareTwips(Width(tabs), std::max(width - Left(tabs) - 30, 10600), "SSTab width");
        CompareTwips(Height(tabs), height - Top(tabs) - bar - 30, "SSTab height");
        const auto* pane = Main().txtContent();
        CompareTwips(Width(pane), width - Left(pane) - 180, "txtContent width");
        CompareTwips(Height(pane), height - Top(pane) - bar - 150, "txtContent height");
        const auto* myPane = Main().txtMyContent();
        QCOMPARE(myPane->width(), pane->width());
        CompareTwips(Height(myPane), height - Top(myPane) - bar - 150, "txtMyContent height");
        const QWidget* toolbar = Main().leftToolbar->picLeftToolbar;
        QCOMPARE(Top(toolbar), 45);
        CompareTwips(Height(toolbar), Height(tabs) - 15, "picLeftToolbar height");
        const QWidget* help = Main().leftToolbar->btnHelp;
        CompareTwips(Top(help), std::max(Height(toolbar) - Height(help) - 150, 6180), "btnHelp top");
        const QWidget* heading = Main().categoryBrowser->lblQuillbrook;
        CompareTwips(Width(heading), Width(tabs) - Left(heading) - 250, "lblQuillbrook width");
        const QWidget* guide = Main().searchPage->lblSearchGuide;
        CompareTwips(Width(guide), Width(tabs) - 6540 - 250, "lblSearchGuide width");
        QCOMPARE(Main().searchPage->lblSearchGuide1->width(), guide->width());
        CompareTwips(Width(Main().Line1), width + 1000, "Line1 width");
    }

    void ANarrowWindowCutsTheTabsOff() {
        Resize(400, 551);
        CompareTwips(Width(Main().SSTab), 10600, "SSTab width");
        QVERIFY(Main().SSTab->geometry().right() > Main().width());
    }

    void ALowWindowKeepsTheHelpButton() {
        Resize(756, 300);
        CompareTwips(Top(Main().leftToolbar->btnHelp), 6180, "btnHelp top");
    }

    void TheWindowMayBeSmallerThanItsContents() {
        Resize(200, 150);
        QCOMPARE(Main().size(), QSize(200, 150));
    }

    // No control can have a negative size: it keeps the one it has.
    void AWindowThatEndsAboveAControlLeavesItsSize() {
        Resize(756, 551);
        const QSize pane = Main().txtContent()->size();
        const int tabs = Main().SSTab->height();
        const int toolbar = Main().leftToolbar->picLeftToolbar->height();
        Resize(50, 40);
        QCOMPARE(Main().txtContent()->size(), pane);
        QCOMPARE(Main().SSTab->height(), tabs);
        QCOMPARE(Main().leftToolbar->picLeftToolbar->height(), toolbar);
        Main().SetTab(Tab::EditForm);
        QCOMPARE(Main().txtContent()->size(), pane);
        QCOMPARE(Top(Main().txtContent()), 1545); // 1,540 is no whole number of pixels
    }
};

QTEST_MAIN(ResizeTest)
#include "resize_test.moc"
