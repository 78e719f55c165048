#include "platform/controls/option_button.h"

#include <QtTest>
#include <QtWidgets>

using platform::OptionButton;

class OptionButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OptionsOfOneFrameExcludeEachOther() {
        QGroupBox frame, other;
        OptionButton a(u"A"_qs, &frame), b(u"B"_qs, &frame), elsewhere(u"C"_qs, &other);
        elsewhere.setValue(true);
        a.setValue(true);
        b.setValue(true);
        QVERIFY(!a.Value());
        QVERIFY(b.Value());
        QVERIFY(elsewhere.Value());
    }

    void SettingRaisesClickAndClearingDoesNot() {
        OptionButton option(u"A"_qs);
        QSignalSpy clicks(&option, &OptionButton::Click);
        option.setValue(true);
        QCOMPARE(clicks.size(), 1);
        option.setValue(false);
        QVERIFY(!option.Value());
        QCOMPARE(clicks.size(), 1);
    }

    void TheOneThatIsSetCanBeClearedAndSetAgain() {
        QGroupBox frame;
        OptionButton a(u"A"_qs, &frame), b(u"B"_qs, &frame);
        a.setValue(true);
        a.setValue(false);
        QVERIFY(!a.Value() && !b.Value());
        b.setValue(true);
        a.setValue(true);
        QVERIFY(a.Value() && !b.Value());
    }

    void TheUserSetsItByMouseAndBySpace() {
        QGroupBox frame;
        OptionButton a(u"A"_qs, &frame), b(u"B"_qs, &frame);
        a.setGeometry(0, 0, 17, 17);
        b.setGeometry(0, 20, 17, 17);
        frame.show();
        QSignalSpy clicksOfA(&a, &OptionButton::Click), clicksOfB(&b, &OptionButton::Click);
        QTest::mouseClick(&a, Qt::LeftButton);
        QVERIFY(a.Value());
        QTest::keyClick(&b, Qt::Key_Space);
        QVERIFY(!a.Value() && b.Value());
        QCOMPARE(clicksOfA.size(), 1);
        QCOMPARE(clicksOfB.size(), 1);
    }
};

QTEST_MAIN(OptionButtonTest)
#include "option_button_test.moc"
