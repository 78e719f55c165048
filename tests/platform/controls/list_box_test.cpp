#include "platform/controls/list_box.h"

#include <QtTest>
#include <QtWidgets>

using platform::ListBox;

class ListBoxTest : public QObject {
    Q_OBJECT

    static void ClickEntry(ListBox& list, int row, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(list.viewport(), button, Qt::NoModifier,
                          list.visualRect(list.model()->index(row, 0)).center());
    }

private Q_SLOTS:
    void ASortedListKeepsItsEntriesInAlphabeticalOrder() {
        ListBox list(true);
        for (const QString& text : {u"Deed"_qs, u"affidavit"_qs, u"Élan"_qs, u"Zoning"_qs, u"Easement"_qs})
            list.AddItem(text);
        QCOMPARE(list.Items(),
                 QStringList({u"affidavit"_qs, u"Deed"_qs, u"Easement"_qs, u"Élan"_qs, u"Zoning"_qs}));
    }

    void ManyEntriesAtOnceStandAsOneAfterTheOther() {
        const QStringList texts{u"b"_qs, u"C"_qs, u"a"_qs, u"B"_qs, u"a"_qs};
        ListBox one(true);
        for (const QString& text : texts)
            one.AddItem(text);
        ListBox many(true);
        many.AddItems(texts);
        QCOMPARE(many.Items(), one.Items());
    }

    void AnUnsortedListKeepsTheOrderOfInsertion() {
        ListBox list(false);
        list.AddItem(u"b"_qs);
        list.AddItem(u"a"_qs);
        QCOMPARE(list.Items(), QStringList({u"b"_qs, u"a"_qs}));
    }

    void NothingIsSelectedAtFirst() {
        ListBox list(true);
        list.AddItem(u"a"_qs);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(list.Text(), QString());
    }

    void SelectingByTextRaisesClickOnce() {
        ListBox list(true);
        list.AddItems({u"a"_qs, u"b"_qs});
        QSignalSpy clicks(&list, &ListBox::Click);
        list.setText(u"b"_qs);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(list.ListIndex(), 1);
        list.setText(u"B"_qs);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(list.Text(), u"b"_qs);
    }

    void AnIndexOutsideTheListSelectsAndRaisesNothing() {
        ListBox list(true);
        list.AddItem(u"a"_qs);
        QSignalSpy clicks(&list, &ListBox::Click);
        list.setListIndex(1);
        list.setListIndex(-1);
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(list.List(5), QString());
    }

    void TheSelectedEntryClickedAgainRaisesClickAgain() {
        ListBox list(true);
        list.AddItem(u"a"_qs);
        list.setListIndex(0);
        QSignalSpy clicks(&list, &ListBox::Click);
        list.setListIndex(0);
        QCOMPARE(clicks.size(), 1);
    }

    void FillingAndEmptyingRaiseNothing() {
        ListBox list(true);
        QSignalSpy clicks(&list, &ListBox::Click);
        list.AddItems({u"b"_qs, u"c"_qs});
        list.setListIndex(0);
        list.AddItem(u"a"_qs);
        QCOMPARE(list.Text(), u"b"_qs);
        list.RemoveItem(1);
        QCOMPARE(list.ListIndex(), -1);
        list.Clear();
        QCOMPARE(list.ListCount(), 0);
        QCOMPARE(clicks.size(), 1);
    }

    void TheMouseChoosesWhenTheButtonIsLetGo() {
        ListBox list(true);
        list.AddItems({u"a"_qs, u"b"_qs, u"c"_qs});
        list.show();
        QSignalSpy clicks(&list, &ListBox::Click);
        const QPoint second = list.visualRect(list.model()->index(1, 0)).center();
        QTest::mousePress(list.viewport(), Qt::LeftButton, Qt::NoModifier, second);
        QCOMPARE(clicks.size(), 0);
        QTest::mouseRelease(list.viewport(), Qt::LeftButton, Qt::NoModifier, second);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(list.Text(), u"b"_qs);
        ClickEntry(list, 1);
        QCOMPARE(clicks.size(), 2);
    }

