#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"
#include "tests/platform/rich_text/random_document.h"

using namespace platform;

namespace {

QTextCharFormat Plain() {
    QTextCharFormat format;
    format.setFontFamilies({QStringLiteral("Arial")});
    format.setFontPointSize(12);
    return format;
}

// Source of one paragraph of `text`, from behind the paragraph's words to \par.
QByteArray Written(const QString& text, const QTextCharFormat& format = Plain()) {
    QTextDocument document;
    QTextCursor cursor(&document);
    cursor.setBlockCharFormat(format);
    cursor.insertText(text, format);
    const QByteArray source = WriteRtf(document);
    const qsizetype start = source.indexOf("\\plain\\f0\\fs24") + 14;
    return source.mid(start, source.indexOf("\\par\n") - start);
}

} // namespace

class RtfWriterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // LibreOffice loses what follows \\super in the same group.
    void RaisedTextStandsInAGroupOfItsOwn() {
        const auto document = ReadRtf("{\\rtf1 E=mc\\super 2\\nosupersub  or\\sub 3\\par\\super a\\par b}");
        const QByteArray source = WriteRtf(*document);
        QCOMPARE(source.count("\\super"), source.count("{\\super"));
        QVERIFY(source.contains("{\\super 2}"));
        QVERIFY(source.contains("{\\super a}"));
        const auto again = ReadRtf(source);
        QCOMPARE(WriteRtf(*again), source);
        QTextCursor cursor(again.get());
        cursor.setPosition(5);
        QCOMPARE(cursor.charFormat().verticalAlignment(), QTextCharFormat::AlignSuperScript);
        cursor.setPosition(6);
        QCOMPARE(cursor.charFormat().verticalAlignment(), QTextCharFormat::AlignNormal);
    }

    void WritesText_data();
    void WritesText();
    void WritesCharacterFormats_data();
    void WritesCharacterFormats();
    void APhraseOfOneFormatStandsContiguous();
    void LineEndsStandBehindParagraphsOnly();
    void TabStopsCountFromTheMargin();
    void OneTableOfFontsInOrderOfUse();
    void KeptTablesKeepTheirNumbers();
    void ABulletIsShownByOlderProgramsToo();
    void ATableMadeHereHasBordersAndWidths();
    void ASelectionIsADocumentOfItsOwn();
};

void RtfWriterTest::WritesText_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("source");
    QTest::newRow("plain") << QStringLiteral("Deed of sale") << QByteArray(" Deed of sale");
    QTest::newRow("marks of the format") << QStringLiteral("{a\\b}") << QByteArray("\\{a\\\\b\\}");
    QTest::newRow("beyond ASCII") << QStringLiteral("caf\u00e9") << QByteArray(" caf\\u233?");
    QTest::newRow("negative") << QStringLiteral("\uF0B7x") << QByteArray("\\u-3913?x");
    QTest::newRow("two units") << QStringLiteral("\U0001F600") << QByteArray("\\u-10179?\\u-8704?");
    QTest::newRow("half a character") << QString(QChar(0xD83D)) << QByteArray("\\u-3?");
    QTest::newRow("no-break space") << QString(QChar::Nbsp) << QByteArray("\\u160?");
    QTest::newRow("tab") << QStringLiteral("a\tb") << QByteArray(" a\\tab b");
    QTest::newRow("line") << QString(QStringLiteral("a") + QChar(QChar::LineSeparator))
                          << QByteArray(" a\\line");
    QTest::newRow("blank first") << QStringLiteral(" a") << QByteArray("  a");
}

void RtfWriterTest::WritesText() {
    QFETCH(QString, text);
    QTEST(Written(text), "source");
}

