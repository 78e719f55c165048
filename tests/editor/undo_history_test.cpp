#include "editor/undo_history.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>
#include <map>

using namespace quillbrook;

namespace {

using History = UndoHistory<QString>;

// A pane and the two commands on it, as the window wires them.
struct Pane {
    History history;
    QString shown;
    UndoControls controls;
    bool saved = false;
    int changes = 0;

    void Change() {
        ++changes;
        controls = history.Record([this] { return shown; });
    }
    void Edit(const QString& text) {
        shown = text;
        Change();
    }
    void Write(const std::optional<QString>& entry) {
        if (!entry)
            return;
        shown = *entry;
        Change();
    }
    void Undo() {
        {
            const auto replay = history.Undo();
            if (replay.IsAtOldest())
                controls.undo = false;
            Write(replay.Entry());
        }
        if (!controls.undo)
            saved = true;
    }
    void Redo() {
        const auto replay = history.Redo();
        Write(replay.Entry());
    }

    // One letter a step: e and a number is an edit, u an undo, r a redo, L a load, Z the counters zeroed.
    void Play(const QString& script) {
        for (const QString& step : script.split(u' ', Qt::SkipEmptyParts)) {
            if (step == u"u")
                Undo();
            else if (step == u"r")
                Redo();
            else if (step == u"Z")
                history.ZeroCounters();
            else if (step.startsWith(u'L')) {
                Edit(step);
                history.StartAfresh(shown);
            } else
                Edit(step);
        }
    }
};

QString Changes(int first, int last) {
    QStringList steps;
    for (int i = first; i <= last; ++i)
        steps.append(u"e%1"_qs.arg(i));
    return steps.join(u' ');
}

QString Times(const QString& step, int count) {
    return (step + u' ').repeated(count);
}

// The rules once more, over an endless tape that a window of steps slides along: dropping the oldest step
// moves the window and touches no cell.
class Tape {
public:
    void Edit(const QString& text) {
        if (m_at == 32767)
            m_at = 32766; // the addition fails, the number stays
        const int next = m_at + 1 > 75 ? 75 : m_at + 1;
        if (m_at + 1 > 75)
            ++m_window;
        m_at = next;
        m_cells[m_window + m_at] = text;
        shown = text;
    }
    void Undo() {
        ++redoable;
        m_at = m_at > 1 ? m_at - 1 : 1;
        Show();
    }
    void Redo() {
        --redoable;
        ++m_at;
        Show();
    }
    void Load(const QString& text) {
        Edit(text);
        m_at = 1;
        redoable = 0;
        m_cells[m_window + 1] = text;
    }
    void Zero() { m_at = redoable = 0; }
    bool CanUndo() const { return m_at > 1; }
    int At() const { return m_at; }

    QString shown;
    int redoable = 0;

private:
    void Show() {
        if (m_at > 77)
            return;
        const auto cell = m_cells.find(m_window + m_at);
        // behind the last step nothing is ever written
        shown = m_at > 75 || cell == m_cells.end() ? QString() : cell->second;
    }

    int m_at = 0;
    int m_window = 0;
    std::map<int, QString> m_cells;
};

} // namespace

class UndoHistoryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Plays_data() {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("redoCount");
        QTest::addColumn<bool>("undo");
        QTest::addColumn<bool>("redo");

        QTest::newRow("a fresh history") << u""_qs << u""_qs << 0 << 0 << false << false;
        QTest::newRow("the first change cannot be undone") << u"a"_qs << u"a"_qs << 1 << 0 << false << false;
        QTest::newRow("the second change can") << u"a b"_qs << u"b"_qs << 2 << 0 << true << false;
        QTest::newRow("undo shows the state before") << u"a b c u"_qs << u"b"_qs << 2 << 1 << true << true;
        QTest::newRow("undo then redo brings back the same")
            << u"a b c u r"_qs << u"c"_qs << 3 << 0 << true << false;
        QTest::newRow("all the way back") << u"a b c u u"_qs << u"a"_qs << 1 << 2 << false << true;
        QTest::newRow("and all the way on") << u"a b c u u r r"_qs << u"c"_qs << 3 << 0 << true << false;

        QTest::newRow("an edit leaves redo on") << u"a b u x"_qs << u"x"_qs << 2 << 1 << true << true;
        QTest::newRow("redo after undo and an edit shows the next entry of the array")
            << u"a b c d u u x r"_qs << u"d"_qs << 4 << 1 << true << true;
        QTest::newRow("redo after undo and an edit can step into an entry never written")
            << u"a b u x r"_qs << u""_qs << 3 << 0 << true << false;
        QTest::newRow("an edit overwrites only the entry after the index")
            << u"a b c d e u u u x r r"_qs << u"e"_qs << 5 << 1 << true << true;
        QTest::newRow("undo after such a redo shows the new edit")
            << u"a b c d u u x r u"_qs << u"x"_qs << 3 << 2 << true << true;

