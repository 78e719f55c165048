#include "appearance/look.h"
#include "appearance/theme_commands.h"
#include "appearance/theme_dialog.h"
#include "appearance/themes.h"
#include "library/category_browser.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/my_button.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class ThemeDialogTest : public QObject {
    Q_OBJECT

    static int Stored(TestWindow& window) { return window->Store().ReadThemeNumber().value_or(-1); }
    static bool IsTicked(TestWindow& window) {
        return window->Menu(QStringLiteral("mnuWindowsDefaultTheme"))->isChecked();
    }
    // Compared by the sheet that its colours are set through.
    static void Wears(TestWindow& window, int number) {
        const QString page = Resolve(ThemeOf(number).page, QGuiApplication::palette()).name();
        const QString list = Resolve(ThemeOf(number).list, QGuiApplication::palette()).name();
        QVERIFY(window->styleSheet().contains(u"QWidget#SSTab { background-color: "_qs + page));
        QVERIFY(window->styleSheet().contains(u"QAbstractItemView { background-color: "_qs + list));
    }
    static std::unique_ptr<frmTheme> Open(TestWindow& window, int number) {
        window->Store().WriteThemeNumber(number);
        auto dialog = std::make_unique<frmTheme>(*window->themeCommands, window->Store(), &*window);
        dialog->show();
        return dialog;
    }
    // On the screen: the name in `text` on the list colour, on the page colour.
    static void ShowsColors(frmTheme& dialog, int number, const QColor& text) {
        const QPalette desktop = QGuiApplication::palette();
        QCOMPARE(dialog.grab().toImage().pixelColor(2, 2), Resolve(ThemeOf(number).page, desktop));
        const QImage label = dialog.lblTheme->grab().toImage();
        QCOMPARE(label.pixelColor(2, 2), Resolve(ThemeOf(number).list, desktop));
        int written = 0;
        for (int y = 0; y < label.height(); ++y)
            for (int x = 0; x < label.width(); ++x)
                written += label.pixelColor(x, y) == text ? 1 : 0;
        QVERIFY2(written > 20, qPrintable(QString::number(written)));
    }
    // Runs the dialog of the menu entry, with what is to be done in it.
    static void Choose(TestWindow& window, const QString& entry, const std::function<void(frmTheme*)>& act) {
        bool acted = false;
        QTimer::singleShot(0, qApp, [&] {
            auto* dialog = qobject_cast<frmTheme*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            acted = true;
            act(dialog);
            if (dialog->isVisible())
                dialog->close();
        });
        window->Menu(entry)->trigger();
        QVERIFY(acted);
    }

