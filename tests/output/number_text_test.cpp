#include "output/number_text.h"

#include <QtTest>
#include <limits>

using namespace quillbrook;

class NumberTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ReadsTheLeadingNumber_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("number");
        const auto row = [](const char* text, double number) {
            QTest::newRow(*text ? text : "(empty)") << QString::fromLatin1(text) << number;
        };
        row("8.5", 8.5);
        row("13.0", 13);
        row("13", 13);
        row("8.50", 8.5);
        row("8.499", 8.499);
        row("8.27", 8.27);
        row("11.69", 11.69);
        row("", 0);
        row("abc", 0);
        row("1,5", 1);
        row("8.5 inches", 8.5);
        row("8.5in", 8.5);
        row("inf", 0);
        row("nan", 0);
        row("&H10", 0);
        row(" 1.1", 1.1);
        row(" .9", .9);
        row("-.1", -.1);
        row("  1  2 . 5  ", 12.5);
        row("- 2", -2);
        row("\t3", 3);
        row("+4", 4);
        row("--4", 0);
        row("+-4", 0);
        row("-", 0);
        row(".", 0);
        row("-.", 0);
        row("..5", 0);
        row("5.", 5);
        row("5..1", 5);
        row("1.2.3", 1.2);
        row("5-3", 5);
        row("007", 7);
        row("1e2", 100);
        row("1E-1", .1);
        row("1e", 1);
        row("1e+", 1);
        row("1ex2", 1);
        row("e5", 0);
        row("0x10", 0);
        row("1e-999", 0);
        row("1e999", std::numeric_limits<double>::max());
        row("-1e999", -std::numeric_limits<double>::max());
    }
    void ReadsTheLeadingNumber() {
        QFETCH(QString, text);
        QFETCH(double, number);
        QVERIFY2(ReadNumber(text) == number, qPrintable(QString::number(ReadNumber(text), 'g', 17)));
    }

    void OtherScriptsAreNoNumbers() {
        QCOMPARE(ReadNumber(u"\u0661"_qs), 0.0);  // a digit of another script
        QCOMPARE(ReadNumber(u"\u22125"_qs), 0.0); // a minus that is not the keyboard's
        QCOMPARE(ReadNumber(u"8\u00A0"
                            u"5"_qs),
                 8.0); // a no-break space is no blank
        QCOMPARE(ReadNumber(u"8\u00BD"_qs), 8.0);
    }

    void ReadsLongTextsInGoodTime() {
        QCOMPARE(ReadNumber(QString(1'000'000, u' ') + u'7'), 7.0);
        QCOMPARE(ReadNumber(QString(1'000'000, u'9')), std::numeric_limits<double>::max());
    }

    void WritesWithABlankOrAMinusInFront_data() {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("text");
        const auto row = [](double number, const char* text) {
            QTest::newRow(text) << number << QString::fromLatin1(text);
        };
        row(1.0 + .1, " 1.1");
        row(1.9 + .1, " 2");
        row(1.0 - .1, " .9");
        row(0 - .1, "-.1");
        row(0, " 0");
        row(-1, "-1");
        row(-10.5, "-10.5");
        row(8.27, " 8.27");
        row(100, " 100");
        row(1'000'000, " 1000000");
        row(.05, " .05");
        row(.000125, " .000125");
        row(1.0 / 3, " .333333333333333");
        row(2.0 / 3, " .666666666666667");
        row(200.0 / 3, " 66.6666666666667");
        row(.1 + .2, " .3");
        row(123456789012345.0, " 123456789012345");
        row(1234567890123456.0, " 1234567890123460");
        row(.999999999999999, " .999999999999999");
        row(.9999999999999999, " 1");
        row(9.9999999999999999e22, " 100000000000000000000000");
        row(1e-20, " .00000000000000000001");
    }
    void WritesWithABlankOrAMinusInFront() {
        QFETCH(double, number);
        QTEST(WriteNumber(number), "text");
    }

    void ZeroHasNoMinus() { QCOMPARE(WriteNumber(-0.0), u" 0"_qs); }

    void WhatIsWrittenReadsBackAndIsWrittenTheSame() {
        QRandomGenerator random(3);
        for (int i = 0; i < 20'000; ++i) {
            const double number = (random.generateDouble() - .5) * std::pow(10, int(random.bounded(40)) - 20);
            const QString text = WriteNumber(number);
            QVERIFY(std::abs(ReadNumber(text) - number) <= std::abs(number) * 1e-14);
            QCOMPARE(WriteNumber(ReadNumber(text)), text);
        }
    }
};

QTEST_GUILESS_MAIN(NumberTextTest)
#include "number_text_test.moc"
