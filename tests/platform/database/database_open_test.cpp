#include "tests/platform/database/temporary_library.h"

#include <QElapsedTimer>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace platform;
using namespace platform::test;

constexpr int kForms = 60;

static void Fill(Database& database) {
    const auto rows = database.OpenRecordset(u"Forms"_qs);
    QVERIFY(database.BeginTrans());
    for (int i = 0; i < kForms; ++i)
        QVERIFY(Add(*rows,
                    {u"Form %1"_qs.arg(i), u"Deeds"_qs, u"Sale"_qs, u"{deed %1}"_qs.arg(i).repeated(3000)}));
    QVERIFY(database.CommitTrans());
}

#ifdef Q_OS_UNIX
// Being root, permissions mean nothing: takes another user's place for a while.
class AsOrdinaryUser {
public:
    explicit AsOrdinaryUser(const TemporaryLibrary& library) {
        if (::geteuid() != 0)
            return;
        constexpr uid_t nobody = 65534;
        for (const QString& path : {library.FolderPath(), library.Path()})
            m_ready = ::chown(QFile::encodeName(path).constData(), nobody, nobody) == 0 && m_ready;
        m_ready = ::seteuid(nobody) == 0 && m_ready;
        m_changed = true;
    }
    ~AsOrdinaryUser() {
        if (m_changed && ::seteuid(0) != 0)
            std::abort();
    }
    bool IsReady() const { return m_ready; }

private:
    bool m_ready = true;
    bool m_changed = false;
};
#endif

class DatabaseOpenTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TemporaryLibrary> m_library;

    void OpensNothingAndLeavesTheFileAlone(const QString& connect = kConnect, FileFormat format = kFormat) {
        const QByteArray before = m_library->Bytes();
        const QStringList files = m_library->Files();
        for (const bool exclusive : {true, false}) {
            for (const bool readOnly : {true, false}) {
                QVERIFY(!Database::OpenDatabase(m_library->Path(), exclusive, readOnly, connect, format));
                QVERIFY(m_library->Bytes() == before);
                QCOMPARE(m_library->Files(), files);
            }
        }
    }

