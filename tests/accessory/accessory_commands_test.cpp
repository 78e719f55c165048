// The ways to the about box and the contact card.
#include "accessory/about_window.h"
#include "accessory/accessory_commands.h"
#include "accessory/contact_window.h"
#include "accessory/navigate_url.h"
#include "platform/controls/status_bar.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class AccessoryCommandsTest : public QObject {
    Q_OBJECT

    // Does what brings up a modal window, looks at that, and closes it.
    template <class Window>
    static int Meet(const std::function<void()>& act, const std::function<void(Window*)>& look) {
        int met = 0;
        QTimer::singleShot(0, qApp, [&] {
            if (auto* window = qobject_cast<Window*>(QApplication::activeModalWidget())) {
                ++met;
                look(window);
                window->close();
            }
        });
        act();
        return met;
    }

private Q_SLOTS:
    void WaysToTheAboutBox_data() {
        QTest::addColumn<QString>("entry"); // empty: the panel
        QTest::newRow("menu") << u"mnuAbout"_qs;
        QTest::newRow("pop-up menu") << u"mnuPopAbout"_qs;
        QTest::newRow("panel 3") << QString();
    }
    void WaysToTheAboutBox() {
        QFETCH(QString, entry);
        TestWindow window;
        QVERIFY(window.Show());
        const auto act = [&] {
            if (entry.isEmpty())
                QTest::mouseClick(window->StatusBar1->Panel(3), Qt::LeftButton);
            else
                window->Menu(entry)->trigger();
        };
        QCOMPARE(Meet<frmAbout>(act, [](frmAbout* about) { QVERIFY(about->isModal()); }), 1);
        QVERIFY(!window->Windows().IsLoaded(u"frmAbout"_qs));
    }

    void WaysToTheContactCard_data() {
        QTest::addColumn<bool>("panel");
        QTest::newRow("menu") << false;
        QTest::newRow("panel 1") << true;
    }
    void WaysToTheContactCard() {
        QFETCH(bool, panel);
        TestWindow window;
        QVERIFY(window.Show());
        const auto act = [&] {
            if (panel)
                QTest::mouseClick(window->StatusBar1->Panel(1), Qt::LeftButton);
            else
                window->Menu(u"mnuContact"_qs)->trigger();
        };
        QCOMPARE(Meet<frmContact>(act, [](frmContact* card) { QVERIFY(card->isModal()); }), 1);
        QVERIFY(!window->Windows().IsLoaded(u"frmContact"_qs));
    }

    void AfterAPauseANewAboutBoxRunsAgainFromTheTop() {
        TestWindow window;
        QVERIFY(window.Show());
        const auto act = [&] { window->Menu(u"mnuAbout"_qs)->trigger(); };
        Meet<frmAbout>(act, [](frmAbout* about) {
            about->picCredits2->move(about->picCredits2->x(), -50);
            QTest::mouseClick(about->picCredits2, Qt::LeftButton, Qt::NoModifier, {2, 60});
            QVERIFY(!about->tmrCredits->isActive());
        });
        const int met = Meet<frmAbout>(act, [](frmAbout* about) {
            QVERIFY(about->tmrCredits->isActive());
            QVERIFY(about->picCredits2->y() > 0 && about->picCredits2->y() <= 4);
        });
        QCOMPARE(met, 1);
    }

    void ASecondContactCardContinuesThePulse() {
        TestWindow window;
        QVERIFY(window.Show());
        const auto act = [&] { window->Menu(u"mnuContact"_qs)->trigger(); };
        int red = 0;
        const auto tick = [&](frmContact* card) {
            card->Timer1->stop();
            Q_EMIT card->Timer1->timeout({});
            red = card->lblTitle->palette().color(QPalette::WindowText).red();
        };
        Meet<frmContact>(act, tick);
        QCOMPARE(red, 246);
        Meet<frmContact>(act, tick);
        QCOMPARE(red, 236);
    }

    void ALinkThatNothingOpensIsPassedOver_data() {
        QTest::addColumn<QString>("link");
        QTest::newRow("of an unknown kind") << u"nosuchkind:nobody@nowhere.example"_qs;
        QTest::newRow("not well formed") << u"http://[not a link"_qs;
        QTest::newRow("empty") << QString();
    }
    void ALinkThatNothingOpensIsPassedOver() {
        QFETCH(QString, link);
        NavigateURL(link);
        QVERIFY(!QApplication::activeModalWidget());
    }
};

QTEST_MAIN(AccessoryCommandsTest)
#include "accessory_commands_test.moc"
