#include "search/parse.h"
#include "search/prepare_search_string.h"
#include "search/query_strip.h"

#include <QElapsedTimer>
#include <QStringList>
#include <QtTest>
#include <random>

using namespace quillbrook;

Q_DECLARE_METATYPE(quillbrook::SearchMode)

namespace {

const QString kStart = QStringLiteral("SELECT * FROM Forms WHERE ");

// The slots in use, by the count.
QStringList TermsOf(const ParsedQuery& parsed) {
    QStringList terms;
    for (int i = 0; i < std::min(parsed.termCount, int(parsed.terms.size())); ++i)
        terms.append(parsed.terms[std::size_t(i)]);
    return terms;
}

} // namespace

class ParseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void QueriesBecomeStatements_data() {
        QTest::addColumn<SearchMode>("mode");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("conditions");
        constexpr auto all = SearchMode::All;
        constexpr auto any = SearchMode::Any;
        QTest::newRow("all, two words") << all << "deed sale"
                                        << "deed +sale"
                                        << "Content LIKE '*deed*' AND Content LIKE '*sale*'";
        QTest::newRow("all, three words apart")
            << all << "deed   sale  lease"
            << "deed +sale +lease"
            << "Content LIKE '*deed*' AND Content LIKE '*sale*' AND Content LIKE '*lease*'";
        QTest::newRow("all, one word") << all << "deed"
                                       << "deed"
                                       << "Content LIKE '*deed*'";
        QTest::newRow("any, two words") << any << "deed sale"
                                        << "deed sale"
                                        << "Content LIKE '*deed*' OR Content LIKE '*sale*'";
        QTest::newRow("phrase") << SearchMode::Phrase << "deed of sale"
                                << "\"deed of sale\""
                                << "Content LIKE '*deed of sale*'";
        QTest::newRow("minus") << any << "deed -sale"
                               << "deed -sale"
                               << "Content LIKE '*deed*' AND Content NOT LIKE '*sale*'";
        QTest::newRow("plus, minus, plain")
            << any << "+deed -sale bail"
            << "+deed -sale bail"
            << "Content LIKE '*deed*' AND Content NOT LIKE '*sale*' OR Content LIKE '*bail*'";
        QTest::newRow("a blank behind")
            << all << "deed sale "
            << "deed +sale +"
            << "Content LIKE '*deed*' AND Content LIKE '*sale*' AND Content LIKE '**'";
        QTest::newRow("minus first") << any << "-sale deed"
                                     << "-sale deed"
                                     << "Content NOT LIKE '*sale*' OR Content LIKE '*deed*'";
        QTest::newRow("a minus sign in All words") << all << "deed -sale"
                                                   << "deed +-sale"
                                                   << "Content LIKE '*deed*' AND Content LIKE '*-sale*'";
        QTest::newRow("all, words of one letter") << all << "a b"
                                                  << "a +b"
                                                  << "Content LIKE '*a*' AND Content LIKE '*b*'";
    }
    void QueriesBecomeStatements() {
        QFETCH(SearchMode, mode);
        QFETCH(QString, query);
        QFETCH(QString, conditions);
        const QString prepared = PrepareSearchString(query, mode);
        QTEST(prepared, "given");
        const ParsedQuery parsed = Parse(prepared);
        QVERIFY(parsed.statement);
        QCOMPARE(*parsed.statement, kStart + conditions);
    }

    void PiecesBecomeConditions_data() {
        QTest::addColumn<QString>("search");
        QTest::addColumn<QString>("conditions");
        QTest::addColumn<QString>("terms"); // a '|' between two
        QTest::newRow("one letter each") << "a b"
                                         << "Content LIKE '*a*' OR Content LIKE '*b*'"
                                         << "a|b";
        QTest::newRow("one letter") << "a"
                                    << "Content LIKE '*a*'"
                                    << "a";
        QTest::newRow("a digit") << "7"
                                 << "Content LIKE '*7*'"
                                 << "7";
        QTest::newRow("blanks around") << "   deed  "
                                       << "Content LIKE '*deed*'"
                                       << "deed";
        QTest::newRow("a blank too many, and what follows is joined")
            << "deed  sale"
            << "Content LIKE '*deed*' OR Content LIKE '*sale*'"
            << "deed|sale";
        QTest::newRow("many blanks too many") << "deed     +sale"
                                              << "Content LIKE '*deed*' AND Content LIKE '*sale*'"
                                              << "deed|sale";
        QTest::newRow("plus with one letter") << "+a +b"
                                              << "Content LIKE '*a*' AND Content LIKE '*b*'"
                                              << "a|b";
        QTest::newRow("a lone plus") << "deed + sale"
                                     << "Content LIKE '*deed*' AND Content LIKE '**' OR Content LIKE '*sale*'"
                                     << "deed||sale";
        QTest::newRow("a lone minus") << "deed -"
                                      << "Content LIKE '*deed*' AND Content NOT LIKE '**'"
                                      << "deed";
        QTest::newRow("a sign inside a word") << "by-laws a+b"
                                              << "Content LIKE '*by-laws*' OR Content LIKE '*a+b*'"
                                              << "by-laws|a+b";
        QTest::newRow("two signs") << "deed +-sale"
                                   << "Content LIKE '*deed*' AND Content LIKE '*-sale*'"
                                   << "deed|-sale";
        QTest::newRow("phrase and word") << "\"deed of sale\" land"
                                         << "Content LIKE '*deed of sale*' OR Content LIKE '*land*'"
                                         << "deed of sale|land";
        QTest::newRow("word and phrase") << "land \"deed of sale\""
                                         << "Content LIKE '*land*' OR Content LIKE '*deed of sale*'"
                                         << "land|deed of sale";
        QTest::newRow("two phrases") << "\"a b\" \"c d\""
                                     << "Content LIKE '*a b*' OR Content LIKE '*c d*'"
                                     << "a b|c d";
        QTest::newRow("plus and phrase") << "land +\"deed of sale\" bail"
                                         << "Content LIKE '*land*' AND Content LIKE '*deed of sale*' OR "
                                            "Content LIKE '*bail*'"
                                         << "land|deed of sale|bail";
        QTest::newRow("minus and phrase") << "land -\"deed of sale\""
                                          << "Content LIKE '*land*' AND Content NOT LIKE '*deed of sale*'"
                                          << "land";
        QTest::newRow("plus and phrase first") << "+\"a b\" c"
                                               << "Content LIKE '*a b*' OR Content LIKE '*c*'"
                                               << "a b|c";
        QTest::newRow("plus and phrase of one letter") << "+\"a\" b"
                                                       << "Content LIKE '*a*' OR Content LIKE '*b*'"
                                                       << "a|b";
        QTest::newRow("blanks at the ends of a phrase") << "\"  deed \""
                                                        << "Content LIKE '*deed*'"
                                                        << "deed";
        QTest::newRow("an empty phrase") << "deed \"\""
                                         << "Content LIKE '*deed*' OR Content LIKE '**'"
                                         << "deed|";
        QTest::newRow("a word written onto a closing quote joins the next one")
            << "\"a\"b c"
            << "Content LIKE '*a*' OR Content LIKE '*b c*'"
            << "a|b c";
        QTest::newRow("a word written onto a closing quote lengthens the next phrase")
            << "\"a\"b \"c\" d"
            << "Content LIKE '*a*' OR Content LIKE '*c\"*' OR Content LIKE '*d*'"
            << "a|c\"|d";
        QTest::newRow("a word written onto a closing quote lengthens the next phrase behind a sign")
            << "\"a\"b +\"c\" d"
            << "Content LIKE '*a*' AND Content LIKE '*c\"*' OR Content LIKE '*d*'"
            << "a|c\"|d";
        QTest::newRow("a single letter stands before a quote as a sign does")
            << "a\"b c\" d"
            << "Content LIKE '*b c*' OR Content LIKE '*d*'"
            << "b c|d";
        QTest::newRow("a blank too many in front of a phrase passes it over")
            << "deed  \"a b\" sale"
            << "Content LIKE '*deed*' OR Content LIKE '*sale*'"
            << "deed|sale";
        QTest::newRow("an empty phrase behind a sign goes on to the next quote")
            << "+\"\" x\" y"
            << "Content LIKE '*\" x*' OR Content LIKE '*y*'"
            << "\" x|y";
        QTest::newRow("an apostrophe") << "lessee's"
                                       << "Content LIKE '*lessee's*'"
                                       << "lessee's";
        QTest::newRow("case stays") << "Deed SALE"
                                    << "Content LIKE '*Deed*' OR Content LIKE '*SALE*'"
                                    << "Deed|SALE";
        QTest::newRow("signs of the pattern") << "a*b [c"
                                              << "Content LIKE '*a*b*' OR Content LIKE '*[c*'"
                                              << "a*b|[c";
        QTest::newRow("the same word twice") << "deed deed"
                                             << "Content LIKE '*deed*' OR Content LIKE '*deed*'"
                                             << "deed|deed";
    }
    void PiecesBecomeConditions() {
        QFETCH(QString, search);
        QFETCH(QString, conditions);
        QFETCH(QString, terms);
        const ParsedQuery parsed = Parse(search);
        QVERIFY(parsed.statement);
        QCOMPARE(*parsed.statement, kStart + conditions);
        QCOMPARE(TermsOf(parsed), terms.split(u'|'));
        QCOMPARE(parsed.termCount, TermsOf(parsed).size());
    }

    void AnUnclosedQuoteTakesTheRest_data() {
        QTest::addColumn<QString>("search");
        QTest::addColumn<QString>("conditions");
        QTest::addColumn<QString>("terms"); // a '|' between two
        QTest::newRow("first") << "\"deed of sale"
                               << "Content LIKE '*deed of sale*'"
                               << "deed of sale";
        QTest::newRow("behind a word") << "land \"deed of"
                                       << "Content LIKE '*land*' OR Content LIKE '*deed of*'"
                                       << "land|deed of";
        QTest::newRow("behind plus") << "land +\"deed of"
                                     << "Content LIKE '*land*' AND Content LIKE '*deed of*'"
                                     << "land|deed of";
        QTest::newRow("behind minus") << "land -\"deed of"
                                      << "Content LIKE '*land*' AND Content NOT LIKE '*deed of*'"
                                      << "land";
        QTest::newRow("nothing behind it") << "deed \""
                                           << "Content LIKE '*deed*'"
                                           << "deed";
        QTest::newRow("nothing behind plus and it") << "deed +\""
                                                    << "Content LIKE '*deed*'"
                                                    << "deed";
        QTest::newRow("nothing but quotes behind") << "deed +\"\""
                                                   << "Content LIKE '*deed*'"
                                                   << "deed";
        QTest::newRow("behind a phrase") << "\"a b\" \"c d"
                                         << "Content LIKE '*a b*' OR Content LIKE '*c d*'"
                                         << "a b|c d";
    }
    void AnUnclosedQuoteTakesTheRest() { PiecesBecomeConditions(); }

    void NothingToLookForGivesNoStatement_data() {
        QTest::addColumn<QString>("search");
        for (const char* search :
             {"", " ", "   ", "\"\"", "\"", "+ -", "...", "\" \"", "\u00f1 \u00df", "a\""})
            QTest::addRow("%s", search) << QString::fromUtf8(search);
    }
    void NothingToLookForGivesNoStatement() {
        QFETCH(QString, search);
        const ParsedQuery parsed = Parse(search);
        QVERIFY(!parsed.statement);
        QCOMPARE(parsed.termCount, 0);
        for (const QString& term : parsed.terms)
            QVERIFY(term.isEmpty());
    }

    void AnyLetterOrDigitIsSomethingToLookFor() {
        for (const QChar c : QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz1234567890"))
            QVERIFY(Parse(QStringLiteral("... ") + c).statement);
    }

    void SevenTermsHaveSlotsAndTheStatementHoldsAll() {
        const ParsedQuery parsed = Parse(QStringLiteral("a b c d e f g h i"));
        QCOMPARE(parsed.termCount, 9);
        QCOMPARE(TermsOf(parsed), QStringLiteral("a b c d e f g").split(u' '));
        QCOMPARE(parsed.statement->count(QStringLiteral("LIKE")), 9);
        QVERIFY(parsed.statement->endsWith(QStringLiteral(" OR Content LIKE '*i*'")));
    }

    void MinusTermsTakeNoSlot() {
        const ParsedQuery parsed = Parse(QStringLiteral("-a b -c d"));
        QCOMPARE(TermsOf(parsed), QStringLiteral("b d").split(u' '));
        QVERIFY(parsed.terms[2].isEmpty());
    }

    void AnOperatorWithoutABlankBehindItIsAWord() {
        QueryKeyTrail trail;
        const CleanQuery clean = CleanUpQuery(QStringLiteral("and or"), SearchMode::All, trail);
        QCOMPARE(clean.text, QStringLiteral("or"));
        QCOMPARE(*Parse(PrepareSearchString(clean.text, SearchMode::All)).statement,
                 kStart + QStringLiteral("Content LIKE '*or*'"));
    }

    // Whatever is pasted, the reading comes to its end, and a condition stands between every two joiners.
    void EveryTextIsReadToItsEnd() {
        std::mt19937 random(3);
        const QString alphabet = QStringLiteral("  \"\"+-ab'*");
        for (int run = 0; run < 50000; ++run) {
            QString search;
            for (auto length = random() % 14; length > 0; --length)
                search += alphabet[qsizetype(random() % std::size_t(alphabet.size()))];
            const ParsedQuery parsed = Parse(search);
            if (!parsed.statement)
                continue;
            QVERIFY2(parsed.statement->startsWith(kStart + QStringLiteral("Content ")), qPrintable(search));
            QVERIFY2(parsed.statement->endsWith(QStringLiteral("*'")), qPrintable(search));
            QVERIFY(parsed.termCount <= parsed.statement->count(QStringLiteral("LIKE '*")));
        }
    }

    void ALongPastedTextIsReadAtOnce() {
        const QString search = QStringLiteral("ab ").repeated(10000) + QStringLiteral("\"cd ").repeated(5000);
        QElapsedTimer timer;
        timer.start();
        const ParsedQuery parsed = Parse(search);
        QVERIFY(parsed.termCount >= 10000);
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_GUILESS_MAIN(ParseTest)
#include "parse_test.moc"
