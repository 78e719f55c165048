// The font dialog and the colour dialog of the format commands.
#include "editor/format_commands.h"
#include "platform/controls/combo_box.h"
#include "tests/editor/format_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::RichTextBox;

Q_DECLARE_METATYPE(platform::FontChoice)

class FormatDialogsTest : public QObject, FormatDesk {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        m_window = std::make_unique<TestWindow>();
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
    }
    void cleanup() { m_window.reset(); }

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
};

QTEST_MAIN(FormatDialogsTest)
#include "format_dialogs_test.moc"
