#include "library/form_document.h"
#include "library/html_subset.h"
#include "library/list_numbering.h"
#include "platform/rich_text/document_model.h"

#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>
#include <QtTest>

using namespace quillbrook;

namespace {

constexpr double kInch = 96.0;

std::unique_ptr<QTextDocument> Made(const QString& source) {
    SourceProblems problems;
    const std::vector<Block> blocks = ReadBlocks(source, problems);
    return problems.empty() ? MakeFormDocument(blocks) : std::make_unique<QTextDocument>();
}

QStringList Paragraphs(const QTextDocument& document) {
    QStringList paragraphs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        paragraphs.append(block.text());
    return paragraphs;
}

QTextTable* FirstTable(const QTextDocument& document) {
    for (QTextFrame* frame : document.rootFrame()->childFrames())
        if (auto* table = qobject_cast<QTextTable*>(frame))
            return table;
    return nullptr;
}

} // namespace

class FormDocumentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void APageIsLongPaperWithAWideLeftMargin() {
        const QTextFrameFormat page = Made(u"<p>a</p>"_qs)->rootFrame()->frameFormat();
        QCOMPARE(page.intProperty(platform::PaperWidth), 12'240);
        QCOMPARE(page.intProperty(platform::PaperHeight), 18'720);
        QCOMPARE(page.intProperty(platform::MarginLeft), 2'160);
        QCOMPARE(page.intProperty(platform::MarginRight), 1'440);
        QCOMPARE(page.intProperty(platform::MarginTop), 1'440);
        QCOMPARE(page.intProperty(platform::MarginBottom), 1'440);
    }

    void AllTextIsTimesNewRomanTwelve() {
        const auto document =
            Made(u"<p>a</p><ul><li>b</li></ul><table><tr><td>c</td></tr></table><p>d</p>"_qs);
        int seen = 0;
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
            if (block.text().trimmed().isEmpty())
                continue;
            const QTextCharFormat format = block.begin().fragment().charFormat();
            QCOMPARE(format.fontFamilies().toStringList(), QStringList(u"Times New Roman"_qs));
            QCOMPARE(format.fontPointSize(), 12.0);
            ++seen;
        }
        QCOMPARE(seen, 4);
    }

    void EachClassIsSetAsItShould_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("alignment");
        QTest::addColumn<double>("left");
        QTest::addColumn<double>("right");
        QTest::addColumn<double>("firstLine");
        QTest::addColumn<bool>("bold");
        QTest::addColumn<bool>("keptWithNext");
        const int justify = Qt::AlignJustify;
        QTest::newRow("h1") << u"<h1>a</h1>"_qs << int(Qt::AlignHCenter) << 0.0 << 0.0 << 0.0 << true << true;
        QTest::newRow("h2") << u"<h2>a</h2>"_qs << int(Qt::AlignHCenter) << 0.0 << 0.0 << 0.0 << true << true;
        QTest::newRow("h3") << u"<h3>a</h3>"_qs << int(Qt::AlignLeft) << 0.0 << 0.0 << 0.0 << true << true;
        QTest::newRow("p") << u"<p>a</p>"_qs << justify << 0.0 << 0.0 << 0.5 << false << false;
        QTest::newRow("plain") << u"<p class=\"plain\">a</p>"_qs << justify << 0.0 << 0.0 << 0.0 << false
                               << false;
        QTest::newRow("center") << u"<p class=\"center\">a</p>"_qs << int(Qt::AlignHCenter) << 0.0 << 0.0
                                << 0.0 << false << false;
        QTest::newRow("right") << u"<p class=\"right\">a</p>"_qs << int(Qt::AlignRight) << 0.0 << 0.0 << 0.0
                               << false << false;
        QTest::newRow("quote") << u"<p class=\"quote\">a</p>"_qs << justify << 0.5 << 0.5 << 0.0 << false
                               << false;
        QTest::newRow("hang") << u"<p class=\"hang\">a<tab>b</p>"_qs << int(Qt::AlignLeft) << 0.5 << 0.0
                              << -0.5 << false << false;
        QTest::newRow("sign") << u"<p class=\"sign\">a</p>"_qs << int(Qt::AlignLeft) << 3.0 << 0.0 << 0.0
                              << false << true;
        QTest::newRow("sign-left") << u"<p class=\"sign-left\">a</p>"_qs << int(Qt::AlignLeft) << 0.0 << 0.0
                                   << 0.0 << false << false;
        QTest::newRow("lines") << u"<p>a<br>b</p>"_qs << int(Qt::AlignLeft) << 0.0 << 0.0 << 0.5 << false
                               << false;
        QTest::newRow("before a signature")
            << u"<p>a</p><p class=\"sign\">b</p>"_qs << justify << 0.0 << 0.0 << 0.5 << false << true;
        QTest::newRow("item") << u"<ul><li>a</li></ul>"_qs << justify << 0.5 << 0.0 << -0.5 << false << false;
    }
    void EachClassIsSetAsItShould() {
        QFETCH(QString, source);
        QFETCH(int, alignment);
        QFETCH(double, left);
        QFETCH(double, right);
        QFETCH(double, firstLine);
        QFETCH(bool, bold);
        QFETCH(bool, keptWithNext);
        const auto document = Made(source);
        const QTextBlock block = document->firstBlock();
        QVERIFY(block.text().startsWith(u'a'));
        const QTextBlockFormat format = block.blockFormat();
        QCOMPARE(int(format.alignment()), alignment);
        QCOMPARE(format.leftMargin(), left * kInch);
        QCOMPARE(format.rightMargin(), right * kInch);
        QCOMPARE(format.textIndent(), firstLine * kInch);
        QCOMPARE(format.boolProperty(platform::KeepWithNext), keptWithNext);
        QCOMPARE(block.begin().fragment().charFormat().fontWeight() == QFont::Bold, bold);
    }

    void InlineTagsBecomeCharacterFormats() {
        const auto document = Made(u"<p><b>a</b><i>b</i><u>c</u><sup>d</sup><sub>e</sub></p>"_qs);
        QTextCursor cursor(document.get());
        const auto at = [&cursor](int position) {
            cursor.setPosition(position);
            return cursor.charFormat();
        };
        QCOMPARE(at(1).fontWeight(), int(QFont::Bold));
        QVERIFY(at(2).fontItalic() && !at(1).fontItalic());
        QVERIFY(at(3).fontUnderline() && !at(2).fontUnderline());
        QCOMPARE(at(4).verticalAlignment(), QTextCharFormat::AlignSuperScript);
        QCOMPARE(at(5).verticalAlignment(), QTextCharFormat::AlignSubScript);
    }

    void ListsCarryTheirMarkersBesideTheText() {
        const auto document =
            Made(u"<ol type=\"(a)\" start=\"3\"><li>x<ul><li>y</li></ul></li><li>z</li></ol>"_qs);
        QCOMPARE(Paragraphs(*document), QStringList({u"x"_qs, u"y"_qs, u"z"_qs}));
        QStringList markers;
        QList<int> lists;
        QList<double> margins;
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
            markers.append(block.blockFormat().stringProperty(platform::BulletText));
            lists.append(block.blockFormat().intProperty(platform::ListOverride));
            margins.append(block.blockFormat().leftMargin() / kInch);
        }
        QCOMPARE(markers, QStringList({u"(c)"_qs, u"\u2022"_qs, u"(d)"_qs}));
        QCOMPARE(lists, QList<int>({1, 2, 1}));
        QCOMPARE(margins, QList<double>({0.5, 1.0, 0.5}));
        const QByteArray source =
            document->rootFrame()->frameFormat().property(platform::ListTables).toByteArray();
        QVERIFY(source.startsWith("{\\*\\listtable{\\list"));
        QVERIFY(
            source.contains("\\levelnfc4\\leveljc0\\levelfollow0\\levelstartat3{\\leveltext\\'03(\\'00);}"));
        QVERIFY(source.contains("{\\listoverride\\listid2\\listoverridecount0\\ls2}"));
        QCOMPARE(source.count('{'), source.count('}'));
    }

    void NumbersAreWrittenInEachManner_data() {
        QTest::addColumn<int>("numbering");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("text");
        QTest::newRow("decimal") << int(Numbering::Decimal) << 12 << u"12"_qs;
        QTest::newRow("letter") << int(Numbering::LowerLetter) << 26 << u"z"_qs;
        QTest::newRow("letters") << int(Numbering::LowerLetter) << 27 << u"aa"_qs;
        QTest::newRow("capital") << int(Numbering::UpperLetter) << 2 << u"B"_qs;
        QTest::newRow("roman") << int(Numbering::LowerRoman) << 14 << u"xiv"_qs;
        QTest::newRow("capital roman") << int(Numbering::UpperRoman) << 49 << u"XLIX"_qs;
        QTest::newRow("bullet") << int(Numbering::Bullet) << 5 << u"\u2022"_qs;
    }
    void NumbersAreWrittenInEachManner() {
        QFETCH(int, numbering);
        QFETCH(int, number);
        QFETCH(QString, text);
        QCOMPARE(NumberText(static_cast<Numbering>(numbering), number), text);
    }

    void ATableHasItsWidthsBordersAndSpans() {
        const auto document = Made(u"<p>a</p><table border=\"1\"><tr><th width=\"25%\">b</th><td>c</td></tr>"
                                   "<tr><td colspan=\"2\" align=\"right\">d</td></tr></table><p>e</p>"_qs);
        QTextTable* table = FirstTable(*document);
        QVERIFY(table);
        QCOMPARE(table->rows(), 2);
        QCOMPARE(table->columns(), 2);
        QCOMPARE(table->cellAt(1, 0).columnSpan(), 2);
        const QVariantList edges = table->format().property(platform::CellRightEdges).toList();
        QCOMPARE(edges, (QVariantList{-108 + 2'160, -108 + 8'640}));
        QCOMPARE(table->format().intProperty(platform::TableLeft), -108);
        for (const auto& [row, column] : {std::pair(0, 0), std::pair(0, 1), std::pair(1, 0)}) {
            const QTextTableCellFormat format = table->cellAt(row, column).format().toTableCellFormat();
            QVERIFY(format.property(platform::CellBorders).toByteArray().startsWith("\\clbrdrt\\brdrs"));
            QCOMPARE(format.topBorder(), 1.0);
        }
        QVERIFY(table->cellAt(1, 0)
                    .format()
                    .property(platform::RowControls)
                    .toByteArray()
                    .contains("\\trgaph108"));
        QCOMPARE(table->cellAt(1, 0).firstCursorPosition().blockFormat().alignment(), Qt::AlignRight);
        QCOMPARE(Paragraphs(*document),
                 QStringList({u"a"_qs, u"\u00A0"_qs, u"b"_qs, u"c"_qs, u"d"_qs, u"\u00A0"_qs, u"e"_qs}));
    }

    void OneGapPartsATableFromAnyBlock() {
        for (const QString& before : {u"<p>a</p>"_qs, u"<ul><li>a</li></ul>"_qs}) {
            const auto document = Made(before + u"<table><tr><td>b</td></tr></table>"_qs);
            QCOMPARE(document->firstBlock().blockFormat().bottomMargin(), 0.0);
            QCOMPARE(document->firstBlock().next().text(), u"\u00A0"_qs);
            QCOMPARE(document->firstBlock().next().begin().fragment().charFormat().fontPointSize(), 8.0);
        }
    }

    void ABlankIsNoWiderThanItsCell() {
        const auto document =
            Made(u"<table><tr><td width=\"25%\">%1</td><td>%1</td></tr></table>"_qs.arg(QString(30, u'_')));
        QTextTable* table = FirstTable(*document);
        QVERIFY(table);
        QCOMPARE(table->cellAt(0, 0).firstCursorPosition().block().text().size(), (2'160 - 216) / 120);
        QCOMPARE(table->cellAt(0, 1).firstCursorPosition().block().text().size(), 30);
    }

    void ALineOfASignatureBlockIsNoLongerThanItsRoom() {
        const QString blank(30, u'_');
        const auto document =
            Made(u"<p class=\"sign\">%1<br>Office Address: %1<br>No. %1; %1</p>"_qs.arg(blank));
        QCOMPARE(document->firstBlock().text(), blank + u"\u2028Office Address: "_qs + QString(20, u'_') +
                                                    u"\u2028No. "_qs + QString(15, u'_') + u"; "_qs +
                                                    QString(15, u'_'));
    }

    void ALineOfASignatureBlockKeepsWhatIsNoBlank_data() {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("fitted");
        const auto blank = [](int length) { return QString(length, u'_'); };
        QTest::newRow("it fits") << blank(36) << blank(36);
        QTest::newRow("a short blank stays") << u"Commission No. %1; until 20_____"_qs.arg(blank(14))
                                             << u"Commission No. %1; until 20_____"_qs.arg(blank(10));
        QTest::newRow("three blanks")
            << u"PTR No. %1; %1; %1"_qs.arg(blank(14)) << u"PTR No. %1; %1; %1"_qs.arg(blank(8));
        QTest::newRow("no room at all") << QString(40, u'x') + blank(14) << QString(40, u'x') + blank(10);
    }
    void ALineOfASignatureBlockKeepsWhatIsNoBlank() {
        QFETCH(QString, line);
        QFETCH(QString, fitted);
        const auto document = Made(u"<p class=\"sign\">%1</p>"_qs.arg(line));
        QCOMPARE(document->firstBlock().text(), fitted);
    }

    void BlanksInJustifiedTextAreShortEnoughForALine_data() {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("set");
        QTest::newRow("short") << u"p"_qs << 14 << 14;
        QTest::newRow("long") << u"p"_qs << 30 << 20;
        QTest::newRow("a line to write on") << u"p"_qs << 60 << 60;
        QTest::newRow("not justified") << u"h1"_qs << 30 << 30;
    }
    void BlanksInJustifiedTextAreShortEnoughForALine() {
        QFETCH(QString, tag);
        QFETCH(int, length);
        QFETCH(int, set);
        const auto document = Made(u"<%1>a %2 b</%1>"_qs.arg(tag, QString(length, u'_')));
        QCOMPARE(document->firstBlock().text(), u"a %1 b"_qs.arg(QString(set, u'_')));
    }

    void TheBracketsOfAVenueStandBelowOneAnother() {
        const auto document = Made(
            u"<p class=\"plain\">REPUBLIC<tab>)<br>_____<tab>) S.S.</p><p class=\"plain\">a<tab>b</p>"_qs);
        const QList<QTextOption::Tab> tabs = document->firstBlock().blockFormat().tabPositions();
        QCOMPARE(tabs.size(), 1);
        QCOMPARE(tabs[0].position, 3 * kInch);
        QVERIFY(document->lastBlock().blockFormat().tabPositions().isEmpty());
    }

    void ABoldHeadingInAnAlternativeHasItsBracketBold_data() {
        QTest::addColumn<QString>("item");
        QTest::addColumn<bool>("bold");
        QTest::newRow("in an alternative") << u"[<b>Term.</b> One year.]"_qs << true;
        QTest::newRow("bold") << u"<b>Term.</b> One year."_qs << true;
        QTest::newRow("not bold") << u"[One <b>year</b>.]"_qs << false;
    }
    void ABoldHeadingInAnAlternativeHasItsBracketBold() {
        QFETCH(QString, item);
        QFETCH(bool, bold);
        const auto document = Made(u"<ol><li>%1</li></ol>"_qs.arg(item));
        QCOMPARE(document->firstBlock().begin().fragment().charFormat().fontWeight() == QFont::Bold, bold);
    }

    void ThereIsRoomAboveALineToSign() {
        const auto document =
            Made(u"<p class=\"sign\">_______<br>Affiant</p><p class=\"sign\">Second line</p>"
                 "<table><tr><td>_______<br>Witness</td></tr></table>"_qs);
        QCOMPARE(document->firstBlock().blockFormat().topMargin(), 32.0);
        QCOMPARE(document->firstBlock().blockFormat().bottomMargin(), 0.0);
        QCOMPARE(document->firstBlock().next().blockFormat().topMargin(), 0.0);
        QTextTable* table = FirstTable(*document);
        QVERIFY(table);
        QVERIFY(table->cellAt(0, 0).firstCursorPosition().block().text().isEmpty());
        QCOMPARE(table->cellAt(0, 0).lastCursorPosition().block().text(), u"_______\u2028Witness"_qs);
    }

    // Each line of a clause becomes a paragraph of the format of its place.
    void APlaceOfAClauseHasNoSpaceBelow_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isPlace");
        QTest::newRow("a marker") << u"(VERIFICATION)"_qs << true;
        QTest::newRow("the longest marker") << u"(CERTIFICATION OF NON-FORUM SHOPPING)"_qs << true;
        QTest::newRow("the top of a pleading") << u"&nbsp;"_qs << true;
        QTest::newRow("a marker in a sentence") << u"Here stands (VERIFICATION)."_qs << false;
        QTest::newRow("a text") << u"Plaintiff states:"_qs << false;
    }
    void APlaceOfAClauseHasNoSpaceBelow() {
        QFETCH(QString, text);
        QFETCH(bool, isPlace);
        const auto document = Made(u"<p class=\"plain\">%1</p><p>b</p>"_qs.arg(text));
        QCOMPARE(document->blockCount(), 2);
        const QTextBlockFormat format = document->firstBlock().blockFormat();
        QCOMPARE(format.topMargin(), 0.0);
        QCOMPARE(format.bottomMargin() == 0, isPlace);
    }

    void ATableIsKeptWithTheParagraphThatSaysWhatItIs_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<bool>("kept");
        QTest::newRow("colon") << u"<p>The following:</p>"_qs << true;
        QTest::newRow("colon of an item") << u"<ol><li>The following:</li></ol>"_qs << true;
        QTest::newRow("full stop") << u"<p>The end.</p>"_qs << false;
    }
    void ATableIsKeptWithTheParagraphThatSaysWhatItIs() {
        QFETCH(QString, source);
        QFETCH(bool, kept);
        const auto document = Made(source + u"<table border=\"1\"><tr><td>a</td></tr></table>"_qs);
        const QTextBlock block = document->firstBlock();
        QCOMPARE(block.blockFormat().boolProperty(platform::KeepWithNext), kept);
        QVERIFY(block.next().blockFormat().boolProperty(platform::KeepWithNext)); // the gap
    }

    void ASignatureBlockStaysOnOnePage() {
        const auto document =
            Made(u"<p class=\"sign\">_______<br>Counsel</p><p class=\"sign-left\">______<br>a</p>"_qs);
        QVERIFY(document->firstBlock().blockFormat().boolProperty(platform::KeepTogether));
        QVERIFY(document->lastBlock().blockFormat().boolProperty(platform::KeepTogether));
    }

    void WhatFollowsAPlaceOfAClauseHasSpaceAbove() {
        const auto document =
            Made(u"<p class=\"plain\">(JURAT)</p><p class=\"plain\">(EXPLANATION)</p><p>b</p>"_qs);
        QCOMPARE(document->firstBlock().next().blockFormat().topMargin(), 0.0);
        QCOMPARE(document->lastBlock().blockFormat().topMargin(), 16.0);
    }

    void BehindATableAtTheEndThereIsRoomToWrite() {
        const auto document = Made(u"<p>a</p><table><tr><td>b</td></tr></table>"_qs);
        QVERIFY(document->lastBlock().text().isEmpty());
        QCOMPARE(document->lastBlock().charFormat().fontPointSize(), 12.0);
        QVERIFY(!document->lastBlock().blockFormat().hasProperty(platform::Filler));
    }

    void APageBreakStandsBeforeItsParagraph() {
        const auto document = Made(u"<p>a</p><pagebreak><ul><li>b</li><li>c</li></ul>"_qs);
        QTextBlock block = document->firstBlock();
        QCOMPARE(block.blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_Auto);
        block = block.next();
        QCOMPARE(block.blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_AlwaysBefore);
        QCOMPARE(block.next().blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_Auto);
    }
};

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    FormDocumentTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "form_document_test.moc"
