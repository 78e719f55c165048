// Opening files of each kind: what becomes of the pane, the title and the page, and what fails quietly.
#include "output/file_commands.h"

#include "library/my_forms_page.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/file_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageButtons;
using platform::MessageIcon;
using platform::RichTextBox;

class FileOpeningTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FileWindow> m_window;

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<FileWindow>();
        QVERIFY(m_window->loaded);
    }
    void cleanup() { m_window.reset(); }

    void OpeningTakesTextAndRichTextToTheEditPage_data();
    void OpeningTakesTextAndRichTextToTheEditPage();
    void OpeningOnMyFormsStaysThere();
    void CancellingOpenChangesNothing();
    void AnUnreadableFileLeavesThePaneAndSetsTheCaption();
    void AWordDocumentTakesWhatTheClipboardHolds();
    void AWordDocumentWithoutRichTextTellsAnError();
    void AWordDocumentOnMyFormsBeginsANewForm();
    void AWordDocumentIsConvertedByTheWordProcessor();
    void AWordDocumentIsSavedOverAsRichText();
};

void FileOpeningTest::OpeningTakesTextAndRichTextToTheEditPage_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("rich text") << u"A.RTF"_qs << QByteArray("{\\rtf1 A {\\b bold} word\\par}")
                               << u"A bold word"_qs;
    QTest::newRow("UTF-8") << u"b.txt"_qs << QByteArray("ni\xC3\xB1o\r\nsecond") << u"niño\nsecond"_qs;
    QTest::newRow("Windows 1252") << u"c.txt"_qs << QByteArray("\x93ni\xF1o\x94") << u"“niño”"_qs;
    QTest::newRow("UTF-16") << u"d.txt"_qs << QByteArray("\xFF\xFEn\0i\0\xF1\0o\0", 10) << u"niño"_qs;
    QTest::newRow("no document of the word processor") << u"e.docx"_qs << QByteArray("plain") << u"plain"_qs;
}

void FileOpeningTest::OpeningTakesTextAndRichTextToTheEditPage() {
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    FileWindow& window = *m_window;
    QVERIFY(window.Write(name, bytes));
    window.State().DocumentSaved = true;
    window->SetTab(Tab::Search);
    window.Answer(name);
    window.Files().Open();
    QCOMPARE(window->CurrentTab(), Tab::EditForm);
    QTEST(TestWindow::TextOf(window->txtContent()), "text");
    QCOMPARE(window->txtContent()->SelStart(), 0);
    QCOMPARE(window->windowTitle(), name);
    QCOMPARE(window.State().CurrentFilePath, window.Path(name));
    QCOMPARE(window.State().CurrentFileTitle, window.Path(name).toLower());
    QVERIFY(window.State().DocumentSaved);
}

void FileOpeningTest::OpeningOnMyFormsStaysThere() {
    FileWindow& window = *m_window;
    QVERIFY(window.Write(u"a.txt"_qs, "own text"));
    window->SetTab(Tab::MyForms);
    window->txtMyContent()->setText(u"before"_qs);
    window->myFormsPage->txtMyTitle->setText(u"Old title"_qs);
    window.Answer(u"a.txt"_qs);
    window.Files().Open();
    QCOMPARE(window->CurrentTab(), Tab::MyForms);
    QCOMPARE(window->txtMyContent()->Text(), u"own text"_qs);
    QCOMPARE(window->windowTitle(), u"a.txt"_qs);
    // no new form is begun
    QCOMPARE(window->myFormsPage->txtMyTitle->text(), u"Old title"_qs);
    QVERIFY(!window.State().NewFormMode);
}

void FileOpeningTest::CancellingOpenChangesNothing() {
    FileWindow& window = *m_window;
    window->SetTab(Tab::Search);
    const QString caption = window->windowTitle();
    window.State().CurrentFilePath = u"before"_qs;
    window.State().CurrentFileTitle = u"title before"_qs;
    window.Files().Open();
    QCOMPARE(window->CurrentTab(), Tab::Search);
    QCOMPARE(window->windowTitle(), caption);
    QCOMPARE(window.State().CurrentFilePath, u"before"_qs);
    QCOMPARE(window.State().CurrentFileTitle, u"title before"_qs);
}

void FileOpeningTest::AnUnreadableFileLeavesThePaneAndSetsTheCaption() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window->txtContent()->setSelStart(3);
    window->SetTab(Tab::Search);
    window.Answer(u"gone.rtf"_qs);
    window.Files().Open();
    QCOMPARE(window->txtContent()->Text(), u"Deed"_qs);
    QCOMPARE(window->txtContent()->SelStart(), 0);
    QCOMPARE(window->CurrentTab(), Tab::EditForm);
    QCOMPARE(window->windowTitle(), u"gone.rtf"_qs);
    QCOMPARE(window.State().CurrentFilePath, window.Path(u"gone.rtf"_qs));
    QVERIFY(window.services.messageBox.shown.empty());
}