private Q_SLOTS:
    void initTestCase() { ApplyLook(*qApp); }

    void OpensAtTheStoredThemeAndTouchesNoMainWindow_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("name");
        QTest::newRow("another theme") << 21 << u"Plum"_qs;
        QTest::newRow("the first theme") << 1 << u"Windows Default"_qs;
    }
    void OpensAtTheStoredThemeAndTouchesNoMainWindow() {
        QFETCH(int, number);
        TestWindow window;
        const QString sheet = window->styleSheet();
        const auto dialog = Open(window, number);
        QCOMPARE(dialog->windowTitle(), u"Color Theme Selector"_qs);
        QCOMPARE(dialog->Number(), number);
        QTEST(dialog->lblTheme->text(), "name");
        QCOMPARE(window->styleSheet(), sheet);
        QVERIFY(!IsTicked(window));
        QCOMPARE(Stored(window), number);
    }

    void ItsButtonsSayWhatTheyDo() {
        TestWindow window;
        const auto dialog = Open(window, 2);
        QCOMPARE(dialog->btnOk->Caption(), u"Apply"_qs);
        QCOMPARE(dialog->btnItalic->Caption(), u"Default"_qs);
        QCOMPARE(dialog->btnCancel->Caption(), u"Cancel"_qs);
        for (const platform::MyButton* step : {dialog->btnPrevious, dialog->btnNext}) {
            QVERIFY(step->Caption().isEmpty());
            QVERIFY(!step->icon().isNull());
            QVERIFY(!step->accessibleName().isEmpty());
        }
    }

    void StandsInTheMiddleOfTheScreen() {
        TestWindow window;
        frmTheme dialog(*window->themeCommands, window->Store());
        const QSize screen = QGuiApplication::primaryScreen()->size();
        QCOMPARE(dialog.pos(),
                 QPoint(screen.width() / 2 - dialog.width() / 2, screen.height() / 2 - dialog.height() / 2));
        const QSize size = dialog.size();
        dialog.show();
        QCOMPARE(dialog.size(), size);
    }

    void AStoredNumberIsPutRightAtOpening_data() {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("name");
        QTest::newRow("0") << 0 << 34 << u"Deep Blue"_qs;
        QTest::newRow("35") << 35 << 1 << u"Windows Default"_qs;
    }
    void AStoredNumberIsPutRightAtOpening() {
        QFETCH(int, stored);
        TestWindow window;
        const auto dialog = Open(window, stored);
        QTEST(dialog->Number(), "number");
        QTEST(dialog->lblTheme->text(), "name");
        QTEST(Stored(window), "number");
    }

    void StepsShowAndStoreAtOnce_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<bool>("next");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("name");
        QTest::newRow("next") << 3 << true << 4 << u"Energy"_qs;
        QTest::newRow("previous") << 3 << false << 2 << u"Black and White"_qs;
        QTest::newRow("next of the last") << 34 << true << 1 << u"Windows Default"_qs;
        QTest::newRow("previous of the first") << 1 << false << 34 << u"Deep Blue"_qs;
        QTest::newRow("previous to the first") << 2 << false << 1 << u"Windows Default"_qs;
    }
    void StepsShowAndStoreAtOnce() {
        QFETCH(int, from);
        QFETCH(bool, next);
        QFETCH(int, number);
        TestWindow window;
        const auto dialog = Open(window, from);
        QTest::mouseClick(next ? dialog->btnNext : dialog->btnPrevious, Qt::LeftButton);
        QTEST(dialog->lblTheme->text(), "name");
        QCOMPARE(Stored(window), number);
        QCOMPARE(IsTicked(window), number == 1);
        Wears(window, number);
        QTest::mouseClick(dialog->btnNext, Qt::LeftButton);
        QCOMPARE(IsTicked(window), number % 34 + 1 == 1);
    }

    void TheSampleShowsTheThemesColors_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<QColor>("text");
        QTest::newRow("the first is black") << 1 << QColor(Qt::black);
        QTest::newRow("black on white by the rule") << 2 << QColor(Qt::black);
        QTest::newRow("its dark colour") << 18 << QColor(0, 102, 51);
    }
    void TheSampleShowsTheThemesColors() {
        QFETCH(int, number);
        QFETCH(QColor, text);
        TestWindow window;
        const auto dialog = Open(window, number);
        ShowsColors(*dialog, number, text);
        dialog->btnNext->click();
        dialog->btnPrevious->click();
        ShowsColors(*dialog, number, text);
    }

    void TheFirstThemesSampleFollowsADesktopThatTurnsDark() {
        TestWindow window;
        const auto dialog = Open(window, 1);
        const QPalette before = QGuiApplication::palette();
        QPalette dark = before;
        dark.setColor(QPalette::Button, QColor(52, 52, 56));
        dark.setColor(QPalette::Base, QColor(30, 30, 32));
        QApplication::setPalette(dark);
        ShowsColors(*dialog, 1, Qt::black);
        QApplication::setPalette(before);
        ShowsColors(*dialog, 1, Qt::black);
    }

    void ApplyKeepsTheThemeAndGoes() {
        TestWindow window;
        Choose(window, u"mnuChangeColorTheme"_qs, [](frmTheme* dialog) {
            dialog->btnNext->click();
            dialog->btnOk->click();
        });
        QCOMPARE(Stored(window), 8);
        Wears(window, 8);
        QVERIFY(!window->Windows().IsLoaded(u"frmTheme"_qs));
        QCOMPARE(window->State().ThemeNumber, 7);
    }

    void ApplyShowsTheThemeThoughNoStepDid() {
        TestWindow window; // wears 7
        const auto dialog = Open(window, 1);
        dialog->btnOk->click();
        QVERIFY(!dialog->isVisible());
        QCOMPARE(Stored(window), 1);
        Wears(window, 1);
        QVERIFY(IsTicked(window));
    }

    void CancelAfterThreeStepsLeavesEverythingAsItWas_data() {
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }
    void CancelAfterThreeStepsLeavesEverythingAsItWas() {
        QFETCH(bool, byEscape);
        TestWindow window;
        const QString sheet = window->styleSheet();
        Choose(window, u"mnuChangeColorTheme"_qs, [&](frmTheme* dialog) {
            for (int step = 0; step < 3; ++step)
                dialog->btnNext->click();
            QVERIFY(window->styleSheet() != sheet);
            if (byEscape)
                QTest::keyClick(dialog, Qt::Key_Escape);
            else
                dialog->btnCancel->click();
            QVERIFY(!dialog->isVisible());
        });
        QCOMPARE(Stored(window), 7);
        QCOMPARE(window->styleSheet(), sheet);
        QVERIFY(!IsTicked(window));
    }

    void ClosingByTheTitleBarKeepsWhatIsLookedAt() {
        TestWindow window;
        Choose(window, u"mnuChangeColorTheme"_qs, [](frmTheme* dialog) {
            dialog->btnPrevious->click();
            dialog->close();
        });
        QCOMPARE(Stored(window), 6);
        Wears(window, 6);
        QVERIFY(!window->Windows().IsLoaded(u"frmTheme"_qs));
    }

    void DefaultStaysOpenAndLeavesTheLinksAlone() {
        TestWindow window;
        const auto dialog = Open(window, 12);
        dialog->btnItalic->click();
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->Number(), 1);
        QCOMPARE(dialog->lblTheme->text(), u"Windows Default"_qs);
        ShowsColors(*dialog, 1, Qt::black);
        QCOMPARE(Stored(window), 1);
        QVERIFY(IsTicked(window));
        Wears(window, 1);
        QVERIFY(!window->categoryBrowser->httpAttyMerrow->colors().text.isValid());
        dialog->btnCancel->click();
        QCOMPARE(Stored(window), 12);
        QVERIFY(!IsTicked(window));
        Wears(window, 12);
    }

    void EachOpeningReadsTheStoredThemeAfresh() {
        TestWindow window;
        Choose(window, u"mnuChangeColorTheme"_qs, [](frmTheme* dialog) { dialog->btnNext->click(); });
        Choose(window, u"mnuChangeColorTheme"_qs, [](frmTheme* dialog) { QCOMPARE(dialog->Number(), 8); });
    }

    void ThePopUpsEntryOpensItToo() {
        TestWindow window;
        Choose(window, u"mnuChangeColor"_qs, [](frmTheme* dialog) { dialog->btnNext->click(); });
        QCOMPARE(Stored(window), 8);
    }

    void StepsShowWithoutALibrary() {
        TestWindow window;
        window->Store().CloseLibrary();
        frmTheme dialog(*window->themeCommands, window->Store());
        dialog.btnNext->click();
        QCOMPARE(dialog.Number(), 2);
        Wears(window, 2);
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void EnterPressesTheFocusedButtonAndElseApply() {
        TestWindow window;
        const auto dialog = Open(window, 5);
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        QCOMPARE(dialog->focusWidget(), dialog->btnNext);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        QCOMPARE(dialog->Number(), 6);
        dialog->focusWidget()->clearFocus();
        QTest::keyClick(dialog.get(), Qt::Key_Return);
        QVERIFY(!dialog->isVisible());
        QCOMPARE(Stored(window), 6);
    }
};

QTEST_MAIN(ThemeDialogTest)
#include "theme_dialog_test.moc"
