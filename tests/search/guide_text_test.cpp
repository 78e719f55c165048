#include "search/guide_text.h"
#include "search/query_strip.h"

#include <QtTest>

using namespace quillbrook;

Q_DECLARE_METATYPE(quillbrook::SearchMode)

class GuideTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheGuideShowsHowAQueryIsRead_data() {
        QTest::addColumn<SearchMode>("mode");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("words");
        constexpr auto all = SearchMode::All;
        constexpr auto any = SearchMode::Any;
        constexpr auto phrase = SearchMode::Phrase;
        QTest::newRow("all words") << all << "deed  of sale"
                                   << "DEED + OF + SALE";
        QTest::newRow("all, one word") << all << "deed"
                                       << "DEED";
        QTest::newRow("all, a blank behind") << all << "deed "
                                             << "DEED + ";
        QTest::newRow("all, many blanks behind") << all << "deed    "
                                                 << "DEED + ";
        QTest::newRow("all, operator without a blank") << all << "deed or"
                                                       << "DEED + OR";
        QTest::newRow("all, empty") << all << ""
                                    << "";
        QTest::newRow("any words") << any << "deed   of sale"
                                   << "DEED or OF or SALE";
        QTest::newRow("any, a blank behind") << any << "deed "
                                             << "DEED or ";
        QTest::newRow("any, empty") << any << ""
                                    << "";
        QTest::newRow("phrase") << phrase << "deed and sale"
                                << "\"DEED AND SALE\"";
        QTest::newRow("phrase, blanks collapse") << phrase << "deed     of  sale"
                                                 << "\"DEED OF SALE\"";
        QTest::newRow("phrase, a blank behind") << phrase << "deed "
                                                << "\"DEED \"";
        QTest::newRow("phrase, empty") << phrase << ""
                                       << "\"\"";
        QTest::newRow("a run of thirty")
            << all << QStringLiteral("deed%1sale").arg(QString(30, u' ')) << "DEED + SALE";
        QTest::newRow("a run that is one blank only when tens go first")
            << all << QStringLiteral("deed%1sale").arg(QString(209, u' ')) << "DEED + SALE";
    }
    void TheGuideShowsHowAQueryIsRead() {
        QFETCH(SearchMode, mode);
        QFETCH(QString, query);
        QTEST(MakeGuideText(query, mode).lblSearchGuide1, "words");
    }

    void TheGuideNamesTheMode() {
        const QString query = QStringLiteral("deed");
        QCOMPARE(MakeGuideText(query, SearchMode::All).lblSearchGuide,
                 QStringLiteral("Find Forms that have ALL the words:"));
        QCOMPARE(MakeGuideText(query, SearchMode::Any).lblSearchGuide,
                 QStringLiteral("Find Forms that have ANY of the words:"));
        QCOMPARE(MakeGuideText(query, SearchMode::Phrase).lblSearchGuide,
                 QStringLiteral("Find Forms that have the PHRASE:"));
        QCOMPARE(MakeGuideText(QString(), SearchMode::Any).lblSearchGuide,
                 QStringLiteral("Find Forms that have ANY of the words:"));
    }

    void TheModesStandInTheirTableInOrder() {
        QCOMPARE(std::size(kSearchModes), std::size_t(3));
        for (const SearchModeFacts& facts : kSearchModes)
            QCOMPARE(&FactsOf(facts.mode), &facts);
    }

    // What the box and its guide show once the user has stopped typing.
    void BoxAndGuideAgreeAfterTheCleanUp_data() {
        QTest::addColumn<SearchMode>("mode");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("guide");
        constexpr auto all = SearchMode::All;
        QTest::newRow("words") << all << "deed  of sale"
                               << "deed  of sale"
                               << "DEED + OF + SALE";
        QTest::newRow("leading") << all << "and deed"
                                 << "deed"
                                 << "DEED";
        QTest::newRow("between") << all << "deed And sale"
                                 << "deed sale"
                                 << "DEED + SALE";
        QTest::newRow("trailing") << all << "deed or "
                                  << "deed "
                                  << "DEED + ";
        QTest::newRow("unfinished") << all << "deed or"
                                    << "deed or"
                                    << "DEED + OR";
        QTest::newRow("phrase") << SearchMode::Phrase << "deed and sale"
                                << "deed and sale"
                                << "\"DEED AND SALE\"";
    }
    void BoxAndGuideAgreeAfterTheCleanUp() {
        QFETCH(SearchMode, mode);
        QFETCH(QString, typed);
        QueryKeyTrail trail;
        const QString box = CleanUpQuery(typed, mode, trail).text;
        QTEST(box, "box");
        QTEST(MakeGuideText(box, mode).lblSearchGuide1, "guide");
    }

    void AClickOnAModeRewritesTheGuideFromTheStrippedText() {
        const QString box = StripForMode(QStringLiteral("deed or"), SearchMode::Any);
        QCOMPARE(box, QStringLiteral("deed "));
        QCOMPARE(MakeGuideText(box, SearchMode::Any).lblSearchGuide1, QStringLiteral("DEED or "));
    }
};

QTEST_GUILESS_MAIN(GuideTextTest)
#include "guide_text_test.moc"
