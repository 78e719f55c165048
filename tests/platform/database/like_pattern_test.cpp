#include "platform/database/like_pattern.h"

#include "platform/database/text_compare.h"

#include <QElapsedTimer>
#include <QTest>
#include <random>

using platform::AsciiNeedle;
using platform::LikePattern;

static bool Like(const std::string& text, const std::string& pattern) {
    const std::optional<LikePattern> compiled = LikePattern::Compile(pattern);
    return compiled && compiled->Matches(text);
}

// The same rules, written as plainly as they can be; ASCII and without brackets.
static bool SlowLike(std::string_view text, std::string_view pattern) {
    std::vector<char> reached(text.size() + 1, 0); // the prefixes of the text that match the pattern so far
    reached[0] = 1;
    for (const char p : pattern) {
        std::vector<char> next(text.size() + 1, 0);
        for (std::size_t i = 0; i <= text.size(); ++i) {
            if (p == '*') {
                next[i] = reached[i] != 0 || (i > 0 && next[i - 1] != 0) ? 1 : 0;
                continue;
            }
            if (i == 0 || reached[i - 1] == 0)
                continue;
            const char c = text[i - 1];
            const bool same = std::tolower(c) == std::tolower(p);
            next[i] = p == '?' || (p == '#' && c >= '0' && c <= '9') || same ? 1 : 0;
        }
        reached = next;
    }
    return reached.back() != 0;
}

class LikePatternTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void MatchesTheWholeText_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("pattern");
        QTest::addColumn<bool>("matches");
        const auto row = [](const char* text, const char* pattern, bool matches) {
            QTest::addRow("%s like %s", text, pattern) << QByteArray(text) << QByteArray(pattern) << matches;
        };
        row("deed", "deed", true);
        row("deed of sale", "deed", false);
        row("deed of sale", "deed*", true);
        row("deed of sale", "*sale", true);
        row("deed of sale", "*of*", true);
        row("deed of sale", "*OF*", true);
        row("DEED OF SALE", "*deed*sale*", true);
        row("deed of sale", "*sale*deed*", false);
        row("", "", true);
        row("", "*", true);
        row("", "**", true);
        row("x", "", false);
        row("anything", "**", true);
        row("aba", "ab*ba", false);
        row("abba", "ab*ba", true);
        row("aXbXc", "a*x*c", true);
        row("cat", "c?t", true);
        row("ct", "c?t", false);
        row("cat", "???", true);
        row("cat", "????", false);
        row("cat", "*??*", true);
        row("c", "*??*", false);
        row("no 7", "no #", true);
        row("no x", "no #", false);
        row("no 77", "no #", false);
        row("#", "[#]", true);
        row("what?", "what[?]", true);
        row("a*b", "a[*]b", true);
        row("axb", "a[*]b", false);
        row("[", "[[]", true);
        row("]", "]", true);
        row("b", "[a-c]", true);
        row("B", "[a-c]", true);
        row("b", "[A-C]", true);
        row("d", "[a-c]", false);
        row("d", "[!a-c]", true);
        row("b", "[!a-c]", false);
        row("", "[!a-c]", false);
        row("-", "[-a]", true);
        row("-", "[a-]", true);
        row("-", "[!-]", false);
        row("x", "[!-]", true);
        row("!", "[!]", true);
        row("5x", "[0-9a-f][x-z]", true);
        row("ab", "a[]b", true);
        row("ab", "a[]", false);
        row("the quick fox", "*qu?ck*", true);
        row("the quack fox", "*qu[!i]ck*", true);
        row("the quick fox", "*qu[!i]ck*", false);
        // beyond ASCII
        row("\xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89", true); // Été, éTÉ
        row("caf\xC3\xA9", "cafe", false);
        row("caf\xC3\xA9", "caf?", true);
        row("caf\xC3\xA9", "*\xC3\x89*", true);
        row("caf\xC3\xA9 noir", "*\xC3\xA9 n*", true);
        row("\xF0\x9F\x98\x80!", "?!", true); // a character outside the first plane
        row("\xD0\x94\xD0\x9E\xD0\x9C", "\xD0\xB4\xD0\xBE\xD0\xBC", true); // ДОМ, дом
        row("\xC3\xA9", "[\xC3\xA0-\xC3\xB6]", true);
        row("\xE2\x84\xAA", "k", false); // the Kelvin sign is no k
        row("\xE2\x84\xAAk", "*k", true);
        row("a\xC3\xA9", "*?", true);
        row("x\xC3\xA9y", "*\xC3\xA9?", true);
        row("\xFF\xC3", "??", true); // broken bytes are a character each
    }
    void MatchesTheWholeText() {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, pattern);
        QFETCH(bool, matches);
        QVERIFY(LikePattern::Compile(pattern.toStdString()));
        QCOMPARE(Like(text.toStdString(), pattern.toStdString()), matches);
    }

    void RefusesMalformedBrackets_data() {
        QTest::addColumn<QByteArray>("pattern");
        for (const char* pattern : {"[", "[a", "*[*", "a[!", "[z-a]", "[9-0]", "[!z-a]", "ok[a]b["})
            QTest::addRow("%s", pattern) << QByteArray(pattern);
    }
    void RefusesMalformedBrackets() {
        QFETCH(QByteArray, pattern);
        QVERIFY(!LikePattern::Compile(pattern.toStdString()));
    }

    void RefusesWhatIsTooLong() {
        QVERIFY(LikePattern::Compile(std::string(LikePattern::kMaxBytes, 'a')));
        QVERIFY(!LikePattern::Compile(std::string(LikePattern::kMaxBytes + 1, 'a')));
        QVERIFY(LikePattern::Compile(std::string(LikePattern::kMaxMixedElements, '?')));
        QVERIFY(!LikePattern::Compile(std::string(LikePattern::kMaxMixedElements + 1, '?')));
    }

    void AgreesWithThePlainRulesOnRandomTexts() {
        std::mt19937 random(20);
        const auto pick = [&](std::string_view alphabet, std::size_t longest) {
            std::string text(random() % (longest + 1), ' ');
            for (char& c : text)
                c = alphabet[random() % alphabet.size()];
            return text;
        };
        int matched = 0;
        for (int i = 0; i < 60000; ++i) {
            const std::string text = pick("aAbB1 ", i % 3 == 0 ? 200 : 12);
            const std::string pattern =
                i % 2 == 0 ? pick("aAbB1**?#", 8) : "*" + pick("aAbB1", 6) + "*" + pick("aB*", 4);
            const bool expected = SlowLike(text, pattern);
            matched += expected ? 1 : 0;
            if (Like(text, pattern) != expected)
                QFAIL(("'" + text + "' like '" + pattern + "'").c_str());
        }
        QVERIFY(matched > 5000);
        QVERIFY(matched < 55000);
    }

    void FindsANeedleAtEveryPlace() {
        for (std::size_t size = 1; size < 200; ++size) {
            for (const std::string needle : {"q", "sale", "\\par Affidavit"}) {
                for (std::size_t at = 0; at + needle.size() <= size; ++at) {
                    std::string text(size, '.');
                    text.replace(at, needle.size(), needle);
                    QCOMPARE(AsciiNeedle(needle).Find(text), at);
                    text[at + needle.size() - 1] = '\xC3';
                    QCOMPARE(AsciiNeedle(needle).Find(text), std::string_view::npos);
                }
            }
        }
    }

    void FindsNoLetterInASignThatDiffersByTheCaseBit() {
        QVERIFY(!Like("@", "*`*")); // 0x40 and 0x60
        QVERIFY(!Like("\x10", "*0*"));
        QVERIFY(!Like("[", "*{*"));
        QVERIFY(Like("Z", "*z*"));
    }

    void HostilePatternsStayLinear_data() {
        QTest::addColumn<QByteArray>("pattern");
        const QByteArray many(8000, 'a');
        QTest::newRow("needle that nearly matches everywhere") << QByteArray("*" + many + "b" + many + "*");
        QTest::newRow("many stars") << QByteArray("*a").repeated(5000) + "*b";
        QTest::newRow("question marks") << "*" + QByteArray("a?").repeated(500) + "b*";
        QTest::newRow("mixed with stars") << QByteArray("*a?a").repeated(2000) + "*b*";
        QTest::newRow("beyond ASCII") << "*" + QByteArray(900, 'a') + "\xC3\xA9*";
    }
    void HostilePatternsStayLinear() {
        QFETCH(QByteArray, pattern);
        const std::optional<LikePattern> compiled = LikePattern::Compile(pattern.toStdString());
        QVERIFY(compiled);
        std::string text(2000000, 'a');
        text += "\xC3\xA8"; // so that the way of plain ASCII cannot be taken for the whole
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!compiled->Matches(text));
        QVERIFY2(timer.elapsed() < 3000, qPrintable(QString::number(timer.elapsed())));
    }

    void BeginningDecides_data() {
        QTest::addColumn<QByteArray>("pattern");
        QTest::addColumn<bool>("decides");
        QTest::newRow("word") << QByteArray("*deed*") << true;
        QTest::newRow("words") << QByteArray("*deed*sale*") << true;
        QTest::newRow("anything") << QByteArray("**") << true;
        QTest::newRow("at the start") << QByteArray("deed*") << true;
        QTest::newRow("at the end") << QByteArray("*deed") << false;
        QTest::newRow("whole") << QByteArray("deed") << false;
        QTest::newRow("nothing") << QByteArray("") << false;
        QTest::newRow("cut through") << QByteArray("*dee?*") << false;
        QTest::newRow("beyond ASCII") << QByteArray("*d\xC3\xA9*") << false;
    }
    void BeginningDecides() {
        QFETCH(QByteArray, pattern);
        QFETCH(bool, decides);
        QCOMPARE(LikePattern::Compile(pattern.toStdString())->IsDecidedByABeginning(), decides);
    }

    void ComparisonIsCaselessAndTellsAccentsApart() {
        using platform::CompareCaseless;
        QCOMPARE(CompareCaseless("Deed", "dEED"), 0);
        QCOMPARE(CompareCaseless("\xC3\x89", "\xC3\xA9"), 0);
        QVERIFY(CompareCaseless("\xC3\xA9", "e") > 0);
        QVERIFY(CompareCaseless("a", "b") < 0);
        QVERIFY(CompareCaseless("B", "a") > 0);
        QVERIFY(CompareCaseless("a", "aa") < 0);
        QVERIFY(CompareCaseless("aa", "a") > 0);
        QCOMPARE(CompareCaseless("", ""), 0);
        QVERIFY(CompareCaseless("\xE2\x84\xAA", "k") > 0);
    }
};

QTEST_GUILESS_MAIN(LikePatternTest)
#include "like_pattern_test.moc"
