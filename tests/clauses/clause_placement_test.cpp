#include "clauses/clause_placement.h"

#include <QtTest>

using namespace quillbrook;

namespace {

// A pane of plain text.
struct Pane {
    QString text;
    int start = 0;
    int length = 0;

    QString Text() const { return text; }
    void setText(const QString& value) { text = value; }
    void setSelStart(int value) {
        start = value;
        length = 0;
    }
    void setSelLength(int value) { length = value; }
    void setSelText(const QString& value) {
        text.replace(start, length, value);
        start += int(value.size());
        length = 0;
    }
};

const QString kMarker = u"(JURAT)"_qs;
const QString kClause = u"SUBSCRIBED\nAND SWORN"_qs;

// As a command does it: both panes are made ready, one of them is the active one.
void Insert(Pane& active, Pane& other, const QString& clause) {
    PreparePane(active);
    PreparePane(other);
    InsertClause(active, kMarker, clause);
}

} // namespace

class ClausePlacementTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OnlyAnEmptyPaneIsGivenTwoBlanks_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("prepared");
        QTest::newRow("empty") << QString() << true;
        QTest::newRow("one blank") << u" "_qs << true;
        QTest::newRow("two blanks") << u"  "_qs << false;
        QTest::newRow("one character") << u"x"_qs << false;
        QTest::newRow("a line end") << u"\n"_qs << false;
        QTest::newRow("a tab") << u"\t"_qs << false;
        QTest::newRow("a no-break space") << u"\u00A0"_qs << false;
        QTest::newRow("a text") << u"Affidavit"_qs << false;
    }
    void OnlyAnEmptyPaneIsGivenTwoBlanks() {
        QFETCH(QString, text);
        QFETCH(bool, prepared);
        QCOMPARE(PreparedText(text), prepared ? std::optional(u"  "_qs) : std::nullopt);
    }

    void ClausesGoInPlaceOfTheMarkerOrToTheEnd_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("marker");
        QTest::addColumn<int>("start"); // -1: nothing is inserted
        QTest::addColumn<int>("length");
        const auto row = [](const char* name, const QString& text, const QString& marker, int start,
                            int length) { QTest::newRow(name) << text << marker << start << length; };
        row("no text", QString(), kMarker, -1, 0);
        row("one character", u"x"_qs, kMarker, -1, 0);
        row("one character that is the marker", u"x"_qs, u"x"_qs, -1, 0);
        row("two blanks", u"  "_qs, kMarker, 2, 0);
        row("no marker", u"I swear."_qs, kMarker, 8, 0);
        row("behind a line end", u"I swear.\n"_qs, kMarker, 9, 0);
        row("marker alone", u"(JURAT)"_qs, kMarker, 0, 7);
        row("marker at the end", u"I swear.\n(JURAT)"_qs, kMarker, 9, 7);
        row("marker in a word", u"x(JURAT)y"_qs, kMarker, 1, 7);
        row("the first of two", u"(JURAT) (JURAT)"_qs, kMarker, 0, 7);
        row("small letters", u"a (jurat) b"_qs, kMarker, 2, 7);
        row("mixed letters", u"a (JuRat) b"_qs, kMarker, 2, 7);
        row("marker asked for in small letters", u"a (JURAT) b"_qs, u"(jurat)"_qs, 2, 7);
        row("another entry's marker", u"(ACKNOWLEDGMENT)"_qs, kMarker, 16, 0);
        row("without brackets", u"JURAT"_qs, kMarker, 5, 0);
        row("blanks within", u"( JURAT )"_qs, kMarker, 9, 0);
        row("cut by a line end", u"(JU\nRAT)"_qs, kMarker, 8, 0);
        row("the longest marker", u"1 (Certification of Non-Forum Shopping)"_qs,
            u"(CERTIFICATION OF NON-FORUM SHOPPING)"_qs, 2, 37);
        row("sharp s does not move the place", u"Stra\u00DFe \uFB01 (jurat)"_qs, kMarker, 9, 7);
        row("characters of two units count twice", u"\U0001F58B (JURAT)"_qs, kMarker, 3, 7);
        row("no marker asked for", u"I swear."_qs, QString(), 0, 0);
    }
    void ClausesGoInPlaceOfTheMarkerOrToTheEnd() {
        QFETCH(QString, text);
        QFETCH(QString, marker);
        QFETCH(int, start);
        QFETCH(int, length);
        const auto expected =
            start < 0 ? std::nullopt : std::optional<ClausePlace>(ClausePlace{start, length});
        QCOMPARE(PlaceOfClause(text, marker), expected);
    }

    void ClausesAreInserted_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("otherBefore");
        QTest::addColumn<QString>("otherAfter");
        const QString text = u"text"_qs;
        QTest::newRow("no form open") << QString() << QString(u"  "_qs + kClause) << QString() << u"  "_qs;
        QTest::newRow("the other pane has a form")
            << QString() << QString(u"  "_qs + kClause) << text << text;
        QTest::newRow("one blank") << u" "_qs << QString(u"  "_qs + kClause) << u" "_qs << u"  "_qs;
        QTest::newRow("one character") << u"x"_qs << u"x"_qs << QString() << u"  "_qs;
        QTest::newRow("at the end") << text << QString(text + kClause) << text << text;
        QTest::newRow("in place") << u"a (jurat)\nb"_qs << QString(u"a "_qs + kClause + u"\nb"_qs) << text
                                  << text;
        QTest::newRow("the other pane's marker stays")
            << text << QString(text + kClause) << kMarker << kMarker;
    }
    void ClausesAreInserted() {
        QFETCH(QString, before);
        QFETCH(QString, otherBefore);
        Pane active{before}, other{otherBefore};
        active.setSelStart(int(before.size()) / 2); // where the caret was plays no part
        Insert(active, other, kClause);
        QTEST(active.text, "after");
        QTEST(other.text, "otherAfter");
    }

    void RepeatedCommandsFillThePlacesInTurn() {
        Pane pane{u"1 (JURAT) 2 (JURAT) 3"_qs}, other{u"other"_qs};
        Insert(pane, other, u"A"_qs);
        QCOMPARE(pane.text, u"1 A 2 (JURAT) 3"_qs);
        Insert(pane, other, u"B"_qs);
        QCOMPARE(pane.text, u"1 A 2 B 3"_qs);
        Insert(pane, other, u"C"_qs);
        QCOMPARE(pane.text, u"1 A 2 B 3C"_qs);
    }

    void AMissingClauseTakesTheMarkerAway() {
        Pane pane{u"a (JURAT) b"_qs}, other{u"other"_qs};
        Insert(pane, other, QString());
        QCOMPARE(pane.text, u"a  b"_qs);
        Insert(pane, other, QString());
        QCOMPARE(pane.text, u"a  b"_qs);
    }

    void WhatWasSelectedStays() {
        Pane pane{u"selected"_qs}, other{u"other"_qs};
        pane.setSelStart(0);
        pane.setSelLength(8);
        Insert(pane, other, u"!"_qs);
        QCOMPARE(pane.text, u"selected!"_qs);
        pane.setSelStart(0);
        pane.setSelLength(8);
        InsertClauseAt(pane, PlaceOfCaption(), u"^"_qs);
        QCOMPARE(pane.text, u"^selected!"_qs);
    }

    void CaptionsGoOnTop_data() {
        QTest::addColumn<QString>("before");
        QTest::newRow("empty") << QString();
        QTest::newRow("one blank") << u" "_qs;
        QTest::newRow("one character") << u"x"_qs;
        QTest::newRow("a text with a marker") << u"a\n(JURAT)"_qs;
        QTest::newRow("another caption") << u"Court\nof Appeals"_qs;
    }
    void CaptionsGoOnTop() {
        QFETCH(QString, before);
        Pane pane{before};
        pane.setSelStart(int(before.size()));
        InsertClauseAt(pane, PlaceOfCaption(), u"Supreme Court"_qs);
        QCOMPARE(pane.text, QString(u"Supreme Court"_qs + before));
    }
};

QTEST_GUILESS_MAIN(ClausePlacementTest)
#include "clause_placement_test.moc"
