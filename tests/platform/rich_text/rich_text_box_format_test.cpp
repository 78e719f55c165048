// The formats of the rich text box's selection.
#include "platform/rich_text/rich_text_box.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <cmath>

#include "platform/rich_text/document_model.h"
#include "tests/platform/rich_text/selections.h"

using namespace rich_text_selections;
using platform::RichTextBox;

class RichTextBoxFormatTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CharacterFormatsAreReadFromTheSource() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral(
            "{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f1 Georgia;}}{\\colortbl;\\red255\\green0\\blue128;}"
            "\\f1\\fs21\\b\\i\\ul\\strike\\cf1 all\\plain none}"));
        Select(box, 0, 3);
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
        QCOMPARE(box.SelFontSize(), 10.5);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelItalic(), true);
        QCOMPARE(box.SelUnderline(), true);
        QCOMPARE(box.SelStrikeThru(), true);
        QCOMPARE(box.SelColor(), QColor(255, 0, 128));
        Select(box, 3, 4);
        QCOMPARE(box.SelBold(), false);
        QCOMPARE(box.SelColor(), QColor(Qt::black));
    }

    void EveryKindOfUnderlineCounts_data() {
        QTest::addColumn<QString>("word");
        for (const char* word : {"ul", "ulw", "uldb", "uld", "uldash", "uldashd", "ulwave", "ulth"})
            QTest::newRow(word) << QString::fromLatin1(word);
    }
    void EveryKindOfUnderlineCounts() {
        QFETCH(QString, word);
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\%1 ab\\ul c}").arg(word));
        Select(box, 0, 2);
        QCOMPARE(box.SelUnderline(), true);
        box.selectAll();
        QCOMPARE(box.SelUnderline(), true);
        QVERIFY(box.setSelUnderline(false));
        QCOMPARE(box.SelUnderline(), false);
        box.setTextRTF(box.TextRTF());
        box.selectAll();
        QCOMPARE(box.SelUnderline(), false);
    }

    void AMixedSelectionHasNoValue() {
        RichTextBox box;
        box.setText(QStringLiteral("abcdef\nghi"));
        Select(box, 0, 3);
        box.setSelBold(true);
        box.setSelItalic(true);
        box.setSelUnderline(true);
        box.setSelStrikeThru(true);
        box.setSelColor(Qt::red);
        box.setSelFontName(QStringLiteral("Georgia"));
        box.setSelFontSize(33);
        box.setSelAlignment(2);
        box.setSelIndent(700);
        box.setSelHangingIndent(350);
        box.setSelBullet(true);
        box.selectAll();
        QVERIFY(!box.SelBold());
        QVERIFY(!box.SelItalic());
        QVERIFY(!box.SelUnderline());
        QVERIFY(!box.SelStrikeThru());
        QVERIFY(!box.SelColor());
        QVERIFY(!box.SelFontName());
        QVERIFY(!box.SelFontSize());
        QVERIFY(!box.SelAlignment());
        QVERIFY(!box.SelIndent());
        QVERIFY(!box.SelHangingIndent());
        QVERIFY(!box.SelBullet());
    }

    void ASelectionUpToAParagraphsStartDoesNotTouchIt() {
        RichTextBox box;
        box.setText(QStringLiteral("ab\ncd"));
        Select(box, 0, 3);
        box.setSelAlignment(1);
        box.setSelStart(4);
        QCOMPARE(box.SelAlignment(), 0);
        Select(box, 0, 3);
        QCOMPARE(box.SelAlignment(), 1);
    }

    void TheLineBehindASelectionKeepsItsFormat_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("an empty line") << QStringLiteral("head\n\nbody");
        QTest::newRow("a line of text") << QStringLiteral("head\nbody\nend");
    }
    void TheLineBehindASelectionKeepsItsFormat() {
        QFETCH(QString, text);
        RichTextBox box;
        box.setText(text);
        Select(box, 0, 5); // the line with its end
        box.setSelBold(true);
        box.setSelFontSize(20);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontSize(), 20);
        const QString source = box.TextRTF();
        QVERIFY(source.contains(QStringLiteral("head\\par")));
        box.setTextRTF(source);
        QCOMPARE(box.TextRTF(), source);
        Select(box, 5, 4); // what stands there, and then the line emptied
        box.setSelText(QString());
        QTest::keyClicks(&box, QStringLiteral("x"));
        Select(box, 5, 1);
        QCOMPARE(box.SelText(), QStringLiteral("x"));
        QCOMPARE(box.SelBold(), false);
        QVERIFY(box.SelFontSize() < 20);
    }

    void AnEmptyLineThatIsSelectedTakesTheFormat_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("length");
        QTest::newRow("first") << QStringLiteral("\nend") << 0 << 1;
        QTest::newRow("between") << QStringLiteral("one\n\ntwo") << 4 << 1;
        QTest::newRow("two of them") << QStringLiteral("one\n\n\ntwo") << 4 << 2;
        QTest::newRow("all there is") << QStringLiteral("\n\n") << 0 << 2;
    }
    void AnEmptyLineThatIsSelectedTakesTheFormat() {
        QFETCH(QString, text);
        QFETCH(int, start);
        QFETCH(int, length);
        RichTextBox box;
        box.setText(text);
        box.Snapshot(); // what is kept of the source follows
        Select(box, start, length);
        box.setSelBold(true);
        box.setSelColor(Qt::red);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelColor(), QColor(Qt::red));
        const QString source = box.TextRTF();
        RichTextBox other;
        other.setTextRTF(source);
        QCOMPARE(other.TextRTF(), source);
        Select(other, start, length);
        QCOMPARE(other.SelBold(), true);
        box.setSelStart(start);
        QTest::keyClicks(&box, QStringLiteral("x"));
        Select(box, start, 1);
        QCOMPARE(box.SelBold(), true);
    }

    void AnEmptyLineTakesAFormatThatTheTextAroundItHas() {
        RichTextBox box;
        box.setTextRTF(
            QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f1 Georgia;}}\\f0\\fs24 a\\par\\f1\\fs40\\par"
                           "\\f0\\fs24 b\\par\\f1\\fs40}"));
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("Arial"));
        QCOMPARE(box.SelFontSize(), 12);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        box.setSelFontName(QStringLiteral("Arial"));
        box.setSelFontSize(12);
        QCOMPARE(changes.count(), 2);
        box.setSelFontName(QStringLiteral("Arial"));
        box.setSelFontSize(12);
        QCOMPARE(changes.count(), 2);
        for (const int line : {2, 5}) {
            box.setSelStart(line);
            QCOMPARE(box.SelFontName(), QStringLiteral("Arial"));
            QCOMPARE(box.SelFontSize(), 12);
        }
    }

    void TheLastLineGoesWithASelectionOfAll() {
        RichTextBox box;
        box.setText(QStringLiteral("one\n"));
        box.selectAll();
        box.setSelFontSize(20);
        box.setSelStart(4);
        QCOMPARE(box.SelFontSize(), 20);
    }

    void AnEmptyLineAtATablesEdgeTakesTheFormat_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("start");
        QTest::newRow("behind the table") << SourceWithTable(QStringLiteral("a"), QStringLiteral("b")) << 11;
        QTest::newRow("first of a cell")
            << SourceWithTable(QStringLiteral("\\par a"), QStringLiteral("b")) << 7;
    }
    void AnEmptyLineAtATablesEdgeTakesTheFormat() {
        QFETCH(QString, source);
        QFETCH(int, start);
        RichTextBox box;
        box.setTextRTF(source);
        box.Snapshot(); // what is kept of the source follows
        Select(box, start, 1);
        QCOMPARE(box.SelText(), QStringLiteral("\n"));
        QCOMPARE(box.SelBold(), false);
        box.setSelBold(true);
        QCOMPARE(box.SelBold(), true);
        RichTextBox other;
        other.setTextRTF(box.TextRTF());
        QCOMPARE(other.TextRTF(), box.TextRTF());
        Select(other, start, 1);
        QCOMPARE(other.SelBold(), true);
        Select(other, start + 1, 1);
        QCOMPARE(other.SelBold(), false);
    }

    void TheLineBehindASelectedTableKeepsItsFormat() {
        RichTextBox box;
        box.setTextRTF(SourceWithTable(QStringLiteral("a"), QStringLiteral("b")));
        Select(box, 0, 11);
        QCOMPARE(box.SelText(), QStringLiteral("before\na\nb\n"));
        box.setSelBold(true);
        QCOMPARE(box.SelBold(), true);
        Select(box, 11, 1);
        QCOMPARE(box.SelBold(), false);
    }

    void EmptyCellsThatAreSelectedTakeTheFormat() {
        RichTextBox box;
        box.setTextRTF(SourceWithTable(QString(), QString()));
        box.Snapshot(); // what is kept of the source follows
        SelectCells(box, 7, 8);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        const QSignalSpy moves(&box, &RichTextBox::SelChange);
        box.setSelBold(true);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(moves.count(), 1);
        RichTextBox other;
        other.setTextRTF(box.TextRTF());
        QCOMPARE(other.TextRTF(), box.TextRTF());
        for (const int cell : {7, 8}) {
            other.setSelStart(cell);
            QCOMPARE(other.SelBold(), true);
        }
        other.setSelStart(9); // behind the table
        QCOMPARE(other.SelBold(), false);
    }

    void AColumnReadsItsCellsAlone() {
        RichTextBox box;
        box.setTextRTF(
            QStringLiteral("{\\rtf1 top\\par\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell "
                           "\\b b\\b0\\cell\\row\\trowd\\cellx2000\\cellx4000\\pard\\intbl c\\cell "
                           "\\b e\\b0\\cell\\row\\pard end\\par}"));
        SelectCells(box, 5, 8);
        QCOMPARE(box.SelBold(), false);
        box.setSelBold(true);
        QCOMPARE(box.SelBold(), true);
        SelectCells(box, 4, 6);
        QCOMPARE(box.SelBold(), true);
        box.setSelBold(false);
        SelectCells(box, 7, 9);
        QCOMPARE(box.SelBold(), std::nullopt);
    }

    void TheCaretReadsTheCharacterBeforeIt() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 ab\\b cd}"));
        box.setSelStart(2);
        QCOMPARE(box.SelBold(), false);
        box.setSelStart(3);
        QCOMPARE(box.SelBold(), true);
    }

    void AFormatSetAtTheCaretIsForWhatIsTypedNext() {
        RichTextBox box;
        box.setText(QStringLiteral("ab"));
        box.setSelStart(1);
        box.setSelBold(true);
        box.setSelFontSize(30);
        QCOMPARE(box.SelBold(), true);
        QTest::keyClicks(&box, QStringLiteral("xy"));
        Select(box, 1, 2);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontSize(), 30.0);
        Select(box, 3, 1);
        QCOMPARE(box.SelBold(), false);
    }

    void OneFormatLeavesTheOthers() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 a\\b b\\i c\\fs40 d}"));
        box.selectAll();
        QVERIFY(box.setSelColor(QColor(0, 0, 255)));
        QCOMPARE(box.SelColor(), QColor(0, 0, 255));
        Select(box, 2, 1);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelItalic(), true);
        QCOMPARE(box.SelFontSize(), 12.0);
        Select(box, 3, 1);
        QCOMPARE(box.SelFontSize(), 20.0);
    }

    void SizesAreExactAndBounded() {
        RichTextBox box;
        box.setText(QStringLiteral("ab"));
        box.selectAll();
        for (const double size : {1.0, 8.25, 10.5, 72.0, 1638.0}) {
            QVERIFY(box.setSelFontSize(size));
            QCOMPARE(box.SelFontSize(), size);
        }
        for (const double size : {0.0, -1.0, 1638.5, std::nan("")}) {
            QVERIFY(!box.setSelFontSize(size));
            QCOMPARE(box.SelFontSize(), 1638.0);
        }
    }

    void NoNameAndNoColourAreRefused() {
        RichTextBox box;
        box.setText(QStringLiteral("ab"));
        box.selectAll();
        const auto name = box.SelFontName();
        QVERIFY(!box.setSelFontName(QString()));
        QVERIFY(!box.setSelColor(QColor()));
        QCOMPARE(box.SelFontName(), name);
        QCOMPARE(box.SelColor(), QColor(Qt::black));
    }

    void ANameOfNoInstalledFontIsKept() {
        RichTextBox box;
        box.setText(QStringLiteral("ab"));
        box.selectAll();
        box.setSelFontName(QStringLiteral("No Such Font"));
        QCOMPARE(box.SelFontName(), QStringLiteral("No Such Font"));
        box.setSnapshot(box.Snapshot());
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("No Such Font"));
    }

    void Alignment_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<int>("number");
        QTest::newRow("left") << QStringLiteral("\\ql") << 0;
        QTest::newRow("right") << QStringLiteral("\\qr") << 1;
        QTest::newRow("centre") << QStringLiteral("\\qc") << 2;
        QTest::newRow("justified") << QStringLiteral("\\qj") << 3;
    }
    void Alignment() {
        QFETCH(QString, word);
        QFETCH(int, number);
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard%1 a\\par}").arg(word));
        QCOMPARE(box.SelAlignment(), number);
        box.setSelAlignment(number == 0 ? 2 : 0);
        QVERIFY(box.setSelAlignment(number));
        QCOMPARE(box.SelAlignment(), number);
        box.setSnapshot(box.Snapshot());
        QCOMPARE(box.SelAlignment(), number);
    }

    void AlignmentOfAColumnIsOfItsCellsAlone() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 top\\par\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell "
                                      "\\qr b\\cell\\row\\trowd\\cellx2000\\cellx4000\\pard\\intbl c\\par "
                                      "d\\cell e\\cell\\row\\pard end\\par}"));
        SelectCells(box, 5, 8);
        QCOMPARE(box.SelAlignment(), 0);
        QVERIFY(box.setSelAlignment(2));
        QCOMPARE(box.SelAlignment(), 2);
        QStringList alignments;
        for (const int position : {0, 4, 6, 8, 10, 12, 14}) {
            Select(box, position, 0);
            alignments += QString::number(box.SelAlignment().value());
        }
        QCOMPARE(alignments.join(u' '), QStringLiteral("0 2 1 2 2 0 0"));
    }

    void OtherAlignmentsAreRefused() {
        RichTextBox box;
        QVERIFY(!box.setSelAlignment(-1));
        QVERIFY(!box.setSelAlignment(4));
        QCOMPARE(box.SelAlignment(), 0);
    }

    void IndentsAreTwips() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard\\li1400\\fi-350 a\\par}"));
        QCOMPARE(box.SelIndent(), 1050);
        QCOMPARE(box.SelHangingIndent(), 350);
        QVERIFY(box.setSelIndent(1750));
        QCOMPARE(box.SelIndent(), 1750);
        QCOMPARE(box.SelHangingIndent(), 350);
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\li2100")));
        QVERIFY(box.setSelHangingIndent(0));
        QCOMPARE(box.SelIndent(), 1750);
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\li1750")));
    }

    void ANegativeIndentIsRefused() {
        RichTextBox box;
        box.setText(QStringLiteral("a\nb"));
        box.setSelIndent(700);
        box.selectAll();
        QVERIFY(!box.setSelIndent(-700));
        box.setSelStart(0);
        QCOMPARE(box.SelIndent(), 700);
        QVERIFY(!box.setSelHangingIndent(-701));
        QCOMPARE(box.SelHangingIndent(), 0);
        QVERIFY(box.setSelIndent(0));
        QVERIFY(!box.setSelIndent(0 - 700));
        QCOMPARE(box.SelIndent(), 0);
    }

    void IndentGoesUpAndDownInSteps() {
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        for (int i = 1; i <= 10; ++i) {
            QVERIFY(box.setSelIndent(*box.SelIndent() + 700));
            QCOMPARE(box.SelIndent(), 700 * i);
        }
        for (int i = 9; i >= 0; --i)
            QVERIFY(box.setSelIndent(*box.SelIndent() - 700));
        QCOMPARE(box.SelIndent(), 0);
    }

    void BulletsComeAndGo() {
        RichTextBox box;
        box.setText(QStringLiteral("a\nb\nc"));
        const QString plain = box.TextRTF();
        Select(box, 0, 3);
        QVERIFY(box.setSelBullet(true));
        QVERIFY(box.setSelHangingIndent(350));
        QCOMPARE(box.SelBullet(), true);
        QCOMPARE(box.SelHangingIndent(), 350);
        QCOMPARE(box.SelIndent(), 0);
        QCOMPARE(box.Text(), QStringLiteral("a\nb\nc"));
        QCOMPARE(box.TextRTF().count(QStringLiteral("\\pnlvlblt")), 2);
        QVERIFY(box.setSelBullet(false));
        QVERIFY(box.setSelHangingIndent(0));
        QCOMPARE(box.SelBullet(), false);
        QCOMPARE(box.TextRTF(), plain);
    }

    void BulletsSetOverAMixedSelectionAreSetForAll() {
        RichTextBox box;
        box.setText(QStringLiteral("a\nb"));
        box.setSelBullet(true);
        box.selectAll();
        QVERIFY(!box.SelBullet());
        QVERIFY(box.setSelBullet(true));
        QCOMPARE(box.SelBullet(), true);
    }

    void NumberedParagraphsCountAsBullets() {
        RichTextBox box;
        box.setTextRTF(
            QStringLiteral("{\\rtf1\\pard\\fi-360\\li720{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec"
                           "{\\pntxta .}}first\\par}"));
        QCOMPARE(box.Text().trimmed(), QStringLiteral("first"));
        QCOMPARE(box.SelBullet(), true);
        QCOMPARE(box.SelHangingIndent(), 360);
        QCOMPARE(box.SelIndent(), 360);
        box.setSelBullet(false);
        QVERIFY(!box.TextRTF().contains(QStringLiteral("\\pn")));
    }

    void TabStopsStayOnThePageWhenTheIndentMoves() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard\\tx2880 a\\tab b\\par}"));
        box.setSelIndent(700);
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\tx2880")));
    }

    void FormatsOfAnEmptyParagraphAreItsOwn() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard a\\par\\b\\qc\\par}"));
        box.setSelStart(2);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelAlignment(), 2);
    }
};

QTEST_MAIN(RichTextBoxFormatTest)
#include "rich_text_box_format_test.moc"
