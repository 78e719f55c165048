// Cut, copy, paste, delete and select all from every page.
#include "editor/clipboard_commands.h"

#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::RichTextBox;

class ClipboardCommandsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    QClipboard& Clipboard() { return *QGuiApplication::clipboard(); }

    RichTextBox* Go(Tab tab) {
        Main().SetTab(tab);
        return Main().ActivePane();
    }

    // Clicks the button or the menu entry of this name.
    void Run(const QString& name) {
        if (auto* button = Main().findChild<platform::MyButton*>(name))
            button->click();
        else
            Main().Menu(name)->trigger();
    }

    // The text with the selection between brackets.
    static QString Shown(const RichTextBox* pane) {
        return pane->Text().insert(pane->SelStart() + pane->SelLength(), u']').insert(pane->SelStart(), u'[');
    }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
    }
    void cleanup() { m_window.reset(); }

    void EachCommandWorksOnThePaneOfThePage_data() {
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("clipboard");
        QTest::addColumn<bool>("saved");
        const auto row = [](const char* name, const QString& shown, const QString& clipboard, bool saved) {
            QTest::newRow(name) << shown << clipboard << saved;
        };
        for (const char* name : {"btnCut", "mnuCut", "mnuPopCut"})
            row(name, u"[] two"_qs, u"one"_qs, false);
        row("btnCopy", u"[one] two"_qs, u"one"_qs, true);
        for (const char* name : {"mnuCopy", "mnuPopCopy"})
            row(name, u"[one] two"_qs, u"one"_qs, false);
        for (const char* name : {"btnPaste", "mnuPaste", "mnuPopPaste"})
            row(name, u"pasted[] two"_qs, u"pasted"_qs, true);
        row("mnuPopDelete", u"[] two"_qs, u"pasted"_qs, true);
        for (const char* name : {"mnuSelectAll", "mnuPopSelectAll"})
            row(name, u"[one two]"_qs, u"pasted"_qs, false);
    }
    void EachCommandWorksOnThePaneOfThePage() {
        QFETCH(bool, saved);
        for (int tab = 0; tab < 6; ++tab) {
            Main().SetTab(Tab(tab));
            for (RichTextBox* pane : {Main().txtContent(), Main().txtMyContent()}) {
                pane->setText(u"one two"_qs);
                pane->setSelStart(0);
                pane->setSelLength(3);
            }
            Clipboard().setText(u"pasted"_qs);
            Main().State().DocumentSaved = true;
            Run(QLatin1String(QTest::currentDataTag()));
            const bool myForms = tab == 5;
            const RichTextBox* active = myForms ? Main().txtMyContent() : Main().txtContent();
            const RichTextBox* other = myForms ? Main().txtContent() : Main().txtMyContent();
            QTEST(Shown(active), "shown");
            QCOMPARE(Shown(other), u"[one] two"_qs);
            QTEST(Clipboard().text(), "clipboard");
            QCOMPARE(Main().State().DocumentSaved, saved);
            QVERIFY(active->hasFocus());
            QCOMPARE(int(Main().CurrentTab()), tab);
        }
    }

    void TheCopyButtonKeepsAnUnsavedDocumentUnsaved() {
        Main().SetTab(Tab::EditForm);
        Main().State().DocumentSaved = false;
        Run(u"btnCopy"_qs);
        QVERIFY(!Main().State().DocumentSaved);
    }

    void WithNothingSelectedTheClipboardEndsUpEmpty_data() {
        QTest::addColumn<int>("tab");
        for (const char* name : {"btnCut", "mnuCut", "mnuPopCut", "btnCopy", "mnuCopy", "mnuPopCopy"})
            QTest::newRow(name) << 2;
    }
    void WithNothingSelectedTheClipboardEndsUpEmpty() {
        QFETCH(int, tab);
        Clipboard().setText(u"before"_qs);
        Go(Tab(tab))->setText(u"one two"_qs);
        Run(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(Clipboard().text(), QString());
    }

    void CopiedTextKeepsItsFormatOverTheClipboard() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"bold"_qs);
        pane->selectAll();
        pane->setSelBold(true);
        Run(u"mnuCopy"_qs);
        const QMimeData* data = Clipboard().mimeData();
        QVERIFY(data->hasFormat(u"text/rtf"_qs));
        QVERIFY(data->hasHtml());
        QVERIFY(data->hasText());
        RichTextBox* mine = Go(Tab::MyForms);
        Run(u"mnuPaste"_qs);
        QCOMPARE(mine->Text(), u"bold"_qs);
        mine->selectAll();
        QCOMPARE(mine->SelBold(), std::optional(true));
    }

    void DeleteTakesTheSelectionOrTheNextCharacter() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"abcdef"_qs);
        pane->setSelStart(1);
        Run(u"mnuPopDelete"_qs);
        QCOMPARE(pane->Text(), u"acdef"_qs);
        pane->setSelStart(1);
        pane->setSelLength(3);
        Run(u"mnuPopDelete"_qs);
        QCOMPARE(pane->Text(), u"af"_qs);
        QVERIFY(Main().State().DocumentSaved);
    }

    void DeleteLeavesWhatItsKeyLeaves_data() {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("mnuPopDelete") << false;
        QTest::newRow("key") << true;
    }
    void DeleteLeavesWhatItsKeyLeaves() {
        QFETCH(bool, byKey);
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"all of it"_qs);
        pane->selectAll();
        pane->setSelFontName(u"Liberation Sans"_qs);
        pane->setSelFontSize(20);
        QSignalSpy changes(pane, &RichTextBox::Change);
        if (byKey)
            QTest::keyClick(pane, Qt::Key_Delete);
        else
            Run(u"mnuPopDelete"_qs);
        QCOMPARE(pane->Text(), QString());
        QCOMPARE(changes.size(), 1);
        QCOMPARE(pane->SelFontName(), std::optional(u"Liberation Sans"_qs));
        pane->setSelText(u"new"_qs);
        pane->selectAll();
        QCOMPARE(pane->SelFontName(), std::optional(u"Liberation Sans"_qs));
        QCOMPARE(pane->SelFontSize(), std::optional(20.0));
    }

    void DeleteCountsOnTheNumbersOfWhatIsLeft() {
        RichTextBox* pane = Go(Tab::EditForm);
        const auto item = [](int number, const char* text) {
            return QStringLiteral("{\\pntext %1.\\tab}%2").arg(number).arg(QLatin1String(text));
        };
        pane->setTextRTF(
            QStringLiteral("{\\rtf1{\\*\\pn\\pnlvlbody\\pndec\\pnstart1{\\pntxta .}}\\fi-360\\li360 ") +
            item(1, "one") + u"\\par "_qs + item(2, "two") + u"\\par "_qs + item(3, "three") + u"\\par}"_qs);
        const QString source = pane->TextRTF();
        pane->setSelStart(0);
        pane->setSelLength(4);
        QTest::keyClick(pane, Qt::Key_Delete);
        const QString byKey = pane->TextRTF();
        QVERIFY(pane->Text().startsWith(u"two"));
        pane->setTextRTF(source);
        pane->setSelStart(0);
        pane->setSelLength(4);
        Run(u"mnuPopDelete"_qs);
        QCOMPARE(pane->TextRTF(), byKey);
    }
};

QTEST_MAIN(ClipboardCommandsTest)
#include "clipboard_commands_test.moc"
