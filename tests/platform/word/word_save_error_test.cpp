// The error numbers of saving, as the word processor tells them.
#include "platform/word/office_word_application.h"

#include "tests/support/small_disk.h"

#include <QtTest>

using platform::SaveError;

Q_DECLARE_METATYPE(platform::SaveError)

class WordSaveErrorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachErrorOfWritingHasItsNumber_data() {
        QTest::addColumn<SaveError>("error");
        QTest::addColumn<int>("number");
        QTest::newRow("none") << SaveError::None << 0;
        QTest::newRow("open elsewhere") << SaveError::AlreadyOpen << 5356;
        QTest::newRow("disk full") << SaveError::DiskFull << 61;
        QTest::newRow("permission denied") << SaveError::PermissionDenied << 70;
        QTest::newRow("disk not ready") << SaveError::DiskNotReady << 71;
        QTest::newRow("device error") << SaveError::DeviceIo << 71;
        QTest::newRow("device gone") << SaveError::DeviceUnavailable << 71;
        QTest::newRow("no such folder: any other") << SaveError::PathOrFile << 1;
    }
    void EachErrorOfWritingHasItsNumber() {
        QFETCH(SaveError, error);
        QFETCH(int, number);
        const QTemporaryDir folder;
        QCOMPARE(platform::WordSaveErrorFor(error, folder.filePath(QStringLiteral("a.doc"))), number);
    }

    void ADiskThatTakesNothingHasItsNumber_data() {
        QTest::addColumn<bool>("full");
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("number");
        for (const char* name : {"old.doc", "new.doc"}) {
            QTest::addRow("read-only, %s", name) << false << QString::fromLatin1(name) << 5156;
            QTest::addRow("full, %s", name) << true << QString::fromLatin1(name) << 61;
        }
    }
    void ADiskThatTakesNothingHasItsNumber() {
        QFETCH(bool, full);
        QFETCH(QString, name);
        QFETCH(int, number);
        SmallDisk disk;
        if (!disk.IsMounted())
            QSKIP("no file system can be mounted here");
        QCOMPARE(platform::WriteFileWhole(disk.Path(QStringLiteral("old.doc")), "old"), SaveError::None);
        QVERIFY(full ? disk.Fill() : disk.Lock());
        const QStringList before = disk.Files();
        const QString path = disk.Path(name);
        for (const int size : {50'000, 500}) { // with and without a buffer between
            const SaveError error = platform::WriteFileWhole(path, QByteArray(size, 'x'));
            QCOMPARE(platform::WordSaveErrorFor(error, path), number);
        }
        QCOMPARE(disk.Files(), before);
        QCOMPARE(QFileInfo(disk.Path(QStringLiteral("old.doc"))).size(), 3);
    }
};

QTEST_GUILESS_MAIN(WordSaveErrorTest)
#include "word_save_error_test.moc"
