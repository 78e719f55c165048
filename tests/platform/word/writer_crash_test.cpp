// A crash of the program while a real LibreOffice works for it, and the next start.
#include "platform/word/word_application.h"

#include "tests/support/real_writer.h"

#include <QApplication>
#include <QProcess>
#include <QtTest>
#include <cstdio>

namespace {

// What the crashing program does: starts an instance in the pool, hands it over or keeps it, and waits.
int WaitForTheCrash(const QString& pool, bool handsOver) {
    platform::WordProcessor processor(QStringLiteral(QUILLBROOK_BINARY_DIR), pool);
    auto word = processor.CreateWordApplication(nullptr);
    if (!word || !word->DocumentsAdd())
        return 1;
    if (handsOver) {
        word->SetVisible(true);
        word.reset();
    }
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}

} // namespace

class WriterCrashTest : public QObject {
    Q_OBJECT

    // False when the program does not come so far as to crash.
    static bool Crash(const RealWriter& writer, bool handsOver) {
        QProcess program;
        program.start(QApplication::applicationFilePath(),
                      {handsOver ? QStringLiteral("--hand-over") : QStringLiteral("--keep"), writer.Pool()});
        const bool isReady = program.waitForReadyRead(60'000) && program.readAllStandardOutput() == "ready\n";
        program.kill();
        return program.waitForFinished() && isReady;
    }

private Q_SLOTS:
    void initTestCase() {
        if (const QString missing = RealWriter::Missing(); !missing.isEmpty())
            QSKIP(qPrintable(missing));
    }

    void WhatItLeftBehindIsEndedAtTheNextStart() {
        RealWriter writer;
        QVERIFY(Crash(writer, false));
        QVERIFY(!writer.Processes().empty());
        QVERIFY(!writer.HasNoLocks());
        writer.Restart();
        QVERIFY(writer.HasNoProcesses());
        QVERIFY(writer.HasNoLocks());
        const auto word = writer.Service().CreateWordApplication(nullptr);
        QVERIFY(word);
        QVERIFY(word->DocumentsAdd());
        QVERIFY(word->Quit({}));
        QVERIFY(writer.HasNoProcesses());
    }

    void WhatTheUserHadByThenStaysHis() {
        RealWriter writer;
        QVERIFY(Crash(writer, true));
        writer.Restart();
        QVERIFY(person::SeesWindow(QStringLiteral("Untitled")));
        QVERIFY(!writer.Processes().empty());
    }
};

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == QStringLiteral("--keep"))
        return WaitForTheCrash(arguments[2], false);
    if (arguments.size() == 3 && arguments[1] == QStringLiteral("--hand-over"))
        return WaitForTheCrash(arguments[2], true);
    WriterCrashTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "writer_crash_test.moc"
