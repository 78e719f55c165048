#include "accessory/title_pulse.h"

#include <QtTest>

using namespace quillbrook;

class TitlePulseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void GlowsFromRedToBlackAndBack_data() {
        QTest::addColumn<int>("tick");
        QTest::addColumn<int>("red");
        QTest::newRow("first") << 1 << 246;
        QTest::newRow("second") << 2 << 236;
        QTest::newRow("darkest going down") << 25 << 6;
        QTest::newRow("darkest") << 26 << 4;
        QTest::newRow("going up") << 27 << 14;
        QTest::newRow("brightest step") << 51 << 254;
        QTest::newRow("at the end of the scale") << 52 << 255;
        QTest::newRow("again") << 53 << 246;
        QTest::newRow("a hundred rounds on") << 5'201 << 246;
    }
    void GlowsFromRedToBlackAndBack() {
        QFETCH(int, tick);
        QFETCH(int, red);
        TitlePulse pulse;
        for (int i = 1; i < tick; ++i)
            pulse.Tick();
        QCOMPARE(pulse.Tick(), QColor(red, 3, 12));
    }

    void RepeatsEvery52Ticks() {
        TitlePulse pulse;
        QList<QColor> colors;
        for (int i = 0; i < 520; ++i) {
            colors.append(pulse.Tick());
            QVERIFY(colors.last().isValid());
            if (i >= 52)
                QCOMPARE(colors[i], colors[i - 52]);
        }
        QCOMPARE(std::count(colors.begin(), colors.end(), QColor(255, 3, 12)), 10);
    }
};

QTEST_GUILESS_MAIN(TitlePulseTest)
#include "title_pulse_test.moc"
