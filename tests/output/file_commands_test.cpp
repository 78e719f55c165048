#include "output/file_commands.h"

#include "app/left_toolbar.h"
#include "library/my_forms_page.h"
#include "output/save_dialog.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/file_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageButtons;
using platform::MessageIcon;
using platform::RichTextBox;

namespace {

const QString kSaved = u"Form successfully saved as:   \n"_qs;

} // namespace

class FileCommandsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<FileWindow> m_window;

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<FileWindow>();
        QVERIFY(m_window->loaded);
    }
    void cleanup() { m_window.reset(); }

    void TheSaveDialogIsAskedAsItsTextsSay();
    void SavingWritesRichTextAndTellsThePath();
    void SavingAsTextWritesRichText();
    void AfterARichTextSaveLeavingStillAsks();
    void CancellingASaveChangesNothing();
    void AKnownFileIsSavedWithoutAQuestion();
    void WithoutAFileSavingAsksForOne();
    void OwnFormsAlwaysAskForAFile();
    void CancellingTheFileOfAnOwnFormStillDisablesSave();
    void AFailedSaveAsksForAnotherFile();
    void AnOpenFileAsksForAnotherName();
    void ASilentSaveOfAnOpenFileSaysNothing();
    void ASilentSaveToAVanishedPathTellsItAndEnds();
    void TheOldFileStaysWhenSavingFails();
    void NewEmptiesTheDocument();
    void NewOnMyFormsBeginsAForm();
    void EachChoiceOfTheSaveDialogRunsItsRoutine_data();
    void EachChoiceOfTheSaveDialogRunsItsRoutine();
    void TheSaveDialogSpeaksOfThePage();
    void TheSaveButtonOpensTheDialog();
};

void FileCommandsTest::TheSaveDialogIsAskedAsItsTextsSay() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window.Files().SaveAsRTFFile();
    window.Files().Open();
    const auto& shown = window.services.commonDialog.filesShown;
    QCOMPARE(shown.size(), 2U);
    QCOMPARE(shown[0].title, u"Save As"_qs);
    QCOMPARE(shown[0].filter, u"Quillbrook (*.rtf) (*.rtf *.txt)"_qs);
    QVERIFY(shown[0].asksBeforeOverwriting);
    QCOMPARE(shown[1].title, u"Open"_qs);
    QCOMPARE(shown[1].filter, u"Supported Types (*.doc *.rtf *.txt)"_qs);
    QVERIFY(!shown[1].asksBeforeOverwriting);
}

void FileCommandsTest::SavingWritesRichTextAndTellsThePath() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed of Sale"_qs);
    window.Answer(u"deed"_qs);
    window.Files().SaveAsRTFFile();
    QVERIFY(window.Read(u"deed"_qs).startsWith("{\\rtf1"));
    QVERIFY(window.Read(u"deed"_qs).contains("Deed of Sale"));
    QCOMPARE(window.State().CurrentFilePath, window.Path(u"deed"_qs));
    QCOMPARE(window.State().CurrentFileTitle, u"deed"_qs);
    QCOMPARE(window.services.messageBox.shown.size(), 1U);
    const auto& told = window.services.messageBox.shown[0];
    QCOMPARE(told.text, kSaved + window.Path(u"deed"_qs));
    QCOMPARE(told.icon, MessageIcon::Information);
    QCOMPARE(told.buttons, MessageButtons::Ok);
    QCOMPARE(told.title, u"Quillbrook PRO"_qs);
    QVERIFY(!window.SaveEnabled());
}

void FileCommandsTest::SavingAsTextWritesRichText() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window.Answer(u"deed.txt"_qs);
    window.Files().SaveAsRTFFile();
    QVERIFY(!QFile::exists(window.Path(u"deed.txt"_qs)));
    QVERIFY(window.Read(u"deed.rtf"_qs).startsWith("{\\rtf1"));
    QCOMPARE(window.State().CurrentFilePath, window.Path(u"deed.rtf"_qs));
    QCOMPARE(window.State().CurrentFileTitle, u"deed.txt"_qs);
    QCOMPARE(window.services.messageBox.shown[0].text, kSaved + window.Path(u"deed.rtf"_qs));
}

