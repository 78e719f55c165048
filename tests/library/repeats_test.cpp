#include "library/repeats.h"

#include <QtTest>

using namespace quillbrook;

class RepeatsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void KeepsTheFirstOfEachExactText_data() {
        QTest::addColumn<QStringList>("entries");
        QTest::addColumn<QStringList>("kept");
        using L = QStringList;
        QTest::newRow("nothing") << L{} << L{};
        QTest::newRow("no repeat") << L{u"a"_qs, u"b"_qs} << L{u"a"_qs, u"b"_qs};
        QTest::newRow("neighbours") << L{u"a"_qs, u"a"_qs, u"b"_qs} << L{u"a"_qs, u"b"_qs};
        QTest::newRow("apart") << L{u"b"_qs, u"a"_qs, u"b"_qs} << L{u"b"_qs, u"a"_qs};
        QTest::newRow("three in a row") << L{u"a"_qs, u"a"_qs, u"a"_qs} << L{u"a"_qs};
        QTest::newRow("case tells apart") << L{u"Deed"_qs, u"deed"_qs} << L{u"Deed"_qs, u"deed"_qs};
        QTest::newRow("blanks tell apart") << L{u"a"_qs, u"a "_qs} << L{u"a"_qs, u"a "_qs};
        QTest::newRow("empty texts") << L{QString(), u"a"_qs, QString()} << L{QString(), u"a"_qs};
    }
    void KeepsTheFirstOfEachExactText() {
        QFETCH(QStringList, entries);
        QTEST(WithoutRepeats(entries), "kept");
    }

    // The rule as it is told: two nested walks over a list that shrinks.
    void AgreesWithTheQuadraticWalkOnRandomLists() {
        QRandomGenerator random(7);
        for (int round = 0; round < 200; ++round) {
            QStringList entries;
            const int count = int(random.bounded(30));
            for (int i = 0; i < count; ++i)
                entries.append(
                    QString(QChar(random.bounded(2) ? u'a' : u'A')).repeated(int(random.bounded(4))));
            QStringList walked = entries;
            for (int i = 0; i < walked.size(); ++i) {
                for (int j = i + 1; j < walked.size();) {
                    if (walked[i] == walked[j])
                        walked.removeAt(j);
                    else
                        ++j;
                }
            }
            QCOMPARE(WithoutRepeats(entries), walked);
        }
    }
};

QTEST_GUILESS_MAIN(RepeatsTest)
#include "repeats_test.moc"
