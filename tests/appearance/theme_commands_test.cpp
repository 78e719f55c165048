// The themes on the real window: what has which colour on the screen, and what is stored.
#include "app/left_toolbar.h"
#include "appearance/look.h"
#include "appearance/theme_commands.h"
#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "library/library_format.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/page_label.h"
#include "platform/controls/ss_tab.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

namespace {

QColor PixelOf(QWidget* control, const QPoint& place) {
    return control->grab().toImage().pixelColor(place * control->devicePixelRatio());
}

// A place where a control shows nothing but its ground.
QColor GroundOf(QWidget* control) {
    if (qobject_cast<QComboBox*>(control))
        return PixelOf(control, {control->width() / 2, 4});
    if (qobject_cast<QLineEdit*>(control))
        return PixelOf(control, {control->width() - 8, control->height() / 2});
    return PixelOf(control, {control->width() - 6, control->height() - 6});
}

QColor PageOf(TestWindow& window) {
    return PixelOf(&*window, {82, 100}); // between the toolbar and the tabs
}

QPalette DarkDesktop() {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(45, 45, 48));
    dark.setColor(QPalette::Button, QColor(52, 52, 56));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, QColor(230, 230, 232));
    return dark;
}

// Stores a number as another program might have.
void Store(const TestLibrary& library, int number) {
    PublicVariables variables;
    LibraryStore store(variables);
    QVERIFY(store.OpenLibrary(library.Path(), BuildLibraryPassword()));
    QVERIFY(store.WriteThemeNumber(number));
    store.CloseLibrary();
}

} // namespace

class ThemeCommandsTest : public QObject {
    Q_OBJECT

    QPalette m_desktop;
    std::unique_ptr<TestWindow> m_window;

    static bool IsTicked(TestWindow& window) {
        return window->Menu(QStringLiteral("mnuWindowsDefaultTheme"))->isChecked();
    }

    static void Wears(TestWindow& window, const Theme& theme) {
        const QPalette desktop = QGuiApplication::palette();
        QCOMPARE(PageOf(window), Resolve(theme.page, desktop));
        QCOMPARE(GroundOf(window->SSTab), Resolve(theme.page, desktop));
        for (const ThemedControl& control : kThemedControls)
            if (control.part == ThemePart::List) {
                auto* widget = window->findChild<QWidget*>(QLatin1String(control.name));
                QVERIFY2(widget, control.name);
                QVERIFY2(GroundOf(widget) == Resolve(theme.list, desktop),
                         qPrintable(QLatin1String(control.name) + u" is "_qs + GroundOf(widget).name()));
            }
    }

private Q_SLOTS:
    void initTestCase() {
        ApplyLook(*qApp);
        m_desktop = QGuiApplication::palette();
    }
    void cleanup() { QApplication::setPalette(m_desktop); }
    void cleanupTestCase() { m_window.reset(); }

    void TheLoadPutsOnTheStoredTheme() {
        TestWindow window; // its library holds 7
        QVERIFY(window.Show());
        QCOMPARE(window->State().ThemeNumber, 7);
        QVERIFY(!window->State().ThemeLoading);
        QVERIFY(!IsTicked(window));
        Wears(window, ThemeOf(7));
    }

    void EveryThemeColorsEveryControlOfItsTable_data() {
        QTest::addColumn<int>("number");
        for (int number = 1; number <= kThemeCount; ++number)
            QTest::newRow(ThemeOf(number).name) << number;
    }
    void EveryThemeColorsEveryControlOfItsTable() {
        QFETCH(int, number);
        if (!m_window)
            m_window = std::make_unique<TestWindow>(); // one for all the rows
        (*m_window)->themeCommands->ApplyTheme(ThemeOf(number));
        Wears(*m_window, ThemeOf(number));
        QCOMPARE(IsTicked(*m_window), number == 1);
    }

