#include "clauses/clause_entries.h"

#include "app/menu_table.h"
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
        for (const ClauseTable& row : kClauseTables)
            QCOMPARE(Text(row.keyField), Text(row.table) + u"No"_qs);
    }

    void EachEntryStandsInItsMenuAndHasItsClause_data() {
        QTest::addColumn<QString>("path"); // the menus from the bar to the entry
        QTest::addColumn<int>("routine");
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("marker");
        const auto row = [](const char* name, const char* menus, const char* caption, ClauseRoutine routine,
                            const char* number, const char* marker) {
            QTest::newRow(name) << u"&Add to Form/%1/%2"_qs.arg(Text(menus), Text(caption)) << int(routine)
                                << Text(number) << Text(marker);
        };
        row("mnuJuratIndividual", "Jurat", "For Individual Affiant", ClauseRoutine::InsertJurat, "1",
            "(JURAT)");
        row("mnuJuratJoints", "Jurat", "For Joint Affiants", ClauseRoutine::InsertJurat, "2", "(JURAT)");
        row("mnuJuratMultiple", "Jurat", "For Multiple Affiants", ClauseRoutine::InsertJurat, "3", "(JURAT)");
        row("mnuAckIndividual1Party", "Acknowledgment", "For an Individual - 1-Party Instrument",
            ClauseRoutine::InsertJurat, "4", "(ACKNOWLEDGMENT)");
        row("mnuAckIndividuals2Party", "Acknowledgment", "For Individuals - 2-Party Instrument",
            ClauseRoutine::InsertJurat, "5", "(ACKNOWLEDGMENT)");
        row("mnuAckIndividualsMultiParty", "Acknowledgment", "For Individuals - Multi-Party Instrument",
            ClauseRoutine::InsertJurat, "6", "(ACKNOWLEDGMENT)");
        row("mnuAckCorporation", "Acknowledgment", "For and in behalf of a Corporation",
            ClauseRoutine::InsertJurat, "7", "(ACKNOWLEDGMENT)");
        row("mnuAckMixed", "Acknowledgment", "For Mixed Individual and Corporation",
            ClauseRoutine::InsertJurat, "8", "(ACKNOWLEDGMENT)");
        row("mnuCaptionSC", "Caption for Pleadings", "Supreme Court", ClauseRoutine::InsertCaption, "1", "");
        row("mnuCaptionCA", "Caption for Pleadings", "Court of Appeals", ClauseRoutine::InsertCaption, "2",
            "");
        row("mnuCaptionRTCCivil", "Caption for Pleadings/Regional Trial Court", "Civil Case",
            ClauseRoutine::InsertCaption, "3", "");
        row("mnuCaptionRTCCrim", "Caption for Pleadings/Regional Trial Court", "Criminal Case",
            ClauseRoutine::InsertCaption, "4", "");
        row("mnuCaptionMTCCivil", "Caption for Pleadings/Municipal Trial Court", "Civil Case",
            ClauseRoutine::InsertCaption, "5", "");
        row("mnuCaptionMTCCrim", "Caption for Pleadings/Municipal Trial Court", "Criminal Case",
            ClauseRoutine::InsertCaption, "6", "");
        row("mnuCaptionMTCCCivil", "Caption for Pleadings/Municipal Trial Court in Cities", "Civil Case",
            ClauseRoutine::InsertCaption, "7", "");
        row("mnuCaptionMTCCCrim", "Caption for Pleadings/Municipal Trial Court in Cities", "Criminal Case",
            ClauseRoutine::InsertCaption, "8", "");
        row("mnuAddVerificationIndividual", "Verification for Pleadings", "Verification by an Individual",
            ClauseRoutine::InsertVerification, "1", "(VERIFICATION)");
        row("mnuVerificationCorporation", "Verification for Pleadings", "Verification for Corporation",
            ClauseRoutine::InsertVerification, "2", "(VERIFICATION)");
        row("mnuVerificationCertification", "Verification for Pleadings", "Verification with Certification",
            ClauseRoutine::InsertVerification, "3", "(VERIFICATION)");
        row("mnuCertification", "Verification for Pleadings", "Certification of Non-Forum Shopping",
            ClauseRoutine::InsertVerification, "4", "(CERTIFICATION OF NON-FORUM SHOPPING)");
        row("mnuNoticeHearing", "Verification for Pleadings", "Notice of Hearing for Motions",
            ClauseRoutine::InsertVerification, "5", "(NOTICE OF HEARING)");
        row("mnuExplanation", "Verification for Pleadings", "Explanation for Non-Personal Service",
            ClauseRoutine::InsertVerification, "6", "(EXPLANATION)");
    }
    void EachEntryStandsInItsMenuAndHasItsClause() {
        QFETCH(QString, path);
        const ClauseEntry* entry = FindClauseEntry(QTest::currentDataTag());
        QVERIFY(entry);
        QTEST(int(entry->routine), "routine");
        QTEST(Text(entry->number), "number");
        QTEST(Text(entry->marker), "marker");
        QStringList captions;
        for (const MenuRow* row = FindMenuRow(entry->name); row; row = FindMenuRow(row->parent))
            captions.prepend(Text(row->caption));
        QCOMPARE(captions.join(u'/'), path);
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
