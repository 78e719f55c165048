// The commands of the word processor, call by call, and what they do where it fails.
#include "output/word_commands.h"

#include "app/left_toolbar.h"
#include "output/page_setup.h"
#include "output/print_commands.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

namespace {

const QString kHome = u"Quillbrook by Atty. Merrow"_qs;

const QStringList kFill = {
    u"Selection.Paste"_qs,
    u"Selection.WholeStory"_qs,
    u"Selection.Font.Color = -16777216"_qs,
    u"Selection.HomeKey 6"_qs,
    u"Caption = from Quillbrook"_qs,
    u"InchesToPoints 8.5"_qs,
    u"PageSetup.PageWidth = 612"_qs,
    u"InchesToPoints 13"_qs,
    u"PageSetup.PageHeight = 936"_qs,
    u"InchesToPoints 1"_qs,
    u"PageSetup.LeftMargin = 72"_qs,
    u"InchesToPoints 1"_qs,
    u"PageSetup.RightMargin = 72"_qs,
    u"InchesToPoints 1"_qs,
    u"PageSetup.TopMargin = 72"_qs,
    u"InchesToPoints 1"_qs,
    u"PageSetup.BottomMargin = 72"_qs,
};
const QStringList kEnd = {u"ActiveDocument.Close 0"_qs, u"Quit 0"_qs, u"Release"_qs};

// All that a step can change, at each call: the title, the pointer, the button.
struct Moment {
    QString call;
    QString caption;
    bool hourglass;
    bool printEnabled;
    QByteArray clipboard;
};

bool HourglassShows() {
    return QGuiApplication::overrideCursor() && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

// The window with a form on its edit page and a word processor beside it.
struct Desk {
    Desk() {
        platform::SetClipboardRTF("{\\rtf1 old}");
        Word().installed = true;
        Word().onCall = [this](const QString& call) {
            moments.push_back({call, window->windowTitle(), HourglassShows(),
                               window->leftToolbar->btnPrint->isEnabled(), platform::ClipboardRTF()});
        };
        window->SetTab(Tab::EditForm);
        window->txtContent()->setText(u"Deed of Sale"_qs);
        window->txtMyContent()->setText(u"My own"_qs);
    }
    ~Desk() { Word().onCall = nullptr; }

    RecordingWord& Word() { return window.services.wordProcessor; }
    std::vector<ScriptedMessageBox::Shown>& Messages() { return window.services.messageBox.shown; }
    WordCommands& Commands() { return *window->wordCommands; }
    WindowState& State() { return window->State(); }
    void Choose(const char* entry) { window->Menu(QLatin1String(entry))->trigger(); }
    void Answer(const QString& path) { window.services.commonDialog.files.append(path); }

    const Moment& At(const QString& call) const {
        for (const Moment& moment : moments)
            if (moment.call == call)
                return moment;
        static const Moment none{u"none"_qs, {}, false, false, {}};
        return none;
    }
    // Nothing of the command is left.
    bool IsAtRest() {
        return window->windowTitle() == kHome && !HourglassShows() && !window->Variables().WordApp &&
               window->leftToolbar->btnPrint->isEnabled();
    }

    TestWindow window;
    std::vector<Moment> moments;
};

// Each command with the calls that it makes when all goes well.
struct CommandRow {
    const char* name;
    void (*run)(Desk&);
    QStringList calls;
};

QStringList Calls(const QStringList& before, const QStringList& after) {
    return before + kFill + after;
}

const std::vector<CommandRow>& Commands() {
    static const std::vector<CommandRow> rows = {
        {"export", [](Desk& desk) { desk.Commands().ExportPane(); },
         Calls({u"CreateObject"_qs, u"Documents.Add"_qs},
               {u"Visible = True"_qs, u"Windows.Application.Activate"_qs, u"Release"_qs})},
        {"print", [](Desk& desk) { desk.window->printCommands->Print(); },
         Calls({u"CreateObject"_qs, u"Visible = False"_qs, u"Documents.Add"_qs},
               QStringList{u"Dialogs.Show 88"_qs, u"Visible = False"_qs} + kEnd)},
        {"preview", [](Desk& desk) { desk.window->printCommands->PrintPreview(); },
         Calls({u"CreateObject"_qs, u"Documents.Add"_qs},
               QStringList{u"Visible = True"_qs, u"Windows.Application.Activate"_qs,
                           u"ActiveDocument.PrintPreview"_qs, u"Zoom.PageFit = 1"_qs, u"PrintPreview?"_qs,
                           u"Visible = False"_qs} +
                   kEnd)},
        {"save",
         [](Desk& desk) {
             desk.Answer(u"/forms/deed.doc"_qs);
             desk.Commands().SaveAsMSDoc();
         },
         Calls({u"CreateObject"_qs, u"Documents.Add"_qs},
               QStringList{u"ActiveDocument.SaveAs /forms/deed.doc"_qs} + kEnd)},
    };
    return rows;
}

QString Member(const QString& call) {
    static const QRegularExpression argument(u"( =)? [^ ].*$"_qs);
    return QString(call).remove(argument);
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
        Desk desk;
        Row(row).run(desk);
        QCOMPARE(desk.Word().calls, Row(row).calls);
        QVERIFY(desk.IsAtRest());
    }

    void TheWholePaneIsOnTheClipboardWhenItIsPasted_data() { CommandRows(); }
    void TheWholePaneIsOnTheClipboardWhenItIsPasted() {
        QFETCH(int, row);
        Desk desk;
        desk.window->txtContent()->setSelStart(2);
        Row(row).run(desk);
        const QByteArray sent = desk.At(u"Selection.Paste"_qs).clipboard;
        QCOMPARE(sent, desk.window->txtContent()->TextRTF().toLatin1());
        QVERIFY(sent.contains("Deed of Sale"));
        // it stays there
        QCOMPARE(platform::ClipboardRTF(), sent);
    }

    void TheClipboardHoldsRichTextAndNothingElse() {
        Desk desk;
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
        Desk desk;
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
        Desk desk;
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
        Desk desk;
        desk.window->SetTab(Tab(tab));
        desk.Commands().ExportPane();
        QVERIFY(desk.Word().content.contains(text));
    }

    void AnEmptyPaneIsSentAllTheSame_data() { CommandRows(); }
    void AnEmptyPaneIsSentAllTheSame() {
        QFETCH(int, row);
        Desk desk;
        desk.window->txtContent()->setText(QString());
        Row(row).run(desk);
        QCOMPARE(desk.Word().calls, Row(row).calls);
    }

    void ExportGivesTheDocumentToTheUser() {
        Desk desk;
        desk.Commands().ExportPane();
        QVERIFY(!desk.At(u"Visible = True"_qs).hourglass);
        QVERIFY(desk.At(u"Windows.Application.Activate"_qs).caption != kHome);
        QCOMPARE(desk.At(u"Release"_qs).caption, kHome);
        QVERIFY(!desk.Word().calls.contains(u"Quit 0"_qs));
        QVERIFY(desk.Messages().empty());
    }

    void TheButtonExports() {
        Desk desk;
        QVERIFY(desk.window.Show());
        QTest::mouseClick(desk.window->leftToolbar->btnEditMSWord, Qt::LeftButton, Qt::NoModifier, {10, 20});
        QCOMPARE(desk.Word().calls, Commands()[0].calls);
    }

    void PrintingHoldsItsButtonAndGivesThePointerBackForTheDialog() {
        Desk desk;
        QVERIFY(desk.window.Show());
        desk.window->leftToolbar->btnSave->setFocus();
        desk.Choose("mnuPrint");
        QVERIFY(!desk.At(u"CreateObject"_qs).printEnabled);
        QVERIFY(!desk.At(u"Dialogs.Show 88"_qs).printEnabled);
        QVERIFY(!desk.At(u"Dialogs.Show 88"_qs).hourglass);
        QVERIFY(!desk.moments[desk.moments.size() - 4].hourglass); // Visible = False
        QVERIFY(desk.At(u"ActiveDocument.Close 0"_qs).printEnabled);
        QVERIFY(desk.At(u"ActiveDocument.Close 0"_qs).hourglass);
        QVERIFY(desk.At(u"Release"_qs).hourglass);
        QVERIFY(desk.At(u"Release"_qs).caption != kHome);
        QCOMPARE(QApplication::focusWidget(), desk.window->txtContent());
        QVERIFY(desk.Messages().empty());
    }

    void PreviewWaitsUntilTheUserHasLeftIt() {
        Desk desk;
        QVERIFY(desk.window.Show());
        desk.Word().previewReads = 25;
        desk.Choose("mnuPrintPreview");
        QCOMPARE(desk.Word().calls.count(u"PrintPreview?"_qs), 26);
        QVERIFY(!desk.At(u"Windows.Application.Activate"_qs).hourglass);
        QVERIFY(!desk.At(u"PrintPreview?"_qs).hourglass);
        QCOMPARE(desk.At(u"PrintPreview?"_qs).caption, u"Opening Print Preview..."_qs);
        QVERIFY(desk.At(u"ActiveDocument.Close 0"_qs).hourglass);
        QCOMPARE(QApplication::focusWidget(), desk.window->txtContent());
        QVERIFY(desk.IsAtRest());
    }

    void TheDropDownMenuPreviewsToo() {
        Desk desk;
        desk.Choose("mnuPrintPreviewDrop");
        QCOMPARE(desk.Word().calls, Commands()[2].calls);
    }

    void ClosingTheWordProcessorInThePreviewEndsItQuietly() {
        Desk desk;
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
        Desk desk;
        desk.Word().failing = {member};
        Row(row).run(desk);
        QCOMPARE(desk.Word().calls, Row(row).calls);
        QVERIFY(desk.IsAtRest());
        // saving tells that it is done, nothing else is told
        QCOMPARE(desk.Messages().size(), std::size_t(row == 3 ? 1 : 0));
    }

    void ALengthThatIsNotConvertedIsNotSet() {
        Desk desk;
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
        Desk desk;
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
        Desk desk;
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
        Desk desk;
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
        Desk desk;
        desk.Word().installed = false;
        desk.Choose("mnuPrint");
        QCOMPARE(desk.Word().calls, QStringList{u"CreateObject"_qs});
        QCOMPARE(desk.Messages().size(), std::size_t(1));
        QCOMPARE(desk.Messages()[0].text, u"Print Document?   "_qs);
        QVERIFY(desk.IsAtRest());
    }

    void TheSaveDialogIsAskedForADocument() {
        Desk desk;
        desk.Commands().SaveAsMSDoc();
        const auto& shown = desk.window.services.commonDialog.filesShown;
        QCOMPARE(shown.size(), std::size_t(1));
        QCOMPARE(shown[0].title, u"Save Form as an MS Word\u00AE Document"_qs);
        QCOMPARE(shown[0].filter, u"Word Document (*.doc) (*.doc)"_qs);
        QVERIFY(shown[0].asksBeforeOverwriting);
    }

    void CancellingTheSaveDialogChangesNothing() {
        Desk desk;
        desk.window->SetCaption(u"Edit Form"_qs);
        desk.State().DocumentSaved = false;
        desk.Commands().SaveAsMSDoc();
        QVERIFY(desk.Word().calls.isEmpty());
        QVERIFY(desk.Messages().empty());
        QCOMPARE(desk.State().CurrentFilePath, QString());
        QVERIFY(!desk.State().DocumentSaved);
        QVERIFY(desk.IsAtRest()); // the cancel path sets the caption
    }

    void AnEmptyFileNameCancels() {
        Desk desk;
        desk.Answer(QString());
        desk.Commands().SaveAsMSDoc();
        QVERIFY(desk.Word().calls.isEmpty());
        QVERIFY(desk.IsAtRest());
    }

    void TheExtensionBecomesThatOfADocument_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("saved");
        QTest::newRow("another extension") << u"/forms/report.rtf"_qs << u"/forms/report.doc"_qs;
        QTest::newRow("its own") << u"/forms/report.doc"_qs << u"/forms/report.doc"_qs;
        QTest::newRow("none") << u"/forms/report"_qs << u"/forms/report"_qs;
        QTest::newRow("four letters") << u"/forms/report.docx"_qs << u"/forms/report.docx"_qs;
        QTest::newRow("two letters") << u"/forms/report.md"_qs << u"/forms/report.md"_qs;
    }
    void TheExtensionBecomesThatOfADocument() {
        QFETCH(QString, typed);
        QFETCH(QString, saved);
        Desk desk;
        desk.Answer(typed);
        desk.Commands().SaveAsMSDoc();
        QVERIFY(desk.Word().calls.contains(u"ActiveDocument.SaveAs "_qs + saved));
        QCOMPARE(desk.State().CurrentFilePath, saved);
        const QString title = typed.mid(7);
        QCOMPARE(desk.State().CurrentFileTitle, title);
        QCOMPARE(desk.At(u"CreateObject"_qs).caption, u"Saving Form as "_qs + title);
        QCOMPARE(desk.Messages()[0].text, u"Form successfully saved as:   \n"_qs + title + u"   "_qs);
    }

