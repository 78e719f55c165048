#include "appearance/theme_stepper.h"

#include <QtTest>

using namespace quillbrook;

class ThemeStepperTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // n, p, d and c are the dialog's buttons.
    void StepsThroughTheThemes_data() {
        QTest::addColumn<int>("stored");
        QTest::addColumn<QString>("buttons");
        QTest::addColumn<int>("number");
        QTest::newRow("opens at the stored one") << 12 << u""_qs << 12;
        QTest::newRow("a stored 0 opens as the last") << 0 << u""_qs << 34;
        QTest::newRow("a stored 35 opens as the first") << 35 << u""_qs << 1;
        QTest::newRow("next") << 12 << u"n"_qs << 13;
        QTest::newRow("previous") << 12 << u"p"_qs << 11;
        QTest::newRow("next of the last is the first") << 34 << u"n"_qs << 1;
        QTest::newRow("previous of the first is the last") << 1 << u"p"_qs << 34;
        QTest::newRow("once around") << 12 << QString(34, u'n') << 12;
        QTest::newRow("once around backwards") << 12 << QString(34, u'p') << 12;
        QTest::newRow("default") << 12 << u"d"_qs << 1;
        QTest::newRow("default, then previous") << 12 << u"dp"_qs << 34;
        QTest::newRow("three steps and cancel") << 12 << u"nnnc"_qs << 12;
        QTest::newRow("default and cancel") << 12 << u"dc"_qs << 12;
        QTest::newRow("cancel puts a wrong number right") << 0 << u"nnc"_qs << 34;
        QTest::newRow("cancel puts a number too large right") << 99 << u"nnc"_qs << 1;
    }
    void StepsThroughTheThemes() {
        QFETCH(int, stored);
        QFETCH(QString, buttons);
        ThemeStepper stepper(stored);
        for (const QChar button : buttons) {
            if (button == u'n')
                stepper.Next();
            else if (button == u'p')
                stepper.Previous();
            else if (button == u'd')
                stepper.Default();
            else
                stepper.Cancel();
            QVERIFY(stepper.Number() >= 1 && stepper.Number() <= 34);
            QCOMPARE(stepper.Current().name, ThemeOf(stepper.Number()).name);
        }
        QTEST(stepper.Number(), "number");
    }

    void TheSampleStandsInItsOwnColors() {
        for (int number = 1; number <= kThemeCount; ++number) {
            const Theme& theme = ThemeOf(number);
            const ThemeSample sample = SampleOf(theme);
            QCOMPARE(sample.caption, theme.name);
            QVERIFY(sample.background == theme.page);
            QVERIFY(sample.labelBackground == theme.list);
            QVERIFY2(sample.labelText == (number == 1 ? ThemeColor(0, 0, 0) : theme.page), theme.name);
        }
    }

    void BlackAndWhiteIsBlackOnWhiteByTheRule() {
        const ThemeSample sample = SampleOf(ThemeOf(2));
        QVERIFY(sample.labelText == ThemeColor(0, 0, 0));
        QVERIFY(sample.labelBackground == ThemeColor(255, 255, 255));
    }

    void OnlyTheFirstTicksItsEntry() {
        for (int number = 1; number <= kThemeCount; ++number)
            QCOMPARE(IsWindowsDefault(ThemeOf(number)), number == 1);
        const Theme copy = kThemes[0];
        QVERIFY(IsWindowsDefault(copy));
    }
};

QTEST_GUILESS_MAIN(ThemeStepperTest)
#include "theme_stepper_test.moc"
