#include "library/spelling.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillbrook;

class SpellingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheDictionaryKnowsCommonWordsAndTheFieldsOwn_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<bool>("known");
        QTest::newRow("common") << u"mortgage"_qs << true;
        QTest::newRow("capital") << u"Mortgage"_qs << true;
        QTest::newRow("capitals") << u"MORTGAGE"_qs << true;
        QTest::newRow("misspelt") << u"morgage"_qs << false;
        QTest::newRow("misspelt in capitals") << u"MORGAGE"_qs << false;
        QTest::newRow("of the field") << u"usufructuary"_qs << true;
        QTest::newRow("of the field, capital") << u"Usufructuary"_qs << true;
        QTest::newRow("of the field, capitals") << u"USUFRUCTUARY"_qs << true;
        QTest::newRow("possessive") << u"usufructuary's"_qs << true;
        QTest::newRow("capitals with a small possessive") << u"BAILEE's"_qs << true;
        QTest::newRow("possessive of a plural") << u"sublessees'"_qs << true;
        QTest::newRow("abbreviation") << u"MCLE"_qs << true;
        QTest::newRow("abbreviation in small letters") << u"mcle"_qs << false;
        QTest::newRow("name in small letters") << u"makati"_qs << false;
        QTest::newRow("letter with a tilde") << u"Parañaque"_qs << true;
    }
    void TheDictionaryKnowsCommonWordsAndTheFieldsOwn() {
        QFETCH(QString, word);
        QFETCH(bool, known);
        static const SpellingDictionary dictionary(LegalWords());
        QVERIFY(dictionary.IsLoaded());
        QCOMPARE(dictionary.Knows(word), known);
    }

    void AnUnknownWordIsToldOnceWhereItStandsFirst() {
        const SpellingDictionary dictionary({u"xyzzying"_qs});
        const SourceProblems problems = CheckSpelling(
            WordsOf({{3, u"The partys agree, xyzzying"_qs}, {7, u"the partys, wich"_qs}}), dictionary);
        QCOMPARE(problems.size(), 2u);
        QCOMPARE(problems[0].line, 3);
        QCOMPARE(problems[0].text, u"unknown word \"partys\""_qs);
        QCOMPARE(problems[1].line, 7);
        QCOMPARE(problems[1].text, u"unknown word \"wich\""_qs);
    }

    void AListOfWordsIsOrderedAndHoldsEachOnce_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("line"); // 0: nothing wrong
        QTest::newRow("good") << u"BIR\nbono\nZamboanga\n"_qs << 0;
        QTest::newRow("empty") << QString() << 0;
        QTest::newRow("out of order") << u"b\na\n"_qs << 2;
        QTest::newRow("twice") << u"a\na\n"_qs << 2;
        QTest::newRow("twice, capital") << u"a\nA\n"_qs << 2;
        QTest::newRow("two words") << u"a\nb c\n"_qs << 2;
        QTest::newRow("blank at the end") << u"a \n"_qs << 1;
        QTest::newRow("empty line") << u"a\n\nb\n"_qs << 2;
        QTest::newRow("no last line feed") << u"a\nb"_qs << 1;
    }
    void AListOfWordsIsOrderedAndHoldsEachOnce() {
        QFETCH(QString, text);
        QFETCH(int, line);
        SourceProblems problems;
        ReadWordList(text, problems);
        QCOMPARE(problems.empty() ? 0 : problems[0].line, line);
    }

    void TheShippedListIsInOrder() {
        QFile file(QStringLiteral(QUILLBROOK_SOURCE_DIR "/assets/words/legal.txt"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        SourceProblems problems;
        const QStringList words = ReadWordList(QString::fromUtf8(file.readAll()), problems);
        for (const SourceProblem& problem : problems)
            QFAIL(qPrintable(QStringLiteral("legal.txt:%1: %2").arg(problem.line).arg(problem.text)));
        QVERIFY(words.size() > 500);
        QCOMPARE(LegalWords(), words);
    }
};

QTEST_GUILESS_MAIN(SpellingTest)
#include "spelling_test.moc"
