#include "accessory/splash_chain.h"

#include <QtTest>

using namespace quillbrook;

namespace {

using Act = SplashChain::Act;

QStringList Running(const SplashChain& chain) {
    QStringList timers;
    for (std::size_t i = 0; i < chain.Running().size(); ++i) {
        if (chain.Running().test(i))
            timers.append(QString::number(i));
    }
    return timers;
}

} // namespace

class SplashChainTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CaptionsGrowByTheirDots_data() {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("timer");
        QTest::addColumn<int>("dots");
        const QList<int> dots = {4, 5, 7, 11, 15, 18, 21, 24, 29};
        for (int i = 0; i < dots.size(); ++i)
            QTest::newRow(QByteArray::number(i + 4)) << i << i + 4 << dots[i];
    }
    void CaptionsGrowByTheirDots() {
        QFETCH(int, step);
        QFETCH(int, dots);
        const SplashStep& row = kSplashSteps.at(std::size_t(step));
        QTEST(row.timer, "timer");
        QCOMPARE(QString::fromLatin1(row.caption), u" Loading"_qs + u" ."_qs.repeated(dots));
    }

    void StartsWithThreeDots() { QCOMPARE(QString::fromLatin1(kSplashCaption), u" Loading . . ."_qs); }

    void IntervalsAreShort() {
        QCOMPARE(SplashInterval(1), 1);
        for (int timer = 4; timer <= 13; ++timer)
            QCOMPARE(SplashInterval(timer), 50);
    }

    void TheWholeChain() {
        SplashChain chain;
        QCOMPARE(Running(chain), (QStringList{u"1"_qs, u"4"_qs}));
        QCOMPARE(chain.Fire(1).act, Act::LoadMainWindow);
        chain.MainWindowLoaded();
        for (const SplashStep& row : kSplashSteps) {
            QCOMPARE(Running(chain), QStringList(QString::number(row.timer)));
            const SplashChain::Step step = chain.Fire(row.timer);
            QCOMPARE(step.act, Act::ShowCaption);
            QCOMPARE(step.caption, row.caption);
        }
        QCOMPARE(Running(chain), QStringList(u"13"_qs));
        QCOMPARE(chain.Fire(13).act, Act::HandOver);
        QVERIFY(chain.Running().none());
    }

    void LoadingBeginsOnlyOnce() {
        SplashChain chain;
        QCOMPARE(chain.Fire(1).act, Act::LoadMainWindow);
        QCOMPARE(chain.Fire(1).act, Act::None); // the timer goes on while events come through
        chain.MainWindowLoaded();
        QCOMPARE(chain.Fire(1).act, Act::None);
        chain.MainWindowLoaded();
        QCOMPARE(Running(chain), QStringList(u"4"_qs));
    }

    void TimersThatDoNotRunDoNothing() {
        SplashChain chain;
        for (const int timer : {-1, 0, 2, 3, 5, 12, 13, 14, 1000})
            QCOMPARE(chain.Fire(timer).act, Act::None);
        QCOMPARE(Running(chain), (QStringList{u"1"_qs, u"4"_qs}));
    }

    // Events that come through during the load.
    void DotsThatBeginDuringTheLoadBeginOnceMore_data() {
        QTest::addColumn<bool>("lowestFirst");
        QTest::newRow("the later row catches up") << true;
        QTest::newRow("the rows stay apart") << false;
    }
    void DotsThatBeginDuringTheLoadBeginOnceMore() {
        QFETCH(bool, lowestFirst);
        SplashChain chain;
        chain.Fire(1);
        QCOMPARE(chain.Fire(4).caption, kSplashSteps[0].caption);
        chain.MainWindowLoaded();
        QCOMPARE(Running(chain), (QStringList{u"4"_qs, u"5"_qs}));
        int handOvers = 0;
        for (int tick = 0; tick < 30; ++tick) {
            const SplashChain::Timers running = chain.Running();
            const int count = int(running.size());
            for (int i = 0; i < count; ++i) {
                const int timer = lowestFirst ? i : count - 1 - i;
                if (running.test(std::size_t(timer)) && chain.Fire(timer).act == Act::HandOver)
                    ++handOvers;
            }
        }
        QCOMPARE(handOvers, 1);
        QVERIFY(chain.Running().none());
    }

    // A load that lets events through for longer than the row takes.
    void AHandOverDuringTheLoadIsTheLast() {
        SplashChain chain;
        chain.Fire(1);
        for (int timer = 4; timer <= 12; ++timer)
            QCOMPARE(chain.Fire(timer).act, Act::ShowCaption);
        QCOMPARE(chain.Fire(13).act, Act::HandOver);
        chain.MainWindowLoaded();
        QVERIFY(chain.Running().none());
    }
};

QTEST_GUILESS_MAIN(SplashChainTest)
#include "splash_chain_test.moc"