    void OtherButtonsAndTheGroundBelowTheEntriesChooseNothing() {
        ListBox list(true);
        list.AddItem(u"a"_qs);
        list.resize(200, 200);
        list.show();
        list.setListIndex(0);
        QSignalSpy clicks(&list, &ListBox::Click);
        ClickEntry(list, 0, Qt::RightButton);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, {20, 150});
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(list.Text(), u"a"_qs);
    }

    void AnArrowKeyChoosesAtOnce() {
        ListBox list(true);
        list.AddItems({u"a"_qs, u"b"_qs});
        list.show();
        list.setListIndex(0);
        QSignalSpy clicks(&list, &ListBox::Click);
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(clicks.size(), 1);
        QCOMPARE(list.Text(), u"b"_qs);
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(clicks.size(), 1);
    }

    void ATypedLetterChoosesTheNextEntryThatBeginsWithIt() {
        ListBox list(true);
        list.AddItems({u"Affidavits"_qs, u"Deeds"_qs, u"Motions"_qs});
        list.show();
        QTest::keyClick(&list, Qt::Key_M);
        QCOMPARE(list.Text(), u"Motions"_qs);
    }

    void TheLettersOfAWordChooseOneEntryAtTheirEnd() {
        ListBox list(true);
        list.AddItems({u"Deed"_qs, u"Demand"_qs, u"Motions"_qs});
        list.show();
        QSignalSpy clicks(&list, &ListBox::Click);
        QTest::keyClicks(&list, u"dem"_qs);
        QCOMPARE(clicks.size(), 0);
        QTRY_COMPARE(clicks.size(), 1);
        QCOMPARE(list.Text(), u"Demand"_qs);
    }

    void EnterBehindTypedLettersChoosesAtOnce() {
        ListBox list(true);
        list.AddItems({u"Deed"_qs, u"Motions"_qs});
        list.show();
        QSignalSpy clicks(&list, &ListBox::Click);
        QTest::keyClick(&list, Qt::Key_M);
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(clicks.size(), 1);
        QTest::qWait(QApplication::keyboardInputInterval() + 100);
        QCOMPARE(clicks.size(), 1);
    }

    void AnythingElseTheUserDoesFindsTheTypedEntryChosen_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("a button") << 0 << 0;
        QTest::newRow("a shortcut") << int(Qt::Key_S) << int(Qt::ControlModifier);
        QTest::newRow("a function key") << int(Qt::Key_F5) << 0;
        QTest::newRow("the next control") << int(Qt::Key_Tab) << 0;
    }
    void AnythingElseTheUserDoesFindsTheTypedEntryChosen() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QWidget window;
        QVBoxLayout column(&window);
        ListBox list(true);
        QPushButton button;
        button.setFocusPolicy(key == Qt::Key_Tab ? Qt::StrongFocus : Qt::NoFocus);
        column.addWidget(&list);
        column.addWidget(&button);
        list.AddItems({u"Deed"_qs, u"Motions"_qs});
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        list.setFocus();
        QStringList told;
        connect(&list, &ListBox::Click, &window, [&] { told += u"chosen"_qs; });
        connect(&button, &QPushButton::clicked, &window, [&] { told += u"done"_qs; });
        for (const QKeySequence& keys : {QKeySequence(Qt::CTRL | Qt::Key_S), QKeySequence(Qt::Key_F5)})
            connect(new QShortcut(keys, &window), &QShortcut::activated, &window,
                    [&] { told += u"done"_qs; });
        QTest::keyClick(&list, Qt::Key_M);
        QCOMPARE(told, QStringList());
        if (key == 0)
            QTest::mouseClick(&button, Qt::LeftButton);
        else
            QTest::keyClick(window.windowHandle(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        if (key == Qt::Key_Tab)
            QTest::mouseClick(&button, Qt::LeftButton);
        QCOMPARE(told, QStringList({u"chosen"_qs, u"done"_qs}));
        QCOMPARE(list.Text(), u"Motions"_qs);
        QTest::qWait(QApplication::keyboardInputInterval() + 100);
        QCOMPARE(told.size(), 2); // once only
    }

    void AKeyWithoutAUseHereGoesNowhereElse() {
        QWidget window;
        QVBoxLayout column(&window);
        ListBox list(true);
        QLineEdit form;
        column.addWidget(&list);
        column.addWidget(&form);
        list.AddItems({u"Deed"_qs, u"Motions"_qs});
        connect(&list, &ListBox::Click, &form, [&form] { form.setFocus(); });
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        list.setFocus();
        QGuiApplication::clipboard()->setText(u"pasted"_qs);
        // a slow machine does not let the pause pass between the two keys
        QApplication::setKeyboardInputInterval(2000);
        const auto usual = qScopeGuard([] { QApplication::setKeyboardInputInterval(400); });
        QTest::keyClick(window.windowHandle(), Qt::Key_M);
        QTest::keyClick(window.windowHandle(), Qt::Key_V, Qt::ControlModifier);
        QTRY_VERIFY(form.hasFocus());
        QCOMPARE(list.Text(), u"Motions"_qs);
        QCOMPARE(form.text(), QString());
    }

    void EnterChoosesTheSelectedEntryAgain() {
        ListBox list(true);
        list.AddItems({u"Deed"_qs, u"Motions"_qs});
        list.show();
        QSignalSpy clicks(&list, &ListBox::Click);
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(clicks.size(), 0);
        list.setListIndex(1);
        QTest::keyClick(&list, Qt::Key_Return);
        QTest::keyClick(&list, Qt::Key_Enter);
        QCOMPARE(clicks.size(), 3);
        QCOMPARE(list.Text(), u"Motions"_qs);
    }

    void AnotherChoiceEndsWhatTypedLettersBegan() {
        ListBox list(true);
        list.AddItems({u"Deed"_qs, u"Motions"_qs});
        list.show();
        QSignalSpy clicks(&list, &ListBox::Click);
        QTest::keyClick(&list, Qt::Key_M);
        list.setListIndex(0);
        QTest::keyClick(&list, Qt::Key_M);
        list.SetItems({u"Deed"_qs, u"Motions"_qs});
        QTest::qWait(QApplication::keyboardInputInterval() + 100);
        QCOMPARE(clicks.size(), 1);
    }

    void ALineSeenOnlyInPartIsNeitherDrawnNorChosen_data() {
        QTest::addColumn<bool>("wraps");
        QTest::newRow("one line each") << false;
        QTest::newRow("more lines") << true;
    }
    void ALineSeenOnlyInPartIsNeitherDrawnNorChosen() {
        QFETCH(bool, wraps);
        ListBox list(false);
        if (wraps)
            list.WrapEntries();
        list.AddItems(QStringList(20, u"MMMM"_qs));
        list.show();
        const int row = list.visualRect(list.model()->index(0, 0)).height();
        list.resize(200, list.height() - list.viewport()->height() + 3 * row + row / 2);
        QTRY_COMPARE(list.viewport()->height(), 3 * row + row / 2);
        const QImage drawn = list.viewport()->grab().toImage();
        const auto isBare = [&drawn](int from, int to) {
            for (int y = from; y < to; ++y)
                for (int x = 0; x < drawn.width(); ++x)
                    if (drawn.pixel(x, y) != drawn.pixel(drawn.width() - 1, 0))
                        return false;
            return true;
        };
        QVERIFY(!isBare(2 * row, 3 * row));
        QVERIFY(isBare(3 * row, drawn.height()));
        const QSignalSpy clicks(&list, &ListBox::Click);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, {20, 3 * row + 3});
        QCOMPARE(clicks.size(), 0);
        // nor is the mouse over it told as over an entry
        QSignalSpy moves(&list, &ListBox::MouseMove);
        for (const int y : {3 * row - 3, 3 * row + 3}) {
            QMouseEvent move(QEvent::MouseMove, QPointF(20, y), list.viewport()->mapToGlobal(QPointF(20, y)),
                             Qt::NoButton, Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(list.viewport(), &move);
        }
        QCOMPARE(moves.size(), 2);
        QCOMPARE(moves[0][1].toInt(), 2);
        QCOMPARE(moves[1][1].toInt(), -1);
    }

    void ADoubleClickIsToldBesideTheClicks() {
        ListBox list(true);
        list.AddItem(u"a"_qs);
        list.show();
        QSignalSpy doubles(&list, &ListBox::DoubleClick);
        const QPoint first = list.visualRect(list.model()->index(0, 0)).center();
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, first);
        QCOMPARE(doubles.size(), 1);
    }

    void GettingTheFocusChoosesNothing() {
        ListBox list(true);
        list.AddItems({u"a"_qs, u"b"_qs});
        list.show();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        QSignalSpy clicks(&list, &ListBox::Click);
        list.clearFocus();
        list.setFocus(Qt::TabFocusReason);
        QVERIFY(list.hasFocus());
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(list.ListIndex(), -1);
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(list.Text(), u"a"_qs);
    }

    void TabLeavesTheList() {
        QWidget window;
        ListBox list(true, &window);
        list.AddItem(u"a"_qs);
        QLineEdit next(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Tab);
        QVERIFY(next.hasFocus());
    }
};

QTEST_MAIN(ListBoxTest)
#include "list_box_test.moc"
