// Opening a document through the word processor: the calls, and what becomes of each that fails.
#include "output/file_commands.h"

#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

namespace {

const QStringList kCalls = {
    u"CreateObject"_qs,   u"Documents.Open /forms/Deed.doc"_qs, u"Selection.WholeStory"_qs,
    u"Selection.Copy"_qs, u"ActiveDocument.Close 0"_qs,         u"Quit 0"_qs,
    u"Release"_qs,
};

// The window on its history page, with rich text on the clipboard.
struct Desk {
    Desk() {
        platform::SetClipboardRTF("{\\rtf1 lay there\\par}");
        Word().installed = true;
        Word().onCall = [this](const QString& call) {
            if (call.startsWith(u"Documents.Open"))
                Word().content = "{\\rtf1 converted\\par}";
            hourglass = hourglass || QGuiApplication::overrideCursor();
            tabs.append(int(window->CurrentTab()));
        };
        window->txtContent()->setText(u"before"_qs);
        window->SetTab(Tab::History);
        window.services.commonDialog.files = {u"/forms/Deed.doc"_qs};
    }
    ~Desk() { Word().onCall = nullptr; }

    RecordingWord& Word() { return window.services.wordProcessor; }
    void Open() { window->Menu(u"mnuOpen"_qs)->trigger(); }

    TestWindow window;
    QList<int> tabs; // at each call
    bool hourglass = false;
};

} // namespace

class FileConversionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AFailingStepIsPassedOver_data() {
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("text");
        QTest::newRow("none") << QString() << u"converted"_qs;
        QTest::newRow("open") << u"Documents.Open"_qs << u"converted"_qs;
        QTest::newRow("select") << u"Selection.WholeStory"_qs << u"converted"_qs;
        QTest::newRow("copy") << u"Selection.Copy"_qs << u"lay there"_qs; // the clipboard decides
        QTest::newRow("close") << u"ActiveDocument.Close"_qs << u"converted"_qs;
        QTest::newRow("quit") << u"Quit"_qs << u"converted"_qs;
    }
    void AFailingStepIsPassedOver() {
        QFETCH(QString, member);
        QFETCH(QString, text);
        Desk desk;
        desk.Word().failing = {member};
        desk.Open();
        QCOMPARE(desk.Word().calls, kCalls);
        QCOMPARE(desk.window->txtContent()->Text().trimmed(), text);
        QCOMPARE(desk.window->windowTitle(), u"Deed.doc"_qs);
        QVERIFY(desk.window.services.messageBox.shown.empty());
        QVERIFY(!desk.window->Variables().WordApp);
    }

    // The pane comes on top once it is known what it shows; the instance ends behind it.
    void ThePageChangesBehindTheCopy() {
        Desk desk;
        desk.Open();
        const int history = int(Tab::History);
        const int edit = int(Tab::EditForm);
        QCOMPARE(desk.tabs, (QList<int>{history, history, history, history, edit, edit, edit}));
    }

    void WithoutRichTextTheInstanceEndsAllTheSame() {
        Desk desk;
        QGuiApplication::clipboard()->clear();
        desk.Word().failing = {u"Selection.Copy"_qs};
        desk.Open();
        QCOMPARE(desk.Word().calls, kCalls);
        QCOMPARE(desk.window.services.messageBox.shown.size(), std::size_t(1));
        QCOMPARE(desk.window->windowTitle(), u"Converting Deed.doc..."_qs);
        QCOMPARE(desk.window->CurrentTab(), Tab::History);
        QCOMPARE(desk.window->txtContent()->Text(), u"before"_qs);
    }

    void ThePointerAndTheQuestionOfSavingStayAsTheyAre() {
        for (const bool saved : {true, false}) {
            Desk desk;
            desk.window->State().DocumentSaved = saved;
            desk.Open();
            QVERIFY(!desk.hourglass);
            QCOMPARE(desk.window->State().DocumentSaved, saved);
        }
    }
};

QTEST_MAIN(FileConversionTest)
#include "file_conversion_test.moc"
