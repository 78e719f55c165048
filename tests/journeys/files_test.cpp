// A form goes to a file and comes back: with keys, through the real file dialogs.
#include "app/left_toolbar.h"
#include "output/save_dialog.h"
#include "platform/controls/my_button.h"
#include "platform/desktop/common_dialog.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class FilesJourney : public QObject {
    Q_OBJECT

    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }

    // Waits for a dialog of this kind to have the keyboard, and acts in it.
    template <class Dialog, class Action>
    static void InNext(Action action, int tries = 200) {
        QTimer::singleShot(20, qApp, [action, tries] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog && dialog->isActiveWindow() && QApplication::focusWidget())
                action(*dialog);
            else if (tries > 0)
                InNext<Dialog>(action, tries - 1);
            else if (QWidget* other = QApplication::activeModalWidget())
                other->close();
        });
    }
    static void TypeName(const QString& path) {
        Press(Qt::Key_A, Qt::ControlModifier);
        Type(path);
        Press(Qt::Key_Return);
    }

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void AFormIsSavedClosedAndOpenedAgain() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"lease.rtf"_qs);
        platform::CommonDialog dialogs;
        TestWindow window;
        window.services.commonDialog.real = &dialogs;
        QVERIFY(window.Show());
        platform::RichTextBox& pane = *window->txtContent();

        // a text with a bold word in it
        window->SetTab(Tab::EditForm);
        QTest::mouseClick(pane.viewport(), Qt::LeftButton, Qt::NoModifier, {60, 40});
        QVERIFY(pane.hasFocus());
        Type(u"Contract of "_qs);
        Press(Qt::Key_B, Qt::ControlModifier);
        Type(u"Lease"_qs);
        QVERIFY(!window->State().DocumentSaved);

        // Ctrl+S, the second button, and a name without its ending
        QStringList seen;
        InNext<frmSave>([&](frmSave& dialog) {
            seen += dialog.windowTitle();
            InNext<QFileDialog>([&](QFileDialog& files) {
                seen += files.windowTitle();
                TypeName(folder.filePath(u"lease.txt"_qs));
            });
            Press(Qt::Key_Tab);
            seen += QApplication::focusWidget()->objectName();
            Press(Qt::Key_Return);
        });
        Press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(seen, (QStringList{u"Save Options:"_qs, u"btnSaveRTF"_qs, u"Save As"_qs}));
        auto& told = window.services.messageBox.shown;
        QCOMPARE(told.size(), std::size_t(1));
        QCOMPARE(told[0].text, u"Form successfully saved as:   \n"_qs + path);
        QVERIFY(QFile::exists(path));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
        QCOMPARE(window->State().CurrentFilePath, path);
        QTRY_VERIFY(pane.hasFocus());

        // a new document
        Press(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(pane.Text(), QString());
        QCOMPARE(window->State().CurrentFilePath, QString());
        QVERIFY(pane.hasFocus());

        // and the file again
        QString last;
        InNext<QFileDialog>([&](QFileDialog& files) {
            last = files.findChild<QLineEdit*>(u"fileNameEdit"_qs)->text();
            TypeName(path);
        });
        Press(Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(last, u"lease.txt"_qs); // the name given last
        QCOMPARE(window->windowTitle(), u"lease.rtf"_qs);
        QCOMPARE(window->State().CurrentFilePath, path);
        QCOMPARE(pane.Text(), u"Contract of Lease"_qs);
        QCOMPARE(pane.SelStart(), 0);
        QTRY_VERIFY(pane.hasFocus());
        pane.setSelStart(12);
        pane.setSelLength(5);
        QCOMPARE(pane.SelBold(), std::optional(true));
        QCOMPARE(told.size(), std::size_t(1));

        // a key, and the same file is saved over without a question
        Press(Qt::Key_End, Qt::ControlModifier);
        Type(u" of Land"_qs);
        InNext<frmSave>([](frmSave&) {
            Press(Qt::Key_Tab);
            Press(Qt::Key_Return);
        });
        QTest::mouseClick(window->leftToolbar->btnSave, Qt::LeftButton, Qt::NoModifier, {8, 20});
        QCOMPARE(told.size(), std::size_t(2));
        platform::RichTextBox reader;
        QVERIFY(reader.LoadFile(path));
        QCOMPARE(reader.Text(), u"Contract of Lease of Land"_qs);
    }
};

QTEST_MAIN(FilesJourney)
#include "files_test.moc"
