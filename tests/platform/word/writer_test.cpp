// The commands of the word processor with a real LibreOffice, and a person who answers it.
#include "platform/word/word_application.h"

#include "output/file_commands.h"
#include "output/print_commands.h"
#include "output/word_commands.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/real_writer.h"
#include "tests/support/small_disk.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>
#include <signal.h>

using namespace quillbrook;
using platform::MessageIcon;
using platform::WordApplication;

namespace {

const QString kHome = u"Quillbrook by Atty. Merrow"_qs;
const QString kWriterWindow = u"from Quillbrook"_qs;

QByteArray Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(60'000);
    return process.readAllStandardOutput();
}

// The window over the real word processor.
struct Desk {
    explicit Desk(RealWriter& writer) {
        window.services.wordProcessor.real = &writer.Service();
        window->SetTab(Tab::EditForm);
        window->txtContent()->setTextRTF(QByteArray("{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}\\cf1 "
                                                    "Deed of Sale\\par {\\b Know all men}\\par}"));
    }

    std::vector<ScriptedMessageBox::Shown>& Messages() { return window.services.messageBox.shown; }
    WordCommands& Commands() { return *window->wordCommands; }
    bool IsAtRest() {
        return window->windowTitle() == kHome && !QGuiApplication::overrideCursor() &&
               !window->Variables().WordApp;
    }

    TestWindow window;
};

// Tries `act` again and again while a command waits for the word processor, until it does something.
class Meanwhile {
public:
    explicit Meanwhile(std::function<bool()> act) {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, act] {
            m_timer.stop();
            m_acted = act();
            if (!m_acted)
                m_timer.start();
        });
        m_timer.start(100);
    }
    bool HasActed() const { return m_acted; }

private:
    QTimer m_timer;
    bool m_acted = false;
};

// Does something to the word processor right before one of the calls of a command.
class Accident final : public platform::WordProcessorService {
public:
    Accident(RealWriter& writer, QString call, std::function<void()> happen)
        : m_writer(writer)
        , m_call(std::move(call))
        , m_happen(std::move(happen)) {}

    std::unique_ptr<WordApplication> CreateWordApplication(QWidget* window) override;
    void Before(const char* call) {
        if (m_call == QLatin1String(call) && !m_happened) {
            m_happened = true;
            m_happen();
        }
    }
    bool Happened() const { return m_happened; }

private:
    RealWriter& m_writer;
    QString m_call;
    std::function<void()> m_happen;
    bool m_happened = false;
};

class UnluckyApplication final : public WordApplication {
public:
    UnluckyApplication(std::unique_ptr<WordApplication> word, Accident& accident)
        : m_word(std::move(word))
        , m_accident(accident) {}

    bool SetVisible(bool visible) override { return At("Visible")->SetVisible(visible); }
    bool SetCaption(const QString& caption) override { return At("Caption")->SetCaption(caption); }
    bool DocumentsAdd() override { return At("Add")->DocumentsAdd(); }
    bool DocumentsOpen(const QString& path) override { return At("Open")->DocumentsOpen(path); }
    bool SelectionPaste() override { return At("Paste")->SelectionPaste(); }
    bool SelectionWholeStory() override { return At("WholeStory")->SelectionWholeStory(); }
    bool SelectionFontColor(int color) override { return At("Color")->SelectionFontColor(color); }
    bool SelectionHomeKey(int unit) override { return At("HomeKey")->SelectionHomeKey(unit); }
    bool SelectionCopy() override { return At("Copy")->SelectionCopy(); }
    bool SelectionCut() override { return At("Cut")->SelectionCut(); }
    std::optional<float> InchesToPoints(float inches) override {
        return At("InchesToPoints")->InchesToPoints(inches);
    }
    bool SetPageSetup(platform::PageLength length, float points) override {
        return At("PageSetup")->SetPageSetup(length, points);
    }
    bool WindowsApplicationActivate() override { return At("Activate")->WindowsApplicationActivate(); }
    bool ShowDialog(int dialog) override { return At("Dialog")->ShowDialog(dialog); }
    bool ActiveDocumentPrintPreview() override { return At("StartPreview")->ActiveDocumentPrintPreview(); }
    bool SetPageFit(int fit) override { return At("PageFit")->SetPageFit(fit); }
    bool PrintPreview() override { return At("PrintPreview")->PrintPreview(); }
    bool SetCheckGrammarWithSpelling(bool check) override {
        return At("Options")->SetCheckGrammarWithSpelling(check);
    }
    bool ActiveDocumentCheckGrammar() override { return At("CheckGrammar")->ActiveDocumentCheckGrammar(); }
    bool ActiveDocumentSelect() override { return At("Select")->ActiveDocumentSelect(); }
    int ActiveDocumentSaveAs(const QString& path) override {
        return At("SaveAs")->ActiveDocumentSaveAs(path);
    }
    bool ActiveDocumentClose(int saveChanges) override {
        return At("Close")->ActiveDocumentClose(saveChanges);
    }
    bool Quit(std::optional<int> saveChanges) override { return At("Quit")->Quit(saveChanges); }

private:
    WordApplication* At(const char* call) {
        m_accident.Before(call);
        return m_word.get();
    }

    std::unique_ptr<WordApplication> m_word;
    Accident& m_accident;
};

std::unique_ptr<WordApplication> Accident::CreateWordApplication(QWidget* window) {
    auto word = m_writer.Service().CreateWordApplication(window);
    return word ? std::make_unique<UnluckyApplication>(std::move(word), *this) : nullptr;
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

    void SavedDocumentIsAWordFileOfOurPage() {
        Desk desk(*m_writer);
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

    void ADocumentThatBeginsWithATableComesWhole() {
        QFile source(Path(u"table.doc"_qs)); // the word processor goes by what is in the file
        QVERIFY(source.open(QIODevice::WriteOnly));
        source.write("{\\rtf1\\ansi\\trowd\\cellx3000\\cellx6000\\intbl first\\cell second\\cell\\row"
                     "\\pard behind the table\\par the end\\par}");
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
        for (const QString& part : {u"first"_qs, u"second"_qs, u"behind the table"_qs, u"the end"_qs})
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
        Desk desk(*m_writer);
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
        Desk desk(*m_writer);
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

    void TheWindowTakesNoInputWhileItWaits() {
        Desk desk(*m_writer);
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
        Desk desk(*m_writer);
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

    void ExportLeavesTheDocumentWithTheUser() {
        {
            Desk desk(*m_writer);
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
        QVERIFY(QTest::qWaitFor([] { return person::Press(u"^Save Document"_qs, u"alt+n"_qs); }, 10'000));
        QVERIFY(QTest::qWaitFor([] { return person::WindowNamed(kWriterWindow) == 0; }, 10'000));
        if (person::WindowNamed(u"LibreOffice"_qs) != 0)
            person::Close(u"LibreOffice"_qs);
        QVERIFY(m_writer->HasNoProcesses());
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
            Desk desk(*m_writer);
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
        Desk desk(*m_writer);
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
        Desk desk(*m_writer);
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
