// The job on a printer: what opens it, what its sheet tells, and how it ends when something fails.
#include "platform/desktop/printer.h"

#include "tests/support/pdf_pages.h"

#include <QPainter>
#include <QtTest>

#include <csignal>
#include <sys/resource.h>

using platform::Printer;
using platform::PrinterPage;
using platform::PrinterSettings;

namespace {

constexpr int kTwipsPerPoint = 20;

// A printer into a file, in a place without other printers.
class FilePrinter final : public Printer {
public:
    FilePrinter()
        : Printer(u"Test"_qs) {
        PrinterSettings settings;
        settings.toPdf = true;
        settings.paper = QPageSize(QPageSize::Letter);
        SetSettings(settings);
    }
    void Lay(QPageLayout::Orientation orientation) {
        PrinterSettings settings = Settings();
        settings.orientation = orientation;
        SetSettings(settings);
    }
    PdfPages Pages() const { return PdfPages(file); }

    QTemporaryDir folder;
    QString file = folder.filePath(u"out.pdf"_qs);
    QMarginsF border;
    int filesAskedFor = 0;

protected:
    QString AskForFile() override {
        ++filesAskedFor;
        return file;
    }
    QString DefaultPrinter() const override { return {}; }
    QMarginsF PdfBorder() const override { return border; }
};

// Files of this process cannot grow beyond a size while it lives, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int) = nullptr;
};

} // namespace

class PrinterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NothingIsThereBeforeAJob() {
        FilePrinter printer;
        QVERIFY(!printer.DeviceContext());
        QCOMPARE(printer.Page().paper, QSize());
        QCOMPARE(printer.Page().dotsPerInch, QPoint());
        QVERIFY(!printer.NewPage());
        QVERIFY(!printer.EndDoc());
        QCOMPARE(printer.filesAskedFor, 0);
    }

    void PrintingABlankOpensTheJob() {
        FilePrinter printer;
        QVERIFY(printer.Print(u" "_qs));
        QVERIFY(printer.DeviceContext());
        QVERIFY(printer.Print(u" "_qs));
        QCOMPARE(printer.filesAskedFor, 1);
        QVERIFY(printer.EndDoc());
        QVERIFY(!printer.DeviceContext());
        QCOMPARE(printer.Pages().Count(), 1);
        QVERIFY(printer.Pages().Page(0).words.empty());
    }

    void TextIsPrintedAtTheCornerOfTheSheet() {
        FilePrinter printer;
        printer.border = QMarginsF(18, 36, 18, 18);
        QVERIFY(printer.Print(u"corner"_qs));
        QVERIFY(printer.EndDoc());
        QCOMPARE(printer.Pages().Words(), QStringList{u"corner"_qs});
        const QRectF place = printer.Pages().Page(0).words[0].place;
        QVERIFY(std::abs(place.left() - 18) < 2);
        QVERIFY(place.top() > 30 && place.top() < 44);
    }

    void EachSheetIsAPage() {
        FilePrinter printer;
        for (const QString& word : {u"one"_qs, u"two"_qs, u"three"_qs}) {
            QVERIFY(printer.Print(word));
            QVERIFY(word == u"three"_qs || printer.NewPage());
        }
        QVERIFY(printer.EndDoc());
        QCOMPARE(printer.Pages().Count(), 3);
        QCOMPARE(printer.Pages().Page(1).Texts(), QStringList{u"two"_qs});
    }

    void TheSheetTellsItsPaperAndItsPrintablePart_data() {
        QTest::addColumn<QPageSize>("paper");
        QTest::addColumn<bool>("landscape");
        QTest::addColumn<QMarginsF>("border");
        QTest::addColumn<QSize>("points");
        const QPageSize letter(QPageSize::Letter);
        QTest::newRow("Short") << letter << false << QMarginsF() << QSize(612, 792);
        QTest::newRow("Short on its side") << letter << true << QMarginsF() << QSize(792, 612);
        QTest::newRow("Long") << QPageSize(QSizeF(8.5, 13), QPageSize::Inch) << false << QMarginsF()
                              << QSize(612, 936);
        QTest::newRow("odd points") << QPageSize(QSizeF(401, 555), QPageSize::Point) << false << QMarginsF()
                                    << QSize(401, 555);
        QTest::newRow("border") << letter << false << QMarginsF(18, 9, 27, 36) << QSize(612, 792);
    }
    void TheSheetTellsItsPaperAndItsPrintablePart() {
        QFETCH(QPageSize, paper);
        QFETCH(bool, landscape);
        QFETCH(QMarginsF, border);
        QFETCH(QSize, points);
        FilePrinter printer;
        PrinterSettings settings = printer.Settings();
        settings.paper = paper;
        settings.orientation = landscape ? QPageLayout::Landscape : QPageLayout::Portrait;
        printer.SetSettings(settings);
        printer.border = border;
        QVERIFY(printer.Print(u" "_qs));
        const PrinterPage page = printer.Page();
        QCOMPARE(page.paper, points * kTwipsPerPoint);
        const QSize reached =
            points - QSize(int(border.left() + border.right()), int(border.top() + border.bottom()));
        const QSize off = page.printable - reached * kTwipsPerPoint; // a dot of the device at most
        QVERIFY(std::abs(off.width()) <= 2 && std::abs(off.height()) <= 2);
        QCOMPARE(page.offset, QPoint(qRound(border.left() * page.dotsPerInch.x() / 72),
                                     qRound(border.top() * page.dotsPerInch.y() / 72)));
        QVERIFY(page.dotsPerInch.x() >= 300 && page.dotsPerInch.y() >= 300);
    }

    void MillimetresAreNotRounded() {
        FilePrinter printer;
        PrinterSettings settings = printer.Settings();
        settings.paper = QPageSize(QPageSize::A4);
        printer.SetSettings(settings);
        QVERIFY(printer.Print(u" "_qs));
        QCOMPARE(printer.Page().paper, QSize(11906, 16838));
    }

    void AChoiceIsForTheJobsOpenedFromThenOn() {
        FilePrinter printer;
        QVERIFY(printer.Print(u" "_qs));
        const QSize paper = printer.Page().paper;
        printer.Lay(QPageLayout::Landscape);
        QCOMPARE(printer.Page().paper, paper);
        printer.EndDoc();
        QVERIFY(printer.Print(u" "_qs));
        QCOMPARE(printer.Page().paper, paper.transposed());
    }

    void WithoutAPrinterAJobDoesNotOpen() {
        FilePrinter printer;
        printer.SetSettings({});
        QVERIFY(!printer.Print(u" "_qs));
        QVERIFY(!printer.DeviceContext());
        QVERIFY(!printer.NewPage());
        QVERIFY(!printer.EndDoc());
        QCOMPARE(printer.filesAskedFor, 0);
    }

    void APrinterThatIsNotInstalledOpensNoJob() {
        FilePrinter printer;
        PrinterSettings settings;
        settings.name = u"no such printer"_qs;
        printer.SetSettings(settings);
        QVERIFY(!printer.Print(u" "_qs));
        QVERIFY(!printer.EndDoc());
    }

    void WithoutAFileAJobDoesNotOpenAndIsAskedForOnce() {
        FilePrinter printer;
        const QString file = std::exchange(printer.file, QString());
        QVERIFY(!printer.Print(u" "_qs));
        QVERIFY(!printer.Print(u" "_qs)); // the next page of the same job
        QCOMPARE(printer.filesAskedFor, 1);
        QVERIFY(!printer.EndDoc());
        printer.file = file;
        QVERIFY(printer.Print(u"later"_qs));
        QVERIFY(printer.EndDoc());
        QCOMPARE(printer.Pages().Words(), QStringList{u"later"_qs});
    }

    void ADiskThatFillsUpLeavesTheFileThatWasThere() {
        FilePrinter printer;
        QVERIFY(printer.Print(u"before"_qs));
        QVERIFY(printer.EndDoc());
        {
            const FullDisk disk(30'000);
            QVERIFY(printer.Print(u" "_qs));
            for (int page = 0; page < 200; ++page) {
                for (int line = 0; line < 50 && printer.DeviceContext(); ++line)
                    printer.DeviceContext()->drawLine(line * 7, page, page * 11, line * 13 + page);
                printer.NewPage();
            }
            QVERIFY(!printer.DeviceContext());
            QVERIFY(!printer.Print(u" "_qs));
            QVERIFY(!printer.EndDoc());
        }
        QCOMPARE(printer.Pages().Words(), QStringList{u"before"_qs});
        QCOMPARE(QDir(printer.folder.path()).entryList(QDir::Files), QStringList{u"out.pdf"_qs});
        QVERIFY(printer.Print(u"after"_qs));
        QVERIFY(printer.EndDoc());
        QCOMPARE(printer.Pages().Words(), QStringList{u"after"_qs});
    }

    void APrinterThatGoesEndsItsJob() {
        QTemporaryDir folder;
        const QString file = folder.filePath(u"out.pdf"_qs);
        {
            FilePrinter printer;
            printer.file = file;
            QVERIFY(printer.Print(u"whole"_qs));
        }
        QCOMPARE(PdfPages(file).Words(), QStringList{u"whole"_qs});
    }
};

QTEST_MAIN(PrinterTest)
#include "printer_test.moc"
