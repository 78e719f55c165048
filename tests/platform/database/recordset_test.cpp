#include "tests/platform/database/temporary_library.h"

#include <QTest>

using namespace platform;
using namespace platform::test;

class RecordsetTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TemporaryLibrary> m_library;
    std::unique_ptr<Database> m_database;

    std::unique_ptr<Recordset> Select(const char* statement) {
        return Run(*m_database, QString::fromUtf8(statement));
    }
    QStringList Titles(const char* where) {
        const auto rows =
            Run(*m_database, QStringLiteral("SELECT Title FROM Forms WHERE ") + QString::fromUtf8(where));
        return rows ? Texts(*rows) : QStringList{QStringLiteral("<refused>")};
    }

private Q_SLOTS:
    void init() {
        m_library = std::make_unique<TemporaryLibrary>();
        m_database = m_library->Create();
        QVERIFY(m_database);
        const auto forms = m_database->OpenRecordset(QStringLiteral("Forms"));
        QVERIFY(Add(*forms, {u"Zebra Sale"_qs, u"Deeds"_qs, u"Sale"_qs, u"{\\rtf1 deed of sale}"_qs}));
        QVERIFY(
            Add(*forms, {u"Affidavit of Loss"_qs, u"Affidavits"_qs, u"Loss"_qs, u"{\\rtf1 affidavit}"_qs}));
        QVERIFY(Add(*forms, {u"Bail Motion"_qs, u"Motions"_qs, u"Bail"_qs, u"{\\rtf1 bail and sale}"_qs}));
        QVERIFY(Add(*forms, {u"Été"_qs, u"Deeds"_qs, u"Sale"_qs, u"{\\rtf1 DEED}"_qs}));
    }
    void cleanup() {
        m_database.reset();
        m_library.reset();
    }

    void RowsComeInFileOrder() {
        const auto rows = m_database->OpenRecordset(u"forms"_qs);
        QVERIFY(rows);
        QCOMPARE(rows->RecordCount(), 4);
        QCOMPARE(Texts(*rows),
                 (QStringList{u"Zebra Sale"_qs, u"Affidavit of Loss"_qs, u"Bail Motion"_qs, u"Été"_qs}));
    }

    void AnswersConditions_data() {
        QTest::addColumn<QString>("where");
        QTest::addColumn<QString>("firstLetters");
        const auto row = [](const char* where, const char* letters) {
            QTest::addRow("%s", where) << QString::fromUtf8(where) << QString::fromUtf8(letters);
        };
        row("Category = 'deeds'", "ZÉ");
        row("Category = 'deeds' AND SubCategory = 'SALE'", "ZÉ");
        row("Title = 'éTÉ'", "É");
        row("Title = 'ete'", "");
        row("Title <> 'zebra sale'", "ABÉ");
        row("Category <> 'DEEDS'", "AB");
        row("Title > 'b' AND Title < 'c'", "B");
        row("Favorites = 0", "ZABÉ");
        row("Favorites = 1", "");
        row("Favorites <> 1 AND Favorites < 1", "ZABÉ");
        row("Favorites < 0.5", "ZABÉ");
        row("Content LIKE '*deed*'", "ZÉ");
        row("Content LIKE '*deed*' AND Content LIKE '*sale*'", "Z");
        row("Content LIKE '*deed*' AND Content NOT LIKE '*sale*'", "É");
        row("Content LIKE '*deed*' AND Content NOT LIKE '*sale*' OR Content LIKE '*bail*'", "BÉ");
        row("Content LIKE '*bail*' OR Content LIKE '*deed*' AND Content LIKE '*sale*'", "ZB");
        row("(Content LIKE '*bail*' OR Content LIKE '*deed*') AND Content LIKE '*sale*'", "ZB");
        row("NOT Content LIKE '*deed*' AND Content LIKE '*sale*'", "B");
        row("NOT (Content LIKE '*deed*' OR Title = 'Bail Motion')", "A");
        row("NOT NOT Title = 'Bail Motion'", "B");
        row("NOT (Title = 'Été' AND Content LIKE '*deed*') AND Category = 'Deeds'", "Z");
        row("Content LIKE '**'", "ZABÉ");
        row("Content LIKE 'deed'", "");
        row("Content NOT LIKE '*sale*' OR Content LIKE '*deed*'", "ZAÉ");
        row("Title LIKE 'b*n'", "B");
        row("Favorites LIKE '0'", "ZABÉ");
        row("Content = '{\\RTF1 deed}'", "É");
        row("'a' = 'A'", "ZABÉ");
        row("'a' = 'b'", "");
        row("1 = 1", "ZABÉ");
        row("SubCategory = Title", "");
        row("Title = ' OR 1=1 --'", "");
    }
    void AnswersConditions() {
        QFETCH(QString, where);
        QFETCH(QString, firstLetters);
        const auto rows = Run(*m_database, u"SELECT Title FROM Forms WHERE "_qs + where);
        QVERIFY(rows);
        QString letters;
        for (const QString& title : Texts(*rows))
            letters += title[0];
        QCOMPARE(letters, firstLetters);
        QCOMPARE(rows->RecordCount(), letters.size());
    }

    void RefusesUnknownNamesAndUnlikeKinds_data() {
        QTest::addColumn<QString>("statement");
        for (const char* statement :
             {"SELECT * FROM Nothing", "SELECT Nothing FROM Forms", "SELECT * FROM Forms WHERE Nothing = 'a'",
              "SELECT * FROM Forms WHERE Title = 1", "SELECT * FROM Forms WHERE Favorites = 'a'",
              "SELECT * FROM Forms WHERE Title = Favorites", "SELECT * FROM Forms WHERE 'a' = 1",
              "SELECT * FROM _catalogue", "SELECT * FROM Forms_text", "SELECT * FROM sqlite_master",
              "SELECT _id FROM Forms", "SELECT rowid FROM Forms", "SELECT * FROM Forms WHERE _id = 1",
              "SELECT * FROM Forms WHERE Title = 'it's'", ""})
            QTest::addRow("%s", statement) << QString::fromUtf8(statement);
    }
    void RefusesUnknownNamesAndUnlikeKinds() {
        QFETCH(QString, statement);
        QVERIFY(!Run(*m_database, statement));
    }

    void TheLargestStatementsRun() {
        QString where = u"Content LIKE '*deed*'"_qs;
        for (int i = 1; i < 400; ++i)
            where += i % 2 == 0 ? u" OR Title = 'x'"_qs : u" AND Content NOT LIKE '*zzz*'"_qs;
        const auto rows = Run(*m_database, u"SELECT * FROM Forms WHERE "_qs + where);
        QVERIFY(rows);
        QCOMPARE(rows->RecordCount(), 2);
        QString nested = u"Title = 'Été'"_qs;
        for (int i = 0; i < 24; ++i)
            nested = i % 2 == 0 ? u"(Favorites = 0 AND "_qs + nested + u')'
                                : u"(Favorites = 1 OR NOT "_qs + u"Favorites = 1 AND "_qs + nested + u')';
        const auto deep = Run(*m_database, u"SELECT * FROM Forms WHERE "_qs + nested);
        QVERIFY(deep);
        QCOMPARE(Texts(*deep), QStringList{u"Été"_qs});
    }

    void AFieldListLimitsTheFields() {
        const auto rows = Select("SELECT Title FROM Forms WHERE Category = 'Deeds'");
        QVERIFY(rows);
        QCOMPARE(rows->Field(u"title"_qs), QVariant(u"Zebra Sale"_qs));
        QVERIFY(!rows->Field(u"Content"_qs));
        QVERIFY(!rows->Field(u"Nothing"_qs));
        QVERIFY(rows->Edit());
        QVERIFY(!rows->SetField(u"Content"_qs, u"x"_qs));
        const auto all = Select("SELECT * FROM Forms WHERE Title = 'zebra sale'");
        QCOMPARE(all->Field(u"Content"_qs), QVariant(u"{\\rtf1 deed of sale}"_qs));
        QCOMPARE(all->Field(u"Favorites"_qs), QVariant(0));
        QCOMPARE(all->Field(u"Favorites"_qs)->typeId(), static_cast<int>(QMetaType::Int));
    }

    void MovesEndBehindTheLastRow() {
        const auto rows = Select("SELECT Title FROM Forms WHERE Category = 'Deeds'");
        QVERIFY(!rows->AtEnd());
        QVERIFY(rows->MoveFirst());
        QVERIFY(rows->MoveNext());
        QVERIFY(!rows->AtEnd());
        QVERIFY(!rows->MoveNext());
        QVERIFY(rows->AtEnd());
        QVERIFY(!rows->Field(u"Title"_qs));
        QVERIFY(!rows->Edit());
        QVERIFY(!rows->Delete());
        QVERIFY(!rows->MoveNext());
        QVERIFY(rows->AtEnd());
        QVERIFY(rows->MoveFirst());
        QCOMPARE(rows->Field(u"Title"_qs), QVariant(u"Zebra Sale"_qs));
    }

    void AnEmptyResultFailsEveryMove() {
        const auto rows = Select("SELECT Title FROM Forms WHERE Title = 'none'");
        QVERIFY(rows);
        QCOMPARE(rows->RecordCount(), 0);
        QVERIFY(rows->AtEnd());
        QVERIFY(!rows->MoveFirst());
        QVERIFY(!rows->MoveNext());
        QVERIFY(!rows->Field(u"Title"_qs));
        QVERIFY(!rows->Edit());
        QVERIFY(!rows->Update());
    }

    void AMissingValueIsAnInvalidVariant() {
        const auto rows = m_database->OpenRecordset(u"Forms"_qs);
        QVERIFY(rows->AddNew());
        QVERIFY(rows->SetField(u"Title"_qs, u"bare"_qs));
        QVERIFY(rows->Update());
        const auto bare = Select("SELECT * FROM Forms WHERE Title = 'bare'");
        QVERIFY(bare->Field(u"Content"_qs).has_value());
        QVERIFY(!bare->Field(u"Content"_qs)->isValid());
        QVERIFY(!bare->Field(u"Category"_qs)->isValid());
        QCOMPARE(bare->Field(u"Favorites"_qs), QVariant(0));
        // a missing value is neither like nor unlike anything
        QVERIFY(!Titles("Content LIKE '**'").contains(u"bare"_qs));
        QVERIFY(!Titles("Content NOT LIKE '*x*'").contains(u"bare"_qs));
        // an empty text is a text
        QVERIFY(bare->Edit() && bare->SetField(u"Content"_qs, QString()) && bare->Update());
        QVERIFY(bare->Field(u"Content"_qs)->isValid());
        QVERIFY(Titles("Content LIKE '**'").contains(u"bare"_qs));
        QVERIFY(bare->Edit() && bare->SetField(u"Content"_qs, QVariant()) && bare->Update());
        QVERIFY(!bare->Field(u"Content"_qs)->isValid());
    }

    void EditWritesOnlyTheStagedFields() {
        const auto rows = Select("SELECT * FROM Forms WHERE Title = 'Bail Motion'");
        QVERIFY(!rows->SetField(u"Favorites"_qs, 1)); // nothing is staged yet
        QVERIFY(!rows->Update());
        QVERIFY(rows->Edit());
        QVERIFY(rows->SetField(u"Favorites"_qs, 1));
        QCOMPARE(rows->Field(u"Favorites"_qs), QVariant(0));
        QVERIFY(rows->Update());
        QVERIFY(!rows->Update());
        QCOMPARE(rows->Field(u"Favorites"_qs), QVariant(1));
        QCOMPARE(rows->Field(u"Content"_qs), QVariant(u"{\\rtf1 bail and sale}"_qs));
        QCOMPARE(Titles("Favorites = 1"), QStringList{u"Bail Motion"_qs});
        QVERIFY(rows->Edit() && rows->Update()); // nothing staged, nothing written
        QVERIFY(rows->Edit() && rows->SetField(u"Content"_qs, u"new"_qs) && rows->Update());
        QCOMPARE(rows->Field(u"Content"_qs), QVariant(u"new"_qs));
        QCOMPARE(rows->Field(u"Favorites"_qs), QVariant(1));
    }

    void AMoveDropsWhatWasStaged() {
        const auto rows = m_database->OpenRecordset(u"Forms"_qs);
        QVERIFY(rows->Edit() && rows->SetField(u"Favorites"_qs, 1));
        QVERIFY(rows->MoveNext());
        QVERIFY(!rows->Update());
        QCOMPARE(Titles("Favorites = 1"), QStringList());
    }

    void ValuesOfTheWrongKindAreRefused() {
        const auto rows = m_database->OpenRecordset(u"Forms"_qs);
        QVERIFY(rows->Edit());
        QVERIFY(!rows->SetField(u"Favorites"_qs, u"many"_qs));
        QVERIFY(!rows->SetField(u"Favorites"_qs, Q_INT64_C(5000000000)));
        QVERIFY(!rows->SetField(u"Title"_qs, QVariant(QStringList{u"a"_qs, u"b"_qs})));
        QVERIFY(!rows->SetField(u"Nothing"_qs, 1));
        QVERIFY(rows->SetField(u"Favorites"_qs, static_cast<short>(1)));
        QVERIFY(rows->Update());
    }

    void ARepeatedUniqueValueIsRefusedWithoutCase_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("same") << u"Zebra Sale"_qs << false;
        QTest::newRow("other case") << u"ZEBRA sale"_qs << false;
        QTest::newRow("accents in other case") << u"éTÉ"_qs << false;
        QTest::newRow("without accents") << u"Ete"_qs << true;
        QTest::newRow("longer") << u"Zebra Sale "_qs << true;
    }
    void ARepeatedUniqueValueIsRefusedWithoutCase() {
        QFETCH(QString, title);
        QFETCH(bool, accepted);
        const auto rows = Select("SELECT * FROM Forms WHERE Title = 'Bail Motion'");
        QCOMPARE(Add(*rows, {title, u"My Forms"_qs, u"x"_qs, u"text"_qs}), accepted);
        QVERIFY(!rows->Update());
        QCOMPARE(m_database->OpenRecordset(u"Forms"_qs)->RecordCount(), accepted ? 5 : 4);
        QCOMPARE(Titles("Content LIKE 'text'").size(), accepted ? 1 : 0);
        if (accepted)
            return;
        QVERIFY(rows->Edit() && rows->SetField(u"Category"_qs, u"changed"_qs));
        QVERIFY(rows->SetField(u"Content"_qs, u"changed"_qs) && rows->SetField(u"Title"_qs, title));
        QVERIFY(!rows->Update());
        QCOMPARE(rows->Field(u"Category"_qs), QVariant(u"Motions"_qs));
        QCOMPARE(rows->Field(u"Content"_qs), QVariant(u"{\\rtf1 bail and sale}"_qs));
        QVERIFY(rows->Edit() && rows->SetField(u"Title"_qs, u"BAIL MOTION"_qs) && rows->Update());
        QCOMPARE(rows->Field(u"Title"_qs), QVariant(u"BAIL MOTION"_qs));
    }

    void ARequiredValueMayNotBeMissing() {
        const auto rows = m_database->OpenRecordset(u"Forms"_qs);
        QVERIFY(rows->AddNew() && rows->SetField(u"Category"_qs, u"x"_qs));
        QVERIFY(!rows->Update());
        QCOMPARE(m_database->OpenRecordset(u"Forms"_qs)->RecordCount(), 4);
    }

    void AddingToAnEmptyResultLeavesNoCurrentRow() {
        const auto rows = Select("SELECT * FROM Forms WHERE Title = 'new one'");
        QVERIFY(Add(*rows, {u"new one"_qs, u"My Forms"_qs, u"x"_qs, u"text"_qs}));
        QVERIFY(rows->AtEnd());
        QVERIFY(!rows->Field(u"Title"_qs));
        QCOMPARE(rows->RecordCount(), 1);
        QVERIFY(rows->MoveFirst());
        QCOMPARE(rows->Field(u"Content"_qs), QVariant(u"text"_qs));
        QVERIFY(rows->Edit() && rows->SetField(u"Content"_qs, u"other"_qs) && rows->Update());
        QCOMPARE(Titles("Content = 'OTHER'"), QStringList{u"new one"_qs});
    }

    void ATableWithoutARowTakesOneWithItsDefaults() {
        const auto rows = m_database->OpenRecordset(u"Theme"_qs);
        QVERIFY(!rows->MoveFirst());
        QVERIFY(rows->AddNew() && rows->Update());
        QVERIFY(rows->MoveFirst());
        QCOMPARE(rows->Field(u"Theme"_qs), QVariant(1));
    }

    void DeleteLeavesNoCurrentRowUntilAMove() {
        const auto rows = m_database->OpenRecordset(u"Forms"_qs);
        QVERIFY(rows->MoveNext());
        QVERIFY(rows->Delete());
        QVERIFY(!rows->Field(u"Title"_qs));
        QVERIFY(!rows->Edit());
        QVERIFY(!rows->Delete());
        QCOMPARE(rows->RecordCount(), 3);
        QVERIFY(rows->MoveNext());
        QCOMPARE(rows->Field(u"Title"_qs), QVariant(u"Bail Motion"_qs));
        QVERIFY(rows->MoveNext());
        QVERIFY(rows->Delete());
        QVERIFY(!rows->MoveNext());
        QVERIFY(rows->AtEnd());
        QCOMPARE(Texts(*m_database->OpenRecordset(u"Forms"_qs)),
                 (QStringList{u"Zebra Sale"_qs, u"Bail Motion"_qs}));
        QCOMPARE(Titles("Content LIKE '*affidavit*'"), QStringList()); // its long text is gone too
    }

    void ADeletedTitleMayBeUsedAgainAndStandsLast() {
        const auto rows = Select("SELECT * FROM Forms WHERE Title = 'Affidavit of Loss'");
        QVERIFY(rows->Delete());
        QVERIFY(Add(*rows, {u"Affidavit of Loss"_qs, u"My Forms"_qs, u"x"_qs, u"again"_qs}));
        QCOMPARE(Texts(*m_database->OpenRecordset(u"Forms"_qs)).last(), u"Affidavit of Loss"_qs);
    }

    void ARowDeletedElsewhereCannotBeReadOrWritten() {
        const auto mine = Select("SELECT * FROM Forms WHERE Title = 'Bail Motion'");
        QVERIFY(mine->Edit() && mine->SetField(u"Favorites"_qs, 1));
        QVERIFY(Select("SELECT Title FROM Forms WHERE Title = 'Bail Motion'")->Delete());
        QVERIFY(!mine->Update());
        QVERIFY(!mine->Field(u"Title"_qs));
        QVERIFY(!mine->Field(u"Content"_qs));
        QVERIFY(!mine->Edit());
        QVERIFY(!mine->Delete());
    }

    void ChangesMadeElsewhereAreSeen() {
        const auto mine = Select("SELECT Title FROM Forms WHERE Title = 'Bail Motion'");
        const auto other = Select("SELECT * FROM Forms WHERE Title = 'Bail Motion'");
        QVERIFY(other->Edit() && other->SetField(u"Title"_qs, u"Renamed"_qs) && other->Update());
        QCOMPARE(mine->Field(u"Title"_qs), QVariant(u"Renamed"_qs));
    }

    void TextsComeBackUnchanged() {
        QString text =
            u"\u00e9\u0416\u4e2d"_qs + QString::fromUcs4(U"\U0001F600") + QChar(0) + u"after\r\n'\"%_\\"_qs;
        text += QString(300000, u'x');
        const auto rows = Select("SELECT * FROM Forms WHERE Title = 'Bail Motion'");
        QVERIFY(rows->Edit() && rows->SetField(u"Content"_qs, text) && rows->Update());
        QVERIFY(rows->Field(u"Content"_qs) == QVariant(text));
        QCOMPARE(Titles("Content LIKE '*after*'"), QStringList{u"Bail Motion"_qs});
    }

    void ATransactionIsWrittenTogetherOrNotAtAll() {
        const auto rows = m_database->OpenRecordset(u"Forms"_qs);
        QVERIFY(!m_database->CommitTrans());
        QVERIFY(m_database->BeginTrans());
        QVERIFY(!m_database->BeginTrans());
        QVERIFY(Add(*rows, {u"one"_qs, {}, {}, {}}));
        QVERIFY(!Add(*rows, {u"Zebra Sale"_qs, {}, {}, {}})); // undone alone
        QVERIFY(Add(*rows, {u"two"_qs, {}, {}, {}}));
        QVERIFY(m_database->CommitTrans());
        QVERIFY(m_database->BeginTrans());
        QVERIFY(Add(*rows, {u"three"_qs, {}, {}, {}}));
        QVERIFY(m_database->Rollback());
        QVERIFY(!m_database->Rollback());
        QVERIFY(m_database->BeginTrans());
        QVERIFY(Add(*rows, {u"four"_qs, {}, {}, {}}));
        m_database->Close();
        m_database = m_library->Open();
        QVERIFY(m_database);
        QCOMPARE(Texts(*m_database->OpenRecordset(u"Forms"_qs)).mid(4), (QStringList{u"one"_qs, u"two"_qs}));
    }

    void AClosedDatabaseFailsEverything() {
        const auto rows = m_database->OpenRecordset(u"Forms"_qs);
        const auto query = m_database->CreateQueryDef();
        query->setSQL(u"SELECT * FROM Forms"_qs);
        QVERIFY(rows->Edit() && rows->SetField(u"Favorites"_qs, 1));
        m_database->Close();
        QVERIFY(!rows->Update());
        QVERIFY(!rows->Field(u"Title"_qs));
        QVERIFY(!rows->MoveFirst() && !rows->MoveNext() && rows->AtEnd());
        QVERIFY(!rows->Edit() && !rows->AddNew() && !rows->Delete());
        QVERIFY(!rows->SetField(u"Title"_qs, 1));
        QCOMPARE(rows->RecordCount(), 0);
        QVERIFY(!query->OpenRecordset());
        QVERIFY(!m_database->OpenRecordset(u"Forms"_qs));
        QVERIFY(!m_database->BeginTrans() && !m_database->CommitTrans() && !m_database->Rollback());
        m_database->Close();
    }

    void ARecordsetOutlivesItsQueryAndDatabaseObject() {
        const auto query = m_database->CreateQueryDef();
        query->setSQL(u"SELECT * FROM Forms"_qs);
        const auto rows = query->OpenRecordset();
        query->Close();
        QVERIFY(!query->OpenRecordset());
        QCOMPARE(rows->Field(u"Title"_qs), QVariant(u"Zebra Sale"_qs));
        m_database.reset();
        QVERIFY(!rows->Field(u"Title"_qs));
        rows->Close();
        rows->Close();
        QVERIFY(!rows->MoveFirst());
    }

    void OnlyQueriesWithoutANameAreMade() {
        QVERIFY(!m_database->CreateQueryDef(u"stored"_qs));
        QVERIFY(!m_database->CreateQueryDef()->OpenRecordset()); // without a statement
    }

    void ReadAllGivesWhatReadingRowByRowGives_data() {
        QTest::addColumn<QString>("statement");
        QTest::newRow("all") << QStringLiteral("SELECT * FROM Forms");
        QTest::newRow("few") << QStringLiteral("SELECT Title FROM Forms WHERE Title LIKE '*99*'");
        QTest::newRow("none") << QStringLiteral("SELECT * FROM Forms WHERE Title = 'nothing'");
        QTest::newRow("field left out") << QStringLiteral("SELECT Category FROM Forms");
    }
    void ReadAllGivesWhatReadingRowByRowGives() {
        QFETCH(QString, statement);
        const TemporaryLibrary library;
        const auto database = library.Create();
        QVERIFY(database->BeginTrans());
        const auto forms = database->OpenRecordset(QStringLiteral("Forms"));
        for (int i = 0; i < 300; ++i)
            QVERIFY(Add(*forms, {QStringLiteral("T%1").arg(i), QStringLiteral("c"), QStringLiteral("s"),
                                 QStringLiteral("text %1").arg(i)}));
        QVERIFY(database->CommitTrans());
        const auto rows = Run(*database, statement);
        const auto gone = Run(*database, QStringLiteral("SELECT * FROM Forms WHERE Title LIKE 'T?99'"));
        QVERIFY(gone->Delete());
        for (const QString& field : {QStringLiteral("Title"), QStringLiteral("Content"),
                                     QStringLiteral("Favorites"), QStringLiteral("Nothing")}) {
            std::vector<QVariant> oneByOne;
            for (bool there = rows->MoveFirst(); there; there = rows->MoveNext()) {
                if (const std::optional<QVariant> value = rows->Field(field))
                    oneByOne.push_back(*value);
            }
            rows->MoveFirst();
            QVERIFY(rows->ReadAll(field) == oneByOne);
            QVERIFY(rows->AtEnd());
        }
        database->Close();
        QVERIFY(rows->ReadAll(QStringLiteral("Title")).empty());
    }
};

QTEST_GUILESS_MAIN(RecordsetTest)
#include "recordset_test.moc"
