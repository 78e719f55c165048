#include "search/marking.h"
#include "search/term_finder.h"

#include <QtTest>
#include <random>

using namespace quillbrook;

namespace {

using Ranges = std::vector<TextRange>;

// "4+4 16+4": starts and lengths.
QString Written(const Ranges& ranges) {
    QStringList list;
    for (const TextRange& range : ranges)
        list.append(QStringLiteral("%1+%2").arg(range.start).arg(range.length));
    return list.join(u' ');
}

SearchTerms TermsOf(const QString& words) {
    SearchTerms terms;
    const QStringList list = words.split(u' ');
    for (qsizetype i = 0; i < list.size(); ++i)
        terms[std::size_t(i)] = list[i];
    return terms;
}

// A text of the given letters, so that terms of them overlap often.
QString RandomText(std::mt19937& random, const QString& letters, int length) {
    QString text;
    for (int i = 0; i < length; ++i)
        text += letters[qsizetype(random() % std::size_t(letters.size()))];
    return text;
}

} // namespace

class MarkingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryHitIsMarked_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("term");
        QTest::addColumn<QString>("marks");
        const QString sale = QStringLiteral("the sale of the deed of sale");
        QTest::newRow("one place") << sale << "deed"
                                   << "16+4";
        QTest::newRow("several places, one at the end") << sale << "sale"
                                                        << "4+4 24+4";
        QTest::newRow("several words") << sale << "deed of"
                                       << "16+7";
        QTest::newRow("whatever the case") << "Sale SALE sAle"
                                           << "saLE"
                                           << "0+4 5+4 10+4";
        QTest::newRow("within a word") << "wholesale"
                                       << "sale"
                                       << "5+4";
        QTest::newRow("overlapping") << "banana"
                                     << "ana"
                                     << "1+3 3+3";
        QTest::newRow("over line ends") << "deed\nof\nsale"
                                        << "of"
                                        << "5+2";
        QTest::newRow("no hit") << sale << "lease"
                                << "";
        QTest::newRow("longer than the text") << "deed"
                                              << "deeds"
                                              << "";
        QTest::newRow("the whole text") << "deed"
                                        << "deed"
                                        << "0+4";
        QTest::newRow("beyond ASCII") << "Do\u00f1a NI\u00d1O"
                                      << "\u00f1"
                                      << "2+1 7+1";
        QTest::newRow("a term without letters") << "5, 6, 7 "
                                                << ", "
                                                << "1+2 4+2";
        QTest::newRow("empty text") << ""
                                    << "deed"
                                    << "";
        QTest::newRow("empty term") << sale << ""
                                    << "";
    }
    void EveryHitIsMarked() {
        QFETCH(QString, text);
        QFETCH(QString, term);
        QTEST(Written(MarkTermHits(text, term)), "marks");
    }

    void NoScanBeginsAtTheLastCharacter_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("marks");
        QTest::newRow("one letter, behind a hit") << "oaa"
                                                  << "1+1";
        QTest::newRow("the whole text") << "a"
                                        << "";
        QTest::newRow("twice") << "aa"
                               << "0+1";
        QTest::newRow("reached by a scan from further left") << "aoa"
                                                             << "0+1 2+1";
        QTest::newRow("followed by a line end") << "oaa\n"
                                                << "1+1 2+1";
    }
    void NoScanBeginsAtTheLastCharacter() {
        QFETCH(QString, text);
        QTEST(Written(MarkTermHits(text, QStringLiteral("a"))), "marks");
    }

    void TermsAreMarkedAndListedInTheOrderOfTheirSlots() {
        const MarkedForm form =
            MarkForm(QStringLiteral("the Sale of the deed of sale"), TermsOf(QStringLiteral("deed sale")));
        QCOMPARE(Written(form.marks), QStringLiteral("16+4 4+4 24+4"));
        QCOMPARE(form.cboDisplayHit, (QStringList{QStringLiteral("DEED"), QStringLiteral("SALE")}));
        QCOMPARE(form.CurrentSearchWord, QStringLiteral("sale"));
    }

    void TermsThatDoNotOccurAreNotListed() {
        const MarkedForm form =
            MarkForm(QStringLiteral("deed of sale"), TermsOf(QStringLiteral("lease sale bail")));
        QCOMPARE(form.cboDisplayHit, QStringList{QStringLiteral("SALE")});
        QCOMPARE(form.CurrentSearchWord, QStringLiteral("bail"));
    }

    void AFormWithoutAHitStaysUnmarked() {
        const MarkedForm form = MarkForm(QStringLiteral("deed of sale"), TermsOf(QStringLiteral("fonttbl")));
        QVERIFY(form.marks.empty());
        QVERIFY(form.cboDisplayHit.isEmpty());
    }

    void EmptySlotsArePassedOver() {
        const MarkedForm form = MarkForm(QStringLiteral("deed of sale"),
                                         TermsOf(QStringLiteral("deed  sale"))); // the second is empty
        QCOMPARE(form.cboDisplayHit, (QStringList{QStringLiteral("DEED"), QStringLiteral("SALE")}));
        const MarkedForm none = MarkForm(QStringLiteral("deed of sale"), SearchTerms());
        QVERIFY(none.marks.empty() && none.CurrentSearchWord.isEmpty());
    }

    void TheSameWordTwiceIsMarkedAndListedTwice() {
        const MarkedForm form = MarkForm(QStringLiteral("a deed"), TermsOf(QStringLiteral("deed DEED")));
        QCOMPARE(Written(form.marks), QStringLiteral("2+4 2+4"));
        QCOMPARE(form.cboDisplayHit, (QStringList{QStringLiteral("DEED"), QStringLiteral("DEED")}));
    }

    void OnlySevenTermsOfAQueryAreMarked() {
        const ParsedQuery parsed = Parse(QStringLiteral("a b c d e f g h"));
        const MarkedForm form = MarkForm(QStringLiteral("a b c d e f g h "), parsed.terms);
        QCOMPARE(form.cboDisplayHit.size(), 7);
        QCOMPARE(form.cboDisplayHit.last(), QStringLiteral("G"));
    }

    void MinusTermsAreNotMarked() {
        const ParsedQuery parsed = Parse(QStringLiteral("deed -sale"));
        QCOMPARE(Written(MarkForm(QStringLiteral("deed of sale"), parsed.terms).marks),
                 QStringLiteral("0+4"));
    }

    void OverlapsAreJoined_data() {
        QTest::addColumn<QString>("marks");
        QTest::addColumn<QString>("apart");
        QTest::newRow("none") << ""
                              << "";
        QTest::newRow("apart, in order") << "16+4 4+4 24+4"
                                         << "4+4 16+4 24+4";
        QTest::newRow("overlapping") << "1+3 3+3"
                                     << "1+5";
        QTest::newRow("touching") << "4+4 8+2"
                                  << "4+6";
        QTest::newRow("one in another") << "2+9 4+3"
                                        << "2+9";
        QTest::newRow("one in another, same start") << "2+3 2+9"
                                                    << "2+9";
        QTest::newRow("equal") << "2+4 2+4"
                               << "2+4";
        QTest::newRow("a chain") << "0+2 5+3 2+2 4+1"
                                 << "0+8";
    }
    void OverlapsAreJoined() {
        QFETCH(QString, marks);
        Ranges ranges;
        for (const QString& range : marks.split(u' ', Qt::SkipEmptyParts))
            ranges.push_back({range.section(u'+', 0, 0).toInt(), range.section(u'+', 1).toInt()});
        QTEST(Written(WithoutOverlaps(ranges)), "apart");
    }

    void PlacesInCapitalsAreThoseOfTheText() {
        const QString text = QStringLiteral("stra\u00dfe \ufb01n \u0131\u017f \u00fc\u00b5\u00ff a");
        const QString capitals = Capitals(text);
        QCOMPARE(capitals.size(), text.size());
        QCOMPARE(capitals, QStringLiteral("STRA\u00dfE \ufb01N \u0131\u017f \u00dc\u039c\u0178 A"));
        for (char16_t c = 0; c < 0x80; ++c)
            QCOMPARE(Capitals(QString(QChar(c))), QString(QChar(c)).toUpper());
    }

    // Texts longer than a block of the finder, terms at every place in it.
    void TheFinderFindsWhatACharacterByCharacterLookFinds() {
        std::mt19937 random(5);
        for (int run = 0; run < 3000; ++run) {
            const QString letters = run % 2 ? QStringLiteral("AB") : QStringLiteral("ABCDEFGHIJKLMNOP");
            const QString text = RandomText(random, letters, int(random() % 300));
            const QString term = RandomText(random, letters, 1 + int(random() % 4));
            const qsizetype from = qsizetype(random() % 310) - 5;
            const qsizetype end = qsizetype(random() % 310) - 5;
            const TermFinder finder(term);
            const qsizetype stop = std::min(end, text.size()) - term.size();
            qsizetype first = text.indexOf(term, std::max<qsizetype>(from, 0));
            qsizetype last = stop < 0 ? -1 : text.lastIndexOf(term, stop);
            if (first > stop || from > text.size())
                first = -1;
            if (last < from)
                last = -1;
            QCOMPARE(finder.First(text, from, end), first);
            QCOMPARE(finder.Last(text, from, end), last);
        }
    }
};

QTEST_GUILESS_MAIN(MarkingTest)
#include "marking_test.moc"
