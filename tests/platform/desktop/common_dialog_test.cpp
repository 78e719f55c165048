// The file dialogs, answered with keys.
#include "platform/desktop/common_dialog.h"

#include <QtTest>
#include <QtWidgets>

using platform::CommonDialog;
using platform::FileChoice;

class CommonDialogTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;
    QString Path(const QString& name) const { return m_folder.filePath(name); }

    static FileChoice Choice(const QString& file = {}) {
        FileChoice choice;
        choice.title = u"Save As"_qs;
        choice.filter = u"Forms (*.rtf) (*.rtf *.txt)"_qs;
        choice.asksBeforeOverwriting = true;
        choice.FileName = file;
        return choice;
    }

    // Does this when the next dialog is there.
    template <class Action>
    static void InDialog(Action action) {
        QTimer::singleShot(0, qApp, [action] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            QVERIFY(QTest::qWaitForWindowActive(dialog));
            QTimer::singleShot(10'000, dialog, &QDialog::reject); // whatever goes wrong
            action(*dialog);
        });
    }
    static void Enter(QFileDialog& dialog, const QString& name) {
        auto* line = dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs);
        line->selectAll();
        QTest::keyClicks(line, name);
        QTest::keyClick(line, Qt::Key_Return);
    }

private Q_SLOTS:
    void initTestCase() {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QFile old(Path(u"old.rtf"_qs));
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    }

    void ItSaysWhatItWasAskedToSay() {
        FileChoice choice = Choice();
        QString title;
        QStringList kinds;
        InDialog([&](QFileDialog& dialog) {
            title = dialog.windowTitle();
            const auto* list = dialog.findChild<QComboBox*>(u"fileTypeCombo"_qs);
            for (int i = 0; i < list->count(); ++i)
                kinds += list->itemText(i).trimmed();
            dialog.reject();
        });
        QVERIFY(!CommonDialog().ShowSave(nullptr, choice));
        QCOMPARE(title, u"Save As"_qs);
        QCOMPARE(kinds, QStringList{u"Forms (*.rtf)"_qs}); // without the patterns behind it
    }

    void TheTypedNameIsGivenAsItIs_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("with an extension") << u"deed.txt"_qs;
        QTest::newRow("without one") << u"deed"_qs;
    }
    void TheTypedNameIsGivenAsItIs() {
        QFETCH(QString, name);
        FileChoice choice = Choice();
        InDialog([&](QFileDialog& dialog) { Enter(dialog, Path(name)); });
        QVERIFY(CommonDialog().ShowSave(nullptr, choice));
        QCOMPARE(choice.FileName, Path(name));
        QCOMPARE(choice.FileTitle(), name);
    }

    void TheFileChosenLastIsInIt() {
        FileChoice choice = Choice(Path(u"deed.rtf"_qs));
        QString shown;
        InDialog([&](QFileDialog& dialog) {
            shown = dialog.findChild<QLineEdit*>(u"fileNameEdit"_qs)->text();
            dialog.reject();
        });
        QVERIFY(!CommonDialog().ShowSave(nullptr, choice));
        QCOMPARE(shown, u"deed.rtf"_qs);
        QCOMPARE(choice.FileName, Path(u"deed.rtf"_qs)); // cancelled, and as it was
    }

    void AFileThatIsThereIsAskedAbout_data() {
        QTest::addColumn<bool>("asks");
        QTest::newRow("asks") << true;
        QTest::newRow("does not ask") << false;
    }
    void AFileThatIsThereIsAskedAbout() {
        QFETCH(bool, asks);
        FileChoice choice = Choice();
        choice.asksBeforeOverwriting = asks;
        bool asked = false;
        InDialog([&](QFileDialog& dialog) {
            QTimer::singleShot(0, &dialog, [&asked] { // no longer than the dialog
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                asked = box != nullptr;
                if (box)
                    QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
            });
            Enter(dialog, Path(u"old.rtf"_qs));
        });
        QVERIFY(CommonDialog().ShowSave(nullptr, choice));
        QCOMPARE(asked, asks);
        QCOMPARE(choice.FileName, Path(u"old.rtf"_qs));
    }

    void KindAndDateOfTheFilesAreReadWhole() {
        FileChoice choice = Choice(Path(u"old.rtf"_qs));
        bool isWhole = false;
        InDialog([&](QFileDialog& dialog) {
            auto* list = dialog.findChild<QTreeView*>(u"treeView"_qs);
            const auto fits = [list](int column) {
                const QModelIndex file = list->model()->index(0, column, list->rootIndex());
                const QString text = file.data().toString();
                return !text.isEmpty() &&
                       list->fontMetrics().horizontalAdvance(text) + 4 < list->columnWidth(column);
            };
            isWhole = QTest::qWaitFor([&] { return fits(2) && fits(3); }, 5000);
            dialog.reject();
        });
        QVERIFY(!CommonDialog().ShowOpen(nullptr, choice));
        QVERIFY(isWhole);
    }

    void WhereTheUserWasIsNotWrittenDown() {
        FileChoice choice = Choice(Path(u"old.rtf"_qs));
        InDialog([this](QFileDialog& dialog) { Enter(dialog, Path(u"old.rtf"_qs)); });
        CommonDialog dialogs;
        QVERIFY(dialogs.ShowOpen(nullptr, choice));
        QSettings settings(QSettings::UserScope, u"QtProject"_qs); // where Qt's dialogs keep it
        QVERIFY2(!QFile::exists(settings.fileName()), qPrintable(settings.fileName()));
        QCOMPARE(settings.allKeys(), QStringList());
    }

    void NoPopUpOutlivesTheDialog() {
        FileChoice choice = Choice();
        bool wasOpen = false;
        bool isOpen = true;
        InDialog([&](QFileDialog& dialog) {
            connect(&dialog, &QDialog::finished, this,
                    [&isOpen] { isOpen = QApplication::activePopupWidget() != nullptr; });
            QMenu list(&dialog); // in the place of one of completions
            list.addAction(u"old.rtf"_qs);
            list.popup(dialog.pos());
            wasOpen = QApplication::activePopupWidget() == &list;
            dialog.reject();
        });
        QVERIFY(!CommonDialog().ShowOpen(nullptr, choice));
        QVERIFY(wasOpen);
        QVERIFY(!isOpen);
    }

    void AFileIsOpenedByItsName() {
        FileChoice choice = Choice();
        choice.title = u"Open"_qs;
        choice.filter = u"Supported Types (*.doc *.rtf *.txt)"_qs;
        QString kind;
        InDialog([&](QFileDialog& dialog) {
            kind = dialog.findChild<QComboBox*>(u"fileTypeCombo"_qs)->currentText().trimmed();
            Enter(dialog, Path(u"old.rtf"_qs));
        });
        QVERIFY(CommonDialog().ShowOpen(nullptr, choice));
        QCOMPARE(kind, u"Supported Types"_qs);
        QCOMPARE(choice.FileName, Path(u"old.rtf"_qs));
    }
};

QTEST_MAIN(CommonDialogTest)
#include "common_dialog_test.moc"