private Q_SLOTS:
    void init() {
        m_library = std::make_unique<TemporaryLibrary>();
        const auto database = m_library->Create();
        QVERIFY(database);
        Fill(*database);
    }

    void OpensWhatItMade() {
        QCOMPARE(m_library->Files(), QStringList{u"library.dat"_qs});
        const QByteArray before = m_library->Bytes();
        for (const bool exclusive : {true, false}) {
            for (const bool readOnly : {true, false}) {
                const auto database = m_library->Open(exclusive, readOnly);
                QVERIFY(database);
                QCOMPARE(database->OpenRecordset(u"Forms"_qs)->RecordCount(), kForms);
            }
        }
        QVERIFY(m_library->Bytes() == before);
        QCOMPARE(m_library->Files(), QStringList{u"library.dat"_qs});
    }

    void TheFileTellsNothingOfItsContent() {
        const QByteArray bytes = m_library->Bytes();
        QVERIFY(bytes.size() > 16384);
        for (const char* word : {"SQLite", "Forms", "deed", "Deeds", "platform"})
            QVERIFY2(!bytes.contains(word), word);
    }

    void ClosingAfterAWriteLeavesNoFileBeside() {
        {
            const auto database = m_library->Open();
            const auto rows = database->OpenRecordset(u"Forms"_qs);
            QVERIFY(rows->Edit() && rows->SetField(u"Favorites"_qs, 1) && rows->Update());
        }
        QCOMPARE(m_library->Files(), QStringList{u"library.dat"_qs});
    }

    void MakingDoesNotTouchAnExistingFile() {
        const QByteArray before = m_library->Bytes();
        QVERIFY(!m_library->Create());
        QVERIFY(m_library->Bytes() == before);
    }

    void MakingRefusesBadTablesAndLeavesNothing_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("field");
        QTest::newRow("underscore") << u"a_text"_qs << u"b"_qs;
        QTest::newRow("quote") << u"a\"b"_qs << u"b"_qs;
        QTest::newRow("empty table") << QString() << u"b"_qs;
        QTest::newRow("empty field") << u"a"_qs << QString();
        QTest::newRow("digit first") << u"a"_qs << u"1b"_qs;
        QTest::newRow("twice") << u"a"_qs << u"SAME"_qs;
        QTest::newRow("engine's own") << u"sqlite_master"_qs << u"b"_qs;
    }
    void MakingRefusesBadTablesAndLeavesNothing() {
        QFETCH(QString, table);
        QFETCH(QString, field);
        const QString path = m_library->FolderPath() + u"/new.dat"_qs;
        QVERIFY(!Database::CreateDatabase(path, kConnect, kFormat,
                                          {{table, {{.name = u"same"_qs}, {.name = field}}}}));
        QVERIFY(!QFile::exists(path));
        QVERIFY(!Database::CreateDatabase(u"/nowhere/at/all/new.dat"_qs, kConnect, kFormat, Tables()));
    }

    void RefusesAWrongPassword() { OpensNothingAndLeavesTheFileAlone(u";pwd=open sesamE"_qs); }

    void RefusesAConnectStringWithoutPassword_data() {
        QTest::addColumn<QString>("connect");
        for (const char* connect : {"", ";pwd=", "open sesame", "pwd=open sesame"})
            QTest::addRow("'%s'", connect) << QString::fromUtf8(connect);
    }
    void RefusesAConnectStringWithoutPassword() {
        QFETCH(QString, connect);
        OpensNothingAndLeavesTheFileAlone(connect);
        const QString path = m_library->FolderPath() + u"/new.dat"_qs;
        QVERIFY(!Database::CreateDatabase(path, connect, kFormat, Tables()));
        QVERIFY(!QFile::exists(path));
    }

    void RefusesAnotherProgramsFile() {
        OpensNothingAndLeavesTheFileAlone(kConnect, {.applicationId = 7, .version = kFormat.version});
    }
    void RefusesALaterVersion() {
        OpensNothingAndLeavesTheFileAlone(
            kConnect, {.applicationId = kFormat.applicationId, .version = kFormat.version - 1});
    }
    void RefusesAnEarlierVersion() {
        OpensNothingAndLeavesTheFileAlone(
            kConnect, {.applicationId = kFormat.applicationId, .version = kFormat.version + 1});
    }

    void RefusesAMissingFile() {
        QFile::remove(m_library->Path());
        OpensNothingAndLeavesTheFileAlone();
        QVERIFY(!QFile::exists(m_library->Path()));
        QVERIFY(!Database::OpenDatabase({}, true, false, kConnect, {}));
        QVERIFY(!Database::OpenDatabase(u":memory:"_qs, true, false, kConnect, {}));
    }
    void RefusesAFolder() {
        QVERIFY(!Database::OpenDatabase(m_library->FolderPath(), true, false, kConnect, kFormat));
    }
    void RefusesAFileOfNoLength() {
        QVERIFY(m_library->SetBytes({}));
        OpensNothingAndLeavesTheFileAlone();
        OpensNothingAndLeavesTheFileAlone(kConnect, {});
    }
    void RefusesATextFile() {
        QVERIFY(m_library->SetBytes(QByteArray("Dear Sir,\n").repeated(5000)));
        OpensNothingAndLeavesTheFileAlone();
    }
    void RefusesAShortTextFile() {
        QVERIFY(m_library->SetBytes("Dear Sir,"));
        OpensNothingAndLeavesTheFileAlone();
    }
    void RefusesAnUnencryptedFileOfTheEngine() {
        // the head of an empty one: magic, page size 4096, versions 1, reserved 0, fractions, then mostly
        // zeros
        QByteArray page(4096, '\0');
        page.replace(0, 16, QByteArray("SQLite format 3\0", 16));
        page.replace(16, 8, QByteArray("\x10\x00\x01\x01\x00\x40\x20\x20", 8));
        page[27] = 1;
        page[31] = 1;
        page[47] = 4;
        page[59] = 1;
        page[95] = 1;
        page.replace(100, 8, QByteArray("\x0D\x00\x00\x00\x00\x10\x00\x00", 8));
        QVERIFY(m_library->SetBytes(page));
        OpensNothingAndLeavesTheFileAlone();
        OpensNothingAndLeavesTheFileAlone(kConnect, {});
    }
    void RefusesATruncatedFile_data() {
        QTest::addColumn<int>("kept");
        QTest::newRow("half") << -2;
        QTest::newRow("a byte missing") << -1;
        QTest::newRow("a page missing") << -16384;
        QTest::newRow("one page") << 16384;
        QTest::newRow("half a page") << 8000;
        QTest::newRow("one byte") << 1;
    }
    void RefusesATruncatedFile() {
        QFETCH(int, kept);
        const QByteArray whole = m_library->Bytes();
        const qsizetype size = kept == -2 ? whole.size() / 2 : kept < 0 ? whole.size() + kept : kept;
        QVERIFY(m_library->SetBytes(whole.left(size)));
        OpensNothingAndLeavesTheFileAlone();
    }
    void RefusesAFileWithBytesBehindItsEnd() {
        QVERIFY(m_library->SetBytes(m_library->Bytes() + "tail"));
        OpensNothingAndLeavesTheFileAlone();
    }
    void RefusesADamagedFirstPage_data() {
        QTest::addColumn<int>("at");
        for (const int at : {0, 15, 16, 100, 8000, 16360})
            QTest::addRow("byte %d", at) << at;
    }
    void RefusesADamagedFirstPage() {
        QFETCH(int, at);
        QByteArray bytes = m_library->Bytes();
        bytes[at] = static_cast<char>(bytes[at] ^ 0x10);
        QVERIFY(m_library->SetBytes(bytes));
        OpensNothingAndLeavesTheFileAlone();
    }

    // Wherever a page is damaged: the opening fails, or reading that page does; all else is still read.
    void ADamagedPageGivesFailingReads() {
        const QByteArray whole = m_library->Bytes();
        const int matching =
            Run(*m_library->Open(), u"SELECT * FROM Forms WHERE Content LIKE '*deed 7*'"_qs)->RecordCount();
        QVERIFY(matching > 0);
        int opened = 0;
        int failures = 0;
        int mostlyRead = 0;
        for (qsizetype at = 16384 + 5000; at < whole.size(); at += 16384) {
            QByteArray bytes = whole;
            bytes[at] = static_cast<char>(bytes[at] ^ 0x01);
            QVERIFY(m_library->SetBytes(bytes));
            const auto database = m_library->Open();
            if (!database)
                continue;
            ++opened;
            // this one reads every text to its end
            const auto search = Run(*database, u"SELECT * FROM Forms WHERE Content LIKE '*nowhere*'"_qs);
            QVERIFY(!search || search->RecordCount() == 0);
            // this one what it needs: it fails or it is right
            const auto found = Run(*database, u"SELECT * FROM Forms WHERE Content LIKE '*deed 7*'"_qs);
            QVERIFY(!found || found->RecordCount() == matching);
            const auto rows = Run(*database, u"SELECT * FROM Forms WHERE Title LIKE '*'"_qs);
            failures += search ? 0 : 1;
            if (rows) {
                int read = 0;
                for (bool there = rows->MoveFirst(); there; there = rows->MoveNext()) {
                    const std::optional<QVariant> content = rows->Field(u"Content"_qs);
                    const QString title = rows->Field(u"Title"_qs).value_or(QVariant()).toString();
                    if (!content)
                        continue;
                    ++read;
                    QCOMPARE(content->toString(), u"{deed %1}"_qs.arg(title.mid(5)).repeated(3000));
                }
                QVERIFY2(search ? read == kForms : read < kForms, qPrintable(QString::number(read)));
                mostlyRead += read >= kForms - 2 ? 1 : 0;
            }
        }
        QVERIFY(opened > 10);
        QVERIFY(failures > 10);
        QVERIFY(mostlyRead >= opened - 6); // the pages that lead to all others are few
    }

    void ASecondOpeningFailsQuicklyWhileExclusive() {
        const auto database = m_library->Open();
        QVERIFY(database);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!m_library->Open());
        QVERIFY(!m_library->Open(false, true));
        QVERIFY2(timer.elapsed() < 1500, qPrintable(QString::number(timer.elapsed())));
        const auto rows = database->OpenRecordset(u"Forms"_qs);
        QVERIFY(rows->Edit() && rows->SetField(u"Favorites"_qs, 1) && rows->Update());
        database->Close();
        QVERIFY(m_library->Open());
    }

    void SharedOpeningsSeeEachOthersWrites() {
        const auto one = m_library->Open(false);
        const auto two = m_library->Open(false);
        QVERIFY(one && two);
        const auto rows = one->OpenRecordset(u"Forms"_qs);
        const auto seen = two->OpenRecordset(u"Forms"_qs);
        QVERIFY(rows->Edit() && rows->SetField(u"Favorites"_qs, 1) && rows->Update());
        QCOMPARE(seen->Field(u"Favorites"_qs), QVariant(1));
    }

    void ReadOnlyReadsAndWritesNothing() {
        const QByteArray before = m_library->Bytes();
        const auto database = m_library->Open(true, true);
        const auto rows = database->OpenRecordset(u"Forms"_qs);
        QCOMPARE(rows->Field(u"Title"_qs), QVariant(u"Form 0"_qs));
        QVERIFY(rows->Edit() && rows->SetField(u"Favorites"_qs, 1));
        QVERIFY(!rows->Update());
        QVERIFY(!rows->Delete());
        QVERIFY(!database->BeginTrans());
        QCOMPARE(rows->Field(u"Favorites"_qs), QVariant(0));
        QVERIFY(m_library->Bytes() == before);
    }

