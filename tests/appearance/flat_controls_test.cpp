#include "appearance/flat_controls.h"
#include "appearance/look.h"
#include "appearance/theme_commands.h"
#include "appearance/themes.h"
#include "library/category_browser.h"
#include "platform/controls/list_box.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class FlatControlsTest : public QObject {
    Q_OBJECT

    // How many pixels of frame are drawn at the left edge of a control, halfway down.
    static int EdgeOf(QWidget* control) {
        const QImage shown = control->grab().toImage();
        const QColor ground = shown.pixelColor(shown.width() / 2, shown.height() - 8);
        int edge = 0;
        while (edge < 10 && shown.pixelColor(edge, shown.height() / 2) != ground)
            ++edge;
        return edge;
    }

private Q_SLOTS:
    void initTestCase() { ApplyLook(*qApp); }

    void SevenControlsAreFlatAfterTheStartAndTheOthersAreNot_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("edge");
        for (const char* name : {"txtContent", "lstTitle", "lstSubCategory", "lstSearch", "lstFavorites",
                                 "lstHistory", "lstMyTitle"})
            QTest::newRow(name) << QString::fromLatin1(name) << 1;
        QTest::newRow("txtMyContent") << u"txtMyContent"_qs << 2;
        QTest::newRow("lstMySubCategory") << u"lstMySubCategory"_qs << 2;
    }
    void SevenControlsAreFlatAfterTheStartAndTheOthersAreNot() {
        QFETCH(QString, name);
        TestWindow window;
        auto* control = window->findChild<QWidget*>(name);
        QVERIFY(control);
        control->resize(200, 100); // room for the pixels that are read
        QTEST(EdgeOf(control), "edge");
    }

    void AThemeLeavesTheEdgesAsTheyAre() {
        TestWindow window;
        window->themeCommands->ApplyTheme(ThemeOf(15));
        QCOMPARE(EdgeOf(window->categoryBrowser->lstTitle), 1);
        QCOMPARE(EdgeOf(window->txtMyContent()), 2);
    }

    void AControlThatIsOnTheScreenTurnsFlatInItsPlace_data() {
        QTest::addColumn<bool>("byControl");
        QTest::newRow("FlatObjects") << false;
        QTest::newRow("FlatTxt") << true;
    }
    void AControlThatIsOnTheScreenTurnsFlatInItsPlace() {
        QFETCH(bool, byControl);
        platform::ListBox list(false);
        list.setGeometry(30, 40, 200, 100);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QCOMPARE(EdgeOf(&list), 2);
        const QRect place = list.geometry();
        if (byControl)
            Flat_Controls().FlatTxt(&list);
        else
            Flat_Controls().FlatObjects(&list);
        QCOMPARE(EdgeOf(&list), 1);
        QCOMPARE(list.geometry(), place);
    }

    void NoControlIsPassedOver() {
        Flat_Controls styler;
        styler.FlatTxt(nullptr);
        styler.FlatObjects(nullptr);
        styler.FlatCmd(1, nullptr);
    }

    void FlatCmdShowsAPartOfTheButton_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QRect>("region");
        QTest::newRow("all of it") << 0 << QRect(0, 0, 75, 25);
        QTest::newRow("its inner part") << 1 << QRect(QPoint(2, 2), QPoint(74 - 1, 24 - 1));
    }
    void FlatCmdShowsAPartOfTheButton() {
        QFETCH(int, mode);
        QPushButton button;
        button.resize(75, 25);
        Flat_Controls().FlatCmd(mode, &button);
        QTEST(button.mask().boundingRect(), "region");
    }
};

QTEST_MAIN(FlatControlsTest)
#include "flat_controls_test.moc"
