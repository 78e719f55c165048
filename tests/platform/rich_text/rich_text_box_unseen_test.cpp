// What a form holds and the pane does not show: hidden text, and the paragraphs and cells that only Qt needs
// beside and in tables. Neither may stand in the way of a format of the selection.
#include "platform/rich_text/rich_text_box.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

#include "platform/rich_text/document_model.h"
#include "tests/platform/rich_text/selections.h"

using namespace rich_text_selections;
using platform::RichTextBox;

namespace {

constexpr char kRow[] = "\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row";

// Whether all hidden text is drawn too small and too pale to be seen.
bool IsHiddenUnseen(const RichTextBox& box) {
    const auto isUnseen = [](const QTextCharFormat& format) {
        return !format.boolProperty(platform::HiddenText) ||
               (format.fontPointSize() < 1 && format.foreground().color().alpha() == 0);
    };
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
        if (!isUnseen(block.charFormat()))
            return false;
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            if (!isUnseen(run.fragment().charFormat()))
                return false;
        }
    }
    return true;
}

} // namespace

class RichTextBoxUnseenTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HiddenTextStaysHidden() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 a\\v secret\\v0 b}"));
        box.selectAll();
        box.setSelFontSize(20);
        box.setSelColor(Qt::red);
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\v")));
        Select(box, 1, 6);
        QVERIFY(box.textCursor().charFormat().fontPointSize() < 1);
    }

    void HiddenTextStaysHiddenWhereverItStands_data() {
        QTest::addColumn<QString>("source");
        const QString end = QStringLiteral("{\\rtf1 %1{\\v\\par}%2\\par more\\par}");
        QTest::newRow("first end of a paragraph") << end.arg(QString(), QStringLiteral("text"));
        QTest::newRow("another end of a paragraph") << end.arg(QStringLiteral("text\\par "), QString());
        QTest::newRow("last end of a paragraph") << QStringLiteral("{\\rtf1 text\\par{\\v\\par}}");
        QTest::newRow("in several cells")
            << SourceWithTable(QStringLiteral("a{\\v b}c"), QStringLiteral("{\\v d}e"));
    }
    void HiddenTextStaysHiddenWhereverItStands() {
        QFETCH(QString, source);
        RichTextBox box;
        box.setTextRTF(source);
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\v")));
        box.selectAll();
        box.setSelFontSize(20);
        box.setSelColor(Qt::red);
        QVERIFY(IsHiddenUnseen(box));
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\v")));
    }

    void HiddenTextStaysHiddenInSelectedCells() {
        RichTextBox box;
        box.setTextRTF(SourceWithTable(QStringLiteral("a{\\v b}c"), QStringLiteral("{\\v d}e")));
        SelectCells(box, 8, 11);
        QVERIFY(box.textCursor().hasComplexSelection());
        box.setSelFontSize(20);
        box.setSelColor(Qt::red);
        QVERIFY(IsHiddenUnseen(box));
        Select(box, 7, 1);
        QCOMPARE(box.SelFontSize(), 20);
    }

    void HiddenTextTakesTheOtherFormats() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\f0\\fs24 a\\v secret\\v0 b}"));
        box.selectAll();
        box.setSelBold(true);
        QCOMPARE(box.SelBold(), true);
        box.setSelItalic(true);
        QCOMPARE(box.SelItalic(), true);
        box.setSelUnderline(true);
        QCOMPARE(box.SelUnderline(), true);
        box.setSelStrikeThru(true);
        QCOMPARE(box.SelStrikeThru(), true);
        box.setSelFontName(QStringLiteral("Georgia"));
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
        box.setSelFontSize(20);
        QCOMPARE(box.SelFontSize(), 20);
        box.setSelColor(Qt::red);
        QCOMPARE(box.SelColor(), QColor(Qt::red));
        QVERIFY(IsHiddenUnseen(box));
        Select(box, 1, 6);
        QCOMPARE(box.SelText(), QStringLiteral("secret"));
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
        QCOMPARE(box.SelFontSize(), 20);
        RichTextBox other;
        other.setTextRTF(box.TextRTF());
        QCOMPARE(other.TextRTF(), box.TextRTF());
        Select(other, 1, 6);
        QCOMPARE(other.SelBold(), true);
        QCOMPARE(other.SelFontSize(), 20);
    }

    void HiddenTextOutsideTheSelectionKeepsItsFormats() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs30 a{\\v secret}b}"));
        Select(box, 0, 4);
        box.setSelBold(true);
        box.setSelFontSize(20);
        Select(box, 1, 3);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontSize(), 20);
        Select(box, 4, 3);
        QCOMPARE(box.SelBold(), false);
        QCOMPARE(box.SelFontSize(), 15);
        QVERIFY(IsHiddenUnseen(box));
    }

    void HiddenTextOfOtherCellsKeepsItsFormats() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral(
            "{\\rtf1 top\\par\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell {\\v b}\\cell"
            "\\row\\trowd\\cellx2000\\cellx4000\\pard\\intbl{\\v c}\\cell e\\cell\\row\\pard end\\par}"));
        SelectCells(box, 5, 9);
        QVERIFY(box.textCursor().hasComplexSelection());
        box.setSelBold(true);
        QCOMPARE(box.SelBold(), true);
        QVERIFY(IsHiddenUnseen(box));
        Select(box, 6, 1);
        QCOMPARE(box.SelText(), QStringLiteral("b"));
        QCOMPARE(box.SelBold(), false);
        Select(box, 8, 1);
        QCOMPARE(box.SelText(), QStringLiteral("c"));
        QCOMPARE(box.SelBold(), true);
    }

    void HiddenTextDoesNotCountBesideTextThatIsSeen() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\cf1\\fs21\\b a"
                                      "{\\b0\\fs30\\v secret}b}"));
        box.selectAll();
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontSize(), 10.5);
        QCOMPARE(box.SelColor(), QColor(Qt::red));
        Select(box, 1, 6);
        QCOMPARE(box.SelBold(), false);
        QCOMPARE(box.SelFontSize(), 15);
    }

    void TextThatReplacesHiddenAndSeenTextIsSeen() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 a{\\v secret}b}"));
        Select(box, 1, 7);
        QTest::keyClicks(&box, QStringLiteral("x"));
        QCOMPARE(box.Text(), QStringLiteral("ax"));
        QVERIFY(!box.TextRTF().contains(QStringLiteral("\\v")));
    }

    void WhatIsTypedBehindHiddenTextIsSeen_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("caret");
        QTest::newRow("behind a run") << QStringLiteral("{\\rtf1\\fs30 a{\\v secret}b}") << 7;
        QTest::newRow("before one at the start") << QStringLiteral("{\\rtf1\\fs30{\\v secret}b}") << 0;
        QTest::newRow("in an empty paragraph") << QStringLiteral("{\\rtf1\\fs30 a\\par{\\v\\par}}") << 2;
    }
    void WhatIsTypedBehindHiddenTextIsSeen() {
        QFETCH(QString, source);
        QFETCH(int, caret);
        RichTextBox box;
        box.setTextRTF(source);
        box.setSelStart(caret);
        QCOMPARE(box.SelFontSize(), 15);
        QTest::keyClicks(&box, QStringLiteral("x"));
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClicks(&box, QStringLiteral("y"));
        Select(box, caret, 3);
        QCOMPARE(box.SelText(), QStringLiteral("x\ny"));
        for (const int typed : {caret, caret + 2}) {
            Select(box, typed, 1);
            const QTextCharFormat format = box.textCursor().charFormat();
            QVERIFY(!format.boolProperty(platform::HiddenText));
            QVERIFY(format.foreground().style() == Qt::NoBrush);
            QCOMPARE(box.SelFontSize(), 15);
        }
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\v")));
    }

    void ABoxEmptiedOfHiddenTextGoesOnSeen() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs30{\\v secret}}"));
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, QStringLiteral("x"));
        QVERIFY(!box.TextRTF().contains(QStringLiteral("\\v")));
        box.selectAll();
        QCOMPARE(box.SelFontSize(), 15);
    }

    void ABoxEmptiedOfATableGoesOnInItsFont() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs30%1}").arg(QString::fromLatin1(kRow)));
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QVERIFY(box.document()->isEmpty());
        QCOMPARE(box.SelFontSize(), 15);
        QTest::keyClicks(&box, QStringLiteral("x"));
        box.selectAll();
        QCOMPARE(box.SelFontSize(), 15);
    }

    void WhatIsTypedInTheLineThatADeletedTableLeavesIsReadable_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("length");
        const QString row = QString::fromLatin1(kRow);
        QTest::newRow("an empty line behind it")
            << QStringLiteral("{\\rtf1\\fs30%1\\pard\\par end\\par}").arg(row) << 6;
        QTest::newRow("text behind it") << QStringLiteral("{\\rtf1\\fs30%1\\pard end\\par}").arg(row) << 8;
    }
    void WhatIsTypedInTheLineThatADeletedTableLeavesIsReadable() {
        QFETCH(QString, source);
        QFETCH(int, length);
        RichTextBox box;
        box.setTextRTF(source);
        Select(box, 0, length);
        QTest::keyClick(&box, Qt::Key_Delete);
        QVERIFY(!box.Text().contains(u'a'));
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            QVERIFY(!block.charFormat().hasProperty(QTextFormat::FontPointSize) ||
                    block.charFormat().fontPointSize() > 1);
        }
        QTest::keyClicks(&box, QStringLiteral("x"));
        Select(box, 0, 1);
        QCOMPARE(box.SelText(), QStringLiteral("x"));
        QVERIFY(*box.SelFontSize() > 1);
    }

    void TextThatReplacesTablesKeepsItsEmptyLines_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("text");
        const QString row = QString::fromLatin1(kRow);
        const QString emptyCells =
            QStringLiteral("{\\rtf1\\fs30\\trowd\\cellx2000\\cellx4000\\pard\\intbl\\cell"
                           " b\\cell\\row\\pard end\\par}");
        QTest::newRow("a form that begins with a table") << emptyCells << QStringLiteral("\n\nB\nEND");
        QTest::newRow("a form of one table")
            << QStringLiteral("{\\rtf1\\fs30%1}").arg(row) << QStringLiteral("\nA\nB\n");
        QTest::newRow("a form that ends with a table")
            << QStringLiteral("{\\rtf1\\fs30 x\\par\\par y\\par%1}").arg(row)
            << QStringLiteral("X\n\nY\nA\nB\n");
        QTest::newRow("a longer text") << emptyCells << QStringLiteral("one\n\n\ntwo\n\nthree\nfour");
    }
    void TextThatReplacesTablesKeepsItsEmptyLines() {
        QFETCH(QString, source);
        QFETCH(QString, text);
        RichTextBox box;
        box.setTextRTF(source);
        box.selectAll();
        box.ConvertSelText([&text](const QString&) { return text; });
        QCOMPARE(box.Text(), text);
        RichTextBox other;
        other.setTextRTF(box.TextRTF());
        QCOMPARE(other.Text(), text);
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            box.setSelStart(block.position());
            QCOMPARE(box.SelFontSize(), 15);
            QCOMPARE(block.charFormat().fontPointSize(), 15);
        }
    }

    void ALineBreakIsTypedLikeText_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("length");
        QTest::addColumn<QString>("expected");
        const QString field = QStringLiteral("{\\rtf1 a{\\field{\\*\\fldinst PAGE}{\\fldrslt 12}}b\\par}");
        QTest::newRow("behind hidden text")
            << QStringLiteral("{\\rtf1 a{\\v secret}b\\par}") << 7 << 0 << QStringLiteral("\\v0\\line b");
        QTest::newRow("behind a field") << field << 3 << 0 << QStringLiteral("12}}\\line b");
        QTest::newRow("over a field") << field << 1 << 2 << QStringLiteral("a\\line b");
        QTest::newRow("before a table")
            << QStringLiteral("{\\rtf1\\fs30%1\\pard end\\par}").arg(QString::fromLatin1(kRow)) << 0 << 0
            << QStringLiteral("\\fs24\\line\\par");
        QTest::newRow("behind a shape")
            << QStringLiteral("{\\rtf1 a{\\shp{\\*\\shpinst\\shpleft0}}b\\par}") << 2 << 0
            << QStringLiteral("a{\\shp{\\*\\shpinst\\shpleft0}}\\line b");
        QTest::newRow("over text of two formats")
            << QStringLiteral("{\\rtf1 a{\\b bc}de\\par}") << 1 << 3 << QStringLiteral("a\\b\\line\\b0 e");
    }
    void ALineBreakIsTypedLikeText() {
        QFETCH(QString, source);
        QFETCH(int, start);
        QFETCH(int, length);
        QFETCH(QString, expected);
        RichTextBox box;
        QFont font = box.font();
        font.setPointSize(12);
        box.setFont(font);
        box.setTextRTF(source);
        Select(box, start, length);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        QTest::keyClick(&box, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(changes.count(), 1);
        QVERIFY2(box.TextRTF().contains(expected), qPrintable(box.TextRTF()));
        QCOMPARE(box.SelStart(), start + 1);
    }

    void WhatOnlyTablesNeedStaysAsItIs() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1%1\\trowd\\cellx2000\\pard\\intbl c\\cell\\row}")
                           .arg(QString::fromLatin1(kRow)));
        box.selectAll();
        box.setSelAlignment(2);
        box.setSelIndent(700);
        box.setSelHangingIndent(350);
        box.setSelBullet(true);
        int paragraphs = 0;
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            const bool isText = block.length() > 1;
            paragraphs += isText ? 1 : 0;
            QCOMPARE(block.blockFormat().hasProperty(platform::BulletText), isText);
            QCOMPARE(block.blockFormat().alignment().testFlag(Qt::AlignHCenter), isText);
        }
        QCOMPARE(paragraphs, 3);
        box.setTextRTF(box.TextRTF());
        box.selectAll();
        const QSignalSpy changes(&box, &RichTextBox::Change);
        box.setSelAlignment(2);
        box.setSelIndent(700);
        box.setSelHangingIndent(350);
        box.setSelBullet(true);
        QCOMPARE(changes.count(), 0);
    }

    void WhatOnlyTablesNeedDoesNotCount_data() {
        QTest::addColumn<QString>("source");
        QTest::newRow("a table first, in the middle and last")
            << QStringLiteral("{\\rtf1%1\\pard text\\par%1}").arg(QString::fromLatin1(kRow));
        QTest::newRow("a row that is shorter")
            << QStringLiteral(
                   "{\\rtf1\\pard text\\par%1\\trowd\\cellx2000\\intbl c\\cell\\row\\pard end\\par}")
                   .arg(QString::fromLatin1(kRow));
    }
    void WhatOnlyTablesNeedDoesNotCount() {
        QFETCH(QString, source);
        RichTextBox original;
        original.setTextRTF(source);
        original.selectAll();
        original.setSelAlignment(2);
        original.setSelIndent(700);
        original.setSelHangingIndent(350);
        original.setSelBullet(true);
        RichTextBox box;
        box.setTextRTF(original.TextRTF());
        box.selectAll();
        QCOMPARE(box.SelAlignment(), 2);
        QCOMPARE(box.SelIndent(), 700);
        QCOMPARE(box.SelHangingIndent(), 350);
        QCOMPARE(box.SelBullet(), true);
    }

    void AParagraphThatOnlyATableNeedsTellsItselfAlone() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1%1\\pard end\\par}").arg(QString::fromLatin1(kRow)));
        box.setSelStart(0);
        QVERIFY(box.document()->firstBlock().blockFormat().boolProperty(platform::Filler));
        QCOMPARE(box.SelIndent(), 0);
        QCOMPARE(box.SelAlignment(), 0);
        QCOMPARE(box.SelBullet(), false);
    }

    void ASizeDoesNotGiveAHeightToWhatOnlyTablesNeed() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1%1}").arg(QString::fromLatin1(kRow)));
        const auto isLow = [&box](const QTextBlock& block) {
            return block.blockFormat().boolProperty(platform::Filler) &&
                   block.charFormat().fontPointSize() < 1;
        };
        QVERIFY(isLow(box.document()->firstBlock()));
        QVERIFY(isLow(box.document()->lastBlock()));
        box.selectAll();
        box.setSelFontSize(40);
        QCOMPARE(box.SelFontSize(), 40);
        QVERIFY(isLow(box.document()->firstBlock()));
        QVERIFY(isLow(box.document()->lastBlock()));
    }

    void ACaretBeforeATableTellsWhatIsTypedThere() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs30%1\\pard end\\par}").arg(QString::fromLatin1(kRow)));
        box.setSelStart(0);
        const std::optional<double> size = box.SelFontSize();
        QVERIFY(size.has_value());
        QVERIFY(*size > 1);
        QTest::keyClicks(&box, QStringLiteral("x"));
        Select(box, 0, 1);
        QCOMPARE(box.SelText(), QStringLiteral("x"));
        QCOMPARE(box.SelFontSize(), size);
    }

    void ACaretBehindATableTellsWhatIsTypedThere() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs30%1}").arg(QString::fromLatin1(kRow)));
        const int behind = box.document()->lastBlock().position();
        box.setSelStart(behind);
        QCOMPARE(box.SelFontSize(), 15);
        box.setSelBold(true);
        QTest::keyClicks(&box, QStringLiteral("x"));
        Select(box, behind, 1);
        QCOMPARE(box.SelFontSize(), 15);
        QCOMPARE(box.SelBold(), true);
    }

    void WhatIsTypedBehindATableTakesNoShadeOfItsCells() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\fs30\\trowd\\cellx2000"
                                      "\\clcbpat1\\cellx4000\\pard\\intbl a\\cell\\cell\\row}"));
        const int behind = box.document()->lastBlock().position();
        box.setSelStart(behind);
        QTest::keyClicks(&box, QStringLiteral("x"));
        Select(box, behind, 1);
        QCOMPARE(box.SelText(), QStringLiteral("x"));
        QCOMPARE(box.SelFontSize(), 15);
        QCOMPARE(box.textCursor().charFormat().background().style(), Qt::NoBrush);
    }

    void AFormatSetBeforeATableIsForWhatIsTypedNext() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1%1\\pard end\\par}").arg(QString::fromLatin1(kRow)));
        box.setSelStart(0);
        box.setSelBold(true);
        QCOMPARE(box.SelBold(), true);
        box.setSelFontSize(20);
        QCOMPARE(box.SelFontSize(), 20);
        QTest::keyClicks(&box, QStringLiteral("xy"));
        Select(box, 0, 2);
        QCOMPARE(box.SelText(), QStringLiteral("xy"));
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontSize(), 20);
        Select(box, 3, 1);
        QCOMPARE(box.SelText(), QStringLiteral("a"));
        QCOMPARE(box.SelBold(), false);
    }
};

QTEST_MAIN(RichTextBoxUnseenTest)
#include "rich_text_box_unseen_test.moc"
