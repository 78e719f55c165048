#include "platform/word/proofreading.h"

#include <QtTest>
#include <deque>
#include <functional>

using namespace platform;

namespace {

class Text final : public ProofreadDocument {
public:
    explicit Text(const QStringList& text)
        : paragraphs(text) {}
    int ParagraphCount() override { return int(paragraphs.size()); }
    QString Paragraph(int index) override { return paragraphs[index]; }
    bool Replace(int index, int start, int length, const QString& text) override {
        if (locked)
            return false;
        paragraphs[index].replace(start, length, text);
        return true;
    }
    bool IsOpen() override { return isOpen; }
    QStringList paragraphs;
    bool locked = false;
    bool isOpen = true;
};

class Dictionary final : public ProofreadingEngine {
public:
    QStringList Misspelt(const QStringList& words) override {
        asked += words;
        QStringList wrong;
        for (const QString& word : words)
            if (!known.contains(word.toLower()))
                wrong.append(word);
        return wrong;
    }
    QStringList Suggestions(const QString& word) override { return {word.toUpper()}; }
    std::vector<Finding> CheckGrammar(const QString& paragraph) override {
        std::vector<Finding> findings;
        for (int at = int(paragraph.indexOf(u"  "_qs)); at >= 0;
             at = int(paragraph.indexOf(u"  "_qs, at + 2)))
            findings.push_back({at, 2, true, u"Two blanks"_qs, {u" "_qs}});
        return findings;
    }
    bool AddToDictionary(const QString& word) override {
        added.append(word);
        return true;
    }
    QStringList known{u"the"_qs, u"deed"_qs, u"of"_qs, u"sale"_qs, u"affiant"_qs};
    QStringList asked;
    QStringList added;
};

// Answers what the test has laid down, then ignores.
class User final : public ProofreadingUser {
public:
    ProofreadingReply Ask(const QString& paragraph, const Finding& finding) override {
        asked.append(paragraph.mid(finding.start, finding.length));
        messages.append(finding.message);
        suggestions.append(finding.suggestions.join(u','));
        if (onAsk)
            onAsk();
        if (replies.empty())
            return {ProofreadingAnswer::Ignore, {}};
        const ProofreadingReply reply = replies.front();
        replies.pop_front();
        return reply;
    }
    std::deque<ProofreadingReply> replies;
    std::function<void()> onAsk;
    QStringList asked;
    QStringList messages;
    QStringList suggestions;
};

} // namespace

class ProofreadingTest : public QObject {
    Q_OBJECT

    Dictionary m_dictionary;
    User m_user;

private Q_SLOTS:
    void init() {
        m_dictionary = {};
        m_user = {};
    }

