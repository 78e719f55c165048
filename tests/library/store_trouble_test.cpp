// What happens to a real file system under the open library: a disk without room, rights taken away, a folder
// that vanishes. Each trouble is had by a process of its own, which gives the number of the first step that
// goes wrong.
#include "library/library_format.h"
#include "library/library_store.h"
#include "tests/support/library_check.h"
#include "tests/support/test_library.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace quillbrook;
using Kind = StoreWrite::Kind;

constexpr int kNotPossibleHere = 77;
constexpr int kMilliseconds = 60000; // at most, for a trouble
constexpr unsigned kNobody = 65534;

namespace {

// The store over a library, with what the library must hold.
struct Running {
    PublicVariables variables;
    LibraryStore store{variables};
    StoredForms forms;
    std::mt19937 random{62};

    bool Open(const QString& path) {
        if (!store.OpenLibrary(path, BuildLibraryPassword()))
            return false;
        forms = ReadForms(variables).value_or(StoredForms());
        return !forms.empty();
    }
    // Writes something of the kind; gives whether it was acknowledged.
    bool Write(Kind kind) {
        const StoreWrite write = RandomWrite(kind, forms, random);
        const bool acknowledged = write.Run(store);
        if (acknowledged)
            write.ApplyTo(forms);
        return acknowledged;
    }
    bool WriteOfEveryKind() {
        bool acknowledged = true;
        for (int kind = 0; kind < StoreWrite::kKinds; ++kind)
            acknowledged = Write(Kind(kind)) && acknowledged;
        return acknowledged;
    }
    bool NoWriteOfAnyKind() {
        for (int kind = 0; kind < StoreWrite::kKinds; ++kind) {
            if (Write(Kind(kind)))
                return false;
        }
        return true;
    }
    bool ShowsItsForms() { return ReadForms(variables) == forms; }
    bool LiesSound(const QString& path) {
        store.CloseLibrary();
        const CheckedLibrary checked = CheckLibrary(path);
        for (const QString& problem : checked.problems)
            qWarning() << problem;
        return checked.problems.isEmpty() && checked.forms == forms;
    }
};

// Fills a disk with forms until it is full, makes room and goes on.
int HaveAFullDisk(const QString& path) {
    const QString filler = QFileInfo(path).path() + u"/filler"_qs;
    {
        QFile file(filler);
        if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(300000, 'x')) != 300000)
            return 2;
    }
    Running running;
    if (!running.Open(path) || !running.WriteOfEveryKind())
        return 3;
    int added = 0;
    while (running.Write(Kind::Add))
        ++added;
    if (added == 0)
        return 4;
    // whatever else succeeds or not on a full disk, the store knows which
    for (int i = 0; i < 40; ++i)
        running.Write(Kind(i % StoreWrite::kKinds));
    if (!running.ShowsItsForms())
        return 5;
    if (!QFile::remove(filler))
        return 6;
    if (!running.Write(Kind::Delete) || !running.Write(Kind::Favorite) || !running.ShowsItsForms())
        return 7;
    return running.LiesSound(path) ? 0 : 8;
}

// Closes it on a full disk: the next start finds what was acknowledged.
int CloseOnAFullDisk(const QString& path) {
    Running running;
    if (!running.Open(path) || !running.WriteOfEveryKind())
        return 2;
    while (running.Write(Kind::Add)) {
    }
    running.store.CloseLibrary();
    Running next;
    if (!next.Open(path) || next.forms != running.forms)
        return 3;
    return next.LiesSound(path) ? 0 : 4;
}

// A file that may not be written from the start: its forms are read, and none is changed.
int HaveAReadOnlyFile(const QString& path) {
    if (!QFile::setPermissions(path, QFile::ReadOwner))
        return 2;
    if (QFileInfo(path).isWritable())
        return kNotPossibleHere;
    QFile file(path);
    const QByteArray before = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    Running running;
    if (!running.Open(path))
        return 3;
    if (!running.NoWriteOfAnyKind() || !running.ShowsItsForms())
        return 4;
    running.store.CloseLibrary();
    if (!file.seek(0) || file.readAll() != before)
        return 5;
    if (!QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner))
        return 6;
    Running next;
    return next.Open(path) && next.WriteOfEveryKind() && next.LiesSound(path) ? 0 : 7;
}

// A file turned read-only while it is open: the right to write it has been given and stays.
int TurnTheFileReadOnly(const QString& path) {
    Running running;
    if (!running.Open(path) || !QFile::setPermissions(path, QFile::ReadOwner))
        return 2;
    if (QFileInfo(path).isWritable())
        return kNotPossibleHere;
    running.WriteOfEveryKind();
    if (!running.ShowsItsForms())
        return 3;
    running.store.CloseLibrary();
    if (!QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner))
        return 4;
    return running.LiesSound(path) ? 0 : 5;
}

// A folder turned read-only while the library is open: no journal can be made in it.
int TurnTheFolderReadOnly(const QString& path) {
    const QString folder = QFileInfo(path).path();
    Running running;
    if (!running.Open(path) || !QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner))
        return 2;
    if (QFileInfo(folder).isWritable())
        return kNotPossibleHere;
    if (!running.NoWriteOfAnyKind() || !running.ShowsItsForms())
        return 3;
    if (!QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
        return 4;
    if (!running.WriteOfEveryKind() || !running.ShowsItsForms())
        return 5;
    return running.LiesSound(path) ? 0 : 6;
}

// A folder that is away for a while.
int MoveTheFolderAway(const QString& path) {
    const QString folder = QFileInfo(path).path();
    const QString away = folder + u" away"_qs;
    Running running;
    if (!running.Open(path) || !QDir().rename(folder, away))
        return 2;
    if (!running.NoWriteOfAnyKind() || !running.ShowsItsForms())
        return 3;
    if (!QDir().rename(away, folder) || !running.WriteOfEveryKind() || !running.ShowsItsForms())
        return 4;
    return running.LiesSound(path) ? 0 : 5;
}

