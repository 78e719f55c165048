#include "platform/word/input_block.h"

#include <QtTest>
#include <QtWidgets>

using platform::InputBlock;

class InputBlockTest : public QObject {
    Q_OBJECT

    // Opens the dialog and tries to close it by `close` until it goes. False when it has to be ended.
    static bool Closes(QDialog& dialog, const std::function<void()>& close) {
        QTimer tries;
        connect(&tries, &QTimer::timeout, &dialog, close);
        bool ended = false;
        QTimer::singleShot(5000, &dialog, [&] {
            ended = true;
            dialog.hide(); // needs no close event
        });
        tries.start(50);
        dialog.exec();
        return !ended;
    }

private Q_SLOTS:
    void AWindowTakesNoKeysNoClicksAndIsNotClosed() {
        QPushButton button;
        button.show();
        QVERIFY(QTest::qWaitForWindowActive(&button));
        const QSignalSpy clicks(&button, &QPushButton::clicked);
        {
            const InputBlock block;
            QTest::mouseClick(button.windowHandle(), Qt::LeftButton, Qt::NoModifier, button.rect().center());
            QTest::keyClick(button.windowHandle(), Qt::Key_Space);
            QVERIFY(!button.close());
        }
        QCOMPARE(clicks.size(), 0);
        QVERIFY(button.isVisible());
        QTest::keyClick(button.windowHandle(), Qt::Key_Space);
        QCOMPARE(clicks.size(), 1);
    }

    // Nobody else could end it, and what waits would wait for ever.
    void ADialogThatOpensMeanwhileTakesInput_data() {
        QTest::addColumn<QString>("by");
        for (const char* by : {"a key", "a click", "its close box"})
            QTest::newRow(by) << QString::fromLatin1(by);
    }
    void ADialogThatOpensMeanwhileTakesInput() {
        QFETCH(QString, by);
        QWidget window;
        window.show();
        const InputBlock block;
        QDialog dialog(&window);
        QVBoxLayout column(&dialog);
        QPushButton ok(u"OK"_qs);
        column.addWidget(&ok);
        connect(&ok, &QPushButton::clicked, &dialog, &QDialog::accept);
        QVERIFY(Closes(dialog, [&] {
            if (by == u"a key")
                QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
            else if (by == u"a click")
                QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                                  ok.geometry().center());
            else
                dialog.close();
        }));
        QVERIFY(!window.close()); // what lies behind it stays
    }

    void TheWindowBehindADialogThatOpensMeanwhileIsNotClosed() {
        QWidget window;
        window.show();
        const InputBlock block;
        QDialog dialog(&window);
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QVERIFY(!window.close());
        QVERIFY(window.isVisible());
    }

    void ADialogThatWasOpenBeforeTakesNone() {
        QDialog dialog;
        dialog.setModal(true);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        const InputBlock block;
        QTest::keyClick(dialog.windowHandle(), Qt::Key_Escape);
        QVERIFY(!dialog.close());
        QVERIFY(dialog.isVisible());
    }
};

QTEST_MAIN(InputBlockTest)
#include "input_block_test.moc"