    void WordsAreThoseThatADictionaryCanJudge_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("words");
        QTest::newRow("plain") << u"The deed, of sale."_qs
                               << QStringList{u"The"_qs, u"deed"_qs, u"of"_qs, u"sale"_qs};
        QTest::newRow("possessive") << u"affiant's affiant\u2019s"_qs
                                    << QStringList{u"affiant"_qs, u"affiant"_qs};
        QTest::newRow("contraction") << u"don\u2019t"_qs << QStringList{u"don't"_qs};
        QTest::newRow("hyphen") << u"non-forum"_qs << QStringList{u"non"_qs, u"forum"_qs};
        QTest::newRow("digits") << u"A4 2nd 12"_qs << QStringList{};
        QTest::newRow("one letter") << u"a b"_qs << QStringList{};
        QTest::newRow("blanks to fill") << u"____ the __"_qs << QStringList{u"the"_qs};
        QTest::newRow("mail") << u"write someone@example.org now"_qs << QStringList{u"write"_qs, u"now"_qs};
        QTest::newRow("web") << u"see www.example.org/path or http://example.org"_qs
                             << QStringList{u"see"_qs, u"or"_qs};
        QTest::newRow("accents") << u"Niño señor"_qs << QStringList{u"Niño"_qs, u"señor"_qs};
        QTest::newRow("empty") << QString() << QStringList{};
    }
    void WordsAreThoseThatADictionaryCanJudge() {
        QFETCH(QString, text);
        QStringList words;
        for (const TextWord& word : WordsToJudge(text)) {
            words.append(word.word);
            QCOMPARE(text.mid(word.start, word.length).replace(u'\u2019', u'\''), word.word);
        }
        QTEST(words, "words");
    }

    void EachUnknownWordIsAskedInOrder() {
        Text text({u"The dede of sael"_qs, u""_qs, u"Deed salle"_qs});
        QVERIFY(Proofread(text, m_dictionary, m_user));
        QCOMPARE(m_user.asked, (QStringList{u"dede"_qs, u"sael"_qs, u"salle"_qs}));
        QCOMPARE(m_user.suggestions.first(), u"DEDE"_qs);
    }

    void TheDictionaryIsAskedOnceForAWord() {
        Text text({u"deed deed dede"_qs, u"dede deed"_qs});
        Proofread(text, m_dictionary, m_user);
        QCOMPARE(m_dictionary.asked, (QStringList{u"deed"_qs, u"dede"_qs}));
    }

    void AChangeReplacesThatPlaceOnly() {
        Text text({u"dede of dede"_qs});
        m_user.replies = {{ProofreadingAnswer::Change, u"deed"_qs}};
        Proofread(text, m_dictionary, m_user);
        QCOMPARE(text.paragraphs, QStringList{u"deed of dede"_qs});
        QCOMPARE(m_user.asked.size(), 2);
    }

    void ChangeAllReplacesTheLaterOnesToo() {
        Text text({u"dede of dede"_qs, u"the dede"_qs});
        m_user.replies = {{ProofreadingAnswer::ChangeAll, u"whole deed"_qs}};
        Proofread(text, m_dictionary, m_user);
        QCOMPARE(text.paragraphs, (QStringList{u"whole deed of whole deed"_qs, u"the whole deed"_qs}));
        QCOMPARE(m_user.asked.size(), 1);
    }

    void IgnoreAllAsksNoMore() {
        Text text({u"dede of dede"_qs, u"the dede"_qs});
        m_user.replies = {{ProofreadingAnswer::IgnoreAll, {}}};
        Proofread(text, m_dictionary, m_user);
        QCOMPARE(m_user.asked.size(), 1);
        QCOMPARE(text.paragraphs, (QStringList{u"dede of dede"_qs, u"the dede"_qs}));
    }

    void ALearntWordIsKeptAndAskedNoMore() {
        Text text({u"Batangas of Batangas"_qs});
        m_user.replies = {{ProofreadingAnswer::AddToDictionary, {}}};
        Proofread(text, m_dictionary, m_user);
        QCOMPARE(m_dictionary.added, QStringList{u"Batangas"_qs});
        QCOMPARE(m_user.asked.size(), 1);
    }

    void CancelKeepsTheChangesMadeUpToThen() {
        Text text({u"dede sael"_qs, u"salle"_qs});
        m_user.replies = {{ProofreadingAnswer::Change, u"deed"_qs}, {ProofreadingAnswer::Cancel, u"sale"_qs}};
        QVERIFY(!Proofread(text, m_dictionary, m_user));
        QCOMPARE(text.paragraphs, (QStringList{u"deed sael"_qs, u"salle"_qs}));
    }

    void WhatReplacesIsNotDoubtedItself() {
        Text text({u"dede"_qs});
        m_user.replies = {{ProofreadingAnswer::Change, u"xyz dede xyz"_qs}};
        Proofread(text, m_dictionary, m_user);
        QCOMPARE(text.paragraphs, QStringList{u"xyz dede xyz"_qs});
        QCOMPARE(m_user.asked.size(), 1);
    }

    void GrammarAndSpellingComeInTheOrderOfTheText() {
        Text text({u"dede  of the  sael"_qs});
        m_user.replies = {{ProofreadingAnswer::Change, u"deed"_qs}, {ProofreadingAnswer::Change, u" "_qs}};
        Proofread(text, m_dictionary, m_user);
        QCOMPARE(m_user.asked, (QStringList{u"dede"_qs, u"  "_qs, u"  "_qs, u"sael"_qs}));
        QCOMPARE(m_user.messages, (QStringList{QString(), u"Two blanks"_qs, u"Two blanks"_qs, QString()}));
        QCOMPARE(text.paragraphs, QStringList{u"deed of the  sael"_qs});
    }

    void AGrammarRuleIgnoredEverywhereIsAskedOnce() {
        Text text({u"the  deed  of"_qs});
        m_user.replies = {{ProofreadingAnswer::IgnoreAll, {}}};
        Proofread(text, m_dictionary, m_user);
        QCOMPARE(m_user.asked.size(), 1);
    }

    void NothingIsAskedAboutADocumentThatIsGone() {
        Text text({u"dede sael"_qs, u"salle"_qs});
        m_user.onAsk = [&text] { text.isOpen = false; };
        QVERIFY(!Proofread(text, m_dictionary, m_user));
        QCOMPARE(m_user.asked, QStringList{u"dede"_qs});
    }

    void ADocumentThatRefusesAChangeIsGoneThroughAllTheSame() {
        Text text({u"dede sael"_qs});
        text.locked = true;
        m_user.replies = {{ProofreadingAnswer::ChangeAll, u"deed"_qs}};
        QVERIFY(Proofread(text, m_dictionary, m_user));
        QCOMPARE(text.paragraphs, QStringList{u"dede sael"_qs});
        QCOMPARE(m_user.asked.size(), 2);
    }
};

QTEST_GUILESS_MAIN(ProofreadingTest)
#include "proofreading_test.moc"
