#include "accessory/credits_scroll.h"

#include <QtTest>

using namespace quillbrook;

class CreditsScrollTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ClimbsAPixelATick_data() {
        QTest::addColumn<int>("top");
        QTest::addColumn<int>("next");
        QTest::newRow("from the start") << 4 << 3;
        QTest::newRow("over the edge") << 0 << -1;
        QTest::newRow("one line left") << -498 << -499;
        QTest::newRow("gone: in again from below") << -499 << 300;
        QTest::newRow("far above") << -600 << 300;
        QTest::newRow("just come in") << 300 << 299;
    }
    void ClimbsAPixelATick() {
        QFETCH(int, top);
        QTEST(NextCreditsTop(top, 500, 300), "next");
    }

    void ComesAroundWithoutASecondCopy() {
        int top = kCreditsFirstTop, rounds = 0;
        for (int tick = 0; tick < 504 + 800 * 3; ++tick) {
            const int next = NextCreditsTop(top, 500, 300);
            QVERIFY(next == top - 1 || next == 300);
            rounds += next == 300 ? 1 : 0;
            top = next;
        }
        QCOMPARE(rounds, 4);
        QCOMPARE(top, 300);
    }
};

QTEST_GUILESS_MAIN(CreditsScrollTest)
#include "credits_scroll_test.moc"
