// The store's process killed in the midst of its writes: what it acknowledged is there, what it was at is
// there as a whole or not at all, and the file is sound. The test starts itself as the victim.
//
// QUILLBROOK_KILL_ROUNDS in the environment gives another number of rounds; see scripts/kill-rounds.sh.
#include "library/library_format.h"
#include "library/library_store.h"
#include "tests/support/library_check.h"
#include "tests/support/test_library.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>
#include <cstdio>
#include <thread>

using namespace quillbrook;

constexpr int kRoundsOfTheSuite = 40;
constexpr int kStartMilliseconds = 20000; // at most, for the victim to come up
constexpr int kMilliseconds = 1000;

static void Tell(const QString& line) {
    std::fputs((line + u'\n').toUtf8().constData(), stdout);
    std::fflush(stdout);
}

// Writes for ever, telling each write before it is begun and again once the store has acknowledged it.
static int WriteForEver(const QString& path, unsigned seed) {
    PublicVariables variables;
    LibraryStore store(variables);
    if (!store.OpenLibrary(path, BuildLibraryPassword()))
        return 2;
    std::optional<StoredForms> forms = ReadForms(variables);
    if (!forms)
        return 3;
    std::mt19937 random(seed);
    Tell(QStringLiteral("ready"));
    for (;;) {
        const StoreWrite write = RandomWrite(*forms, random);
        Tell(write.ToLine());
        if (!write.Run(store))
            return 4;
        Tell(QStringLiteral("done"));
        write.ApplyTo(*forms);
    }
}

// What a victim told: the writes acknowledged, and the one it was at.
struct Told {
    std::vector<StoreWrite> acknowledged;
    std::optional<StoreWrite> begun;
    bool understood = true;
};

static Told Understand(const QByteArray& output) {
    Told told;
    QStringList lines = QString::fromUtf8(output).split(u'\n');
    lines.removeLast(); // empty, or the half of a line
    for (const QString& line : lines) {
        if (line == u"ready"_qs)
            continue;
        if (line == u"done"_qs) {
            told.understood = told.understood && told.begun;
            if (told.begun)
                told.acknowledged.push_back(*told.begun);
            told.begun.reset();
        } else {
            told.begun = StoreWrite::FromLine(line);
            told.understood = told.understood && told.begun;
        }
    }
    return told;
}

class StoreKillTest : public QObject {
    Q_OBJECT

    struct Figures {
        int acknowledged = 0;
        int hitAtOpening = 0;
        int hitBetweenWrites = 0;
        std::array<int, StoreWrite::kKinds> hit{};     // in the midst of a write of each kind
        std::array<int, StoreWrite::kKinds> arrived{}; // of these, those that are there nevertheless
        int journals = 0;                              // left behind
    };

    std::mt19937 m_random{std::random_device{}()};
    Figures m_figures;

    void SleepAtMost(int microseconds) {
        std::this_thread::sleep_for(std::chrono::microseconds(m_random() % unsigned(microseconds)));
    }

    // Lets a victim write, kills it and gives what it told; empty when it ended by itself.
    std::optional<QByteArray> KilledInTheMidst(const QString& path, bool atOpening) {
        QProcess victim;
        victim.start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("--write-for-ever"), path, QString::number(m_random())});
        if (!victim.waitForStarted(kStartMilliseconds))
            return std::nullopt;
        if (atOpening) {
            SleepAtMost(250 * kMilliseconds);
        } else {
            if (!victim.waitForReadyRead(kStartMilliseconds))
                return std::nullopt;
            SleepAtMost(60 * kMilliseconds);
        }
        victim.kill();
        if (!victim.waitForFinished(kStartMilliseconds) || victim.exitStatus() != QProcess::CrashExit)
            return std::nullopt;
        return victim.readAllStandardOutput();
    }

    void Count(const Told& told, bool wroteAtAll) {
        m_figures.acknowledged += int(told.acknowledged.size());
        if (told.begun)
            ++m_figures.hit[size_t(told.begun->kind)];
        else
            ++(wroteAtAll ? m_figures.hitBetweenWrites : m_figures.hitAtOpening);
    }

    void Report(int rounds, qint64 milliseconds) {
        QStringList kinds;
        for (size_t kind = 0; kind < StoreWrite::kKinds; ++kind)
            kinds.append(QStringLiteral("%1 %2 (%3 had arrived)")
                             .arg(NameOf(StoreWrite::Kind(kind)))
                             .arg(m_figures.hit[kind])
                             .arg(m_figures.arrived[kind]));
        qInfo("%d rounds in %lld s: %d writes acknowledged, %d journals left", rounds, milliseconds / 1000,
              m_figures.acknowledged, m_figures.journals);
        qInfo("killed at opening %d, between two writes %d, in the midst of %s", m_figures.hitAtOpening,
              m_figures.hitBetweenWrites, qPrintable(kinds.join(QStringLiteral(", "))));
    }

