// Saving as a document of the word processor: the file asked for, what is told, and each way that it fails.
#include "output/word_commands.h"

#include "app/left_toolbar.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/word_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

class WordSavingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheSaveDialogIsAskedForADocument() {
        WordDesk desk;
        desk.Commands().SaveAsMSDoc();
        const auto& shown = desk.window.services.commonDialog.filesShown;
        QCOMPARE(shown.size(), std::size_t(1));
        QCOMPARE(shown[0].title, u"Save Form as an MS Word\u00AE Document"_qs);
        QCOMPARE(shown[0].filter, u"Word Document (*.doc) (*.doc)"_qs);
        QVERIFY(shown[0].asksBeforeOverwriting);
    }

    // It is one dialog for all commands.
    void TheSaveDialogComesWithTheFileOfTheLastCommand() {
        WordDesk desk;
        desk.Answer(u"/forms/opened.txt"_qs);
        desk.Answer(u"/forms/saved.doc"_qs);
        desk.Choose("mnuOpen");
        desk.Commands().SaveAsMSDoc();
        desk.Choose("mnuSaveAsRTFFile");
        const auto& shown = desk.window.services.commonDialog.filesShown;
        QCOMPARE(shown.size(), std::size_t(3));
        QCOMPARE(shown[0].FileName, QString());
        QCOMPARE(shown[1].FileName, u"/forms/opened.txt"_qs);
        QCOMPARE(shown[2].FileName, u"/forms/saved.doc"_qs);
    }

    void CancellingTheSaveDialogChangesNothing() {
        WordDesk desk;
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
        WordDesk desk;
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
        WordDesk desk;
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
        WordDesk desk;
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
        for (const QString& call : kEnd) {
            QCOMPARE(desk.At(call).caption, u"Saving Form as deed.doc"_qs);
            QVERIFY(desk.At(call).hourglass);
        }
        QVERIFY(desk.State().DocumentSaved);
        QVERIFY(!desk.window->Menu(u"mnuSave"_qs)->isEnabled());
        QCOMPARE(desk.State().CurrentFilePath, u"/forms/deed.doc"_qs);
        QCOMPARE(QApplication::focusWidget(), desk.window->txtContent());
    }

    void SavingAnOwnFormForgetsItsPath() {
        WordDesk desk;
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
        WordDesk desk;
        desk.Answer(u"/forms/deed.rtf"_qs);
        desk.Word().saveErrors = {1};
        desk.Commands().SaveAsMSDoc();
        QCOMPARE(desk.State().CurrentFilePath, u"/forms/deed.doc"_qs);
        QCOMPARE(desk.State().CurrentFileTitle, u"deed.rtf"_qs);
        QVERIFY(desk.window->Menu(u"mnuSave"_qs)->isEnabled());
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
        WordDesk desk;
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
        // the cancel path ends the instance either way, once the caption is back
        QCOMPARE(desk.Word().calls, Commands()[3].calls);
        QCOMPARE(desk.At(u"ActiveDocument.Close 0"_qs).caption, kHome);
        QVERIFY(desk.At(u"ActiveDocument.Close 0"_qs).hourglass);
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
        WordDesk desk;
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
        WordDesk desk;
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
};

QTEST_MAIN(WordSavingTest)
#include "word_saving_test.moc"
