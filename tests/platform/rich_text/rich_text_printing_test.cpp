// Printing page by page: what a rectangle takes, and that nothing is cut, lost or drawn twice.
#include "platform/rich_text/rich_text_printing.h"

#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryFile>
#include <QTest>
#include <cmath>

#include "platform/rich_text/rich_text_box.h"

using platform::RichTextBox;

namespace {

constexpr int kInch = 1440;

// Paper to print on, 100 dots to the inch.
class Paper {
public:
    explicit Paper(int width = 850, int height = 1100)
        : m_image(width, height, QImage::Format_RGB32) {
        m_image.setDotsPerMeterX(3937);
        m_image.setDotsPerMeterY(3937);
        Clear();
        m_painter.begin(&m_image);
    }
    ~Paper() { m_painter.end(); }
    QPainter& Painter() { return m_painter; }
    void Clear() { m_image.fill(Qt::white); }
    // Rows that are not white between two columns, counted in groups that touch: the lines of a text.
    int InkLines(int left = 0, int right = std::numeric_limits<int>::max()) const {
        int lines = 0;
        bool inside = false;
        for (int y = 0; y < m_image.height(); ++y) {
            const bool ink = RowHasInk(y, left, std::min(right, m_image.width()));
            lines += ink && !inside ? 1 : 0;
            inside = ink;
        }
        return lines;
    }
    bool RowHasInk(int y, int left, int right) const {
        for (int x = left; x < right; ++x) {
            if (qGray(m_image.pixel(x, y)) < 200)
                return true;
        }
        return false;
    }
    QRect Ink() const {
        QRect ink;
        for (int y = 0; y < m_image.height(); ++y) {
            for (int x = 0; x < m_image.width(); ++x) {
                if (qGray(m_image.pixel(x, y)) < 200)
                    ink |= QRect(x, y, 1, 1);
            }
        }
        return ink;
    }

private:
    QImage m_image;
    QPainter m_painter;
};

QString Header() {
    return QStringLiteral("{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}}\\f0\\fs24 ");
}

// Paragraphs of a line each.
QString Lines(int count, int from = 0) {
    QString source;
    for (int i = from; i < from + count; ++i)
        source += QStringLiteral("H%1\\par ").arg(i);
    return source;
}

QString Words(int count) {
    QString text;
    for (int i = 0; i < count; ++i)
        text += QStringLiteral("word%1 ").arg(i);
    return text;
}

// The positions at which the pages of a box begin, and the end.
std::vector<int> Pages(RichTextBox& box, QPainter& painter, const QRect& rectangle) {
    std::vector<int> starts{0};
    const auto length = int(box.Text().size());
    while (starts.back() < length && starts.size() < 1000) {
        const int next = box.FormatRange(painter, rectangle, starts.back(), false);
        if (next <= starts.back())
            return {};
        starts.push_back(next);
    }
    return starts;
}

QString PageText(const RichTextBox& box, const std::vector<int>& pages, std::size_t page) {
    return box.Text().mid(pages[page], pages[page + 1] - pages[page]);
}

} // namespace

class RichTextPrintingTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NegativeIndentsAndWideTablesReachIntoTheMargins() {
        const QRect text(kInch, kInch, 4 * kInch, 4 * kInch);
        RichTextBox hanging;
        hanging.setTextRTF(Header() + QStringLiteral("\\pard\\fi-720 Word\\par}"));
        Paper paper;
        hanging.FormatRange(paper.Painter(), text, 0, true);
        QVERIFY2(std::abs(paper.Ink().left() - 50) <= 6, qPrintable(QString::number(paper.Ink().left())));
        RichTextBox wide;
        wide.setTextRTF(
            Header() +
            QStringLiteral("\\trowd\\clbrdrr\\brdrs\\brdrw30\\cellx8640\\pard\\intbl a\\cell\\row}"));
        paper.Clear();
        wide.FormatRange(paper.Painter(), text, 0, true);
        QVERIFY(paper.Ink().right() > 650);
    }

    void WhatFitsIsTakenWhole() {
        RichTextBox box;
        box.setTextRTF(Header() + Lines(5) + u'}');
        Paper paper;
        const QRect page(kInch, kInch, 6 * kInch, 9 * kInch);
        QCOMPARE(box.FormatRange(paper.Painter(), page, 0, true), int(box.Text().size()));
        QCOMPARE(paper.InkLines(), 5);
        const QRect ink = paper.Ink();
        QVERIFY(ink.left() >= 100 && ink.left() < 105);
        QVERIFY(ink.top() >= 100 && ink.top() < 110);
    }

    void MeasuringDrawsNothing() {
        RichTextBox box;
        box.setTextRTF(Header() + Lines(100) + u'}');
        Paper paper;
        const QRect page(kInch, kInch, 6 * kInch, 3 * kInch);
        const int measured = box.FormatRange(paper.Painter(), page, 0, false);
        QCOMPARE(paper.InkLines(), 0);
        QCOMPARE(box.FormatRange(paper.Painter(), page, 0, true), measured);
        QVERIFY(paper.InkLines() > 0);
    }

    void EachLineIsDrawnOnOnePageAndWhole_data() {
        QTest::addColumn<int>("height"); // twips
        for (const int height : {300, 500, 777, 1440, 2000, 4321, 9 * kInch})
            QTest::addRow("%d", height) << height;
    }
    void EachLineIsDrawnOnOnePageAndWhole() {
        QFETCH(int, height);
        RichTextBox box;
        box.setTextRTF(Header() + Lines(60) + u'}');
        Paper paper;
        const QRect page(kInch, 200, 6 * kInch, height);
        int lines = 0;
        int first = 0;
        const auto length = int(box.Text().size());
        while (first < length) {
            paper.Clear();
            const int next = box.FormatRange(paper.Painter(), page, first, true);
            QVERIFY(next > first);
            const QString text = box.Text().mid(first, next - first);
            QCOMPARE(paper.InkLines(), int(text.trimmed().count(u'\n')) + 1);
            const QRect ink = paper.Ink();
            QVERIFY(ink.bottom() <= (200 + height) * 100 / kInch + 1);
            lines += paper.InkLines();
            first = next;
        }
        QCOMPARE(lines, 60);
    }

    void LineBreaksFollowTheRectangleAndNotTheWindow() {
        RichTextBox narrow;
        RichTextBox wide;
        for (RichTextBox* box : {&narrow, &wide})
            box->setTextRTF(Header() + Words(2000) + QStringLiteral("\\par}"));
        narrow.resize(120, 300);
        wide.resize(1500, 300);
        wide.setPageLike(true);
        narrow.show();
        wide.show();
        Paper paper;
        const QRect page(0, 0, 6 * kInch, 4 * kInch);
        const auto pages = Pages(narrow, paper.Painter(), page);
        QVERIFY(pages.size() > 3);
        QCOMPARE(Pages(wide, paper.Painter(), page), pages);
        const auto narrower = Pages(wide, paper.Painter(), QRect(0, 0, 3 * kInch, 4 * kInch));
        QVERIFY(narrower.size() > pages.size());
    }

    void AResolutionChangesHardlyAPage() {
        RichTextBox box;
        box.setTextRTF(Header() + Words(3000) + QStringLiteral("\\par}"));
        QTemporaryFile file;
        QVERIFY(file.open());
        QPdfWriter pdf(&file);
        pdf.setResolution(1200);
        QPainter fine(&pdf);
        Paper coarse;
        const QRect page(0, 0, 6 * kInch, 8 * kInch);
        const auto finePages = Pages(box, fine, page);
        const auto coarsePages = Pages(box, coarse.Painter(), page);
        QVERIFY(finePages.size() > 3);
        QCOMPARE(finePages.size(), coarsePages.size());
    }

    void IndentsAreOfTheSameLengthOnEveryDevice() {
        RichTextBox box;
        box.setTextRTF(Header() + QStringLiteral("\\pard\\li1440 H\\par}"));
        Paper paper; // at 100 dots to the inch
        box.FormatRange(paper.Painter(), QRect(0, 0, 6 * kInch, kInch), 0, true);
        QVERIFY2(std::abs(paper.Ink().left() - 100) <= 3, qPrintable(QString::number(paper.Ink().left())));
    }

    void APageMayBeginWithinALine() {
        RichTextBox box;
        box.setTextRTF(Header() + Lines(40) + u'}');
        Paper paper;
        const QRect page(0, 0, 6 * kInch, 2 * kInch);
        const auto lineStart = int(box.Text().indexOf(QStringLiteral("H20")));
        const int fromStart = box.FormatRange(paper.Painter(), page, lineStart, false);
        QCOMPARE(box.FormatRange(paper.Painter(), page, lineStart + 2, false), fromStart);
        QVERIFY(fromStart > lineStart);
        QCOMPARE(box.FormatRange(paper.Painter(), page, -5, false),
                 box.FormatRange(paper.Painter(), page, 0, false));
        const auto length = int(box.Text().size());
        QCOMPARE(box.FormatRange(paper.Painter(), page, length, false), length);
        QCOMPARE(box.FormatRange(paper.Painter(), page, length + 7, false), length);
    }

    void NothingIsTakenWhereThereIsNothing() {
        RichTextBox box;
        Paper paper;
        const QRect page(0, 0, 6 * kInch, 2 * kInch);
        QCOMPARE(box.FormatRange(paper.Painter(), page, 0, true), 0);
        box.setText(QStringLiteral("text"));
        QCOMPARE(box.FormatRange(paper.Painter(), QRect(), 0, true), 4);
        QCOMPARE(box.FormatRange(paper.Painter(), QRect(0, 0, 100, 0), 0, true), 4);
        QCOMPARE(paper.InkLines(), 0);
        QPainter idle;
        QCOMPARE(box.FormatRange(idle, page, 0, true), 4);
    }

    void ALineTallerThanThePageIsStillTaken() {
        RichTextBox box;
        box.setTextRTF(Header() + QStringLiteral("\\fs200 A\\par B\\par C\\par}"));
        Paper paper;
        const auto pages = Pages(box, paper.Painter(), QRect(0, 0, 6 * kInch, 300));
        QCOMPARE(pages, (std::vector<int>{0, 2, 4, 5}));
    }

    void AChangeOfTheTextIsPrinted() {
        RichTextBox box;
        box.setTextRTF(Header() + Lines(3) + u'}');
        Paper paper;
        const QRect page(0, 0, 6 * kInch, 9 * kInch);
        box.FormatRange(paper.Painter(), page, 0, true);
        box.setSelText(QStringLiteral("HH\n"));
        paper.Clear();
        QCOMPARE(box.FormatRange(paper.Painter(), page, 0, true), int(box.Text().size()));
        QCOMPARE(paper.InkLines(), 4);
        box.FormatRangeRelease();
        paper.Clear();
        box.FormatRange(paper.Painter(), page, 0, true);
        QCOMPARE(paper.InkLines(), 4);
    }

    void APageBreakBeginsAPage() {
        RichTextBox box;
        box.setTextRTF(Header() + QStringLiteral("one\\par\\pard\\pagebb two\\par\\pard three\\par}"));
        Paper paper;
        const auto pages = Pages(box, paper.Painter(), QRect(0, 0, 6 * kInch, 9 * kInch));
        QCOMPARE(pages, (std::vector<int>{0, 4, int(box.Text().size())}));
    }

    void ATableRowIsNotParted() {
        const QString row =
            QStringLiteral("\\trowd\\cellx3000\\cellx6000\\intbl a\\par b\\par c\\cell d\\cell\\row");
        RichTextBox box;
        box.setTextRTF(Header() + Lines(4) + row.repeated(12) + QStringLiteral("\\pard end\\par}"));
        Paper paper;
        const auto pages = Pages(box, paper.Painter(), QRect(0, 0, 6 * kInch, 1800));
        QVERIFY(pages.size() > 4);
        int rows = 0;
        for (std::size_t page = 0; page + 1 < pages.size(); ++page) {
            const QString text = PageText(box, pages, page);
            QCOMPARE(text.count(u'a'), text.count(u'd') - text.count(QStringLiteral("end")));
            rows += int(text.count(u'a'));
        }
        QCOMPARE(rows, 12);
        int lines = 0;
        for (std::size_t page = 0; page + 1 < pages.size(); ++page) {
            paper.Clear();
            box.FormatRange(paper.Painter(), QRect(0, 0, 6 * kInch, 1800), pages[page], true);
            lines += paper.InkLines();
        }
        QCOMPARE(lines, 4 + 12 * 3 + 1);
    }

    void ARowTallerThanThePageGoesOnWithNoLineLost() {
        QString small;
        QString large;
        for (int i = 0; i < 50; ++i)
            small += QStringLiteral("H%1\\par ").arg(i);
        for (int i = 0; i < 20; ++i)
            large += QStringLiteral("H%1\\par ").arg(i);
        RichTextBox box;
        box.setTextRTF(Header() + QStringLiteral("\\trowd\\cellx4320\\cellx8640\\intbl ") + small +
                       QStringLiteral("\\cell\\fs50 ") + large + QStringLiteral("\\cell\\row\\pard\\par}"));
        Paper paper;
        const QRect page(0, 0, 6 * kInch, 2 * kInch);
        int left = 0;
        int right = 0;
        int first = 0;
        const auto length = int(box.Text().size());
        while (first < length) {
            paper.Clear();
            const int next = box.FormatRange(paper.Painter(), page, first, false);
            QVERIFY(next > first);
            QCOMPARE(box.FormatRange(paper.Painter(), page, first, true), next);
            left += paper.InkLines(0, 290);
            right += paper.InkLines(310, 600);
            first = next;
        }
        QCOMPARE(left, 50);
        QCOMPARE(right, 20);
    }

    void ParagraphsKeptTogetherMoveToTheNextPage() {
        const QString kept =
            QStringLiteral("\\pard\\keep k1\\line k2\\line k3\\line k4\\line k5\\par\\pard ");
        RichTextBox box;
        box.setTextRTF(Header() + Lines(8) + kept + Lines(3, 8) + u'}');
        Paper paper;
        const auto pages = Pages(box, paper.Painter(), QRect(0, 0, 6 * kInch, 2 * kInch));
        QVERIFY(pages.size() >= 3);
        const auto start = int(box.Text().indexOf(QStringLiteral("k1")));
        QCOMPARE(pages[1], start);
    }

    void HeadingsStayWithTheirText() {
        RichTextBox box;
        box.setTextRTF(Header() + Lines(9) + QStringLiteral("\\pard\\keepn head1\\par head2\\par\\pard ") +
                       Words(200) + QStringLiteral("\\par}"));
        Paper paper;
        const auto head = int(box.Text().indexOf(QStringLiteral("head1")));
        bool moved = false;
        for (int height = 2000; height < 4000; height += 40) {
            const auto pages = Pages(box, paper.Painter(), QRect(0, 0, 6 * kInch, height));
            QVERIFY(pages.size() >= 2);
            for (std::size_t i = 1; i + 1 < pages.size(); ++i) {
                // no page ends between the headings and the first line of the text
                const QString before = box.Text().mid(head, std::max(0, pages[i] - head));
                QVERIFY2(before.isEmpty() || before.contains(QStringLiteral("word0")), qPrintable(before));
                moved = moved || pages[i] == head;
            }
        }
        QVERIFY(moved);
    }

    void AChainOfHeadingsLongerThanAPageFillsPages() {
        RichTextBox box;
        QString source = Header() + QStringLiteral("\\pard\\keepn ");
        box.setTextRTF(source + Lines(100) + u'}');
        RichTextBox plain;
        plain.setTextRTF(Header() + Lines(100) + u'}');
        Paper paper;
        const QRect page(0, 0, 6 * kInch, 3 * kInch);
        QCOMPARE(Pages(box, paper.Painter(), page), Pages(plain, paper.Painter(), page));
    }

    void AKeptParagraphIsStillWrapped() {
        RichTextBox box;
        box.setTextRTF(Header() + QStringLiteral("\\pard\\keep ") + Words(200) + QStringLiteral("\\par}"));
        Paper paper;
        box.FormatRange(paper.Painter(), QRect(0, 0, 6 * kInch, 9 * kInch), 0, true);
        QVERIFY(paper.InkLines() > 10);
        QVERIFY(paper.Ink().right() <= 600);
    }

    void MarkersArePrinted() {
        RichTextBox box;
        box.setTextRTF(Header() +
                       QStringLiteral("\\pard\\fi-360\\li720{\\pntext\\u8226?\\tab}{\\*\\pn\\pnlvlblt"
                                      "{\\pntxtb\\u8226?}}H\\par}"));
        Paper paper;
        box.FormatRange(paper.Painter(), QRect(0, 0, 6 * kInch, kInch), 0, true);
        const QRect ink = paper.Ink();
        QVERIFY2(ink.left() >= 25 && ink.left() < 40, qPrintable(QString::number(ink.left())));
        QVERIFY(ink.right() > 50);
    }

    void APictureTallerThanThePageIsMadeToFit() {
        RichTextBox box;
        box.setTextRTF(
            QStringLiteral("{\\rtf1{\\pict\\pngblip\\picwgoal6000\\pichgoal60000 "
                           "89504e470d0a1a0a0000000d49484452000000010000000108000000003a7e9b55000000"
                           "0a49444154789c636000000002000148afa4710000000049454e44ae426082}\\par end\\par}"));
        Paper paper;
        const QRect page(0, 0, 6 * kInch, 5 * kInch);
        const auto pages = Pages(box, paper.Painter(), page);
        QVERIFY(pages.size() <= 3);
        box.FormatRange(paper.Painter(), page, 0, true);
        QVERIFY(paper.Ink().bottom() <= 500);
    }

    void TheTextIsPrintedBlackOnADarkDesktop() {
        RichTextBox box;
        QPalette dark;
        dark.setColor(QPalette::Text, Qt::white);
        dark.setColor(QPalette::Base, Qt::black);
        box.setPalette(dark);
        box.setTextRTF(Header() + QStringLiteral("H\\par}"));
        Paper paper;
        box.FormatRange(paper.Painter(), QRect(0, 0, 6 * kInch, kInch), 0, true);
        QCOMPARE(paper.InkLines(), 1);
    }

    void ManyPagesAreFastToPrint() {
        RichTextBox box;
        QString source = Header();
        for (int i = 0; i < 1500; ++i)
            source += Words(40) + QStringLiteral("\\par ");
        box.setTextRTF(source + u'}');
        Paper paper;
        QElapsedTimer clock;
        clock.start();
        const auto pages = Pages(box, paper.Painter(), QRect(0, 0, 6 * kInch, 9 * kInch));
        QVERIFY(pages.size() > 100);
        QVERIFY2(clock.elapsed() < 10'000, qPrintable(QString::number(clock.elapsed())));
    }
};

QTEST_MAIN(RichTextPrintingTest)
#include "rich_text_printing_test.moc"
