// From the main window to its help, on every way there is.

#include "app/left_toolbar.h"
#include "app/tabs.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "platform/help/help_browser.h"
#include "platform/help/help_viewer.h"
#include "platform/help/help_window.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QAction>
#include <QListWidget>
#include <QTreeWidget>
#include <QtTest>

namespace quillbrook {

class HelpTest : public QObject {
    Q_OBJECT

private:
    static QString HelpFile() { return QStringLiteral(QUILLBROOK_BINARY_DIR "/Help.chm"); }

private Q_SLOTS:
    void TheMenuTheButtonAndTheKeyAskForTheSame() {
        TestWindow window;
        window.services.help.SetHelpFile(u"/somewhere/Help.chm"_qs);
        QVERIFY(window.Show());
        window->Menu(u"mnuHelpContents"_qs)->trigger();
        QTest::mouseClick(window->leftToolbar->btnHelp, Qt::LeftButton);
        QTest::keyClick(window->focusWidget(), Qt::Key_F1);
        QTRY_COMPARE(int(window.services.help.shown.size()), 3);
        for (const ScriptedHelp::Shown& shown : window.services.help.shown) {
            QCOMPARE(shown.owner, window->Window());
            QCOMPARE(shown.file, u"/somewhere/Help.chm"_qs);
        }
    }

    void TheKeyWorksOnEveryPage() {
        TestWindow window;
        QVERIFY(window.Show());
        for (const Tab tab :
             {Tab::FormsExplorer, Tab::Search, Tab::EditForm, Tab::Favorites, Tab::History, Tab::MyForms}) {
            window->SetTab(tab);
            window.services.help.shown.clear();
            QTest::keyClick(window->focusWidget(), Qt::Key_F1);
            QTRY_COMPARE(int(window.services.help.shown.size()), 1);
        }
    }

    void HelpLeavesTheFormAndAsksNothing() {
        TestWindow window;
        QVERIFY(window.Show());
        window->txtContent()->setText(u"As it was."_qs);
        window->Menu(u"mnuHelpContents"_qs)->trigger();
        QCOMPARE(window->txtContent()->Text(), u"As it was."_qs);
        QVERIFY(window.services.messageBox.shown.empty());
        QVERIFY(!window->Menu(u"mnuHelpContents"_qs)->isChecked());
    }

    void ALawyerLooksUpTheJuratAndGoesOnWorking() {
        if (!QFile::exists(HelpFile()))
            QSKIP("built without the compiler of help files");
        TestWindow window;
        QVERIFY(window.Show());
        platform::HelpViewer viewer;
        viewer.SetHelpFile(HelpFile());
        viewer.DisplayTopic(window->Window(), viewer.HelpFile());
        platform::HelpWindow* help = viewer.Window();
        QVERIFY(help);
        QVERIFY(QTest::qWaitForWindowExposed(help));
        const auto found = help->contents->findItems(u"Add a jurat or an acknowledgment"_qs,
                                                     Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(found.size(), 1);
        help->contents->scrollToItem(found.first());
        QTest::mouseClick(help->contents->viewport(), Qt::LeftButton, {},
                          help->contents->visualItemRect(found.first()).center());
        QVERIFY(help->browser->toPlainText().contains(u"(ACKNOWLEDGMENT)"_qs));
        // the help takes nothing of the main window away
        QVERIFY(!help->isModal());
        window->SetTab(Tab::Search);
        QCOMPARE(window->CurrentTab(), Tab::Search);
        QVERIFY(help->isVisible());
    }

    void AMissingHelpFileIsToldByTheViewerAlone() {
        TestWindow window;
        QVERIFY(window.Show());
        platform::HelpViewer viewer;
        viewer.DisplayTopic(window->Window(), window.library()->Folder() + u"/Help.chm"_qs);
        QVERIFY(viewer.Window()->browser->toPlainText().contains(u"The help file is missing"_qs));
        QVERIFY(window.services.messageBox.shown.empty());
    }
};

} // namespace quillbrook

using quillbrook::HelpTest;
QTEST_MAIN(HelpTest)
#include "help_test.moc"
