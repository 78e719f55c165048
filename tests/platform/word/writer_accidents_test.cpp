// What the commands do with a real LibreOffice that dies or hangs in the middle of them.
#include "output/file_commands.h"
#include "output/print_commands.h"
#include "output/spelling_command.h"
#include "output/word_commands.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/writer_desk.h"

#include <QtTest>
#include <QtWidgets>
#include <signal.h>

using namespace quillbrook;

namespace {

const QString kNotSaved = u"Error in saving file!   \n"_qs;
const QString kChecked = u"Spell & Grammar Check completed!   "_qs;

// The window with a form on its edit page, and a folder with a document.
struct Desk {
    explicit Desk(platform::WordProcessorService& word) {
        window.services.wordProcessor.real = &word;
        window->SetTab(Tab::EditForm);
        window->txtContent()->setTextRTF(QByteArray("{\\rtf1\\ansi Deed of Sale\\par}"));
        QFile document(Path(u"old.doc"_qs)); // the word processor goes by what is in it
        hasDocument = document.open(QIODevice::WriteOnly) && document.write("{\\rtf1 An old deed\\par}") > 0;
        QGuiApplication::clipboard()->clear();
    }

    QString Path(const QString& name) const { return folder.filePath(name); }
    void Run(const QString& command) {
        auto& files = window.services.commonDialog.files;
        if (command == u"export") {
            window->wordCommands->ExportPane();
        } else if (command == u"print") {
            window->printCommands->Print();
        } else if (command == u"preview") {
            window->printCommands->PrintPreview();
        } else if (command == u"save") {
            files = {Path(u"new.doc"_qs)};
            window->wordCommands->SaveAsMSDoc();
        } else if (command == u"open") {
            files = {Path(u"old.doc"_qs)};
            window->fileCommands->Open();
        } else if (command == u"check") {
            window->spellingCommand->CheckSpelling();
        }
    }
    // All that was told, one a line.
    QString Told() const {
        QString told;
        for (const auto& message : window.services.messageBox.shown)
            told += message.text;
        return told;
    }
    bool IsAtRest(const QString& caption = kHome) {
        return window->windowTitle() == caption && !QGuiApplication::overrideCursor() &&
               !window->Variables().WordApp;
    }

    QTemporaryDir folder;
    TestWindow window;
    bool hasDocument = false;
};

// What the user is told when the command's word processor is gone from a call on.
QString ToldAfter(const QString& command, const QString& call) {
    if (command == u"save")
        return call == u"Close" || call == u"Quit" ? u"Form successfully saved as:   \nnew.doc   "_qs
                                                   : kNotSaved;
    if (command == u"open")
        return u"An error occured while opening old.doc.   "_qs;
    return command == u"check" ? kChecked : QString();
}

} // namespace

class WriterAccidentsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<RealWriter> m_writer;

    // The command ends as it is to end without a word processor, and nothing is left of that one.
    void AnAccidentEndsTheCommand(int signal, int longest) {
        QFETCH(QString, command);
        QFETCH(QString, call);
        QElapsedTimer since;
        Accident accident(*m_writer, call, [&] {
            m_writer->Signal(signal);
            since.start();
        });
        Desk desk(accident);
        QVERIFY(desk.hasDocument);
        desk.Run(command);
        const qint64 taken = since.isValid() ? since.elapsed() : 0;
        QVERIFY(accident.Happened());
        QVERIFY2(taken < longest, qPrintable(QString::number(taken)));
        QCOMPARE(desk.Told(), ToldAfter(command, call));
        QVERIFY(desk.IsAtRest(command == u"open" ? u"Converting old.doc..."_qs : kHome));
        QCOMPARE(desk.window->txtContent()->Text(), u"Deed of Sale"_qs);
        QVERIFY(desk.window.services.printer.printed.isEmpty()); // nor the direct way
        QCOMPARE(QFile::exists(desk.Path(u"new.doc"_qs)),
                 command == u"save" && (call == u"Close" || call == u"Quit"));
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(m_writer->HasNoLocks());
    }
    static void Columns() {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("call");
    }

