#include <QTest>

#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"
#include "tests/platform/rich_text/document_compare.h"
#include "tests/platform/rich_text/random_document.h"

using namespace platform;

class RtfRoundTripTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RandomDocumentsStayThemselves_data();
    void RandomDocumentsStayThemselves();
    void SourcesStayThemselves_data();
    void SourcesStayThemselves();
};

void RtfRoundTripTest::RandomDocumentsStayThemselves_data() {
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 60; ++seed)
        QTest::addRow("%u", seed) << seed;
}

// A document made by hand is first read once, as its tables and lists get their place in the file then.
void RtfRoundTripTest::RandomDocumentsStayThemselves() {
    QFETCH(quint32, seed);
    RandomDocument random(seed);
    const auto made = random.Document(40);
    const QByteArray source = WriteRtf(*made);
    const auto read = ReadRtf(source);
    QVERIFY(read);
    QVERIFY(made->characterCount() > 40);
    for (QTextBlock one = made->begin(), other = read->begin(); one.isValid();
         one = one.next(), other = other.next()) {
        const QString difference = compare::BlockDifference(one, other);
        if (!difference.isEmpty() && !one.document()->frameAt(one.position())->parentFrame())
            QFAIL(qPrintable(difference));
    }
    QCOMPARE(WriteRtf(*read), WriteRtf(*ReadRtf(WriteRtf(*read))));
    QCOMPARE(FirstDifference(*read, *ReadRtf(WriteRtf(*read))), QString());
}

void RtfRoundTripTest::SourcesStayThemselves_data() {
    QTest::addColumn<QByteArray>("source");
    QTest::newRow("nested fields over paragraphs") << QByteArray(
        "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\field{\\*\\fldinst TOC \\\\o}{\\fldrslt One {\\field{\\*\\fldinst "
        "PAGEREF a}{\\fldrslt 1}}\\par Two {\\field{\\*\\fldinst PAGEREF b}{\\fldrslt 2}}\\par}}after\\par}");
    QTest::newRow("link around a field") << QByteArray(
        "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt x "
        "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}}} y\\par}");
    QTest::newRow("merged and nested cells") << QByteArray(
        "{\\rtf1{\\fonttbl{\\f0 Arial;}}\\trowd\\trgaph70\\clvmgf\\clbrdrt\\brdrs\\brdrw10\\cellx1000\\clmgf"
        "\\cellx2000\\clmrg\\cellx3000\\intbl A\\cell B\\cell\\cell\\row\\trowd\\clvmrg\\cellx1000\\cellx2500"
        "\\intbl\\cell{\\itap2 in\\nestcell{\\*\\nesttableprops\\trowd\\cellx800\\nestrow}}\\intbl out\\cell"
        "\\trowd\\clvmrg\\cellx1000\\cellx2500\\row\\pard end\\par}");
    QTest::newRow("symbol font") << QByteArray(
        "{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset2 Symbol;}}\\f1 abc \\f0 abc\\par}");
    QTest::newRow("sections, notes, styles") << QByteArray(
        "{\\rtf1{\\fonttbl{\\f0 Arial;}{\\f3 Times;}}{\\colortbl\\red9\\green8\\blue7;\\red1\\green1\\blue1;}"
        "{\\stylesheet{\\s1\\li720\\b Head;}}\\titlepg\\s1 a{\\super\\chftn{\\footnote note}}\\sect\\sectd"
        "\\cols2\\pard\\plain\\f3\\cf1 b\\par}");
    QTest::newRow("a metafile") << QByteArray(
        "{\\rtf1 x{\\pict\\wmetafile8\\picw2540\\pich1270 010203}\\par}");
    QTest::newRow("lists of tables") << QByteArray(
        "{\\rtf1{\\fonttbl{\\f0 "
        "Arial;}}{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat4{\\leveltext"
        "\\'02\\'00.;}}\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\ls2}}\\pard\\fi-360\\li720"
        "\\ls2\\ilvl0 first\\par second\\par}");
}

void RtfRoundTripTest::SourcesStayThemselves() {
    QFETCH(QByteArray, source);
    const auto first = ReadRtf(source);
    QVERIFY(first);
    const QByteArray written = WriteRtf(*first);
    const auto second = ReadRtf(written);
    QVERIFY(second);
    QCOMPARE(FirstDifference(*first, *second), QString());
    QCOMPARE(WriteRtf(*second), written);
}

QTEST_MAIN(RtfRoundTripTest)
#include "rtf_round_trip_test.moc"