// The same after the first write has left the journal open.
int MoveTheFolderAwayWhileWriting(const QString& path) {
    const QString folder = QFileInfo(path).path();
    const QString away = folder + u" away"_qs;
    Running running;
    if (!running.Open(path) || !running.WriteOfEveryKind() || !QDir().rename(folder, away))
        return 2;
    if (!running.NoWriteOfAnyKind() || !running.ShowsItsForms())
        return 3;
    if (!QDir().rename(away, folder) || !running.WriteOfEveryKind() || !running.ShowsItsForms())
        return 4;
    return running.LiesSound(path) ? 0 : 5;
}

// Another file in the place of the library: what would be written to the old one, no start would find.
int ReplaceTheFile(const QString& path) {
    const QString copy = path + u".copy"_qs;
    Running running;
    if (!QFile::copy(path, copy) || !running.Open(path) || !running.WriteOfEveryKind())
        return 2;
    const StoredForms copied = CheckLibrary(copy).forms;
    if (!QFile::remove(path) || !QFile::rename(copy, path))
        return 3;
    if (!running.NoWriteOfAnyKind() || !running.ShowsItsForms())
        return 4;
    running.store.CloseLibrary();
    const CheckedLibrary checked = CheckLibrary(path);
    return checked.problems.isEmpty() && checked.forms == copied ? 0 : 5;
}

// A folder deleted with all that is in it.
int DeleteTheFolder(const QString& path) {
    Running running;
    if (!running.Open(path) || !running.WriteOfEveryKind())
        return 2;
    if (!QDir(QFileInfo(path).path()).removeRecursively())
        return 3;
    if (!running.NoWriteOfAnyKind() ||
        !running.ShowsItsForms()) // the running program still reads what it has open
        return 4;
    running.store.CloseLibrary();
    Running next;
    return !next.Open(path) && !next.store.SetFavorite(u"Special Power"_qs, 1) ? 0 : 5;
}

struct Trouble {
    const char* name;
    int (*have)(const QString& path);
    bool onSmallDisk;
};

constexpr Trouble kTroubles[] = {
    {"a full disk", &HaveAFullDisk, true},
    {"a full disk at the end", &CloseOnAFullDisk, true},
    {"a read-only file", &HaveAReadOnlyFile, false},
    {"a file turned read-only", &TurnTheFileReadOnly, false},
    {"a folder turned read-only", &TurnTheFolderReadOnly, false},
    {"a folder moved away", &MoveTheFolderAway, false},
    {"a folder moved away while writing", &MoveTheFolderAwayWhileWriting, false},
    {"a replaced file", &ReplaceTheFile, false},
    {"a deleted folder", &DeleteTheFolder, false},
};

// The superuser may do everything, so his rights are given up first.
bool GiveUpTheSuperuser(const QString& folder) {
#ifdef Q_OS_UNIX
    if (::geteuid() != 0)
        return true;
    for (const QString& path : {folder, folder + u"/Data"_qs, folder + u"/Data/Forms.dat"_qs}) {
        if (::chown(QFile::encodeName(path).constData(), kNobody, kNobody) != 0)
            return false;
    }
    return ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
#else
    return false;
#endif
}

int HaveTrouble(const QString& name, const QString& folder) {
    for (const Trouble& trouble : kTroubles) {
        if (name != QLatin1String(trouble.name))
            continue;
        if (!trouble.onSmallDisk && !GiveUpTheSuperuser(folder))
            return kNotPossibleHere;
        return trouble.have(folder + u"/Data/Forms.dat"_qs);
    }
    return 1;
}

// Over a small disk of its own, which goes with the process: "$1" folder of the library, "$2" trouble.
const char* const kOnSmallDisk = R"(
    disk=$(mktemp -d) && mount -t tmpfs -o size=1500k tmpfs "$disk" || exit 77
    mkdir "$disk/Data" && cp "$1/Data/Forms.dat" "$disk/Data/" || exit 77
    "$0" --trouble "$2" "$disk"
    status=$?
    umount "$disk" && rmdir "$disk"
    exit $status
)";

} // namespace

class StoreTroubleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TroubleHarmsNoForm_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("onSmallDisk");
        for (const Trouble& trouble : kTroubles)
            QTest::newRow(trouble.name) << QString::fromLatin1(trouble.name) << trouble.onSmallDisk;
    }
    void TroubleHarmsNoForm() {
        QFETCH(QString, name);
        QFETCH(bool, onSmallDisk);
        const TestLibrary library(SomeForms());
        QVERIFY(library.IsMade());
        const QString program = QCoreApplication::applicationFilePath();
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        if (onSmallDisk)
            process.start(u"unshare"_qs,
                          {u"--map-root-user"_qs, u"--mount"_qs, u"sh"_qs, u"-c"_qs,
                           QString::fromLatin1(kOnSmallDisk), program, library.Folder(), name});
        else
            process.start(program, {u"--trouble"_qs, name, library.Folder()});
        if (onSmallDisk && !process.waitForStarted(kMilliseconds))
            QSKIP("no small disk can be made here");
        QVERIFY(process.waitForFinished(kMilliseconds));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        if (process.exitCode() == kNotPossibleHere || (onSmallDisk && process.exitCode() == 1))
            QSKIP("this machine does not let the test make this trouble");
        QCOMPARE(process.exitCode(), 0);
    }
};

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments[1] == u"--trouble"_qs)
        return HaveTrouble(arguments[2], arguments[3]);
    StoreTroubleTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "store_trouble_test.moc"
