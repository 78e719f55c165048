#include <QTest>
#include <QTextDocument>

#include "platform/rich_text/rtf_reader.h"
#include "rtf_conformance/shown_text.h"

using namespace quillbrook;

namespace {

QByteArray Source(const char* body) {
    return QByteArray("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1\\fcharset2 Symbol;}}\\f0 ") + body + "}";
}

} // namespace

class ShownTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ShowsWhatOtherProgramsExport_data();
    void ShowsWhatOtherProgramsExport();
    void FoldsBlanksAndBullets_data();
    void FoldsBlanksAndBullets();
    void ComputedTextMayDiffer_data();
    void ComputedTextMayDiffer();
    void WhatIsNotComputedMustAgree_data();
    void WhatIsNotComputedMustAgree();
};

void ShownTextTest::ShowsWhatOtherProgramsExport_data() {
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("text");
    QTest::newRow("paragraphs") << Source("one\\par two\\par") << u"one two"_qs;
    QTest::newRow("number of an item")
        << Source("{\\pntext 3.\\tab}{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}item\\par") << u"3. item"_qs;
    QTest::newRow("bullet") << Source("{\\pntext -\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb -}}item\\par")
                            << u"item"_qs;
    QTest::newRow("notes") << Source("a{\\footnote x} b{\\footnote\\ftnalt y} c{\\footnote z}\\par")
                           << u"a1 bi c2"_qs;
    QTest::newRow("hidden text") << Source("seen{\\v hidden}\\par") << u"seenhidden"_qs;
    QTest::newRow("symbol font") << Source("a {\\f1 bc}d\\par") << u"a d"_qs;
}

void ShownTextTest::ShowsWhatOtherProgramsExport() {
    QFETCH(QByteArray, source);
    QFETCH(QString, text);
    const auto document = platform::ReadRtf(source);
    QVERIFY(document);
    QCOMPARE(FoldedText(ShownText(*document)), text);
}

void ShownTextTest::FoldsBlanksAndBullets_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("folded");
    QTest::newRow("blanks of all kinds") << u" a \t\n b\u00A0\u2028c\r\n"_qs << u"a b c"_qs;
    QTest::newRow("bullet") << u"\u2022 a \uF0B7 b"_qs << u"a b"_qs;
    QTest::newRow("soft hyphen and object") << u"a\u00ADb\uFFFCc"_qs << u"abc"_qs;
    QTest::newRow("hyphen that does not break") << u"a\u2011b"_qs << u"a-b"_qs;
    QTest::newRow("directions") << u"\u200Ea\u200Fb"_qs << u"ab"_qs;
    QTest::newRow("nothing") << u" \n"_qs << QString();
}

void ShownTextTest::FoldsBlanksAndBullets() {
    QFETCH(QString, text);
    QFETCH(QString, folded);
    QCOMPARE(FoldedText(text), folded);
}

void ShownTextTest::ComputedTextMayDiffer_data() {
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("theirs");
    const QByteArray date = Source("Made on {\\field{\\*\\fldinst DATE}{\\fldrslt 1/1/99}} here\\par");
    QTest::newRow("a date") << date << u"Made on 11/20/2026 here"_qs;
    QTest::newRow("no date") << date << u"Made on here"_qs;
    QTest::newRow("note") << Source("a{\\footnote x} b\\par") << u"a0 b"_qs;
    const QByteArray item =
        Source("one\\par {\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pndec}two\\par three\\par");
    QTest::newRow("another number") << item << u"one 2. two three"_qs;
    QTest::newRow("no number") << item << u"one two three"_qs;
    QTest::newRow("a number more") << item << u"one 1) two ii. three"_qs;
}

void ShownTextTest::ComputedTextMayDiffer() {
    QFETCH(QByteArray, source);
    QFETCH(QString, theirs);
    const auto document = platform::ReadRtf(source);
    QCOMPARE(TextDifference(ShownText(*document), theirs, ComputedResults::MayDiffer), QString());
    QVERIFY(!TextDifference(ShownText(*document), theirs, ComputedResults::MustAgree).isEmpty());
}

void ShownTextTest::WhatIsNotComputedMustAgree_data() {
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("theirs");
    QTest::newRow("other word") << Source("one two\\par") << u"one too"_qs;
    QTest::newRow("text lost at the end") << Source("one\\par two\\par") << u"one"_qs;
    QTest::newRow("text more at the end") << Source("one\\par") << u"one two"_qs;
    QTest::newRow("text more in front") << Source("one\\par") << u"zero one"_qs;
    QTest::newRow("paragraphs run together") << Source("one\\par two\\par") << u"onetwo"_qs;
    QTest::newRow("a long text for a date")
        << Source("on {\\field{\\*\\fldinst DATE}{\\fldrslt 1}} here\\par")
        << u"on "_qs + QString(100, u'x') + u" here"_qs;
    QTest::newRow("link's text")
        << Source("on {\\field{\\*\\fldinst HYPERLINK \"http://a\"}{\\fldrslt site}} here\\par")
        << u"on sight here"_qs;
}

void ShownTextTest::WhatIsNotComputedMustAgree() {
    QFETCH(QByteArray, source);
    QFETCH(QString, theirs);
    const auto document = platform::ReadRtf(source);
    QVERIFY(!TextDifference(ShownText(*document), theirs, ComputedResults::MayDiffer).isEmpty());
    QVERIFY(!TextDifference(ShownText(*document), theirs, ComputedResults::MustAgree).isEmpty());
}

QTEST_MAIN(ShownTextTest)
#include "shown_text_test.moc"
