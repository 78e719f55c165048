// What is written stays written: the program killed in the midst of writing, and a disk without room. The
// test starts itself as the victim.
#include "tests/platform/database/temporary_library.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <csignal>
#include <cstdio>
#include <random>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#include <unistd.h>
#endif

using namespace platform;
using namespace platform::test;

static QString ContentOf(int number) {
    return u"{content %1}"_qs.arg(number).repeated(200 + number % 7 * 900);
}

// Adds rows for ever and tells each number once it is on disk.
static int WriteForEver(const QString& path) {
    const auto database = Database::OpenDatabase(path, true, false, kConnect, kFormat);
    if (!database)
        return 2;
    const auto rows = database->OpenRecordset(u"Forms"_qs);
    for (int number = rows->RecordCount();; ++number) {
        if (!Add(*rows, {u"Form %1"_qs.arg(number), u"Deeds"_qs, u"Sale"_qs, ContentOf(number)}))
            return 3;
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
}

#ifdef Q_OS_UNIX
static bool SetFileLimit(rlim_t bytes) {
    struct rlimit limit {};
    if (::getrlimit(RLIMIT_FSIZE, &limit) != 0)
        return false;
    limit.rlim_cur = bytes;
    return ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

// Each step that fails gives its own number.
static int WriteWithoutRoom(const QString& path) {
    std::signal(SIGXFSZ, SIG_IGN);
    const auto database = Database::OpenDatabase(path, true, false, kConnect, kFormat);
    if (!database)
        return 2;
    const auto rows = database->OpenRecordset(u"Forms"_qs);
    const int before = rows->RecordCount();
    const QString large(4000000, u'x');
    if (!SetFileLimit(static_cast<rlim_t>(QFileInfo(path).size()) + 100000))
        return 3;
    for (int i = 0; i < 3; ++i) {
        if (Add(*rows, {u"too large"_qs, u"x"_qs, u"x"_qs, large}))
            return 4;
    }
    if (!rows->MoveFirst() || !rows->Edit() || !rows->SetField(u"Category"_qs, u"changed"_qs) ||
        !rows->SetField(u"Content"_qs, large) || rows->Update())
        return 5;
    if (rows->Field(u"Category"_qs) != QVariant(u"Deeds"_qs) ||
        rows->Field(u"Content"_qs) != QVariant(ContentOf(0)))
        return 6;
    if (database->OpenRecordset(u"Forms"_qs)->RecordCount() != before)
        return 7;
    // a begun transaction is lost as a whole, and says so at its end
    if (!database->BeginTrans() || !Add(*rows, {u"begun"_qs, u"x"_qs, u"x"_qs, u"small"_qs}))
        return 8;
    const bool largeFits = Add(*rows, {u"too large"_qs, u"x"_qs, u"x"_qs, large});
    const bool committed = database->CommitTrans();
    if (largeFits && committed)
        return 9;
    const int afterTransaction = database->OpenRecordset(u"Forms"_qs)->RecordCount();
    if (afterTransaction != before + (committed ? 1 : 0))
        return 10;
    // small things still fit, and with room everything does
    const auto again = database->OpenRecordset(u"Forms"_qs);
    if (!again->Edit() || !again->SetField(u"Favorites"_qs, 1) || !again->Update())
        return 11;
    if (!SetFileLimit(RLIM_INFINITY))
        return 12;
    if (!Add(*again, {u"too large"_qs, u"x"_qs, u"x"_qs, large}))
        return 13;
    return database->OpenRecordset(u"Forms"_qs)->RecordCount() == afterTransaction + 1 ? 0 : 14;
}
#endif

class DurabilityTest : public QObject {
    Q_OBJECT

    TemporaryLibrary m_library;

    static void Start(QProcess& process, const QString& task, const QString& path) {
        process.setProcessChannelMode(QProcess::SeparateChannels);
        process.start(QCoreApplication::applicationFilePath(), {task, path});
    }

private Q_SLOTS:
    void AKilledProgramLosesNothingAcknowledged() {
        QVERIFY(m_library.Create());
        std::mt19937 random(1);
        int acknowledged = -1;
        int journals = 0;
        for (int round = 0; round < 16; ++round) {
            QProcess process;
            Start(process, u"--write-for-ever"_qs, m_library.Path());
            QVERIFY(process.waitForReadyRead(20000));
            QTest::qWait(static_cast<int>(random() % 60));
            process.kill();
            QVERIFY(process.waitForFinished(20000));
            QCOMPARE(process.exitStatus(), QProcess::CrashExit);
            const QList<QByteArray> lines = process.readAllStandardOutput().split('\n');
            QVERIFY(lines.size() >= 2);
            acknowledged = std::max(acknowledged, lines[lines.size() - 2].toInt());

            journals += m_library.Files().size() > 1 ? 1 : 0;
            const QByteArray before = m_library.Bytes();
            QVERIFY(!Database::OpenDatabase(m_library.Path(), true, false, u";pwd=wrong"_qs, kFormat));
            QVERIFY(m_library.Bytes() == before); // a wrong password does not play the journal back
            {
                const auto database = m_library.Open();
                QVERIFY(database);
                const auto rows = database->OpenRecordset(u"Forms"_qs);
                const int count = rows->RecordCount();
                // the last write may have reached the disk without being told of
                QVERIFY2(count == acknowledged + 1 || count == acknowledged + 2,
                         qPrintable(u"%1 rows, %2 acknowledged"_qs.arg(count).arg(acknowledged + 1)));
                int number = 0;
                for (bool there = rows->MoveFirst(); there; there = rows->MoveNext(), ++number) {
                    QCOMPARE(rows->Field(u"Title"_qs), QVariant(u"Form %1"_qs.arg(number)));
                    QVERIFY(rows->Field(u"Content"_qs) == QVariant(ContentOf(number)));
                }
                QCOMPARE(number, count);
            }
            QCOMPARE(m_library.Files(), QStringList{u"library.dat"_qs});
        }
        qInfo("%d rows, %d journals left by a crash", acknowledged + 1, journals);
        QVERIFY(acknowledged > 16);
    }

    void AFullDiskFailsTheWriteAndNothingElse() {
#ifdef Q_OS_UNIX
        TemporaryLibrary library;
        {
            const auto database = library.Create();
            QVERIFY(database);
            const auto rows = database->OpenRecordset(u"Forms"_qs);
            QVERIFY(Add(*rows, {u"Form 0"_qs, u"Deeds"_qs, u"Sale"_qs, ContentOf(0)}));
        }
        QProcess process;
        Start(process, u"--write-without-room"_qs, library.Path());
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        const auto database = library.Open();
        QVERIFY(database);
        const auto rows = database->OpenRecordset(u"Forms"_qs);
        QCOMPARE(Texts(*rows).first(), u"Form 0"_qs);
        QCOMPARE(Texts(*rows).last(), u"too large"_qs);
#else
        QSKIP("needs a limit on the size of a file");
#endif
    }
};

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == u"--write-for-ever"_qs)
        return WriteForEver(arguments[2]);
#ifdef Q_OS_UNIX
    if (arguments.size() == 3 && arguments[1] == u"--write-without-room"_qs)
        return WriteWithoutRoom(arguments[2]);
#endif
    DurabilityTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "durability_test.moc"
