// Copying from and pasting into the rich text box.
#include "platform/rich_text/rich_text_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryFile>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/platform/rich_text/selections.h"

using platform::RichTextBox;
using rich_text_selections::Select;

namespace {

constexpr const char* kRtfNames[] = {"text/rtf", "application/rtf", "text/richtext"};

void PutOnClipboard(const char* name, const QByteArray& bytes) {
    auto* data = new QMimeData;
    data->setData(QLatin1String(name), bytes);
    QGuiApplication::clipboard()->setMimeData(data);
}

const QMimeData& Clipboard() {
    return *QGuiApplication::clipboard()->mimeData();
}

} // namespace

class RichTextClipboardTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->clear(); }

    void CopyGivesRichTextHtmlAndPlainText() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 one \\b two\\b0\\par\\qc three}"));
        Select(box, 4, 6);
        box.copy();
        for (const char* name : kRtfNames) {
            RichTextBox other;
            QVERIFY(other.setTextRTF(Clipboard().data(QLatin1String(name))));
            QCOMPARE(other.Text(), QStringLiteral("two\nth"));
            Select(other, 0, 3);
            QCOMPARE(other.SelBold(), true);
        }
        QCOMPARE(Clipboard().text(), QStringLiteral("two\nth"));
        QVERIFY(Clipboard().html().contains(QStringLiteral("two")));
    }

    void CopyGivesHtmlWithItsFormats() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral(
            "{\\rtf1{\\fonttbl{\\f0 Georgia;}}{\\colortbl;\\red255\\green0\\blue0;}\\f0\\fs28 "
            "\\b bold\\b0  \\i slanted\\i0  \\ul line\\ulnone  \\cf1 red\\cf0\\par\\pard\\qc middle\\par}"));
        box.selectAll();
        box.copy();
        QTextDocument browser; // reads it as any other program would
        browser.setHtml(Clipboard().html());
        QCOMPARE(browser.toPlainText(), QStringLiteral("bold slanted line red\nmiddle"));
        const auto formatAt = [&browser](int position) {
            QTextCursor cursor(&browser);
            cursor.setPosition(position + 1);
            return cursor.charFormat();
        };
        QVERIFY(formatAt(0).fontWeight() >= QFont::Bold);
        QVERIFY(formatAt(5).fontItalic());
        QVERIFY(formatAt(13).fontUnderline());
        QCOMPARE(formatAt(18).foreground().color(), QColor(Qt::red));
        QCOMPARE(formatAt(0).fontPointSize(), 14.0);
        QCOMPARE(formatAt(0).fontFamilies().toStringList().value(0), QStringLiteral("Georgia"));
        QCOMPARE(browser.lastBlock().blockFormat().alignment(), Qt::AlignHCenter);
    }

    void EveryFormOfACopyBringsTheTextBackAlone_data() {
        QTest::addColumn<QString>("only");
        for (const char* name : {"text/rtf", "text/html", "text/plain"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void EveryFormOfACopyBringsTheTextBackAlone() {
        QFETCH(QString, only);
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 one \\b two\\b0\\par\\u8220?three\\u8221?\\tab four\\par}"));
        box.selectAll();
        box.copy();
        auto* data = new QMimeData;
        data->setData(only, Clipboard().data(only));
        QGuiApplication::clipboard()->setMimeData(data);
        RichTextBox other;
        other.paste();
        QString expected = box.Text();
        while (expected.endsWith(u'\n'))
            expected.chop(1);
        QCOMPARE(other.Text().trimmed(), expected);
    }

    void HtmlOfABrowserIsPasted_data() {
        QTest::addColumn<QString>("html");
        QTest::newRow("fragment marks") << QStringLiteral(
            "<html><body><!--StartFragment--><b>two</b> words<!--EndFragment--></body></html>");
        QTest::newRow("charset told, style by attribute")
            << QStringLiteral("<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\"><span "
                              "style=\"font-weight:bold\">two</span><span> words</span>");
        QTest::newRow("script and style")
            << QStringLiteral("<style>b{color:red}</style><script>alert(1)</script><b>two</b> words");
    }
    void HtmlOfABrowserIsPasted() {
        QFETCH(QString, html);
        auto* data = new QMimeData;
        data->setHtml(html);
        data->setText(QStringLiteral("two words"));
        QGuiApplication::clipboard()->setMimeData(data);
        RichTextBox box;
        box.paste();
        QCOMPARE(box.Text().trimmed(), QStringLiteral("two words"));
        Select(box, int(box.Text().indexOf(u"two")), 3);
        QCOMPARE(box.SelBold(), true);
        Select(box, int(box.Text().indexOf(u"words")), 5);
        QCOMPARE(box.SelBold(), false);
    }

    void ATablePastedIntoALineLeavesItsFormat_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("caret");
        QTest::newRow("table alone, at the start") << QString() << 2;
        QTest::newRow("table alone, inside") << QString() << 4;
        QTest::newRow("text before it, at the start") << QStringLiteral("\\pard x\\par") << 2;
        QTest::newRow("text before it, inside") << QStringLiteral("\\pard x\\par") << 4;
    }
    void ATablePastedIntoALineLeavesItsFormat() {
        QFETCH(QString, before);
        QFETCH(int, caret);
        RichTextBox box;
        box.setTextRTF(QStringLiteral(
            "{\\rtf1\\fs30 p\\par\\pard\\qc\\li700\\pagebb title\\sect\\sectd\\pard end\\par}"));
        const auto breaks = [](const QString& source) {
            return std::pair(source.count(QStringLiteral("\\pagebb")),
                             source.count(QStringLiteral("\\sect\n")));
        };
        const auto breaksBefore = breaks(box.TextRTF());
        box.setSelStart(caret);
        box.setSelRTF(QStringLiteral("{\\rtf1%1\\trowd\\cellx2000\\pard\\intbl a\\cell\\row}").arg(before));
        const int behind = int(box.Text().indexOf(QStringLiteral("tle\nend")));
        QVERIFY(behind > caret);
        QCOMPARE(breaks(box.TextRTF()), breaksBefore);
        for (int reread = 0; reread < 2; ++reread) {
            box.setSelStart(behind);
            QCOMPARE(box.SelAlignment(), 2);
            QCOMPARE(box.SelIndent(), 700);
            QVERIFY(!box.textCursor().blockFormat().boolProperty(platform::Filler));
            QCOMPARE(box.textCursor().block().charFormat().fontPointSize(), 15);
            box.setTextRTF(box.TextRTF());
        }
    }

    void TextPastedOverTablesKeepsTheLinesTypedBehindIt() {
        RichTextBox box;
        const QString form = QStringLiteral("{\\rtf1\\fs30\\trowd\\cellx2000\\pard\\intbl a\\cell\\row%1}");
        box.setTextRTF(form.arg(QString()));
        box.selectAll();
        box.setSelRTF(form.arg(QStringLiteral("\\pard y")));
        QVERIFY(box.Text().endsWith(QStringLiteral("a\ny")));
        QTest::keyClick(&box, Qt::Key_Return);
        RichTextBox other;
        other.setTextRTF(box.TextRTF());
        QVERIFY(other.Text().endsWith(QStringLiteral("a\ny\n")));
    }

    void ATableIsCopiedAndPastedAsOne() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral(
            "{\\rtf1 x\\par\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row\\pard y\\par}"));
        box.selectAll();
        box.copy();
        QVERIFY(Clipboard().text().contains(u'a') && Clipboard().text().contains(u'b'));
        QVERIFY(Clipboard().html().contains(QStringLiteral("<table")));
        RichTextBox other;
        other.paste();
        QCOMPARE(other.document()->rootFrame()->childFrames().size(), 1);
        QVERIFY(other.TextRTF().contains(QStringLiteral("\\cellx4000")));
    }

    void CopyOfNothingLeavesTheClipboard() {
        QGuiApplication::clipboard()->setText(QStringLiteral("kept"));
        RichTextBox box;
        box.setText(QStringLiteral("text"));
        QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(Clipboard().text(), QStringLiteral("kept"));
    }

    void CutAndPasteBringTheTextBack() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard a\\par\\b\\qc b\\par\\pard\\plain c\\par}"));
        const QString source = box.TextRTF();
        Select(box, 2, 2);
        QTest::keyClick(&box, Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(box.Text(), QStringLiteral("a\nc"));
        QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(box.Text(), QStringLiteral("a\nb\nc"));
        QCOMPARE(box.TextRTF(), source);
        QCOMPARE(box.SelStart(), 4);
    }

    void ParagraphsPastedWithinAParagraphLeaveItsEndAsItWas() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard\\pagebb\\qr abcd\\par}"));
        box.setSelStart(2);
        box.setSelRTF(QStringLiteral("{\\rtf1\\pard\\qc x\\par\\qj y\\par\\ql z}"));
        QCOMPARE(box.Text(), QStringLiteral("abx\ny\nzcd"));
        QCOMPARE(box.SelAlignment(), 1);
        box.setSelStart(0);
        QCOMPARE(box.SelAlignment(), 2);
        box.setSelStart(4);
        QCOMPARE(box.SelAlignment(), 3);
        QCOMPARE(box.TextRTF().count(QStringLiteral("\\pagebb")), 1);
    }

    void AWordPastedIntoAnEmptyItemStaysInItsList() {
        RichTextBox box;
        box.setText(QStringLiteral("a\n"));
        box.setSelStart(2);
        box.setSelBullet(true);
        box.setSelRTF(QStringLiteral("{\\rtf1\\qc word}"));
        QCOMPARE(box.SelBullet(), true);
        RichTextBox empty;
        empty.setSelRTF(QStringLiteral("{\\rtf1\\qc word}"));
        QCOMPARE(empty.SelAlignment(), 2);
    }

    void RichTextOfEveryNameIsPasted_data() {
        QTest::addColumn<QByteArray>("name");
        for (const char* name : kRtfNames)
            QTest::newRow(name) << QByteArray(name);
    }
    void RichTextOfEveryNameIsPasted() {
        QFETCH(QByteArray, name);
        PutOnClipboard(name.constData(), QByteArray("{\\rtf1{\\fonttbl{\\f0 Georgia;}}\\f0\\i new}") + '\0');
        RichTextBox box;
        box.setText(QStringLiteral("ab"));
        box.setSelStart(1);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        box.paste();
        QCOMPARE(box.Text(), QStringLiteral("anewb"));
        QCOMPARE(changes.count(), 1);
        Select(box, 1, 3);
        QCOMPARE(box.SelItalic(), true);
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
    }

    void RichTextGoesBeforeHtmlAndHtmlBeforeText() {
        QMimeData data;
        data.setText(QStringLiteral("plain"));
        data.setHtml(QStringLiteral("<p>html</p>"));
        const auto textOf = [&data] {
            const auto document = platform::DocumentOfMime(data, QFont());
            return document ? document->toPlainText() : QString();
        };
        QCOMPARE(textOf(), QStringLiteral("html"));
        data.setData(QStringLiteral("text/rtf"), "{\\rtf1 rich}");
        QCOMPARE(textOf(), QStringLiteral("rich"));
        data.setData(QStringLiteral("text/rtf"), "no rich text");
        QCOMPARE(textOf(), QStringLiteral("html"));
    }

    void PlainTextTakesTheFormatOfItsPlace() {
        QGuiApplication::clipboard()->setText(QStringLiteral("x\r\ny"));
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Georgia;}}\\f0\\fs40\\b ab}"));
        box.setSelStart(1);
        box.paste();
        QCOMPARE(box.Text(), QStringLiteral("ax\nyb"));
        box.selectAll();
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontSize(), 20.0);
        QCOMPARE(box.SelFontName(), QStringLiteral("Georgia"));
    }

    void HtmlIsPastedWithItsFormats() {
        auto* data = new QMimeData;
        data->setHtml(QStringLiteral("<p>one <b>two</b></p><p align=center>three</p>"));
        QGuiApplication::clipboard()->setMimeData(data);
        RichTextBox box;
        box.paste();
        QCOMPARE(box.Text(), QStringLiteral("one two\nthree"));
        Select(box, 4, 3);
        QCOMPARE(box.SelBold(), true);
        box.setSelStart(9);
        QCOMPARE(box.SelAlignment(), 2);
        box.setSnapshot(box.Snapshot());
        Select(box, 4, 3);
        QCOMPARE(box.SelBold(), true);
    }

    void HtmlIsPastedAsTheFormKeepsIt() {
        auto* data = new QMimeData;
        data->setHtml(QStringLiteral("<h1>Deed</h1><p>of <small>sale</small></p><table border=1>"
                                     "<tr><td>A</td><td>B</td></tr></table>"));
        QGuiApplication::clipboard()->setMimeData(data);
        RichTextBox box;
        box.paste();
        RichTextBox kept;
        QVERIFY(kept.setTextRTF(box.TextRTF()));
        QCOMPARE(box.Text(), kept.Text());
        for (const auto& [word, size] : {std::pair(u"Deed", 24.0), {u"sale", 10.0}}) {
            for (RichTextBox* shown : {&box, &kept}) {
                Select(*shown, int(shown->Text().indexOf(QStringView(word))), 4);
                QCOMPARE(shown->SelFontSize(), size);
            }
        }
        const auto table = [](const RichTextBox& shown) {
            return shown.document()->rootFrame()->childFrames().value(0);
        };
        QVERIFY(table(box) && table(kept));
        QCOMPARE(table(box)->frameFormat().width(), table(kept)->frameFormat().width());
        QCOMPARE(table(box)->frameFormat().border(), table(kept)->frameFormat().border());
    }

    void HtmlThatTellsNoFontComesInTheFontOfTheBox() {
        auto* data = new QMimeData;
        data->setHtml(QStringLiteral("<p>of <b>sale</b></p><table><tr><td>of land</td></tr></table>"));
        QGuiApplication::clipboard()->setMimeData(data);
        RichTextBox box;
        box.setFont(QFont(QStringLiteral("Times New Roman"), 17));
        box.paste();
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("Times New Roman"));
        QCOMPARE(box.SelFontSize(), 17.0);
        box.setSnapshot(box.Snapshot());
        box.selectAll();
        QCOMPARE(box.SelFontName(), QStringLiteral("Times New Roman"));
        QCOMPARE(box.SelFontSize(), 17.0);
    }

    void ListsOfHtmlBecomeParagraphsWithMarkers() {
        auto* data = new QMimeData;
        data->setHtml(QStringLiteral("<ol><li>a</li><li>b</li></ol><ul><li>c</li></ul>"));
        QGuiApplication::clipboard()->setMimeData(data);
        RichTextBox box;
        box.paste();
        QVERIFY(box.Text().contains(QStringLiteral("a\nb\nc")));
        const QString source = box.TextRTF();
        QVERIFY(source.contains(QStringLiteral("{\\pntext 1.")));
        QVERIFY(source.contains(QStringLiteral("{\\pntext 2.")));
        QVERIFY(source.contains(QStringLiteral("{\\pntext\\u8226?")));
        RichTextBox other;
        other.setTextRTF(source);
        QCOMPARE(other.TextRTF(), source);
    }

    void PicturesOfHtmlAreLeftOutAndNoFileIsRead() {
        QTemporaryFile picture;
        QVERIFY(picture.open());
        picture.write("GIF89a");
        picture.close();
        auto* data = new QMimeData;
        data->setHtml(QStringLiteral("<p>before<img src=\"file://%1\" width=30 height=30>after"
                                     "<img src=\"http://127.0.0.1:9/x.png\"></p>")
                          .arg(picture.fileName()));
        QGuiApplication::clipboard()->setMimeData(data);
        RichTextBox box;
        box.paste();
        QCOMPARE(box.Text(), QStringLiteral("beforeafter"));
    }

    void PicturesOfRichTextAreCopiedAlong() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 a{\\pict\\pngblip\\picwgoal300\\pichgoal300 "
                                      "89504e470d0a1a0a0000000d494844520000000100000001080200000090"
                                      "7753de0000000c4944415408d763f8cfc000000301010018dd8db0000000"
                                      "0049454e44ae426082}b}"));
        box.selectAll();
        box.copy();
        QCOMPARE(Clipboard().text(), QStringLiteral("ab"));
        RichTextBox other;
        other.paste();
        QCOMPARE(other.Text(), box.Text());
        QVERIFY(other.TextRTF().contains(QStringLiteral("89504e47")));
    }

    void TextAsOfAWordProcessorIsPasted() {
        PutOnClipboard("text/rtf",
                       "{\\rtf1\\ansi\\deff4{\\fonttbl{\\f4\\froman\\fprq2\\fcharset0 Liberation Serif;}}"
                       "{\\stylesheet{\\s0\\snext0 Normal;}}{\\*\\pgdsctbl{\\pgdsc0 Default;}}"
                       "\\pard\\plain \\s0\\ql\\rtlch\\af4 \\ltrch\\hich\\af4\\loch\\fs24"
                       "{\\rtlch \\ltrch\\loch\\b\\uc2\\u8220\\'81\\'67So\\u8221\\'81\\'68}\\par}");
        RichTextBox box;
        box.paste();
        QCOMPARE(box.Text().trimmed(), QStringLiteral("\u201CSo\u201D"));
        Select(box, 0, 4);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelFontName(), QStringLiteral("Liberation Serif"));
    }

    void NothingIsPastedFromWhatIsNoText() {
        PutOnClipboard("image/png", "x");
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        QVERIFY(!box.canPaste());
        const QSignalSpy changes(&box, &RichTextBox::Change);
        box.paste();
        QCOMPARE(box.Text(), QStringLiteral("a"));
        QCOMPARE(changes.count(), 0);
    }

    void AReadOnlyBoxTakesNothing() {
        QGuiApplication::clipboard()->setText(QStringLiteral("x"));
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        box.setReadOnly(true);
        box.paste();
        QCOMPARE(box.Text(), QStringLiteral("a"));
    }

    void CellsThatReachIntoASelectionOfCellsGoWithIt_data() {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("copied");
        QTest::addColumn<int>("rows");
        QTest::newRow("a merged cell") << QStringLiteral("\\cellx2000\\cellx6000\\intbl d\\cell e\\cell\\row")
                                       << QStringLiteral("bcehi") << 3;
        QTest::newRow("a row that is shorter")
            << QStringLiteral("\\cellx2000\\intbl d\\cell\\row") << QStringLiteral("bchi") << 2;
    }
    void CellsThatReachIntoASelectionOfCellsGoWithIt() {
        QFETCH(QString, row);
        QFETCH(QString, copied);
        QFETCH(int, rows);
        const QString whole =
            QStringLiteral("\\trowd\\cellx2000\\cellx4000\\cellx6000\\intbl %1\\cell %2\\cell "
                           "%3\\cell\\row");
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard top\\par") +
                       whole.arg(QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")) +
                       QStringLiteral("\\trowd") + row +
                       whole.arg(QStringLiteral("g"), QStringLiteral("h"), QStringLiteral("i")) +
                       QStringLiteral("\\pard end\\par}"));
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(int(box.Text().indexOf(u'c')));
        cursor.setPosition(int(box.Text().indexOf(u'i')), QTextCursor::KeepAnchor);
        QVERIFY(cursor.hasComplexSelection());
        box.setTextCursor(cursor);
        box.copy();
        RichTextBox other;
        QVERIFY(other.setTextRTF(Clipboard().data(QStringLiteral("text/rtf"))));
        QCOMPARE(other.Text().remove(u'\n'), copied);
        const auto* const table =
            qobject_cast<QTextTable*>(other.document()->rootFrame()->childFrames().value(0));
        QVERIFY(table);
        QCOMPARE(table->rows(), rows);
        QCOMPARE(table->columns(), 2);
    }
};

QTEST_MAIN(RichTextClipboardTest)
#include "rich_text_clipboard_test.moc"
