#include "platform/controls/my_button.h"

#include <QtTest>
#include <QtWidgets>

using platform::MyButton;

class MyButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AClickAloneDoesNotPressIt() {
        MyButton button(MyButton::Kind::Toggle);
        QSignalSpy clicks(&button, &MyButton::Click);
        button.show();
        QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(clicks.size(), 1);
        QVERIFY(!button.Value());
        button.setValue(true);
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(button.Value());
    }

    void SettingThePressedStateRaisesNothing() {
        MyButton button(MyButton::Kind::Toggle);
        QSignalSpy clicks(&button, &MyButton::Click);
        button.setValue(true);
        button.setValue(false);
        QCOMPARE(clicks.size(), 0);
    }

    void TheKeyboardClicksItToo() {
        MyButton button(MyButton::Kind::Plain);
        button.show();
        QSignalSpy clicks(&button, &MyButton::Click);
        QTest::keyClick(&button, Qt::Key_Space);
        QCOMPARE(clicks.size(), 1);
    }

    void TheDropDownPartIsToldApart() {
        MyButton button(MyButton::Kind::Large);
        button.AddDropDown();
        button.resize(60, 50);
        button.show();
        QSignalSpy clicks(&button, &MyButton::Click);
        QSignalSpy drops(&button, &MyButton::DropDownClick);
        QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, {57, 25});
        QCOMPARE(drops.size(), 1);
        QCOMPARE(clicks.size(), 0);
        QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, {15, 25});
        QCOMPARE(drops.size(), 1);
        QCOMPARE(clicks.size(), 1);
    }

    void TheKeyboardReachesTheDropDownPart() {
        MyButton button(MyButton::Kind::Large);
        QSignalSpy drops(&button, &MyButton::DropDownClick);
        QTest::keyClick(&button, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(drops.size(), 0); // there is none
        button.AddDropDown();
        QTest::keyClick(&button, Qt::Key_Down);
        QCOMPARE(drops.size(), 0);
        QTest::keyClick(&button, Qt::Key_Down, Qt::AltModifier);
        QCOMPARE(drops.size(), 1);
    }

    void TheCaptionIsItsText() {
        MyButton button(MyButton::Kind::Plain);
        button.setCaption(u"Favorite"_qs);
        QCOMPARE(button.Caption(), u"Favorite"_qs);
    }
};

QTEST_MAIN(MyButtonTest)
#include "my_button_test.moc"
