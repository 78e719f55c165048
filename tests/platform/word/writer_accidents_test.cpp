// A LibreOffice that dies or hangs in the middle of a command, and what a crash of ours leaves of it.
#include "platform/word/word_application.h"

#include "output/file_commands.h"
#include "output/print_commands.h"
#include "output/word_commands.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/writer_desk.h"

#include <QtTest>
#include <QtWidgets>
#include <signal.h>

using namespace quillbrook;

class WriterAccidentsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<RealWriter> m_writer;
    QTemporaryDir m_folder;

    QString Path(const QString& name) const { return m_folder.filePath(name); }

private Q_SLOTS:
    void initTestCase() {
        if (const QString missing = RealWriter::Missing(); !missing.isEmpty())
            QSKIP(qPrintable(missing));
        QVERIFY2(qEnvironmentVariableIsSet("DISPLAY"), "a display is needed");
        m_writer = std::make_unique<RealWriter>();
        WriterDesk desk(*m_writer);
        desk.window.services.commonDialog.files = {Path(u"deed.doc"_qs)};
        desk.Commands().SaveAsMSDoc(); // what is opened below
        QVERIFY(QFile::exists(Path(u"deed.doc"_qs)));
    }
    void cleanupTestCase() { m_writer.reset(); }

    void KillingItEndsTheCommand_data() {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("call");
        QTest::newRow("export, at the paste") << u"export"_qs << u"Paste"_qs;
        QTest::newRow("print, before the dialog") << u"print"_qs << u"Dialog"_qs;
        QTest::newRow("print, in the dialog") << u"print"_qs << u"later"_qs;
        QTest::newRow("preview, in the preview") << u"preview"_qs << u"PrintPreview"_qs;
        QTest::newRow("save, at the page") << u"save"_qs << u"PageSetup"_qs;
        QTest::newRow("save, at the end") << u"save"_qs << u"Quit"_qs;
        QTest::newRow("open, at the copy") << u"open"_qs << u"Copy"_qs;
    }
    void KillingItEndsTheCommand() {
        QFETCH(QString, command);
        QFETCH(QString, call);
        WriterDesk desk(*m_writer);
        QElapsedTimer since;
        bool killed = false;
        const auto kill = [&] {
            m_writer->Signal(SIGKILL);
            killed = true;
            since.start();
        };
        Accident accident(*m_writer, call, kill);
        desk.window.services.wordProcessor.real = &accident;
        const Meanwhile later([&] {
            if (call != u"later" || person::WindowNamed(u"^Print"_qs) == 0)
                return false;
            kill();
            return true;
        });
        if (command == u"export") {
            desk.Commands().ExportPane();
        } else if (command == u"print") {
            desk.window->printCommands->Print();
        } else if (command == u"preview") {
            desk.window->printCommands->PrintPreview();
        } else if (command == u"save") {
            desk.window.services.commonDialog.files = {Path(u"killed.doc"_qs)};
            desk.Commands().SaveAsMSDoc();
        } else {
            QGuiApplication::clipboard()->clear();
            desk.window.services.commonDialog.files = {Path(u"deed.doc"_qs)};
            desk.window->fileCommands->Open();
            QCOMPARE(desk.Messages().size(), std::size_t(1));
            QVERIFY(desk.Messages()[0].text.startsWith(u"An error occured while opening"));
            desk.window->SetCaption(kHome); // this one leaves its own
        }
        QVERIFY(killed);
        QVERIFY2(since.elapsed() < 10'000, qPrintable(QString::number(since.elapsed())));
        QVERIFY(desk.IsAtRest());
        if (call == u"PageSetup") { // the error is told, and nothing is saved
            QCOMPARE(desk.Messages().size(), std::size_t(1));
            QCOMPARE(desk.Messages()[0].text, u"Error in saving file!   \n"_qs);
            QVERIFY(!QFile::exists(Path(u"killed.doc"_qs)));
        }
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(m_writer->HasNoLocks());
    }

    void OneThatHangsIsEndedWithinTenSeconds() {
        WriterDesk desk(*m_writer);
        QElapsedTimer since;
        Accident accident(*m_writer, u"WholeStory"_qs, [&] {
            m_writer->Signal(SIGSTOP);
            since.start();
        });
        desk.window.services.wordProcessor.real = &accident;
        desk.window.services.commonDialog.files = {Path(u"hung.doc"_qs)};
        desk.Commands().SaveAsMSDoc();
        QVERIFY(accident.Happened());
        QVERIFY2(since.elapsed() < 11'000, qPrintable(QString::number(since.elapsed())));
        QCOMPARE(desk.Messages().size(), std::size_t(1));
        QCOMPARE(desk.Messages()[0].text, u"Error in saving file!   \n"_qs);
        QVERIFY(desk.IsAtRest());
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(m_writer->HasNoLocks());
    }

    void OrphansOfACrashAreEndedAtTheNextStart() {
        auto word = m_writer->Service().CreateWordApplication(nullptr);
        QVERIFY(word);
        QVERIFY(word->DocumentsAdd());
        m_writer->Crash();
        QVERIFY(!m_writer->Processes().empty());
        const platform::WordProcessor nextStart(QStringLiteral(QUILLBROOK_BINARY_DIR), m_writer->Pool());
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(!word->SelectionPaste());
        word.reset();
        QVERIFY(m_writer->HasNoLocks());
    }
};

QTEST_MAIN(WriterAccidentsTest)
#include "writer_accidents_test.moc"
