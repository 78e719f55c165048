// What a clause looks like where it lands: the characters and paragraphs of its place, and nothing else
// changes.
#include "clauses/clause_commands.h"

#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_clauses.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::RichTextBox;

namespace {

const QString kForm = u"first\nsecond\n(JURAT)\nfourth\nlast"_qs;
constexpr int kCentred = 2;
constexpr int kIndent = 720;

void Select(RichTextBox* pane, qsizetype start, qsizetype length) {
    pane->setSelStart(int(start));
    pane->setSelLength(int(length));
}

} // namespace

class ClauseFormatTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheClauseTakesOnTheFormatOfItsPlace_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("clause");
        QTest::addColumn<QString>("place"); // what has the format that the clause takes on
        QTest::newRow("in place") << u"mnuJuratIndividual"_qs << TestClause(ClauseRoutine::InsertJurat, "1")
                                  << u"(JURAT)"_qs;
        QTest::newRow("at the end") << u"mnuAddVerificationIndividual"_qs
                                    << TestClause(ClauseRoutine::InsertVerification, "1") << u"last"_qs;
        QTest::newRow("on top") << u"mnuCaptionSC"_qs << TestClause(ClauseRoutine::InsertCaption, "1")
                                << u"first"_qs;
    }
    void TheClauseTakesOnTheFormatOfItsPlace() {
        QFETCH(QString, name);
        QFETCH(QString, clause);
        QFETCH(QString, place);
        TestWindow window;
        QVERIFY(AddTestClauses(*window->Variables().FormsDb));
        RichTextBox* pane = window->txtContent();
        pane->setText(kForm);
        Select(pane, kForm.indexOf(place), place.size());
        pane->setSelBold(true);
        pane->setSelFontSize(17);
        pane->setSelColor(Qt::blue);
        pane->setSelAlignment(kCentred);
        pane->setSelIndent(kIndent);
        const int paragraphs = pane->document()->blockCount();
        window->Menu(name)->trigger();

        QCOMPARE(pane->document()->blockCount(), paragraphs + 1); // a clause of two lines
        Select(pane, pane->Text().indexOf(clause), clause.size());
        QCOMPARE(pane->SelText(), clause);
        QCOMPARE(pane->SelBold(), std::optional(true));
        QCOMPARE(pane->SelFontSize(), std::optional(17.0));
        QCOMPARE(pane->SelColor(), std::optional(QColor(Qt::blue)));
        QCOMPARE(pane->SelAlignment(), std::optional(kCentred));
        QCOMPARE(pane->SelIndent(), std::optional(kIndent));
        for (const QString& other : kForm.split(u'\n')) {
            if (other == place)
                continue;
            const qsizetype at = pane->Text().indexOf(other);
            QVERIFY2(at >= 0, qPrintable(other));
            Select(pane, at, other.size());
            QCOMPARE(pane->SelBold(), std::optional(false));
            QVERIFY(pane->SelFontSize() != std::optional(17.0));
            QVERIFY(pane->SelColor() != std::optional(QColor(Qt::blue)));
            QCOMPARE(pane->SelAlignment(), std::optional(0));
            QCOMPARE(pane->SelIndent(), std::optional(0));
        }
    }

    void AMarkerOfSeveralFormatsIsReplacedWhole() {
        TestWindow window;
        QVERIFY(AddTestClauses(*window->Variables().FormsDb));
        RichTextBox* pane = window->txtContent();
        pane->setText(u"a (JURAT) b"_qs);
        Select(pane, 2, 3);
        pane->setSelBold(true);
        Select(pane, 5, 2);
        pane->setSelFontSize(17);
        window->Menu(u"mnuJuratIndividual"_qs)->trigger();
        const QString clause = TestClause(ClauseRoutine::InsertJurat, "1");
        QCOMPARE(pane->Text(), u"a %1 b"_qs.arg(clause));
        Select(pane, 2, clause.size());
        QCOMPARE(pane->SelBold(), std::optional(true)); // as the marker begins
        QVERIFY(pane->SelFontSize() && pane->SelFontSize() != std::optional(17.0));
    }
};

QTEST_MAIN(ClauseFormatTest)
#include "clause_format_test.moc"
