// The dialog that asks where a form shall go, as the window opens it.
#include "output/save_dialog.h"

#include "app/menu_tree.h"
#include "library/my_forms_page.h"
#include "output/file_commands.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class SaveDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachButtonHasItsTextBesideIt() {
        const frmSave dialog(false, false, nullptr);
        const auto text = [&dialog](const char* label) {
            return dialog.findChild<QLabel*>(QLatin1String(label))->text();
        };
        QCOMPARE(text("lblbntSaveWord"),
                 u"Save the Form in Microsoft® Word® Document Format. This requires that you have Microsoft® "
                 "Word® intalled in your computer system."_qs);
        QCOMPARE(text("lblbtnSaveRTF"), u"Use if you don't have Microsoft® Word®. This saves the Form in a "
                                        "universal document format that may be opened in any word "
                                        "processor."_qs);
    }

    void ItStandsInTheMiddleOfTheScreen() {
        const frmSave dialog(false, false, nullptr);
        const QPoint middle = QGuiApplication::primaryScreen()->geometry().center();
        QVERIFY((middle - dialog.geometry().center()).manhattanLength() <= 2);
    }

    // An own form that is stored already has its button of updating.
    void TheWindowTellsItWhatTheDocumentIs_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<bool>("stored");
        QTest::addColumn<QString>("caption");
        QTest::newRow("edited form") << int(Tab::EditForm) << false << u"Add to My Forms"_qs;
        QTest::newRow("edited form, while an own one is stored")
            << int(Tab::EditForm) << true << u"Add to My Forms"_qs;
        QTest::newRow("new own form") << int(Tab::MyForms) << false << u"Add as New Form"_qs;
        QTest::newRow("stored own form") << int(Tab::MyForms) << true << u"Update Document"_qs;
    }
    void TheWindowTellsItWhatTheDocumentIs() {
        QFETCH(int, tab);
        QFETCH(bool, stored);
        QFETCH(QString, caption);
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::MyForms);
        window->myFormsPage->btnUpdate->setVisible(stored);
        window->SetTab(Tab(tab));
        QString shown;
        QTimer::singleShot(0, &*window, [&shown] {
            auto* dialog = qobject_cast<frmSave*>(QApplication::activeModalWidget());
            shown = dialog->btnAddtoMyForms->text();
            dialog->reject();
        });
        window->fileCommands->ShowSaveDialog();
        QCOMPARE(shown, caption);
        QVERIFY(!window->Windows().IsLoaded(u"frmSave"_qs));
    }

    void TheDropDownMenuOffersTheSame() {
        TestWindow window;
        QStringList entries;
        for (const QAction* entry : window->menuTree->Menu(u"mnuDropSave"_qs)->actions())
            entries += entry->objectName() + u": "_qs + entry->text();
        QCOMPARE(entries, (QStringList{u"mnuSaveAsDocFile: Save as .Doc File"_qs,
                                       u"mnuSaveAsRTFFile: Save as .RTF File"_qs, u"mnuDropSaveBar2: "_qs,
                                       u"mnuAddToMyForms: Add to My Forms"_qs}));
    }

    void CancellingItChangesNothing_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("by the key") << int(Qt::Key_Escape);
        QTest::newRow("by the button with the focus") << int(Qt::Key_Return);
    }
    void CancellingItChangesNothing() {
        QFETCH(int, key);
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::EditForm);
        window->txtContent()->setText(u"Deed"_qs);
        const QString caption = window->windowTitle();
        QTimer::singleShot(0, &*window, [key] {
            auto* dialog = qobject_cast<frmSave*>(QApplication::activeModalWidget());
            QVERIFY(QTest::qWaitForWindowActive(dialog));
            dialog->btnCancel->setFocus();
            QTest::keyClick(dialog->btnCancel, Qt::Key(key));
            dialog->reject(); // whatever the key did
        });
        window->fileCommands->ShowSaveDialog();
        QCOMPARE(window->windowTitle(), caption);
        QCOMPARE(window->State().CurrentFilePath, QString());
        QVERIFY(window->Menu(u"mnuSave"_qs)->isEnabled());
        QVERIFY(window.services.commonDialog.filesShown.empty());
        QVERIFY(window.services.messageBox.shown.empty());
    }
};

QTEST_MAIN(SaveDialogTest)
#include "save_dialog_test.moc"
