// Every single change of the files that a write of the store makes fails once, in every way that files fail:
// the write then says so and the forms are as before, or it says nothing and they are as wanted.
#include "library/library_format.h"
#include "library/library_store.h"
#include "tests/support/faulty_files.h"
#include "tests/support/library_check.h"
#include "tests/support/test_library.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillbrook;
using Fault = FaultyFiles::Fault;
using Kind = StoreWrite::Kind;

Q_DECLARE_METATYPE(FaultyFiles::Fault)
Q_DECLARE_METATYPE(StoreWrite::Kind)

constexpr int kMostChanges = 200; // of the files in one write; more than any makes
constexpr int kCutsEach = 6;      // what a power cut leaves is chance, so each is made several times

class StoreFaultTest : public QObject {
    Q_OBJECT

    struct Opened {
        FaultyFiles files;
        TestLibrary library{SomeForms()};
        PublicVariables variables;
        LibraryStore store{variables};
        StoredForms forms;
        std::mt19937 random{26};

        // Some own forms of several pages, so that a write changes more than one.
        bool Fill() {
            if (!store.OpenLibrary(library.Path(), BuildLibraryPassword()))
                return false;
            forms = ReadForms(variables).value_or(StoredForms());
            for (int i = 0; i < 6; ++i) {
                const StoreWrite write = RandomWrite(Kind::Add, forms, random);
                if (!write.Run(store))
                    return false;
                write.ApplyTo(forms);
            }
            return ReadForms(variables) == forms;
        }
        ~Opened() { store.CloseLibrary(); }
    };

    // The files as they lie there, looked at beside the running store.
    static CheckedLibrary CheckCopy(const QString& path) {
        QTemporaryDir folder;
        const QString copy = folder.filePath(u"copy"_qs);
        QFile::copy(path, copy);
        QFile::copy(path + u"-journal"_qs, copy + u"-journal"_qs);
        return CheckLibrary(copy);
    }

    static QString Difference(const StoredForms& found, const StoredForms& wanted) {
        QStringList told;
        for (const auto& [title, form] : wanted) {
            const auto there = found.find(title);
            if (there == found.end())
                told.append(u"missing: "_qs + title);
            else if (there->second != form)
                told.append(u"changed: "_qs + title);
        }
        for (const auto& [title, form] : found) {
            if (!wanted.contains(title))
                told.append(u"too much: "_qs + title);
        }
        return told.join(u", "_qs);
    }

    static void AddKinds(const std::function<void(Kind, const QByteArray&)>& row) {
        for (int kind = 0; kind < StoreWrite::kKinds; ++kind)
            row(Kind(kind), NameOf(Kind(kind)).toUtf8());
    }

private Q_SLOTS:
    void AFailureAtAnyChangeOfTheFilesHarmsNothing_data() {
        QTest::addColumn<Kind>("kind");
        QTest::addColumn<Fault>("fault");
        QTest::addColumn<bool>("once");
        AddKinds([](Kind kind, const QByteArray& name) {
            for (const bool once : {true, false}) {
                const QByteArray tail = once ? ", once" : ", from then on";
                QTest::newRow(name + ", disk full" + tail) << kind << Fault::DiskFull << once;
                QTest::newRow(name + ", torn write" + tail) << kind << Fault::TornWrite << once;
                QTest::newRow(name + ", not brought to the disk" + tail) << kind << Fault::SyncError << once;
                QTest::newRow(name + ", nothing can be changed" + tail) << kind << Fault::Dead << once;
            }
        });
    }
    void AFailureAtAnyChangeOfTheFilesHarmsNothing() {
        QFETCH(Kind, kind);
        QFETCH(Fault, fault);
        QFETCH(bool, once);
        Opened opened;
        QVERIFY(opened.Fill());
        int changes = 0;
        int refused = 0;
        for (bool failed = true; failed && changes < kMostChanges; ++changes) {
            const StoreWrite write = RandomWrite(kind, opened.forms, opened.random);
            opened.files.FailAfter(changes, fault, once);
            const bool acknowledged = write.Run(opened.store);
            failed = opened.files.HasFailed();
            QVERIFY(acknowledged || failed);
            StoredForms finished = opened.forms;
            write.ApplyTo(finished);
            if (acknowledged)
                opened.forms = finished;
            else
                ++refused;
            const auto during = ReadForms(opened.variables);
            opened.files.Heal();
            const auto after = ReadForms(opened.variables);
            QVERIFY(after && (!during || *during == *after));
            // a disk that does not come back at the very end of a write leaves it in doubt, but whole
            const bool mayBeInDoubt = failed && !once && fault != Fault::DiskFull;
            if (mayBeInDoubt && *after == finished)
                opened.forms = finished;
            QVERIFY2(*after == opened.forms, qPrintable(Difference(*after, opened.forms)));
            const CheckedLibrary checked = CheckCopy(opened.library.Path());
            QVERIFY2(checked.problems.isEmpty(), qPrintable(checked.problems.join(u'\n')));
            QVERIFY2(checked.forms == opened.forms, qPrintable(Difference(checked.forms, opened.forms)));
        }
        QVERIFY(changes < kMostChanges); // the last one was not disturbed any more
        QVERIFY(refused > 0);
        // and the store goes on as if nothing had been
        const StoreWrite next = RandomWrite(opened.forms, opened.random);
        QVERIFY(next.Run(opened.store));
        next.ApplyTo(opened.forms);
        QVERIFY(FindsFormsByTheirText(opened.store, opened.forms));
        opened.store.CloseLibrary();
        const CheckedLibrary closed = CheckLibrary(opened.library.Path());
        QCOMPARE(closed.problems, QStringList());
        QVERIFY(closed.forms == opened.forms);
    }

    void APowerCutAtAnyMomentLosesNothingAcknowledged_data() {
        QTest::addColumn<Kind>("kind");
        AddKinds([](Kind kind, const QByteArray& name) { QTest::newRow(name) << kind; });
    }
    void APowerCutAtAnyMomentLosesNothingAcknowledged() {
        QFETCH(Kind, kind);
        int arrived = 0;
        int lost = 0;
        bool reached = true;
        for (int changes = 0; reached; ++changes) {
            QVERIFY(changes < kMostChanges);
            Opened opened;
            QVERIFY(opened.Fill());
            const StoreWrite write = RandomWrite(kind, opened.forms, opened.random);
            opened.files.FailAfter(changes, Fault::Dead);
            const bool acknowledged = write.Run(opened.store);
            reached = opened.files.HasFailed();
            opened.files.Heal();
            StoredForms finished = opened.forms;
            write.ApplyTo(finished);
            for (int cut = 0; cut < kCutsEach; ++cut) {
                QTemporaryDir left;
                QVERIFY(opened.files.LeaveAfterPowerCut(left.path(), opened.random));
                const CheckedLibrary checked = CheckLibrary(left.filePath(u"Forms.dat"_qs));
                QVERIFY2(checked.problems.isEmpty(), qPrintable(checked.problems.join(u'\n')));
                QVERIFY2(checked.forms == finished || (!acknowledged && checked.forms == opened.forms),
                         qPrintable(u"%1 after %2 changes"_qs.arg(acknowledged ? u"lost"_qs : u"halved"_qs)
                                        .arg(changes)));
                ++(checked.forms == finished ? arrived : lost);
            }
        }
        QVERIFY(arrived > 0 && lost > 0);
    }
};

QTEST_GUILESS_MAIN(StoreFaultTest)
#include "store_fault_test.moc"
