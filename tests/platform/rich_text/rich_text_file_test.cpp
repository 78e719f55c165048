// Files of the rich text box: loading of every encoding, saving and its error numbers.
#include "platform/rich_text/rich_text_file.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/rich_text/rich_text_box.h"

using platform::RichTextBox;
using platform::SaveError;

namespace {

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class RichTextFileTest final : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;
    QString Path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

private Q_SLOTS:
    void FilesAreTakenByTheirContent_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const QByteArray& bytes, const QString& text) {
            QTest::newRow(name) << bytes << text;
        };
        row("rich text", "{\\rtf1 a\\'e9\\par b}", QStringLiteral("a\u00E9\nb"));
        row("rich text behind blanks", "\r\n {\\rtf1 a}", QStringLiteral("a"));
        row("ASCII", "a\r\nb", QStringLiteral("a\nb"));
        row("UTF-8", "a\xC3\xA9", QStringLiteral("a\u00E9"));
        row("UTF-8 with mark", "\xEF\xBB\xBF\xE2\x82\xB1", QStringLiteral("\u20B1"));
        row("Windows 1252", "\x93quoted\x94 \xF1", QStringLiteral("\u201Cquoted\u201D \u00F1"));
        row("UTF-16 little endian", QByteArray("\xFF\xFE\x61\x00\xB1\x20", 6), QStringLiteral("a\u20B1"));
        row("UTF-16 big endian", QByteArray("\xFE\xFF\x00\x61\x20\xB1", 6), QStringLiteral("a\u20B1"));
        row("empty", "", QString());
        row("markup of another kind", "<b>a</b>", QStringLiteral("<b>a</b>"));
    }
    void FilesAreTakenByTheirContent() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        const QString path = Path("any.txt");
        Write(path, bytes);
        RichTextBox box;
        box.setText(QStringLiteral("before"));
        const QSignalSpy changes(&box, &RichTextBox::Change);
        QVERIFY(box.LoadFile(path));
        QCOMPARE(box.Text(), text);
        QCOMPARE(box.FileName(), path);
        QCOMPARE(box.SelStart(), 0);
        QCOMPARE(changes.count(), 1);
    }

    void WhatCannotBeLoadedLeavesTheBox_data() {
        QTest::addColumn<QString>("path");
        Write(Path("binary"), QByteArray("MZ\0\x01\x02", 5));
        QFile large(Path("large.rtf"));
        QVERIFY(large.open(QIODevice::WriteOnly));
        large.write("{\\rtf1 a}");
        QVERIFY(large.resize(platform::kMostSourceBytes + 1));
        QFile largeText(Path("large.txt"));
        QVERIFY(largeText.open(QIODevice::WriteOnly));
        const QByteArray megabyte(1024 * 1024, 'x');
        for (int i = 0; i <= 16; ++i)
            largeText.write(megabyte);
        QTest::newRow("missing") << Path("missing.rtf");
        QTest::newRow("folder") << m_folder.path();
        QTest::newRow("no text") << Path("binary");
        QTest::newRow("too large") << Path("large.rtf");
        QTest::newRow("too large a text") << Path("large.txt");
        QTest::newRow("no name") << QString();
        QTest::newRow("device") << QStringLiteral("/dev/zero");
    }
    void WhatCannotBeLoadedLeavesTheBox() {
        QFETCH(QString, path);
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\b before}"));
        box.setFileName(QStringLiteral("name"));
        box.setSelStart(3);
        const QString source = box.TextRTF();
        const QSignalSpy changes(&box, &RichTextBox::Change);
        QVERIFY(!box.LoadFile(path));
        QCOMPARE(box.TextRTF(), source);
        QCOMPARE(box.FileName(), QStringLiteral("name"));
        QCOMPARE(box.SelStart(), 3);
        QCOMPARE(changes.count(), 0);
    }

    void WhatIsSavedIsTheSource() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\b bold\\b0\\par plain}"));
        const QString path = Path("saved.doc"); // the name's ending tells nothing
        QCOMPARE(box.SaveFile(path), 0);
        QCOMPARE(Read(path), box.TextRTF().toLatin1());
        RichTextBox other;
        QVERIFY(other.LoadFile(path));
        QCOMPARE(other.TextRTF(), box.TextRTF());
        box.setSelText(QStringLiteral("more "));
        QCOMPARE(box.SaveFile(path), 0);
        QCOMPARE(Read(path), box.TextRTF().toLatin1());
    }

    void SavingLeavesNothingBesideTheFile() {
        QTemporaryDir folder;
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        QCOMPARE(box.SaveFile(folder.filePath(QStringLiteral("a.rtf"))), 0);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    void SaveErrorsAreNumbered_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("number");
        Write(Path("file"), "x");
        Write(Path("open.rtf"), "x");
        Write(Path(".~lock.open.rtf#"), "x");
        QTest::newRow("no folder") << Path("none/a.rtf") << 75;
        QTest::newRow("a file for a folder") << Path("file/a.rtf") << 75;
        QTest::newRow("no name") << QString() << 75;
        QTest::newRow("a folder") << m_folder.path() << 70;
        QTest::newRow("open elsewhere") << Path("open.rtf") << 55;
        QTest::newRow("a device") << QStringLiteral("/dev/full") << 75;
        QTest::newRow("a system folder") << QStringLiteral("/proc/a.rtf") << 75;
    }
    void SaveErrorsAreNumbered() {
        QFETCH(QString, path);
        QFETCH(int, number);
        RichTextBox box;
        box.setText(QStringLiteral("text"));
        QCOMPARE(box.SaveFile(path), number);
        QCOMPARE(Read(Path("open.rtf")), QByteArray("x"));
    }

    void ARefusedFolderIsPermissionDenied() {
        if (geteuid() == 0)
            QSKIP("the superuser may write everywhere");
        QTemporaryDir folder;
        QVERIFY(::chmod(folder.path().toLocal8Bit().constData(), 0500) == 0);
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        QCOMPARE(box.SaveFile(folder.filePath(QStringLiteral("a.rtf"))), 70);
        ::chmod(folder.path().toLocal8Bit().constData(), 0700);
    }

    void AReadOnlyFileIsPermissionDenied() {
        if (geteuid() == 0)
            QSKIP("the superuser may write everywhere");
        const QString path = Path("readonly.rtf");
        Write(path, "x");
        QVERIFY(QFile::setPermissions(path, QFileDevice::ReadOwner));
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        QCOMPARE(box.SaveFile(path), 70);
        QCOMPARE(Read(path), QByteArray("x"));
    }

    // A file system of 64 KB of its own, where the machine lets us have one.
    void AFullDiskIsToldAndLeavesTheOldFile() {
        const QString disk = Path("disk");
        QVERIFY(QDir().mkpath(disk));
        const auto run = [](const QString& program, const QStringList& arguments) {
            QProcess process;
            process.start(program, arguments);
            return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
                   process.exitCode() == 0;
        };
        if (!run(QStringLiteral("mount"),
                 {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                  QStringLiteral("size=64k"), QStringLiteral("tmpfs"), disk}))
            QSKIP("no file system can be mounted here");
        const QString path = disk + QStringLiteral("/a.rtf");
        RichTextBox box;
        box.setText(QStringLiteral("small"));
        const int small = box.SaveFile(path);
        const QByteArray before = Read(path);
        box.setText(QString(200'000, u'x'));
        const int large = box.SaveFile(path);
        const QByteArray after = Read(path);
        const auto files = QDir(disk).entryList(QDir::Files | QDir::Hidden);
        QVERIFY(run(QStringLiteral("umount"), {disk}));
        QCOMPARE(small, 0);
        QCOMPARE(large, 61);
        QCOMPARE(after, before);
        QCOMPARE(files, QStringList(QStringLiteral("a.rtf")));
    }

    void EachKindOfErrorHasItsNumber_data() {
        QTest::addColumn<int>("error");
        QTest::addColumn<int>("number");
        QTest::newRow("none") << int(QFileDevice::NoError) << 0;
        QTest::newRow("full") << int(QFileDevice::ResourceError) << 61;
        QTest::newRow("device") << int(QFileDevice::WriteError) << 57;
        QTest::newRow("other") << int(QFileDevice::OpenError) << 75;
    }
    void EachKindOfErrorHasItsNumber() {
        QFETCH(int, error);
        QFETCH(int, number);
        const SaveError told =
            platform::SaveErrorFor(static_cast<QFileDevice::FileError>(error), Path("possible.rtf"));
        QCOMPARE(int(told), number);
    }
};

QTEST_MAIN(RichTextFileTest)
#include "rich_text_file_test.moc"
