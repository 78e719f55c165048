// What the format commands make of the selection.
#include "editor/format_commands.h"
#include "tests/editor/format_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MyButton;
using platform::RichTextBox;

class FormatCommandsTest : public QObject, FormatDesk {
    Q_OBJECT

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
