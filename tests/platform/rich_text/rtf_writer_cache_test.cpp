#include <QElapsedTimer>
#include <QTest>

#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"
#include "platform/rich_text/rtf_writer_cache.h"
#include "tests/platform/rich_text/random_document.h"

using namespace platform;

class RtfWriterCacheTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void GivesWhatAFullWriteGivesAfterAnyEdit_data();
    void GivesWhatAFullWriteGivesAfterAnyEdit();
    void WritesOneParagraphAfterAKeystroke();
    void FollowsChangesOfTheWholeDocument();
    void SnapshotsStayAsTheyWereTaken();
};

void RtfWriterCacheTest::GivesWhatAFullWriteGivesAfterAnyEdit_data() {
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<bool>("read");
    for (quint32 seed = 1; seed <= 20; ++seed)
        QTest::addRow("%u", seed) << seed << (seed % 2 == 0);
}

void RtfWriterCacheTest::GivesWhatAFullWriteGivesAfterAnyEdit() {
    QFETCH(quint32, seed);
    QFETCH(bool, read);
    RandomDocument random(seed);
    auto document = random.Document(60);
    if (read)
        document = ReadRtf(WriteRtf(*document));
    document->setUndoRedoEnabled(true);
    RtfWriterCache cache(*document);
    for (int edit = 0; edit < 120; ++edit) {
        random.Edit(*document);
        if (random.OneIn(4))
            random.Edit(*document);
        const QByteArray source = cache.Source();
        const QByteArray full = WriteRtf(*document);
        if (source != full) {
            qsizetype at = 0;
            while (at < std::min(source.size(), full.size()) && source[at] == full[at])
                ++at;
            QFAIL(qPrintable(QStringLiteral("edit %1: '%2' for '%3'")
                                 .arg(edit)
                                 .arg(QString::fromLatin1(source.mid(std::max<qsizetype>(0, at - 40), 120)),
                                      QString::fromLatin1(full.mid(std::max<qsizetype>(0, at - 40), 120)))));
        }
        QCOMPARE(cache.Snapshot().Size(), source.size());
    }
}

void RtfWriterCacheTest::WritesOneParagraphAfterAKeystroke() {
    QTextDocument document;
    QTextCursor cursor(&document);
    for (int i = 0; i < 500; ++i)
        cursor.insertText(QStringLiteral("paragraph %1\n").arg(i));
    RtfWriterCache cache(document);
    cache.Snapshot();
    const qint64 before = cache.PartsWritten();
    cursor.setPosition(3000);
    cursor.insertText(QStringLiteral("x"));
    QCOMPARE(cache.Source(), WriteRtf(document));
    QCOMPARE(cache.PartsWritten(), before + 1);
}

void RtfWriterCacheTest::FollowsChangesOfTheWholeDocument() {
    QTextDocument document;
    RtfWriterCache cache(document);
    QCOMPARE(cache.Source(), WriteRtf(document));
    document.setPlainText(QStringLiteral("one\ntwo"));
    QCOMPARE(cache.Source(), WriteRtf(document));
    document.setHtml(QStringLiteral("<b>one</b><table><tr><td>two</td></tr></table>"));
    QCOMPARE(cache.Source(), WriteRtf(document));
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    format.setProperty(PaperWidth, 9000);
    document.rootFrame()->setFrameFormat(format);
    QVERIFY(cache.Source().contains("\\paperw9000"));
    QCOMPARE(cache.Source(), WriteRtf(document));
    document.setDefaultFont(QFont(QStringLiteral("Courier New"), 17));
    QCOMPARE(cache.Source(), WriteRtf(document));
    document.clear();
    QCOMPARE(cache.Source(), WriteRtf(document));
}

void RtfWriterCacheTest::SnapshotsStayAsTheyWereTaken() {
    RandomDocument random(5);
    const auto document = random.Document(50);
    RtfWriterCache cache(*document);
    std::vector<RtfSnapshot> snapshots;
    std::vector<QByteArray> sources;
    for (int i = 0; i < 30; ++i) {
        snapshots.push_back(cache.Snapshot());
        sources.push_back(WriteRtf(*document));
        random.Edit(*document);
    }
    for (std::size_t i = 0; i < snapshots.size(); ++i)
        QCOMPARE(snapshots[i].Join(), sources[i]);
    const RtfSnapshot last = cache.Snapshot();
    QVERIFY(last == cache.Snapshot());
    QTextCursor(document.get()).insertText(QStringLiteral("q"));
    QVERIFY(!(last == cache.Snapshot()));
}

QTEST_MAIN(RtfWriterCacheTest)
#include "rtf_writer_cache_test.moc"