static void PutRtfOnClipboard(const QByteArray& source) {
    auto* data = new QMimeData;
    data->setData(u"text/rtf"_qs, source);
    QGuiApplication::clipboard()->setMimeData(data);
}

void FileOpeningTest::AWordDocumentTakesWhatTheClipboardHolds() {
    FileWindow& window = *m_window;
    PutRtfOnClipboard("{\\rtf1 lay there\\par}");
    window->SetTab(Tab::Favorites);
    window.Answer(u"REPORT.DOC"_qs);
    window.Files().Open(); // with no word processor
    QCOMPARE(window->CurrentTab(), Tab::EditForm);
    QCOMPARE(window->txtContent()->Text(), u"lay there"_qs);
    QCOMPARE(window->windowTitle(), u"REPORT.DOC"_qs);
    QVERIFY(window.services.messageBox.shown.empty());
}

void FileOpeningTest::AWordDocumentWithoutRichTextTellsAnError() {
    FileWindow& window = *m_window;
    QGuiApplication::clipboard()->clear();
    window.Edit(u"Deed"_qs);
    window->SetTab(Tab::Search);
    window.Answer(u"report.doc"_qs);
    window.Files().Open();
    QCOMPARE(window.services.messageBox.shown.size(), 1U);
    const auto& told = window.services.messageBox.shown[0];
    QCOMPARE(told.text, u"An error occured while opening report.doc.   "_qs);
    QCOMPARE(told.title, u"Error"_qs);
    QCOMPARE(told.icon, MessageIcon::Critical);
    QCOMPARE(window->windowTitle(), u"Converting report.doc..."_qs);
    QCOMPARE(window->CurrentTab(), Tab::Search);
    QCOMPARE(window->txtContent()->Text(), u"Deed"_qs);
}

void FileOpeningTest::AWordDocumentOnMyFormsBeginsANewForm() {
    FileWindow& window = *m_window;
    PutRtfOnClipboard("{\\rtf1 imported\\par}");
    window->SetTab(Tab::MyForms);
    window->txtMyContent()->setText(u"before"_qs);
    window->myFormsPage->txtMyTitle->setText(u"Old title"_qs);
    window.Answer(u"report.doc"_qs);
    window.Files().Open();
    QCOMPARE(window->txtMyContent()->Text(), u"imported"_qs);
    QCOMPARE(window->myFormsPage->txtMyTitle->text(), QString());
    QVERIFY(window.State().NewFormMode);
}

void FileOpeningTest::AWordDocumentIsConvertedByTheWordProcessor() {
    FileWindow& window = *m_window;
    PutRtfOnClipboard("{\\rtf1 lay there\\par}");
    RecordingWord& word = window.services.wordProcessor;
    word.installed = true;
    QStringList captions;
    word.onCall = [&](const QString& call) {
        captions.append(window->windowTitle());
        if (call.startsWith(u"Documents.Open"))
            word.content = "{\\rtf1 converted\\par}";
    };
    window->SetTab(Tab::History);
    window.Answer(u"Report.Doc"_qs);
    window.Files().Open();
    word.onCall = nullptr;
    const QStringList calls = {u"CreateObject"_qs,
                               u"Documents.Open "_qs + window.Path(u"Report.Doc"_qs),
                               u"Selection.WholeStory"_qs,
                               u"Selection.Copy"_qs,
                               u"ActiveDocument.Close 0"_qs,
                               u"Quit 0"_qs,
                               u"Release"_qs};
    QCOMPARE(word.calls, calls);
    QCOMPARE(captions[0], u"Opening Report.Doc..."_qs);
    QCOMPARE(captions[1], u"Converting Report.Doc..."_qs);
    QCOMPARE(window->txtContent()->Text(), u"converted"_qs);
    QCOMPARE(window->windowTitle(), u"Report.Doc"_qs);
    QCOMPARE(window.State().CurrentFilePath, window.Path(u"Report.Doc"_qs));
    QCOMPARE(window.State().CurrentFileTitle, window.Path(u"Report.Doc"_qs).toLower());
    QVERIFY(!window->Variables().WordApp);
}

void FileOpeningTest::AWordDocumentIsSavedOverAsRichText() {
    FileWindow& window = *m_window;
    PutRtfOnClipboard("{\\rtf1 imported\\par}");
    window->SetTab(Tab::EditForm);
    window.Answer(u"report.doc"_qs);
    window.Files().Open();
    window.Files().SavetoDisk();
    QCOMPARE(window.services.commonDialog.filesShown.size(), 1U); // only that of opening
    QVERIFY(window.Read(u"report.doc"_qs).startsWith("{\\rtf1"));
}

QTEST_MAIN(FileOpeningTest)
#include "file_opening_test.moc"