private Q_SLOTS:
    void AKilledStoreLosesNothingAcknowledgedAndHalvesNothing() {
        bool given = false;
        const int wanted = qEnvironmentVariableIntValue("QUILLBROOK_KILL_ROUNDS", &given);
        const int rounds = given ? wanted : kRoundsOfTheSuite;
        QVERIFY(rounds > 0);
        const TestLibrary library(SomeForms());
        QVERIFY(library.IsMade());
        StoredForms forms = CheckLibrary(library.Path()).forms;
        QCOMPARE(forms.size(), SomeForms().size());
        QElapsedTimer clock;
        clock.start();

        for (int round = 0; round < rounds; ++round) {
            const auto output = KilledInTheMidst(library.Path(), round % 5 == 4);
            QVERIFY(output);
            const Told told = Understand(*output);
            QVERIFY(told.understood);
            Count(told, output->contains("ready"));
            for (const StoreWrite& write : told.acknowledged)
                write.ApplyTo(forms);
            StoredForms finished = forms;
            if (told.begun)
                told.begun->ApplyTo(finished);
            m_figures.journals += QFileInfo::exists(library.Path() + u"-journal"_qs) ? 1 : 0;

            // the next start of the program
            PublicVariables variables;
            LibraryStore store(variables);
            QVERIFY(store.OpenLibrary(library.Path(), BuildLibraryPassword()));
            const auto found = ReadForms(variables);
            QVERIFY(found);
            QVERIFY(FindsFormsByTheirText(store, *found));
            store.CloseLibrary();
            QVERIFY2(*found == forms || *found == finished,
                     qPrintable(u"round %1, %2 acknowledged, then %3"_qs.arg(round)
                                    .arg(told.acknowledged.size())
                                    .arg(told.begun ? told.begun->ToLine() : u"nothing"_qs)));
            if (told.begun && *found == finished)
                ++m_figures.arrived[size_t(told.begun->kind)];
            forms = *found;

            const CheckedLibrary checked = CheckLibrary(library.Path());
            QCOMPARE(checked.problems, QStringList());
            QVERIFY(checked.forms == forms);
            QVERIFY(!QFileInfo::exists(library.Path() + u"-journal"_qs));
        }
        Report(rounds, clock.elapsed());
        QVERIFY(m_figures.acknowledged > rounds);
    }

    // The checks above mean something only if they fail on a file that is not sound.
    void TheCheckSeesASpoiltByte_data() {
        QTest::addColumn<double>("place"); // in parts of the file
        QTest::newRow("in the first page") << 0.01;
        QTest::newRow("in the middle") << 0.5;
        QTest::newRow("near the end") << 0.99;
    }
    void TheCheckSeesASpoiltByte() {
        QFETCH(double, place);
        const TestLibrary library(SomeForms());
        QCOMPARE(CheckLibrary(library.Path()).problems, QStringList());
        QFile file(library.Path());
        QVERIFY(file.open(QIODevice::ReadWrite));
        const qint64 offset = qint64(double(file.size()) * place);
        QVERIFY(file.seek(offset));
        char byte = 0;
        QVERIFY(file.getChar(&byte));
        QVERIFY(file.seek(offset));
        QVERIFY(file.putChar(char(byte ^ 1)));
        file.close();
        QVERIFY(!CheckLibrary(library.Path()).problems.isEmpty());
    }

    void TheCheckSeesAMissingPage() {
        const TestLibrary library(SomeForms());
        QVERIFY(QFile::resize(library.Path(), QFileInfo(library.Path()).size() - 16384));
        QVERIFY(!CheckLibrary(library.Path()).problems.isEmpty());
    }
};

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments[1] == u"--write-for-ever"_qs)
        return WriteForEver(arguments[2], arguments[3].toUInt());
    StoreKillTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "store_kill_test.moc"