        QTest::newRow("undo at the oldest state stays and still adds to redo")
            << u"a u"_qs << u"a"_qs << 1 << 1 << false << true;
        QTest::newRow("undo of nothing empties the pane") << u"u"_qs << u""_qs << 1 << 1 << false << true;
        QTest::newRow("redo of nothing counts below zero") << u"a r"_qs << u""_qs << 2 << -1 << true << false;
        QTest::newRow("one undo then makes up for it") << u"a r u"_qs << u"a"_qs << 1 << 0 << false << false;

        QTest::newRow("75 changes fill the history")
            << Changes(1, 75) << u"e75"_qs << 75 << 0 << true << false;
        QTest::newRow("the 76th drops the oldest") << Changes(1, 76) << u"e76"_qs << 75 << 0 << true << false;
        QTest::newRow("74 steps back from the 76th is change 2")
            << Changes(1, 76) + u' ' + Times(u"u"_qs, 74) << u"e2"_qs << 1 << 74 << false << true;
        QTest::newRow("redo behind the last step empties the pane")
            << Changes(1, 76) + u" u u x r r"_qs << u""_qs << 76 << 0 << true << false;
        QTest::newRow("past the array the pane stays and the number does not")
            << Changes(1, 75) + u" r r r"_qs << u""_qs << 78 << -3 << true << false;
        QTest::newRow("the next change is then the last step again")
            << Changes(1, 75) + u" r r r x"_qs << u"x"_qs << 75 << -3 << true << false;

