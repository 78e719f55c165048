#include "platform/word/word_list.h"

#include <QtTest>

using platform::WordList;

class WordListTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    QString File() const { return m_folder.filePath(u"deep/words.txt"_qs); }

private Q_SLOTS:
    void init() { QFile::remove(File()); }

    void ShippedWordsAreKnownInAnyCase() {
        const WordList list({u"affiant"_qs, u"Estafa"_qs}, File());
        QVERIFY(list.Contains(u"affiant"_qs));
        QVERIFY(list.Contains(u"AFFIANT"_qs));
        QVERIFY(list.Contains(u"estafa"_qs));
        QVERIFY(!list.Contains(u"affiants"_qs));
        QCOMPARE(list.Without({u"Affiant"_qs, u"deed"_qs}), QStringList{u"deed"_qs});
    }

    void AListWithoutAFileLooksForNone() {
        QTest::failOnWarning(QRegularExpression(u".*"_qs));
        WordList list({u"affiant"_qs}, {});
        QVERIFY(list.Contains(u"affiant"_qs));
        QVERIFY(!list.Add(u"Batangas"_qs));
    }

    void AnAddedWordIsKnownTheNextTimeToo() {
        {
            WordList list({}, File());
            QVERIFY(list.Add(u"Batangas"_qs));
            QVERIFY(list.Add(u" niño\n"_qs));
            QVERIFY(list.Contains(u"batangas"_qs));
        }
        const WordList again({}, File());
        QVERIFY(again.Contains(u"Batangas"_qs));
        QVERIFY(again.Contains(u"Niño"_qs));
    }

    void AWordIsKeptOnce() {
        WordList list({u"known"_qs}, File());
        QVERIFY(list.Add(u"once"_qs));
        QVERIFY(list.Add(u"Once"_qs));
        QVERIFY(list.Add(u"known"_qs));
        QCOMPARE(platform::WordsOfFile(File()), QStringList{u"once"_qs});
    }

    void AFileThatCannotBeWrittenIsTold() {
        WordList list({}, u"/proc/none/words.txt"_qs);
        QVERIFY(!list.Add(u"word"_qs));
        QVERIFY(list.Contains(u"word"_qs));
        WordList without({}, QString());
        QVERIFY(!without.Add(u"word"_qs));
        QVERIFY(without.Contains(u"word"_qs));
    }

    void NoWordIsNone() {
        WordList list({}, File());
        QVERIFY(!list.Add(u"  "_qs));
        QVERIFY(!QFile::exists(File()));
    }

    void RemarksAndEmptyLinesAreNoWords() {
        QVERIFY(QDir().mkpath(QFileInfo(File()).absolutePath()));
        QFile file(File());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("# words\n\n one \r\ntwo");
        file.close();
        QCOMPARE(platform::WordsOfFile(File()), (QStringList{u"one"_qs, u"two"_qs}));
    }
};

QTEST_GUILESS_MAIN(WordListTest)
#include "word_list_test.moc"
