// The rich text box's text, positions and selection, and when it tells of changes.
#include "platform/rich_text/rich_text_box.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>

using platform::RichTextBox;

namespace {

const QString kPlain = QStringLiteral("one\ntwo three\n\nfour");

} // namespace

class RichTextBoxTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ANewBoxIsEmpty() {
        const RichTextBox box;
        QCOMPARE(box.Text(), QString());
        QCOMPARE(box.SelStart(), 0);
        QCOMPARE(box.SelLength(), 0);
        QCOMPARE(box.SelText(), QString());
        QCOMPARE(box.SelRTF(), QString());
    }

    void TextIsGivenBack_data() {
        QTest::addColumn<QString>("set");
        QTest::addColumn<QString>("got");
        const auto row = [](const char* name, const QString& set, const QString& got) {
            QTest::newRow(name) << set << got;
        };
        row("plain", kPlain, kPlain);
        row("two blanks", QStringLiteral("  "), QStringLiteral("  "));
        row("Windows line ends", QStringLiteral("a\r\nb\r\n"), QStringLiteral("a\nb\n"));
        row("old line ends", QStringLiteral("a\rb"), QStringLiteral("a\nb"));
        row("line separator", QStringLiteral("a\u2028b"), QStringLiteral("a\nb"));
        row("no-break space", QStringLiteral("a\u00A0b"), QStringLiteral("a\u00A0b"));
        row("beyond the first plane", QStringLiteral("a\U0001F58Bb"), QStringLiteral("a\U0001F58Bb"));
        row("reserved characters", QStringLiteral("a\uFDD0b\uFFFCc"), QStringLiteral("abc"));
        row("tab", QStringLiteral("a\tb"), QStringLiteral("a\tb"));
    }
    void TextIsGivenBack() {
        QFETCH(QString, set);
        QFETCH(QString, got);
        RichTextBox box;
        QVERIFY(box.setText(set));
        QCOMPARE(box.Text(), got);
        QCOMPARE(box.SelStart(), 0);
    }

    void PositionsCountTheCharactersOfText() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 ab\\line c\\par \\trowd\\cellx2000\\cellx4000\\intbl "
                                      "left\\cell right\\cell\\row\\pard x\\u8364?\\par end}"));
        const QString text = box.Text();
        for (const QString& word :
             {QStringLiteral("ab"), QStringLiteral("c"), QStringLiteral("left"), QStringLiteral("right"),
              QStringLiteral("x\u20AC"), QStringLiteral("end")}) {
            const auto at = int(text.indexOf(word));
            QVERIFY2(at >= 0, qPrintable(word));
            QVERIFY(box.setSelStart(at));
            QVERIFY(box.setSelLength(int(word.size())));
            QCOMPARE(box.SelText(), word);
            QCOMPARE(box.SelStart(), at);
            QCOMPARE(box.textCursor().selectedText(), word);
        }
        QCOMPARE(text.size(), box.document()->characterCount() - 1);
    }

    void SelStartCollapsesTheSelection() {
        RichTextBox box;
        box.setText(kPlain);
        box.setSelStart(2);
        box.setSelLength(5);
        QVERIFY(box.setSelStart(4));
        QCOMPARE(box.SelStart(), 4);
        QCOMPARE(box.SelLength(), 0);
    }

    void PositionsBeyondTheEndAreTheEnd() {
        RichTextBox box;
        box.setText(kPlain);
        QVERIFY(box.setSelStart(10'000));
        QCOMPARE(box.SelStart(), int(kPlain.size()));
        box.setSelStart(4);
        QVERIFY(box.setSelLength(std::numeric_limits<int>::max()));
        QCOMPARE(box.SelStart(), 4);
        QCOMPARE(box.SelLength(), int(kPlain.size()) - 4);
    }

    void NegativePositionsAreRefused() {
        RichTextBox box;
        box.setText(kPlain);
        box.setSelStart(3);
        box.setSelLength(2);
        QVERIFY(!box.setSelStart(-1));
        QVERIFY(!box.setSelLength(-1));
        QCOMPARE(box.SelStart(), 3);
        QCOMPARE(box.SelLength(), 2);
    }

    void SelLengthKeepsTheStartOfABackwardSelection() {
        RichTextBox box;
        box.setText(kPlain);
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(7);
        cursor.setPosition(2, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
        QCOMPARE(box.SelStart(), 2);
        QCOMPARE(box.SelLength(), 5);
        box.setSelLength(1);
        QCOMPARE(box.SelStart(), 2);
        QCOMPARE(box.SelText(), QStringLiteral("e"));
    }

    void SelTextReplacesTheSelectionAndLeavesTheCaretBehind() {
        RichTextBox box;
        box.setText(kPlain);
        box.setSelStart(4);
        box.setSelLength(3);
        QVERIFY(box.setSelText(QStringLiteral("2\r\n2")));
        QCOMPARE(box.Text(), QStringLiteral("one\n2\n2 three\n\nfour"));
        QCOMPARE(box.SelStart(), 7);
        QCOMPARE(box.SelLength(), 0);
        box.setSelStart(0);
        box.setSelLength(4);
        box.setSelText(QString());
        QCOMPARE(box.Text(), QStringLiteral("2\n2 three\n\nfour"));
    }

    void TheLineBehindReplacedTextKeepsItsFormat_data() {
        QTest::addColumn<QString>("behind");
        QTest::addColumn<QString>("with");
        QTest::newRow("empty") << QString() << QStringLiteral("HEAD\n");
        QTest::newRow("text") << QStringLiteral("next") << QStringLiteral("HEAD\n");
        QTest::newRow("more paragraphs") << QString() << QStringLiteral("HEAD\nand\nmore\n");
        QTest::newRow("nothing") << QString() << QString();
    }
    void TheLineBehindReplacedTextKeepsItsFormat() {
        QFETCH(QString, behind);
        QFETCH(QString, with);
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 top\\par\\b head\\par\\b0 %1\\par body\\par}").arg(behind));
        box.Snapshot(); // what is kept of the source follows
        box.setSelStart(4);
        box.setSelLength(5);
        QCOMPARE(box.SelText(), QStringLiteral("head\n"));
        box.setSelText(with);
        QCOMPARE(box.Text(), QStringLiteral("top\n%1%2\nbody").arg(with, behind));
        const QString source = box.TextRTF();
        QCOMPARE(source.contains(QStringLiteral("\\b HEAD\\par")), !with.isEmpty());
        box.setTextRTF(source);
        QCOMPARE(box.TextRTF(), source);
        box.setSelStart(int(4 + with.size() + behind.size())); // its end
        box.setSelLength(1);
        QCOMPARE(box.SelText(), QStringLiteral("\n"));
        QCOMPARE(box.SelBold(), std::optional(false));
    }

    void TextWrittenInCellsLeavesTheCellsAsTheyAre_data() {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("caret");
        QTest::addColumn<QString>("with");
        // top|one|two|a|b|wide|two|end
        QTest::newRow("first line with its end") << 4 << 8 << QStringLiteral("x");
        QTest::newRow("of a merged cell") << 16 << 21 << QStringLiteral("x");
        QTest::newRow("upper case") << 4 << 8 << QStringLiteral("ONE\n");
        QTest::newRow("nothing") << 16 << 21 << QString();
        QTest::newRow("cells") << 5 << 14 << QStringLiteral("x");
        QTest::newRow("cells, from the last") << 15 << 5 << QStringLiteral("x");
        QTest::newRow("cells, several lines") << 14 << 17 << QStringLiteral("x\ny");
    }
    void TextWrittenInCellsLeavesTheCellsAsTheyAre() {
        QFETCH(int, anchor);
        QFETCH(int, caret);
        QFETCH(QString, with);
        const QString side = QStringLiteral("\\clbrdrt\\brdrs\\brdrw10");
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\colortbl;\\red255\\green255\\blue0;}top\\par"
                                      "\\trowd%1\\clcbpat1\\cellx3000\\clcbpat1\\cellx6000"
                                      "\\intbl one\\par two\\cell a\\par b\\cell\\row"
                                      "\\trowd%1\\clcbpat1\\cellx6000\\intbl wide\\par two\\cell\\row"
                                      "\\pard end\\par}")
                           .arg(side));
        box.Snapshot(); // what is kept of the source follows
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(caret, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
        box.setSelText(with);
        const QString source = box.TextRTF();
        QCOMPARE(source.count(side), 2);
        QCOMPARE(source.count(QStringLiteral("\\clcbpat")), 3);
        QCOMPARE(source.count(QStringLiteral("\\cellx")), 3);
        RichTextBox other;
        other.setTextRTF(source);
        QCOMPARE(other.TextRTF(), source);
        QCOMPARE(other.Text(), box.Text());
    }

    void SelTextTakesTheFormatOfTheFirstSelectedCharacter() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\f0 plain\\b bold\\b0 plain}"));
        box.setSelStart(5);
        box.setSelLength(9);
        box.setSelText(QStringLiteral("NEW"));
        box.setSelStart(5);
        box.setSelLength(3);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontName(), QStringLiteral("Arial"));
    }

    void SelTextAtTheCaretTakesItsFormat() {
        RichTextBox box;
        box.setText(kPlain);
        box.setSelStart(3);
        box.setSelItalic(true);
        box.setSelText(QStringLiteral(" and a half"));
        box.setSelStart(3);
        box.setSelLength(11);
        QCOMPARE(box.SelItalic(), true);
        box.setSelStart(0);
        box.setSelLength(3);
        QCOMPARE(box.SelItalic(), false);
    }

    void ALineOfSelTextTakesNoPageBreakAlong() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 a\\par\\pagebb b\\par}"));
        box.setSelStart(3);
        box.setSelText(QStringLiteral("\n1\n2"));
        QCOMPARE(box.TextRTF().count(QStringLiteral("\\pagebb")), 1);
    }

    void TextSetInAnEmptyBoxTakesTheCaretsFormat() {
        RichTextBox box;
        box.setSelFontName(QStringLiteral("Courier New"));
        box.setSelFontSize(20);
        box.setText(QStringLiteral("ab"));
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("Courier New"));
        QCOMPARE(box.SelFontSize(), 20.0);
    }

    void TextSetOverTextHasOneFormat() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\b bold\\b0 plain\\qc\\par}"));
        box.setText(QStringLiteral("ab\ncd"));
        box.selectAll();
        QCOMPARE(box.SelBold(), false);
        QCOMPARE(box.SelAlignment(), 0);
    }

    void ATableTakenAwayLeavesOrdinaryParagraphs() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\trowd\\cellx3000\\intbl a\\cell\\row\\pard z\\par}"));
        const auto end = int(box.Text().indexOf(u'z'));
        box.setSelStart(0);
        box.setSelLength(end);
        box.setSelText(QString());
        const QString text = box.Text();
        box.setTextRTF(box.TextRTF());
        QCOMPARE(box.Text(), text);
        box.selectAll();
        box.setSelText(QString());
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\par")));
    }

    void AnEmptiedBoxGoesOnInItsFont() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Courier New;}}\\f0\\fs40 ab}"));
        box.selectAll();
        box.setSelText(QString());
        QCOMPARE(box.Text(), QString());
        QCOMPARE(box.SelFontName(), QStringLiteral("Courier New"));
        QTest::keyClicks(&box, QStringLiteral("x"));
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("Courier New"));
        QCOMPARE(box.SelFontSize(), 20.0);
    }

    void AnEmptySourceForgetsTheFontOfAnEmptiedBox() {
        RichTextBox box;
        const std::optional<QString> font = box.SelFontName();
        box.setTextRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Courier New;}}\\f0\\b ab}"));
        box.selectAll();
        box.setSelText(QString());
        box.setTextRTF(QString());
        QCOMPARE(box.SelFontName(), font);
        QCOMPARE(box.SelBold(), false);
    }

    void EachChangeIsToldOnce_data() {
        QTest::addColumn<std::function<void(RichTextBox&)>>("change");
        const auto row = [](const char* name, std::function<void(RichTextBox&)> change) {
            QTest::newRow(name) << std::move(change);
        };
        row("text", [](RichTextBox& box) { box.setText(QStringLiteral("a\nb")); });
        row("empty text", [](RichTextBox& box) { box.setText(QString()); });
        row("source", [](RichTextBox& box) { box.setTextRTF(QStringLiteral("{\\rtf1 a\\par\\b b}")); });
        row("empty source", [](RichTextBox& box) { box.setTextRTF(QString()); });
        row("clear", [](RichTextBox& box) { box.clear(); });
        row("snapshot", [](RichTextBox& box) { box.setSnapshot(box.Snapshot()); });
        row("selected text", [](RichTextBox& box) { box.setSelText(QStringLiteral("a\nb\nc")); });
        row("selected source", [](RichTextBox& box) { box.setSelRTF(QStringLiteral("{\\rtf1 a\\par b}")); });
        row("colour", [](RichTextBox& box) { box.setSelColor(Qt::blue); });
        row("font", [](RichTextBox& box) { box.setSelFontName(QStringLiteral("Courier New")); });
        row("size", [](RichTextBox& box) { box.setSelFontSize(31); });
        row("bold", [](RichTextBox& box) { box.setSelBold(true); });
        row("alignment", [](RichTextBox& box) { box.setSelAlignment(2); });
        row("indent", [](RichTextBox& box) { box.setSelIndent(700); });
        row("hanging indent", [](RichTextBox& box) { box.setSelHangingIndent(350); });
        row("bullet", [](RichTextBox& box) { box.setSelBullet(true); });
        row("key", [](RichTextBox& box) { QTest::keyClick(&box, Qt::Key_X); });
        row("enter", [](RichTextBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        row("delete", [](RichTextBox& box) { QTest::keyClick(&box, Qt::Key_Delete); });
        row("cut", [](RichTextBox& box) { box.cut(); });
        row("Qt's own", [](RichTextBox& box) { box.insertPlainText(QStringLiteral("a\nb")); });
    }
    void EachChangeIsToldOnce() {
        QFETCH(std::function<void(RichTextBox&)>, change);
        RichTextBox box;
        box.setText(kPlain);
        box.setSelStart(2);
        box.setSelLength(6);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        change(box);
        QCOMPARE(changes.count(), 1);
    }

    void WhatChangesNothingIsNotTold() {
        RichTextBox box;
        QSignalSpy changes(&box, &RichTextBox::Change);
        box.clear();
        box.setText(QString());
        box.setTextRTF(QString());
        box.setSelText(QString());
        QCOMPARE(changes.count(), 0);
        box.setText(kPlain);
        box.setSelLength(5);
        box.setSelBold(true);
        box.setSelIndent(700);
        box.setSelBullet(true);
        changes.clear();
        box.setSelBold(true);
        box.setSelIndent(700);
        box.setSelBullet(true);
        box.setSelAlignment(0);
        QVERIFY(!box.setSelIndent(-1));
        box.setSelStart(1);
        box.setSelItalic(true); // for what is typed next
        QTest::keyClick(&box, Qt::Key_Right);
        box.setPageLike(true);
        box.resize(900, 700);
        QCOMPARE(changes.count(), 0);
    }

    void TheFontOfAnEmptyBoxIsNoChange() {
        RichTextBox box;
        const QSignalSpy changes(&box, &RichTextBox::Change);
        box.setSelFontName(QStringLiteral("Times New Roman"));
        box.setSelFontSize(12);
        QCOMPARE(changes.count(), 0);
        QCOMPARE(box.SelFontName(), QStringLiteral("Times New Roman"));
        QVERIFY(box.TextRTF().contains(QStringLiteral("Times New Roman")));
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\fs24")));
    }

    void ABoxMayBeEmptiedAndFormattedInItsChange() {
        RichTextBox box;
        int changes = 0;
        connect(&box, &RichTextBox::Change, &box, [&] {
            ++changes;
            if (!box.Text().isEmpty())
                return;
            box.setTextRTF(QString());
            box.setSelFontName(QStringLiteral("Times New Roman"));
            box.setSelFontSize(12);
        });
        box.setText(QStringLiteral("a"));
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QCOMPARE(changes, 2);
        box.setText(QStringLiteral("b"));
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("Times New Roman"));
        box.QTextEdit::cut(); // a change that Qt makes by itself
        QCOMPARE(changes, 4);
        QCOMPARE(box.SelFontSize(), 12.0);
    }

    void ABoxMayBeReplacedInItsSelChange() {
        RichTextBox box;
        box.setText(kPlain);
        bool once = false;
        connect(&box, &RichTextBox::SelChange, &box, [&] {
            if (!std::exchange(once, true))
                box.setTextRTF(QStringLiteral("{\\rtf1 new}"));
        });
        box.moveCursor(QTextCursor::NextWord);
        QCOMPARE(box.Text(), QStringLiteral("new"));
    }

    void SelChangeTellsOfMovesAndFormats() {
        RichTextBox box;
        box.setText(kPlain);
        QSignalSpy moves(&box, &RichTextBox::SelChange);
        box.setSelStart(2);
        QCOMPARE(moves.count(), 1);
        box.setSelStart(2);
        QCOMPARE(moves.count(), 1);
        box.setSelLength(3);
        QCOMPARE(moves.count(), 2);
        box.setSelBold(true);
        QCOMPARE(moves.count(), 3);
        box.setSelAlignment(2);
        QCOMPARE(moves.count(), 4);
        box.setSelText(QStringLiteral("abc"));
        QCOMPARE(moves.count(), 5);
        QTest::keyClick(&box, Qt::Key_Right);
        QCOMPARE(moves.count(), 6);
        QTest::keyClick(&box, Qt::Key_X);
        QCOMPARE(moves.count(), 7);
        box.setSelItalic(true);
        QCOMPARE(moves.count(), 8);
    }

    void OverlongWordsAreLaidOutInTime() {
        RichTextBox box;
        box.resize(500, 400);
        box.show();
        QElapsedTimer clock;
        clock.start();
        QVERIFY(box.setText(QString(300'000, u'x')));
        box.document()->size();
        QVERIFY2(clock.elapsed() < 3000, qPrintable(QString::number(clock.elapsed())));
    }
};

QTEST_MAIN(RichTextBoxTest)
#include "rich_text_box_test.moc"
