#include <QTest>
#include <QTextDocument>
#include <QTextTable>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"

using namespace platform;

namespace {

// The tables of a frame, in order.
QList<QTextTable*> TablesIn(const QTextFrame* frame) {
    QList<QTextTable*> tables;
    for (QTextFrame* child : frame->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(child))
            tables.append(table);
    }
    return tables;
}

QString CellText(const QTextTable& table, int row, int column) {
    const QTextTableCell cell = table.cellAt(row, column);
    QTextCursor cursor = cell.firstCursorPosition();
    cursor.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

// Rows joined by "/", cells by "|"; a cell covered by a neighbour is "<", by one above "^", a filler "-".
QString Shape(const QTextTable& table) {
    QStringList rows;
    for (int row = 0; row < table.rows(); ++row) {
        QStringList cells;
        for (int column = 0; column < table.columns(); ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            if (cell.row() != row)
                cells.append(u"^"_qs);
            else if (cell.column() != column)
                cells.append(u"<"_qs);
            else if (cell.format().boolProperty(CellFiller))
                cells.append(u"-"_qs);
            else
                cells.append(CellText(table, row, column));
        }
        rows.append(cells.join(u'|'));
    }
    return rows.join(u'/');
}

} // namespace

class RtfReaderTablesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CellsStandOnCommonColumns_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("shape");
        const auto row = [](const char* name, const QByteArray& body, const QString& shape) {
            QTest::newRow(name) << body << shape;
        };
        const QByteArray two = "\\trowd\\cellx1000\\cellx2000\\pard\\intbl ";
        row("two cells", two + "a\\cell b\\cell\\row", u"a|b"_qs);
        row("two rows", two + "a\\cell b\\cell\\row " + two + "c\\cell d\\cell\\row", u"a|b/c|d"_qs);
        row("one definition for two rows", two + "a\\cell b\\cell\\row c\\cell d\\cell\\row", u"a|b/c|d"_qs);
        row("definition behind the cells", "\\pard\\intbl a\\cell b\\cell\\trowd\\cellx1000\\cellx2000\\row",
            u"a|b"_qs);
        row("edges that differ", two + "a\\cell b\\cell\\row\\trowd\\cellx2000\\pard\\intbl c\\cell\\row",
            u"a|b/c|<"_qs);
        row("edges that nearly agree",
            two + "a\\cell b\\cell\\row\\trowd\\cellx1008\\cellx1995\\pard\\intbl c\\cell d\\cell\\row",
            u"a|b/c|d"_qs);
        row("short row", two + "a\\cell b\\cell\\row\\trowd\\cellx1000\\pard\\intbl c\\cell\\row",
            u"a|b/c|-"_qs);
        row("more cells than edges", "\\trowd\\cellx1000\\pard\\intbl a\\cell b\\cell\\row", u"a|b"_qs);
        row("no edges", "\\trowd\\pard\\intbl a\\cell b\\cell\\row", u"a|b"_qs);
        row("edges going back", "\\trowd\\cellx2000\\cellx1000\\pard\\intbl a\\cell b\\cell\\row", u"a|b"_qs);
        row("merged sideways",
            "\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\cellx3000\\pard\\intbl a\\cell\\cell b\\cell\\row" +
                two + "c\\cell d\\cell\\row",
            u"a|<|b/c|d|-"_qs);
        row("merged downwards",
            "\\trowd\\clvmgf\\cellx1000\\cellx2000\\pard\\intbl a\\cell b\\cell\\row"
            "\\trowd\\clvmrg\\cellx1000\\cellx2000\\pard\\intbl\\cell c\\cell\\row",
            u"a|b/^|c"_qs);
        row("merged with nothing above",
            "\\trowd\\clvmrg\\cellx1000\\cellx2000\\pard\\intbl a\\cell b\\cell\\row", u"a|b"_qs);
        row("row without its end", two + "a\\cell b\\cell", u"a|b"_qs);
        row("cell without its end", two + "a\\cell b\\row", u"a|b"_qs);
        row("paragraphs in a cell", two + "a\\par b\\cell c\\cell\\row", u"a\u2029b|c"_qs);
    }
    void CellsStandOnCommonColumns() {
        QFETCH(QByteArray, body);
        QFETCH(QString, shape);
        const auto document = ReadRtf("{\\rtf1 " + body + "\\pard}");
        QVERIFY(document);
        const auto tables = TablesIn(document->rootFrame());
        QCOMPARE(tables.size(), 1);
        QCOMPARE(Shape(*tables.front()), shape);
    }

    void NestedTableStandsInItsCell() {
        const auto document = ReadRtf(
            "{\\rtf1\\trowd\\cellx4000\\pard\\intbl\\itap1 a\\par\\pard\\intbl\\itap2 b\\nestcell c\\nestcell"
            "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}{\\nonesttables\\par}"
            "\\pard\\intbl\\itap1 d\\cell\\trowd\\cellx4000\\row\\pard e\\par}");
        const auto outer = TablesIn(document->rootFrame());
        QCOMPARE(outer.size(), 1);
        const auto inner = TablesIn(outer.front());
        QCOMPARE(inner.size(), 1);
        QCOMPARE(Shape(*inner.front()), u"b|c"_qs);
        QVERIFY(document->toPlainText().endsWith(u"d\ne"));
    }

    void TablesDeeperThanTheLimitAreFlat() {
        QByteArray body;
        for (int level = 1; level <= 40; ++level)
            body += "\\pard\\intbl\\itap" + QByteArray::number(level) + " t" + QByteArray::number(level) +
                    "\\par ";
        for (int level = 40; level >= 2; --level)
            body += "\\pard\\intbl\\itap" + QByteArray::number(level) +
                    " x\\nestcell\\trowd\\cellx1000\\nestrow ";
        const auto document = ReadRtf("{\\rtf1 " + body + "\\pard\\intbl y\\cell\\trowd\\cellx1000\\row}");
        int depth = 0;
        for (const QTextFrame* frame = document->rootFrame(); !frame->childFrames().isEmpty();
             frame = frame->childFrames().front())
            ++depth;
        QCOMPARE(depth, 8);
        QVERIFY(document->toPlainText().contains(u"t40"));
    }

    // What stands in no cell that ended, of documents whole and cut.
    void TextOfNoCellIsReadAsOtherProgramsShowIt_data() {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QString>("text");
        const QByteArray row("{\\rtf1 x\\par\\trowd\\cellx900\\pard\\intbl a\\cell\\row ");
        QTest::newRow("no end of a cell in a whole file") << row + "y\\par}" << u"x a"_qs;
        QTest::newRow("no end of a cell before the cut") << row + "y" << u"x a y"_qs;
        QTest::newRow("a paragraph outside follows") << row + "y\\par\\pard z}" << u"x a y z"_qs;
        QTest::newRow("an empty paragraph behind the row") << row + "\\par\\pard z}" << u"x a z"_qs;
        QTest::newRow("a nested row whose cell does not end")
            << row + "b\\par{\\*\\nesttableprops\\trowd\\cellx500}\\itap2 c\\nestcell\\nestrow}" << u"x a"_qs;
        QTest::newRow("in a table that no row tells of")
            << QByteArray("{\\rtf1\\pard\\intbl a\\par b}") << u"a b"_qs;
        QTest::newRow("end of a cell outside of tables") << QByteArray("{\\rtf1 a\\cell b\\par}") << u"ab"_qs;
        QTest::newRow("end of a row outside of tables") << QByteArray("{\\rtf1 a\\row b\\par}") << u"a b"_qs;
        QTest::newRow("row told behind its cells")
            << QByteArray("{\\rtf1\\pard\\intbl a\\cell b\\cell\\trowd\\cellx9\\cellx18\\row}") << u"a b"_qs;
        QTest::newRow("behind a word for readers without nested tables")
            << QByteArray("{\\rtf1 a{\\nonesttables b\\par}c\\par\\nonesttables d\\par}") << u"ac"_qs;
    }
    void TextOfNoCellIsReadAsOtherProgramsShowIt() {
        QFETCH(QByteArray, source);
        QFETCH(QString, text);
        const auto document = ReadRtf(source);
        QVERIFY(document);
        QCOMPARE(document->toPlainText().simplified(), text);
        const auto again = ReadRtf(WriteRtf(*document));
        QCOMPARE(WriteRtf(*again), WriteRtf(*document));
        QCOMPARE(again->toPlainText(), document->toPlainText());
    }

    void BlocksOnlyQtNeedsAreFillers() {
        const auto document = ReadRtf("{\\rtf1\\trowd\\cellx1000\\pard\\intbl a\\cell\\row}");
        QVERIFY(document->firstBlock().blockFormat().boolProperty(Filler));
        QVERIFY(document->lastBlock().blockFormat().boolProperty(Filler));
        const auto between =
            ReadRtf("{\\rtf1 x\\par\\trowd\\cellx1000\\pard\\intbl a\\cell\\row\\pard y\\par}");
        QVERIFY(!between->firstBlock().blockFormat().boolProperty(Filler));
        QVERIFY(!between->lastBlock().blockFormat().boolProperty(Filler));
        QCOMPARE(between->blockCount(), 3);
    }

    void WidthsBordersAndColoursAreKept() {
        const auto document =
            ReadRtf("{\\rtf1{\\colortbl;\\red255\\green0\\blue0;}\\trowd\\trgaph108\\trleft-108\\trhdr"
                    "\\clvertalc\\clbrdrt\\brdrs\\brdrw30\\brdrcf1\\clcbpat1\\cellx1332\\cellx2772"
                    "\\pard\\intbl a\\cell b\\cell\\row}");
        const QTextTable* table = TablesIn(document->rootFrame()).front();
        const QTextTableFormat format = table->format();
        QCOMPARE(format.property(CellRightEdges).toList(), (QVariantList{1332, 2772}));
        QCOMPARE(format.intProperty(TableLeft), -108);
        QCOMPARE(format.columnWidthConstraints().size(), 2);
        QCOMPARE(format.columnWidthConstraints().at(0).rawValue(), 96.0);
        const QTextTableCellFormat cell = table->cellAt(0, 0).format().toTableCellFormat();
        QCOMPARE(cell.topBorder(), 2.0);
        QCOMPARE(cell.topBorderBrush().color(), QColor(Qt::red));
        QCOMPARE(cell.bottomBorder(), 0.0);
        QCOMPARE(cell.background().color(), QColor(Qt::red));
        QCOMPARE(cell.verticalAlignment(), QTextCharFormat::AlignMiddle);
        QCOMPARE(cell.property(CellBorders).toByteArray(), QByteArray("\\clbrdrt\\brdrs\\brdrw30\\brdrcf1"));
        QCOMPARE(cell.property(RowControls).toByteArray(), QByteArray("\\trgaph108\\trleft-108\\trhdr"));
        QVERIFY(!table->cellAt(0, 1).format().hasProperty(RowControls));
    }

    void TheSpaceBetweenCellsIsToldInThreeWays_data() {
        QTest::addColumn<QByteArray>("row");
        QTest::addColumn<double>("padding"); // pixels
        QTest::newRow("gap") << QByteArray("\\trgaph120\\cellx2000") << 4.0;
        QTest::newRow("padding of the row") << QByteArray("\\trpaddl120\\trpaddr120\\cellx2000") << 4.0;
        QTest::newRow("padding of a cell, the left one under the upper one's name")
            << QByteArray("\\trpaddr0\\clpadft3\\clpadt120\\clpadfr3\\clpadr120\\cellx2000") << 4.0;
        QTest::newRow("the gap before the padding") << QByteArray("\\trgaph60\\trpaddr240\\cellx2000") << 2.0;
        QTest::newRow("none") << QByteArray("\\cellx2000") << 0.0;
        QTest::newRow("absurd") << QByteArray("\\clpadr32000\\cellx2000") << 24.0;
        QTest::newRow("negative") << QByteArray("\\clpadr-100\\cellx2000") << 0.0;
    }
    void TheSpaceBetweenCellsIsToldInThreeWays() {
        QFETCH(QByteArray, row);
        QFETCH(double, padding);
        const auto document = ReadRtf("{\\rtf1\\trowd" + row + "\\pard\\intbl a\\cell\\row}");
        QCOMPARE(TablesIn(document->rootFrame()).front()->format().cellPadding(), padding);
        QVERIFY(WriteRtf(*document).contains(row.left(row.indexOf("\\cellx")))); // it stays as it stood
    }
};

QTEST_MAIN(RtfReaderTablesTest)
#include "rtf_reader_tables_test.moc"
