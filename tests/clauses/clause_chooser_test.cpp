#include "clauses/clause_chooser.h"

#include "app/public_variables.h"
#include "platform/controls/frame.h"
#include "platform/controls/geometry.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/my_button.h"
#include "platform/controls/option_button.h"

#include <QAccessible>
#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

Q_DECLARE_METATYPE(quillbrook::ClauseDialog)

namespace {

constexpr auto kJurat = ClauseDialog::frmJurat;
constexpr auto kVerification = ClauseDialog::frmVerification;

std::unique_ptr<ClauseChooser> Make(ClauseDialog dialog, PublicVariables& variables) {
    if (dialog == kJurat)
        return std::make_unique<frmJurat>(variables);
    return std::make_unique<frmVerification>(variables);
}

QList<int> SetIn(const ClauseChooser& dialog) {
    QList<int> set;
    for (int number = 1; number <= dialog.Choices(); ++number)
        if (dialog.Option(number)->Value())
            set.append(number);
    return set;
}

// Numbers of the jurat, caption and verification chosen, and what is looked for.
QStringList Written(const PublicVariables& variables) {
    return {variables.JuratNumber, variables.CaptionNumber, variables.VerificationNumber,
            variables.CurrentSearchWord};
}

bool ShowDialog(ClauseChooser& dialog) {
    dialog.show();
    dialog.activateWindow();
    return QTest::qWaitForWindowActive(&dialog);
}

} // namespace

class ClauseChooserTest : public QObject {
    Q_OBJECT

    static void EachDialog() {
        QTest::addColumn<ClauseDialog>("dialog");
        QTest::newRow("frmJurat") << kJurat;
        QTest::newRow("frmVerification") << kVerification;
    }

private Q_SLOTS:
    void EachChoiceStandsInItsFrameAndWritesItsClause_data() {
        QTest::addColumn<ClauseDialog>("dialog");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("frame");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("written");
        const auto jurat = [](int number, const char* frame, const char* text, const char* key,
                              const char* marker) {
            QTest::addRow("frmJurat %d", number)
                << kJurat << number << QString::fromLatin1(frame) << QString::fromLatin1(text)
                << QStringList{QLatin1String(key), u"c"_qs, u"v"_qs, QLatin1String(marker)};
        };
        const auto caption = [](int number, const char* text, const char* key) {
            QTest::addRow("frmVerification %d", number)
                << kVerification << number << u"Frame1 Caption"_qs << QString::fromLatin1(text)
                << QStringList{u"j"_qs, QLatin1String(key), u"v"_qs, u"w"_qs};
        };
        const auto verification = [](int number, const char* frame, const char* text, const char* key,
                                     const char* marker) {
            QTest::addRow("frmVerification %d", number)
                << kVerification << number << QString::fromLatin1(frame) << QString::fromLatin1(text)
                << QStringList{u"j"_qs, u"c"_qs, QLatin1String(key), QLatin1String(marker)};
        };
        jurat(1, "Frame1 Jurat", "Jurat for Individual Affiant", "1", "(JURAT)");
        jurat(2, "Frame1 Jurat", "Jurat for Joint Affiants", "2", "(JURAT)");
        jurat(3, "Frame1 Jurat", "Jurat for Multiple Affiants", "3", "(JURAT)");
        jurat(4, "Frame2 Acknowledgment", "Individual (1-Party Instrument)", "4", "(ACKNOWLEDGMENT)");
        jurat(5, "Frame2 Acknowledgment", "Individuals (2-Party Instrument)", "5", "(ACKNOWLEDGMENT)");
        jurat(6, "Frame2 Acknowledgment", "Individuals (Multi-Party Instrument)", "6", "(ACKNOWLEDGMENT)");
        jurat(7, "Frame2 Acknowledgment", "For and in behalf of a Corporation", "7", "(ACKNOWLEDGMENT)");
        jurat(8, "Frame2 Acknowledgment", "Individual and a Corporation", "8", "(ACKNOWLEDGMENT)");
        caption(1, "Supreme Court", "1");
        caption(2, "Court of Appeals", "2");
        caption(3, "RTC - Civil Case", "3");
        caption(4, "RTC - Criminal Case", "4");
        caption(5, "MTC - Civil Case", "5");
        caption(6, "MTC - Criminal Case", "6");
        caption(7, "MTCC - Civil Case", "7");
        caption(8, "MTCC - Criminal Case", "8");
        const char* second = "Frame2 Verification / Certification";
        verification(9, second, "Verification by an Individual", "1", "(VERIFICATION)");
        verification(10, second, "Verification for a Corporation", "2", "(VERIFICATION)");
        verification(11, second, "Verification w/ Certification", "3", "(VERIFICATION)");
        verification(12, second, "Certification of Non-Forum Shopping", "4",
                     "(CERTIFICATION OF NON-FORUM SHOPPING)");
        verification(13, "Frame3 Notice / Explanation", "Notice of Hearing", "5", "(NOTICE OF HEARING)");
        verification(14, "Frame3 Notice / Explanation", "Explanation for Non-Personal Service", "6",
                     "(EXPLANATION)");
    }
    void EachChoiceStandsInItsFrameAndWritesItsClause() {
        QFETCH(ClauseDialog, dialog);
        QFETCH(int, number);
        QFETCH(QString, text);
        PublicVariables variables;
        variables.JuratNumber = u"j"_qs;
        variables.CaptionNumber = u"c"_qs;
        variables.VerificationNumber = u"v"_qs;
        variables.CurrentSearchWord = u"w"_qs;
        const auto chooser = Make(dialog, variables);
        const auto* option = chooser->findChild<platform::OptionButton*>(u"Option%1"_qs.arg(number));
        const auto* label = chooser->findChild<platform::HyperLabel*>(u"HyperLabel%1"_qs.arg(number));
        QCOMPARE(option, chooser->Option(number));
        QCOMPARE(label, chooser->HyperLabel(number));
        QCOMPARE(option->text(), text);
        QCOMPARE(label->text(), text);
        QCOMPARE(platform::Width(option), 255);
        QVERIFY(label->Target().isEmpty());
        const auto* frame = qobject_cast<platform::Frame*>(option->parentWidget());
        QVERIFY(frame);
        QCOMPARE(label->parentWidget(), option->parentWidget());
        QTEST(frame->objectName() + u' ' + frame->Caption(), "frame");

        chooser->show();
        QTest::mouseClick(chooser->Option(number), Qt::LeftButton);
        QCOMPARE(SetIn(*chooser), QList<int>{number});
        QCOMPARE(variables.CurrentSearchWord, u"w"_qs); // nothing is written before OK
        QTest::mouseClick(chooser->OKButton, Qt::LeftButton);
        QVERIFY(!chooser->isVisible());
        QTEST(Written(variables), "written");
    }

