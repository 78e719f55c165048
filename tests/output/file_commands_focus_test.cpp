// Where the keyboard is after each command of files, and how a save that asks nothing fails.
#include "output/file_commands.h"

#include "app/left_toolbar.h"
#include "library/my_forms_page.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/editor_pages.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageIcon;
using platform::RichTextBox;

namespace {

struct Desk {
    // Another control has the keyboard.
    bool Show(Tab tab) {
        if (!window.Show())
            return false;
        window->SetTab(tab);
        Pane(tab)->setText(u"Deed"_qs);
        window->leftToolbar->btnSave->setFocus();
        return QApplication::focusWidget() != Pane(tab);
    }
    RichTextBox* Pane(Tab tab) { return tab == Tab::MyForms ? window->txtMyContent() : window->txtContent(); }
    QString Path(const QString& name) const { return folder.filePath(name); }
    void Answer(const QString& name) { window.services.commonDialog.files.append(Path(name)); }

    QTemporaryDir folder;
    TestWindow window;
};

} // namespace

class FileCommandsFocusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AfterSavingThePaneHasTheKeyboard_data() { EachEditorPage(); }
    void AfterSavingThePaneHasTheKeyboard() {
        QFETCH(int, tab);
        Desk desk;
        QVERIFY(desk.Show(Tab(tab)));
        desk.Answer(u"deed.rtf"_qs);
        desk.window->fileCommands->SaveAsRTFFile();
        QCOMPARE(QApplication::focusWidget(), desk.Pane(Tab(tab)));
    }

    void AfterSavingWithoutAQuestionThePaneHasTheKeyboard() {
        Desk desk;
        QVERIFY(desk.Show(Tab::EditForm));
        desk.window->State().CurrentFilePath = desk.Path(u"known.rtf"_qs);
        desk.window->fileCommands->SavetoDisk();
        QCOMPARE(QApplication::focusWidget(), desk.Pane(Tab::EditForm));
    }

    void ACancelledSaveOfAnOwnFormStillMovesTheKeyboardToIt() {
        Desk desk;
        QVERIFY(desk.Show(Tab::MyForms));
        desk.window->fileCommands->SavetoDisk();
        QCOMPARE(QApplication::focusWidget(), desk.Pane(Tab::MyForms));
    }

    void AfterOpeningThePaneHasTheKeyboard_data() { EachEditorPage(); }
    void AfterOpeningThePaneHasTheKeyboard() {
        QFETCH(int, tab);
        Desk desk;
        QVERIFY(desk.Show(Tab(tab)));
        QFile file(desk.Path(u"a.txt"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("text") == 4);
        file.close();
        desk.Answer(u"a.txt"_qs);
        desk.window->fileCommands->Open();
        QCOMPARE(QApplication::focusWidget(), desk.Pane(Tab(tab)));
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void AfterAConversionThePaneHasTheKeyboardAtItsStart_data() { EachEditorPage(); }
    void AfterAConversionThePaneHasTheKeyboardAtItsStart() {
        QFETCH(int, tab);
        Desk desk;
        QVERIFY(desk.Show(Tab(tab)));
        platform::SetClipboardRTF("{\\rtf1 converted\\par}");
        desk.Answer(u"a.doc"_qs);
        desk.window->fileCommands->Open();
        QCOMPARE(desk.Pane(Tab(tab))->Text(), u"converted"_qs);
        QCOMPARE(QApplication::focusWidget(), desk.Pane(Tab(tab)));
        QCOMPARE(desk.Pane(Tab(tab))->SelStart(), 0);
        QCOMPARE(desk.Pane(Tab(tab))->SelLength(), 0);
    }

    void ANewDocumentHasTheKeyboard() {
        Desk desk;
        QVERIFY(desk.Show(Tab::EditForm));
        desk.window->fileCommands->New();
        QCOMPARE(QApplication::focusWidget(), desk.Pane(Tab::EditForm));
    }

    void ANewDocumentLeavesTheQuestionOfSavingAsItIs() {
        Desk desk;
        QVERIFY(desk.Show(Tab::EditForm));
        for (const bool saved : {true, false}) {
            desk.window->State().DocumentSaved = saved;
            desk.window->fileCommands->New();
            QCOMPARE(desk.window->State().DocumentSaved, saved);
        }
    }

    void TheImportButtonOpensAFile() {
        Desk desk;
        QVERIFY(desk.Show(Tab::MyForms));
        const auto* import = desk.window->myFormsPage->btnImport;
        QCOMPARE(import->toolTip(), u"Open / Import .DOC, .RTF or .TXT File from Disk"_qs);
        QTest::mouseClick(desk.window->myFormsPage->btnImport, Qt::LeftButton);
        QCOMPARE(desk.window.services.commonDialog.filesShown.size(), std::size_t(1));
        QCOMPARE(desk.window.services.commonDialog.filesShown[0].title, u"Open"_qs);
    }

    // What would ask for another file elsewhere is told here, and that is all.
    void ARefusedSilentSaveIsToldAndEnds() {
        Desk desk;
        QVERIFY(desk.Show(Tab::EditForm));
        desk.window->State().CurrentFilePath = desk.folder.path(); // a folder of the name
        desk.window->State().DocumentSaved = true;
        desk.window.services.messageBox.answer = platform::MessageAnswer::Yes;
        desk.window->fileCommands->SavetoDisk();
        QCOMPARE(desk.window.services.messageBox.shown.size(), std::size_t(1));
        const auto& told = desk.window.services.messageBox.shown[0];
        QCOMPARE(told.text, u"Permission denied!   \nRetry?   "_qs);
        QCOMPARE(told.title, u"4"_qs);
        QCOMPARE(told.icon, MessageIcon::Question);
        QVERIFY(desk.window.services.commonDialog.filesShown.empty());
        QCOMPARE(desk.window->State().CurrentFilePath, desk.folder.path());
        QVERIFY(desk.window->State().DocumentSaved);
        QVERIFY(desk.window->Menu(u"mnuSave"_qs)->isEnabled());
        QCOMPARE(QApplication::focusWidget(), desk.window->leftToolbar->btnSave);
    }
};

QTEST_MAIN(FileCommandsFocusTest)
#include "file_commands_focus_test.moc"
