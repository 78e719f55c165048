// The commands of the word processor with a real LibreOffice, and a person who answers it.
#include "platform/word/word_application.h"

#include "output/file_commands.h"
#include "output/print_commands.h"
#include "output/word_commands.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/small_disk.h"
#include "tests/support/writer_desk.h"

#include <QtTest>
#include <QtWidgets>
#include <cerrno>
#include <signal.h>
#include <unistd.h>

using namespace quillbrook;
using platform::MessageIcon;
using platform::WordApplication;

namespace {

const QString kWriterWindow = u"from Quillbrook"_qs;

QByteArray Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(60'000);
    return process.readAllStandardOutput();
}

} // namespace

class WriterTest : public QObject {
    Q_OBJECT

    std::unique_ptr<RealWriter> m_writer;
    QTemporaryDir m_folder;

    QString Path(const QString& name) const { return m_folder.filePath(name); }

    // One instance for the tests of single members, with a new document: a start takes its time.
    std::unique_ptr<WordApplication> m_word;
    WordApplication* Word() {
        if (!m_word)
            m_word = m_writer->Service().CreateWordApplication(nullptr);
        if (!m_word || !m_word->DocumentsAdd())
            return nullptr;
        return m_word.get();
    }

private Q_SLOTS:
    void initTestCase() {
        if (const QString missing = RealWriter::Missing(); !missing.isEmpty())
            QSKIP(qPrintable(missing));
        QVERIFY2(qEnvironmentVariableIsSet("DISPLAY"), "a display is needed");
        m_writer = std::make_unique<RealWriter>();
    }
    void cleanupTestCase() {
        m_word.reset();
        m_writer.reset();
    }
    // What a failed test leaves open would fail those behind it.
    void cleanup() {
        if (!QTest::currentTestFailed() || !m_writer)
            return;
        m_word.reset();
        m_writer = std::make_unique<RealWriter>();
    }

    void SavedDocumentIsAWordFileOfOurPage() {
        WriterDesk desk(*m_writer);
        desk.window->Menu(u"mnuLongSize"_qs)->trigger();
        desk.window.services.commonDialog.files = {Path(u"deed.rtf"_qs)};
        desk.Commands().SaveAsMSDoc();
        QCOMPARE(desk.Messages().size(), std::size_t(1));
        QCOMPARE(desk.Messages()[0].icon, MessageIcon::Information);
        QVERIFY(desk.IsAtRest());
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(m_writer->HasNoLocks());
        const QByteArray kind = Run(u"file"_qs, {u"-b"_qs, Path(u"deed.doc"_qs)});
        QVERIFY2(kind.contains("Composite Document File V2"), kind.constData());
        // what another LibreOffice makes of it
        Run(u"soffice"_qs,
            {u"-env:UserInstallation=file://"_qs + Path(u"reader"_qs), u"--headless"_qs, u"--convert-to"_qs,
             u"pdf"_qs, u"--outdir"_qs, m_folder.path(), Path(u"deed.doc"_qs)});
        const QByteArray facts = Run(u"pdfinfo"_qs, {Path(u"deed.pdf"_qs)});
        QVERIFY2(facts.contains("612 x 936 pts"), facts.constData());
        QVERIFY2(QRegularExpression(u"Pages: +1\n"_qs).match(QString::fromLatin1(facts)).hasMatch(),
                 facts.constData());
        const QByteArray words = Run(u"pdftotext"_qs, {u"-bbox"_qs, Path(u"deed.pdf"_qs), u"-"_qs});
        QVERIFY2(words.contains("xMin=\"72."), words.constData());
    }

