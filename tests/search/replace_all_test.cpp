#include "search/replace_all.h"

#include <QtTest>

using namespace quillbrook;

class ReplaceAllTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ReplacesFromLeftToRight_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("find");
        QTest::addColumn<QString>("replace");
        QTest::addColumn<QString>("result");
        QTest::newRow("every occurrence") << "a b c"
                                          << " "
                                          << " + "
                                          << "a + b + c";
        QTest::newRow("at both ends") << " a "
                                      << " "
                                      << "-"
                                      << "-a-";
        QTest::newRow("case matters") << "a AND b and c"
                                      << " and "
                                      << " "
                                      << "a AND b c";
        QTest::newRow("matches do not overlap") << "aaa"
                                                << "aa"
                                                << "b"
                                                << "ba";
        QTest::newRow("two operators share a blank") << "a AND AND b"
                                                     << " AND "
                                                     << " "
                                                     << "a AND b";
        QTest::newRow("a replacement is not scanned again") << "aab"
                                                            << "ab"
                                                            << "b"
                                                            << "ab";
        QTest::newRow("a replacement may hold what is found") << "a"
                                                              << "a"
                                                              << "aa"
                                                              << "aa";
        QTest::newRow("removes") << "a-b-c"
                                 << "-"
                                 << ""
                                 << "abc";
        QTest::newRow("nothing found") << "deed"
                                       << "sale"
                                       << "x"
                                       << "deed";
        QTest::newRow("whole text") << "deed"
                                    << "deed"
                                    << "sale"
                                    << "sale";
        QTest::newRow("longer than the text") << "de"
                                              << "deed"
                                              << "x"
                                              << "de";
        QTest::newRow("empty text") << ""
                                    << "a"
                                    << "b"
                                    << "";
        QTest::newRow("empty find") << "deed"
                                    << ""
                                    << "x"
                                    << "deed";
        QTest::newRow("both empty") << ""
                                    << ""
                                    << "x"
                                    << "";
    }
    void ReplacesFromLeftToRight() {
        QFETCH(QString, text);
        QFETCH(QString, find);
        QFETCH(QString, replace);
        QTEST(ReplaceAll(text, find, replace), "result");
    }

    void EveryRunOfRealisticLengthCollapses() {
        for (int run = 1; run <= 60; ++run) {
            const QString blanks(run, u' ');
            QCOMPARE(CollapseBlanks(u'a' + blanks + u'b', 10), QStringLiteral("a b"));
        }
        for (int run = 1; run <= 20; ++run)
            QCOMPARE(CollapseBlanks(QString(run, u' '), 6), QStringLiteral(" "));
    }

    void ALengthIsNotTriedAgain_data() {
        QTest::addColumn<int>("run");
        QTest::addColumn<int>("longestRun");
        QTest::addColumn<int>("left");
        QTest::newRow("2, pairs only") << 2 << 2 << 1;
        QTest::newRow("3, pairs only") << 3 << 2 << 2;
        QTest::newRow("4, pairs only") << 4 << 2 << 2;
        QTest::newRow("4, threes and pairs") << 4 << 3 << 1;
        QTest::newRow("nothing to do") << 1 << 10 << 1;
    }
    void ALengthIsNotTriedAgain() {
        QFETCH(int, run);
        QFETCH(int, longestRun);
        QTEST(int(CollapseBlanks(QString(run, u' '), longestRun).size()), "left");
    }
};

QTEST_GUILESS_MAIN(ReplaceAllTest)
#include "replace_all_test.moc"
