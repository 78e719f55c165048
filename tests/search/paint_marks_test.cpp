#include "search/paint_marks.h"

#include "platform/rich_text/rich_text_box.h"

#include <QtTest>

using namespace quillbrook;
using platform::RichTextBox;

namespace {

SearchTerms TermsOf(const QString& words) {
    SearchTerms terms;
    const QStringList list = words.split(u'|');
    std::copy(list.begin(), list.end(), terms.begin());
    return terms;
}

// The text with the characters that are blue and bold between brackets.
QString Painted(RichTextBox& box) {
    QString painted;
    bool inside = false;
    const QString text = box.Text();
    for (int i = 0; i < text.size(); ++i) {
        box.setSelStart(i);
        box.setSelLength(1);
        const bool isMarked = box.SelColor() == QColor(0, 0, 255) && box.SelBold() == true;
        if (isMarked != inside)
            painted += isMarked ? u'[' : u']';
        inside = isMarked;
        painted += text[i];
    }
    return inside ? painted + u']' : painted;
}

} // namespace

class PaintMarksTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HitsAreBlueAndBold_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("terms");
        QTest::addColumn<QString>("painted");
        QTest::newRow("two terms") << "{\\rtf1 the sale of the deed of sale}"
                                   << "deed|sale"
                                   << "the [sale] of the [deed] of [sale]";
        QTest::newRow("overlapping") << "{\\rtf1 banana}"
                                     << "ana"
                                     << "b[anana]";
        QTest::newRow("one term in another") << "{\\rtf1 the wholesale}"
                                             << "sale|whole"
                                             << "the [wholesale]";
        QTest::newRow("formats within a hit") << "{\\rtf1 a d{\\i ee}{\\fs40 d} here}"
                                              << "deed"
                                              << "a [deed] here";
        QTest::newRow("several paragraphs") << "{\\rtf1 deed\\par sale\\par deed}"
                                            << "deed"
                                            << "[deed]\nsale\n[deed]";
        QTest::newRow("in a table")
            << "{\\rtf1 x\\par\\trowd\\cellx3000\\cellx6000\\intbl deed.\\cell a deed\\cell\\row\\pard y}"
            << "deed"
            << "x\n[deed].\na [deed]\ny";
        QTest::newRow("hidden text within a hit") << "{\\rtf1 a de{\\v ed} here}"
                                                  << "deed"
                                                  << "a [de]ed here";
        QTest::newRow("hidden text around a hit") << "{\\rtf1 a {\\v the deed of} deed}"
                                                  << "deed"
                                                  << "a the deed of [deed]";
        QTest::newRow("no hit") << "{\\rtf1 the sale}"
                                << "lease"
                                << "the sale";
        QTest::newRow("empty") << ""
                               << "lease"
                               << "";
    }
    void HitsAreBlueAndBold() {
        QFETCH(QString, source);
        QFETCH(QString, terms);
        RichTextBox box;
        box.setTextRTF(source);
        PaintMarks(box, MarkForm(box.Text(), TermsOf(terms)).marks);
        QTEST(Painted(box), "painted");
    }

    void MarksStandWhereTheTextSaysAfterTheWayThroughTheSource() {
        RichTextBox rtfContent;
        rtfContent.setTextRTF(QStringLiteral("{\\rtf1 deed\\par\\line a\\tab deed\\par of {\\b deed}\\par}"));
        PaintMarks(rtfContent, MarkForm(rtfContent.Text(), TermsOf(QStringLiteral("deed"))).marks);
        RichTextBox txtContent;
        txtContent.setTextRTF(rtfContent.TextRTF());
        QCOMPARE(Painted(txtContent), Painted(rtfContent));
        QCOMPARE(Painted(txtContent).count(u"[deed]"), 3);
    }

    void TheRestOfTheFormatAndTheSelectionStay() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\f0\\fs40\\i\\ul a deed}"));
        box.setSelStart(1);
        PaintMarks(box, {{2, 4}});
        QCOMPARE(box.SelStart(), 1);
        box.setSelStart(2);
        box.setSelLength(4);
        QCOMPARE(box.SelFontSize(), std::optional<double>(20));
        QCOMPARE(box.SelFontName(), std::optional<QString>(QStringLiteral("Arial")));
        QCOMPARE(box.SelItalic(), std::optional<bool>(true));
        QCOMPARE(box.SelUnderline(), std::optional<bool>(true));
    }

    void AllMarksAreOneChange() {
        RichTextBox box;
        box.setText(QStringLiteral("deed deed deed"));
        QSignalSpy changes(&box, &RichTextBox::Change);
        PaintMarks(box, MarkForm(box.Text(), TermsOf(QStringLiteral("deed"))).marks);
        QCOMPARE(changes.count(), 1);
        PaintMarks(box, {});
        QCOMPARE(changes.count(), 1);
    }

    void RangesBeyondTheEndAreCutOff() {
        RichTextBox box;
        box.setText(QStringLiteral("a deed"));
        PaintMarks(box, {{4, 100}, {200, 5}});
        QCOMPARE(Painted(box), QStringLiteral("a de[ed]"));
    }
};

QTEST_MAIN(PaintMarksTest)
#include "paint_marks_test.moc"
