#include "platform/controls/ss_tab.h"

#include <QtTest>
#include <QtWidgets>

using platform::SSTab;

class SSTabTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AddingPagesIsNoChoice() {
        SSTab tabs;
        QSignalSpy clicks(&tabs, &SSTab::Click);
        for (int i = 0; i < 3; ++i)
            tabs.AddPage(QString::number(i), {});
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(tabs.Tab(), 0);
    }

    void AssigningATabTellsThePreviousOne() {
        SSTab tabs;
        for (int i = 0; i < 3; ++i)
            tabs.AddPage(QString::number(i), {});
        QSignalSpy clicks(&tabs, &SSTab::Click);
        tabs.setTab(2);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(clicks[0][0].toInt(), 0);
        tabs.setTab(2);
        QCOMPARE(clicks.size(), 1);
        tabs.setTab(1);
        QCOMPARE(clicks[1][0].toInt(), 2);
    }

    void AClickOnATabShowsItsPage() {
        SSTab tabs;
        for (int i = 0; i < 3; ++i)
            tabs.AddPage(QString::number(i), {});
        tabs.resize(400, 200);
        tabs.show();
        QTest::mouseClick(tabs.Strip(), Qt::LeftButton, Qt::NoModifier, tabs.Strip()->tabRect(1).center());
        QCOMPARE(tabs.Tab(), 1);
        QVERIFY(tabs.Page(1)->isVisible());
        QVERIFY(!tabs.Page(0)->isVisible());
    }

    void CtrlAndPageKeysTurnThePages() {
        SSTab tabs;
        for (int i = 0; i < 3; ++i)
            tabs.AddPage(QString::number(i), {});
        QLineEdit field(tabs.Page(0));
        tabs.show();
        QVERIFY(QTest::qWaitForWindowActive(&tabs));
        field.setFocus();
        QTest::keyClick(&field, Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(tabs.Tab(), 1);
        QTest::keyClick(&tabs, Qt::Key_PageUp, Qt::ControlModifier);
        QTest::keyClick(&tabs, Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(tabs.Tab(), 2);
        QTest::keyClick(&tabs, Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(tabs.Tab(), 0);
    }

    void ControlsStandWhereTheyArePlacedInTheTabControl() {
        SSTab tabs;
        QWidget* page = tabs.AddPage(u"one"_qs, {});
        auto* control = new QWidget(page);
        platform::PlaceOnPage(control, 8, 40, 100, 20);
        tabs.resize(400, 200);
        tabs.show();
        QCOMPARE(control->mapTo(&tabs, QPoint()), QPoint(8, 40));
        QCOMPARE(control->size(), QSize(100, 20));
    }

    void MovingOverThePageOrTheTabsIsTold() {
        SSTab tabs;
        QWidget* page = tabs.AddPage(u"one"_qs, {});
        tabs.resize(400, 200);
        tabs.show();
        QSignalSpy moves(&tabs, &SSTab::MouseMove);
        // through the window, so that the one pointer of the display is not needed
        QTest::mouseMove(tabs.windowHandle(), page->mapTo(&tabs, QPoint(20, 20)));
        QTRY_COMPARE(moves.size(), 1);
        QTest::mouseMove(tabs.windowHandle(), QPoint(20, 10));
        QTRY_COMPARE(moves.size(), 2);
    }
};

QTEST_MAIN(SSTabTest)
#include "ss_tab_test.moc"
