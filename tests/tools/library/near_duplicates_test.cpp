#include "library/near_duplicates.h"

#include <QtTest>

using namespace quillbrook;

namespace {

Shingles Of(const QString& text) {
    return ShinglesOf(WordsOf({{1, text}}));
}

const QString kTen = u"one two three four five six seven eight nine ten"_qs;

} // namespace

class NearDuplicatesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TextsHaveAsManyRunsAsPlacesWhereFiveWordsBegin_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("runs");
        QTest::newRow("no word") << u"_____ 12"_qs << 0;
        QTest::newRow("three words") << u"one two three"_qs << 1;
        QTest::newRow("five words") << u"one two three four five"_qs << 1;
        QTest::newRow("ten words") << kTen << 6;
        QTest::newRow("the same words again") << u"a a a a a a a"_qs << 1;
    }
    void TextsHaveAsManyRunsAsPlacesWhereFiveWordsBegin() {
        QFETCH(QString, text);
        QFETCH(int, runs);
        QCOMPARE(int(Of(text).size()), runs);
    }

    void LikenessIsTheSharedPartOfAllRuns_data() {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<double>("likeness");
        QTest::newRow("the same") << kTen << kTen << 1.0;
        QTest::newRow("other capitals, blanks and marks")
            << kTen << u"One two, THREE ______ four; five six (seven) eight nine 12 ten"_qs << 1.0;
        QTest::newRow("nothing shared") << kTen << u"a b c d e f"_qs << 0.0;
        QTest::newRow("both empty") << QString() << QString() << 0.0;
        QTest::newRow("one empty") << kTen << QString() << 0.0;
        // the last word differs: 5 runs of 6 shared, 7 in all
        QTest::newRow("one word changed") << kTen << QString(kTen).replace(u"ten"_qs, u"end"_qs) << 5.0 / 7;
        // 2 runs of 6 shared
        QTest::newRow("the first six words") << kTen << u"one two three four five six"_qs << 2.0 / 6;
    }
    void LikenessIsTheSharedPartOfAllRuns() {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(double, likeness);
        QCOMPARE(Likeness(Of(a), Of(b)), likeness);
        QCOMPARE(Likeness(Of(b), Of(a)), likeness);
    }

    void PairsAboveTheLimitAreFound() {
        const std::vector<Shingles> texts = {Of(kTen), Of(u"a b c d e f g"_qs),
                                             Of(QString(kTen).replace(u"ten"_qs, u"end"_qs))};
        const std::vector<AlikePair> pairs = FindAlike(texts, 0.5);
        QCOMPARE(pairs.size(), 1u);
        QCOMPARE(pairs[0].first, 0u);
        QCOMPARE(pairs[0].second, 2u);
        QCOMPARE(pairs[0].likeness, 5.0 / 7);
        QVERIFY(FindAlike(texts, 5.0 / 7).empty());
    }
};

QTEST_GUILESS_MAIN(NearDuplicatesTest)
#include "near_duplicates_test.moc"
