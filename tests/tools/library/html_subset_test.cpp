#include "library/html_subset.h"

#include <QtTest>

using namespace quillbrook;

namespace {

std::vector<Block> Good(const QString& source) {
    SourceProblems problems;
    std::vector<Block> blocks = ReadBlocks(source, problems);
    for (const SourceProblem& problem : problems)
        qWarning("%d: %s", problem.line, qPrintable(problem.text));
    return problems.empty() ? blocks : std::vector<Block>();
}

// A table as text: cells between bars, a row a line.
QString Sketch(const Table& table) {
    QString sketch;
    for (const auto& row : table.rows) {
        for (const TableCell& cell : row)
            sketch += PlainText(cell.runs) + QString(cell.columnSpan, u'|');
        sketch += u'\n';
    }
    return sketch;
}

} // namespace

class HtmlSubsetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachClassHasItsParagraph_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("kind");
        const auto row = [](const char* source, ParagraphClass kind) {
            QTest::newRow(source) << QString::fromLatin1(source) << int(kind);
        };
        row("<h1>x</h1>", ParagraphClass::Heading1);
        row("<h2>x</h2>", ParagraphClass::Heading2);
        row("<h3>x</h3>", ParagraphClass::Heading3);
        row("<p>x</p>", ParagraphClass::Text);
        row("<p class=\"plain\">x</p>", ParagraphClass::Plain);
        row("<p class=\"center\">x</p>", ParagraphClass::Center);
        row("<p class=\"right\">x</p>", ParagraphClass::Right);
        row("<p class=\"quote\">x</p>", ParagraphClass::Quote);
        row("<p class=\"hang\">x</p>", ParagraphClass::Hang);
        row("<p class=\"sign\">x</p>", ParagraphClass::Sign);
        row("<p class=\"sign-left\">x</p>", ParagraphClass::SignLeft);
    }
    void EachClassHasItsParagraph() {
        QFETCH(QString, source);
        QFETCH(int, kind);
        const std::vector<Block> blocks = Good(source);
        QCOMPARE(blocks.size(), 1u);
        const auto* paragraph = std::get_if<Paragraph>(&blocks[0].content);
        QVERIFY(paragraph);
        QCOMPARE(int(paragraph->kind), kind);
        QCOMPARE(PlainText(paragraph->runs), QStringLiteral("x"));
    }

    void TextIsFoldedAndResolved_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("text");
        QTest::newRow("white space") << u"<p>\n  one \t two\n three  </p>"_qs << u"one two three"_qs;
        QTest::newRow("around a break") << u"<p>one <br>\n two</p>"_qs << u"one\u2028two"_qs;
        QTest::newRow("around a tab") << u"<p>1. <tab> two</p>"_qs << u"1.\ttwo"_qs;
        QTest::newRow("at a tag's edge") << u"<p>one <b> two</b> three</p>"_qs << u"one two three"_qs;
        QTest::newRow("nbsp stays") << u"<p>a&nbsp;&nbsp; b</p>"_qs << u"a\u00A0\u00A0 b"_qs;
        QTest::newRow("entities") << u"<p>&lt;&amp;&gt;&quot;</p>"_qs << u"<&>\""_qs;
        QTest::newRow("entity of an entity") << u"<p>&amp;lt;</p>"_qs << u"&lt;"_qs;
        QTest::newRow("comment") << u"<p>one<!-- <b> & no -->two</p>"_qs << u"onetwo"_qs;
        QTest::newRow("typographic") << u"<p>“owner’s” – ok</p>"_qs << u"“owner’s” – ok"_qs;
    }
    void TextIsFoldedAndResolved() {
        QFETCH(QString, source);
        QFETCH(QString, text);
        const std::vector<Block> blocks = Good(source);
        QCOMPARE(blocks.size(), 1u);
        QCOMPARE(PlainText(std::get<Paragraph>(blocks[0].content).runs), text);
    }

    void StylesMakeRuns() {
        const std::vector<Block> blocks =
            Good(u"<p>a<b>b<i>c</i></b><u>d</u><sup>e</sup><sub>f</sub></p>"_qs);
        QCOMPARE(blocks.size(), 1u);
        const Runs& runs = std::get<Paragraph>(blocks[0].content).runs;
        QCOMPARE(runs.size(), 6u);
        QVERIFY(!runs[0].bold);
        QVERIFY(runs[1].bold && !runs[1].italic);
        QVERIFY(runs[2].bold && runs[2].italic);
        QVERIFY(runs[3].underline && !runs[3].bold);
        QCOMPARE(int(runs[4].position), int(Run::Position::Superscript));
        QCOMPARE(int(runs[5].position), int(Run::Position::Subscript));
    }

    void AListItemHoldsOneListAfterItsText() {
        const std::vector<Block> blocks =
            Good(u"<ol type=\"I\" start=\"4\">\n<li>one\n<ul><li>in</li></ul>\n</li><li>two</li></ol>"_qs);
        QCOMPARE(blocks.size(), 1u);
        const List& list = std::get<List>(blocks[0].content);
        QCOMPARE(int(list.numbering), int(Numbering::UpperRoman));
        QCOMPARE(list.start, 4);
        QCOMPARE(list.items.size(), 2u);
        QCOMPARE(PlainText(list.items[0].runs), u"one"_qs);
        QCOMPARE(list.items[0].nested.size(), 1u);
        QCOMPARE(int(list.items[0].nested[0].numbering), int(Numbering::Bullet));
        QVERIFY(list.items[1].nested.empty());
    }

    void ListTypes_data() {
        QTest::addColumn<QString>("type");
        QTest::addColumn<int>("numbering");
        QTest::addColumn<bool>("inBrackets");
        QTest::newRow("1") << u"1"_qs << int(Numbering::Decimal) << false;
        QTest::newRow("a") << u"a"_qs << int(Numbering::LowerLetter) << false;
        QTest::newRow("A") << u"A"_qs << int(Numbering::UpperLetter) << false;
        QTest::newRow("i") << u"i"_qs << int(Numbering::LowerRoman) << false;
        QTest::newRow("I") << u"I"_qs << int(Numbering::UpperRoman) << false;
        QTest::newRow("(1)") << u"(1)"_qs << int(Numbering::Decimal) << true;
        QTest::newRow("(a)") << u"(a)"_qs << int(Numbering::LowerLetter) << true;
        QTest::newRow("(i)") << u"(i)"_qs << int(Numbering::LowerRoman) << true;
    }
    void ListTypes() {
        QFETCH(QString, type);
        QFETCH(int, numbering);
        QFETCH(bool, inBrackets);
        const std::vector<Block> blocks = Good(u"<ol type=\"%1\"><li>x</li></ol>"_qs.arg(type));
        QCOMPARE(blocks.size(), 1u);
        QCOMPARE(int(std::get<List>(blocks[0].content).numbering), numbering);
        QCOMPARE(std::get<List>(blocks[0].content).inBrackets, inBrackets);
    }

    void ATableHasRowsOfEqualWidth() {
        const std::vector<Block> blocks =
            Good(u"<table border=\"1\">\n<tr><th width=\"20%\">a</th><td>b</td><td "
                 u"align=\"right\">c<br>d</td></tr>"
                 "<tr><td colspan=\"2\">e</td> <td></td></tr></table>"_qs);
        QCOMPARE(blocks.size(), 1u);
        const Table& table = std::get<Table>(blocks[0].content);
        QVERIFY(table.border);
        QCOMPARE(Sketch(table), u"a|b|c\u2028d|\ne|||\n"_qs);
        QCOMPARE(table.widths, (std::vector<double>{20, 40, 40}));
        QVERIFY(table.rows[0][0].runs[0].bold);
        QCOMPARE(int(table.rows[0][0].alignment), int(CellAlignment::Center));
        QCOMPARE(int(table.rows[0][2].alignment), int(CellAlignment::Right));
    }

    void APageBreakBelongsToTheNextParagraph() {
        const std::vector<Block> blocks = Good(u"<p>a</p>\n<pagebreak>\n<p>b</p>\n<p>c</p>"_qs);
        QCOMPARE(blocks.size(), 3u);
        QVERIFY(!blocks[0].newPage && blocks[1].newPage && !blocks[2].newPage);
    }

    void FaultsAreToldWithTheirLine_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("part");
        const auto row = [](const char* name, const QString& source, int line, const QString& part) {
            QTest::newRow(name) << source << line << part;
        };
        row("unknown block", u"<p>a</p>\n<div>b</div>"_qs, 2, u"unknown tag <div>"_qs);
        row("unknown inline", u"<p>a\n<span>b</span></p>"_qs, 2, u"<span>"_qs);
        row("unknown class", u"\n<p class=\"big\">a</p>"_qs, 2, u"class \"big\""_qs);
        row("class of a heading", u"<h1 class=\"plain\">a</h1>"_qs, 1, u"class"_qs);
        row("empty class", u"<p class=\"\">a</p>"_qs, 1, u"class"_qs);
        row("unknown attribute", u"<p style=\"x\">a</p>"_qs, 1, u"attribute style"_qs);
        row("attribute twice", u"<p class=\"plain\"\nclass=\"plain\">a</p>"_qs, 2, u"twice"_qs);
        row("attribute without quotes", u"<p class=plain>a</p>"_qs, 1, u"quoted value"_qs);
        row("attribute without end", u"<p class=\"plain>a</p>"_qs, 1, u"closing quote"_qs);
        row("tag without end", u"<p>a</p\n<p>b</p>"_qs, 2, u"without its >"_qs);
        row("capital tag", u"<P>a</P>"_qs, 1, u"small letters"_qs);
        row("bare ampersand", u"<p>a\n& b</p>"_qs, 2, u"&amp;"_qs);
        row("unknown entity", u"<p>\n\n&copy;</p>"_qs, 3, u"&copy;"_qs);
        row("bare less", u"<p>a < b</p>"_qs, 1, u"&lt;"_qs);
        row("open comment", u"<p>a</p>\n<!-- b"_qs, 2, u"comment"_qs);
        row("text outside", u"<p>a</p>\n\nb"_qs, 3, u"outside"_qs);
        row("bold outside", u"<p>a</p>\n<b>b</b> c"_qs, 2, u"outside"_qs);
        row("stray close", u"<p>a</p>\n</p>"_qs, 2, u"closes nothing"_qs);
        row("block in block", u"<p>a\n<p>b</p>"_qs, 2, u"</p>"_qs);
        row("open at the end", u"<p>a\n"_qs, 2, u"missing at the end"_qs);
        row("crossed", u"<p><b>a<i>b</b></i></p>"_qs, 1, u"</b>"_qs);
        row("not closed", u"<p><b>a\n</p>"_qs, 2, u"<b> is not closed"_qs);
        row("twice bold", u"<p><b>a<b>b</b></b></p>"_qs, 1, u"<b> inside <b>"_qs);
        row("empty paragraph", u"<p>a</p>\n<p> </p>"_qs, 2, u"empty <p>"_qs);
        row("empty list", u"<ol>\n</ol>"_qs, 1, u"empty <ol>"_qs);
        row("empty item", u"<ol>\n<li> </li></ol>"_qs, 2, u"empty <li>"_qs);
        row("text in a list", u"<ol>\na<li>b</li></ol>"_qs, 1, u"<li> is expected"_qs);
        row("text behind a nested list", u"<ol><li>a<ul><li>b</li></ul>\nc</li></ol>"_qs, 1,
            u"text where </li>"_qs);
        row("list type", u"<ol type=\"x\"><li>a</li></ol>"_qs, 1, u"list type \"x\""_qs);
        row("list start", u"<ol start=\"0\"><li>a</li></ol>"_qs, 1, u"start=\"0\""_qs);
        row("list depth",
            u"<ul><li>a<ul><li>b<ul><li>c<ul><li>d\n<ul><li>e</li></ul></li></ul></li></ul></li></ul></li></ul>"_qs,
            2, u"too deep"_qs);
        row("empty table", u"<table></table>"_qs, 1, u"empty <table>"_qs);
        row("empty row", u"<table>\n<tr></tr></table>"_qs, 2, u"empty <tr>"_qs);
        row("short row", u"<table><tr><td>a</td><td>b</td></tr>\n<tr><td>c</td></tr></table>"_qs, 2,
            u"row of 1 columns in a table of 2"_qs);
        row("too wide", u"<table><tr><td width=\"60%\">a</td><td width=\"50%\">b</td></tr></table>"_qs, 1,
            u"wider"_qs);
        row("width", u"<table><tr><td width=\"60\">a</td></tr></table>"_qs, 1, u"percentage"_qs);
        row("align", u"<table><tr><td align=\"top\">a</td></tr></table>"_qs, 1, u"align=\"top\""_qs);
        row("border", u"<table border=\"2\"><tr><td>a</td></tr></table>"_qs, 1, u"border=\"2\""_qs);
        row("colspan", u"<table><tr><td colspan=\"99\">a</td></tr></table>"_qs, 1, u"colspan"_qs);
        row("page break at the end", u"<p>a</p>\n<pagebreak>"_qs, 2, u"nothing behind"_qs);
        row("page break before a table", u"<pagebreak>\n<table><tr><td>a</td></tr></table>"_qs, 2,
            u"before a table"_qs);
    }
    void FaultsAreToldWithTheirLine() {
        QFETCH(QString, source);
        QFETCH(int, line);
        QFETCH(QString, part);
        SourceProblems problems;
        ReadBlocks(source, problems);
        QVERIFY(!problems.empty());
        QVERIFY2(problems[0].text.contains(part), qPrintable(problems[0].text));
        QCOMPARE(problems[0].line, line);
    }

    void ReadingGoesOnBehindAFault() {
        SourceProblems problems;
        const std::vector<Block> blocks = ReadBlocks(
            u"<p>a</p><p class=\"x\">b</p><ol><li></li></ol><p>c</p><table></table><p>d</p>"_qs, problems);
        QCOMPARE(problems.size(), 3u);
        QCOMPARE(blocks.size(), 3u);
        QCOMPARE(PlainText(std::get<Paragraph>(blocks[2].content).runs), u"d"_qs);
    }

    void AnyCutOfASourceIsRead() {
        const QString source =
            u"<h1>a</h1><ol type=\"(a)\"><li>b<ul><li>c</li></ul></li></ol>"
            "<table><tr><td width=\"5%\">d<br>&amp;</td></tr></table><pagebreak><p>e</p>"_qs;
        for (qsizetype length = 0; length < source.size(); ++length) {
            SourceProblems problems;
            const std::vector<Block> blocks = ReadBlocks(QStringView(source).left(length), problems);
            QVERIFY(blocks.size() <= 4);
        }
        QCOMPARE(Good(source).size(), 4u);
    }
};

QTEST_GUILESS_MAIN(HtmlSubsetTest)
#include "html_subset_test.moc"