    void SavingTellsThatItIsDoneAndMarksTheDocumentSaved() {
        Desk desk;
        QVERIFY(desk.window.Show());
        desk.Answer(u"/forms/deed.doc"_qs);
        desk.State().DocumentSaved = false;
        desk.Choose("mnuSaveAsDocFile");
        QCOMPARE(desk.Messages().size(), std::size_t(1));
        const auto& told = desk.Messages()[0];
        QCOMPARE(told.text, u"Form successfully saved as:   \ndeed.doc   "_qs);
        QCOMPARE(told.icon, MessageIcon::Information);
        QCOMPARE(told.buttons, MessageButtons::Ok);
        QCOMPARE(told.title, u"Quillbrook PRO"_qs);
        QVERIFY(desk.State().DocumentSaved);
        QVERIFY(!desk.window->Menu(u"mnuSave"_qs)->isEnabled());
        QCOMPARE(desk.State().CurrentFilePath, u"/forms/deed.doc"_qs);
        QCOMPARE(QApplication::focusWidget(), desk.window->txtContent());
    }

    void SavingAnOwnFormForgetsItsPath() {
        Desk desk;
        desk.window->SetTab(Tab::MyForms);
        desk.Answer(u"/forms/own.doc"_qs);
        desk.Commands().SaveAsMSDoc();
        QVERIFY(desk.Word().calls.contains(u"ActiveDocument.SaveAs /forms/own.doc"_qs));
        QVERIFY(desk.Word().content.contains("My own"));
        QCOMPARE(desk.State().CurrentFilePath, QString());
        QCOMPARE(desk.State().CurrentFileTitle, u"own.doc"_qs);
    }

