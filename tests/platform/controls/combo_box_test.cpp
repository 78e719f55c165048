#include "platform/controls/combo_box.h"

#include <QtTest>
#include <QtWidgets>

using platform::ComboBox;

class ComboBoxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FillingChangesNoTextAndRaisesNothing() {
        ComboBox box(true, true);
        QSignalSpy clicks(&box, &ComboBox::Click);
        box.setText(u"typed"_qs);
        box.AddItems({u"b"_qs, u"a"_qs});
        box.AddItem(u"c"_qs);
        QCOMPARE(box.Items(), QStringList({u"a"_qs, u"b"_qs, u"c"_qs}));
        QCOMPARE(box.Text(), u"typed"_qs);
        QCOMPARE(clicks.size(), 0);
    }

    void AnUnsortedBoxKeepsTheOrderOfInsertion() {
        ComboBox box(false, true);
        box.AddItem(u"b"_qs);
        box.AddItem(u"a"_qs);
        QCOMPARE(box.Items(), QStringList({u"b"_qs, u"a"_qs}));
        QCOMPARE(box.List(1), u"a"_qs);
        QCOMPARE(box.List(2), QString());
    }

    void EmptyingTakesTheTextToo() {
        ComboBox box(true, true);
        box.AddItem(u"a"_qs);
        box.setText(u"a"_qs);
        box.Clear();
        QCOMPARE(box.ListCount(), 0);
        QCOMPARE(box.Text(), QString());
    }

    void SelectingAnIndexShowsItAndRaisesClick() {
        ComboBox box(false, true);
        box.AddItems({u"8"_qs, u"10"_qs});
        QSignalSpy clicks(&box, &ComboBox::Click);
        box.setListIndex(1);
        QCOMPARE(box.Text(), u"10"_qs);
        QCOMPARE(clicks.size(), 1);
        box.setListIndex(2);
        QCOMPARE(clicks.size(), 1);
    }

    void WritingAnEqualTextLeavesTheCaretWhereItIs() {
        ComboBox box(false, true);
        box.setText(u"lease contract"_qs);
        box.lineEdit()->setCursorPosition(5);
        box.setText(u"lease contract"_qs);
        QCOMPARE(box.lineEdit()->cursorPosition(), 5);
    }

    void WhatIsTypedStaysAsTypedAndJoinsNoList() {
        ComboBox box(true, true);
        box.AddItem(u"Deeds"_qs);
        box.show();
        QTest::keyClicks(box.lineEdit(), u"deed"_qs);
        QTest::keyClick(box.lineEdit(), Qt::Key_Return);
        QCOMPARE(box.Text(), u"deed"_qs);
        QCOMPARE(box.ListCount(), 1);
    }

    void LeavingABoxPicksNothing_data() {
        QTest::addColumn<QString>("typed");
        QTest::newRow("passed with the keyboard") << QString();
        QTest::newRow("an entry typed") << u"14"_qs;
    }
    void LeavingABoxPicksNothing() {
        QFETCH(QString, typed);
        QWidget window;
        ComboBox box(false, true, &window);
        QLineEdit other(&window);
        box.AddItems({u"10"_qs, u"12"_qs, u"14"_qs});
        box.setListIndex(1);
        box.setText(u"10"_qs); // another entry's text
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QSignalSpy clicks(&box, &ComboBox::Click);
        box.setFocus();
        box.lineEdit()->selectAll();
        QTest::keyClicks(box.lineEdit(), typed);
        QTest::keyClick(box.lineEdit(), Qt::Key_Tab);
        QVERIFY(other.hasFocus());
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(box.Text(), typed.isEmpty() ? u"10"_qs : typed);
    }

    static void Turn(QWidget& control, int notches) {
        QWheelEvent event(QPointF(5, 5), control.mapToGlobal(QPointF(5, 5)), {}, {0, 120 * notches},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&control, &event);
    }

    void StepsBeginAtTheTextThatIsShown() {
        ComboBox box(false, true);
        box.AddItems({u"10"_qs, u"12"_qs, u"14"_qs, u"16"_qs});
        box.setListIndex(3);
        box.setText(u"12"_qs);
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        box.setFocus();
        QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(box.Text(), u"14"_qs);
        box.setText(u"10"_qs);
        QSignalSpy clicks(&box, &ComboBox::Click);
        Turn(box, -1);
        QCOMPARE(box.Text(), u"12"_qs);
        QCOMPARE(clicks.size(), 1);
    }

    void StepsLeadPastEntriesThatAreEqual() {
        ComboBox box(false, true);
        box.AddItems({u"lease"_qs, u"lease"_qs, u"lease"_qs, u"sale"_qs});
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        box.setFocus();
        box.setText(u"lease"_qs);
        for (int step = 0; step < 3; ++step)
            QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(box.Text(), u"sale"_qs);
        for (int step = 0; step < 3; ++step)
            Turn(box, 1);
        QCOMPARE(box.ListIndex(), 0);
    }

    void TheListOpensAtTheTextThatIsShown() {
        ComboBox box(false, true);
        box.AddItems({u"Arial"_qs, u"Courier"_qs});
        box.setListIndex(1);
        box.show();
        box.setText(u"Arial"_qs);
        box.showPopup();
        QCOMPARE(box.view()->currentIndex().row(), 0);
        box.hidePopup();
        box.setText(u"Times"_qs);
        box.showPopup();
        QVERIFY(!box.view()->currentIndex().isValid());
        box.hidePopup();
        QCOMPARE(box.Text(), u"Times"_qs);
    }

    void TheWheelPassesOverABoxWithoutTheKeyboard() {
        QWidget window;
        ComboBox box(false, true, &window);
        QLineEdit other(&window);
        box.AddItems({u"10"_qs, u"12"_qs, u"14"_qs});
        box.setListIndex(1);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other.setFocus();
        Turn(box, -1);
        QCOMPARE(box.Text(), u"12"_qs);
        QVERIFY(other.hasFocus());
    }

    void ABoxWithoutTypingShowsOnlyItsEntries() {
        ComboBox box(false, false);
        box.AddItems({u"a"_qs, u"b"_qs});
        box.setText(u"b"_qs);
        QCOMPARE(box.Text(), u"b"_qs);
        box.setText(u"none of them"_qs);
        QCOMPARE(box.Text(), QString());
    }
};

QTEST_MAIN(ComboBoxTest)
#include "combo_box_test.moc"
