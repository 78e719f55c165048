#include "appearance/look.h"

#include "appearance/icons.h"

#include "platform/controls/my_button.h"

#include <QtTest>
#include <QtWidgets>

class LookTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { quillbrook::ApplyLook(*qApp); }

    void MessageBoxesHaveThePicturesOfTheProgram_data() {
        QTest::addColumn<QMessageBox::Icon>("icon");
        QTest::addColumn<QString>("picture");
        QTest::newRow("information") << QMessageBox::Information << u"message-information"_qs;
        QTest::newRow("question") << QMessageBox::Question << u"message-question"_qs;
        QTest::newRow("exclamation") << QMessageBox::Warning << u"message-warning"_qs;
        QTest::newRow("critical") << QMessageBox::Critical << u"message-critical"_qs;
    }
    void MessageBoxesHaveThePicturesOfTheProgram() {
        QFETCH(QMessageBox::Icon, icon);
        QFETCH(QString, picture);
        QMessageBox box;
        box.setIcon(icon);
        const QPixmap shown = box.iconPixmap();
        QVERIFY(!shown.isNull());
        const QPixmap own = quillbrook::Picture(picture).pixmap(shown.size(), 1.0);
        QVERIFY(!own.isNull());
        QCOMPARE(shown.toImage(), own.toImage());
    }

    void TheDefaultButtonShowsItsFocus_data() {
        QTest::addColumn<QString>("dialog");
        QTest::newRow("of any dialog") << u"frmSave"_qs;
        QTest::newRow("of the themes, on their colours") << u"frmTheme"_qs;
    }
    void TheDefaultButtonShowsItsFocus() {
        QFETCH(QString, dialog);
        QDialog window;
        window.setObjectName(dialog);
        platform::MyButton other(platform::MyButton::Kind::Plain, &window);
        platform::MyButton button(platform::MyButton::Kind::Plain, &window);
        button.setProperty("default", true);
        button.setGeometry(100, 10, 80, 28);
        window.resize(200, 50);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other.setFocus();
        const QImage without = button.grab().toImage();
        button.setFocus();
        QVERIFY(button.grab().toImage() != without);
    }

    void TheDefaultButtonStandsAtTheRight_data() {
        QTest::addColumn<QDialogButtonBox::StandardButtons>("buttons");
        QTest::addColumn<QDialogButtonBox::StandardButton>("right");
        QTest::newRow("OK") << (QDialogButtonBox::Ok | QDialogButtonBox::Cancel) << QDialogButtonBox::Ok;
        QTest::newRow("Yes") << (QDialogButtonBox::Yes | QDialogButtonBox::No) << QDialogButtonBox::Yes;
    }
    void TheDefaultButtonStandsAtTheRight() {
        QFETCH(QDialogButtonBox::StandardButtons, buttons);
        QFETCH(QDialogButtonBox::StandardButton, right);
        QDialogButtonBox box(buttons);
        box.show();
        for (const QAbstractButton* button : box.buttons())
            QVERIFY(button->x() <= box.button(right)->x());
    }
};

QTEST_MAIN(LookTest)
#include "look_test.moc"