    void AStoredNumberIsPutRightAndWrittenBack_data() {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("number");
        QTest::newRow("0") << 0 << 34;
        QTest::newRow("35") << 35 << 1;
        QTest::newRow("-3") << -3 << 34;
        QTest::newRow("12") << 12 << 12;
    }
    void AStoredNumberIsPutRightAndWrittenBack() {
        QFETCH(int, stored);
        QFETCH(int, number);
        const TestLibrary library(SomeForms());
        Store(library, stored);
        TestWindow window(library.Folder());
        QCOMPARE(window->State().ThemeNumber, number);
        QCOMPARE(window->Store().ReadThemeNumber(), std::optional(number));
        Wears(window, ThemeOf(number));
    }

    // The entry is ticked by what was stored, before the number is put right.
    void TheTickAtLoadTellsTheStoredNumber_data() {
        QTest::addColumn<int>("stored");
        QTest::addColumn<bool>("ticked");
        QTest::newRow("the first theme") << 1 << true;
        QTest::newRow("another") << 2 << false;
        QTest::newRow("one that becomes the first") << 35 << false;
    }
    void TheTickAtLoadTellsTheStoredNumber() {
        QFETCH(int, stored);
        const TestLibrary library(SomeForms());
        Store(library, stored);
        TestWindow window(library.Folder());
        QTEST(IsTicked(window), "ticked");
    }

    void ALibraryWithoutFormsGetsNoTheme() {
        TestWindow window(std::vector<TestForm>{});
        QVERIFY(window->styleSheet().isEmpty());
        QCOMPARE(window->Store().ReadThemeNumber(), std::optional(7));
    }

