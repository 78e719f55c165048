#include "clauses/clause_entries.h"

#include "tools/library/clause_kinds.h"

#include <QFile>
#include <QSet>
#include <QtTest>

using namespace quillbrook;

namespace {

QString Text(const char* text) {
    return QString::fromLatin1(text);
}

} // namespace

class ClauseEntriesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TablesFollowTheirEnumeration() {
        for (std::size_t i = 0; i < kClauseTables.size(); ++i)
            QCOMPARE(std::size_t(kClauseTables[i].routine), i);
        for (const ClauseTable& row : kClauseTables) {
            QCOMPARE(Text(row.keyField), Text(row.table) + u"No"_qs);
            QCOMPARE(Text(row.variable), Text(row.table) + u"Number"_qs);
        }
    }

    void NamesAreUnique() {
        QSet<QString> names;
        for (const ClauseEntry& entry : kClauseEntries)
            names.insert(Text(entry.name));
        QCOMPARE(names.size(), 22);
    }

    void NoTwoEntriesOfAMenuLookAlike() {
        QSet<QString> captions;
        for (const ClauseEntry& entry : kClauseEntries)
            captions.insert(u"%1/%2"_qs.arg(Text(entry.menu), Text(entry.caption)));
        QCOMPARE(captions.size(), 22);
    }

    // The keys of a routine's clauses run from 1 on, and the library has no others.
    void KeysAreThoseOfTheLibrary_data() {
        QTest::addColumn<int>("routine");
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("count");
        for (const ClauseKind& kind : kClauseKinds) {
            for (const ClauseTable& table : kClauseTables) {
                if (Text(table.table) == kind.table)
                    QTest::newRow(table.table) << int(table.routine) << Text(table.table) << kind.count;
            }
        }
    }
    void KeysAreThoseOfTheLibrary() {
        QFETCH(int, routine);
        QFETCH(int, count);
        QStringList keys, expected;
        for (const ClauseEntry& entry : kClauseEntries) {
            if (int(entry.routine) == routine)
                keys.append(Text(entry.number));
        }
        for (int i = 1; i <= count; ++i)
            expected.append(QString::number(i));
        QCOMPARE(keys, expected);
    }

    void EachClauseHasItsText_data() {
        QTest::addColumn<QString>("path");
        for (const ClauseEntry& entry : kClauseEntries) {
            QTest::newRow(entry.name) << u"" QUILLBROOK_SOURCE_DIR "/forms/clauses/%1/%2.txt"_qs.arg(
                Text(TableOf(entry.routine).table), Text(entry.number));
        }
    }
    void EachClauseHasItsText() {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
        QVERIFY(!file.readAll().trimmed().isEmpty());
    }

    void MarkersAreThoseThatFormsCanHave() {
        QSet<QString> ours, theirs;
        for (const ClauseEntry& entry : kClauseEntries) {
            if (entry.routine == ClauseRoutine::InsertCaption)
                QCOMPARE(Text(entry.marker), QString());
            else
                ours.insert(Text(entry.marker));
        }
        for (const QLatin1String marker : kMarkers)
            theirs.insert(marker);
        QCOMPARE(ours, theirs);
    }

    void EachPlaceTakesTheClausesThatBelongThere_data() {
        QTest::addColumn<QString>("marker");
        QTest::addColumn<QStringList>("keys");
        using L = QStringList;
        QTest::newRow("jurats") << u"(JURAT)"_qs << L{u"Jurat1"_qs, u"Jurat2"_qs, u"Jurat3"_qs};
        QTest::newRow("acknowledgments")
            << u"(ACKNOWLEDGMENT)"_qs
            << L{u"Jurat4"_qs, u"Jurat5"_qs, u"Jurat6"_qs, u"Jurat7"_qs, u"Jurat8"_qs};
        QTest::newRow("the three verifications")
            << u"(VERIFICATION)"_qs << L{u"Verification1"_qs, u"Verification2"_qs, u"Verification3"_qs};
        QTest::newRow("forum shopping")
            << u"(CERTIFICATION OF NON-FORUM SHOPPING)"_qs << L{u"Verification4"_qs};
        QTest::newRow("hearing") << u"(NOTICE OF HEARING)"_qs << L{u"Verification5"_qs};
        QTest::newRow("explanation") << u"(EXPLANATION)"_qs << L{u"Verification6"_qs};
    }
    void EachPlaceTakesTheClausesThatBelongThere() {
        QFETCH(QString, marker);
        QStringList found;
        for (const ClauseEntry& entry : kClauseEntries) {
            if (Text(entry.marker) == marker)
                found.append(Text(TableOf(entry.routine).table) + Text(entry.number));
        }
        QTEST(found, "keys");
    }

    void EntriesAreFoundByName() {
        QCOMPARE(FindClauseEntry("mnuCaptionMTCCCrim")->number, "8");
        QVERIFY(!FindClauseEntry("mnuCaption"));
        QVERIFY(!FindClauseEntry(""));
    }
};

QTEST_GUILESS_MAIN(ClauseEntriesTest)
#include "clause_entries_test.moc"