    void OpenedDocumentComesAsRichText() {
        // the file is that of the test before
        const auto word = m_writer->Service().CreateWordApplication(nullptr);
        QVERIFY(word);
        platform::SetClipboardRTF("{\\rtf1 before}");
        QVERIFY(!word->DocumentsOpen(Path(u"absent.doc"_qs)));
        QVERIFY(!word->SelectionCopy());
        QVERIFY(word->DocumentsOpen(Path(u"deed.doc"_qs)));
        QVERIFY(word->SelectionWholeStory());
        QVERIFY(word->SelectionCopy());
        platform::RichTextBox pane;
        QVERIFY(pane.setTextRTF(platform::ClipboardRTF()));
        QVERIFY2(pane.Text().startsWith(u"Deed of Sale"), qPrintable(pane.Text()));
        QVERIFY(pane.Text().contains(u"Know all men"));
        pane.setSelStart(int(pane.Text().indexOf(u"Know")));
        pane.setSelLength(4);
        QCOMPARE(pane.SelBold(), std::optional(true));
        pane.setSelStart(0);
        pane.setSelLength(4);
        QVERIFY(pane.SelColor() != std::optional(QColor(Qt::red))); // sent in the automatic colour
        QVERIFY(word->ActiveDocumentClose(platform::wdDoNotSaveChanges));
        QVERIFY(word->Quit(platform::wdDoNotSaveChanges));
        QVERIFY(!word->DocumentsAdd());
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(!QFile::exists(Path(u".~lock.deed.doc#"_qs)));
    }

    // What lay on the clipboard before would be taken for its text.
    void AnEmptyDocumentComesEmpty() {
        WriterDesk desk(*m_writer);
        desk.window->txtContent()->setText(QString());
        desk.window.services.commonDialog.files = {Path(u"empty.doc"_qs), Path(u"empty.doc"_qs)};
        desk.Commands().SaveAsMSDoc();
        QVERIFY(QFile::exists(Path(u"empty.doc"_qs)));
        desk.window->txtContent()->setText(u"before"_qs);
        platform::SetClipboardRTF("{\\rtf1 of another client}");
        desk.window->fileCommands->Open();
        QCOMPARE(desk.window->txtContent()->Text().trimmed(), QString());
        QCOMPARE(desk.window->windowTitle(), u"empty.doc"_qs);
        QVERIFY(m_writer->HasNoProcesses());
    }

