#include "search/prepare_search_string.h"

#include <QtTest>

using namespace quillbrook;

Q_DECLARE_METATYPE(quillbrook::SearchMode)

class PrepareSearchStringTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AQueryIsRewrittenByMode_data() {
        QTest::addColumn<SearchMode>("mode");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("result");
        constexpr auto all = SearchMode::All;
        constexpr auto any = SearchMode::Any;
        constexpr auto phrase = SearchMode::Phrase;
        QTest::newRow("all") << all << "deed sale"
                             << "deed +sale";
        QTest::newRow("all, runs of blanks") << all << "deed   sale  lease"
                                             << "deed +sale +lease";
        QTest::newRow("all, one word") << all << "deed"
                                       << "deed";
        QTest::newRow("all, a blank behind") << all << "deed sale "
                                             << "deed +sale +";
        QTest::newRow("all, a minus sign is no operator") << all << "deed -sale"
                                                          << "deed +-sale";
        QTest::newRow("all, empty") << all << ""
                                    << "";
        QTest::newRow("any") << any << "deed sale"
                             << "deed sale";
        QTest::newRow("any, runs of blanks") << any << "deed      sale"
                                             << "deed sale";
        QTest::newRow("any, a run that is one blank only when sixes go first")
            << any << QStringLiteral("deed%1sale").arg(QString(39, u' ')) << "deed sale";
        QTest::newRow("any, a run of which the passes, run once each, leave two")
            << any << QStringLiteral("deed%1sale").arg(QString(209, u' ')) << "deed  sale";
        QTest::newRow("any, a minus sign") << any << "deed -sale"
                                           << "deed -sale";
        QTest::newRow("phrase") << phrase << "deed of sale"
                                << "\"deed of sale\"";
        QTest::newRow("phrase, runs of blanks") << phrase << "deed  of   sale"
                                                << "\"deed of sale\"";
        QTest::newRow("phrase, case stays") << phrase << "Deed AND Sale"
                                            << "\"Deed AND Sale\"";
        QTest::newRow("phrase, empty") << phrase << ""
                                       << "\"\"";
    }
    void AQueryIsRewrittenByMode() {
        QFETCH(SearchMode, mode);
        QFETCH(QString, query);
        QTEST(PrepareSearchString(query, mode), "result");
    }
};

QTEST_GUILESS_MAIN(PrepareSearchStringTest)
#include "prepare_search_string_test.moc"