    void AClickOnTheTextOnlySetsItsChoice_data() { EachDialog(); }
    void AClickOnTheTextOnlySetsItsChoice() {
        QFETCH(ClauseDialog, dialog);
        PublicVariables variables;
        const auto chooser = Make(dialog, variables);
        QVERIFY(ShowDialog(*chooser));
        for (int number = 1; number <= chooser->Choices(); ++number) {
            QTest::mouseClick(chooser->HyperLabel(number), Qt::LeftButton);
            QCOMPARE(SetIn(*chooser), QList<int>{number});
            QVERIFY(chooser->Option(1)->hasFocus());
        }
    }

    void AClickClearsWhateverElseIsSet_data() { EachDialog(); }
    void AClickClearsWhateverElseIsSet() {
        QFETCH(ClauseDialog, dialog);
        PublicVariables variables;
        const auto chooser = Make(dialog, variables);
        for (int before = 1; before <= chooser->Choices(); ++before) {
            for (int after = 1; after <= chooser->Choices(); ++after) {
                chooser->Option(before)->click();
                QCOMPARE(SetIn(*chooser), QList<int>{before});
                chooser->Option(after)->click();
                QCOMPARE(SetIn(*chooser), QList<int>{after});
            }
        }
    }

    void NothingIsSetAtFirstAndOKThenWritesNothing_data() { EachDialog(); }
    void NothingIsSetAtFirstAndOKThenWritesNothing() {
        QFETCH(ClauseDialog, dialog);
        PublicVariables variables;
        const auto chooser = Make(dialog, variables);
        chooser->show();
        QCOMPARE(SetIn(*chooser), QList<int>());
        chooser->OKButton->click();
        QVERIFY(!chooser->isVisible());
        QCOMPARE(Written(variables), QStringList({{}, {}, {}, {}}));
    }

