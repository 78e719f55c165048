// Events of the two panes, and the font combos.
#include "editor/editor_panes.h"

#include "app/menu_tree.h"
#include "editor/edit_tool_bar.h"
#include "editor/undo_commands.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::RichTextBox;

class EditorPanesTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    EditToolBar& Bar() { return *Main().editToolBar; }

    RichTextBox* Go(Tab tab) {
        Main().SetTab(tab);
        return Main().ActivePane();
    }

    static void EitherPane() {
        QTest::addColumn<int>("tab");
        QTest::newRow("form") << 2;
        QTest::newRow("my form") << 5;
    }

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
    }
    void cleanup() { m_window.reset(); }

    void TheActivePaneAndTheStrictOne() {
        for (int tab = 0; tab < 6; ++tab) {
            Main().SetTab(Tab(tab));
            RichTextBox* active = tab == 5 ? Main().txtMyContent() : Main().txtContent();
            QCOMPARE(Main().ActivePane(), active);
            QCOMPARE(Main().StrictPane(), tab == 2 || tab == 5 ? active : nullptr);
        }
    }

    void AnEmptyReadingPaneDisablesNewAndSave() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"x"_qs);
        QVERIFY(Main().Menu(u"mnuNew"_qs)->isEnabled());
        QVERIFY(Main().Menu(u"mnuSave"_qs)->isEnabled());
        QTest::keyClick(pane, Qt::Key_Delete);
        QCOMPARE(pane->Text(), QString());
        QVERIFY(!Main().Menu(u"mnuNew"_qs)->isEnabled());
        QVERIFY(!Main().Menu(u"mnuSave"_qs)->isEnabled());
        QTest::keyClicks(pane, u"y"_qs);
        QVERIFY(Main().Menu(u"mnuNew"_qs)->isEnabled());
        QVERIFY(Main().Menu(u"mnuSave"_qs)->isEnabled());
    }

    void AnEmptiedPaneOfOwnFormsStartsOverInItsFont() {
        RichTextBox* pane = Go(Tab::MyForms);
        pane->setText(u"x"_qs);
        pane->selectAll();
        pane->setSelFontName(u"Liberation Sans"_qs);
        pane->setSelFontSize(20);
        QTest::keyClick(pane, Qt::Key_Delete);
        QCOMPARE(pane->SelFontName(), std::optional(u"Times New Roman"_qs));
        QCOMPARE(pane->SelFontSize(), std::optional(12.0));
        QCOMPARE(Bar().cboFonts->Text(), u"Times New Roman"_qs);
        QCOMPARE(Bar().cboFontSize->Text(), u"12"_qs);
        QTest::keyClicks(pane, u"new"_qs);
        pane->selectAll();
        QCOMPARE(pane->SelFontName(), std::optional(u"Times New Roman"_qs));
        QCOMPARE(pane->SelFontSize(), std::optional(12.0));
    }

    void AnEmptiedPaneOfOwnFormsKeepsNoOtherFormatAndIsRecordedSo() {
        RichTextBox* pane = Go(Tab::MyForms);
        pane->setText(u"x"_qs);
        pane->selectAll();
        pane->setSelFontSize(20);
        pane->setSelBold(true);
        pane->setSelColor(Qt::red);
        pane->setSelAlignment(2);
        pane->setSelIndent(700);
        const PaneHistory& history = Main().undoCommands->MyHistory();
        const int before = history.Index();
        QTest::keyClick(pane, Qt::Key_Delete);
        QCOMPARE(pane->SelBold(), std::optional(false));
        QCOMPARE(pane->SelColor(), std::optional(QColor(Qt::black)));
        QCOMPARE(pane->SelAlignment(), std::optional(0));
        QCOMPARE(pane->SelIndent(), std::optional(0));
        QCOMPARE(history.Index(), before + 1);
        QCOMPARE(QString::fromLatin1(history.Entry(history.Index())->Join()), pane->TextRTF());
        QVERIFY(pane->TextRTF().contains(u"Times New Roman"_qs));
    }

    void ABlankOrAnEmptyLineIsText_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("blank") << u" "_qs;
        QTest::newRow("empty line") << u"\n"_qs;
    }
    void ABlankOrAnEmptyLineIsText() {
        QFETCH(QString, text);
        RichTextBox* reading = Main().txtContent();
        reading->setText(text);
        QVERIFY(Main().Menu(u"mnuNew"_qs)->isEnabled());
        QVERIFY(Main().Menu(u"mnuSave"_qs)->isEnabled());
        RichTextBox* mine = Go(Tab::MyForms);
        mine->setText(text);
        mine->selectAll();
        mine->setSelFontSize(20);
        mine->setSelAlignment(2);
        QCOMPARE(mine->Text(), text);
        QCOMPARE(mine->SelFontSize(), std::optional(20.0));
        QCOMPARE(mine->SelAlignment(), std::optional(2));
    }

    void ANewOwnFormShowsItsFontWhateverTheCombosShowed() {
        Go(Tab::MyForms);
        for (int i = 0; i < 2; ++i) { // also where the pane has that font already
            Bar().cboFonts->setText(u"Liberation Sans"_qs);
            Bar().cboFontSize->setText(u"33"_qs);
            Main().myFormsPage->StartNewMyForm();
            QCOMPARE(Bar().cboFonts->Text(), u"Times New Roman"_qs);
            QCOMPARE(Bar().cboFontSize->Text(), u"12"_qs);
        }
    }

    void AClickInTheReadingPaneGoesToTheEditPageFromAnyOther_data() {
        QTest::addColumn<int>("tab");
        for (int tab : {0, 1, 2, 3, 4})
            QTest::newRow(qPrintable(QString::number(tab))) << tab;
    }
    void AClickInTheReadingPaneGoesToTheEditPageFromAnyOther() {
        QFETCH(int, tab);
        Main().SetTab(Tab(tab));
        QTest::mouseClick(Main().txtContent()->viewport(), Qt::LeftButton, Qt::NoModifier, {60, 40});
        QCOMPARE(Main().CurrentTab(), Tab::EditForm);
    }

    void TheSelectionsFormatIsShown() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"plain bold"_qs);
        pane->setSelStart(6);
        pane->setSelLength(4);
        pane->setSelBold(true);
        pane->setSelItalic(true);
        pane->setSelUnderline(true);
        pane->setSelFontName(u"Liberation Sans"_qs);
        pane->setSelFontSize(20);
        pane->setSelAlignment(2);
        pane->setSelStart(0);
        QVERIFY(!Bar().btnBold->Value());
        pane->setSelStart(8);
        QVERIFY(Bar().btnBold->Value());
        QVERIFY(Bar().btnItalic->Value());
        QVERIFY(Bar().btnUnderline->Value());
        QVERIFY(Bar().btnCenter->Value());
        QVERIFY(!Bar().btnLeft->Value());
        QVERIFY(!Bar().btnRight->Value());
        QCOMPARE(Bar().cboFonts->Text(), u"Liberation Sans"_qs);
        QCOMPARE(Bar().cboFontSize->Text(), u"20"_qs);
    }

    void BoldItalicAndUnderlineAreShownEachForItself_data() { EitherPane(); }
    void BoldItalicAndUnderlineAreShownEachForItself() {
        QFETCH(int, tab);
        RichTextBox* pane = Go(Tab(tab));
        pane->setText(u"bold italic underlined"_qs);
        const auto select = [pane](int start, int length) {
            pane->setSelStart(start);
            pane->setSelLength(length);
        };
        select(0, 4);
        pane->setSelBold(true);
        select(5, 6);
        pane->setSelItalic(true);
        select(12, 10);
        pane->setSelUnderline(true);
        const auto pressed = [this] {
            return QList<bool>{Bar().btnBold->Value(), Bar().btnItalic->Value(), Bar().btnUnderline->Value()};
        };
        select(0, 4);
        QCOMPARE(pressed(), (QList<bool>{true, false, false}));
        select(5, 6);
        QCOMPARE(pressed(), (QList<bool>{false, true, false}));
        select(12, 10);
        QCOMPARE(pressed(), (QList<bool>{false, false, true}));
    }

    void AMixedSelectionShowsNothingPressedAndTheCombosKeepTheirTexts() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"plain bold"_qs);
        pane->setSelStart(6);
        pane->setSelLength(4);
        pane->setSelBold(true);
        pane->setSelFontName(u"Liberation Sans"_qs);
        pane->setSelFontSize(20);
        pane->setSelStart(0);
        pane->setSelLength(10);
        QVERIFY(!Bar().btnBold->Value());
        QCOMPARE(Bar().cboFonts->Text(), u"Times New Roman"_qs); // of the caret before
        QCOMPARE(Bar().cboFontSize->Text(), u"12"_qs);
    }

    void EachMixedFormatShowsItsButtonsNotPressed() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"one\ntwo"_qs);
        pane->setSelStart(0);
        pane->setSelLength(3);
        pane->setSelItalic(true);
        pane->setSelUnderline(true);
        for (const int alignment : {0, 1, 2}) {
            pane->setSelStart(0);
            pane->setSelAlignment(alignment);
            pane->setSelStart(4);
            pane->setSelAlignment((alignment + 1) % 3);
            pane->selectAll();
            for (const platform::MyButton* button :
                 {Bar().btnItalic, Bar().btnUnderline, Bar().btnLeft, Bar().btnCenter, Bar().btnRight})
                QVERIFY2(!button->Value(), qPrintable(button->objectName()));
        }
    }

    void JustifiedTextShowsNoAlignmentPressed_data() { EitherPane(); }
    void JustifiedTextShowsNoAlignmentPressed() {
        QFETCH(int, tab);
        RichTextBox* pane = Go(Tab(tab));
        pane->setText(u"text"_qs);
        for (const int alignment : {0, 1, 2}) {
            pane->setSelAlignment(alignment);
            QVERIFY(Bar().btnLeft->Value() || Bar().btnCenter->Value() || Bar().btnRight->Value());
            pane->setSelAlignment(3);
            QVERIFY(!Bar().btnLeft->Value() && !Bar().btnCenter->Value() && !Bar().btnRight->Value());
        }
    }

    void TheFormatIsShownWhenThePageIsChosen() {
        Main().txtContent()->setText(u"x"_qs);
        Main().txtContent()->selectAll();
        Main().txtContent()->setSelAlignment(1);
        RichTextBox* mine = Go(Tab::MyForms);
        mine->setText(u"mine"_qs);
        mine->setSelAlignment(2);
        QVERIFY(Bar().btnCenter->Value());
        Go(Tab::EditForm);
        QVERIFY(Bar().btnRight->Value());
        QVERIFY(!Bar().btnCenter->Value());
        Go(Tab::MyForms);
        QVERIFY(Bar().btnCenter->Value());
        QVERIFY(!Bar().btnRight->Value());
    }

    void FontAndSizeAreShownEachForItself() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"one two"_qs);
        pane->selectAll();
        pane->setSelFontSize(20);
        pane->setSelStart(4);
        pane->setSelLength(3);
        pane->setSelFontName(u"Liberation Sans"_qs);
        Bar().cboFontSize->setText(u"?"_qs);
        pane->selectAll();
        QCOMPARE(Bar().cboFonts->Text(), u"Liberation Sans"_qs); // mixed: what was shown stays
        QCOMPARE(Bar().cboFontSize->Text(), u"20"_qs);
        pane->setSelFontName(u"Liberation Mono"_qs);
        pane->setSelStart(0);
        pane->setSelLength(3);
        pane->setSelFontSize(8);
        Bar().cboFonts->setText(u"?"_qs);
        pane->selectAll();
        QCOMPARE(Bar().cboFonts->Text(), u"Liberation Mono"_qs);
        QCOMPARE(Bar().cboFontSize->Text(), u"8"_qs);
    }

    void APageWithoutEditingShowsNoFormat() {
        Main().txtContent()->setText(u"some text"_qs);
        for (const Tab tab : {Tab::FormsExplorer, Tab::Search, Tab::Favorites, Tab::History}) {
            Main().SetTab(Tab::EditForm);
            Bar().btnBold->setValue(true);
            Bar().cboFonts->setText(u"?"_qs);
            Main().SetTab(tab);
            QVERIFY(Bar().btnBold->Value());
            QCOMPARE(Bar().cboFonts->Text(), u"?"_qs);
        }
    }

    void AButtonOtherThanTheLeftShowsThePopUp_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<bool>("shown");
        for (const int tab : {0, 2, 5}) {
            QTest::addRow("left, page %d", tab) << tab << Qt::LeftButton << false;
            QTest::addRow("right, page %d", tab) << tab << Qt::RightButton << true;
            QTest::addRow("middle, page %d", tab) << tab << Qt::MiddleButton << true;
            QTest::addRow("another, page %d", tab) << tab << Qt::BackButton << true;
        }
    }
    void AButtonOtherThanTheLeftShowsThePopUp() {
        QFETCH(int, tab);
        QFETCH(Qt::MouseButton, button);
        QFETCH(bool, shown);
        RichTextBox* pane = Go(Tab(tab));
        pane->setText(u"some text to point at"_qs);
        pane->setSelStart(2);
        pane->setSelLength(4);
        QTest::mousePress(pane->viewport(), button, Qt::NoModifier, {120, 40});
        QMenu* popUp = Main().menuTree->Menu(u"mnuPopUp"_qs);
        QCOMPARE(popUp->isVisible(), shown);
        if (shown) // what was selected, for the entries to act on
            QCOMPARE(pane->SelText(), u"me t"_qs);
        QCOMPARE(int(Main().CurrentTab()), tab); // going to the form takes a whole click
        popUp->close();
        QTest::mouseRelease(pane->viewport(), button, Qt::NoModifier, {120, 40});
    }

    void ThePopUpHasItsEntries() {
        QStringList texts;
        for (const QAction* action : Main().menuTree->Menu(u"mnuPopUp"_qs)->actions())
            texts.append(action->isSeparator() ? u"-"_qs : action->text());
        QCOMPARE(texts,
                 QStringList({u"Undo"_qs, u"Redo"_qs, u"-"_qs, u"Cut"_qs, u"Copy"_qs, u"Paste"_qs,
                              u"Delete"_qs, u"-"_qs, u"Select All"_qs, u"-"_qs, u"Fonts..."_qs,
                              u"Text Color..."_qs, u"-"_qs, u"Color Theme..."_qs, u"-"_qs, u"About..."_qs}));
    }

    // --- keys

    void ACharacterMakesTheDocumentUnsavedInEitherPane_data() {
        EitherPane();
        QTest::newRow("form that is read") << 0;
    }
    void ACharacterMakesTheDocumentUnsavedInEitherPane() {
        QFETCH(int, tab);
        RichTextBox* pane = Go(Tab(tab));
        pane->setText(u"some text"_qs);
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Home, Qt::Key_Delete})
            QTest::keyClick(pane, key);
        QVERIFY(Main().State().DocumentSaved);
        QTest::keyClicks(pane, u"x"_qs);
        QVERIFY(!Main().State().DocumentSaved);
    }

    void TabWritesATabWhereAFormIsEdited() {
        RichTextBox* pane = Go(Tab::EditForm);
        QTest::keyClick(pane, Qt::Key_Tab);
        QCOMPARE(pane->Text(), u"\t"_qs);
    }

    void TabGoesOnWhereAFormIsOnlyRead() {
        Go(Tab::FormsExplorer)->setFocus();
        QTest::keyClick(Main().txtContent(), Qt::Key_Tab);
        QVERIFY(!Main().txtContent()->hasFocus());
        QCOMPARE(Main().txtContent()->Text(), QString());
    }

    void TheKeysOfUndoAndRedoRunTheProgramsOwn() {
        RichTextBox* pane = Go(Tab::EditForm);
        QTest::keyClicks(pane, u"ab"_qs);
        QTest::keyClick(pane, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(pane->Text(), u"a"_qs);
        QTest::keyClick(pane, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(pane->Text(), u"ab"_qs);
    }

    void TheKeysOfUndoAndRedoCountAsCharacters_data() { EitherPane(); }
    void TheKeysOfUndoAndRedoCountAsCharacters() {
        QFETCH(int, tab);
        RichTextBox* pane = Go(Tab(tab));
        QTest::keyClicks(pane, u"abc"_qs);
        const auto savedAfter = [&](Qt::Key key) {
            Main().State().DocumentSaved = true;
            QTest::keyClick(pane, key, Qt::ControlModifier);
            return Main().State().DocumentSaved;
        };
        QVERIFY(!savedAfter(Qt::Key_Z));
        QCOMPARE(pane->Text(), u"ab"_qs);
        QVERIFY(!savedAfter(Qt::Key_Y));
        QCOMPARE(pane->Text(), u"abc"_qs);
        QVERIFY(!savedAfter(Qt::Key_Y)); // nothing is left to bring again
        while (Main().Menu(u"mnuUndo"_qs)->isEnabled())
            QTest::keyClick(pane, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(Main().State().DocumentSaved); // the first state counts as unchanged
    }

    void AKeyOfUndoOrRedoThatStandsForNoCharacterIsNone() {
        RichTextBox* pane = Go(Tab::EditForm);
        QTest::keyClicks(pane, u"abc"_qs);
        Main().State().DocumentSaved = true;
        const auto press = [pane](Qt::Key key) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::ControlModifier);
            QCoreApplication::sendEvent(pane, &event);
        };
        press(Qt::Key_Z);
        QCOMPARE(pane->Text(), u"ab"_qs);
        QVERIFY(Main().State().DocumentSaved);
        press(Qt::Key_Y);
        QCOMPARE(pane->Text(), u"abc"_qs);
        QVERIFY(Main().State().DocumentSaved);
    }

    // --- font combos

    void AFontPickedGoesOntoTheSelection() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"some text"_qs);
        pane->setSelStart(0);
        pane->setSelLength(4);
        const int index = int(Bar().cboFonts->Items().indexOf(u"Liberation Sans"_qs));
        QVERIFY(index >= 0);
        Bar().cboFonts->setListIndex(index);
        Bar().cboFontSize->setListIndex(int(Bar().cboFontSize->Items().indexOf(u"20"_qs)));
        QCOMPARE(pane->SelFontName(), std::optional(u"Liberation Sans"_qs));
        QCOMPARE(pane->SelFontSize(), std::optional(20.0));
        pane->setSelStart(6);
        QCOMPARE(pane->SelFontSize(), std::optional(12.0));
    }

    void OnTheOwnPageAPickGoesOntoItsPane() {
        RichTextBox* reading = Go(Tab::EditForm);
        reading->setText(u"some text"_qs);
        reading->selectAll();
        RichTextBox* mine = Go(Tab::MyForms);
        mine->setText(u"mine"_qs);
        mine->selectAll();
        const QString before = reading->TextRTF();
        Bar().cboFonts->setListIndex(int(Bar().cboFonts->Items().indexOf(u"Liberation Sans"_qs)));
        Bar().cboFontSize->setListIndex(int(Bar().cboFontSize->Items().indexOf(u"20"_qs)));
        QCOMPARE(mine->SelFontName(), std::optional(u"Liberation Sans"_qs));
        QCOMPARE(mine->SelFontSize(), std::optional(20.0));
        QCOMPARE(reading->TextRTF(), before);
    }

    void PassingTheCombosLeavesAMixedSelection() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"one two"_qs);
        pane->setSelStart(4);
        pane->setSelLength(3);
        pane->setSelFontName(u"Liberation Sans"_qs);
        pane->setSelFontSize(20);
        pane->selectAll(); // the combos keep showing the second word's
        const QString before = pane->TextRTF();
        for (platform::ComboBox* combo : {Bar().cboFonts, Bar().cboFontSize}) {
            QVERIFY(combo->Items().contains(combo->Text()));
            combo->setFocus();
            QTest::keyClick(combo, Qt::Key_Tab);
            QVERIFY(!combo->hasFocus());
            QCOMPARE(pane->TextRTF(), before);
        }
    }

    void ASizeTypedCountsWhenEnterIsPressed() {
        RichTextBox* pane = Go(Tab::EditForm);
        pane->setText(u"some text"_qs);
        pane->selectAll();
        Bar().cboFontSize->lineEdit()->setFocus();
        Bar().cboFontSize->lineEdit()->selectAll();
        QTest::keyClicks(Bar().cboFontSize->lineEdit(), u"13.5"_qs);
        QTest::keyClick(Bar().cboFontSize->lineEdit(), Qt::Key_Return);
        QCOMPARE(pane->SelFontSize(), std::optional(13.5));
    }

    void OnPagesWithoutEditingTheCombosDoNothing() {
        for (RichTextBox* pane : {Main().txtContent(), Main().txtMyContent()}) {
            pane->setText(u"some text"_qs);
            pane->selectAll();
        }
        const QString reading = Main().txtContent()->TextRTF();
        const QString mine = Main().txtMyContent()->TextRTF();
        for (const Tab tab : {Tab::FormsExplorer, Tab::Search, Tab::Favorites, Tab::History}) {
            Main().SetTab(tab);
            const int font = int(Bar().cboFonts->Items().indexOf(u"Liberation Sans"_qs));
            QVERIFY(font >= 0);
            Bar().cboFonts->setListIndex(font);
            Bar().cboFontSize->setListIndex(20);
            QCOMPARE(Main().txtContent()->TextRTF(), reading);
            QCOMPARE(Main().txtMyContent()->TextRTF(), mine);
        }
    }
};

QTEST_MAIN(EditorPanesTest)
#include "editor_panes_test.moc"