void FileCommandsTest::AfterARichTextSaveLeavingStillAsks() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window.State().DocumentSaved = true;
    window.Answer(u"deed.rtf"_qs);
    window.Files().SaveAsRTFFile();
    QVERIFY(!window.State().DocumentSaved);
}

void FileCommandsTest::CancellingASaveChangesNothing() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    const QString caption = window->windowTitle();
    window.State().DocumentSaved = true;
    window.Files().SaveAsRTFFile();
    QCOMPARE(window.State().CurrentFilePath, QString());
    QCOMPARE(window.State().CurrentFileTitle, QString());
    QCOMPARE(window->windowTitle(), caption);
    QVERIFY(window.State().DocumentSaved);
    QVERIFY(window.SaveEnabled());
    QVERIFY(window.services.messageBox.shown.empty());
}

void FileCommandsTest::AKnownFileIsSavedWithoutAQuestion() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window.State().CurrentFilePath = window.Path(u"known.rtf"_qs);
    window.State().DocumentSaved = true;
    window.Files().SavetoDisk();
    QVERIFY(window.services.commonDialog.filesShown.empty());
    QVERIFY(window.Read(u"known.rtf"_qs).contains("Deed"));
    QCOMPARE(window.services.messageBox.shown[0].text, kSaved + window.Path(u"known.rtf"_qs));
    QVERIFY(!window.SaveEnabled());
    QVERIFY(window.State().DocumentSaved); // untouched
    window.State().DocumentSaved = false;
    window.Files().SavetoDisk();
    QVERIFY(!window.State().DocumentSaved);
}

void FileCommandsTest::WithoutAFileSavingAsksForOne() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window.Answer(u"asked.rtf"_qs);
    window.Files().SavetoDisk();
    QVERIFY(window.Read(u"asked.rtf"_qs).contains("Deed"));
}

void FileCommandsTest::OwnFormsAlwaysAskForAFile() {
    FileWindow& window = *m_window;
    window->SetTab(Tab::MyForms);
    window->txtMyContent()->setText(u"My own"_qs);
    window.State().CurrentFilePath = window.Path(u"other.rtf"_qs);
    window.Answer(u"own.rtf"_qs);
    window.Files().SavetoDisk();
    QVERIFY(!QFile::exists(window.Path(u"other.rtf"_qs)));
    QVERIFY(window.Read(u"own.rtf"_qs).contains("My own"));
    QCOMPARE(window.services.messageBox.shown[0].text, kSaved + window.Path(u"own.rtf"_qs));
    QCOMPARE(window.State().CurrentFilePath, QString());
    QCOMPARE(window.State().CurrentFileTitle, u"own.rtf"_qs);
    QVERIFY(!window.SaveEnabled());
}

void FileCommandsTest::CancellingTheFileOfAnOwnFormStillDisablesSave() {
    FileWindow& window = *m_window;
    window->SetTab(Tab::MyForms);
    window->txtMyContent()->setText(u"My own"_qs);
    QVERIFY(window.SaveEnabled());
    window.Files().SavetoDisk();
    QVERIFY(!window.SaveEnabled());
}

void FileCommandsTest::AFailedSaveAsksForAnotherFile() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window.Answer(u"gone/deed.rtf"_qs);
    window.Answer(u"deed.rtf"_qs);
    window.Files().SaveAsRTFFile();
    const auto& told = window.services.messageBox.shown;
    QCOMPARE(told.size(), 2U);
    QCOMPARE(told[0].text, u"Disk drive Error!   \nPlease try another disk drive.   "_qs);
    QCOMPARE(told[0].icon, MessageIcon::Critical);
    QCOMPARE(told[0].title, u"Quillbrook PRO"_qs);
    QCOMPARE(told[1].text, kSaved + window.Path(u"deed.rtf"_qs));
}

