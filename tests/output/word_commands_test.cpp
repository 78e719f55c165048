// The commands of the word processor, call by call, and what they do where it fails.
#include "output/word_commands.h"

#include "app/left_toolbar.h"
#include "output/file_commands.h"
#include "output/page_setup.h"
#include "output/print_commands.h"
#include "output/spelling_command.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/word_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

namespace {

QString Member(const QString& call) {
    static const QRegularExpression argument(u"( =)? [^ ].*$"_qs);
    return QString(call).remove(argument);
}

// Chooses all commands of the word processor as assistive technology does it: without keys and clicks.
void ChooseAll(WordDesk& desk) {
    const LeftToolbar& bar = *desk.window->leftToolbar;
    for (QWidget* button : {bar.btnEditMSWord, bar.btnPrint, bar.btnSpellCheck})
        QAccessible::queryAccessibleInterface(button)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
    for (const char* entry :
         {"mnuPrint", "mnuPrintPreview", "mnuPrintPreviewDrop", "mnuSaveAsDocFile", "mnuOpen"})
        desk.Choose(entry);
}

} // namespace

class WordCommandsTest : public QObject {
    Q_OBJECT

    static void CommandRows() {
        QTest::addColumn<int>("row");
        for (std::size_t row = 0; row < Commands().size(); ++row)
            QTest::newRow(Commands()[row].name) << int(row);
    }
    static const CommandRow& Row(int row) { return Commands()[std::size_t(row)]; }

private Q_SLOTS:
    void EachCommandMakesItsCallsInOrder_data() { CommandRows(); }
    void EachCommandMakesItsCallsInOrder() {
        QFETCH(int, row);
        WordDesk desk;
        Row(row).run(desk);
        QCOMPARE(desk.Word().calls, Row(row).calls);
        QVERIFY(desk.IsAtRest());
    }

    void TheWholePaneIsOnTheClipboardWhenItIsPasted_data() { CommandRows(); }
    void TheWholePaneIsOnTheClipboardWhenItIsPasted() {
        QFETCH(int, row);
        WordDesk desk;
        desk.window->txtContent()->setSelStart(2);
        Row(row).run(desk);
        const QByteArray sent = desk.At(u"Selection.Paste"_qs).clipboard;
        QCOMPARE(sent, desk.window->txtContent()->TextRTF().toLatin1());
        QVERIFY(sent.contains("Deed of Sale"));
        // it stays there
        QCOMPARE(platform::ClipboardRTF(), sent);
    }

    void TheClipboardHoldsRichTextAndNothingElse() {
        WordDesk desk;
        desk.Commands().ExportPane();
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        QVERIFY(!data->hasText());
        QVERIFY(!data->hasHtml());
        QVERIFY(data->hasFormat(u"text/rtf"_qs));
    }