    void ADocumentComesWholeWhateverItBeginsWith_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QStringList>("parts");
        const QByteArray table = "\\trowd\\cellx3000\\cellx6000\\intbl first\\cell second\\cell\\row\\pard ";
        QTest::newRow("a table") << table + "behind the table\\par the end\\par"
                                 << QStringList{u"first"_qs, u"second"_qs, u"behind the table"_qs,
                                                u"the end"_qs};
        QTest::newRow("two tables") << table + "between\\par " + QByteArray(table).replace("first", "third") +
                                           "the end\\par"
                                    << QStringList{u"first"_qs, u"second"_qs, u"between"_qs, u"third"_qs,
                                                   u"the end"_qs};
        QTest::newRow("a table in a table")
            << QByteArray("\\pard\\intbl\\itap2 inner\\nestcell second\\nestcell"
                          "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}"
                          "\\pard\\intbl\\itap1 outer\\cell other\\cell"
                          "\\trowd\\cellx3000\\cellx6000\\row\\pard behind\\par the end\\par")
            << QStringList{u"inner"_qs, u"second"_qs, u"outer"_qs, u"other"_qs, u"behind"_qs, u"the end"_qs};
        QTest::newRow("a table of contents")
            << QByteArray("{\\field{\\*\\fldinst TOC \\\\o \"1-3\"}{\\fldrslt entry one\\par entry two\\par}}"
                          "\\pard heading\\par the end\\par")
            << QStringList{u"entry one"_qs, u"entry two"_qs, u"heading"_qs, u"the end"_qs};
        QTest::newRow("nothing else but a table") << table << QStringList{u"first"_qs, u"second"_qs};
    }
    void ADocumentComesWholeWhateverItBeginsWith() {
        QFETCH(QByteArray, body);
        QFETCH(QStringList, parts);
        QFile source(Path(u"table.doc"_qs)); // the word processor goes by what is in the file
        QVERIFY(source.open(QIODevice::WriteOnly));
        source.write("{\\rtf1\\ansi" + body + "}");
        source.close();
        const auto word = m_writer->Service().CreateWordApplication(nullptr);
        QVERIFY(word);
        QVERIFY(word->DocumentsOpen(source.fileName()));
        QVERIFY(word->SelectionWholeStory());
        QVERIFY(word->SelectionCopy());
        QVERIFY(word->ActiveDocumentClose(platform::wdDoNotSaveChanges));
        QVERIFY(word->Quit(platform::wdDoNotSaveChanges));
        platform::RichTextBox pane;
        QVERIFY(pane.setTextRTF(platform::ClipboardRTF()));
        for (const QString& part : parts)
            QVERIFY2(pane.Text().contains(part), qPrintable(pane.Text()));
    }

    void AllTextComesInTheAutomaticColour_data() {
        QTest::addColumn<QByteArray>("body");
        const QByteArray table =
            "\\trowd\\cellx3000\\cellx6000\\intbl\\cf1 left\\cell right\\cell\\row\\pard ";
        QTest::newRow("paragraphs") << QByteArray("\\cf1 one\\par\\cf0 two\\par\\cf1 three\\par");
        QTest::newRow("a table between") << "\\cf1 one\\par " + table + "\\cf1 two\\par";
        QTest::newRow("a table first") << table + "\\cf1 two\\par";
    }
    void AllTextComesInTheAutomaticColour() {
        QFETCH(QByteArray, body);
        WordApplication* word = Word();
        QVERIFY(word);
        platform::SetClipboardRTF("{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}" + body + "}");
        QVERIFY(word->SelectionPaste());
        const auto reds = [&word] {
            if (!word->SelectionWholeStory() || !word->SelectionCopy())
                return -1;
            platform::RichTextBox pane;
            pane.setTextRTF(platform::ClipboardRTF());
            int red = 0;
            for (int at = 0; at < int(pane.Text().size()); ++at) {
                pane.setSelStart(at);
                pane.setSelLength(1);
                red += pane.SelColor() == std::optional(QColor(Qt::red));
            }
            return red;
        };
        QVERIFY(reds() > 0); // it does come in red
        QVERIFY(word->SelectionFontColor(platform::wdColorAutomatic));
        QCOMPARE(reds(), 0);
        QVERIFY(word->ActiveDocumentClose(platform::wdDoNotSaveChanges));
    }

    void ImpossiblePagesAreRefused() {
        using platform::PageLength;
        WordApplication* word = Word();
        QVERIFY(word);
        QVERIFY(word->SetPageSetup(PageLength::PageWidth, 595.44F));
        QVERIFY(!word->SetPageSetup(PageLength::PageWidth, 0));
        QVERIFY(!word->SetPageSetup(PageLength::PageHeight, 1e30F));
        QVERIFY(!word->SetPageSetup(PageLength::PageHeight, std::numeric_limits<float>::quiet_NaN()));
        QVERIFY(!word->SetPageSetup(PageLength::LeftMargin, -7.2F));
        QVERIFY(!word->SetPageSetup(PageLength::LeftMargin, 600));
        QVERIFY(word->SetPageSetup(PageLength::LeftMargin, 36));
        QVERIFY(word->ActiveDocumentClose(platform::wdDoNotSaveChanges));
        QVERIFY(!word->SetPageSetup(PageLength::PageWidth, 612)); // no document
    }

    void ErrorsOfSavingHaveTheirNumbers() {
        WordApplication* word = Word();
        QVERIFY(word);
        QFile open(Path(u"open.doc"_qs));
        QVERIFY(open.open(QIODevice::WriteOnly) && open.write("old") == 3);
        open.close();
        QFile lock(Path(u".~lock.open.doc#"_qs));
        QVERIFY(lock.open(QIODevice::WriteOnly));
        QCOMPARE(word->ActiveDocumentSaveAs(Path(u"open.doc"_qs)), platform::kWordFileInUse);
        QCOMPARE(QFileInfo(Path(u"open.doc"_qs)).size(), 3);
        QCOMPARE(word->ActiveDocumentSaveAs(m_folder.path()), platform::kWordPermissionDenied);
        QCOMPARE(word->ActiveDocumentSaveAs(u"/proc/deed.doc"_qs) == platform::kWordNoError, false);
        QVERIFY(word->ActiveDocumentClose(platform::wdDoNotSaveChanges));
        QVERIFY(word->Quit({}));
        QCOMPARE(word->ActiveDocumentSaveAs(Path(u"gone.doc"_qs)), platform::kWordServerGone);
        QVERIFY(!QFile::exists(Path(u"gone.doc"_qs)));
        m_word.reset();
        QVERIFY(m_writer->HasNoProcesses());
    }

    void ADiskThatTakesNothingIsToldAndAnotherIsAskedFor_data() {
        QTest::addColumn<bool>("full");
        QTest::addColumn<QString>("text");
        QTest::newRow("read-only") << false
                                   << u"Disk is not writable!   \nPlease try another disk drive.   "_qs;
        QTest::newRow("full")
            << true << u"Disk full!   \nPlease delete some files first to gain some disk space!   "_qs;
    }
    void ADiskThatTakesNothingIsToldAndAnotherIsAskedFor() {
        QFETCH(bool, full);
        QFETCH(QString, text);
        SmallDisk disk;
        if (!disk.IsMounted())
            QSKIP("no file system can be mounted here");
        QVERIFY(full ? disk.Fill() : disk.Lock());
        const QStringList before = disk.Files();
        WriterDesk desk(*m_writer);
        desk.window.services.commonDialog.files = {disk.Path(u"deed.doc"_qs)};
        desk.Commands().SaveAsMSDoc(); // the second file dialog is cancelled
        QCOMPARE(desk.Messages().size(), std::size_t(1));
        QCOMPARE(desk.Messages()[0].text, text);
        QCOMPARE(desk.Messages()[0].icon, MessageIcon::Critical);
        QCOMPARE(desk.window.services.commonDialog.filesShown.size(), std::size_t(2));
        QCOMPARE(disk.Files(), before);
        QVERIFY(desk.IsAtRest());
        QVERIFY(m_writer->HasNoProcesses());
    }

    void ThePrintDialogIsWaitedForAndCancelled() {
        WriterDesk desk(*m_writer);
        QVERIFY(desk.window.Show());
        const Meanwhile person([] { return person::Press(u"^Print"_qs, u"Escape"_qs); });
        desk.window->printCommands->Print();
        QVERIFY(person.HasActed());
        QVERIFY(desk.IsAtRest());
        QVERIFY(desk.Messages().empty());
        QVERIFY(desk.window.services.printer.printed.isEmpty()); // not the direct way
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(m_writer->HasNoLocks());
    }

    void WhatIsConfirmedInThePrintDialogIsPrinted() {
        RealWriter writer;
        const QString job = Path(u"printed.pdf"_qs);
        QVERIFY(writer.InstallPrinter(job));
        WriterDesk desk(writer);
        QVERIFY(desk.window.Show());
        desk.window->Menu(u"mnuShortSize"_qs)->trigger();
        const Meanwhile person([] { return person::Press(u"^Print"_qs, u"Return"_qs); });
        desk.window->printCommands->Print();
        QVERIFY(person.HasActed());
        // it is all there when the command ends, on our page and with our text
        const QByteArray facts = Run(u"pdfinfo"_qs, {job});
        QVERIFY2(facts.contains("612 x 792 pts"), facts.constData());
        QVERIFY2(QRegularExpression(u"Pages: +1\n"_qs).match(QString::fromLatin1(facts)).hasMatch(),
                 facts.constData());
        const QByteArray text = Run(u"pdftotext"_qs, {job, u"-"_qs});
        QVERIFY2(text.startsWith("Deed of Sale\nKnow all men"), text.constData());
        QVERIFY(desk.IsAtRest());
        QVERIFY(desk.Messages().empty());
        QVERIFY(desk.window.services.printer.printed.isEmpty());
        QCOMPARE(QApplication::focusWidget(), desk.window->txtContent());
        QVERIFY(writer.HasNoProcesses());
        QVERIFY(writer.HasNoLocks());
    }

    void TheWindowTakesNoInputWhileItWaits() {
        WriterDesk desk(*m_writer);
        QVERIFY(desk.window.Show());
        const QString text = desk.window->txtContent()->Text();
        bool typed = false;
        const Meanwhile person([&] {
            if (person::WindowNamed(u"^Print"_qs) == 0)
                return false;
            if (!typed) {
                typed = person::Press(kHome + u"|Opening Print"_qs, u"x"_qs);
                desk.window->close();
                return false;
            }
            return person::Press(u"^Print"_qs, u"Escape"_qs);
        });
        desk.window->txtContent()->setFocus();
        desk.window->printCommands->Print();
        QVERIFY(typed);
        QCoreApplication::processEvents();
        QCOMPARE(desk.window->txtContent()->Text(), text);
        QVERIFY(desk.window->isVisible());
    }

    void PreviewLastsUntilItsWindowIsClosed() {
        WriterDesk desk(*m_writer);
        QVERIFY(desk.window.Show());
        QElapsedTimer open;
        const Meanwhile person([&open] {
            if (person::WindowNamed(kWriterWindow) == 0)
                return false;
            if (!open.isValid())
                open.start();
            return open.elapsed() > 1500 && person::Close(kWriterWindow);
        });
        desk.window->printCommands->PrintPreview();
        QVERIFY(person.HasActed());
        QVERIFY(open.elapsed() > 1500);
        QVERIFY(desk.IsAtRest());
        QVERIFY(desk.Messages().empty());
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(m_writer->HasNoLocks());
        QCOMPARE(QApplication::focusWidget(), desk.window->txtContent());
    }

    // Its window would stay open then, without the document as it prints.
    void LeavingThePreviewByItsCommandEndsItToo() {
        WriterDesk desk(*m_writer);
        const Meanwhile person([] { return person::Press(kWriterWindow, u"ctrl+shift+o"_qs); });
        desk.window->printCommands->PrintPreview();
        QVERIFY(person.HasActed());
        QVERIFY(desk.IsAtRest());
        QVERIFY(desk.Messages().empty());
        QVERIFY(person::WindowNamed(kWriterWindow) == 0);
        QVERIFY(m_writer->HasNoProcesses());
    }

    // A question would stay open behind the command, in a window that nobody sees.
    void AWindowClosedBeforeItsPreviewIsThereAsksNothing() {
        bool asks = false;
        Accident accident(*m_writer, u"StartPreview"_qs, [&asks] {
            QVERIFY(person::SeesWindow(kWriterWindow));
            QVERIFY(person::Close(kWriterWindow));
            asks = person::SeesWindow(u"^Save Document"_qs, 2000);
        });
        WriterDesk desk(*m_writer);
        desk.window.services.wordProcessor.real = &accident;
        desk.window->printCommands->PrintPreview();
        QVERIFY(accident.Happened());
        QVERIFY(!asks);
        QVERIFY(desk.IsAtRest());
        QVERIFY(desk.Messages().empty());
        QVERIFY(m_writer->HasNoProcesses());
    }

    void ADocumentThatTheUserOpensInOursStaysHis() {
        const QString own = u"^Untitled"_qs;
        WriterDesk desk(*m_writer);
        bool asked = false;
        const Meanwhile person([&] {
            if (!asked)
                asked = person::Press(kWriterWindow, u"ctrl+n"_qs);
            return person::WindowNamed(own) != 0 && person::Close(kWriterWindow);
        });
        desk.window->printCommands->PrintPreview();
        QVERIFY(person.HasActed());
        QVERIFY(desk.IsAtRest());
        QVERIFY(person::WindowNamed(kWriterWindow) == 0);
        m_writer->Restart(); // the program ends and starts again
        QVERIFY(person::WindowNamed(own) != 0);
        QVERIFY(person::Close(own));
        QVERIFY(QTest::qWaitFor([&own] { return person::WindowNamed(own) == 0; }, 10'000));
        QVERIFY(m_writer->EndsWithItsLastWindow());
    }

    void ExportLeavesTheDocumentWithTheUser() {
        {
            WriterDesk desk(*m_writer);
            desk.Commands().ExportPane();
            QVERIFY(desk.IsAtRest());
            QVERIFY(desk.Messages().empty());
        }
        m_writer->Restart(); // the program ends and starts again: what is the user's stays
        QVERIFY(person::SeesWindow(kWriterWindow));
        QVERIFY(!m_writer->Processes().empty());
        // a second command beside it has a profile of its own
        const auto word = m_writer->Service().CreateWordApplication(nullptr);
        QVERIFY(word);
        QVERIFY(word->Quit({}));
        QVERIFY(person::WindowNamed(kWriterWindow) != 0);
        // the user closes it, and does not save
        QVERIFY(person::Close(kWriterWindow));
        bool asks = false;
        QVERIFY(QTest::qWaitFor(
            [&asks] {
                asks = person::Press(u"^Save Document"_qs, u"alt+n"_qs) || asks;
                return person::WindowNamed(kWriterWindow) == 0;
            },
            20'000));
        QVERIFY(asks);
        QVERIFY(m_writer->EndsWithItsLastWindow());
        QVERIFY(m_writer->HasNoLocks());
    }

    void TheUsersOwnLibreOfficeIsLeftAlone() {
        QFile letter(Path(u"letter.txt"_qs));
        QVERIFY(letter.open(QIODevice::WriteOnly) && letter.write("my letter") > 0);
        letter.close();
        QProcess own;
        own.start(u"soffice"_qs, {u"-env:UserInstallation=file://"_qs + Path(u"own"_qs), u"--nologo"_qs,
                                  u"--norestore"_qs, u"--nofirststartwizard"_qs, letter.fileName()});
        QVERIFY(person::SeesWindow(u"letter.txt"_qs, 30'000));
        {
            WriterDesk desk(*m_writer);
            desk.window.services.commonDialog.files = {Path(u"beside.doc"_qs)};
            desk.Commands().SaveAsMSDoc();
            QCOMPARE(desk.Messages().size(), std::size_t(1));
            QCOMPARE(desk.Messages()[0].icon, MessageIcon::Information);
        }
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(person::WindowNamed(u"letter.txt"_qs) != 0);
        const std::vector<pid_t> processes = RealWriter::ProcessesOf(Path(u"own"_qs));
        QVERIFY(!processes.empty());
        for (const pid_t process : processes)
            ::kill(process, SIGKILL);
        own.waitForFinished();
    }

    // Else it is ended by a word processor that dies just when it is spoken to.
    void AWriteToABrokenPipeDoesNotEndTheProgram() {
        QVERIFY(Word());
        int ends[2];
        QCOMPARE(::pipe(ends), 0);
        ::close(ends[0]);
        QCOMPARE(::write(ends[1], "x", 1), ssize_t(-1));
        QCOMPARE(errno, EPIPE);
        ::close(ends[1]);
        m_word.reset();
        m_writer->Restart();
        QVERIFY(m_writer->HasNoProcesses());
    }

    void ADroppedHiddenInstanceEndsWithTheProgram() {
        m_writer->Service().CreateWordApplication(nullptr).reset();
        QVERIFY(!m_writer->Processes().empty());
        m_writer->Restart();
        QVERIFY(m_writer->HasNoProcesses());
    }

    void WithoutTheModuleThereIsNoWordProcessor() {
        platform::WordProcessor none(Path(u"nowhere"_qs), Path(u"pool"_qs));
        QVERIFY(!none.CreateWordApplication(nullptr));
    }
};

QTEST_MAIN(WriterTest)
#include "writer_test.moc"