void RtfWriterTest::WritesCharacterFormats_data() {
    QTest::addColumn<int>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("source");
    const auto row = [](const char* name, int property, const QVariant& value, const char* source) {
        QTest::newRow(name) << property << value << QByteArray(source);
    };
    row("bold", QTextFormat::FontWeight, 700, "\\b x");
    row("italic", QTextFormat::FontItalic, true, "\\i x");
    row("strike", QTextFormat::FontStrikeOut, true, "\\strike x");
    row("underline", QTextFormat::TextUnderlineStyle, 1, "\\ul x");
    row("wave", QTextFormat::TextUnderlineStyle, 6, "\\ulwave x");
    row("raised", QTextFormat::TextVerticalAlignment, 1, "{\\super x}{\\super");
    row("capitals", QTextFormat::FontCapitalization, 1, "\\caps x");
    row("colour", QTextFormat::ForegroundBrush, QBrush(QColor(1, 2, 3)), "\\cf1 x");
    row("marked", QTextFormat::BackgroundBrush, QBrush(QColor(1, 2, 3)), "\\highlight1 x");
    row("hidden", HiddenText, true, "\\v x");
    row("language", Language, 1031, "\\lang1031 x");
    row("lowered", BaselineOffset, -4, "\\dn4 x");
    row("link", QTextFormat::IsAnchor, true, " x");
}

void RtfWriterTest::WritesCharacterFormats() {
    QFETCH(int, property);
    QFETCH(QVariant, value);
    QTextCharFormat format = Plain();
    format.setProperty(property, value);
    QTEST(Written(QStringLiteral("x"), format), "source");
}

void RtfWriterTest::APhraseOfOneFormatStandsContiguous() {
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextCharFormat bold = Plain();
    bold.setFontWeight(QFont::Bold);
    cursor.insertText(QStringLiteral("The undersigned "), Plain());
    cursor.insertText(QStringLiteral("party of the first part"), bold);
    cursor.insertText(QStringLiteral("ies agree"), Plain());
    const QByteArray source = WriteRtf(document);
    QVERIFY(source.contains("The undersigned \\b party of the first part\\b0 ies agree"));
}

void RtfWriterTest::LineEndsStandBehindParagraphsOnly() {
    RandomDocument random(3);
    const QByteArray source = WriteRtf(*random.Document(80));
    const qsizetype body = source.indexOf("\\pard", source.indexOf("{\\header") + 20);
    QVERIFY(body > 0);
    int lines = 0;
    for (qsizetype at = source.indexOf('\n', body); at >= 0; at = source.indexOf('\n', at + 1), ++lines) {
        const QByteArray before = source.first(at);
        QVERIFY2(before.endsWith("\\par") || before.endsWith("\\row") || before.endsWith("}"),
                 before.right(40).constData());
    }
    QVERIFY(lines > 10);
    QVERIFY(std::all_of(source.begin(), source.end(),
                        [](char byte) { return byte == '\n' || (byte >= ' ' && byte < 127); }));
}

void RtfWriterTest::TabStopsCountFromTheMargin() {
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextBlockFormat format;
    format.setLeftMargin(48);
    format.setTextIndent(-24);
    format.setTabPositions(
        {QTextOption::Tab(24, QTextOption::LeftTab), QTextOption::Tab(100, QTextOption::RightTab)});
    cursor.setBlockFormat(format);
    QVERIFY(WriteRtf(document).contains("\\pard\\fi-360\\li720\\tqr\\tx1860\\plain"));
}

void RtfWriterTest::OneTableOfFontsInOrderOfUse() {
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextCharFormat other = Plain();
    other.setFontFamilies({QStringLiteral("Courier New")});
    other.setFontFixedPitch(true);
    cursor.setBlockCharFormat(Plain());
    for (int i = 0; i < 3; ++i) {
        cursor.insertText(QStringLiteral("a"), other);
        cursor.insertText(QStringLiteral("b"), Plain());
    }
    const QByteArray source = WriteRtf(document);
    QVERIFY(source.contains(
        "{\\fonttbl{\\f0\\fnil\\fprq1\\fcharset0 Courier New;}{\\f1\\fnil\\fcharset0 Arial;}}\n"));
    QCOMPARE(source.count("\\fonttbl"), 1);
}