    void TheLastChoiceIsStillSetAfterEveryWayOut_data() {
        QTest::addColumn<ClauseDialog>("dialog");
        QTest::addColumn<QString>("way");
        for (const char* way : {"OK", "Cancel", "Escape", "window"}) {
            QTest::addRow("frmJurat %s", way) << kJurat << QString::fromLatin1(way);
            QTest::addRow("frmVerification %s", way) << kVerification << QString::fromLatin1(way);
        }
    }
    void TheLastChoiceIsStillSetAfterEveryWayOut() {
        QFETCH(ClauseDialog, dialog);
        QFETCH(QString, way);
        PublicVariables variables;
        const auto chooser = Make(dialog, variables);
        QVERIFY(ShowDialog(*chooser));
        chooser->Option(5)->click();
        if (way == u"OK")
            QTest::mouseClick(chooser->OKButton, Qt::LeftButton);
        else if (way == u"Cancel")
            QTest::mouseClick(chooser->CancelButton, Qt::LeftButton);
        else if (way == u"Escape")
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        else
            chooser->close();
        QVERIFY(!chooser->isVisible());
        const bool wrote = Written(variables) != QStringList({{}, {}, {}, {}});
        QCOMPARE(wrote, way == u"OK");

        chooser->show();
        QCOMPARE(SetIn(*chooser), QList<int>{5});
        chooser->OKButton->click(); // adds it again
        QVERIFY(Written(variables) != QStringList({{}, {}, {}, {}}));
    }

    void TheDialogsHaveTheirTexts_data() {
        QTest::addColumn<ClauseDialog>("dialog");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("picture");
        QTest::addColumn<QStringList>("tip");
        QTest::newRow("frmJurat") << kJurat << u"frmJurat"_qs << u"Add Jurat / Acknowledgment"_qs
                                  << u"cmdAddJurat"_qs
                                  << QStringList{u"Add Jurat"_qs,
                                                 u"Add Jurat / Acknowledgment to Affidavits / Contracts"_qs};
        QTest::newRow("frmVerification")
            << kVerification << u"frmVerification"_qs << u"Add to Pleading"_qs << u"AddVerification"_qs
            << QStringList{u"Add Verification"_qs, u"Add Verification and other Pleading Requirements"_qs};
    }
    void TheDialogsHaveTheirTexts() {
        QFETCH(ClauseDialog, dialog);
        QFETCH(QString, picture);
        QFETCH(QStringList, tip);
        PublicVariables variables;
        const auto chooser = Make(dialog, variables);
        QTEST(chooser->objectName(), "name");
        QTEST(chooser->windowTitle(), "caption");
        QCOMPARE(chooser->OKButton->objectName(), u"OKButton"_qs);
        QCOMPARE(chooser->OKButton->Caption(), u"Add to Form"_qs);
        QCOMPARE(chooser->CancelButton->objectName(), u"CancelButton"_qs);
        QCOMPARE(chooser->CancelButton->Caption(), u"Cancel"_qs);
        auto* button = chooser->findChild<platform::MyButton*>(picture);
        QVERIFY(button);
        QVERIFY(!button->icon().isNull());
        QCOMPARE(QTextDocumentFragment::fromHtml(button->toolTip()).toPlainText().split(u'\n'), tip);
        // it does nothing
        chooser->show();
        chooser->Option(2)->click();
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(chooser->isVisible());
        QCOMPARE(SetIn(*chooser), QList<int>{2});
        QCOMPARE(Written(variables), QStringList({{}, {}, {}, {}}));
    }

    void ItIsCentredOnceAndSizedToItsContents_data() { EachDialog(); }
    void ItIsCentredOnceAndSizedToItsContents() {
        QFETCH(ClauseDialog, dialog);
        PublicVariables variables;
        const auto chooser = Make(dialog, variables);
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        QCOMPARE(chooser->size(), chooser->sizeHint());
        QCOMPARE(chooser->minimumSize(), chooser->maximumSize());
        QCOMPARE(chooser->pos(), screen.topLeft() + QPoint(screen.width() / 2 - chooser->width() / 2,
                                                           screen.height() / 2 - chooser->height() / 2));
        QVERIFY(ShowDialog(*chooser));
        for (int number = 1; number <= chooser->Choices(); ++number)
            QVERIFY(chooser->HyperLabel(number)->width() >= chooser->HyperLabel(number)->sizeHint().width());
        chooser->move(31, 47);
        const QPoint moved = chooser->pos();
        chooser->CancelButton->click();
        QVERIFY(ShowDialog(*chooser));
        QCOMPARE(chooser->pos(), moved);
    }

