#include "clauses/clause_choice.h"

#include <QtTest>

using namespace quillbrook;

Q_DECLARE_METATYPE(quillbrook::ClauseDialog)

namespace {

constexpr auto kJurat = ClauseDialog::frmJurat;
constexpr auto kVerification = ClauseDialog::frmVerification;

int ChoicesOf(ClauseDialog dialog) {
    return dialog == kJurat ? 8 : 14;
}

QString Clause(const ClauseEntry* entry) {
    if (!entry)
        return {};
    return QString::fromLatin1(TableOf(entry->routine).table) + QString::fromLatin1(entry->number);
}

// The dialog's buttons as they stand after clicks on them.
class Buttons {
public:
    explicit Buttons(ClauseDialog dialog)
        : m_dialog(dialog)
        , m_isSet(std::size_t(ChoicesOf(dialog))) {}

    void Click(int choice) {
        for (const ClauseFrame& frame : kClauseFrames) {
            if (frame.dialog != m_dialog || choice < frame.first || choice > frame.last)
                continue;
            for (int other = frame.first; other <= frame.last; ++other)
                m_isSet[std::size_t(other) - 1] = other == choice;
        }
        for (const int other : ChoicesToClear(m_dialog, choice))
            m_isSet[std::size_t(other) - 1] = false;
    }
    std::vector<bool> State() const { return m_isSet; }
    int Count() const { return int(std::count(m_isSet.begin(), m_isSet.end(), true)); }

private:
    ClauseDialog m_dialog;
    std::vector<bool> m_isSet;
};

} // namespace

class ClauseChoiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoicesAreNumberedWithoutGapsOverTheFrames() {
        for (const ClauseDialog dialog : {kJurat, kVerification}) {
            int next = 1;
            for (const ClauseFrame& frame : kClauseFrames) {
                if (frame.dialog != dialog)
                    continue;
                QCOMPARE(frame.first, next);
                QVERIFY(frame.last >= frame.first);
                next = frame.last + 1;
            }
            QCOMPARE(next, ChoicesOf(dialog) + 1);
            for (int choice = 1; choice < next; ++choice)
                QVERIFY(FindClauseChoice(dialog, choice));
            QVERIFY(!FindClauseChoice(dialog, 0));
            QVERIFY(!FindClauseChoice(dialog, next));
        }
    }

    void AClickClearsTheOtherFrames_data() {
        QTest::addColumn<ClauseDialog>("dialog");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::addColumn<QList<int>>("cleared");
        using L = QList<int>;
        QTest::newRow("jurats") << kJurat << 1 << 3 << L{4, 5, 6, 7, 8};
        QTest::newRow("acknowledgments") << kJurat << 4 << 8 << L{1, 2, 3};
        QTest::newRow("captions") << kVerification << 1 << 8 << L{9, 10, 11, 12, 13, 14};
        QTest::newRow("verifications") << kVerification << 9 << 12 << L{1, 2, 3, 4, 5, 6, 7, 8, 13, 14};
        QTest::newRow("notice and explanation")
            << kVerification << 13 << 14 << L{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    }
    void AClickClearsTheOtherFrames() {
        QFETCH(ClauseDialog, dialog);
        QFETCH(int, first);
        QFETCH(int, last);
        for (int clicked = first; clicked <= last; ++clicked) {
            const std::vector<int> cleared = ChoicesToClear(dialog, clicked);
            QTEST(QList<int>(cleared.begin(), cleared.end()), "cleared");
        }
    }

    void AtMostOneChoiceIsSetWhateverIsClicked() {
        QRandomGenerator random(11);
        for (const ClauseDialog dialog : {kJurat, kVerification}) {
            Buttons buttons(dialog);
            QVERIFY(!ChosenClause(dialog, buttons.State()));
            for (int i = 0; i < 300; ++i) {
                const int choice = int(random.bounded(ChoicesOf(dialog))) + 1;
                buttons.Click(choice);
                QCOMPARE(buttons.Count(), 1);
                QCOMPARE(ChosenClause(dialog, buttons.State()), FindClauseChoice(dialog, choice));
            }
        }
    }

    void TheFirstChoiceSetCounts_data() {
        QTest::addColumn<ClauseDialog>("dialog");
        QTest::addColumn<QList<int>>("set");
        QTest::addColumn<QString>("clause");
        using L = QList<int>;
        QTest::newRow("nothing") << kJurat << L{} << QString();
        QTest::newRow("a jurat") << kJurat << L{2} << u"Jurat2"_qs;
        QTest::newRow("an acknowledgment") << kJurat << L{8} << u"Jurat8"_qs;
        QTest::newRow("the first of two") << kJurat << L{5, 3} << u"Jurat3"_qs;
        QTest::newRow("a caption") << kVerification << L{8} << u"Caption8"_qs;
        QTest::newRow("a verification") << kVerification << L{9} << u"Verification1"_qs;
        QTest::newRow("a certification") << kVerification << L{12} << u"Verification4"_qs;
        QTest::newRow("an explanation") << kVerification << L{14} << u"Verification6"_qs;
    }
    void TheFirstChoiceSetCounts() {
        QFETCH(ClauseDialog, dialog);
        QFETCH(QList<int>, set);
        std::vector<bool> state(std::size_t(ChoicesOf(dialog)));
        for (const int choice : set)
            state[std::size_t(choice) - 1] = true;
        QTEST(Clause(ChosenClause(dialog, state)), "clause");
    }
};

QTEST_GUILESS_MAIN(ClauseChoiceTest)
#include "clause_choice_test.moc"
