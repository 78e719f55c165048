#include "editor/format_commands.h"

#include "editor/edit_tool_bar.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MyButton;
using platform::RichTextBox;

Q_DECLARE_METATYPE(platform::FontChoice)

class FormatCommandsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    EditToolBar& Bar() { return *Main().editToolBar; }
    ScriptedCommonDialog& Dialog() { return m_window->services.commonDialog; }

    RichTextBox* Edit(const QString& text, int start = 0, int length = 0) {
        Main().SetTab(Tab::EditForm);
        RichTextBox* pane = Main().txtContent();
        pane->setText(text);
        pane->setSelStart(start);
        pane->setSelLength(length);
        return pane;
    }

    void Run(const QString& name) {
        if (auto* button = Main().findChild<MyButton*>(name))
            button->click();
        else
            Main().Menu(name)->trigger();
    }

    static std::optional<bool> Style(const RichTextBox* pane, const QString& command) {
        if (command.endsWith(u"Bold"))
            return pane->SelBold();
        return command.endsWith(u"Italic") ? pane->SelItalic() : pane->SelUnderline();
    }

    static void Styles() {
        QTest::addColumn<QString>("button");
        QTest::newRow("btnBold") << u"btnBold"_qs;
        QTest::newRow("mnuBold") << u"btnBold"_qs;
        QTest::newRow("btnItalic") << u"btnItalic"_qs;
        QTest::newRow("mnuItalic") << u"btnItalic"_qs;
        QTest::newRow("btnUnderline") << u"btnUnderline"_qs;
        QTest::newRow("mnuUnderline") << u"btnUnderline"_qs;
    }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
    }
    void cleanup() { m_window.reset(); }

    void TheButtonsHaveTheirTips_data() {
        QTest::addColumn<QString>("tip");
        QTest::newRow("btnBold") << u"Toggle Bold"_qs;
        QTest::newRow("btnItalic") << u"Toggle Italic"_qs;
        QTest::newRow("btnUnderline") << u"Toggle Underline"_qs;
        QTest::newRow("btnLeft") << u"Align Left"_qs;
        QTest::newRow("btnCenter") << u"Align Center"_qs;
        QTest::newRow("btnRight") << u"Align Right"_qs;
        QTest::newRow("btnIncrease") << u"Increase Indent"_qs;
        QTest::newRow("btnDecrease") << u"Decrease Indent"_qs;
        QTest::newRow("btnUpper") << u"Convert the Selected Text to Upper Case"_qs;
        QTest::newRow("btnLower") << u"Convert the Selected Text to Lower Case"_qs;
        QTest::newRow("btnFontDialog") << u"Display Fonts"_qs;
        QTest::newRow("btnFontColor") << u"Change Font Color"_qs;
    }
    void TheButtonsHaveTheirTips() {
        const auto* button = Main().findChild<MyButton*>(QLatin1String(QTest::currentDataTag()));
        QVERIFY(button);
        QTEST(button->toolTip(), "tip");
    }

    void AStyleIsSwitchedOnAndOff_data() { Styles(); }
    void AStyleIsSwitchedOnAndOff() {
        QFETCH(QString, button);
        const QString command = QLatin1String(QTest::currentDataTag());
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        auto* shown = Main().findChild<MyButton*>(button);
        Run(command);
        QCOMPARE(Style(pane, command), std::optional(true));
        QVERIFY(shown->Value());
        Run(command);
        QCOMPARE(Style(pane, command), std::optional(false));
        QVERIFY(!shown->Value());
    }

    void AMixedSelectionIsNotChanged_data() { Styles(); }
    void AMixedSelectionIsNotChanged() {
        QFETCH(QString, button);
        const QString command = QLatin1String(QTest::currentDataTag());
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        Run(command);
        pane->setSelStart(2);
        pane->setSelLength(5);
        const QString before = pane->TextRTF();
        Run(command);
        QCOMPARE(pane->TextRTF(), before);
        QVERIFY(!Main().findChild<MyButton*>(button)->Value());
    }

    void WithNothingSelectedTheStyleIsThatOfTheTextTypedNext() {
        RichTextBox* pane = Edit(u"ab"_qs, 1);
        Run(u"btnBold"_qs);
        QTest::keyClicks(pane, u"x"_qs);
        QCOMPARE(pane->Text(), u"axb"_qs);
        pane->setSelStart(1);
        pane->setSelLength(1);
        QCOMPARE(pane->SelBold(), std::optional(true));
        pane->setSelStart(2);
        pane->setSelLength(1);
        QCOMPARE(pane->SelBold(), std::optional(false));
    }

    void OnPagesWithoutEditingNothingHappens_data() {
        QTest::addColumn<int>("unused");
        for (const char* name : {"mnuBold", "mnuItalic", "mnuUnderline", "mnuIncreaseIndent", "mnuUpperCase",
                                 "mnucolor", "btnCenter"})
            QTest::newRow(name) << 0;
    }
    void OnPagesWithoutEditingNothingHappens() {
        QFETCH(int, unused);
        Q_UNUSED(unused);
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        Main().SetTab(Tab::Search);
        Dialog().color = Qt::red;
        const QString before = pane->TextRTF();
        Run(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(pane->TextRTF(), before);
    }

    void AlignmentByButton_data() {
        QTest::addColumn<int>("alignment");
        QTest::newRow("btnLeft") << 0;
        QTest::newRow("btnCenter") << 2;
        QTest::newRow("btnRight") << 1;
    }
    void AlignmentByButton() {
        QFETCH(int, alignment);
        const QString command = QLatin1String(QTest::currentDataTag());
        RichTextBox* pane = Edit(u"some text"_qs);
        pane->setSelAlignment(alignment == 2 ? 1 : 2);
        Run(command);
        QCOMPARE(pane->SelAlignment(), std::optional(alignment));
        for (const MyButton* button : {Bar().btnLeft, Bar().btnCenter, Bar().btnRight})
            QCOMPARE(button->Value(), button->objectName() == command);
    }

    void AlignmentByMenuAlwaysWorksOnTheReadingPane_data() {
        QTest::addColumn<int>("alignment");
        QTest::newRow("mnuLeft") << 0;
        QTest::newRow("mnuCenter") << 2;
        QTest::newRow("mnuRight") << 1;
    }
    void AlignmentByMenuAlwaysWorksOnTheReadingPane() {
        QFETCH(int, alignment);
        RichTextBox* pane = Edit(u"some text"_qs);
        pane->setSelAlignment(alignment == 2 ? 1 : 2);
        Main().SetTab(Tab::Search);
        Run(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(pane->SelAlignment(), std::optional(alignment));
        QVERIFY(pane->hasFocus());
    }

    void AlignmentByMenuOnTheOwnPageLeavesItsPaneAlone() {
        RichTextBox* pane = Edit(u"some text"_qs);
        Main().SetTab(Tab::MyForms);
        Main().txtMyContent()->setText(u"mine"_qs);
        Run(u"mnuCenter"_qs);
        QCOMPARE(pane->SelAlignment(), std::optional(2));
        QCOMPARE(Main().txtMyContent()->SelAlignment(), std::optional(0));
    }

    void AnIndentGrowsAndShrinksByItsStep() {
        RichTextBox* pane = Edit(u"some text"_qs);
        Run(u"btnIncrease"_qs);
        QCOMPARE(pane->SelIndent(), std::optional(700));
        Run(u"mnuIncreaseIndent"_qs);
        QCOMPARE(pane->SelIndent(), std::optional(1400));
        Run(u"mnuDecreaseIndent"_qs);
        QCOMPARE(pane->SelIndent(), std::optional(700));
        Run(u"btnDecrease"_qs);
        QCOMPARE(pane->SelIndent(), std::optional(0));
    }

    void AnIndentOfNothingStays() {
        RichTextBox* pane = Edit(u"some text"_qs);
        Run(u"btnDecrease"_qs);
        QCOMPARE(pane->SelIndent(), std::optional(0));
    }

    void AnIndentSmallerThanAStepStays() {
        RichTextBox* pane = Edit(u"some text"_qs);
        pane->setSelIndent(350);
        Run(u"mnuDecreaseIndent"_qs);
        QCOMPARE(pane->SelIndent(), std::optional(350));
    }

    void TheBulletComesWithItsHangingIndentAndGoesWithIt() {
        RichTextBox* pane = Edit(u"one\ntwo"_qs);
        Main().SetTab(Tab::MyForms); // the page does not matter
        Run(u"mnuBullet"_qs);
        QCOMPARE(pane->SelBullet(), std::optional(true));
        QCOMPARE(pane->SelHangingIndent(), std::optional(350));
        Run(u"mnuBullet"_qs);
        QCOMPARE(pane->SelBullet(), std::optional(false));
        QCOMPARE(pane->SelHangingIndent(), std::optional(0));
    }

    void AMixedSelectionGetsBulletsThroughout() {
        RichTextBox* pane = Edit(u"one\ntwo"_qs);
        Run(u"mnuBullet"_qs);
        pane->selectAll();
        QVERIFY(!pane->SelBullet());
        Run(u"mnuBullet"_qs);
        QCOMPARE(pane->SelBullet(), std::optional(true));
    }

    void TheCaseIsConvertedAndTheSelectionStays_data() {
        QTest::addColumn<QString>("result");
        QTest::newRow("btnUpper") << u"one TWO Three"_qs;
        QTest::newRow("mnuUpperCase") << u"one TWO Three"_qs;
        QTest::newRow("btnLower") << u"one two Three"_qs;
        QTest::newRow("mnuLowerCase") << u"one two Three"_qs;
    }
    void TheCaseIsConvertedAndTheSelectionStays() {
        QFETCH(QString, result);
        RichTextBox* pane = Edit(u"one Two Three"_qs, 4, 3);
        Run(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(pane->Text(), result);
        QCOMPARE(pane->SelStart(), 4);
        QCOMPARE(pane->SelLength(), 3);
        QVERIFY(pane->hasFocus());
    }

    void ConvertingTheCaseKeepsTheLength() {
        RichTextBox* pane = Edit(u"stra\u00dfe \ufb01n"_qs, 0, 9);
        Run(u"btnUpper"_qs);
        QCOMPARE(pane->Text(), u"STRA\u00dfE \ufb01N"_qs);
        QCOMPARE(pane->SelStart(), 0);
        QCOMPARE(pane->SelLength(), 9);
        pane->setText(u"\u0130X"_qs);
        pane->selectAll();
        Run(u"btnLower"_qs);
        QCOMPARE(pane->Text(), u"\u0130x"_qs);
    }

    void ConvertingTheCaseGivesTheSelectionOneFormat() {
        RichTextBox* pane = Edit(u"one two"_qs, 0, 3);
        pane->setSelBold(true);
        pane->selectAll();
        QVERIFY(!pane->SelBold());
        Run(u"btnUpper"_qs);
        QCOMPARE(pane->Text(), u"ONE TWO"_qs);
        QCOMPARE(pane->SelBold(), std::optional(true));
    }

    void ConvertingTheCaseOfCellsKeepsTheirTextAndTheSelection() {
        RichTextBox* pane = Edit(u""_qs, 0);
        pane->setTextRTF(
            u"{\\rtf1\\trowd\\cellx2000\\cellx4000\\intbl left\\cell right\\cell\\row\\pard x\\par}"_qs);
        pane->setSelStart(2);
        pane->setSelLength(6);
        Run(u"btnUpper"_qs);
        QVERIFY(pane->Text().contains(u"LEFT\nRIGHT\nx"_qs));
        int row = 0, rows = 0, column = 0, columns = 0;
        pane->textCursor().selectedTableCells(&row, &rows, &column, &columns);
        QCOMPARE(column, 0);
        QCOMPARE(columns, 2);
    }

    void WithNothingSelectedTheCaseCommandsChangeNothing() {
        RichTextBox* pane = Edit(u"one Two"_qs, 3);
        const QString before = pane->TextRTF();
        Run(u"btnUpper"_qs);
        QCOMPARE(pane->TextRTF(), before);
        QCOMPARE(pane->SelStart(), 3);
    }

    // --- dialogs

    void TheFontDialogBeginsWithTheSelectionsFormat() {
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        pane->setSelFontName(u"Liberation Sans"_qs);
        pane->setSelFontSize(20);
        pane->setSelBold(true);
        pane->setSelUnderline(true);
        pane->setSelStrikeThru(true);
        pane->setSelColor(QColor(10, 20, 30));
        Dialog().confirmed = false;
        Run(u"btnFontDialog"_qs);
        QCOMPARE(Dialog().fontsShown.size(), size_t(1));
        const platform::FontChoice& shown = Dialog().fontsShown[0];
        QCOMPARE(shown.FontName, u"Liberation Sans"_qs);
        QCOMPARE(shown.FontSize, 20.0);
        QVERIFY(shown.FontBold);
        QVERIFY(!shown.FontItalic);
        QVERIFY(shown.FontUnderline);
        QVERIFY(!shown.FontStrikethru); // never read from the selection
        QCOMPARE(shown.Color, QColor(10, 20, 30));
    }

    void AConfirmedFontDialogGoesOntoTheSelection_data() {
        QTest::addColumn<int>("tab");
        QTest::newRow("btnFontDialog") << 2;
        QTest::newRow("mnuFontDialog") << 0;
        QTest::newRow("mnuPopFonts") << 5;
    }
    void AConfirmedFontDialogGoesOntoTheSelection() {
        QFETCH(int, tab);
        Main().SetTab(Tab(tab));
        RichTextBox* pane = Main().ActivePane();
        pane->setText(u"some text"_qs);
        pane->setSelStart(0);
        pane->setSelLength(4);
        Dialog().font = {u"Liberation Mono"_qs, 18, true, true, true, true, QColor(1, 2, 3)};
        Run(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(pane->SelFontName(), std::optional(u"Liberation Mono"_qs));
        QCOMPARE(pane->SelFontSize(), std::optional(18.0));
        QCOMPARE(pane->SelBold(), std::optional(true));
        QCOMPARE(pane->SelItalic(), std::optional(true));
        QCOMPARE(pane->SelStrikeThru(), std::optional(true));
        QCOMPARE(pane->SelUnderline(), std::optional(true));
        QCOMPARE(pane->SelColor(), std::optional(QColor(1, 2, 3)));
        QCOMPARE(Bar().cboFontSize->Text(), u"18"_qs);
    }

    void ACancelledFontDialogLeavesTheSelection() {
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        Dialog().confirmed = false;
        Dialog().font = {u"Liberation Mono"_qs, 18, true, true, true, true, QColor(1, 2, 3)};
        const QString before = pane->TextRTF();
        Run(u"btnFontDialog"_qs);
        QCOMPARE(pane->TextRTF(), before);
    }

    // What comes behind the refused one is not written.
    void AFormatThatTheBoxRefusesEndsTheFontDialogsCommand_data() {
        QTest::addColumn<platform::FontChoice>("choice");
        QTest::addColumn<int>("written"); // of the seven formats, in their order
        const QString name = u"Liberation Mono"_qs;
        QTest::newRow("font") << platform::FontChoice{QString(), 18, true, true, true, true, Qt::red} << 0;
        QTest::newRow("size") << platform::FontChoice{name, 0, true, true, true, true, Qt::red} << 1;
        QTest::newRow("colour") << platform::FontChoice{name, 18, true, true, true, true, QColor()} << 6;
    }
    void AFormatThatTheBoxRefusesEndsTheFontDialogsCommand() {
        QFETCH(platform::FontChoice, choice);
        QFETCH(int, written);
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        const QString shown = Bar().cboFontSize->Text();
        Dialog().font = choice;
        Run(u"btnFontDialog"_qs);
        QCOMPARE(pane->SelFontName() == u"Liberation Mono"_qs, written > 0);
        QCOMPARE(pane->SelFontSize(), std::optional(written > 1 ? 18.0 : 12.0));
        QCOMPARE(pane->SelBold(), std::optional(written > 2));
        QCOMPARE(pane->SelItalic(), std::optional(written > 3));
        QCOMPARE(pane->SelStrikeThru(), std::optional(written > 4));
        QCOMPARE(pane->SelUnderline(), std::optional(written > 5));
        QCOMPARE(pane->SelColor(), std::optional(QColor(0, 0, 0)));
        QCOMPARE(Bar().cboFontSize->Text(), written > 1 ? u"18"_qs : shown);
    }

    void TheFontDialogDoesNotOpenForAMixedSelection_data() {
        QTest::addColumn<int>("what");
        QTest::newRow("fonts") << 0;
        QTest::newRow("sizes") << 1;
        QTest::newRow("bold") << 2;
        QTest::newRow("italic") << 3;
        QTest::newRow("underline") << 4;
        QTest::newRow("colours") << 5;
    }
    void TheFontDialogDoesNotOpenForAMixedSelection() {
        QFETCH(int, what);
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        switch (what) {
        case 0:
            pane->setSelFontName(u"Liberation Sans"_qs);
            break;
        case 1:
            pane->setSelFontSize(20);
            break;
        case 2:
            pane->setSelBold(true);
            break;
        case 3:
            pane->setSelItalic(true);
            break;
        case 4:
            pane->setSelUnderline(true);
            break;
        default:
            pane->setSelColor(Qt::red);
        }
        pane->selectAll();
        Run(u"btnFontDialog"_qs);
        QVERIFY(Dialog().fontsShown.empty());
        QVERIFY(m_window->services.messageBox.shown.empty());
    }

    void OnlyStrikethroughMayBeMixedForTheFontDialog() {
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        pane->setSelStrikeThru(true);
        pane->selectAll();
        QVERIFY(!pane->SelStrikeThru());
        Dialog().confirmed = false;
        Run(u"btnFontDialog"_qs);
        QCOMPARE(Dialog().fontsShown.size(), size_t(1));
    }

    void TheColourChosenGoesOntoTheSelection_data() {
        QTest::addColumn<int>("tab");
        QTest::newRow("btnFontColor") << 2;
        QTest::newRow("mnucolor") << 2;
        QTest::newRow("mnuPopColor") << 5;
    }
    void TheColourChosenGoesOntoTheSelection() {
        QFETCH(int, tab);
        Main().SetTab(Tab(tab));
        RichTextBox* pane = Main().ActivePane();
        pane->setText(u"some text"_qs);
        pane->selectAll();
        Dialog().color = QColor(0, 128, 0);
        Run(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(pane->SelColor(), std::optional(QColor(0, 128, 0)));
    }

    void ACancelledColourDialogPutsTheColourChosenLastOntoTheSelection() {
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        pane->setSelColor(QColor(9, 9, 9));
        Dialog().confirmed = false;
        Run(u"mnucolor"_qs);
        QCOMPARE(pane->SelColor(), std::optional(QColor(0, 0, 0))); // none was chosen yet
        Dialog().confirmed = true;
        Dialog().color = QColor(0, 0, 200);
        Run(u"mnucolor"_qs);
        pane->setSelStart(5);
        pane->setSelLength(4);
        Dialog().confirmed = false;
        Run(u"mnucolor"_qs);
        QCOMPARE(pane->SelColor(), std::optional(QColor(0, 0, 200)));
        QCOMPARE(Dialog().colorsShown.back(), QColor(0, 0, 200));
    }

    void AColourChosenInTheFontDialogIsTheOneChosenLast() {
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        Dialog().font = {u"Liberation Mono"_qs, 18, false, false, false, false, QColor(1, 2, 3)};
        Run(u"btnFontDialog"_qs);
        pane->setSelStart(5);
        pane->setSelLength(4);
        Dialog().confirmed = false;
        Run(u"mnucolor"_qs);
        QCOMPARE(Dialog().colorsShown.back(), QColor(1, 2, 3));
        QCOMPARE(pane->SelColor(), std::optional(QColor(1, 2, 3)));
    }

    void OnPagesWithoutEditingTheColourDialogIsShownAllTheSame() {
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        Main().SetTab(Tab::Search);
        const QString before = pane->TextRTF();
        Dialog().color = QColor(0, 128, 0);
        Run(u"mnucolor"_qs);
        QCOMPARE(Dialog().colorsShown.size(), size_t(1));
        QCOMPARE(pane->TextRTF(), before);
    }

    void OnTheOwnPageCommandsLeaveTheReadingPane_data() {
        QTest::addColumn<int>("unused");
        for (const char* name : {"btnBold", "mnuItalic", "btnUnderline", "btnCenter", "btnRight",
                                 "btnIncrease", "mnuIncreaseIndent", "btnUpper", "mnuUpperCase"})
            QTest::newRow(name) << 0;
    }
    void OnTheOwnPageCommandsLeaveTheReadingPane() {
        QFETCH(int, unused);
        Q_UNUSED(unused);
        RichTextBox* pane = Edit(u"some text"_qs, 0, 4);
        Main().SetTab(Tab::MyForms);
        RichTextBox* mine = Main().txtMyContent();
        mine->setText(u"my text"_qs);
        mine->setSelStart(0);
        mine->setSelLength(2);
        const QString before = pane->TextRTF();
        const QString mineBefore = mine->TextRTF();
        Run(QLatin1String(QTest::currentDataTag()));
        QCOMPARE(pane->TextRTF(), before);
        QVERIFY(mine->TextRTF() != mineBefore);
    }

    void FormattingByCommandsLeavesTheDocumentSaved() {
        Edit(u"some text"_qs, 0, 4);
        for (const QString& command : {u"btnBold"_qs, u"btnCenter"_qs, u"btnIncrease"_qs, u"btnUpper"_qs})
            Run(command);
        QVERIFY(Main().State().DocumentSaved);
    }
};

QTEST_MAIN(FormatCommandsTest)
#include "format_commands_test.moc"