void FileCommandsTest::AnOpenFileAsksForAnotherName() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    QVERIFY(window.Write(u"open.rtf"_qs, "old"));
    QVERIFY(window.Write(u".~lock.open.rtf#"_qs, "x"));
    window.State().DocumentSaved = true;
    window.Answer(u"open.rtf"_qs);
    window.Answer(u"free.rtf"_qs);
    window.Files().SaveAsRTFFile(); // answered No
    QCOMPARE(window.services.messageBox.shown.size(), 1U);
    const auto& asked = window.services.messageBox.shown[0];
    QCOMPARE(asked.text, u"File selected is already open by another application   \n"
                         "Do you want save the Form with a different file name?   "_qs);
    QCOMPARE(asked.icon, MessageIcon::Question);
    QCOMPARE(asked.buttons, MessageButtons::YesNo);
    QCOMPARE(window.Read(u"open.rtf"_qs), QByteArray("old"));
    QVERIFY(!QFile::exists(window.Path(u"free.rtf"_qs)));
    QVERIFY(window.SaveEnabled());
    QVERIFY(window.State().DocumentSaved);
    window.services.messageBox.answer = platform::MessageAnswer::Yes;
    window.services.commonDialog.files = {window.Path(u"open.rtf"_qs), window.Path(u"free.rtf"_qs)};
    window.Files().SaveAsRTFFile();
    QVERIFY(window.Read(u"free.rtf"_qs).contains("Deed"));
}

void FileCommandsTest::ASilentSaveOfAnOpenFileSaysNothing() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    QVERIFY(window.Write(u"open.rtf"_qs, "old"));
    QVERIFY(window.Write(u".~lock.open.rtf#"_qs, "x"));
    window.State().CurrentFilePath = window.Path(u"open.rtf"_qs);
    window.Files().SavetoDisk();
    QVERIFY(window.services.messageBox.shown.empty());
    QVERIFY(window.SaveEnabled());
    QCOMPARE(window.Read(u"open.rtf"_qs), QByteArray("old"));
}

void FileCommandsTest::ASilentSaveToAVanishedPathTellsItAndEnds() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window.State().CurrentFilePath = window.Path(u"gone/deed.rtf"_qs);
    window.Files().SavetoDisk();
    QCOMPARE(window.services.messageBox.shown.size(), 1U);
    QCOMPARE(window.services.messageBox.shown[0].text,
             u"Disk drive Error!   \nPlease try another disk drive.   "_qs);
    QVERIFY(window.services.commonDialog.filesShown.empty());
    QVERIFY(window.SaveEnabled());
}

void FileCommandsTest::TheOldFileStaysWhenSavingFails() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    QVERIFY(QDir(window.folder.path()).mkdir(u"taken.rtf"_qs)); // a folder of the name
    window.Answer(u"taken.rtf"_qs);
    window.Files().SaveAsRTFFile();
    QCOMPARE(window.services.messageBox.shown.size(), 1U);
    const auto& told = window.services.messageBox.shown[0];
    QCOMPARE(told.text, u"Permission denied!   \nRetry?   "_qs);
    QCOMPARE(told.title, u"4"_qs);
    QCOMPARE(told.icon, MessageIcon::Question);
    QCOMPARE(told.buttons, MessageButtons::Ok);
    QCOMPARE(window.services.commonDialog.filesShown.size(), 2U); // back to the start, then cancelled
    QVERIFY(QFileInfo(window.Path(u"taken.rtf"_qs)).isDir());
}

void FileCommandsTest::NewEmptiesTheDocument() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window->txtContent()->setFileName(u"name"_qs);
    window.State().CurrentFilePath = u"path"_qs;
    window.State().CurrentFileTitle = u"title"_qs;
    window->SetTab(Tab::History);
    window.Files().New();
    QCOMPARE(window->CurrentTab(), Tab::EditForm);
    QCOMPARE(window->txtContent()->Text(), QString());
    QCOMPARE(window->txtContent()->FileName(), QString());
    QCOMPARE(window.State().CurrentFilePath, QString());
    QCOMPARE(window.State().CurrentFileTitle, QString());
}