    // What was chosen stays chosen, so that the next silent save goes there.
    void AFailedSaveKeepsTheNameItWasGiven() {
        Desk desk;
        desk.Answer(u"/forms/deed.rtf"_qs);
        desk.Word().saveErrors = {1};
        desk.Commands().SaveAsMSDoc();
        QCOMPARE(desk.State().CurrentFilePath, u"/forms/deed.doc"_qs);
        QCOMPARE(desk.State().CurrentFileTitle, u"deed.rtf"_qs);
        QVERIFY(desk.window->Menu(u"mnuSave"_qs)->isEnabled());
    }

    void AfterwardsAnOwnFormHasTheKeyboard_data() {
        QTest::addColumn<int>("row");
        for (const int row : {1, 2, 3})
            QTest::newRow(Commands()[std::size_t(row)].name) << row;
    }
    void AfterwardsAnOwnFormHasTheKeyboard() {
        QFETCH(int, row);
        Desk desk;
        QVERIFY(desk.window.Show());
        desk.window->SetTab(Tab::MyForms);
        desk.window->leftToolbar->btnSave->setFocus();
        Row(row).run(desk);
        QCOMPARE(QApplication::focusWidget(), desk.window->txtMyContent());
    }

    void EachSaveErrorIsToldAndGoesItsWay_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("text");
        QTest::addColumn<MessageIcon>("icon");
        QTest::addColumn<QString>("title");
        QTest::addColumn<bool>("again");
        const QString program = u"Quillbrook PRO"_qs;
        QTest::newRow("disk not writable")
            << 5156 << u"Disk is not writable!   \nPlease try another disk drive.   "_qs
            << MessageIcon::Critical << program << true;
        QTest::newRow("permission denied")
            << 70 << u"Permission denied!   \nRetry?   "_qs << MessageIcon::Question << u"4"_qs << true;
        QTest::newRow("disk not ready")
            << 71 << u"Disk not ready!   \nPlease try a different disk drive.   "_qs << MessageIcon::Critical
            << program << true;
        QTest::newRow("disk full")
            << 61 << u"Disk full!   \nPlease delete some files first to gain some disk space!   "_qs
            << MessageIcon::Critical << program << true;
        QTest::newRow("the word processor has ended")
            << 462 << u"Error in saving file!   \n"_qs << MessageIcon::Critical << program << false;
        QTest::newRow("any other") << 1 << u"Error in saving file!   \n"_qs << MessageIcon::Critical
                                   << program << false;
    }
    void EachSaveErrorIsToldAndGoesItsWay() {
        QFETCH(int, number);
        QFETCH(QString, text);
        QFETCH(MessageIcon, icon);
        QFETCH(QString, title);
        QFETCH(bool, again);
        Desk desk;
        desk.State().DocumentSaved = false;
        desk.Answer(u"/forms/deed.doc"_qs);
        desk.Word().saveErrors = {number};
        desk.Commands().SaveAsMSDoc(); // the second file dialog is cancelled
        QCOMPARE(desk.Messages().size(), std::size_t(1));
        const auto& told = desk.Messages()[0];
        QCOMPARE(told.text, text);
        QCOMPARE(told.icon, icon);
        QCOMPARE(told.title, title);
        QCOMPARE(told.buttons, MessageButtons::Ok);
        QCOMPARE(desk.window.services.commonDialog.filesShown.size(), std::size_t(again ? 2 : 1));
        // the cancel path ends the instance either way
        QCOMPARE(desk.Word().calls, Commands()[3].calls);
        QVERIFY(desk.IsAtRest());
        QVERIFY(!desk.State().DocumentSaved);
    }

    void AFileOpenElsewhereIsAskedAbout_data() {
        QTest::addColumn<MessageAnswer>("answer");
        QTest::addColumn<int>("dialogs");
        QTest::newRow("Yes") << MessageAnswer::Yes << 2;
        QTest::newRow("No") << MessageAnswer::No << 1;
    }
    void AFileOpenElsewhereIsAskedAbout() {
        QFETCH(MessageAnswer, answer);
        QFETCH(int, dialogs);
        Desk desk;
        desk.window.services.messageBox.answer = answer;
        desk.Answer(u"/forms/deed.doc"_qs);
        desk.Word().saveErrors = {5356};
        desk.Commands().SaveAsMSDoc();
        QCOMPARE(desk.Messages().size(), std::size_t(1));
        const auto& asked = desk.Messages()[0];
        QCOMPARE(asked.text, u"File selected is already open by another application   \n"
                             "Do you want save the Form with a different file name?   "_qs);
        QCOMPARE(asked.icon, MessageIcon::Question);
        QCOMPARE(asked.buttons, MessageButtons::YesNo);
        QCOMPARE(asked.title, u"Quillbrook PRO"_qs);
        QCOMPARE(int(desk.window.services.commonDialog.filesShown.size()), dialogs);
        QCOMPARE(desk.Word().calls, Commands()[3].calls); // closed, quit, nothing saved
        QCOMPARE(desk.window->txtContent()->Text(), u"Deed of Sale"_qs);
        QVERIFY(desk.IsAtRest());
    }

    void GoingBackToTheStartLeavesTheFormerInstanceRunning() {
        Desk desk;
        desk.Answer(u"/full/deed.doc"_qs);
        desk.Answer(u"/forms/deed.doc"_qs);
        desk.Word().saveErrors = {61};
        desk.Commands().SaveAsMSDoc();
        const QStringList first =
            Calls({u"CreateObject"_qs, u"Documents.Add"_qs},
                  {u"ActiveDocument.SaveAs /full/deed.doc"_qs, u"Release"_qs}); // no Close, no Quit
        QCOMPARE(desk.Word().calls, first + Commands()[3].calls);
        QCOMPARE(desk.Messages().size(), std::size_t(2));
        QVERIFY(desk.IsAtRest());
    }

    void ASecondCommandWorksRightAfterTheFirst() {
        Desk desk;
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
