#include <QTest>
#include <QTextDocument>

#include "platform/rich_text/rtf_code_pages.h"
#include "platform/rich_text/rtf_reader.h"

using namespace platform;

namespace {

QString TextOf(const QByteArray& source) {
    const auto document = ReadRtf(source);
    return document ? document->toRawText() : QStringLiteral("(none)");
}

} // namespace

class RtfReaderEncodingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void BytesMeanWhatTheirCodePageSays_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const QByteArray& body, const QString& text) {
            QTest::newRow(name) << body << text;
        };
        row("no code page told", "\\'e9", u"é"_qs);
        row("document's code page", "\\ansicpg1251 \\'e9", u"й"_qs);
        row("raw byte", "\\ansicpg1251 \xE9", u"й"_qs);
        row("central Europe", "\\ansicpg1250 \\'e8\\'f8", u"čř"_qs);
        row("Greek", "\\ansicpg1253 \\'e1", u"α"_qs);
        row("Turkish", "\\ansicpg1254 \\'fd", u"ı"_qs);
        row("Hebrew", "\\ansicpg1255 \\'e0", u"א"_qs);
        row("Arabic", "\\ansicpg1256 \\'c7", u"ا"_qs);
        row("Baltic", "\\ansicpg1257 \\'e0", u"ą"_qs);
        row("Vietnamese", "\\ansicpg1258 \\'f5", u"ơ"_qs);
        row("Thai", "\\ansicpg874 \\'a1", u"ก"_qs);
        row("Macintosh", "\\mac \\'8e", u"é"_qs);
        row("IBM PC", "\\pc \\'82", u"é"_qs);
        row("IBM PC, western Europe", "\\pca \\'9b", u"ø"_qs);
        row("Japanese", "\\ansicpg932 \\'82\\'a0\\'83A", u"あア"_qs);
        row("simplified Chinese", "\\ansicpg936 \\'d6\\'d0", u"中"_qs);
        row("Korean", "\\ansicpg949 \\'c7\\'d1", u"한"_qs);
        row("traditional Chinese", "\\ansicpg950 \\'a4\\'a4", u"中"_qs);
        row("lead byte alone", "\\ansicpg932 a\\'82\\par b", u"a\uFFFD\u2029b"_qs);
        row("unknown code page", "\\ansicpg4711 \\'e9", u"é"_qs);
        row("font's character set", "{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}}\\f0\\'e9\\f1\\'e9",
            u"éй"_qs);
        row("font's character set ends with its group",
            "{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}}{\\f1\\'e9}\\'e9", u"йé"_qs);
        row("font named for a script", "{\\fonttbl{\\f0 Arial CYR;}{\\f1 Arial Cyr;}}\\f1\\'e9", u"й"_qs);
        row("default font's character set", "\\deff3{\\fonttbl{\\f3\\fcharset161 A;}}\\'e1", u"α"_qs);
        row("symbol font", "{\\fonttbl{\\f1\\fcharset2 Symbol;}}\\f1 a\\'b7", u"α•"_qs);
        row("symbol font in Unicode", "{\\fonttbl{\\f1\\fcharset2 Symbol;}}\\f1\\u-3913?", u"•"_qs);
    }
    void BytesMeanWhatTheirCodePageSays() {
        QFETCH(QByteArray, body);
        QFETCH(QString, text);
        QCOMPARE(TextOf("{\\rtf1\\ansi " + body + "}"), text);
    }

    void UnicodeStandsInPlaceOfItsBytes_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const QByteArray& body, const QString& text) {
            QTest::newRow(name) << body << text;
        };
        row("one byte by default", "\\u8220?a", u"“a"_qs);
        row("a hexadecimal byte counts as one", "\\u8220\\'93a", u"“a"_qs);
        row("two bytes", "\\uc2\\u20013\\'d6\\'d0a", u"中a"_qs);
        row("no byte", "\\uc0\\u8220a", u"“a"_qs);
        row("the count ends with its group", "{\\uc0\\u8220a}\\u8220?b", u"“a“b"_qs);
        row("a word counts as one byte", "\\u8220\\b a", u"“a"_qs);
        row("a brace ends the bytes", "{\\uc5\\u8220 x}abc", u"“abc"_qs);
        row("negative", "\\u-257?", u"\uFEFF"_qs);
        row("beyond U+FFFF in halves", "\\u-10179?\\u-8704?", u"\U0001F600"_qs);
        row("beyond U+FFFF whole", "\\u128512?", u"\U0001F600"_qs);
        row("half alone", "a\\u-10179?b", u"a\uFFFDb"_qs);
        row("marks of the document are no text", "\\u64976?\\u65532?", u"\uFFFD\uFFFD"_qs);
        row("control character", "a\\u7?b", u"ab"_qs);
        row("two forms", "{\\upr{ansi}{\\*\\ud{\\u8220?x}}}y", u"“xy"_qs);
        row("raw bytes of a run", "\\u8220?\\u8221?", u"“”"_qs);
    }
    void UnicodeStandsInPlaceOfItsBytes() {
        QFETCH(QByteArray, body);
        QFETCH(QString, text);
        QCOMPARE(TextOf("{\\rtf1\\ansi " + body + "}"), text);
    }

    void EveryCodePageOfACharsetIsKnown() {
        for (int charset = 0; charset < 256; ++charset) {
            const int codePage = CodePageOfCharset(charset);
            if (codePage == 0 || codePage == kSymbolCodePage)
                continue;
            QString text;
            RtfDecoder::Of(codePage).Append("A1", text);
            QCOMPARE(text, u"A1"_qs);
            QVERIFY2(codePage == 1252 || &RtfDecoder::Of(codePage) != &RtfDecoder::Of(1252),
                     qPrintable(QString::number(codePage)));
        }
    }
};

QTEST_MAIN(RtfReaderEncodingsTest)
#include "rtf_reader_encodings_test.moc"
