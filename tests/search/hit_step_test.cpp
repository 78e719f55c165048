#include "search/hit_step.h"

#include <QtTest>
#include <random>

using namespace quillbrook;

namespace {

SearchTerms TermsOf(const QString& words) {
    SearchTerms terms;
    const QStringList list = words.split(u'|');
    for (qsizetype i = 0; i < list.size(); ++i)
        terms[std::size_t(i)] = list[i];
    return terms;
}

// A walk and the word that its steps set, as the marking of the form leaves it.
struct Walk {
    Walk(const QString& text, const QString& words) { Start(MarkForm(text, TermsOf(words))); }
    explicit Walk(const MarkedForm& form) { Start(form); }

    void Start(const MarkedForm& form) {
        hits.Start(form);
        if (!form.CurrentSearchWord.isEmpty())
            word = form.CurrentSearchWord;
    }
    std::optional<HitSelection> Next(const QString& text) { return hits.Next(text, word); }
    HitSelection Previous(const QString& text) { return hits.Previous(text, word); }
    qsizetype HitScanPosition() const { return hits.HitScanPosition(); }

    HitWalk hits;
    QString word;
};

QString Written(const HitSelection& selection) {
    const QString start = selection.start ? QString::number(*selection.start) : QStringLiteral("?");
    return QStringLiteral("%1+%2").arg(start).arg(selection.length);
}

// The same walk told with copies of the text, positions counted from 1 throughout. Its search for the hit in
// front knows nothing of terms of one letter.
class WalkByCopies {
public:
    WalkByCopies(const QStringList& terms, const QString& word)
        : m_terms(terms)
        , m_word(word) {}

    QString Next(const QString& text) {
        const qsizetype length = text.size();
        qsizetype nearest = length;
        if (m_position >= length)
            return QStringLiteral("-");
        const QString tail = text.mid(m_position - 1, length - m_position);
        for (const QString& term : m_terms) {
            const qsizetype found = tail.toUpper().indexOf(term) + 1;
            if (found > 0 && found < nearest) {
                nearest = found;
                m_word = term;
            }
        }
        m_position += nearest;
        if (m_position > length)
            return QStringLiteral("-");
        return QStringLiteral("%1+%2").arg(m_position - 2).arg(m_word.size());
    }

    QString Previous(const QString& text) {
        qsizetype best = 1;
        for (const QString& term : m_terms) {
            const QString head = text.left(m_position);
            qsizetype mark = 1;
            while (mark < head.size()) {
                const qsizetype found = head.mid(mark - 1, head.size() - mark).toUpper().indexOf(term) + 1;
                if (found == 0)
                    break;
                mark += found;
            }
            if (mark > best) {
                best = mark;
                m_word = term;
            }
        }
        m_position = best;
        if (best == 1)
            return QStringLiteral("?+%1").arg(m_word.size());
        return QStringLiteral("%1+%2").arg(best - 2).arg(m_word.size());
    }

    qsizetype Position() const { return m_position; }

private:
    QStringList m_terms;
    QString m_word;
    qsizetype m_position = 1;
};

} // namespace

class HitStepTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void StepsSelectHits_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("terms");
        QTest::addColumn<QString>("steps");    // > next, < previous
        QTest::addColumn<QString>("selected"); // - nothing, ? the start stays
        const QString sale = QStringLiteral("the sale of the deed of sale");
        QTest::newRow("the nearest of two terms first") << sale << "deed|sale"
                                                        << ">>"
                                                        << "4+4 16+4";
        QTest::newRow("and back") << sale << "deed|sale"
                                  << ">><"
                                  << "4+4 16+4 4+4";
        QTest::newRow("and forth again") << sale << "deed|sale"
                                         << ">><>"
                                         << "4+4 16+4 4+4 16+4";
        QTest::newRow("a hit on the last character is out of reach") << sale << "deed|sale"
                                                                     << ">>>>"
                                                                     << "4+4 16+4 - -";
        QTest::newRow("a line end behind it brings it within reach") << sale + u'\n' << "deed|sale"
                                                                     << ">>>>"
                                                                     << "4+4 16+4 24+4 -";
        QTest::newRow("back from behind the last") << sale + u'\n' << "sale"
                                                   << ">>>><<"
                                                   << "4+4 24+4 - - 24+4 4+4";
        QTest::newRow("no way round in front") << sale << "sale"
                                               << "><<"
                                               << "4+4 ?+4 ?+4";
        QTest::newRow("anew after nothing in front") << sale << "sale"
                                                     << "><>"
                                                     << "4+4 ?+4 4+4";
        QTest::newRow("a hit at the very start") << "deed of deed."
                                                 << "deed"
                                                 << ">><<"
                                                 << "0+4 8+4 0+4 ?+4";
        QTest::newRow("overlapping hits") << "banana."
                                          << "ana"
                                          << ">>><<"
                                          << "1+3 3+3 - 3+3 1+3";
        QTest::newRow("one term in another, which does not lie in front of it") << "the wholesale of it"
                                                                                << "sale|wholesale"
                                                                                << ">><"
                                                                                << "4+9 9+4 ?+4";
        QTest::newRow("of two at one place the first listed, long") << "a seller sells"
                                                                    << "seller|sell"
                                                                    << ">>>"
                                                                    << "2+6 9+4 -";
        QTest::newRow("of two at one place the first listed, short") << "a seller sells"
                                                                     << "sell|seller"
                                                                     << ">>"
                                                                     << "2+4 9+4";
        QTest::newRow("the same term twice") << sale << "sale|sale|deed"
                                             << ">><"
                                             << "4+4 16+4 4+4";
        QTest::newRow("one letter") << "xaxa  "
                                    << "a"
                                    << ">>><<<"
                                    << "1+1 3+1 - 3+1 1+1 ?+1";
        QTest::newRow("one letter next to itself") << "aaa  "
                                                   << "a"
                                                   << ">>>><<"
                                                   << "0+1 1+1 2+1 - 2+1 1+1";
        QTest::newRow("one letter just before the last character, where the walk stays")
            << "aaa "
            << "a"
            << ">>>><<"
            << "0+1 1+1 2+1 - 1+1 0+1";
        QTest::newRow("one letter at the end of a hit") << "the deed "
                                                        << "deed|d"
                                                        << ">><<"
                                                        << "4+4 7+1 4+4 ?+4";
        QTest::newRow("no hit in the form") << sale << "lease"
                                            << ">><"
                                            << "- - ?+5";
        QTest::newRow("no terms") << sale << ""
                                  << "><"
                                  << "- ?+0";
        QTest::newRow("empty text") << ""
                                    << "deed"
                                    << "><"
                                    << "- ?+4";
        QTest::newRow("a text of one character") << "a"
                                                 << "a"
                                                 << "><"
                                                 << "- ?+1";
    }
    void StepsSelectHits() {
        QFETCH(QString, text);
        QFETCH(QString, terms);
        QFETCH(QString, steps);
        Walk walk(text, terms);
        QStringList selected;
        for (const QChar step : steps) {
            if (step == u'<') {
                selected.append(Written(walk.Previous(text)));
                continue;
            }
            const auto selection = walk.Next(text);
            selected.append(selection ? Written(*selection) : QStringLiteral("-"));
        }
        QTEST(selected.join(u' '), "selected");
    }

    void TheScanPositionStandsBehindTheStartOfTheHit() {
        const QString text = QStringLiteral("the sale of the deed of sale");
        Walk walk(text, QStringLiteral("deed|sale"));
        QCOMPARE(walk.HitScanPosition(), 1);
        walk.Next(text);
        QCOMPARE(walk.HitScanPosition(), 6);
        QCOMPARE(walk.word, QStringLiteral("SALE"));
        walk.Next(text);
        QCOMPARE(walk.HitScanPosition(), 18);
        QCOMPARE(walk.word, QStringLiteral("DEED"));
        walk.Previous(text);
        QCOMPARE(walk.HitScanPosition(), 6);
        walk.Previous(text);
        QCOMPARE(walk.HitScanPosition(), 1);
    }

    void AStepWithoutAHitLeavesThePositionPastTheEnd() {
        const QString text = QStringLiteral("deed of sale.");
        Walk walk(text, QStringLiteral("deed"));
        walk.Next(text);
        QVERIFY(!walk.Next(text));
        QCOMPARE(walk.HitScanPosition(), 2 + text.size());
        QVERIFY(!walk.Next(text));
        QCOMPARE(walk.HitScanPosition(), 2 + text.size());
    }

    void AnotherFormBeginsInFront() {
        const QString text = QStringLiteral("deed of deed.");
        Walk walk(text, QStringLiteral("deed"));
        walk.Next(text);
        walk.Start(MarkForm(text, TermsOf(QStringLiteral("of"))));
        QCOMPARE(walk.HitScanPosition(), 1);
        QCOMPARE(Written(*walk.Next(text)), QStringLiteral("5+2"));
    }

    void AFormShownWithoutTermsKeepsTheWordOfTheLastStep() {
        const QString text = QStringLiteral("deed of deed.");
        Walk walk(text, QStringLiteral("deed"));
        walk.Next(text);
        walk.Start(MarkedForm());
        QVERIFY(!walk.Next(text));
        QCOMPARE(Written(walk.Previous(text)), QStringLiteral("?+4"));
    }

    void WithNothingInFrontTheLengthIsThatOfTheWordWhoeverSetIt() {
        const QString text = QStringLiteral("a deed of deed.");
        Walk walk(text, QStringLiteral("deed"));
        walk.Next(text);
        walk.word = QStringLiteral("(JURAT)");
        QCOMPARE(Written(walk.Previous(text)), QStringLiteral("?+7"));
        QCOMPARE(walk.word, QStringLiteral("(JURAT)"));
    }

    void HitsAreLookedForInTheTextAsItStands() {
        Walk walk(QStringLiteral("the deed and the deed."), QStringLiteral("deed"));
        QCOMPARE(Written(*walk.Next(QStringLiteral("the deed and the deed."))), QStringLiteral("4+4"));
        QCOMPARE(Written(*walk.Next(QStringLiteral("the deed, and so the deed."))), QStringLiteral("21+4"));
        QCOMPARE(Written(walk.Previous(QStringLiteral("a deed, "))), QStringLiteral("2+4"));
    }

    // Random walks over random texts, terms of two letters and more.
    void WalksAgreeWithThoseByCopies() {
        std::mt19937 random(11);
        const auto word = [&](int shortest, int lengths) {
            QString made;
            for (int i = shortest + int(random() % unsigned(lengths)); i > 0; --i)
                made += QChar(static_cast<char16_t>(u"abAB"[random() % 4]));
            return made;
        };
        for (int run = 0; run < 3000; ++run) {
            const QString text = word(0, 120);
            QString terms = word(2, 3);
            for (auto more = random() % 3; more > 0; --more)
                terms += u'|' + word(2, 4);
            const MarkedForm form = MarkForm(text, TermsOf(terms));
            Walk walk(form);
            WalkByCopies copies(form.cboDisplayHit, form.CurrentSearchWord);
            for (int step = 0; step < 40; ++step) {
                if (random() % 3 == 0) {
                    const HitSelection selection = walk.Previous(text);
                    QCOMPARE(Written(selection), copies.Previous(text));
                } else {
                    const auto selection = walk.Next(text);
                    QCOMPARE(selection ? Written(*selection) : QStringLiteral("-"), copies.Next(text));
                }
                QCOMPARE(walk.HitScanPosition(), copies.Position());
            }
        }
    }
};

QTEST_GUILESS_MAIN(HitStepTest)
#include "hit_step_test.moc"