    void ThePaneComesOnTheClipboardBeforeOrAfterTheObject_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("atCreation");
        QTest::newRow("export") << 0 << false;
        QTest::newRow("print") << 1 << false;
        QTest::newRow("preview") << 2 << true;
        QTest::newRow("save") << 3 << true;
    }
    void ThePaneComesOnTheClipboardBeforeOrAfterTheObject() {
        QFETCH(int, row);
        QFETCH(bool, atCreation);
        WordDesk desk;
        Row(row).run(desk);
        QCOMPARE(desk.At(u"CreateObject"_qs).clipboard.contains("Deed of Sale"), atCreation);
        QCOMPARE(desk.At(u"Documents.Add"_qs).clipboard.contains("Deed of Sale"), atCreation);
    }

    void EachCommandShowsItsCaptionAndTheHourglass_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("caption");
        QTest::newRow("export") << 0 << u"Exporting Form to MS Word\u00AE..."_qs;
        QTest::newRow("print") << 1 << u"Opening Print Options..."_qs;
        QTest::newRow("preview") << 2 << u"Opening Print Preview..."_qs;
        QTest::newRow("save") << 3 << u"Saving Form as deed.doc"_qs;
    }
    void EachCommandShowsItsCaptionAndTheHourglass() {
        QFETCH(int, row);
        QFETCH(QString, caption);
        WordDesk desk;
        Row(row).run(desk);
        for (const QString& call : {u"CreateObject"_qs, kFill.constFirst(), kFill.constLast()}) {
            QCOMPARE(desk.At(call).caption, caption);
            QVERIFY(desk.At(call).hourglass);
        }
    }

    void EachPageSendsItsOwnPane_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QByteArray>("text");
        for (int tab = 0; tab < 6; ++tab)
            QTest::addRow("%d", tab) << tab << QByteArray(tab == 5 ? "My own" : "Deed of Sale");
    }
    void EachPageSendsItsOwnPane() {
        QFETCH(int, tab);
        QFETCH(QByteArray, text);
        WordDesk desk;
        desk.window->SetTab(Tab(tab));
        desk.Commands().ExportPane();
        QVERIFY(desk.Word().content.contains(text));
    }

    void AnEmptyPaneIsSentAllTheSame_data() { CommandRows(); }
    void AnEmptyPaneIsSentAllTheSame() {
        QFETCH(int, row);
        WordDesk desk;
        desk.window->txtContent()->setText(QString());
        Row(row).run(desk);
        QCOMPARE(desk.Word().calls, Row(row).calls);
    }

    void OnlySavingMarksTheDocumentSaved_data() { CommandRows(); }
    void OnlySavingMarksTheDocumentSaved() {
        QFETCH(int, row);
        for (const bool saved : {true, false}) {
            WordDesk desk;
            desk.State().DocumentSaved = saved;
            Row(row).run(desk);
            QCOMPARE(desk.State().DocumentSaved, saved || QLatin1String(Row(row).name) == u"save"_qs);
        }
    }

    void ExportGivesTheDocumentToTheUser() {
        WordDesk desk;
        desk.Commands().ExportPane();
        QVERIFY(!desk.At(u"Visible = True"_qs).hourglass);
        QVERIFY(desk.At(u"Windows.Application.Activate"_qs).caption != kHome);
        QCOMPARE(desk.At(u"Release"_qs).caption, kHome);
        QVERIFY(!desk.Word().calls.contains(u"Quit 0"_qs));
        QVERIFY(desk.Messages().empty());
    }

    void TheButtonExports() {
        WordDesk desk;
        QVERIFY(desk.window.Show());
        QTest::mouseClick(desk.window->leftToolbar->btnEditMSWord, Qt::LeftButton, Qt::NoModifier, {10, 20});
        QCOMPARE(desk.Word().calls, Commands()[0].calls);
    }

    void ExportLeavesTheKeyboardWhereItIs() {
        WordDesk desk;
        QVERIFY(desk.window.Show());
        desk.window->leftToolbar->btnSave->setFocus();
        desk.Commands().ExportPane();
        QCOMPARE(QApplication::focusWidget(), desk.window->leftToolbar->btnSave);
    }

    void PrintingHoldsItsButtonAndGivesThePointerBackForTheDialog() {
        WordDesk desk;
        QVERIFY(desk.window.Show());
        desk.window->leftToolbar->btnSave->setFocus();
        desk.Choose("mnuPrint");
        QVERIFY(!desk.At(u"CreateObject"_qs).printEnabled);
        QVERIFY(!desk.At(u"Dialogs.Show 88"_qs).printEnabled);
        QVERIFY(!desk.At(u"Dialogs.Show 88"_qs).hourglass);
        const Moment& hidden = desk.moments[desk.moments.size() - 4];
        QCOMPARE(hidden.call, u"Visible = False"_qs);
        QVERIFY(!hidden.hourglass);
        QVERIFY(!hidden.printEnabled);
        QVERIFY(desk.At(u"ActiveDocument.Close 0"_qs).printEnabled);
        QVERIFY(desk.At(u"ActiveDocument.Close 0"_qs).hourglass);
        QVERIFY(desk.At(u"Release"_qs).hourglass);
        QVERIFY(desk.At(u"Release"_qs).caption != kHome);
        QCOMPARE(QApplication::focusWidget(), desk.window->txtContent());
        QVERIFY(desk.Messages().empty());
    }

    void PreviewWaitsUntilTheUserHasLeftIt() {
        WordDesk desk;
        QVERIFY(desk.window.Show());
        desk.Word().previewReads = 25;
        desk.Choose("mnuPrintPreview");
        QCOMPARE(desk.Word().calls.count(u"PrintPreview?"_qs), 26);
        QVERIFY(desk.At(u"Visible = True"_qs).hourglass);
        QVERIFY(!desk.At(u"Windows.Application.Activate"_qs).hourglass);
        QVERIFY(!desk.At(u"PrintPreview?"_qs).hourglass);
        QVERIFY(!desk.At(u"Visible = False"_qs).hourglass);
        QCOMPARE(desk.At(u"PrintPreview?"_qs).caption, u"Opening Print Preview..."_qs);
        QCOMPARE(desk.At(u"Release"_qs).caption, u"Opening Print Preview..."_qs);
        QVERIFY(desk.At(u"ActiveDocument.Close 0"_qs).hourglass);
        QCOMPARE(QApplication::focusWidget(), desk.window->txtContent());
        QVERIFY(desk.IsAtRest());
    }

    void TheDropDownMenuPreviewsToo() {
        WordDesk desk;
        desk.Choose("mnuPrintPreviewDrop");
        QCOMPARE(desk.Word().calls, Commands()[2].calls);
    }

    void ClosingTheWordProcessorInThePreviewEndsItQuietly() {
        WordDesk desk;
        desk.Word().failing = {u"PrintPreview?"_qs, u"Visible"_qs, u"ActiveDocument.Close"_qs, u"Quit"_qs};
        desk.Word().previewReads = 1000;
        desk.Choose("mnuPrintPreview");
        QCOMPARE(desk.Word().calls, Commands()[2].calls);
        QVERIFY(desk.Messages().empty());
        QVERIFY(desk.IsAtRest());
    }

    void AFailingStepIsPassedOver_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("member");
        for (std::size_t row = 0; row < Commands().size(); ++row) {
            QStringList members;
            for (const QString& call : Commands()[row].calls)
                members.append(Member(call));
            members.removeDuplicates();
            for (const QString& member : std::as_const(members)) {
                // these have an answer of their own
                if (member != u"CreateObject" && member != u"ActiveDocument.SaveAs" &&
                    member != u"InchesToPoints" && member != u"Release")
                    QTest::addRow("%s: %s", Commands()[row].name, qPrintable(member)) << int(row) << member;
            }
        }
    }
    void AFailingStepIsPassedOver() {
        QFETCH(int, row);
        QFETCH(QString, member);
        WordDesk desk;
        desk.Word().failing = {member};
        Row(row).run(desk);
        QCOMPARE(desk.Word().calls, Row(row).calls);
        QVERIFY(desk.IsAtRest());
        // saving tells that it is done, nothing else is told
        QCOMPARE(desk.Messages().size(), std::size_t(row == 3 ? 1 : 0));
    }

    void ALengthThatIsNotConvertedIsNotSet() {
        WordDesk desk;
        desk.Word().failing = {u"InchesToPoints"_qs};
        desk.Commands().ExportPane();
        QCOMPARE(desk.Word().calls.count(u"InchesToPoints 1"_qs), 4);
        for (const QString& call : std::as_const(desk.Word().calls))
            QVERIFY2(!call.startsWith(u"PageSetup"), qPrintable(call));
        QVERIFY(desk.Word().calls.contains(u"Visible = True"_qs));
    }

    void ThePageIsThatOfThePageSetup_data() {
        QTest::addColumn<QString>("width");
        QTest::addColumn<QString>("height");
        QTest::addColumn<QString>("margin");
        QTest::addColumn<QStringList>("points");
        QTest::newRow("Long") << u"8.5"_qs << u"13"_qs << u"1.0"_qs
                              << QStringList{u"612"_qs, u"936"_qs, u"72"_qs};
        QTest::newRow("Short") << u"8.5"_qs << u"11"_qs << u"1.0"_qs
                               << QStringList{u"612"_qs, u"792"_qs, u"72"_qs};
        QTest::newRow("A4") << u"8.27"_qs << u"11.69"_qs << u".5"_qs
                            << QStringList{u"595.44"_qs, u"841.68"_qs, u"36"_qs};
        QTest::newRow("not a number")
            << u"wide"_qs << u"-2"_qs << QString() << QStringList{u"0"_qs, u"-144"_qs, u"0"_qs};
        QTest::newRow("more than a length holds")
            << u"1e300"_qs << u"11"_qs << u"1"_qs << QStringList{QString(), u"792"_qs, u"72"_qs};
    }
    void ThePageIsThatOfThePageSetup() {
        QFETCH(QString, width);
        QFETCH(QString, height);
        QFETCH(QString, margin);
        QFETCH(QStringList, points);
        WordDesk desk;
        QWidget* setup = desk.window->Windows().Load(u"frmPageSetup"_qs);
        const auto write = [setup](const char* box, const QString& text) {
            setup->findChild<QLineEdit*>(QLatin1String(box))->setText(text);
        };
        write("txtWidth", width);
        write("txtHeight", height);
        for (const char* box : {"txtLeft", "txtRight", "txtTop", "txtBottom"})
            write(box, margin);
        desk.Commands().ExportPane();
        QStringList expected;
        const auto set = [&expected](const char* member, const QString& value) {
            if (!value.isEmpty())
                expected += QLatin1String(member) + u" = "_qs + value;
        };
        set("PageSetup.PageWidth", points[0]);
        set("PageSetup.PageHeight", points[1]);
        set("PageSetup.LeftMargin", points[2]);
        set("PageSetup.RightMargin", points[2]);
        set("PageSetup.TopMargin", points[2]);
        set("PageSetup.BottomMargin", points[2]);
        QCOMPARE(desk.Word().calls.filter(u"PageSetup"_qs), expected);
    }

    void WithoutAWordProcessorNothingIsCalledAndTheUserIsTold_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("title");
        QTest::newRow("export") << 0
                                << u"An error occurred while exporting the form to MS Word\u00AE.   \n\n"
                                   "If this problem persists, please restart this Program!   "_qs
                                << u"MS Word\u00AE Error!"_qs;
        QTest::newRow("preview") << 2
                                 << u"An error occurred while opening Print Preview!   \n\n"
                                    "If the problem persists, please restart the Program.   "_qs
                                 << u"Print Preview Error!"_qs;
        QTest::newRow("save") << 3
                              << u"An error occurred trying to save the Form in MS Word\u00AE Format.   \n\n"
                                 "If this problem persists, please restart the Program.   "_qs
                              << u"Error Opening File!"_qs;
    }
    void WithoutAWordProcessorNothingIsCalledAndTheUserIsTold() {
        QFETCH(int, row);
        QFETCH(QString, text);
        QFETCH(QString, title);
        WordDesk desk;
        desk.Word().installed = false;
        Row(row).run(desk);
        QCOMPARE(desk.Word().calls, QStringList{u"CreateObject"_qs});
        QCOMPARE(desk.Messages().size(), std::size_t(row == 3 ? 2 : 1));
        const auto& told = desk.Messages()[0];
        QCOMPARE(told.text, text);
        QCOMPARE(told.title, title);
        QCOMPARE(told.icon, MessageIcon::Critical);
        QCOMPARE(told.buttons, MessageButtons::Ok);
        QVERIFY(desk.IsAtRest());
    }

    void WithoutAWordProcessorSavingTellsASecondError() {
        WordDesk desk;
        desk.Word().installed = false;
        desk.Answer(u"/forms/deed.doc"_qs);
        desk.State().DocumentSaved = false;
        desk.Commands().SaveAsMSDoc();
        QCOMPARE(desk.Messages().size(), std::size_t(2));
        QCOMPARE(desk.Messages()[1].text, u"Error in saving file!   \n"_qs);
        QCOMPARE(desk.Messages()[1].title, u"Quillbrook PRO"_qs);
        QCOMPARE(desk.Messages()[1].icon, MessageIcon::Critical);
        QVERIFY(!desk.State().DocumentSaved);
        QVERIFY(desk.window->Menu(u"mnuSave"_qs)->isEnabled());
    }

    void WithoutAWordProcessorPrintingAsksAndGoesTheDirectWay() {
        WordDesk desk;
        desk.Word().installed = false;
        desk.Choose("mnuPrint");
        QCOMPARE(desk.Word().calls, QStringList{u"CreateObject"_qs});
        QCOMPARE(desk.Messages().size(), std::size_t(1));
        QCOMPARE(desk.Messages()[0].text, u"Print Document?   "_qs);
        QVERIFY(desk.IsAtRest());
    }

    void AfterwardsAnOwnFormHasTheKeyboard_data() {
        QTest::addColumn<int>("row");
        for (const int row : {1, 2, 3})
            QTest::newRow(Commands()[std::size_t(row)].name) << row;
    }
    void AfterwardsAnOwnFormHasTheKeyboard() {
        QFETCH(int, row);
        WordDesk desk;
        QVERIFY(desk.window.Show());
        desk.window->SetTab(Tab::MyForms);
        desk.window->leftToolbar->btnSave->setFocus();
        Row(row).run(desk);
        QCOMPARE(QApplication::focusWidget(), desk.window->txtMyContent());
    }

    void ACommandChosenWhileAnotherRunsDoesNothing_data() {
        CommandRows();
        QTest::newRow("check") << -1;
        QTest::newRow("open") << -2;
    }
    void ACommandChosenWhileAnotherRunsDoesNothing() {
        QFETCH(int, row);
        const auto run = [row](WordDesk& desk) {
            if (row >= 0) {
                Row(row).run(desk);
            } else if (row == -1) {
                desk.window->spellingCommand->CheckSpelling();
            } else {
                desk.Answer(u"/forms/deed.doc"_qs);
                desk.window->fileCommands->Open();
            }
        };
        WordDesk alone;
        run(alone);
        WordDesk desk;
        bool choosing = false;
        desk.Word().onCall = [&](const QString&) {
            if (choosing)
                return;
            choosing = true;
            ChooseAll(desk);
            choosing = false;
        };
        run(desk);
        QCOMPARE(desk.Word().calls, alone.Word().calls);
        QCOMPARE(desk.Messages().size(), alone.Messages().size());
        QCOMPARE(desk.window.services.commonDialog.filesShown.size(),
                 alone.window.services.commonDialog.filesShown.size());
        QCOMPARE(desk.window->windowTitle(), alone.window->windowTitle());
        QVERIFY(!HourglassShows());
        // and the next one has its turn
        desk.Word().onCall = nullptr;
        desk.Word().calls.clear();
        desk.Commands().ExportPane();
        QCOMPARE(desk.Word().calls, Row(0).calls);
    }

    void ASecondCommandWorksRightAfterTheFirst() {
        WordDesk desk;
        QStringList expected;
        for (const CommandRow& row : Commands()) {
            row.run(desk);
            expected += row.calls;
        }
        QCOMPARE(desk.Word().calls, expected);
    }
};

QTEST_MAIN(WordCommandsTest)
#include "word_commands_test.moc"
