#include "app/menu_tree.h"

#include "app/menu_table.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class MenuTreeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheMenusStandInTheirOrderWithTheirEntries() {
        TestWindow window;
        for (const MenuRow* top : MenuRowsIn({})) {
            const QMenu* menu = window->menuTree->Menu(QLatin1String(top->name));
            QVERIFY2(menu, top->name);
            const auto rows = MenuRowsIn(top->name);
            const QList<QAction*> actions = menu->actions();
            QCOMPARE(actions.size(), qsizetype(rows.size()));
            for (qsizetype i = 0; i < actions.size(); ++i) {
                const MenuRow& row = *rows[size_t(i)];
                QCOMPARE(actions[i]->objectName(), QLatin1String(row.name));
                QCOMPARE(actions[i]->text(), QLatin1String(row.caption));
                QCOMPARE(actions[i]->isSeparator(), row.kind == MenuKind::Bar);
                QCOMPARE(actions[i]->menu() != nullptr, row.kind == MenuKind::SubMenu);
                QCOMPARE(actions[i]->shortcut(), QKeySequence(QLatin1String(row.shortcut)));
            }
        }
    }

    void TheBarShowsSevenMenusAndThePopUpsStandNowhere() {
        TestWindow window;
        QStringList shown;
        for (const QAction* action : window->menuTree->MenuBar()->actions())
            shown.append(action->text());
        QCOMPARE(shown, QStringList({u"&File"_qs, u"&Edit"_qs, u"Paper Size"_qs, u"F&ormat"_qs, u"&Theme"_qs,
                                     u"&Add to Form"_qs, u"&Help"_qs}));
        for (const QString& name : {u"mnuPopUp"_qs, u"mnuDropSave"_qs, u"mnuDropPrint"_qs})
            QVERIFY(window->menuTree->Menu(name));
    }

    void AClickMovesNoCheckMarkByItself() {
        TestWindow window;
        QAction* entry = window->Menu(u"mnuHelpContents"_qs);
        entry->trigger();
        QVERIFY(!entry->isChecked());
        entry->setChecked(true);
        entry->trigger();
        QVERIFY(entry->isChecked());
    }

    void OnlyUndoAndRedoAreOffAfterTheLoad() {
        TestWindow window;
        QStringList off;
        for (const MenuRow& row : MenuTable())
            if (row.kind == MenuKind::Item && !window->Menu(QLatin1String(row.name))->isEnabled())
                off.append(QLatin1String(row.name));
        off.sort();
        QStringList expected{u"mnuPopRedo"_qs, u"mnuPopUndo"_qs, u"mnuRedo"_qs, u"mnuUndo"_qs};
        QCOMPARE(off, expected);
    }

    void AShortcutReachesItsEntryWhileAPaneHasTheFocus_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("key");
        const auto row = [](const char* name, int key) {
            QTest::newRow(name) << QString(QLatin1String(name)) << key;
        };
        row("mnuNew", Qt::Key_N);
        row("mnuOpen", Qt::Key_O);
        row("mnuSave", Qt::Key_S);
        row("mnuPrint", Qt::Key_P);
        row("mnuBold", Qt::Key_B);
        row("mnuItalic", Qt::Key_I);
        row("mnuUnderline", Qt::Key_U);
        row("mnuLeft", Qt::Key_L);
        row("mnuCenter", Qt::Key_E);
        row("mnuRight", Qt::Key_R);
    }
    void AShortcutReachesItsEntryWhileAPaneHasTheFocus() {
        QFETCH(QString, entry);
        QFETCH(int, key);
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::EditForm);
        window->txtContent()->setText(u"some text"_qs);
        QSignalSpy triggered(window->Menu(entry), &QAction::triggered);
        // the entry that opens a dialog would wait for its answer
        QTimer::singleShot(0, &*window, [] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                dialog->reject();
        });
        QTest::keyClick(window->txtContent(), Qt::Key(key), Qt::ControlModifier);
        QCOMPARE(triggered.size(), 1);
    }

    void AShortcutReachesItsEntryFromAFieldOfTextAndLeavesTheText_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("text");
        QTest::newRow("cboQuery") << int(Tab::Search) << u"deed"_qs;
        // these two show the format of the pane after each command
        QTest::newRow("cboFonts") << int(Tab::EditForm) << u"Times New Roman"_qs;
        QTest::newRow("cboFontSize") << int(Tab::EditForm) << u"12"_qs;
        QTest::newRow("txtMyTitle") << int(Tab::MyForms) << u"Deed"_qs;
        QTest::newRow("cboMySubCategory") << int(Tab::MyForms) << u"Deeds"_qs;
    }
    void AShortcutReachesItsEntryFromAFieldOfTextAndLeavesTheText() {
        QFETCH(int, tab);
        QFETCH(QString, text);
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab(tab));
        auto* field = window->findChild<QWidget*>(QLatin1String(QTest::currentDataTag()));
        const auto* combo = qobject_cast<QComboBox*>(field);
        auto* line = combo ? combo->lineEdit() : qobject_cast<QLineEdit*>(field);
        field->setFocus();
        line->setText(text);
        for (const auto& [name, key] :
             {std::pair(u"mnuBold"_qs, Qt::Key_B), std::pair(u"mnuItalic"_qs, Qt::Key_I),
              std::pair(u"mnuUnderline"_qs, Qt::Key_U), std::pair(u"mnuLeft"_qs, Qt::Key_L),
              std::pair(u"mnuCenter"_qs, Qt::Key_E), std::pair(u"mnuRight"_qs, Qt::Key_R)}) {
            QSignalSpy triggered(window->Menu(name), &QAction::triggered);
            field->setFocus();
            QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
            QVERIFY2(triggered.size() == 1, qPrintable(name));
            QCOMPARE(line->text(), text);
        }
    }

    void F1ReachesTheHelpEntryFromEveryPage() {
        TestWindow window;
        QVERIFY(window.Show());
        QSignalSpy triggered(window->Menu(u"mnuHelpContents"_qs), &QAction::triggered);
        for (int tab = 0; tab < 6; ++tab) {
            window->SetTab(Tab(tab));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
            QCOMPARE(triggered.size(), tab + 1);
        }
    }

    void CtrlQLeaves() {
        TestWindow window;
        QVERIFY(window.Show());
        QTest::keyClick(&*window, Qt::Key_Q, Qt::ControlModifier);
        QTRY_VERIFY(!window->isVisible());
    }
};

QTEST_MAIN(MenuTreeTest)
#include "menu_tree_test.moc"
