// Selected text converted in its place.
#include "platform/rich_text/rich_text_box.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

#include "tests/platform/rich_text/selections.h"

using namespace rich_text_selections;
using platform::RichTextBox;

class RichTextBoxConvertTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TextConvertedInCellsStaysInThem_data() {
        QTest::addColumn<int>("anchor");
        QTest::addColumn<int>("caret");
        QTest::addColumn<QString>("text");
        QTest::newRow("row") << 4 << 13 << QStringLiteral("top\nONE\nTWO\nAND\n\nto\nby\nend");
        QTest::newRow("row, from the last") << 13 << 5 << QStringLiteral("top\nONE\nTWO\nAND\n\nto\nby\nend");
        QTest::newRow("column") << 5 << 17 << QStringLiteral("top\nONE\nTWO\nand\n\nTO\nby\nend");
        QTest::newRow("with an empty cell")
            << 12 << 20 << QStringLiteral("top\none\ntwo\nAND\n\nto\nBY\nend");
        QTest::newRow("in one cell") << 5 << 9 << QStringLiteral("top\noNE\nTwo\nand\n\nto\nby\nend");
    }
    void TextConvertedInCellsStaysInThem() {
        QFETCH(int, anchor);
        QFETCH(int, caret);
        QFETCH(QString, text);
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 top\\par\\trowd\\cellx3000\\cellx6000"
                                      "\\intbl one\\par two\\cell and\\par\\cell\\row"
                                      "\\trowd\\cellx3000\\cellx6000\\intbl to\\cell by\\cell\\row"
                                      "\\pard end\\par}"));
        SelectCells(box, anchor, caret);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        ConvertToUpper(box);
        QCOMPARE(box.Text(), text);
        QCOMPARE(changes.size(), 1);
    }

    void TextConvertedKeepsItsLineBreaks_data() {
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("length");
        QTest::addColumn<QString>("text");
        QTest::newRow("a part") << 1 << 4 << QStringLiteral("oNE\u2028Two\u2029three\u2028four");
        QTest::newRow("two paragraphs") << 5 << 12 << QStringLiteral("one\u2028tWO\u2029THREE\u2028FOUr");
        QTest::newRow("all") << 0 << 18 << QStringLiteral("ONE\u2028TWO\u2029THREE\u2028FOUR");
    }
    void TextConvertedKeepsItsLineBreaks() {
        QFETCH(int, start);
        QFETCH(int, length);
        QFETCH(QString, text);
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard\\fi720 one\\line two\\par three\\line four}"));
        Select(box, start, length);
        ConvertToUpper(box);
        QCOMPARE(box.document()->toRawText(), text);
        RichTextBox other;
        other.setTextRTF(box.TextRTF());
        QCOMPARE(other.document()->toRawText(), text);
    }

    void TextThatTurnsLongerLosesNoLineBreak() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 Stra\\'dfe\\line two\\par}"));
        box.selectAll();
        ConvertToUpper(box);
        QCOMPARE(box.document()->toRawText(), QStringLiteral("STRASSE\u2028TWO"));
    }

    void TextConvertedKeepsItsParagraphs_data() {
        QTest::addColumn<QString>("source");
        QTest::newRow("alignments") << QStringLiteral("{\\rtf1\\qc Title\\par\\qj body\\par\\qr sign}");
        QTest::newRow("indents and distances") << QStringLiteral(
            "{\\rtf1\\fi720 One\\par\\pard\\li720\\sb240 Two\\par\\pard\\keepn\\tx900\\tab Three}");
        QTest::newRow("a page break") << QStringLiteral("{\\rtf1 One\\par Two\\par\\page Three\\par Four}");
        QTest::newRow("sections") << QStringLiteral(
            "{\\rtf1\\sectd\\cols2 One\\par Two\\sect\\sectd\\cols1\\sbknone Three\\par Four}");
        QTest::newRow("lists") << QStringLiteral(
            "{\\rtf1 Head\\par\\pard\\fi-360\\li720\\ls1{\\listtext 1.\\tab}one\\par"
            "\\pard\\fi-360\\li720\\ls1{\\listtext 2.\\tab}two\\par"
            "\\pard\\fi-360\\li1080\\ls2{\\listtext a.\\tab}inner\\par\\pard tail\\line end}");
        QTest::newRow("empty lines") << QStringLiteral(
            "{\\rtf1\\qc\\par\\qj One\\par\\qr\\par\\ql Two\\par\\qc\\par\\par}");
        QTest::newRow("the paragraphs of a cell") << QStringLiteral(
            "{\\rtf1\\trowd\\cellx3000\\cellx6000\\intbl\\qc one\\par\\qj two\\par\\qr x\\cell"
            "\\ql y\\par\\qc z\\cell\\row}");
    }
    void TextConvertedKeepsItsParagraphs() {
        QFETCH(QString, source);
        RichTextBox box;
        box.setTextRTF(source);
        const QString before = box.TextRTF();
        const int end = box.document()->characterCount() - 1;
        for (int from = 0; from < end; ++from) {
            for (int to = from + 1; to <= end; ++to) {
                QTextCursor cursor(box.document());
                cursor.setPosition(from);
                cursor.setPosition(to, QTextCursor::KeepAnchor);
                // cells make way for lines where a selection leaves its own or the table
                if (cursor.selectedText().contains(QChar(0xfdd0)) ||
                    cursor.selectedText().contains(QChar(0xfdd1)))
                    continue;
                box.setTextCursor(cursor);
                box.ConvertSelText([](const QString& text) { return text; });
                QVERIFY2(box.TextRTF() == before,
                         qPrintable(QStringLiteral("%1 to %2:\n%3").arg(from).arg(to).arg(box.TextRTF())));
            }
        }
    }

    // The document tells of each time it is laid out again.
    void MuchTextIsConvertedAtOnce_data() {
        QTest::addColumn<QString>("part");
        QTest::addColumn<QString>("converted");
        QTest::newRow("paragraphs") << QStringLiteral("\\pard\\qc one\\par\\pard\\qj\\fi720 two\\par")
                                    << QStringLiteral("ONE\nTWO\n");
        QTest::newRow("cells") << QStringLiteral(
                                      "\\trowd\\cellx3000\\cellx6000\\intbl\\qc one\\cell\\qj two\\cell\\row")
                               << QStringLiteral("ONE\nTWO\n");
    }
    void MuchTextIsConvertedAtOnce() {
        QFETCH(QString, part);
        QFETCH(QString, converted);
        const auto layouts = [&](int parts) -> qsizetype {
            RichTextBox box;
            box.setTextRTF(QStringLiteral("{\\rtf1 ") + part.repeated(parts) + QStringLiteral("\\pard end}"));
            const QString text = box.Text();
            SelectCells(box, int(text.indexOf(QStringLiteral("one"))),
                        int(text.lastIndexOf(QStringLiteral("two"))) + 3);
            const QSignalSpy changes(box.document(), &QTextDocument::contentsChange);
            ConvertToUpper(box);
            return box.Text().contains(converted.repeated(parts)) ? changes.size() : 0;
        };
        QVERIFY(layouts(2) > 0);
        QCOMPARE(layouts(40), layouts(2));
    }
};

QTEST_MAIN(RichTextBoxConvertTest)
#include "rich_text_box_convert_test.moc"
