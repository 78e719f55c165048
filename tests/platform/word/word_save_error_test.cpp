// The error numbers of saving, as the word processor tells them.
#include "platform/word/office_word_application.h"

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
};

QTEST_GUILESS_MAIN(WordSaveErrorTest)
#include "word_save_error_test.moc"