void FileCommandsTest::NewOnMyFormsBeginsAForm() {
    FileWindow& window = *m_window;
    window.Edit(u"Deed"_qs);
    window->SetTab(Tab::MyForms);
    window->txtMyContent()->setText(u"own"_qs);
    window->txtContent()->setFileName(u"name"_qs);
    window.State().CurrentFilePath = u"path"_qs;
    window.State().CurrentFileTitle = u"title"_qs;
    window.Files().New();
    QCOMPARE(window->CurrentTab(), Tab::MyForms);
    QCOMPARE(window->txtMyContent()->Text(), QString());
    QVERIFY(window.State().NewFormMode);
    QCOMPARE(window->txtContent()->Text(), u"Deed"_qs);
    QCOMPARE(window->txtContent()->FileName(), u"name"_qs);
    QCOMPARE(window.State().CurrentFilePath, u"path"_qs);
    QCOMPARE(window.State().CurrentFileTitle, u"title"_qs);
}

void FileCommandsTest::EachChoiceOfTheSaveDialogRunsItsRoutine_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("routine");
    QTest::newRow("word processor") << u"bntSaveWord"_qs << u"word"_qs;
    QTest::newRow("rich text") << u"btnSaveRTF"_qs << u"disk"_qs;
    QTest::newRow("my forms") << u"btnAddtoMyForms"_qs << u"mine"_qs;
    QTest::newRow("cancel") << u"btnCancel"_qs << u""_qs;
}

void FileCommandsTest::EachChoiceOfTheSaveDialogRunsItsRoutine() {
    QFETCH(QString, button);
    QFETCH(QString, routine);
    FileWindow& window = *m_window;
    QVERIFY(window.Show());
    window.Edit(u"Deed"_qs);
    window.Answer(u"deed.rtf"_qs);
    QString ran;
    bool hiddenMeanwhile = false;
    window.Files().SetWordSaving([&] {
        ran = u"word"_qs;
        auto* dialog = window->findChild<frmSave*>();
        hiddenMeanwhile = dialog && !dialog->isVisible();
    });
    QTimer::singleShot(0, &*window, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
    });
    window.Files().ShowSaveDialog();
    if (QFile::exists(window.Path(u"deed.rtf"_qs)))
        ran = u"disk"_qs;
    if (window->CurrentTab() == Tab::MyForms)
        ran = u"mine"_qs;
    QCOMPARE(ran, routine);
    QCOMPARE(hiddenMeanwhile, routine == u"word"_qs);
    QVERIFY(!window->findChild<frmSave*>()); // unloaded
}

void FileCommandsTest::TheSaveDialogSpeaksOfThePage() {
    const frmSave design(false, false, nullptr);
    QCOMPARE(design.windowTitle(), u"Save Options:"_qs);
    QCOMPARE(design.bntSaveWord->text(), u"Save as .DOC File"_qs);
    QCOMPARE(design.btnSaveRTF->text(), u"Save as .RTF File"_qs);
    QCOMPARE(design.btnAddtoMyForms->text(), u"Add to My Forms"_qs);
    QCOMPARE(design.btnCancel->text(), u"Cancel"_qs);
    const QString addText =
        u"Add the Form to the My Forms Collection. It may then be opened and searched for just "
        "like any other Form or Template in the collection."_qs;
    QCOMPARE(design.lblAddtoMyForms->text(), addText);
    const frmSave fresh(true, false, nullptr);
    QCOMPARE(fresh.btnAddtoMyForms->text(), u"Add as New Form"_qs);
    QCOMPARE(fresh.lblAddtoMyForms->text(), addText);
    const frmSave stored(true, true, nullptr);
    QCOMPARE(stored.btnAddtoMyForms->text(), u"Update Document"_qs);
    QCOMPARE(
        stored.lblAddtoMyForms->text(),
        u"Update / Save Changes to the Current Form / Template. It may then be opened and searched for just "
        "like any other Form or Template."_qs);
}

void FileCommandsTest::TheSaveButtonOpensTheDialog() {
    FileWindow& window = *m_window;
    QVERIFY(window.Show());
    window->Menu(u"mnuSave"_qs)->setEnabled(false); // the button asks nobody
    QString title;
    QTimer::singleShot(0, &*window, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        title = dialog->windowTitle();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QTest::mouseClick(window->leftToolbar->btnSave, Qt::LeftButton, {}, QPoint(8, 20));
    QCOMPARE(title, u"Save Options:"_qs);
}

QTEST_MAIN(FileCommandsTest)
#include "file_commands_test.moc"