#ifdef Q_OS_UNIX
    void AFileThatMayNotBeWrittenIsStillRead() {
        const AsOrdinaryUser user(*m_library);
        QVERIFY(user.IsReady());
        QVERIFY(QFile::setPermissions(m_library->Path(), QFile::ReadOwner));
        const auto database = m_library->Open();
        QVERIFY(database);
        const auto rows = database->OpenRecordset(u"Forms"_qs);
        QCOMPARE(rows->RecordCount(), kForms);
        QVERIFY(rows->Edit() && rows->SetField(u"Favorites"_qs, 1));
        QVERIFY(!rows->Update());
        QCOMPARE(rows->Field(u"Favorites"_qs), QVariant(0));
        QVERIFY(!Add(*rows, {u"new"_qs, {}, {}, {}}));
    }

    void AFolderThatMayNotBeWrittenLetsReadOnly() {
        const QByteArray before = m_library->Bytes();
        {
            const AsOrdinaryUser user(*m_library);
            QVERIFY(user.IsReady());
            QVERIFY(QFile::setPermissions(m_library->FolderPath(), QFile::ReadOwner | QFile::ExeOwner));
            {
                const auto database = m_library->Open();
                QVERIFY(database);
                const auto rows = database->OpenRecordset(u"Forms"_qs);
                QCOMPARE(rows->Field(u"Title"_qs), QVariant(u"Form 0"_qs));
                QVERIFY(rows->Edit() && rows->SetField(u"Favorites"_qs, 1));
                QVERIFY(!rows->Update());
                QCOMPARE(rows->Field(u"Favorites"_qs), QVariant(0));
            }
            QFile::setPermissions(m_library->FolderPath(),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        }
        QVERIFY(m_library->Bytes() == before);
    }

    void AnUnreadableFileIsRefused() {
        const AsOrdinaryUser user(*m_library);
        QVERIFY(user.IsReady());
        QVERIFY(QFile::setPermissions(m_library->Path(), {}));
        QVERIFY(!m_library->Open());
    }
#endif

    void AStrayJournalDoesNotMakeAForeignFileChange() {
        QVERIFY(m_library->SetBytes(QByteArray("Dear Sir,\n").repeated(5000)));
        QFile journal(m_library->Path() + u"-journal"_qs);
        QVERIFY(journal.open(QIODevice::WriteOnly));
        journal.write(QByteArray::fromHex("d9d505f920a163d7") + QByteArray(2000, '\1'));
        journal.close();
        OpensNothingAndLeavesTheFileAlone();
    }
};

QTEST_GUILESS_MAIN(DatabaseOpenTest)
#include "database_open_test.moc"
