#include "search/query_strip.h"

#include <QtTest>

using namespace quillbrook;

Q_DECLARE_METATYPE(quillbrook::SearchMode)

namespace {

constexpr SearchMode kWordModes[] = {SearchMode::All, SearchMode::Any};

// Keys as they are pressed one after the other; '^' stands for Shift.
QueryKeyTrail TrailOf(const QString& keys) {
    QueryKeyTrail trail;
    for (const QChar key : keys)
        trail.Append(key == u'^' ? int(Qt::Key_Shift) : int(key.toUpper().unicode()));
    return trail;
}

} // namespace

class QueryStripTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void LeadingOperatorsGo_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("result");
        QTest::newRow("and") << "and deed"
                             << "deed";
        QTest::newRow("Or") << "Or deed"
                            << "deed";
        QTest::newRow("nOT") << "nOT deed"
                             << "deed";
        QTest::newRow("one after the other") << "or and not deed"
                                             << "deed";
        QTest::newRow("alone with a blank") << "OR "
                                            << "";
        QTest::newRow("alone without one") << "OR"
                                           << "OR";
        QTest::newRow("two, the last without a blank") << "and or"
                                                       << "or";
        QTest::newRow("two with blanks") << "and or "
                                         << "";
        QTest::newRow("eight in one call") << "or and or not or and or not deed"
                                           << "deed";
        QTest::newRow("four of AND at the most") << "and and and and and deed"
                                                 << "and deed";
        QTest::newRow("four of OR at the most") << "or or or or or deed"
                                                << "or deed";
        QTest::newRow("part of a word") << "order and"
                                        << "order and";
        QTest::newRow("a word that begins with one") << "android deed"
                                                     << "android deed";
        QTest::newRow("inside") << "deed and sale"
                                << "deed and sale";
        QTest::newRow("behind a blank") << " and deed"
                                        << " and deed";
        QTest::newRow("a second blank stays") << "and  deed"
                                              << " deed";
        QTest::newRow("empty") << ""
                               << "";
    }
    void LeadingOperatorsGo() {
        QFETCH(QString, query);
        for (const SearchMode mode : kWordModes)
            QTEST(StripLeadingOperators(query, mode), "result");
        QCOMPARE(StripLeadingOperators(query, SearchMode::Phrase), query);
    }

    void TrailingOperatorsGo_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("result");
        QTest::newRow("OR") << "sale OR "
                            << "sale ";
        QTest::newRow("and") << "sale and "
                             << "sale ";
        QTest::newRow("Not") << "sale Not "
                             << "sale ";
        QTest::newRow("OR and then AND") << "sale AND OR "
                                         << "sale ";
        QTest::newRow("OR and then NOT") << "sale NOT OR "
                                         << "sale ";
        QTest::newRow("AND and no OR any more") << "sale OR AND "
                                                << "sale OR ";
        QTest::newRow("once only") << "sale OR OR "
                                   << "sale OR ";
        QTest::newRow("without a blank behind") << "sale OR"
                                                << "sale OR";
        QTest::newRow("end of a word") << "floor "
                                       << "floor ";
        QTest::newRow("nothing in front") << "or "
                                          << "or ";
        QTest::newRow("a blank in front") << " or "
                                          << " ";
        QTest::newRow("empty") << ""
                               << "";
    }
    void TrailingOperatorsGo() {
        QFETCH(QString, query);
        for (const SearchMode mode : kWordModes)
            QTEST(StripTrailingOperators(query, mode), "result");
        QCOMPARE(StripTrailingOperators(query, SearchMode::Phrase), query);
    }

    void OperatorsBetweenWordsGo_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("result");
        QTest::newRow("And") << "deed And sale"
                             << "deed sale";
        QTest::newRow("several") << "a and b or c not d"
                                 << "a b c d";
        QTest::newRow("equal in a row share a blank") << "a AND AND b"
                                                      << "a AND b";
        QTest::newRow("equal but for the case") << "a AND and b"
                                                << "a b";
        QTest::newRow("AND before NOT before OR") << "a or not and b"
                                                  << "a b";
        QTest::newRow("grown onto a word") << "deed ANDsale"
                                           << "deed ANDsale";
        QTest::newRow("a word grown onto it") << "deedAND sale"
                                              << "deedAND sale";
        QTest::newRow("at the start") << "and deed"
                                      << "and deed";
        QTest::newRow("at the end") << "deed and"
                                    << "deed and";
        QTest::newRow("at the end with a blank") << "deed and "
                                                 << "deed ";
        QTest::newRow("further blanks stay") << "deed  and  sale"
                                             << "deed   sale";
        QTest::newRow("empty") << ""
                               << "";
    }
    void OperatorsBetweenWordsGo() {
        QFETCH(QString, query);
        for (const SearchMode mode : kWordModes)
            QTEST(RemoveOperatorWords(query, mode), "result");
        QCOMPARE(RemoveOperatorWords(query, SearchMode::Phrase), query);
    }

    void EveryCapitalisationOfAnOperatorGoes() {
        for (const char* word : {"and", "not", "or"}) {
            const QString lower = QString::fromLatin1(word);
            for (int capitals = 0; capitals < 1 << lower.size(); ++capitals) {
                QString written = lower;
                for (int i = 0; i < written.size(); ++i) {
                    if (capitals & (1 << i))
                        written[i] = written[i].toUpper();
                }
                const QString query = QStringLiteral("deed ") + written + QStringLiteral(" sale");
                QCOMPARE(RemoveOperatorWords(query, SearchMode::All), QStringLiteral("deed sale"));
            }
        }
    }

    void DanglingOperatorsGo_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("result");
        QTest::newRow("or") << "sale or"
                            << "sale ";
        QTest::newRow("AND") << "sale AND"
                             << "sale ";
        QTest::newRow("Not") << "sale Not"
                             << "sale ";
        QTest::newRow("OR alone") << "OR"
                                  << "";
        QTest::newRow("and alone") << "and"
                                   << "";
        QTest::newRow("not alone") << "not"
                                   << "";
        QTest::newRow("a blank in front") << " or"
                                          << " ";
        QTest::newRow("a blank behind") << "sale or "
                                        << "sale or ";
        QTest::newRow("two in a row") << "sale and or"
                                      << "sale and ";
        QTest::newRow("end of a word") << "floor"
                                       << "floor";
        QTest::newRow("empty") << ""
                               << "";
    }
    void DanglingOperatorsGo() {
        QFETCH(QString, query);
        QTEST(StripDanglingOperators(query), "result");
    }

    void TurningToAModeStripsWhatItDoesNotAllow_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("result");
        QTest::newRow("dangling") << "deed or"
                                  << "deed ";
        QTest::newRow("alone") << "OR"
                               << "";
        QTest::newRow("everywhere") << "and deed or sale not"
                                    << "deed sale ";
        QTest::newRow("nothing to strip") << "deed  of sale"
                                          << "deed  of sale";
    }
    void TurningToAModeStripsWhatItDoesNotAllow() {
        QFETCH(QString, query);
        for (const SearchMode mode : kWordModes)
            QTEST(StripForMode(query, mode), "result");
        QCOMPARE(StripForMode(query, SearchMode::Phrase), query);
    }

    void CleanUpFollowsEachKey_data() {
        QTest::addColumn<SearchMode>("mode");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("result");
        QTest::addColumn<bool>("caretToEnd");
        QTest::addColumn<QString>("keysLeft");
        constexpr auto all = SearchMode::All;
        constexpr auto any = SearchMode::Any;
        constexpr auto phrase = SearchMode::Phrase;
        QTest::newRow("plain words") << all << "deed  of sale"
                                     << "SALE"
                                     << "deed  of sale" << false << "SALE";
        QTest::newRow("leading") << all << "and deed"
                                 << "DEED"
                                 << "deed" << false << "DEED";
        QTest::newRow("inner, pasted") << all << "deed And sale"
                                       << ""
                                       << "deed sale" << false << "";
        QTest::newRow("typed at the end") << all << "deed or "
                                          << "d or "
                                          << "deed " << true << "";
        QTest::newRow("pasted at the end") << any << "deed or "
                                           << ""
                                           << "deed " << true << "";
        QTest::newRow("no blank yet") << all << "deed or"
                                      << "d or"
                                      << "deed or" << false << "D OR";
        QTest::newRow("typed in the middle") << all << "deed and  sale"
                                             << "and "
                                             << "deed  sale" << true << "";
        QTest::newRow("NOT typed in the middle") << any << "deed not  sale"
                                                 << "not "
                                                 << "deed  sale" << true << "";
        QTest::newRow("a word that ends like one") << all << "floor "
                                                   << "loor "
                                                   << "floor " << true << "";
        QTest::newRow("two equal, one pasted") << all << "deed AND AND sale"
                                               << ""
                                               << "deed AND sale" << false << "";
        QTest::newRow("two equal, one typed") << all << "deed AND AND sale"
                                              << "AND "
                                              << "deed sale" << true << "";
        QTest::newRow("five equal, one typed") << any << "a OR OR OR OR OR b"
                                               << "OR "
                                               << "a OR b" << true << "";
        QTest::newRow("only operators") << all << "and or "
                                        << ""
                                        << "" << false << "";
        QTest::newRow("a chain") << all << "or and not deed"
                                 << ""
                                 << "deed" << false << "";
        QTest::newRow("OR alone") << all << "OR"
                                  << "OR"
                                  << "OR" << false << "OR";
        QTest::newRow("OR and a blank") << all << "OR "
                                        << "OR "
                                        << "" << true << "";
        QTest::newRow("Shift for each letter") << all << "deed OR "
                                               << "^O^R "
                                               << "deed " << true << "O^R ";
        QTest::newRow("Shift for all letters") << all << "deed AND "
                                               << "^AND "
                                               << "deed " << true << "";
        QTest::newRow("empty") << any << ""
                               << ""
                               << "" << false << "";
        QTest::newRow("phrase") << phrase << "deed and sale"
                                << "SALE"
                                << "deed and sale" << false << "SALE";
        QTest::newRow("phrase, typed") << phrase << "deed and "
                                       << "and "
                                       << "deed and " << false << "AND ";
    }
    void CleanUpFollowsEachKey() {
        QFETCH(SearchMode, mode);
        QFETCH(QString, query);
        QFETCH(QString, keys);
        QFETCH(QString, result);
        QFETCH(bool, caretToEnd);
        QFETCH(QString, keysLeft);
        QueryKeyTrail trail = TrailOf(keys);
        const CleanQuery clean = CleanUpQuery(query, mode, trail);
        QCOMPARE(clean.text, result);
        QCOMPARE(clean.caretToEnd, caretToEnd);
        QCOMPARE(trail.Last(), keysLeft.replace(u'^', u'\x10'));
    }

    void TheTrailKnowsTheLastKeysWhateverShiftDid() {
        QueryKeyTrail trail;
        for (const int key : {Qt::Key_F, Qt::Key_A, Qt::Key_N, Qt::Key_D, Qt::Key_Space})
            trail.Append(key);
        QVERIFY(trail.EndsWith(QLatin1String("AND ")));
        QVERIFY(trail.EndsWith(QLatin1String("ND ")));
        QVERIFY(!trail.EndsWith(QLatin1String("OR ")));
        trail.Append(Qt::Key_Backspace);
        QVERIFY(!trail.EndsWith(QLatin1String("AND ")));
        trail.Clear();
        QVERIFY(trail.Last().isEmpty());
    }

    void AKeyThatIsNoLetterPartsTheOperator() {
        for (const int key : {Qt::Key_Shift, Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Delete, Qt::Key_7}) {
            QueryKeyTrail trail;
            for (const int pressed :
                 {int(Qt::Key_A), int(Qt::Key_N), key, int(Qt::Key_D), int(Qt::Key_Space)})
                trail.Append(pressed);
            QVERIFY(!trail.EndsWith(QLatin1String("AND ")));
        }
    }

    void OnlyLettersDigitsAndBlanksCanBeTyped() {
        QString accepted;
        for (char16_t code = 0; code < 0x2000; ++code) {
            if (IsQueryCharacter(code))
                accepted += QChar(code);
        }
        QCOMPARE(accepted,
                 QStringLiteral(
                     "\b 0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz\x7f\u00a4\u00a5"));
        for (const char16_t refused : u"\"+-*'.,&/?#[]!\r\t")
            QVERIFY(!IsQueryCharacter(refused));
    }

    void ABlankAtTheStartEmptiesTheBoxWhenAKeyComesUp_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("result");
        QTest::newRow("blank") << " "
                               << "";
        QTest::newRow("blank before words") << " deed of sale"
                                            << "";
        QTest::newRow("words") << "deed of sale "
                               << "deed of sale ";
        QTest::newRow("empty") << ""
                               << "";
    }
    void ABlankAtTheStartEmptiesTheBoxWhenAKeyComesUp() {
        QFETCH(QString, query);
        QTEST(AfterKeyUp(query), "result");
    }

    void TheCaretStaysBetweenItsNeighbours_data() {
        QTest::addColumn<QString>("before"); // the caret is the '|'
        QTest::addColumn<QString>("after");
        QTest::newRow("nothing changed") << "de|ed"
                                         << "de|ed";
        QTest::newRow("gone in front") << "and de|ed"
                                       << "de|ed";
        QTest::newRow("gone behind") << "de|ed and sale"
                                     << "de|ed sale";
        QTest::newRow("caret in what went") << "an|d deed"
                                            << "|deed";
        QTest::newRow("caret at the end of what went") << "and |deed"
                                                       << "|deed";
        QTest::newRow("in front of all") << "|and deed"
                                         << "|deed";
        QTest::newRow("at the end") << "deed and sale|"
                                    << "deed sale|";
        QTest::newRow("all gone") << "or |"
                                  << "|";
        QTest::newRow("grown from nothing") << "|"
                                            << "|deed";
        QTest::newRow("letters alike on both sides") << "a a |a"
                                                     << "a |a";
    }
    void TheCaretStaysBetweenItsNeighbours() {
        QFETCH(QString, before);
        QFETCH(QString, after);
        const int caret = int(before.indexOf(u'|'));
        const int expected = int(after.indexOf(u'|'));
        QCOMPARE(CaretAfterChange(before.remove(u'|'), after.remove(u'|'), caret), expected);
    }
};

QTEST_GUILESS_MAIN(QueryStripTest)
#include "query_strip_test.moc"
