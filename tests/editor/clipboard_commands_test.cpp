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
            QGuiApplication::clipboard()->setText(u"pasted"_qs);
            Main().State().DocumentSaved = true;
            Run(QLatin1String(QTest::currentDataTag()));
            const bool myForms = tab == 5;
            const RichTextBox* active = myForms ? Main().txtMyContent() : Main().txtContent();
            const RichTextBox* other = myForms ? Main().txtContent() : Main().txtMyContent();
            QTEST(Shown(active), "shown");
            QCOMPARE(Shown(other), u"[one] two"_qs);
            QTEST(QGuiApplication::clipboard()->text(), "clipboard");
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
};

QTEST_MAIN(ClipboardCommandsTest)
#include "clipboard_commands_test.moc"