    void WhatIsNoPartOfAThemeKeepsItsColor_data() {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"txtContent", "txtMyContent", "picLeftToolbar", "btnSave", "btnPrint", "btnEditMSWord",
              "cmdAddJurat", "AddVerification", "btnSpellCheck", "btnHelp", "menuBar", "StatusBar1",
              "fmeSubject", "fmeTitle", "fmeEditToolBar"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void WhatIsNoPartOfAThemeKeepsItsColor() {
        QFETCH(QString, name);
        TestWindow window;
        auto* control = window->findChild<QWidget*>(name);
        QVERIFY(control);
        window->themeCommands->ApplyTheme(ThemeOf(1));
        const QImage before = control->grab().toImage();
        window->themeCommands->ApplyTheme(ThemeOf(14));
        QImage after = control->grab().toImage();
        // frames hold lists, which do change: their own ground is compared
        QCOMPARE(after.pixelColor(3, after.height() / 2), before.pixelColor(3, before.height() / 2));
    }

    void TheToolbarAndItsButtonsHaveTheDesktopsButtonFaceUnderEveryTheme() {
        TestWindow window;
        QVERIFY(window.Show());
        const QColor face = QGuiApplication::palette().color(QPalette::Button);
        for (const int number : {1, 2, 14}) {
            window->themeCommands->ApplyTheme(ThemeOf(number));
            QWidget* bar = window->leftToolbar->picLeftToolbar;
            QCOMPARE(GroundOf(bar), face);
            for (QWidget* button : bar->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
                QCOMPARE(PixelOf(bar, button->pos() + QPoint(3, 3)), face);
        }
    }

    void OtherWindowsAreNotThemed_data() {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"frmPageSetup", "frmJurat", "frmVerification", "frmSave", "frmAbout", "frmContact"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void OtherWindowsAreNotThemed() {
        QFETCH(QString, name);
        TestWindow window;
        window->themeCommands->ApplyTheme(ThemeOf(1));
        QWidget* other = window->Windows().Load(name);
        QVERIFY(other);
        const QImage before = other->grab().toImage();
        window->themeCommands->ApplyTheme(ThemeOf(14));
        QVERIFY(other->grab().toImage() == before);
    }

    void HeadingsHaveAGroundOfTheirOwnOnABlackPage_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"lblQuillbrook", "lblSearch", "lblFavorites", "lblHistory"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void HeadingsHaveAGroundOfTheirOwnOnABlackPage() {
        QFETCH(QString, name);
        TestWindow window;
        window->themeCommands->ApplyTheme(ThemeOf(2));
        auto* label = window->findChild<platform::PageLabel*>(name);
        QVERIFY(label);
        const QImage shown = label->grab(label->Ground()).toImage();
        const QColor ground = shown.pixelColor(shown.width() / 2, 4);
        QVERIFY(ground.lightness() > 200);
        int dark = 0;
        for (int x = 0; x < shown.width(); ++x)
            for (int y = 3; y < shown.height() - 3; ++y)
                dark += shown.pixelColor(x, y).lightness() < 80 ? 1 : 0;
        QVERIFY(dark > 50); // its text
    }

    void TheMenusDefaultTurnsTheLinksBlueAndKeepsThemSo() {
        TestWindow window;
        CategoryBrowser& page = *window->categoryBrowser;
        for (platform::HyperLabel* link : {page.httpAttyMerrow, page.httpFacebook})
            QVERIFY(!link->colors().ground.isValid());
        window->Menu(u"mnuWindowsDefaultTheme"_qs)->trigger();
        const QColor face = QGuiApplication::palette().color(QPalette::Button);
        const QColor blue(0, 0, 255);
        for (const int number : {1, 2, 8}) {
            window->themeCommands->ApplyTheme(ThemeOf(number));
            for (platform::HyperLabel* link : {page.httpAttyMerrow, page.httpFacebook}) {
                QCOMPARE(link->colors().ground, face);
                QCOMPARE(link->colors().text, blue);
                QCOMPARE(link->colors().textUnderMouse, blue);
                QCOMPARE(PixelOf(link, {1, 1}), face);
            }
        }
    }

    void TheMenusDefaultTicksItselfStoresOneAndLeavesTheNumberOfTheStart() {
        TestWindow window;
        QVERIFY(!IsTicked(window));
        for (int clicks = 0; clicks < 2; ++clicks) { // a second one does not take the tick away
            window->Menu(u"mnuWindowsDefaultTheme"_qs)->trigger();
            QVERIFY(IsTicked(window));
            QCOMPARE(window->Store().ReadThemeNumber(), std::optional(1));
            QCOMPARE(window->State().ThemeNumber, 7);
            Wears(window, ThemeOf(1));
        }
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void AThemeThatCannotBeStoredIsShown() {
        TestWindow window;
        window->Store().CloseLibrary();
        window->Menu(u"mnuWindowsDefaultTheme"_qs)->trigger();
        QVERIFY(IsTicked(window));
        Wears(window, ThemeOf(1));
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TheThemeOfTheLoadIsShownThoughItCannotBeStored() {
        TestWindow window;
        window->Store().CloseLibrary();
        window->State().ThemeNumber = 45;
        window->themeCommands->LoadTheme();
        QCOMPARE(window->State().ThemeNumber, 1);
        Wears(window, ThemeOf(1));
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TheFirstThemeFollowsADesktopThatTurnsDark() {
        TestWindow window;
        window->Menu(u"mnuWindowsDefaultTheme"_qs)->trigger();
        QApplication::setPalette(DarkDesktop());
        QCOMPARE(PageOf(window), QColor(52, 52, 56));
        Wears(window, ThemeOf(1));
        QCOMPARE(window->categoryBrowser->httpAttyMerrow->colors().ground, QColor(52, 52, 56));
        QVERIFY(GroundOf(window->leftToolbar->picLeftToolbar).lightness() < 80);
        QApplication::setPalette(m_desktop);
        QCOMPARE(PageOf(window), m_desktop.color(QPalette::Button));
        Wears(window, ThemeOf(1));
    }

    void AFixedThemeStaysOnADarkDesktop() {
        TestWindow window;
        QApplication::setPalette(DarkDesktop());
        Wears(window, ThemeOf(7));
        QVERIFY(GroundOf(window->leftToolbar->picLeftToolbar).lightness() < 80);
    }

    void TheAccentSurvivesAChangeOfTheDesktop() {
        const QColor accent = QGuiApplication::palette().color(QPalette::Active, QPalette::Highlight);
        QApplication::setPalette(DarkDesktop());
        QCOMPARE(QGuiApplication::palette().color(QPalette::Active, QPalette::Highlight), accent);
        QCOMPARE(QGuiApplication::palette().color(QPalette::Base), QColor(30, 30, 32));
    }
};

QTEST_MAIN(ThemeCommandsTest)
#include "theme_commands_test.moc"
