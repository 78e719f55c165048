#include "platform/rich_text/rtf_reader.h"

#include <QBuffer>
#include <QImage>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>

#include "platform/rich_text/document_model.h"

using namespace platform;

namespace {

std::unique_ptr<QTextDocument> Read(const QByteArray& body) {
    return ReadRtf("{\\rtf1\\ansi " + body + "}");
}

// Format of the character at `position`.
QTextCharFormat FormatAt(const QTextDocument& document, int position) {
    QTextCursor cursor(const_cast<QTextDocument*>(&document));
    cursor.setPosition(position + 1);
    return cursor.charFormat();
}

QVariant RootProperty(const QTextDocument& document, int property) {
    return document.rootFrame()->frameFormat().property(property);
}

QByteArray TinyPicture(const char* format) {
    QImage image(2, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

} // namespace

class RtfReaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WhatIsNoRichTextGivesNothing_data() {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<bool>("read");
        QTest::newRow("nothing") << QByteArray() << false;
        QTest::newRow("plain text") << QByteArray("hello") << false;
        QTest::newRow("a brace") << QByteArray("{hello}") << false;
        QTest::newRow("the least") << QByteArray("{\\rtf") << true;
        QTest::newRow("white space first") << QByteArray("\r\n {\\rtf1 x}") << true;
        QTest::newRow("byte order mark first") << QByteArray("\xEF\xBB\xBF{\\rtf1 x}") << true;
    }
    void WhatIsNoRichTextGivesNothing() {
        QFETCH(QByteArray, source);
        QFETCH(bool, read);
        QCOMPARE(ReadRtf(source) != nullptr, read);
    }

    void UndoIsOffInTheDocument() { QVERIFY(!Read("x")->isUndoRedoEnabled()); }

    void TextIsReadAsShown_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const QByteArray& body, const QString& text) {
            QTest::newRow(name) << body << text;
        };
        row("nothing", "", u""_qs);
        row("the last paragraph end makes no paragraph", "a\\par", u"a"_qs);
        row("two paragraph ends make one line end", "\\par\\par", u"\u2029"_qs);
        row("two paragraphs", "a\\par b", u"a\u2029b"_qs);
        row("escaped line end", "a\\\nb", u"a\u2029b"_qs);
        row("line break and tab", "a\\line b\\tab c\td", u"a\u2028b\tc\td"_qs);
        row("characters by name", "\\lquote\\rquote\\ldblquote\\rdblquote\\bullet\\endash\\emdash",
            u"‘’“”•–—"_qs);
        row("characters by symbol", "\\~\\_\\-\\{\\}\\\\", u"\u00A0\u2011\u00AD{}\\"_qs);
        row("unknown words", "a\\foo12 b", u"ab"_qs);
        row("unknown optional group", "a{\\*\\foo bar}b", u"ab"_qs);
        row("known word behind the mark of an optional group", "a{\\*\\b bar}b", u"ab"_qs);
        row("mark of an optional group behind words", "a{\\b\\*\\foo bar}b", u"abarb"_qs);
        row("unknown group", "a{\\foo bar}b", u"abarb"_qs);
        row("what is told about the file", "a{\\info{\\title T}{\\author A}}b", u"ab"_qs);
        row("header and footer", "{\\header h\\par}a{\\footer f}b", u"ab"_qs);
        row("footnote", "a{\\super\\chftn{\\footnote\\pard note}}b", u"a\uFFFCb"_qs);
        row("bookmark and index entry", "a{\\*\\bkmkstart x}{\\xe y}b", u"ab"_qs);
        row("binary data", "a\\bin3 {}}b", u"ab"_qs);
        row("too many closing braces", "a}b", u"a"_qs);
        row("careless table of fonts", "{ \\fonttbl {\\f0 Arial;}}a", u" a"_qs);
        row("field's result", "a{\\field{\\*\\fldinst DATE}{\\fldrslt today}}b", u"atodayb"_qs);
        row("field without result", "a{\\field{\\*\\fldinst DATE}}b", u"ab"_qs);
        row("symbol field", "a{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\"}}b", u"a•b"_qs);
        row("button field", "a{\\field{\\*\\fldinst MACROBUTTON Name [type here]}}b", u"a[type here]b"_qs);
        row("button field with an empty result",
            "a{\\field{\\*\\fldinst{MACROBUTTON Name}{ [x]}}{\\fldrslt }}b", u"a[x]b"_qs);
        row("button field with a result", "a{\\field{\\*\\fldinst MACROBUTTON N y}{\\fldrslt z}}b",
            u"azb"_qs);
        row("button field without a text", "a{\\field{\\*\\fldinst MACROBUTTON Name}}b", u"ab"_qs);
        row("known group that lost its mark", "a{*\\wgrffmtfilter 2450}b", u"a*b"_qs);
        row("field inside a field",
            "{\\field{\\*\\fldinst A}{\\fldrslt x{\\field{\\*\\fldinst B}{\\fldrslt y}}z}}", u"xyz"_qs);
        row("hidden text is kept", "a{\\v b}c", u"abc"_qs);
        row("page break in a paragraph", "a\\page b", u"a\u2029b"_qs);
        row("page break between paragraphs", "a\\par\\page b", u"a\u2029b"_qs);
        row("section break", "a\\sect b", u"a\u2029b"_qs);
        row("bullet is no text", "{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}a\\par", u"a"_qs);
        row("one picture of two forms",
            "{\\*\\shppict{\\pict\\pngblip 00}}{\\nonshppict{\\pict\\wmetafile8 00}}", u"\uFFFC"_qs);
    }
    void TextIsReadAsShown() {
        QFETCH(QByteArray, body);
        QFETCH(QString, text);
        QCOMPARE(Read(body)->toRawText(), text);
    }

    void WordsFormatCharacters_data() {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<int>("property");
        QTest::addColumn<QVariant>("value");
        const auto row = [](const char* words, int property, const QVariant& value) {
            QTest::newRow(words) << QByteArray(words) << property << value;
        };
        row("\\b", QTextFormat::FontWeight, int(QFont::Bold));
        row("\\b\\b0", QTextFormat::FontWeight, QVariant());
        row("\\i", QTextFormat::FontItalic, true);
        row("\\ul", QTextFormat::TextUnderlineStyle, int(QTextCharFormat::SingleUnderline));
        row("\\ul\\ulnone", QTextFormat::TextUnderlineStyle, QVariant());
        row("\\uldb", UnderlineKind, int(UnderlineKinds::Double));
        row("\\ulwave", QTextFormat::TextUnderlineStyle, int(QTextCharFormat::WaveUnderline));
        row("\\strike", QTextFormat::FontStrikeOut, true);
        row("\\striked1", DoubleStrike, true);
        row("\\striked0", DoubleStrike, QVariant());
        row("\\super", QTextFormat::TextVerticalAlignment, int(QTextCharFormat::AlignSuperScript));
        row("\\sub", QTextFormat::TextVerticalAlignment, int(QTextCharFormat::AlignSubScript));
        row("\\super\\nosupersub", QTextFormat::TextVerticalAlignment, QVariant());
        row("\\fs21", QTextFormat::FontPointSize, 10.5);
        row("", QTextFormat::FontPointSize, 12.0);
        row("\\fs21\\plain", QTextFormat::FontPointSize, 12.0);
        row("\\fs0", QTextFormat::FontPointSize, 12.0);
        row("\\f1", QTextFormat::FontFamilies, QStringList{u"Arial"_qs});
        row("\\f9", QTextFormat::FontFamilies, QVariant());
        row("\\cf1", QTextFormat::ForegroundBrush, QBrush(QColor(255, 0, 128)));
        row("\\cf0", QTextFormat::ForegroundBrush, QVariant());
        row("\\cf7", QTextFormat::ForegroundBrush, QVariant());
        row("\\highlight1", QTextFormat::BackgroundBrush, QBrush(QColor(255, 0, 128)));
        row("\\cb1", QTextFormat::BackgroundBrush, QBrush(QColor(255, 0, 128)));
        row("\\caps", QTextFormat::FontCapitalization, int(QFont::AllUppercase));
        row("\\scaps", QTextFormat::FontCapitalization, int(QFont::SmallCaps));
        row("\\v\\fs30", HiddenSize, 30);
        row("\\v", HiddenText, true);
        row("\\lang3081", Language, 3081);
        row("\\up4", BaselineOffset, 4);
        row("\\dn4", BaselineOffset, -4);
        row("\\expndtw20", CharacterSpacing, 20);
        row("\\cs7", CharacterStyle, 7);
    }
    void WordsFormatCharacters() {
        QFETCH(QByteArray, words);
        QFETCH(int, property);
        QFETCH(QVariant, value);
        const auto document =
            Read("{\\fonttbl{\\f1\\fswiss Arial;}}{\\colortbl;\\red255\\green0\\blue128;}{" + words + " x}y");
        QCOMPARE(FormatAt(*document, 0).property(property), value);
        QCOMPARE(FormatAt(*document, 1).fontPointSize(), 12.0);
        QCOMPARE(FormatAt(*document, 1).fontWeight(), int(QFont::Normal));
    }

    void ALastParagraphNeedsNoEndOfItsOwn() {
        const auto document = ReadRtf(QByteArray("{\\rtf1 a\\par\\qc\\li300 b}"));
        QCOMPARE(document->blockCount(), 2);
        QCOMPARE(document->lastBlock().blockFormat().alignment(), Qt::AlignHCenter);
        QCOMPARE(document->lastBlock().blockFormat().leftMargin(), 20.0);
    }

    void TextThatTellsNoFontHasTheDefaultOne_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::addRow("no words") << QByteArray("x");
        QTest::addRow("plain") << QByteArray("\\f0\\plain x");
        QTest::addRow("paragraph") << QByteArray("\\pard x\\par");
    }
    void TextThatTellsNoFontHasTheDefaultOne() {
        QFETCH(QByteArray, body);
        const auto document = ReadRtf("{\\rtf1\\deff1{\\fonttbl{\\f0 Arial;}{\\f1 Georgia;}}" + body + "}");
        QCOMPARE(document->begin().begin().fragment().charFormat().fontFamilies().toStringList(),
                 QStringList(QStringLiteral("Georgia")));
        QCOMPARE(document->rootFrame()->frameFormat().intProperty(DefaultFont), 1);
    }

    void WordsFormatParagraphs_data() {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<int>("property");
        QTest::addColumn<QVariant>("value");
        const auto row = [](const char* words, int property, const QVariant& value) {
            QTest::newRow(words) << QByteArray(words) << property << value;
        };
        row("\\qc", QTextFormat::BlockAlignment, int(Qt::AlignHCenter));
        row("\\qr", QTextFormat::BlockAlignment, int(Qt::AlignRight));
        row("\\qj", QTextFormat::BlockAlignment, int(Qt::AlignJustify));
        row("\\qj\\pard", QTextFormat::BlockAlignment, int(Qt::AlignLeft));
        row("\\li700", QTextFormat::BlockLeftMargin, 700 / 15.0);
        row("\\ri150", QTextFormat::BlockRightMargin, 10.0);
        row("\\fi-360", QTextFormat::TextIndent, -24.0);
        row("\\sb120", QTextFormat::BlockTopMargin, 8.0);
        row("\\sa120", QTextFormat::BlockBottomMargin, 8.0);
        row("\\sl360\\slmult1", QTextFormat::LineHeight, 150.0);
        row("\\sl300", QTextFormat::LineHeight, 20.0);
        row("\\sl300", QTextFormat::LineHeightType, int(QTextBlockFormat::MinimumHeight));
        row("\\sl-300", QTextFormat::LineHeightType, int(QTextBlockFormat::FixedHeight));
        row("\\keep", KeepTogether, true);
        row("\\pagebb", QTextFormat::PageBreakPolicy, int(QTextFormat::PageBreak_AlwaysBefore));
        row("\\keepn", KeepWithNext, true);
        row("\\s3", ParagraphStyle, 3);
        row("\\outlinelevel2", OutlineLevel, 2);
        row("\\rtlpar", QTextFormat::LayoutDirection, int(Qt::RightToLeft));
        row("\\brdrb\\brdrs\\brdrw10", ParagraphBorder, QByteArray("\\brdrb\\brdrs\\brdrw10"));
        row("\\li999999999", QTextFormat::BlockLeftMargin, 31'680 / 15.0);
    }
    void WordsFormatParagraphs() {
        QFETCH(QByteArray, words);
        QFETCH(int, property);
        QFETCH(QVariant, value);
        const auto document = Read("\\pard" + words + " x\\par\\pard y\\par");
        QCOMPARE(document->firstBlock().blockFormat().property(property), value);
        QVERIFY(document->lastBlock().blockFormat().property(property) != value ||
                value == QVariant(int(Qt::AlignLeft)));
    }

    void StyleHoldsWhereNothingElseIsTold_data() {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<bool>("bold");
        QTest::addColumn<double>("leftMargin");
        QTest::newRow("style alone") << QByteArray("\\pard\\plain\\s1") << true << 48.0;
        QTest::newRow("an indent is told") << QByteArray("\\pard\\plain\\li150\\s1") << true << 10.0;
        QTest::newRow("an indent is told later") << QByteArray("\\pard\\plain\\s1\\li150") << true << 10.0;
        QTest::newRow("a format of characters is told")
            << QByteArray("\\pard\\plain\\i\\s1") << false << 48.0;
        QTest::newRow("no such style") << QByteArray("\\pard\\plain\\s2") << false << 0.0;
    }
    void StyleHoldsWhereNothingElseIsTold() {
        QFETCH(QByteArray, words);
        QFETCH(bool, bold);
        QFETCH(double, leftMargin);
        const auto document = Read("{\\stylesheet{\\s1\\b\\li720 One;}}" + words + " x\\par");
        QCOMPARE(FormatAt(*document, 0).fontWeight() == QFont::Bold, bold);
        QCOMPARE(document->firstBlock().blockFormat().leftMargin(), leftMargin);
    }

    void TabStopsCountFromTheFirstLinesStart() {
        const auto document = Read("\\pard\\li720\\fi-360\\tx1440\\tqr\\tx2880 x\\par");
        const auto tabs = document->firstBlock().blockFormat().tabPositions();
        QCOMPARE(tabs.size(), 3);
        QCOMPARE(tabs[0].position, 24.0); // the left indent
        QCOMPARE(tabs[1].position, 72.0);
        QCOMPARE(tabs[2].position, 168.0);
        QCOMPARE(tabs[2].type, QTextOption::RightTab);
    }

    void PageBreakStandsBeforeTheNextParagraphOnly() {
        const auto document = Read("a\\par\\page b\\par c\\par");
        QTextBlock block = document->firstBlock();
        QCOMPARE(block.blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_Auto);
        block = block.next();
        QCOMPARE(block.blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_AlwaysBefore);
        block = block.next();
        QCOMPARE(block.blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_Auto);
    }

    void HyperlinksLead_data() {
        QTest::addColumn<QByteArray>("instruction");
        QTest::addColumn<QString>("target");
        QTest::newRow("quoted") << QByteArray("HYPERLINK \"http://a.example/x\"") << u"http://a.example/x"_qs;
        QTest::newRow("plain") << QByteArray("HYPERLINK http://a.example/x") << u"http://a.example/x"_qs;
        QTest::newRow("bookmark") << QByteArray("HYPERLINK \\\\l \"mark\"") << u"#mark"_qs;
        QTest::newRow("both") << QByteArray("HYPERLINK \"a.doc\" \\\\l \"mark\"") << u"a.doc#mark"_qs;
        QTest::newRow("tip") << QByteArray("HYPERLINK \\\\o \"tip\" \"a.doc\"") << u"a.doc"_qs;
        QTest::newRow("path") << QByteArray("HYPERLINK \"c:\\\\\\\\x\"") << u"c:\\x"_qs;
        QTest::newRow("other field") << QByteArray("PAGE") << QString();
    }
    void HyperlinksLead() {
        QFETCH(QByteArray, instruction);
        QFETCH(QString, target);
        const auto document = Read("{\\field{\\*\\fldinst{" + instruction + "}}{\\fldrslt{\\ul x}}}y");
        const QTextCharFormat format = FormatAt(*document, 0);
        QCOMPARE(format.anchorHref(), target);
        QCOMPARE(format.isAnchor(), !target.isEmpty());
        QCOMPARE(format.intProperty(FieldId), 1);
        QVERIFY(!FormatAt(*document, 1).hasProperty(FieldId));
        QCOMPARE(RootProperty(*document, FieldInstructions).toMap().size(), 1);
    }

    void ListsShowTheirMarkers_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QStringList>("markers");
        const QByteArray table = "{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat3{\\leveltext\\'"
                                 "02\\'00.;}{\\levelnumbers\\'01;}}"
                                 "{\\listlevel\\levelnfc4\\levelstartat1{\\leveltext\\'04(\\'00\\'01);}{"
                                 "\\levelnumbers\\'02;}}\\listid7}}"
                                 "{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}}";
        QTest::newRow("older bullets, as written")
            << QByteArray("{\\pntext\\'b7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}a\\par{\\pntext\\'b7\\tab}"
                          "b\\par\\pard c\\par")
            << QStringList{u"·"_qs, u"·"_qs, QString()};
        QTest::newRow("older bullets, not written")
            << QByteArray("{\\*\\pn\\pnlvlblt{\\pntxtb\\'95}}a\\par b\\par\\pard c\\par")
            << QStringList{u"•"_qs, u"•"_qs, QString()};
        QTest::newRow("older numbers, not written")
            << QByteArray(
                   "{\\*\\pn\\pnlvlbody\\pndec\\pnstart3{\\pntxtb (}{\\pntxta )}}a\\par b\\par\\pard c\\par{"
                   "\\*\\pn\\pnlvlbody\\pnlcltr{\\pntxta .}}d\\par")
            << QStringList{u"(3)"_qs, u"(4)"_qs, QString(), u"a."_qs};
        QTest::newRow("older numbers, written blank")
            << QByteArray(
                   "{\\pntext  \\tab}{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}a\\par{\\pntext\\tab}b\\par")
            << QStringList{u"1."_qs, u"2."_qs};
        QTest::newRow("older list that goes on without a number")
            << QByteArray("{\\pntext\\tab}{\\*\\pn\\pnlvlcont}a\\par") << QStringList{QString()};
        QTest::newRow("list table, written blank")
            << table + "\\ls1{\\listtext\\tab}a\\par" << QStringList{u"3."_qs};
        QTest::newRow("bullet told as a number")
            << QByteArray(
                   "{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'02\\'05.;}}\\listid1}}"
                   "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 a\\par")
            << QStringList{u"•"_qs};
        QTest::newRow("list table, as written")
            << table + "\\ls1{\\listtext 9)\\tab}a\\par\\pard b\\par" << QStringList{u"9)"_qs, QString()};
        QTest::newRow("list table, counted")
            << table + "\\ls1 a\\par b\\par\\ilvl1 c\\par d\\par\\ilvl0 e\\par\\ilvl1 f\\par"
            << QStringList{u"3."_qs, u"4."_qs, u"(4a)"_qs, u"(4b)"_qs, u"5."_qs, u"(5a)"_qs};
        QTest::newRow("no list of that number") << table + "\\ls9 a\\par" << QStringList{QString()};
        QTest::newRow("marker without a list")
            << QByteArray("{\\listtext 1.\\tab}a\\par") << QStringList{QString()};
    }
    void ListsShowTheirMarkers() {
        QFETCH(QByteArray, body);
        QFETCH(QStringList, markers);
        const auto document = Read(body);
        QStringList found;
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next())
            found.append(block.blockFormat().stringProperty(BulletText));
        QCOMPARE(found, markers);
    }

    void PicturesKeepTheirBytes_data() {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("format");
        QTest::addColumn<QSize>("twips");
        QTest::newRow("png") << QByteArray("\\pngblip") << TinyPicture("png") << QByteArray("png")
                             << QSize(30, 45);
        QTest::newRow("png of a wanted size")
            << QByteArray("\\pngblip\\picwgoal1440\\pichgoal720\\picscalex50") << TinyPicture("png")
            << QByteArray("png") << QSize(720, 720);
        QTest::newRow("jpeg") << QByteArray("\\jpegblip") << TinyPicture("jpeg") << QByteArray("jpeg")
                              << QSize(30, 45);
        QTest::newRow("metafile") << QByteArray("\\wmetafile8\\picw2540\\pich1270") << QByteArray("abc")
                                  << QByteArray("wmf") << QSize(1440, 720);
        QTest::newRow("enhanced metafile")
            << QByteArray("\\emfblip") << QByteArray("abc") << QByteArray("emf") << QSize(1440, 1440);
        QTest::newRow("no picture at all")
            << QByteArray("\\pngblip") << QByteArray("abc") << QByteArray("png") << QSize(1440, 1440);
    }
    void PicturesKeepTheirBytes() {
        QFETCH(QByteArray, words);
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, format);
        QFETCH(QSize, twips);
        for (const QByteArray& data : {bytes.toHex(), bytes.toHex('\n'), "zz" + bytes.toHex(),
                                       "\\bin" + QByteArray::number(bytes.size()) + " " + bytes}) {
            const auto document = Read("a{\\pict{\\*\\blipuid 00ff}" + words + " " + data + "}b");
            QCOMPARE(document->toRawText(), u"a\uFFFCb"_qs);
            const QTextImageFormat image = FormatAt(*document, 1).toImageFormat();
            QVERIFY(image.isValid());
            QCOMPARE(document->resource(PictureData, PictureDataName(image.name())).toByteArray(), bytes);
            QCOMPARE(document->resource(PictureFormat, PictureFormatName(image.name())).toByteArray(),
                     format);
            QVERIFY(!document->resource(QTextDocument::ImageResource, QUrl(image.name()))
                         .value<QImage>()
                         .isNull());
            QCOMPARE(QSize(image.intProperty(PictureWidth), image.intProperty(PictureHeight)), twips);
            QCOMPARE(image.width(), twips.width() / 15.0);
        }
    }

    void GroupsAreKeptAsTheyStand() {
        const auto document =
            ReadRtf("{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0 A;}}{\\colortbl;\\red1\\green2\\blue3;}"
                    "{\\stylesheet{\\s1 One;}}{\\*\\listtable{\\list\\listid1}}{\\info{\\title \xE9}}"
                    "{\\header h}{\\footer f}a{\\footnote n}\\sectd\\cols2 b\\sect c}");
        QCOMPARE(RootProperty(*document, FontTable).toByteArray(), QByteArray("{\\fonttbl{\\f0 A;}}"));
        QCOMPARE(RootProperty(*document, ColorTable).toByteArray(),
                 QByteArray("{\\colortbl;\\red1\\green2\\blue3;}"));
        QCOMPARE(RootProperty(*document, StyleSheet).toByteArray(), QByteArray("{\\stylesheet{\\s1 One;}}"));
        QCOMPARE(RootProperty(*document, ListTables).toByteArray(),
                 QByteArray("{\\*\\listtable{\\list\\listid1}}"));
        QCOMPARE(RootProperty(*document, InfoGroup).toByteArray(), QByteArray("{\\info{\\title \\'e9}}"));
        QCOMPARE(RootProperty(*document, HeadersAndFooters).toList(),
                 (QVariantList{QByteArray("{\\header h}"), QByteArray("{\\footer f}")}));
        QCOMPARE(RootProperty(*document, FileCodePage).toInt(), 1251);
        QCOMPARE(FormatAt(*document, 1).property(EmbeddedObject).toByteArray(), QByteArray("{\\footnote n}"));
        QCOMPARE(document->firstBlock().blockFormat().property(SectionBreak).toByteArray(),
                 QByteArray("\\sectd\\cols2"));
    }

    void ObjectIsShownByItsResult() {
        const QByteArray png = TinyPicture("png").toHex();
        const QByteArray source =
            "{\\object\\objemb{\\*\\objdata 00}{\\result{\\pict\\pngblip " + png + "}}}";
        const auto drawn = Read("a" + source + "b");
        QCOMPARE(drawn->toRawText(), u"a\uFFFCb"_qs);
        QVERIFY(FormatAt(*drawn, 1).isImageFormat());
        QCOMPARE(FormatAt(*drawn, 1).property(EmbeddedObject).toByteArray(), source);
        const auto bare = Read("a{\\object\\objemb{\\*\\objdata 00}}b");
        QCOMPARE(bare->toRawText(), u"a\uFFFCb"_qs);
        const auto text = Read("a{\\object{\\*\\objdata 00}{\\result xyz}}b");
        QCOMPARE(text->toRawText(), u"axyzb"_qs);
    }

    void PaperIsTheDocuments() {
        const auto document = Read(
            "\\paperw12240\\paperh20160\\margl1440\\margr1800\\margt720\\margb360\\landscape\\deftab360 x");
        QCOMPARE(RootProperty(*document, PaperWidth).toInt(), 12'240);
        QCOMPARE(RootProperty(*document, PaperHeight).toInt(), 20'160);
        QCOMPARE(RootProperty(*document, MarginLeft).toInt(), 1'440);
        QCOMPARE(RootProperty(*document, MarginRight).toInt(), 1'800);
        QCOMPARE(RootProperty(*document, MarginTop).toInt(), 720);
        QCOMPARE(RootProperty(*document, MarginBottom).toInt(), 360);
        QCOMPARE(RootProperty(*document, Landscape).toBool(), true);
        QCOMPARE(document->defaultTextOption().tabStopDistance(), 24.0);
    }
};

QTEST_MAIN(RtfReaderTest)
#include "rtf_reader_test.moc"