private Q_SLOTS:
    void initTestCase() {
        if (const QString missing = RealWriter::Missing(); !missing.isEmpty())
            QSKIP(qPrintable(missing));
        QVERIFY2(qEnvironmentVariableIsSet("DISPLAY"), "a display is needed");
        m_writer = std::make_unique<RealWriter>();
    }
    void cleanupTestCase() { m_writer.reset(); }

    void KillingItEndsTheCommand_data() {
        Columns();
        QTest::newRow("export, at the paste") << u"export"_qs << u"Paste"_qs;
        QTest::newRow("export, when it comes to the front") << u"export"_qs << u"Activate"_qs;
        QTest::newRow("print, before the dialog") << u"print"_qs << u"Dialog"_qs;
        QTest::newRow("preview, before it") << u"preview"_qs << u"StartPreview"_qs;
        QTest::newRow("preview, in it") << u"preview"_qs << u"PrintPreview"_qs;
        QTest::newRow("save, at the page") << u"save"_qs << u"PageSetup"_qs;
        QTest::newRow("save, at the file") << u"save"_qs << u"SaveAs"_qs;
        QTest::newRow("save, when it is closed") << u"save"_qs << u"Close"_qs;
        QTest::newRow("save, at the end") << u"save"_qs << u"Quit"_qs;
        QTest::newRow("open, at the file") << u"open"_qs << u"Open"_qs;
        QTest::newRow("open, at the copy") << u"open"_qs << u"Copy"_qs;
        QTest::newRow("check, at the check") << u"check"_qs << u"CheckGrammar"_qs;
        QTest::newRow("check, at the cut") << u"check"_qs << u"Cut"_qs;
    }
    void KillingItEndsTheCommand() { AnAccidentEndsTheCommand(SIGKILL, 5'000); }

    void OneThatHangsIsEndedWithinTenSeconds_data() {
        Columns();
        QTest::newRow("export") << u"export"_qs << u"Paste"_qs;
        QTest::newRow("print") << u"print"_qs << u"Dialog"_qs;
        QTest::newRow("preview") << u"preview"_qs << u"StartPreview"_qs;
        QTest::newRow("save") << u"save"_qs << u"SaveAs"_qs;
        QTest::newRow("save, at the end") << u"save"_qs << u"Quit"_qs;
        QTest::newRow("open") << u"open"_qs << u"Open"_qs;
        QTest::newRow("check") << u"check"_qs << u"CheckGrammar"_qs;
    }
    void OneThatHangsIsEndedWithinTenSeconds() { AnAccidentEndsTheCommand(SIGSTOP, 10'000); }

    // Whichever call comes first waits until the document is laid out.
    void OneThatIsBusyWithALargeDocumentIsWaitedForLonger_data() {
        QTest::addColumn<QString>("call");
        for (const char* call : {"WholeStory", "HomeKey", "CheckGrammar", "Close"})
            QTest::newRow(call) << QString::fromLatin1(call);
    }
    void OneThatIsBusyWithALargeDocumentIsWaitedForLonger() {
        QFETCH(QString, call);
        Accident accident(*m_writer, call, [this] {
            m_writer->Signal(SIGSTOP);
            QTimer::singleShot(10'000, this, [this] { m_writer->Signal(SIGCONT); });
        });
        const auto word = accident.CreateWordApplication(nullptr);
        QVERIFY(word);
        QVERIFY(word->DocumentsAdd());
        platform::SetClipboardRTF("{\\rtf1{\\*\\unknown " + QByteArray(2'000'000, 'x') + "}A deed\\par}");
        QVERIFY(word->SelectionPaste());
        QVERIFY(word->SelectionWholeStory());
        QVERIFY(word->SelectionHomeKey(platform::wdStory));
        QVERIFY(word->SetCheckGrammarWithSpelling(true));
        QVERIFY(word->ActiveDocumentCheckGrammar());
        QVERIFY(word->ActiveDocumentClose(platform::wdDoNotSaveChanges));
        QVERIFY(word->Quit(platform::wdDoNotSaveChanges));
        QVERIFY(accident.Happened());
        QVERIFY(m_writer->HasNoProcesses());
    }

    void WhatAssistiveTechnologyChoosesMeanwhileDoesNothing() {
        bool chosen = false;
        bool opened = false;
        TestWindow* window = nullptr;
        Accident accident(*m_writer, u"Paste"_qs, [&] {
            QTimer::singleShot(0, &**window, [&] {
                chosen = true;
                (*window)->Menu(u"mnuPageSetup"_qs)->trigger();
            });
        });
        QTimer close;
        connect(&close, &QTimer::timeout, &close, [&opened] {
            if (QWidget* dialog = QApplication::activeModalWidget()) {
                opened = true;
                dialog->hide();
            }
        });
        close.start(200);
        Desk desk(accident);
        window = &desk.window;
        desk.Run(u"save"_qs);
        QVERIFY(chosen);
        QVERIFY(!opened);
        desk.window->Menu(u"mnuPageSetup"_qs)->trigger();
        QVERIFY(opened);
    }

    void OneThatHangsWhileItStartsIsEndedWithinTenSeconds_data() {
        QTest::addColumn<int>("milliseconds"); // after its start
        QTest::newRow("at once") << 0;
        QTest::newRow("later") << 250;
    }
    void OneThatHangsWhileItStartsIsEndedWithinTenSeconds() {
        QFETCH(int, milliseconds);
        Desk desk(m_writer->Service());
        QElapsedTimer since;
        const Meanwhile halt([&, start = QElapsedTimer()]() mutable {
            if (m_writer->Processes().empty())
                return false;
            if (!start.isValid())
                start.start();
            if (start.elapsed() < milliseconds)
                return false;
            m_writer->Signal(SIGSTOP);
            since.start();
            return true;
        });
        desk.Run(u"export"_qs);
        QVERIFY(halt.HasActed());
        QVERIFY2(since.elapsed() < 10'000, qPrintable(QString::number(since.elapsed())));
        QVERIFY2(desk.Told().startsWith(u"An error occurred while exporting"), qPrintable(desk.Told()));
        QVERIFY(desk.IsAtRest());
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(m_writer->HasNoLocks());
    }

    void TheNextCommandWorksRightAfterAnAccident() {
        bool killed = false;
        Accident accident(*m_writer, u"Paste"_qs, [&] {
            m_writer->Signal(SIGKILL);
            killed = true;
        });
        Desk desk(accident);
        desk.Run(u"save"_qs);
        QVERIFY(killed);
        QVERIFY(!QFile::exists(desk.Path(u"new.doc"_qs)));
        desk.Run(u"save"_qs);
        QVERIFY(QFile::exists(desk.Path(u"new.doc"_qs)));
        desk.Run(u"open"_qs);
        QCOMPARE(desk.window->txtContent()->Text().trimmed(), u"An old deed"_qs);
        QVERIFY(m_writer->HasNoProcesses());
    }
};

QTEST_MAIN(WriterAccidentsTest)
#include "writer_accidents_test.moc"