void RtfWriterTest::KeptTablesKeepTheirNumbers() {
    const auto document =
        ReadRtf("{\\rtf1{\\fonttbl{\\f7 Arial;}{\\f9 Times;}}{\\colortbl;\\red255\\green0\\blue0;}"
                "{\\header\\f9\\cf1 kept\\par}\\f7 text\\par}");
    QVERIFY(document);
    QTextCursor cursor(document.get());
    QTextCharFormat added = Plain();
    added.setFontFamilies({QStringLiteral("Georgia")});
    added.setForeground(QColor(0, 0, 255));
    cursor.insertText(QStringLiteral("new "), added);
    const QByteArray source = WriteRtf(*document);
    QVERIFY(source.contains("{\\fonttbl{\\f7 Arial;}{\\f9 Times;}{\\f10\\fnil\\fcharset0 Georgia;}}"));
    QVERIFY(source.contains("{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}"));
    QVERIFY(source.contains("{\\header\\f9\\cf1 kept\\par}"));
    QVERIFY(source.contains("\\f10\\fs24\\cf2 new \\f7\\cf0 text"));
}

void RtfWriterTest::ABulletIsShownByOlderProgramsToo() {
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextBlockFormat format;
    format.setTextIndent(-24);
    format.setLeftMargin(24);
    format.setProperty(BulletText, QStringLiteral("\u2022"));
    format.setProperty(ListKind, static_cast<int>(ListKinds::Bullet));
    cursor.setBlockFormat(format);
    cursor.setBlockCharFormat(Plain());
    cursor.insertText(QStringLiteral("item"), Plain());
    const QByteArray source = WriteRtf(document);
    QVERIFY(source.contains(
        "{\\pntext\\u8226?\\tab}{\\*\\pn\\pnlvlblt\\pnindent360{\\pntxtb\\u8226?}}item\\par"));
    QCOMPARE(ReadRtf(source)->begin().blockFormat().stringProperty(BulletText), QStringLiteral("\u2022"));
}

void RtfWriterTest::ATableMadeHereHasBordersAndWidths() {
    QTextDocument document;
    QTextCursor cursor(&document);
    QTextTableFormat format;
    format.setBorder(1);
    format.setColumnWidthConstraints(
        {QTextLength(QTextLength::FixedLength, 100), QTextLength(QTextLength::FixedLength, 50)});
    QTextTable* const table = cursor.insertTable(1, 2, format);
    table->cellAt(0, 1).firstCursorPosition().insertText(QStringLiteral("right"), Plain());
    const auto read = ReadRtf(WriteRtf(document));
    QVERIFY(read);
    QCOMPARE(read->rootFrame()->childFrames().size(), 1);
    const auto* const again = qobject_cast<QTextTable*>(read->rootFrame()->childFrames().first());
    QVERIFY(again);
    QCOMPARE(again->format().property(CellRightEdges).toList(), QVariantList({1500, 2250}));
    QCOMPARE(again->cellAt(0, 0).format().toTableCellFormat().topBorder(), 1.0);
    QCOMPARE(again->cellAt(0, 1).firstCursorPosition().block().text(), QStringLiteral("right"));
}

void RtfWriterTest::ASelectionIsADocumentOfItsOwn() {
    const auto document = ReadRtf("{\\rtf1{\\fonttbl{\\f0 Arial;}}one {\\b two} three\\par}");
    QTextCursor cursor(document.get());
    QVERIFY(WriteRtf(cursor).isEmpty());
    cursor.setPosition(4);
    cursor.setPosition(7, QTextCursor::KeepAnchor);
    const auto part = ReadRtf(WriteRtf(cursor));
    QVERIFY(part);
    QCOMPARE(part->toPlainText(), QStringLiteral("two"));
    QVERIFY(part->begin().begin().fragment().charFormat().fontWeight() == QFont::Bold);
}

QTEST_MAIN(RtfWriterTest)
#include "rtf_writer_test.moc"
