// Files of the rich text box: loading of every encoding, saving and its error numbers.
#include "platform/rich_text/rich_text_file.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <cstdlib>
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

bool Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
           process.exitCode() == 0;
}

// While this lives, the process is that of an ordinary user, where it was the superuser's.
class OrdinaryUser {
public:
    OrdinaryUser()
        : m_wasSuperuser(::geteuid() == 0) {
        constexpr uid_t kNobody = 65534;
        if (m_wasSuperuser)
            m_isOrdinary = ::setresuid(kNobody, kNobody, 0) == 0;
    }
    ~OrdinaryUser() {
        if (m_wasSuperuser && ::setresuid(0, 0, 0) != 0)
            std::abort(); // nothing that follows would be what it says
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)
    bool IsOrdinary() const { return m_isOrdinary; }

private:
    bool m_wasSuperuser;
    bool m_isOrdinary = true;
};

// A file system of 64 KB in a folder made for it. False where the machine lets us have none.
bool Mount(const QString& folder) {
    return QDir().mkpath(folder) &&
           Run(QStringLiteral("mount"), {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                                         QStringLiteral("size=64k"), QStringLiteral("tmpfs"), folder});
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
        QTest::newRow("too long a line") << Path("large.txt");
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

    void ALargeFileIsReadWhileTheWindowsLive() {
        QByteArray source("{\\rtf1\\trowd\\cellx4000 in a table\\cell\\row\\pard ");
        for (int i = 0; i < 100'000; ++i)
            source.append("a paragraph of some words\\par\n");
        Write(Path("long.rtf"), source.append("the end}"));
        RichTextBox box;
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
        timer.start(1);
        QVERIFY(box.LoadFile(Path("long.rtf")));
        QVERIFY(ticks > 0);
        QVERIFY(box.Text().trimmed().startsWith(QStringLiteral("in a table")));
        QVERIFY(box.Text().endsWith(QStringLiteral("the end")));
        QCOMPARE(box.document()->thread(), QThread::currentThread());
        box.setSelStart(0);
        box.setSelText(QStringLiteral("still editable "));
        QVERIFY(box.Text().startsWith(QStringLiteral("still editable ")));
    }

    // What is prepared behind the windows is what the box would make of it itself.
    void ALargeFileIsAsIfItWereSet_data() {
        QTest::addColumn<QByteArray>("source");
        const auto many = [](const char* paragraph) {
            return QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\fs24 ") +
                   QByteArray(paragraph).repeated(2'200'000 / int(qstrlen(paragraph))) + "}";
        };
        QTest::newRow("paragraphs") << many("\\pard\\fi720\\qj The \\b party\\b0  of the first part\\par\n");
        QTest::newRow("bullets and numbers")
            << many("{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}\\pard\\fi-360\\li720 one of them\\par\n");
        QTest::newRow("tables") << many("\\trowd\\trgaph108\\cellx3000\\cellx6000\\pard\\intbl left\\cell "
                                        "right\\cell\\row\\pard between\\par\n");
    }
    void ALargeFileIsAsIfItWereSet() {
        QFETCH(QByteArray, source);
        const QString path = Path("large.rtf");
        Write(path, source);
        RichTextBox set;
        RichTextBox loaded;
        for (RichTextBox* box : {&set, &loaded}) {
            box->setPageLike(true);
            box->resize(900, 400);
        }
        QVERIFY(set.setTextRTF(source));
        QSignalSpy changes(&loaded, &RichTextBox::Change);
        QVERIFY(loaded.LoadFile(path));
        QCOMPARE(changes.size(), 1);
        QVERIFY(loaded.Snapshot() == set.Snapshot());
        for (RichTextBox* box : {&set, &loaded}) {
            box->setSelStart(1000);
            box->setSelText(QStringLiteral("changed"));
        }
        QVERIFY(loaded.Snapshot() == set.Snapshot());
        QVERIFY(loaded.Snapshot().Join().contains("changed"));
    }

    void ALinkStaysALink() {
        Write(Path("target.rtf"), "old");
        QVERIFY(QFile::link(Path("target.rtf"), Path("link.rtf")));
        RichTextBox box;
        box.setText(QStringLiteral("new"));
        QCOMPARE(box.SaveFile(Path("link.rtf")), 0);
        QVERIFY(QFileInfo(Path("link.rtf")).isSymLink());
        QCOMPARE(Read(Path("target.rtf")), box.TextRTF().toLatin1());
    }

    void AFileOfTwoNamesKeepsBoth() {
        Write(Path("one.rtf"), QByteArray(100'000, 'x'));
        QVERIFY(::link(QFile::encodeName(Path("one.rtf")).constData(),
                       QFile::encodeName(Path("two.rtf")).constData()) == 0);
        const QStringList before = QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
        RichTextBox box;
        box.setText(QStringLiteral("new"));
        QCOMPARE(box.SaveFile(Path("one.rtf")), 0);
        QCOMPARE(Read(Path("one.rtf")), box.TextRTF().toLatin1());
        QCOMPARE(Read(Path("two.rtf")), box.TextRTF().toLatin1());
        QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), before);
    }

    void PermissionsAreKept() {
        const QFileDevice::Permissions permissions =
            QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup;
        Write(Path("group.rtf"), "old");
        QVERIFY(QFile::setPermissions(Path("group.rtf"), permissions));
        RichTextBox box;
        box.setText(QStringLiteral("new"));
        QCOMPARE(box.SaveFile(Path("group.rtf")), 0);
        const QFileDevice::Permissions users = QFileDevice::ReadUser | QFileDevice::WriteUser;
        QCOMPARE(QFile::permissions(Path("group.rtf")) & ~users, permissions);
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
        const OrdinaryUser user;
        QTemporaryDir folder;
        if (!folder.isValid() || !user.IsOrdinary())
            QSKIP("this user may write everywhere or nowhere");
        QVERIFY(::chmod(folder.path().toLocal8Bit().constData(), 0500) == 0);
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        QCOMPARE(box.SaveFile(folder.filePath(QStringLiteral("a.rtf"))), 70);
        ::chmod(folder.path().toLocal8Bit().constData(), 0700);
        QVERIFY(QDir(folder.path()).isEmpty());
    }

    void AReadOnlyFileIsPermissionDenied() {
        const OrdinaryUser user;
        QTemporaryDir folder;
        if (!folder.isValid() || !user.IsOrdinary())
            QSKIP("this user may write everywhere or nowhere");
        const QString path = folder.filePath(QStringLiteral("readonly.rtf"));
        Write(path, "x");
        QVERIFY(QFile::setPermissions(path, QFileDevice::ReadOwner));
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        QCOMPARE(box.SaveFile(path), 70);
        QCOMPARE(Read(path), QByteArray("x"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    // A file system of 64 KB of its own, where the machine lets us have one.
    void AFullDiskIsToldAndLeavesTheOldFile() {
        const QString disk = Path("disk");
        if (!Mount(disk))
            QSKIP("no file system can be mounted here");
        const QString path = disk + QStringLiteral("/a.rtf");
        RichTextBox box;
        box.setText(QStringLiteral("small"));
        const int small = box.SaveFile(path);
        const QByteArray before = Read(path);
        box.setText(QString(200'000, u'x'));
        const int large = box.SaveFile(path);
        const QByteArray after = Read(path);
        // one that fits into the buffer of writing, when there is no room at all
        Write(disk + QStringLiteral("/filler"), QByteArray(60 * 1024, 'x'));
        box.setText(QString(2'000, u'y'));
        const int buffered = box.SaveFile(path);
        const QByteArray afterBuffered = Read(path);
        QVERIFY(QFile::remove(disk + QStringLiteral("/filler")));
        const auto files = QDir(disk).entryList(QDir::Files | QDir::Hidden);
        QVERIFY(Run(QStringLiteral("umount"), {disk}));
        QCOMPARE(small, 0);
        QCOMPARE(large, 61);
        QCOMPARE(after, before);
        QCOMPARE(buffered, 61);
        QCOMPARE(afterBuffered, before);
        QCOMPARE(files, QStringList(QStringLiteral("a.rtf")));
    }

    void AFileOfTwoNamesStaysAsItIsOnAFullDisk() {
        const QString disk = Path("twice");
        if (!Mount(disk))
            QSKIP("no file system can be mounted here");
        const QString path = disk + QStringLiteral("/a.rtf");
        Write(path, "old");
        const bool linked = ::link(QFile::encodeName(path).constData(),
                                   QFile::encodeName(disk + QStringLiteral("/b.rtf")).constData()) == 0;
        RichTextBox box;
        QList<int> numbers;
        for (const int size : {200'000, 40'000}) { // no room for the copy; room for that, and no more
            box.setText(QString(size, u'x'));
            numbers.append(box.SaveFile(path));
        }
        const QByteArray after = Read(path);
        const auto files = QDir(disk).entryList(QDir::Files | QDir::Hidden);
        QVERIFY(Run(QStringLiteral("umount"), {disk}));
        QVERIFY(linked);
        QCOMPARE(numbers, (QList<int>{61, 61}));
        QCOMPARE(after, QByteArray("old"));
        QCOMPARE(files, (QStringList{QStringLiteral("a.rtf"), QStringLiteral("b.rtf")}));
    }

    void AReadOnlyDiskIsToldAndLeavesTheOldFile() {
        const QString disk = Path("locked");
        if (!Mount(disk))
            QSKIP("no file system can be mounted here");
        const QString path = disk + QStringLiteral("/a.rtf");
        RichTextBox box;
        box.setText(QStringLiteral("first"));
        const int first = box.SaveFile(path);
        const QByteArray before = Read(path);
        const bool locked =
            Run(QStringLiteral("mount"), {QStringLiteral("-o"), QStringLiteral("remount,ro"), disk});
        box.setText(QStringLiteral("second"));
        const int second = box.SaveFile(path);
        const int fresh = box.SaveFile(disk + QStringLiteral("/b.rtf"));
        const QByteArray after = Read(path);
        QVERIFY(Run(QStringLiteral("umount"), {disk}));
        QVERIFY(locked);
        QCOMPARE(first, 0);
        QCOMPARE(second, 75);
        QCOMPARE(fresh, 75);
        QCOMPARE(after, before);
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
