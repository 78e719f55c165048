#include <QTest>
#include <QTextDocument>
#include <ctime>

#include "platform/rich_text/rtf_reader.h"

using namespace platform;

namespace {

QByteArray Times(int count, const QByteArray& text) {
    return text.repeated(count);
}

// Every other one of a family of words, so that no two are alike.
QByteArray Counted(int count, const QByteArray& before, const QByteArray& after) {
    QByteArray text;
    for (int i = 0; i < count; ++i)
        text += before + QByteArray::number(i) + after;
    return text;
}

} // namespace

class RtfReaderLimitsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HostileShapesAreReadInTime_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("groups never ended") << Times(300'000, "{");
        QTest::newRow("groups never begun") << Times(300'000, "}");
        QTest::newRow("groups inside one another") << Times(300'000, "{\\b ") + "x" + Times(300'000, "}");
        QTest::newRow("ignorable groups inside one another")
            << Times(300'000, "{\\*\\x") + Times(300'000, "}");
        QTest::newRow("empty paragraphs") << Times(100'000, "\\par");
        QTest::newRow("cells without rows") << "\\intbl" + Times(100'000, "\\cell");
        QTest::newRow("rows of one cell") << "\\trowd\\cellx1000" + Times(30'000, "\\cell\\row");
        QTest::newRow("rows of ever other edges")
            << Counted(5'000, "\\trowd\\cellx", "\\cellx9000\\cell\\cell\\row");
        QTest::newRow("merged rows") << Times(
            10'000, "\\trowd\\clvmgf\\cellx1\\clvmrg\\cellx2\\cellx30000\\cell\\cell\\cell\\row"
                    "\\trowd\\clvmrg\\cellx30000\\cell\\row");
        QTest::newRow("edges without cells") << Counted(100'000, "\\cellx", "");
        QTest::newRow("tables inside one another")
            << Counted(20'000, "\\intbl\\itap", " x\\nestcell\\nestrow");
        QTest::newRow("formats of characters") << Counted(60'000, "\\f1\\fs20\\lang", " x");
        QTest::newRow("formats that hash alike") << [] {
            QByteArray text;
            for (int i = 0; i < 20'000; ++i)
                text += "\\lang" + QByteArray::number(i) + "\\cs" + QByteArray::number(20'000 - i) + " x";
            return text;
        }();
        QTest::newRow("formats of paragraphs") << Counted(30'000, "\\li", "\\par");
        QTest::newRow("borders of paragraphs") << Counted(20'000, "\\pard\\brdrt\\brdrw", " x\\par");
        QTest::newRow("footnotes") << Times(20'000, "{\\footnote x}");
        QTest::newRow("fields") << Times(30'000, "{\\field{\\*\\fldinst HYPERLINK \"x\"}{\\fldrslt y}}");
        QTest::newRow("fields inside one another")
            << Times(3'000, "{\\field{\\*\\fldinst A}{\\fldrslt ") + "x" + Times(3'000, "}}");
        QTest::newRow("fonts") << "{\\fonttbl" + Counted(50'000, "{\\f", " A;}") + "}";
        QTest::newRow("colours") << "{\\colortbl" + Times(200'000, ";") + "}";
        QTest::newRow("styles") << "{\\stylesheet" + Counted(30'000, "{\\s", " A;}") + "}";
        QTest::newRow("lists") << "{\\*\\listtable" +
                                      Counted(20'000, "{\\list{\\listlevel{\\leveltext\\'01\\'00;}}\\listid",
                                              "}") +
                                      "}";
        QTest::newRow("tab stops") << Counted(100'000, "\\tx", "");
        QTest::newRow("pictures") << Times(5'000, "{\\pict\\pngblip ff}");
        QTest::newRow("sections") << Times(20'000, "\\sect");
        QTest::newRow("bytes for one character") << Times(100'000, "\\uc2147483647\\u65 ") + "x";
        QTest::newRow("one long word of control") << QByteArray("\\") + QByteArray(1'000'000, 'a');
        QTest::newRow("one long word of text") << QByteArray(1'000'000, 'a');
        QTest::newRow("binary data beyond the end") << QByteArray("\\bin2147483647 x");
        QTest::newRow("widest numbers")
            << QByteArray("\\fs2147483647\\li-2147483647\\ri2147483647\\fi-2147483647\\sl-2147483647"
                          "\\tx-2147483647\\cf-2147483647\\f-2147483647 x\\par");
    }
    void HostileShapesAreReadInTime() {
        QFETCH(QByteArray, body);
        // of the processor, as others may be at work on the machine
        const std::clock_t begin = std::clock();
        const auto document = ReadRtf("{\\rtf1 " + body);
        const double seconds = double(std::clock() - begin) / CLOCKS_PER_SEC;
        QVERIFY(document);
        // what takes the square of its length takes minutes; a slow machine or a sanitizer only a few times
        // as long
        QVERIFY2(seconds < 20.0, qPrintable(QString::number(seconds)));
    }

    void FileCutAnywhereGivesWhatStoodBefore() {
        const QByteArray whole =
            "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset0 Arial;}}{\\colortbl;\\red1\\green2\\blue3;}first\\par "
            "{\\b second} \\'e9\\u8220?{\\field{\\*\\fldinst X}{\\fldrslt y}}\\par"
            "\\trowd\\cellx1000\\pard\\intbl cell\\cell\\row\\pard{\\pict\\pngblip 8950}last}";
        const qsizetype firstEnds = whole.indexOf("\\par ");
        for (qsizetype length = 0; length <= whole.size(); ++length) {
            const auto document = ReadRtf(whole.first(length));
            QCOMPARE(document != nullptr, length >= 5);
            if (length >= firstEnds)
                QVERIFY(document->toPlainText().startsWith(u"first"));
        }
    }

    void TextBeyondTheDeepestGroupIsLeftOut() {
        const auto document = ReadRtf("{\\rtf1 a" + Times(100'000, "{") + "b" + Times(100'000, "}") + "c}");
        QCOMPARE(document->toPlainText(), u"ac"_qs);
    }

    void CellsBeyondTheLimitStandOutsideOfTables() {
        const auto document = ReadRtf("{\\rtf1\\intbl " + Times(400'000, "a\\cell ") + "\\row}");
        QCOMPARE(document->toPlainText().count(u'a'), 400'000);
    }
};

QTEST_MAIN(RtfReaderLimitsTest)
#include "rtf_reader_limits_test.moc"