        QTest::newRow("a load is one step") << u"a b c Lform"_qs << u"Lform"_qs << 1 << 0 << false << false;
        QTest::newRow("undo after a load and an edit shows the loaded form")
            << u"a b Lform x u"_qs << u"Lform"_qs << 1 << 1 << false << true;
        QTest::newRow("zeroed counters") << u"a b c u Z"_qs << u"b"_qs << 0 << 0 << false << false;
        QTest::newRow("zeroed counters leave the snapshots")
            << u"a b c Z u"_qs << u"a"_qs << 1 << 1 << false << true;
        QTest::newRow("and the next change is the first")
            << u"a b c Z x"_qs << u"x"_qs << 1 << 0 << false << false;
    }
    void Plays() {
        QFETCH(QString, script);
        Pane pane;
        pane.Play(script);
        QTEST(pane.shown, "shown");
        QTEST(pane.history.Index(), "index");
        QTEST(pane.history.RedoCount(), "redoCount");
        QTEST(pane.history.Controls().undo, "undo");
        QTEST(pane.history.Controls().redo, "redo");
    }

    void After80ChangesTheOldestIsChange6() {
        Pane pane;
        pane.Play(Changes(1, 80));
        QCOMPARE(pane.history.Index(), 75);
        for (int i = 1; i <= 75; ++i)
            QCOMPARE(pane.history.Entry(i), std::optional(u"e%1"_qs.arg(i + 5)));
    }

    void EntriesAreNumberedFrom0To77() {
        Pane pane;
        pane.Play(Changes(1, 200));
        QVERIFY(!pane.history.Entry(-1));
        QVERIFY(!pane.history.Entry(78));
        for (const int unused : {0, 76, 77})
            QCOMPARE(pane.history.Entry(unused), std::optional(QString()));
    }

    void ReplayedChangesAreNotRecordedButShowTheControls() {
        Pane pane;
        pane.Play(u"a b c"_qs);
        const int changes = pane.changes;
        {
            const auto replay = pane.history.Undo();
            QVERIFY(pane.history.Replaying());
            pane.Edit(u"written by the undo"_qs);
            QCOMPARE(pane.controls, (UndoControls{true, true}));
        }
        QVERIFY(!pane.history.Replaying());
        QCOMPARE(pane.changes, changes + 1);
        QCOMPARE(pane.history.Entry(2), std::optional(u"b"_qs));
        QCOMPARE(pane.history.Entry(3), std::optional(u"c"_qs));
        QCOMPARE(pane.history.Index(), 2);
    }

    // Taking a snapshot costs; a replayed change needs none.
    void NoSnapshotIsTakenWhileReplaying() {
        History history;
        int taken = 0;
        const auto take = [&taken] { return QString::number(++taken); };
        history.Record(take);
        history.Record(take);
        const auto replay = history.Undo();
        history.Record(take);
        QCOMPARE(taken, 2);
    }

    // The pane can hold the entry already, and then no change is told.
    void UndoAtTheOldestTurnsItsControlsOffWithoutAChange() {
        History history;
        QVERIFY(history.Undo().IsAtOldest());
        history.Record([] { return u"a"_qs; });
        QVERIFY(!history.Undo().IsAtOldest());
        QVERIFY(history.Undo().IsAtOldest());
    }

    void UndoToTheFirstStateCountsAsSaved_data() {
        QTest::addColumn<QString>("script");
        QTest::addColumn<bool>("saved");
        QTest::newRow("two steps back of three") << u"a b c u u"_qs << true;
        QTest::newRow("one step back of three") << u"a b c u"_qs << false;
        QTest::newRow("at the first state") << u"a u"_qs << true;
        QTest::newRow("redo never does") << u"a b r u r"_qs << false;
    }
    void UndoToTheFirstStateCountsAsSaved() {
        QFETCH(QString, script);
        Pane pane;
        pane.Play(script);
        QTEST(pane.saved, "saved");
    }

    void FormsLoadedWithoutAResetCanBeUndone() {
        Pane pane;
        pane.Play(u"first-form second-form u"_qs);
        QCOMPARE(pane.shown, u"first-form"_qs);
    }

    void TheTwoHistoriesAreIndependent() {
        Pane reading, mine;
        reading.Play(u"a b c"_qs);
        mine.Play(u"x y u"_qs);
        QCOMPARE(reading.history.Index(), 3);
        QCOMPARE(reading.history.RedoCount(), 0);
        QCOMPARE(reading.shown, u"c"_qs);
    }

    void CountersStayAtTheEndsOf16Bits() {
        History history;
        for (int i = 0; i < 40'000; ++i)
            (void)history.Undo();
        QCOMPARE(history.RedoCount(), 32767);
        QCOMPARE(history.Index(), 1);
        for (int i = 0; i < 70'000; ++i)
            (void)history.Redo();
        QCOMPARE(history.RedoCount(), -32768);
        QCOMPARE(history.Index(), 32767);
        history.Record([] { return u"x"_qs; });
        QCOMPARE(history.Index(), 75);
        QCOMPARE(history.Entry(75), std::optional(u"x"_qs));
    }

    void RandomSequencesAgreeWithTheTape_data() {
        QTest::addColumn<int>("edits"); // of 100 steps; the rest by thirds of undo, redo and rare resets
        QTest::addColumn<bool>("byControls");
        QTest::newRow("mostly edits, commands by their controls") << 70 << true;
        QTest::newRow("few edits, commands by their controls") << 20 << true;
        QTest::newRow("mostly edits, commands at any time") << 70 << false;
        QTest::newRow("few edits, commands at any time") << 20 << false;
    }
    void RandomSequencesAgreeWithTheTape() {
        QFETCH(int, edits);
        QFETCH(bool, byControls);
        for (quint32 seed = 1; seed <= 40; ++seed) {
            QRandomGenerator random(seed);
            Pane pane;
            Tape tape;
            for (int step = 0; step < 1'000; ++step) {
                const int dice = int(random.bounded(100));
                const QString text = u"%1"_qs.arg(step);
                if (dice < edits) {
                    pane.Edit(text);
                    tape.Edit(text);
                } else if (dice == 99 && random.bounded(4) == 0) {
                    pane.Edit(text);
                    pane.history.StartAfresh(pane.shown);
                    tape.Load(text);
                } else if (dice == 98 && random.bounded(4) == 0) {
                    pane.history.ZeroCounters();
                    tape.Zero();
                } else if (random.bounded(2) == 0) {
                    if (byControls && !tape.CanUndo())
                        continue;
                    pane.Undo();
                    tape.Undo();
                } else {
                    if (byControls && tape.redoable <= 0)
                        continue;
                    pane.Redo();
                    tape.Redo();
                }
                const QByteArray where =
                    "seed " + QByteArray::number(seed) + " step " + QByteArray::number(step);
                QVERIFY2(pane.shown == tape.shown, where);
                QVERIFY2(pane.history.Index() == tape.At(), where);
                QVERIFY2(pane.history.RedoCount() == tape.redoable, where);
                QVERIFY2(pane.history.Controls().undo == tape.CanUndo(), where);
                QVERIFY2(pane.history.Controls().redo == (tape.redoable > 0), where);
            }
        }
    }

    void SnapshotsOfADocumentGiveBackItsSource() {
        QTextDocument document;
        platform::RtfWriterCache cache(document);
        PaneHistory history;
        QList<QByteArray> sources;
        QTextCursor cursor(&document);
        for (int i = 0; i < 90; ++i) {
            QTextCharFormat format;
            format.setFontWeight(i % 3 == 0 ? QFont::Bold : QFont::Normal);
            cursor.insertText(u"Paragraph %1\n"_qs.arg(i), format);
            history.Record([&cache] { return cache.Snapshot(); });
            sources.append(cache.Source());
        }
        QCOMPARE(history.Index(), 75);
        for (int i = 88; i >= 15; --i) {
            const auto replay = history.Undo();
            QVERIFY(replay.Entry());
            QCOMPARE(replay.Entry()->Join(), sources[i]);
        }
        QCOMPARE(history.Controls(), (UndoControls{false, true}));
    }
};

QTEST_MAIN(UndoHistoryTest)
#include "undo_history_test.moc"
