#include "accessory/splash_picture.h"
#include "accessory/splash_window.h"
#include "tests/support/scripted_services.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

// Where the splash stands at each beep.
class PlacingSound final : public platform::SoundService {
public:
    void Beep() override {
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == u"frmSplash"_qs)
                places.append(window->pos());
    }

    QList<QPoint> places;
};

class SplashWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItHasOnePictureAndElevenTimers() {
        CountedSound sound;
        const frmSplash splash(sound);
        QCOMPARE(splash.Image1->size(), QSize(400, 234));
        QCOMPARE(splash.size(), QSize(400, 234));
        QCOMPARE(splash.windowTitle(), u" Loading . . ."_qs);
        QCOMPARE(splash.findChildren<QTimer*>().size(), 11);
        QCOMPARE(sound.beeps, 1);
    }

    void ItsTimersHaveTheirIntervals_data() {
        QTest::addColumn<int>("timer");
        QTest::addColumn<int>("interval");
        QTest::newRow("Timer1") << 1 << 1;
        for (int timer = 4; timer <= 13; ++timer)
            QTest::newRow(qPrintable(u"Timer%1"_qs.arg(timer))) << timer << 50;
    }
    void ItsTimersHaveTheirIntervals() {
        QFETCH(int, timer);
        CountedSound sound;
        const frmSplash splash(sound);
        QCOMPARE(splash.Timer(timer)->objectName(), u"Timer%1"_qs.arg(timer));
        QTEST(splash.Timer(timer)->interval(), "interval");
    }

    void ItStandsInTheMiddleOfTheScreen() {
        CountedSound sound;
        const frmSplash splash(sound);
        const QSize screen = QGuiApplication::primaryScreen()->size();
        QCOMPARE(splash.pos(), QPoint(screen.width() / 2 - 200, screen.height() / 2 - 117));
    }

    void TheBeepIsTheLastOfItsLoad() {
        PlacingSound sound;
        const frmSplash splash(sound);
        QCOMPARE(sound.places, QList<QPoint>{splash.pos()});
        QVERIFY(!splash.pos().isNull());
    }

    void ThePictureIsDrawnSharpAndInColor() {
        CountedSound sound;
        frmSplash splash(sound);
        const QImage shown = splash.grab().toImage();
        QSet<QRgb> colors;
        for (int x = 0; x < shown.width(); x += 4)
            for (int y = 0; y < shown.height(); y += 4)
                colors.insert(shown.pixel(x, y));
        QVERIFY(colors.size() > 100);
    }

    void TheMainWindowIsAskedForOnceThePictureIsPainted() {
        CountedSound sound;
        frmSplash splash(sound);
        QSignalSpy painted(splash.Image1, &SplashPicture::Painted);
        int paintedBefore = -1;
        connect(&splash, &frmSplash::LoadMainWindow, &splash, [&] { paintedBefore = int(painted.size()); });
        splash.show();
        QTRY_VERIFY(paintedBefore >= 0);
        QVERIFY(paintedBefore > 0);
    }

    void ADesktopThatNeverPaintsItDoesNotHoldUpTheStart() {
        CountedSound sound;
        frmSplash splash(sound);
        splash.setUpdatesEnabled(false);
        QSignalSpy painted(splash.Image1, &SplashPicture::Painted);
        QSignalSpy loads(&splash, &frmSplash::LoadMainWindow);
        QSignalSpy handOvers(&splash, &frmSplash::HandOver);
        splash.show();
        QVERIFY(handOvers.wait(5000));
        QCOMPARE(loads.size(), 1);
        QCOMPARE(painted.size(), 0);
    }

    // The load blocks the event loop: nothing moves meanwhile, and all nine texts come after it.
    void ASlowLoadHoldsTheFirstCaption() {
        CountedSound sound;
        frmSplash splash(sound);
        QStringList captions;
        QString captionAfterLoad;
        connect(&splash, &QWidget::windowTitleChanged, &splash,
                [&](const QString& caption) { captions.append(caption); });
        connect(&splash, &frmSplash::LoadMainWindow, &splash, [&] {
            QThread::msleep(400);
            captionAfterLoad = splash.windowTitle();
        });
        QSignalSpy handOvers(&splash, &frmSplash::HandOver);
        splash.show();
        QVERIFY(handOvers.wait(5000));
        QCOMPARE(captionAfterLoad, QLatin1String(kSplashCaption));
        QCOMPARE(captions.size(), 9);
        QVERIFY(!splash.isVisible());
    }

    // The row of dots begins during the load, and once more behind it.
    void ALoadThatLetsEventsThroughStillEndsInOneHandOver() {
        CountedSound sound;
        frmSplash splash(sound);
        const QString first = QLatin1String(kSplashSteps.front().caption);
        int loads = 0;
        QStringList captions;
        bool loadTimerRan = false; // behind the load
        connect(&splash, &QWidget::windowTitleChanged, &splash, [&](const QString& caption) {
            captions.append(caption);
            loadTimerRan = loadTimerRan || (captions.size() > 1 && splash.Timer(1)->isActive());
        });
        connect(&splash, &frmSplash::LoadMainWindow, &splash, [&] {
            ++loads;
            QVERIFY(QTest::qWaitFor([&] { return splash.windowTitle() == first; }));
        });
        QSignalSpy handOvers(&splash, &frmSplash::HandOver);
        splash.show();
        QVERIFY(handOvers.wait(5000));
        QTest::qWait(700);
        QCOMPARE(loads, 1);
        QCOMPARE(captions.count(first), 2);
        QVERIFY(!loadTimerRan);
        QCOMPARE(handOvers.size(), 1);
    }

    void TheUserCannotCloseIt() {
        CountedSound sound;
        frmSplash splash(sound);
        splash.show();
        QVERIFY(!splash.close());
        QVERIFY(splash.isVisible());
    }

    void StoppedItStandsStill() {
        CountedSound sound;
        frmSplash splash(sound);
        connect(&splash, &frmSplash::LoadMainWindow, &splash, [&] { splash.Stop(); });
        QSignalSpy loads(&splash, &frmSplash::LoadMainWindow);
        QSignalSpy handOvers(&splash, &frmSplash::HandOver);
        splash.show();
        QTRY_COMPARE(loads.size(), 1);
        QTest::qWait(700);
        QCOMPARE(handOvers.size(), 0);
        QCOMPARE(splash.windowTitle(), QLatin1String(kSplashCaption));
    }
};

QTEST_MAIN(SplashWindowTest)
#include "splash_window_test.moc"
