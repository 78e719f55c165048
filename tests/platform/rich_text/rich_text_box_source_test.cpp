// The rich text box's content and selection as rich text source.
#include "platform/rich_text/rich_text_box.h"

#include <QSignalSpy>
#include <QTest>

#include "platform/rich_text/rtf_writer.h"
#include "tests/platform/rich_text/random_document.h"

using platform::RichTextBox;
using platform::RtfSnapshot;

namespace {

const QString kForm = QStringLiteral(
    "{\\rtf1\\ansi\\deff1{\\fonttbl{\\f0\\froman Times New Roman;}{\\f1\\fswiss Arial;}}"
    "{\\colortbl;\\red0\\green0\\blue255;}\\paperw12240\\margl1800"
    "\\pard\\qc\\f0\\fs28\\b DEED OF SALE\\b0\\par\\pard\\qj\\fi720 The \\i seller\\i0  "
    "\\u8220?sells\\u8221?\\par"
    "\\pard\\fi-360\\li720{\\pntext\\u8226?\\tab}{\\*\\pn\\pnlvlblt\\pnindent360{\\pntxtb\\u8226?}}a "
    "thing\\par"
    "\\pard\\trowd\\trgaph108\\cellx3000\\cellx6000\\intbl left\\cell\\cf1 right\\cell\\row\\pard end\\par}");

} // namespace

class RichTextBoxSourceTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheSourceOfAFormIsTheSameDocumentAgain() {
        RichTextBox box;
        QVERIFY(box.setTextRTF(kForm));
        const QString text = box.Text();
        const QString source = box.TextRTF();
        QVERIFY(text.startsWith(QStringLiteral("DEED OF SALE\nThe seller \u201Csells\u201D\na thing\n")));
        QVERIFY(source.startsWith(QStringLiteral("{\\rtf1")));
        RichTextBox other;
        QVERIFY(other.setTextRTF(source));
        QCOMPARE(other.Text(), text);
        QCOMPARE(other.TextRTF(), source);
        QCOMPARE(other.SelStart(), 0);
    }

    void TheSourceIsSevenBit() {
        RichTextBox box;
        box.setText(QStringLiteral("\u00F1\u20B1\U0001F58B"));
        for (const QChar character : box.TextRTF())
            QVERIFY(character.unicode() < 0x80);
    }

    void TheDefaultFontIsKept() {
        RichTextBox box;
        box.setTextRTF(kForm);
        QVERIFY(box.TextRTF().contains(QStringLiteral("\\deff1")));
        box.setTextRTF(QStringLiteral("{\\rtf1\\deff1{\\fonttbl{\\f0 Arial;}{\\f1 Georgia;}}x}"));
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
    }

    void BytesAndCharactersAreTheSameSource() {
        RichTextBox bytes;
        RichTextBox characters;
        bytes.setTextRTF(kForm.toLatin1());
        characters.setTextRTF(kForm);
        QCOMPARE(bytes.TextRTF(), characters.TextRTF());
    }

    void PlainTextIsTakenForASource() {
        RichTextBox box;
        QVERIFY(box.setTextRTF(QStringLiteral("no markup\nat \u00E1ll")));
        QCOMPARE(box.Text(), QStringLiteral("no markup\nat \u00E1ll"));
    }

    void ATruncatedSourceGivesWhatStandsBeforeTheCut() {
        RichTextBox box;
        QVERIFY(box.setTextRTF(kForm.left(kForm.indexOf(QStringLiteral("The ")) + 4)));
        QCOMPARE(box.Text().trimmed(), QStringLiteral("DEED OF SALE\nThe"));
    }

    void ALineEndAtTheEndIsNoEmptyParagraph() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 a\\par}"));
        QCOMPARE(box.Text(), QStringLiteral("a"));
        box.setTextRTF(QStringLiteral("{\\rtf1 a\\par\\par}"));
        QCOMPARE(box.Text(), QStringLiteral("a\n"));
    }

    void ASnapshotIsTheSource() {
        RichTextBox box;
        box.setTextRTF(kForm);
        QCOMPARE(box.Snapshot().Join(), box.TextRTF().toLatin1());
        QCOMPARE(box.Snapshot().Join(), platform::WriteRtf(*box.document()));
    }

    void EachStateComesBackExactly() {
        RichTextBox box;
        box.setTextRTF(kForm);
        std::vector<RtfSnapshot> states{box.Snapshot()};
        const auto note = [&] { states.push_back(box.Snapshot()); };
        box.setSelStart(20);
        QTest::keyClicks(&box, QStringLiteral("x"));
        note();
        QTest::keyClick(&box, Qt::Key_Return);
        note();
        box.setSelLength(9);
        box.setSelBold(true);
        note();
        box.setSelColor(QColor(200, 10, 10));
        note();
        box.setSelFontName(QStringLiteral("Georgia"));
        box.setSelFontSize(9);
        note();
        box.setSelAlignment(1);
        note();
        box.setSelBullet(true);
        box.setSelHangingIndent(350);
        note();
        box.setSelRTF(kForm);
        note();
        box.setSelStart(0);
        box.setSelLength(30);
        box.setSelText(QStringLiteral("UPPER\ncase"));
        note();
        box.selectAll();
        box.setSelText(QString());
        note();
        for (std::size_t i = states.size(); i-- > 0;) {
            QVERIFY(box.setSnapshot(states[i]));
            QCOMPARE(QString::fromLatin1(box.Snapshot().Join()), QString::fromLatin1(states[i].Join()));
            QVERIFY(box.Snapshot() == states[i]);
        }
    }

    void RandomDocumentsComeBackExactly_data() {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 40; ++seed)
            QTest::addRow("%u", seed) << seed;
    }
    void RandomDocumentsComeBackExactly() {
        QFETCH(quint32, seed);
        platform::RandomDocument random(seed);
        const auto document = random.Document(40);
        RichTextBox box;
        QVERIFY(box.setTextRTF(platform::WriteRtf(*document)));
        const RtfSnapshot state = box.Snapshot();
        box.setText(QStringLiteral("other"));
        QVERIFY(box.setSnapshot(state));
        QCOMPARE(QString::fromLatin1(box.Snapshot().Join()), QString::fromLatin1(state.Join()));
    }

    void RandomEditsGoBackAndForthExactly_data() {
        QTest::addColumn<quint32>("seed");
        for (quint32 seed = 1; seed <= 30; ++seed)
            QTest::addRow("%u", seed) << seed;
    }
    void RandomEditsGoBackAndForthExactly() {
        QFETCH(quint32, seed);
        platform::RandomDocument random(seed);
        RichTextBox box;
        QVERIFY(box.setTextRTF(platform::WriteRtf(*random.Document(30))));
        std::vector<RtfSnapshot> states{box.Snapshot()};
        std::vector<QString> texts{box.Text()};
        for (int i = 0; i < 12; ++i) {
            random.Edit(*box.document());
            // a state that was typed is first read once, as its tables and lists get their place in the file
            // then
            QVERIFY(box.setTextRTF(box.Snapshot().Join()));
            states.push_back(box.Snapshot());
            texts.push_back(box.Text());
        }
        for (int i = 0; i < 40; ++i) {
            const auto step = static_cast<std::size_t>(random.Below(int(states.size())));
            const QSignalSpy changes(&box, &RichTextBox::Change);
            QVERIFY(box.setSnapshot(states[step]));
            QCOMPARE(changes.count(), 1);
            QCOMPARE(QString::fromLatin1(box.Snapshot().Join()), QString::fromLatin1(states[step].Join()));
            QCOMPARE(QString::fromLatin1(platform::WriteRtf(*box.document())),
                     QString::fromLatin1(states[step].Join()));
            QCOMPARE(box.Text(), texts[step]);
        }
    }

    void FieldsThatNowTouchComeBackAsTheyWere() {
        const auto field = [](const char* name, const char* text) {
            return QStringLiteral("{\\field{\\*\\fldinst REF %1}{\\fldrslt %2}}")
                .arg(QLatin1String(name), QLatin1String(text));
        };
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 ") + field("one", "first") + QStringLiteral(" and ") +
                       field("two", "second") + QStringLiteral(" end\\par}"));
        box.setSelStart(4);
        box.setSelText(QStringLiteral("\n")); // the first field goes on in the next paragraph
        box.setSelStart(7);
        box.setSelLength(4);
        box.setSelText(QString());
        box.setSelStart(1);
        box.setSelRTF(QStringLiteral("{\\rtf1 x}"));
        const RtfSnapshot state = box.Snapshot();
        box.setText(QStringLiteral("other"));
        box.setSnapshot(state);
        QCOMPARE(QString::fromLatin1(box.Snapshot().Join()), QString::fromLatin1(state.Join()));
    }

    void AnEmptyStateComesBackWithItsOwnFont() {
        RichTextBox box;
        box.setSelFontName(QStringLiteral("Georgia"));
        box.setSelFontSize(12);
        const RtfSnapshot empty = box.Snapshot();
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs40 text}"));
        box.setSnapshot(empty);
        QCOMPARE(box.Snapshot().Join(), empty.Join());
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
        QTest::keyClicks(&box, QStringLiteral("x"));
        const RtfSnapshot typed = box.Snapshot();
        box.setSnapshot(empty);
        QCOMPARE(box.Snapshot().Join(), empty.Join());
        box.setSnapshot(typed);
        QCOMPARE(box.Snapshot().Join(), typed.Join());
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
    }

    void ASmallDifferenceChangesTheDocumentInPlace() {
        RichTextBox box;
        box.setTextRTF(kForm);
        const RtfSnapshot before = box.Snapshot();
        box.setSelStart(18);
        QTest::keyClicks(&box, QStringLiteral("xyz"));
        QTest::keyClick(&box, Qt::Key_Return);
        const RtfSnapshot after = box.Snapshot();
        const QTextDocument* const document = box.document();
        box.setSnapshot(before);
        QCOMPARE(box.Snapshot().Join(), before.Join());
        box.setSnapshot(after);
        QCOMPARE(box.Snapshot().Join(), after.Join());
        QCOMPARE(box.document(), document);
        QVERIFY(!document->isUndoAvailable());
    }

    void ASnapshotPutsTheCaretBehindWhatItChanges() {
        RichTextBox box;
        box.setText(QStringLiteral("The seller sells."));
        const RtfSnapshot before = box.Snapshot();
        box.setSelStart(10);
        QTest::keyClicks(&box, QStringLiteral("s, too,"));
        const RtfSnapshot after = box.Snapshot();
        box.setSelStart(0);
        box.setSnapshot(before);
        QCOMPARE(box.SelStart(), 10);
        box.setSnapshot(after);
        QCOMPARE(box.SelStart(), 17);
        box.setSnapshot(after);
        QCOMPARE(box.SelStart(), 17);
    }

    void AnEmptySnapshotIsRefused() {
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        QVERIFY(!box.setSnapshot(RtfSnapshot()));
        QCOMPARE(box.Text(), QStringLiteral("a"));
    }

    void TheSelectionIsADocumentOfItsOwn() {
        RichTextBox box;
        box.setTextRTF(kForm);
        box.setSelStart(5);
        box.setSelLength(20);
        const QString selected = box.SelText();
        RichTextBox other;
        QVERIFY(other.setTextRTF(box.SelRTF()));
        QCOMPARE(other.Text(), selected);
        other.setSelStart(0);
        other.setSelLength(5);
        QCOMPARE(other.SelBold(), true);
        QCOMPARE(other.SelFontName(), QStringLiteral("Times New Roman"));
        QCOMPARE(other.SelAlignment(), 2);
    }

    void ASourceReplacesTheSelection() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Arial;}}\\f0 abXXcd}"));
        box.setSelStart(2);
        box.setSelLength(2);
        QVERIFY(box.setSelRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Georgia;}}\\f0\\b new}")));
        QCOMPARE(box.Text(), QStringLiteral("abnewcd"));
        QCOMPARE(box.SelStart(), 5);
        QCOMPARE(box.SelLength(), 0);
        box.setSelStart(2);
        box.setSelLength(3);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
        box.setSnapshot(box.Snapshot());
        box.setSelStart(2);
        box.setSelLength(3);
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
        box.setSelStart(5);
        box.setSelLength(2);
        QCOMPARE(box.SelBold(), false);
        QCOMPARE(box.SelFontName(), QStringLiteral("Arial"));
    }

    void ATableIsInsertedWhole() {
        RichTextBox box;
        box.setText(QStringLiteral("before\nafter"));
        box.setSelStart(6);
        QVERIFY(box.setSelRTF(QStringLiteral("{\\rtf1 x\\par\\trowd\\cellx3000\\cellx6000\\intbl l\\cell "
                                             "r\\cell\\row\\pard y\\par}")));
        const QString source = box.TextRTF();
        QCOMPARE(source.count(QStringLiteral("\\cell\n")) + source.count(QStringLiteral("\\cell ")) +
                     source.count(QStringLiteral("\\cell\\")),
                 2);
        RichTextBox other;
        other.setTextRTF(source);
        QCOMPARE(other.Text(), box.Text());
    }

    void APictureInsertedTwiceIsTwoPictures() {
        const QString picture = QStringLiteral("{\\rtf1{\\pict\\pngblip\\picwgoal300\\pichgoal300 "
                                               "89504e470d0a1a0a0000000d49484452000000010000000108020000"
                                               "00907753de0000000c4944415408d763f8cfc0000003010100"
                                               "18dd8db00000000049454e44ae426082}}");
        RichTextBox box;
        box.setTextRTF(picture);
        QVERIFY(box.setSelRTF(picture));
        QCOMPARE(box.Text(), QString(2, QChar::ObjectReplacementCharacter));
        QCOMPARE(box.TextRTF().count(QStringLiteral("\\pict")), 2);
    }

    void NoSourceIsInsertedAsText() {
        RichTextBox box;
        box.setText(QStringLiteral("ab"));
        box.setSelStart(1);
        QVERIFY(box.setSelRTF(QStringLiteral("-")));
        QCOMPARE(box.Text(), QStringLiteral("a-b"));
    }
};

QTEST_MAIN(RichTextBoxSourceTest)
#include "rich_text_box_source_test.moc"
