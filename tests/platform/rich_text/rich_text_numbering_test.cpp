// The numbers of lists: as text, and counted again when paragraphs come and go.
#include "platform/rich_text/rich_text_numbering.h"

#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include "platform/rich_text/rich_text_box.h"
#include "tests/platform/rich_text/selections.h"

using namespace rich_text_selections;
using platform::ListKinds;
using platform::RichTextBox;

namespace {

// A document with one paragraph for each marker; "-" is one of no list, a marker behind '>' is of a second
// list.
QString Source(const QString& markers) {
    QString source = QStringLiteral("{\\rtf1 ");
    for (const QString& marker : markers.split(u' ')) {
        if (marker == QLatin1String("-")) {
            source += QStringLiteral("\\pard text\\par ");
            continue;
        }
        const bool second = marker.startsWith(u'>');
        source += QStringLiteral("\\pard\\fi-360\\li720\\ls%1{\\listtext %2\\tab}text\\par ")
                      .arg(second ? 2 : 1)
                      .arg(second ? marker.mid(1) : marker);
    }
    return source + u'}';
}

// A list of three paragraphs in the older form, each of which tells its number.
QString OlderSource() {
    QString source = QStringLiteral("{\\rtf1 ");
    for (int i = 1; i <= 3; ++i)
        source +=
            QStringLiteral("\\pard\\fi-360\\li720{\\pntext %1.\\tab}{\\*\\pn\\pnlvlbody\\pndec\\pnstart%1"
                           "{\\pntxta .}}text\\par ")
                .arg(i);
    return source + u'}';
}

QString Markers(const RichTextBox& box) {
    QStringList markers;
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
        const QString marker = block.blockFormat().stringProperty(platform::BulletText);
        const bool second = block.blockFormat().intProperty(platform::ListOverride) == 2;
        markers.append(marker.isEmpty() ? QStringLiteral("-") : (second ? u'>' + marker : marker));
    }
    return markers.join(u' ');
}

constexpr int kParagraph = 5; // characters of each

} // namespace

class RichTextNumberingTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NumbersAndTheirTexts_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("text");
        const auto row = [](ListKinds kind, int number, const char* text) {
            QTest::newRow(text) << int(kind) << number << QString::fromLatin1(text);
        };
        row(ListKinds::Decimal, 1, "1");
        row(ListKinds::Decimal, 120, "120");
        row(ListKinds::LowerLetter, 1, "a");
        row(ListKinds::LowerLetter, 26, "z");
        row(ListKinds::LowerLetter, 27, "aa");
        row(ListKinds::UpperLetter, 54, "BBB");
        row(ListKinds::LowerRoman, 4, "iv");
        row(ListKinds::LowerRoman, 1999, "mcmxcix");
        row(ListKinds::UpperRoman, 9, "IX");
    }
    void NumbersAndTheirTexts() {
        QFETCH(int, kind);
        QFETCH(int, number);
        QFETCH(QString, text);
        QCOMPARE(platform::ListNumberText(number, static_cast<ListKinds>(kind)), text);
        QCOMPARE(platform::ListNumberOf(text, static_cast<ListKinds>(kind)).value_or(-1), number);
    }

    void WhatIsNoNumberHasNone_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        const auto row = [](ListKinds kind, const char* text) {
            QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(int(kind)).arg(QLatin1String(text))))
                << int(kind) << QString::fromLatin1(text);
        };
        row(ListKinds::Decimal, "");
        row(ListKinds::Decimal, "1a");
        row(ListKinds::Decimal, "99999999999");
        row(ListKinds::LowerLetter, "ab");
        row(ListKinds::LowerLetter, "A");
        row(ListKinds::UpperRoman, "IIII");
        row(ListKinds::LowerRoman, "vx");
        row(ListKinds::Bullet, "1");
    }
    void WhatIsNoNumberHasNone() {
        QFETCH(int, kind);
        QFETCH(QString, text);
        QVERIFY(!platform::ListNumberOf(text, static_cast<ListKinds>(kind)));
    }

    void EnterCountsOn_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("paragraph"); // at whose end Enter is pressed
        QTest::addColumn<QString>("after");
        const auto row = [](const char* name, const char* before, int paragraph, const char* after) {
            QTest::newRow(name) << QString::fromLatin1(before) << paragraph << QString::fromLatin1(after);
        };
        row("last", "1. 2.", 1, "1. 2. 3.");
        row("middle", "1. 2. 3. 4.", 1, "1. 2. 3. 4. 5.");
        row("only", "7.", 0, "7. 8.");
        row("brackets", "(a) (b) (c)", 0, "(a) (b) (c) (d)");
        row("letter i", "h. i. j.", 1, "h. i. j. k.");
        row("roman i", "i. ii.", 0, "i. ii. iii.");
        row("roman v", "IV. V. VI.", 1, "IV. V. VI. VII.");
        row("letter c", "a) b) c)", 2, "a) b) c) d)");
        row("upper letters", "A. B.", 1, "A. B. C.");
        row("over text between", "1. 2. - 3. 4.", 0, "1. 2. 3. - 4. 5.");
        row("a list within", "1. >a. >b. 2.", 1, "1. >a. >b. >c. 2.");
        row("over a list within", "1. >a. >b. 2. 3.", 3, "1. >a. >b. 2. 3. 4.");
        row("a list that begins again", "1. 2. 3. 1. 2.", 1, "1. 2. 3. 4. 1. 2.");
        row("parts of numbers", "1.1 1.2", 0, "1.1 1.2 1.3");
    }
    void EnterCountsOn() {
        QFETCH(QString, before);
        QFETCH(int, paragraph);
        QFETCH(QString, after);
        RichTextBox box;
        box.setTextRTF(Source(before));
        QCOMPARE(Markers(box), before);
        box.setSelStart(kParagraph * paragraph + kParagraph - 1);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(Markers(box), after);
        QCOMPARE(changes.count(), 1);
        const auto state = box.Snapshot();
        box.setSnapshot(state);
        QCOMPARE(Markers(box), after);
        QVERIFY(box.Snapshot() == state);
    }

    void EnterInAnEmptyItemGivesItsNumberBack() {
        RichTextBox box;
        box.setTextRTF(Source(QStringLiteral("1. 2. 3.")));
        box.setSelStart(2 * kParagraph - 1);
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(Markers(box), QStringLiteral("1. 2. 3. 4."));
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(Markers(box), QStringLiteral("1. 2. - 3."));
    }

    void DeletedItemsCloseTheGap_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("after");
        const auto row = [](const char* name, const char* before, int first, int count, const char* after) {
            QTest::newRow(name) << QString::fromLatin1(before) << first << count
                                << QString::fromLatin1(after);
        };
        row("one", "1. 2. 3. 4.", 1, 1, "1. 2. 3.");
        row("several", "1. 2. 3. 4. 5.", 1, 3, "1. 2.");
        row("the first", "1. 2. 3.", 0, 1, "1. 2.");
        row("romans", "i. ii. iii. iv.", 0, 2, "i. ii.");
        row("a gap that was there", "1. 2. 9. 10.", 0, 1, "1. 9. 10.");
        row("with a list within", "1. >a. >b. 2. 3.", 3, 1, "1. >a. >b. 2.");
    }
    void DeletedItemsCloseTheGap() {
        QFETCH(QString, before);
        QFETCH(int, first);
        QFETCH(int, count);
        QFETCH(QString, after);
        RichTextBox box;
        box.setTextRTF(Source(before));
        box.setSelStart(kParagraph * first);
        box.setSelLength(kParagraph * count);
        QTest::keyClick(&box, Qt::Key_Delete);
        QCOMPARE(Markers(box), after);
    }

    void TypingInAnItemLeavesTheNumbers() {
        RichTextBox box;
        box.setTextRTF(Source(QStringLiteral("1. 1. 5. 6.")));
        box.setSelStart(kParagraph + 1);
        QTest::keyClicks(&box, QStringLiteral("xyz"));
        box.setSelBold(true);
        QCOMPARE(Markers(box), QStringLiteral("1. 1. 5. 6."));
    }

    void ListsOfTheOlderFormCountOnToo() {
        RichTextBox box;
        box.setTextRTF(OlderSource());
        box.setSelStart(kParagraph - 1);
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(Markers(box), QStringLiteral("1. 2. 3. 4."));
        const QString written = box.TextRTF();
        QVERIFY(written.contains(QStringLiteral("\\pnstart4")));
    }

    void ALongListIsCountedAgainAtOnce() {
        const auto layouts = [](int items) -> qsizetype {
            QStringList markers;
            for (int i = 1; i <= items; ++i)
                markers.append(QStringLiteral("%1.").arg(i));
            RichTextBox box;
            box.setTextRTF(Source(markers.join(u' ')));
            const QSignalSpy changes(box.document(), &QTextDocument::contentsChange);
            QTest::keyClick(&box, Qt::Key_Return);
            markers.append(QStringLiteral("%1.").arg(items + 1));
            return Markers(box) == markers.join(u' ') ? changes.size() : 0;
        };
        QVERIFY(layouts(3) > 0);
        QCOMPARE(layouts(40), layouts(3));
    }

    void ConvertedTextKeepsItsNumbers_data() {
        QTest::addColumn<QString>("markers");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("length");
        QTest::newRow("two of three") << QStringLiteral("1. 2. 3.") << 0 << 9;
        QTest::newRow("one with its end") << QStringLiteral("1. 2. 3.") << kParagraph << kParagraph;
        QTest::newRow("parts of two") << QStringLiteral("1. 2. 3.") << 2 << kParagraph;
        QTest::newRow("a list that begins at two") << QStringLiteral("2. 3. 4.") << 1 << 2;
        QTest::newRow("all of it") << QStringLiteral("2. 3. 4.") << 0 << 14;
    }
    void ConvertedTextKeepsItsNumbers() {
        QFETCH(QString, markers);
        QFETCH(int, start);
        QFETCH(int, length);
        RichTextBox box;
        box.setTextRTF(Source(markers));
        const QString before = Markers(box);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        Select(box, start, length);
        ConvertToUpper(box);
        QCOMPARE(Markers(box), before);
        QCOMPARE(changes.size(), 1);
        RichTextBox other;
        other.setTextRTF(box.TextRTF());
        QCOMPARE(Markers(other), before);
    }

    void ConvertedTextKeepsNumbersThatEachTellTheirOwn() {
        RichTextBox box;
        box.setTextRTF(OlderSource());
        const QString before = Markers(box);
        Select(box, 0, 9);
        ConvertToUpper(box);
        QCOMPARE(Markers(box), before);
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\pnstart2")));
    }
};

QTEST_MAIN(RichTextNumberingTest)
#include "rich_text_numbering_test.moc"
