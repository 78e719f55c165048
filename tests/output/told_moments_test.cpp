// What is done and what is still to be done at the moment when saving, opening and the word processor tell
// the user something.
#include "app/left_toolbar.h"
#include "output/file_commands.h"
#include "output/print_commands.h"
#include "output/save_dialog.h"
#include "output/word_commands.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_application.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/editor_pages.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;

namespace {

const QString kHome = u"Quillbrook by Atty. Merrow"_qs;

// Runs the test's look at the window while a message is shown, and answers No.
class WatchedMessageBox final : public platform::MessageBoxService {
public:
    MessageAnswer Show(QWidget*, const QString& text, platform::MessageButtons buttons, platform::MessageIcon,
                       const QString&) override {
        if (look)
            look(text);
        return buttons == platform::MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::No;
    }
    std::function<void(const QString& text)> look;
};

struct Moment {
    QString text;
    QString caption;
    bool hourglass;
    bool hasWord;
    bool printEnabled;
    bool saveEnabled;
    bool saved; // DocumentSaved
    QString path;
    const QWidget* focus;
    bool saveDialogHides; // frmSave is loaded and not to be seen
};

// The window on a page whose pane has a text; the button of saving has the keyboard.
struct Desk {
    explicit Desk(Tab tab = Tab::EditForm)
        : tab(tab) {
        loaded = window.Load();
        window.show();
        window.activateWindow();
        loaded = loaded && QTest::qWaitForWindowActive(&window);
        window.SetTab(tab);
        Pane()->setText(u"Deed of Sale"_qs);
        window.leftToolbar->btnSave->setFocus();
        messageBox.look = [this](const QString& text) { moments.push_back(Now(text)); };
    }
    ~Desk() { window.Store().CloseLibrary(); }

    RecordingWord& Word() { return scripted.wordProcessor; }
    void Answer(const QString& path) { scripted.commonDialog.files.append(path); }
    platform::RichTextBox* Pane() {
        return tab == Tab::MyForms ? window.txtMyContent() : window.txtContent();
    }

    Moment Now(const QString& text) {
        const QCursor* pointer = QGuiApplication::overrideCursor();
        const auto* dialog = window.findChild<frmSave*>();
        return {text,
                window.windowTitle(),
                pointer && pointer->shape() == Qt::WaitCursor,
                window.Variables().WordApp != nullptr,
                window.leftToolbar->btnPrint->isEnabled(),
                window.Menu(u"mnuSave"_qs)->isEnabled(),
                window.State().DocumentSaved,
                window.State().CurrentFilePath,
                QApplication::focusWidget(),
                dialog && !dialog->isVisible()};
    }

    Tab tab;
    QTemporaryDir folder;
    TestLibrary library{SomeForms()};
    ScriptedServices scripted;
    WatchedMessageBox messageBox;
    platform::Services services{messageBox,       scripted.instance,      scripted.commonDialog,
                                scripted.printer, scripted.wordProcessor, scripted.sound,
                                scripted.help};
    frmMain window{services, library.Folder()};
    bool loaded = false;
    std::vector<Moment> moments; // one for each message
};

} // namespace

class ToldMomentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ADocumentIsToldOnceTheWordProcessorIsGoneAndBeforeTheWindowChanges_data() { EachEditorPage(); }
    void ADocumentIsToldOnceTheWordProcessorIsGoneAndBeforeTheWindowChanges() {
        QFETCH(int, tab);
        Desk desk{Tab(tab)};
        QVERIFY(desk.loaded);
        desk.Word().installed = true;
        desk.window.State().DocumentSaved = false;
        desk.Answer(u"/forms/deed.doc"_qs);
        desk.window.wordCommands->SaveAsMSDoc();
        QCOMPARE(desk.moments.size(), std::size_t(1));
        const Moment& told = desk.moments[0];
        QCOMPARE(told.caption, kHome);
        QVERIFY(!told.hourglass);
        QVERIFY(!told.hasWord);
        QVERIFY(told.focus != desk.Pane());
        QCOMPARE(told.path, u"/forms/deed.doc"_qs);
        QVERIFY(told.saveEnabled);
        QVERIFY(!told.saved);
        QCOMPARE(QApplication::focusWidget(), desk.Pane());
        QVERIFY(!desk.window.Menu(u"mnuSave"_qs)->isEnabled());
        QVERIFY(desk.window.State().DocumentSaved);
    }

    void AMissingWordProcessorIsToldOnceAllIsClearedUp_data() {
        QTest::addColumn<int>("command");
        QTest::newRow("export") << 0;
        QTest::newRow("print") << 1; // asks whether to print the direct way
        QTest::newRow("preview") << 2;
        QTest::newRow("save") << 3;
    }
    void AMissingWordProcessorIsToldOnceAllIsClearedUp() {
        QFETCH(int, command);
        Desk desk;
        QVERIFY(desk.loaded);
        desk.Answer(u"/forms/deed.doc"_qs);
        switch (command) {
        case 0:
            desk.window.wordCommands->ExportPane();
            break;
        case 1:
            desk.window.printCommands->Print();
            break;
        case 2:
            desk.window.printCommands->PrintPreview();
            break;
        default:
            desk.window.wordCommands->SaveAsMSDoc();
            break;
        }
        QCOMPARE(desk.moments.size(), std::size_t(command == 3 ? 2 : 1));
        for (const Moment& told : desk.moments) {
            QCOMPARE(told.caption, kHome);
            QVERIFY(!told.hourglass);
            QVERIFY(!told.hasWord);
            QVERIFY(told.printEnabled);
        }
    }

    void AnErrorOfSavingADocumentIsToldWhileTheWordProcessorIsThere() {
        Desk desk;
        QVERIFY(desk.loaded);
        desk.Word().installed = true;
        desk.Word().saveErrors = {1};
        desk.Answer(u"/forms/deed.doc"_qs);
        desk.window.wordCommands->SaveAsMSDoc();
        QCOMPARE(desk.moments.size(), std::size_t(1));
        QCOMPARE(desk.moments[0].caption, u"Saving Form as deed.doc"_qs);
        QVERIFY(desk.moments[0].hasWord);
        QVERIFY(!desk.window.Variables().WordApp);
    }

    void ARichTextFileIsToldOnceThePaneHasTheKeyboard_data() { EachEditorPage(); }
    void ARichTextFileIsToldOnceThePaneHasTheKeyboard() {
        QFETCH(int, tab);
        Desk desk{Tab(tab)};
        QVERIFY(desk.loaded);
        desk.window.State().DocumentSaved = true;
        desk.Answer(desk.folder.filePath(u"deed.rtf"_qs));
        desk.window.fileCommands->SaveAsRTFFile();
        QCOMPARE(desk.moments.size(), std::size_t(1));
        const Moment& told = desk.moments[0];
        QCOMPARE(told.focus, desk.Pane());
        QCOMPARE(told.path, desk.folder.filePath(u"deed.rtf"_qs));
        QVERIFY(told.saveEnabled);
        QVERIFY(told.saved);
        QVERIFY(!desk.window.Menu(u"mnuSave"_qs)->isEnabled());
        QVERIFY(!desk.window.State().DocumentSaved);
    }

    void ASilentSaveIsToldBeforeThePaneHasTheKeyboard() {
        Desk desk;
        QVERIFY(desk.loaded);
        desk.window.State().CurrentFilePath = desk.folder.filePath(u"known.rtf"_qs);
        desk.window.fileCommands->SavetoDisk();
        QCOMPARE(desk.moments.size(), std::size_t(1));
        QVERIFY(desk.moments[0].focus != desk.Pane());
        QVERIFY(desk.moments[0].saveEnabled);
        QCOMPARE(QApplication::focusWidget(), desk.Pane());
        QVERIFY(!desk.window.Menu(u"mnuSave"_qs)->isEnabled());
    }

    void TheSaveDialogHidesUntilItsRoutineIsDone() {
        Desk desk;
        QVERIFY(desk.loaded);
        desk.Answer(desk.folder.filePath(u"deed.rtf"_qs));
        QTimer::singleShot(0, &desk.window, [] {
            auto* dialog = qobject_cast<frmSave*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            QTest::mouseClick(dialog->btnSaveRTF, Qt::LeftButton);
        });
        desk.window.fileCommands->ShowSaveDialog();
        QCOMPARE(desk.moments.size(), std::size_t(1));
        QVERIFY(desk.moments[0].saveDialogHides);
        QVERIFY(!desk.window.Windows().IsLoaded(u"frmSave"_qs));
    }

    void AFailedConversionIsToldBeforeTheWordProcessorGoes() {
        Desk desk;
        QVERIFY(desk.loaded);
        desk.Word().installed = true;
        desk.Word().failing = {u"Selection.Copy"_qs};
        QGuiApplication::clipboard()->clear();
        desk.Answer(u"/forms/deed.doc"_qs);
        desk.window.fileCommands->Open();
        QCOMPARE(desk.moments.size(), std::size_t(1));
        QCOMPARE(desk.moments[0].caption, u"Converting deed.doc..."_qs);
        QVERIFY(desk.moments[0].hasWord);
        QVERIFY(!desk.window.Variables().WordApp);
    }
};

QTEST_MAIN(ToldMomentsTest)
#include "told_moments_test.moc"
