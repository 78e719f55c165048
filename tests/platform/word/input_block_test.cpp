// What the windows still take while the program waits for the word processor.
#include "platform/word/input_block.h"

#include "platform/controls/hyper_label.h"
#include "platform/controls/my_button.h"

#include <QtTest>
#include <QtWidgets>

using platform::HyperLabel;
using platform::InputBlock;
using platform::MyButton;

namespace {

// A window with a button of each kind, a menu and a field.
struct Desk {
    Desk() {
        bold->setCheckable(true);
        // as entries with a mark do: what the entry does sets it
        QObject::connect(bold, &QAction::triggered, bold, [this](bool on) { bold->setChecked(!on); });
        auto* column = new QVBoxLayout(&window);
        column->setMenuBar(menuBar);
        for (QWidget* control : std::initializer_list<QWidget*>{button, tool, link, field})
            column->addWidget(control);
        for (QAction* entry : {print, bold})
            QObject::connect(entry, &QAction::triggered, [this] { ++chosen; });
        QObject::connect(button, &QPushButton::clicked, [this] { ++chosen; });
        QObject::connect(tool, &MyButton::Click, [this] { ++chosen; });
        QObject::connect(link, &HyperLabel::clicked, [this] { ++chosen; });
        window.show();
        shown = QTest::qWaitForWindowExposed(&window);
    }
    void ChooseAll() {
        for (QAction* entry : {print, bold})
            entry->trigger();
        button->click();
        link->click();
        QAccessible::queryAccessibleInterface(tool)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
    }

    QWidget window;
    QMenuBar* menuBar = new QMenuBar;
    QMenu* menu = menuBar->addMenu(u"Form"_qs);
    QAction* print = menu->addAction(u"Print"_qs);
    QAction* bold = menu->addAction(u"Bold"_qs);
    QPushButton* button = new QPushButton(u"Search"_qs);
    MyButton* tool = new MyButton(MyButton::Kind::Tool);
    HyperLabel* link = new HyperLabel(u"Website"_qs);
    QLineEdit* field = new QLineEdit;
    int chosen = 0;
    bool shown = false;
};

} // namespace

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
        QDialog dialog(&window); // loaded before, as some are
        QVBoxLayout column(&dialog);
        QPushButton ok(u"OK"_qs);
        column.addWidget(&ok);
        connect(&ok, &QPushButton::clicked, &dialog, &QDialog::accept);
        const InputBlock block;
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

    void WhatIsChosenWithoutKeysAndClicksDoesNothing() {
        Desk desk;
        {
            const InputBlock block;
            desk.ChooseAll();
        }
        QCOMPARE(desk.chosen, 0);
        QVERIFY(!desk.bold->isChecked());
        desk.ChooseAll();
        QCOMPARE(desk.chosen, 5);
    }

    void AButtonThatCanShowItselfPressedDoesNothingEither() {
        QWidget window;
        QVBoxLayout column(&window);
        MyButton toggle(MyButton::Kind::Toggle);
        column.addWidget(&toggle);
        window.show();
        const QSignalSpy clicks(&toggle, &MyButton::Click);
        {
            const InputBlock block;
            toggle.click();
        }
        QCOMPARE(clicks.size(), 0);
        QVERIFY(!toggle.Value());
        toggle.click();
        QCOMPARE(clicks.size(), 1);
    }

    // What is shown and what the program goes by stay the same.
    void AnOptionThatShowsItselfChosenTellsSo() {
        QWidget window;
        QVBoxLayout column(&window);
        QRadioButton any(u"Any word"_qs);
        QRadioButton all(u"All words"_qs);
        for (QRadioButton* option : {&any, &all})
            column.addWidget(option);
        any.setChecked(true);
        window.show();
        const QSignalSpy turns(&all, &QRadioButton::toggled);
        const InputBlock block;
        all.click();
        QCOMPARE(turns.size(), all.isChecked() ? 1 : 0);
    }

    // A page that comes to the front meanwhile brings its buttons.
    void ButtonsThatComeIntoViewMeanwhileDoNothingEither() {
        Desk desk;
        desk.button->hide();
        {
            const InputBlock block;
            desk.button->show();
            desk.ChooseAll();
        }
        QCOMPARE(desk.chosen, 0);
        desk.ChooseAll();
        QCOMPARE(desk.chosen, 5);
    }

    // Only choosing is silenced.
    void WhatTheProgramEnablesDisablesOrRenamesMeanwhileStaysSo() {
        Desk desk;
        desk.bold->setEnabled(false);
        desk.tool->setEnabled(false);
        {
            const InputBlock block;
            desk.print->setEnabled(false);
            desk.print->setText(u"Print..."_qs);
            desk.bold->setEnabled(true);
            desk.button->setEnabled(false);
            desk.tool->setEnabled(true);
        }
        QVERIFY(!desk.print->isEnabled());
        QVERIFY(desk.bold->isEnabled());
        QVERIFY(!desk.button->isEnabled());
        QVERIFY(desk.tool->isEnabled());
        const QAccessibleInterface* shown = QAccessible::queryAccessibleInterface(desk.menu)->child(0);
        QCOMPARE(shown->text(QAccessible::Name), u"Print..."_qs);
        QVERIFY(shown->state().disabled);
    }

    void OneThatBeginsWithinAnotherEndsNothingOfIt() {
        Desk desk;
        {
            const InputBlock block;
            { const InputBlock inner; }
            desk.ChooseAll();
        }
        QCOMPARE(desk.chosen, 0);
        desk.ChooseAll();
        QCOMPARE(desk.chosen, 5);
    }

    void AMenuThatComesMeanwhileCanBeClosed() {
        Desk desk;
        const InputBlock block;
        desk.menu->popup(desk.window.pos());
        QCOMPARE(QApplication::activePopupWidget(), desk.menu);
        desk.window.close();
        QVERIFY(desk.window.isVisible());
        QTest::keyClick(desk.menu, Qt::Key_Escape);
        QVERIFY(!desk.menu->isVisible());
        QTest::keyClicks(desk.field, u"deed"_qs);
        QCOMPARE(desk.field->text(), QString());
    }
};

QTEST_MAIN(InputBlockTest)
#include "input_block_test.moc"