    void TheKeyboardAloneChoosesAndAdds() {
        PublicVariables variables;
        frmJurat chooser(variables);
        QVERIFY(ShowDialog(chooser));
        const auto press = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };
        QVERIFY(chooser.Option(1)->hasFocus());
        QCOMPARE(SetIn(chooser), QList<int>());
        press(Qt::Key_Down);
        QVERIFY(chooser.Option(2)->hasFocus());
        press(Qt::Key_Space);
        QCOMPARE(SetIn(chooser), QList<int>{2});
        press(Qt::Key_Down); // from one that is set, the arrows set
        QCOMPARE(SetIn(chooser), QList<int>{3});
        press(Qt::Key_Tab);
        QVERIFY(chooser.Option(4)->hasFocus());
        QCOMPARE(SetIn(chooser), QList<int>{3});
        press(Qt::Key_Space);
        QCOMPARE(SetIn(chooser), QList<int>{4});
        press(Qt::Key_Return);
        QVERIFY(!chooser.isVisible());
        QCOMPARE(variables.JuratNumber, u"4"_qs);
    }

    void EnterOnCancelCancels() {
        PublicVariables variables;
        frmVerification chooser(variables);
        QVERIFY(ShowDialog(chooser));
        chooser.Option(9)->click();
        chooser.CancelButton->setFocus();
        QTest::keyClick(chooser.CancelButton, Qt::Key_Enter);
        QVERIFY(!chooser.isVisible());
        QCOMPARE(variables.VerificationNumber, QString());
    }

    void TheChoiceThatIsSetHasTheFocusWhenItOpensAgain() {
        PublicVariables variables;
        frmVerification chooser(variables);
        QVERIFY(ShowDialog(chooser));
        chooser.Option(13)->click();
        chooser.CancelButton->click();
        QVERIFY(ShowDialog(chooser));
        QVERIFY(chooser.Option(13)->hasFocus());
    }

    // Each frame takes the key once, at the choice that is set or else at each of its choices.
    void TabReachesEveryFrameAndBothButtons_data() {
        QTest::addColumn<ClauseDialog>("dialog");
        QTest::addColumn<int>("set");
        for (const int set : {0, 1, 5, 8}) {
            QTest::addRow("frmJurat %d", set) << kJurat << set;
            QTest::addRow("frmVerification %d", set) << kVerification << set;
        }
        QTest::newRow("frmVerification 14") << kVerification << 14;
    }
    void TabReachesEveryFrameAndBothButtons() {
        QFETCH(ClauseDialog, dialog);
        QFETCH(int, set);
        PublicVariables variables;
        const auto chooser = Make(dialog, variables);
        if (set > 0)
            chooser->Option(set)->click();
        QVERIFY(ShowDialog(*chooser));
        QWidget* const first = QApplication::focusWidget();
        QCOMPARE(first, static_cast<QWidget*>(chooser->Option(std::max(set, 1))));
        QSet<QObject*> reached;
        do {
            QWidget* focused = QApplication::focusWidget();
            QVERIFY(focused);
            reached.insert(focused);
            reached.insert(focused->parentWidget());
            QTest::keyClick(focused, Qt::Key_Tab);
            QVERIFY(reached.size() < 40);
        } while (QApplication::focusWidget() != first);
        QVERIFY(reached.contains(chooser->OKButton));
        QVERIFY(reached.contains(chooser->CancelButton));
        for (platform::Frame* frame : chooser->findChildren<platform::Frame*>())
            QVERIFY2(reached.contains(frame), qPrintable(frame->objectName()));
    }

    void AScreenReaderFindsANameForEverything_data() { EachDialog(); }
    void AScreenReaderFindsANameForEverything() {
        QFETCH(ClauseDialog, dialog);
        PublicVariables variables;
        const auto chooser = Make(dialog, variables);
        chooser->show();
        for (QWidget* control : chooser->findChildren<QWidget*>()) {
            QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(control);
            QVERIFY(seen);
            QVERIFY2(!seen->text(QAccessible::Name).isEmpty(), qPrintable(control->objectName()));
        }
    }
};

QTEST_MAIN(ClauseChooserTest)
#include "clause_chooser_test.moc"
