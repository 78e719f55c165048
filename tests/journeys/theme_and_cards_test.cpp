// A user tries colour themes, keeps one, looks at the author's windows, and finds the theme at the next
// start.
#include "accessory/about_window.h"
#include "accessory/contact_window.h"
#include "accessory/splash_window.h"
#include "app/main_window.h"
#include "app/program.h"
#include "appearance/look.h"
#include "appearance/theme_dialog.h"
#include "library/category_browser.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/status_bar.h"
#include "tests/support/scripted_services.h"
#include "tests/support/test_library.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class ThemeAndCardsTest : public QObject {
    Q_OBJECT

    static QColor GroundOf(QWidget* control) {
        return control->grab().toImage().pixelColor((control->rect().bottomRight() - QPoint(6, 6)) *
                                                    control->devicePixelRatio());
    }
    static bool WaitForMainWindow(frmProgram& program) {
        return QTest::qWaitFor([&] { return !program.Splash(); }, 20000) &&
               QTest::qWaitForWindowActive(program.MainWindow());
    }
    // What the user does in the modal window that the next command brings up.
    template <class Window>
    static void InModal(int* met, const std::function<void(Window*)>& act) {
        QTimer::singleShot(50, qApp, [met, act] {
            auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
            if (!window)
                return;
            ++*met;
            act(window);
        });
    }

private Q_SLOTS:
    void initTestCase() { ApplyLook(*qApp); }

    void AThemeIsTriedKeptAndFoundAgain() {
        const TestLibrary library(SomeForms());
        ScriptedServices services;
        int met = 0;
        {
            frmProgram program(services.services, library.Folder());
            program.Start();
            QVERIFY(WaitForMainWindow(program));
            frmMain& window = *program.MainWindow();
            platform::ListBox* titles = window.categoryBrowser->lstTitle;
            QCOMPARE(GroundOf(titles), QColor(228, 247, 248)); // the seventh, as stored

            InModal<frmTheme>(&met, [&](frmTheme* dialog) {
                QTest::mouseClick(dialog->btnNext, Qt::LeftButton);
                QCOMPARE(dialog->lblTheme->text(), u"Midnight"_qs);
                QCOMPARE(GroundOf(titles), QColor(221, 230, 239)); // behind the dialog, at once
                QTest::mouseClick(dialog->btnNext, Qt::LeftButton);
                QTest::mouseClick(dialog->btnCancel, Qt::LeftButton);
            });
            window.Menu(u"mnuChangeColorTheme"_qs)->trigger();
            QCOMPARE(met, 1);
            QCOMPARE(GroundOf(titles), QColor(228, 247, 248));

            InModal<frmTheme>(&met, [&](frmTheme* dialog) {
                for (int step = 0; step < 8; ++step)
                    QTest::mouseClick(dialog->btnNext, Qt::LeftButton);
                QTest::mouseClick(dialog->btnOk, Qt::LeftButton);
            });
            window.Menu(u"mnuChangeColorTheme"_qs)->trigger();
            QCOMPARE(met, 2);
            QCOMPARE(GroundOf(titles), QColor(255, 249, 202)); // "Sunny"

            InModal<frmContact>(&met,
                                [](frmContact* card) { QTest::mouseClick(card->cmdOK, Qt::LeftButton); });
            QTest::mouseClick(window.StatusBar1->Panel(1), Qt::LeftButton);
            QCOMPARE(met, 3);
            InModal<frmAbout>(&met, [](frmAbout* about) {
                QTest::mouseClick(about->picCredits1, Qt::LeftButton, Qt::NoModifier, {2, 2});
                QVERIFY(!about->tmrCredits->isActive());
                about->close();
            });
            QTest::mouseClick(window.StatusBar1->Panel(3), Qt::LeftButton);
            QCOMPARE(met, 4);
            QVERIFY(window.close()); // nothing was written: no question
        }
        QVERIFY(services.messageBox.shown.empty());

        frmProgram program(services.services, library.Folder());
        program.Start();
        QVERIFY(WaitForMainWindow(program));
        QCOMPARE(program.MainWindow()->State().ThemeNumber, 15);
        QCOMPARE(GroundOf(program.MainWindow()->categoryBrowser->lstTitle), QColor(255, 249, 202));
        QVERIFY(program.MainWindow()->close());
    }
};

QTEST_MAIN(ThemeAndCardsTest)
#include "theme_and_cards_test.moc"
