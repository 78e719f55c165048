// The program's own printing: where text goes on the paper, how pages follow each other, and what comes out.
#include "output/mod_print_rtf.h"

#include "platform/rich_text/rich_text_box.h"
#include "tests/support/pdf_pages.h"
#include "tests/support/printed_text.h"
#include "tests/support/scripted_services.h"

#include <QPainter>
#include <QtTest>

using namespace quillbrook;
using platform::RichTextBox;

namespace {

constexpr PrintMargins kMargins = {1620, 1440, 1440, 1440};
constexpr double kLeft = 81; // points of the same margins
constexpr double kOthers = 72;

// A box, a printer, and the file between them.
struct Press {
    Press() { printer.file = folder.filePath(QStringLiteral("out.pdf")); }
    PdfPages Print(const PrintedText& text) {
        box.setTextRTF(text.Source());
        return Print();
    }
    PdfPages Print() {
        PrintRTF(box, printer, kMargins);
        return PdfPages(printer.file);
    }

    QTemporaryDir folder;
    RichTextBox box;
    ScriptedPrinter printer;
};

QPageSize Inches(double width, double height) {
    return QPageSize(QSizeF(width, height), QPageSize::Inch, QString(), QPageSize::ExactMatch);
}

} // namespace

class ModPrintRtfTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void MarginsCountFromThePaperAndTheRectangleFromThePrintablePart_data() {
        QTest::addColumn<QSize>("paper");
        QTest::addColumn<QPoint>("offset");
        QTest::addColumn<QPoint>("dots");
        QTest::addColumn<QRect>("rectangle");
        const QPoint dots(600, 600);
        QTest::newRow("Short, no border")
            << QSize(12240, 15840) << QPoint() << dots << QRect(1620, 1440, 9180, 12960);
        QTest::newRow("Long, no border")
            << QSize(12240, 18720) << QPoint() << dots << QRect(1620, 1440, 9180, 15840);
        QTest::newRow("A4, no border")
            << QSize(11906, 16838) << QPoint() << dots << QRect(1620, 1440, 8846, 13958);
        QTest::newRow("a quarter inch")
            << QSize(12240, 15840) << QPoint(150, 150) << dots << QRect(1260, 1080, 9180, 12960);
        QTest::newRow("sides differ")
            << QSize(12240, 15840) << QPoint(100, 50) << dots << QRect(1380, 1320, 9180, 12960);
        QTest::newRow("resolutions differ")
            << QSize(12240, 15840) << QPoint(90, 90) << QPoint(360, 180) << QRect(1260, 720, 9180, 12960);
        QTest::newRow("rounded down")
            << QSize(12240, 15840) << QPoint(1, 1) << QPoint(1200, 1200) << QRect(1619, 1439, 9180, 12960);
        QTest::newRow("rounded to the nearest")
            << QSize(12240, 15840) << QPoint(2, 2) << dots << QRect(1615, 1435, 9180, 12960);
        QTest::newRow("no printer") << QSize() << QPoint() << QPoint() << QRect(1620, 1440, -3060, -2880);
    }
    void MarginsCountFromThePaperAndTheRectangleFromThePrintablePart() {
        QFETCH(QSize, paper);
        QFETCH(QPoint, offset);
        QFETCH(QPoint, dots);
        platform::PrinterPage page{paper.isValid() ? paper : QSize(0, 0), {}, offset, dots};
        QTEST(PrintRectangle(page, kMargins), "rectangle");
    }

    void TheMessageOfAPrinterIsKept() {
        QCOMPARE(QLatin1String(kPrinterErrorTitle), u"Printer Error"_qs);
        QCOMPARE(
            QLatin1String(kPrinterErrorText),
            u"Make sure that you have a printer installed.  If a printer is installed, go into your printer "
            "properties look under the Setup tab, and make sure the ICM checkbox is checked and try printing "
            "again."_qs);
    }

    void WhatFitsOnAPageIsRenderedOnce() {
        Press press;
        const PdfPages pdf = press.Print(PrintedText().Heading(3).Paragraph(200));
        QCOMPARE(pdf.Count(), 1);
        QCOMPARE(press.printer.printed, QStringList{u" "_qs});
        QCOMPARE(press.printer.newPages, 0);
        QCOMPARE(press.printer.jobsEnded, 1);
    }

    void EachFurtherPageBeginsWithABlank() {
        Press press;
        const PdfPages pdf = press.Print(PrintedText().Paragraph(2500));
        QVERIFY(pdf.Count() > 3);
        QCOMPARE(press.printer.newPages, pdf.Count() - 1);
        QCOMPARE(press.printer.printed, QStringList(pdf.Count(), u" "_qs));
        QCOMPARE(press.printer.jobsEnded, 1);
    }

    void OnePaneIsPrintedAfterTheOther() {
        Press press;
        press.Print(PrintedText().Paragraph(100));
        const PrintedText second = PrintedText().Paragraph(900);
        QCOMPARE(press.Print(second).Words(), second.Expected());
    }

    void TextStandsWithinItsMarginsOnEveryPaperAndPrinter_data() {
        QTest::addColumn<QPageSize>("paper");
        QTest::addColumn<QMarginsF>("border");
        QTest::newRow("Long") << Inches(8.5, 13) << QMarginsF();
        QTest::newRow("Short") << Inches(8.5, 11) << QMarginsF();
        QTest::newRow("A4") << QPageSize(QPageSize::A4) << QMarginsF();
        QTest::newRow("Short with a border") << Inches(8.5, 11) << QMarginsF(18, 18, 18, 18);
        QTest::newRow("Long with an uneven border") << Inches(8.5, 13) << QMarginsF(12, 30, 20, 40);
    }
    void TextStandsWithinItsMarginsOnEveryPaperAndPrinter() {
        QFETCH(QPageSize, paper);
        QFETCH(QMarginsF, border);
        Press press;
        press.printer.SetPaper(paper);
        press.printer.border = border;
        const PrintedText text = PrintedText().Paragraph(3000, QStringLiteral("\\qj"));
        const PdfPages pdf = press.Print(text);
        QVERIFY(pdf.Count() > 3);
        QCOMPARE(pdf.Words(), text.Expected());
        const QSizeF size = paper.size(QPageSize::Point);
        QRectF used;
        for (const PdfPage& page : pdf.Pages()) {
            QVERIFY(std::abs(page.size.width() - size.width()) <= 1);
            QVERIFY(std::abs(page.size.height() - size.height()) <= 1);
            for (const PdfWord& word : page.words)
                used |= word.place;
        }
        QVERIFY2(std::abs(used.left() - kLeft) < 1, qPrintable(QString::number(used.left())));
        QVERIFY2(std::abs(used.right() - (size.width() - kOthers)) < 1.5,
                 qPrintable(QString::number(used.right())));
        QVERIFY2(used.top() > kOthers - 1 && used.top() < kOthers + 6,
                 qPrintable(QString::number(used.top())));
        QVERIFY2(used.bottom() < size.height() - kOthers + 1, qPrintable(QString::number(used.bottom())));
        QVERIFY(used.bottom() > size.height() - kOthers - 20);
    }

    void ThirtyPagesOfAContractComeOutWholeAndInOrder() {
        Press press;
        const PrintedText text = Contract(36);
        const PdfPages pdf = press.Print(text);
        QVERIFY2(pdf.Count() >= 30 && pdf.Count() <= 45, qPrintable(QString::number(pdf.Count())));
        QCOMPARE(pdf.Words(), text.Expected());
        for (const PdfPage& page : pdf.Pages())
            QVERIFY(page.words.size() > 20);
    }

    void NoLineIsCutInHalf() {
        Press press;
        const PdfPages pdf = press.Print(Contract(8));
        for (int i = 0; i < pdf.Count(); ++i) {
            const QRectF ink = pdf.Ink(i);
            QVERIFY(ink.top() >= kOthers - 2);
            QVERIFY(ink.bottom() <= pdf.Page(i).size.height() - kOthers + 2);
            for (const PdfWord& word : pdf.Page(i).words)
                QVERIFY(word.place.bottom() <= pdf.Page(i).size.height() - kOthers + 1);
        }
    }

    void TheRowsOfATableStayWhole() {
        Press press;
        PrintedText text;
        std::vector<std::pair<int, int>> rows; // first and last word
        for (int i = 0; i < 60; ++i) {
            const int first = text.Count();
            text.Row(3 + i % 4);
            rows.push_back({first, text.Count() - 1});
        }
        const PdfPages pdf = press.Print(text);
        QVERIFY(pdf.Count() > 4);
        QCOMPARE(pdf.Words(), text.Expected());
        for (const auto& [first, last] : rows) {
            int pages = 0;
            for (const PdfPage& page : pdf.Pages()) {
                const QStringList words = page.Texts();
                const bool begins = words.contains(PrintedText::Word(first));
                QCOMPARE(words.contains(PrintedText::Word(last)), begins);
                pages += begins;
            }
            QCOMPARE(pages, 1);
        }
    }

    void ATableIsClosedAboveAndBelowAPageBreak() {
        Press press;
        PrintedText text;
        for (int i = 0; i < 40; ++i)
            text.RuledRow(2);
        const PdfPages pdf = press.Print(text);
        QCOMPARE(pdf.Count(), 2);
        for (int page = 0; page < pdf.Count(); ++page) {
            const QRectF ink = pdf.Ink(page);
            const QImage picture = pdf.Picture(page, 72);
            const auto darkIn = [&picture](double y) {
                int dark = 0;
                for (int x = 0; x < picture.width(); ++x)
                    dark += qGray(picture.pixel(x, int(y))) < 200;
                return dark;
            };
            const int above = std::max(darkIn(ink.top()), darkIn(ink.top() + 1));
            const int below = std::max(darkIn(ink.bottom() - 1), darkIn(ink.bottom() - 2));
            QVERIFY2(above > 390, qPrintable(QString::number(above))); // 8000 twips
            QVERIFY2(below > 390, qPrintable(QString::number(below)));
        }
    }

    void ATableThatBeginsOrEndsAPageRepeatsNothing_data() {
        QTest::addColumn<int>("before"); // lines
        for (int lines = 44; lines < 56; ++lines)
            QTest::addRow("%d lines", lines) << lines;
    }
    void ATableThatBeginsOrEndsAPageRepeatsNothing() {
        QFETCH(int, before);
        Press press;
        PrintedText text;
        for (int i = 0; i < before; ++i)
            text.Paragraph(1, QString());
        text.RuledRow(2).RuledRow(1);
        for (int i = 0; i < 46; ++i)
            text.Paragraph(1, QString());
        text.RuledRow(1).Paragraph(1, QString());
        const PdfPages pdf = press.Print(text);
        QVERIFY(pdf.Count() >= 2);
        QCOMPARE(pdf.Words(), text.Expected());
    }

    void ARowTallerThanThePageLosesNoWord() {
        Press press;
        const PrintedText text = PrintedText().Paragraph(20).Row(130).Paragraph(20);
        const PdfPages pdf = press.Print(text);
        QVERIFY(pdf.Count() >= 3);
        const QStringList printed = pdf.Words();
        for (const QString& word : text.Expected())
            QVERIFY2(printed.contains(word), qPrintable(word));
    }

    void APositionBehindTheTextEndsTheLoop() {
        // what the box counts and the length of its text are one, with tables, pictures and marks as well
        Press press;
        press.box.setTextRTF(Contract(4).Source());
        QImage sheet(100, 100, QImage::Format_Grayscale8);
        QPainter painter(&sheet);
        const QRect rectangle(0, 0, 9180, 12960);
        int position = 0;
        int pages = 0;
        for (const auto length = int(press.box.Text().size()); position < length; ++pages)
            position = press.box.FormatRange(painter, rectangle, position, false);
        painter.end();
        press.box.FormatRangeRelease();
        QCOMPARE(position, int(press.box.Text().size()));
        QVERIFY(pages > 3);
        QVERIFY(std::abs(press.Print().Count() - pages) <= 1); // on another resolution
    }

    void BulletsAndNumbersAreThere() {
        Press press;
        const PdfPages pdf =
            press.Print(PrintedText().Bullet(5).Bullet(5).Paragraph(5).Number(5, 1).Number(5, 2));
        const QStringList words = pdf.Words();
        QCOMPARE(words.count(u"\u2022"_qs), 2);
        QCOMPARE(words.count(u"1."_qs), 1);
        QCOMPARE(words.count(u"2."_qs), 1);
    }

    void PicturesArePrintedInTheirSize() {
        Press press;
        const PdfPages pdf = press.Print(PrintedText().Picture());
        const QRectF ink = pdf.Ink(0);
        QVERIFY(std::abs(ink.left() - kLeft) <= 1.5);
        QVERIFY(std::abs(ink.width() - 72) <= 1.5);
        QVERIFY(std::abs(ink.height() - 72) <= 1.5);
    }

    void LineBreaksDoNotGoByTheWindow() {
        QStringList lines;
        for (const int width : {150, 700, 2400}) {
            Press press;
            press.box.setPageLike(width > 200);
            press.box.resize(width, 400);
            press.box.show();
            const PdfPages pdf = press.Print(Contract(2));
            QStringList printed;
            for (int page = 0; page < pdf.Count(); ++page)
                printed += pdf.Lines(page);
            QVERIFY(printed.size() > 40);
            if (lines.isEmpty())
                lines = printed;
            QCOMPARE(printed, lines);
        }
    }

    void PrintingChangesNothingInTheBox() {
        Press press;
        press.box.setTextRTF(Contract(2).Source());
        press.box.setSelStart(40);
        press.box.setSelLength(7);
        const QString source = press.box.TextRTF();
        QSignalSpy changes(&press.box, &RichTextBox::Change);
        QVERIFY(press.Print().Count() > 1);
        QCOMPARE(changes.size(), 0);
        QCOMPARE(press.box.TextRTF(), source);
        QCOMPARE(press.box.SelStart(), 40);
        QCOMPARE(press.box.SelLength(), 7);
    }

    void TheLastPageIsNotFollowedByAnEmptyOne() {
        // a text that just fills its page, and one with a line more
        int lines = 0;
        for (int count = 40; count < 60 && lines == 0; ++count) {
            Press press;
            PrintedText text;
            for (int i = 0; i < count; ++i)
                text.Paragraph(1, QString());
            if (press.Print(text).Count() == 2)
                lines = count;
        }
        QVERIFY(lines > 40);
        Press press;
        PrintedText text;
        for (int i = 0; i < lines; ++i)
            text.Paragraph(1, QString());
        const PdfPages pdf = press.Print(text);
        QCOMPARE(pdf.Page(1).Texts(), QStringList{PrintedText::Word(lines - 1)});
    }

    void ABlankOrAParagraphMarkAloneIsAPage_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("blank") << u" "_qs;
        QTest::newRow("paragraph mark") << u"\n"_qs;
    }
    void ABlankOrAParagraphMarkAloneIsAPage() {
        QFETCH(QString, text);
        Press press;
        press.box.setText(text);
        const PdfPages pdf = press.Print();
        QCOMPARE(pdf.Count(), 1);
        QVERIFY(pdf.Page(0).words.empty());
    }

    void AnEmptyBoxGivesTheOnePageOfItsJob() {
        Press press;
        QCOMPARE(press.Print().Count(), 1);
        QCOMPARE(press.printer.jobsEnded, 1);
    }

    void WithoutAPrinterNothingHappens() {
        Press press;
        press.printer.Remove();
        press.box.setTextRTF(Contract(3).Source());
        QVERIFY(!press.Print().IsRead());
        QCOMPARE(press.printer.printed, QStringList{u" "_qs});
        QCOMPARE(press.printer.newPages, 0);
        QCOMPARE(press.printer.jobsEnded, 1);
    }

    void AFileThatCannotBeWrittenEndsTheJobWithoutAWord() {
        Press press;
        press.printer.file = press.folder.filePath(u"no folder/out.pdf"_qs);
        QVERIFY(!press.Print(Contract(3)).IsRead());
        QCOMPARE(press.printer.jobsEnded, 1);
    }

    void APrinterThatFailsInTheMiddleEndsTheJobAndTakesTheNext() {
        Press press;
        press.printer.failsAtNewPage = 2;
        press.box.setTextRTF(Contract(5).Source());
        QVERIFY(!press.Print().IsRead());
        QCOMPARE(press.printer.newPages, 2);
        QCOMPARE(press.printer.jobsEnded, 1);
        QVERIFY(!QFile::exists(press.printer.file));

        press.printer.failsAtNewPage = 0;
        const PrintedText text = Contract(2);
        QCOMPARE(press.Print(text).Words(), text.Expected());
    }

    void AFailedJobLeavesTheFileOfTheOneBefore() {
        Press press;
        const PrintedText text = PrintedText().Paragraph(100);
        press.Print(text);
        press.printer.failsAtNewPage = 1;
        QCOMPARE(press.Print(Contract(5)).Words(), text.Expected());
    }

    void APaperWithoutRoomForTheMarginsEndsTheJob() {
        Press press;
        press.printer.SetPaper(Inches(1.5, 1.5));
        const PdfPages pdf = press.Print(Contract(2));
        QCOMPARE(pdf.Count(), 1);
        QCOMPARE(press.printer.jobsEnded, 1);
    }
};

QTEST_MAIN(ModPrintRtfTest)
#include "mod_print_rtf_test.moc"
