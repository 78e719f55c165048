#include "library/content_rules.h"

#include <QtTest>

using namespace quillbrook;

namespace {

FormSource Form(const QString& body, const QString& title = u"A"_qs, const QString& category = u"Lease"_qs) {
    SourceProblems problems;
    FormSource form =
        ReadFormSource(QStringLiteral("<title>%1</title>\n<meta name=\"category\" content=\"%2\">\n"
                                      "<meta name=\"sub-category\" content=\"B\">\n%3\n")
                           .arg(title, category, body),
                       problems);
    for (const SourceProblem& problem : problems)
        qWarning("%d: %s", problem.line, qPrintable(problem.text));
    return form;
}

FormTexts Texts(const QString& body) {
    return TextsOf(Form(body).blocks);
}

// "line: text", a problem a line.
QString Told(const SourceProblems& problems) {
    QStringList lines;
    for (const SourceProblem& problem : problems)
        lines.append(QStringLiteral("%1: %2").arg(problem.line).arg(problem.text));
    return lines.join(u'\n');
}

void Row(const char* name, const QString& body, const QString& told) {
    QTest::newRow(name) << body << told;
}

} // namespace

class ContentRulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TextsAreParagraphsItemsAndCellsWithTheirLines() {
        const FormTexts texts =
            Texts(u"<p>one\ntwo</p>\n<ol><li>three</li>\n<li>four<ul>\n<li>five</li></ul></li></ol>\n"
                  "<table><tr><td>six</td>\n<td></td><td>&nbsp;</td><td>seven</td></tr></table>"_qs);
        QStringList told;
        for (const FormText& text : texts)
            told.append(QStringLiteral("%1 %2").arg(text.line).arg(text.text));
        QCOMPARE(told.join(u'|'), u"4 one two|6 three|7 four|8 five|9 six|10 seven"_qs);
    }

    void WordsAreStretchesOfLetters_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("words");
        Row("plain", u"Know all men"_qs, u"Know all men"_qs);
        Row("apostrophes", u"the lessor’s and lessors' rent"_qs, u"the lessor's and lessors rent"_qs);
        Row("hyphen", u"Attorney-in-Fact"_qs, u"Attorney in Fact"_qs);
        Row("digits", u"the 2nd of P500 or 500pesos in B2B"_qs, u"the of or in"_qs);
        Row("blanks", u"______ day of_____it"_qs, u"day of it"_qs);
        Row("ending in brackets", u"the child[ren] of [the parties]"_qs, u"the child of the parties"_qs);
        Row("alternatives", u"[he/she]"_qs, u"he she"_qs);
        Row("letters with marks", u"Parañaque, fiancée"_qs, u"Parañaque fiancée"_qs);
        Row("line break", u"one\u2028two"_qs, u"one two"_qs);
        Row("none", u"12 ______ (3)"_qs, QString());
    }
    void WordsAreStretchesOfLetters() {
        QFETCH(QString, text);
        QFETCH(QString, words);
        QStringList found;
        for (const Word& word : WordsOf({{1, text}}))
            found.append(word.text);
        QCOMPARE(found.join(u' '), words);
    }

    void AMarkerIsSpeltAsTheCommandsLookForIt_data() {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("told");
        Row("right", u"<p class=\"plain\">(JURAT)</p>"_qs, QString());
        Row("right and long", u"<p class=\"plain\">(CERTIFICATION OF NON-FORUM SHOPPING)</p>"_qs, QString());
        Row("small letters", u"<p>(Jurat)</p>"_qs, u"4: (Jurat) is not spelt (JURAT)"_qs);
        Row("square brackets", u"<p>[JURAT]</p>"_qs, u"4: [JURAT] is not spelt (JURAT)"_qs);
        Row("blanks inside", u"<p>( VERIFICATION )</p>"_qs,
            u"4: ( VERIFICATION ) is not spelt (VERIFICATION)"_qs);
        Row("one bracket", u"<p>(ACKNOWLEDGMENT</p>"_qs,
            u"4: (ACKNOWLEDGMENT is not spelt (ACKNOWLEDGMENT)"_qs);
        Row("misspelt", u"<p>(ACKNOWLEDGEMENT)</p>"_qs,
            u"4: (ACKNOWLEDGEMENT) is not spelt (ACKNOWLEDGMENT)"_qs);
        Row("no hyphen", u"<p>(CERTIFICATION OF NON FORUM SHOPPING)</p>"_qs,
            u"4: (CERTIFICATION OF NON FORUM SHOPPING) is not spelt (CERTIFICATION OF NON-FORUM SHOPPING)"_qs);
        Row("full stop", u"<p>(EXPLANATION).</p>"_qs, u"4: (EXPLANATION). is not spelt (EXPLANATION)"_qs);
        Row("within a text", u"<p>a</p>\n<p>See (JURAT) below</p>"_qs, u"5: (JURAT) within a longer text"_qs);
        Row("in an item", u"<ol><li>a</li>\n<li>(Verification)</li></ol>"_qs,
            u"5: (Verification) is not spelt (VERIFICATION)"_qs);
        Row("a heading", u"<h1>VERIFICATION</h1>"_qs, QString());
        Row("other brackets", u"<p>(Affiant)</p>"_qs, QString());
        Row("brackets that begin a text",
            u"<p>(Verification of the facts was made by the undersigned)</p>"_qs, QString());
    }
    void AMarkerIsSpeltAsTheCommandsLookForIt() {
        QFETCH(QString, body);
        QFETCH(QString, told);
        QCOMPARE(Told(CheckMarkerSpelling(Texts(body))), told);
    }

    void AnInstrumentHasThePlaceOfItsClause_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("category");
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("told");
        const auto row = [](const char* name, const char* title, const char* category, const char* body,
                            const char* marker) {
            QTest::newRow(name) << QString::fromLatin1(title) << QString::fromLatin1(category)
                                << QStringLiteral("<p class=\"plain\">%1</p>").arg(QLatin1String(body))
                                << (marker ? QStringLiteral("1: \"%1\" needs the marker %2")
                                                 .arg(QLatin1String(title), QLatin1String(marker))
                                           : QString());
        };
        row("affidavit with jurat", "Affidavit of Loss", "Affidavits", "(JURAT)", nullptr);
        row("affidavit with a jurat of its own", "Affidavit of Loss", "Criminal Actions",
            "SUBSCRIBED AND SWORN to before me", nullptr);
        row("affidavit without", "Affidavit of Loss", "Affidavits", "x", "(JURAT)");
        row("joint affidavit without", "Joint Affidavit of Arrest", "Affidavits", "x", "(JURAT)");
        row("complaint-affidavit without", "Complaint-Affidavit for Theft", "Criminal Actions", "x",
            "(JURAT)");
        row("deed with acknowledgment", "Deed of Donation", "Sales", "(ACKNOWLEDGMENT)", nullptr);
        row("deed with jurat only", "Deed of Donation", "Sales", "(JURAT)", "(ACKNOWLEDGMENT)");
        row("power of attorney without", "Power of Attorney to Sell", "Power of Attorney", "x",
            "(ACKNOWLEDGMENT)");
        row("articles without", "Articles of Incorporation", "Corporations", "x", "(ACKNOWLEDGMENT)");
        row("complaint with verification", "Complaint for Partition", "Pleadings", "(VERIFICATION)", nullptr);
        row("complaint without", "Complaint for Partition", "Pleadings", "x", "(VERIFICATION)");
        row("petition without", "Petition for Mandamus", "Pleadings", "x", "(VERIFICATION)");
        row("petition of another category", "Petition for Bail", "Criminal Actions", "x", nullptr);
        row("letter", "Letter of Demand to Pay", "Law Practice", "x", nullptr);
    }
    void AnInstrumentHasThePlaceOfItsClause() {
        QFETCH(QString, title);
        QFETCH(QString, category);
        QFETCH(QString, body);
        QFETCH(QString, told);
        QCOMPARE(Told(CheckMarkersPresent(Form(body, title, category))), told);
    }

    void BlanksAreThereAndLongEnough_data() {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("told");
        Row("five", u"<p>20_____</p>"_qs, QString());
        Row("in a cell", u"<table><tr><td>______</td></tr></table>"_qs, QString());
        Row("none", u"<p>a</p>"_qs, u"4: no blank to fill"_qs);
        Row("four", u"<p>______</p>\n<p>a ____ b</p>"_qs, u"5: blank of fewer than five underscores"_qs);
        Row("only one", u"<p>_</p>"_qs, u"4: blank of fewer than five underscores\n4: no blank to fill"_qs);
        Row("dots", u"<p>______ and .....</p>"_qs, u"4: blank drawn with dots"_qs);
        Row("three dots are text", u"<p>______ ...</p>"_qs, QString());
    }
    void BlanksAreThereAndLongEnough() {
        QFETCH(QString, body);
        QFETCH(QString, told);
        QCOMPARE(Told(CheckBlanks(Texts(body))), told);
    }

    void AFormHasAtLeastAHundredWords_data() {
        QTest::addColumn<int>("words");
        QTest::addColumn<QString>("told");
        QTest::newRow("1") << 1 << u"4: 1 words, fewer than 100"_qs;
        QTest::newRow("99") << 99 << u"4: 99 words, fewer than 100"_qs;
        QTest::newRow("100") << 100 << QString();
    }
    void AFormHasAtLeastAHundredWords() {
        QFETCH(int, words);
        QFETCH(QString, told);
        QCOMPARE(Told(CheckLength(Texts(u"<p>%1 ______ 12</p>"_qs.arg(u"word "_qs.repeated(words))))), told);
    }

    void BracketsAndQuotesPair_data() {
        QTest::addColumn<QString>("body");
        QTest::addColumn<QString>("told");
        Row("all kinds", u"<p>(a) [b] “c (d [e])”</p>"_qs, QString());
        Row("never closed", u"<p>a</p>\n<p>(b</p>"_qs, u"5: ( without its counterpart"_qs);
        Row("never opened", u"<p>b]</p>"_qs, u"4: ] without its counterpart"_qs);
        Row("crossed", u"<p>(a [b) c]</p>"_qs, u"4: [ without its counterpart"_qs);
        Row("over two paragraphs", u"<p>(a</p>\n<p>and b)</p>"_qs,
            u"4: ( without its counterpart\n5: ) without its counterpart"_qs);
        Row("enumeration", u"<p>a) one<br>12) two</p>"_qs, QString());
        Row("venue", u"<p>REPUBLIC<tab>)<br>_____<tab>) S.S.</p>"_qs, QString());
        Row("venue without tab", u"<p>REPUBLIC )</p>"_qs, u"4: ) without its counterpart"_qs);
        Row("quote never closed", u"<p>the “Lender</p>"_qs, u"4: “ without its counterpart"_qs);
        Row("quotation of several paragraphs", u"<p>“one;</p>\n<p>“two.”</p>"_qs, QString());
        Row("quotation around a table", u"<p>“one:</p><table><tr><td>a</td></tr></table>\n<p>“two.”</p>"_qs,
            QString());
        Row("quotation that never ends", u"<p>“one;</p>\n<p>two.”</p>"_qs,
            u"4: “ without its counterpart\n5: ” without its counterpart"_qs);
        Row("in an item", u"<ol><li>a</li>\n<li>(b</li></ol>"_qs, u"5: ( without its counterpart"_qs);
    }
    void BracketsAndQuotesPair() {
        QFETCH(QString, body);
        QFETCH(QString, told);
        QCOMPARE(Told(CheckBrackets(Texts(body))), told);
    }
};

QTEST_GUILESS_MAIN(ContentRulesTest)
#include "content_rules_test.moc"
