// From a form in the library to its pages, through the real window.
#include "app/left_toolbar.h"
#include "library/category_browser.h"
#include "output/paper_commands.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/desktop/printer_setup_dialog.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/pdf_pages.h"
#include "tests/support/printed_text.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

namespace {

// An affidavit of a page, as its lawyer gets it from the library.
TestForm Affidavit() {
    QStringList text{u"REPUBLIC OF THE PHILIPPINES )"_qs, u"CITY OF __________ ) S.S."_qs, QString(),
                     u"AFFIDAVIT OF LOSS"_qs, QString()};
    for (int i = 1; i <= 5; ++i)
        text += u"%1. That I have searched for the said document in every place where it could be, that in "
                u"spite of "
                "diligent efforts it could not be found, and that it is now beyond recovery;"_qs.arg(i);
    text += {QString(), u"IN WITNESS WHEREOF, I have set my hand this ___ day of __________."_qs, QString(),
             u"____________________"_qs, u"Affiant"_qs};
    return {u"Affidavit of Loss"_qs, u"Affidavits"_qs, u"Loss"_qs, text.join(u'\n')};
}

struct Office {
    Office() {
        window.services.printer.file = folder.filePath(QStringLiteral("out.pdf"));
        window.services.messageBox.answer = platform::MessageAnswer::Yes;
    }
    void Open() {
        QTest::mouseClick(window->categoryBrowser->CategoryButton(u"btnAffidavits"_qs), Qt::LeftButton);
        TestWindow::ClickEntry(window->categoryBrowser->lstTitle, 0);
    }
    PdfPages Print() {
        QTest::mouseClick(window->leftToolbar->btnPrint, Qt::LeftButton, Qt::NoModifier, {10, 20});
        Keep();
        return PdfPages(window.services.printer.file);
    }
    // For a person to look at: QUILLBROOK_KEEP_PRINTS names a folder.
    void Keep() {
        const QString keep = qEnvironmentVariable("QUILLBROOK_KEEP_PRINTS");
        if (!keep.isEmpty())
            QFile::copy(window.services.printer.file,
                        keep + u'/' + QLatin1String(QTest::currentTestFunction()) + u'-' +
                            QLatin1String(QTest::currentDataTag() ? QTest::currentDataTag() : "") +
                            u".pdf"_qs);
    }
    QStringList Words() { return window->txtContent()->Text().simplified().split(u' '); }

    QTemporaryDir folder;
    TestWindow window{{Affidavit()}};
};

} // namespace

class PrintingTest : public QObject {
    Q_OBJECT

    static void Papers() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QSizeF>("size"); // inches
        QTest::newRow("Long") << u"mnuLongSize"_qs << QSizeF(8.5, 13);
        QTest::newRow("Short") << u"mnuShortSize"_qs << QSizeF(8.5, 11);
        QTest::newRow("A4") << u"mnuA4Size"_qs << QSizeF(8.27, 11.69);
    }
    static QPageSize Sheet(const QSizeF& inches) { return QPageSize(inches, QPageSize::Inch); }

private Q_SLOTS:
    void AnAffidavitIsOnePage_data() { Papers(); }
    void AnAffidavitIsOnePage() {
        QFETCH(QString, entry);
        QFETCH(QSizeF, size);
        Office office;
        QVERIFY(office.window.Show());
        office.window->Menu(entry)->trigger();
        QVERIFY(office.window->Menu(entry)->isChecked());
        office.window.services.printer.SetPaper(Sheet(size));
        office.Open();
        const PdfPages pdf = office.Print();
        QCOMPARE(pdf.Count(), 1);
        QVERIFY(std::abs(pdf.Page(0).size.height() - size.height() * 72) <= 1);
        QCOMPARE(pdf.Words(), office.Words());
        QCOMPARE(office.window.services.printer.newPages, 0);
    }

    void AContractOfThirtyPagesComesOutWhole_data() { Papers(); }
    void AContractOfThirtyPagesComesOutWhole() {
        QFETCH(QString, entry);
        QFETCH(QSizeF, size);
        Office office;
        QVERIFY(office.window.Show());
        office.window->Menu(entry)->trigger();
        office.window.services.printer.SetPaper(Sheet(size));
        office.window->SetTab(Tab::EditForm);
        const PrintedText text = Contract(size.height() > 12 ? 46 : 37);
        office.window->txtContent()->setTextRTF(text.Source());
        const PdfPages pdf = office.Print();
        QVERIFY2(pdf.Count() >= 28 && pdf.Count() <= 34, qPrintable(QString::number(pdf.Count())));
        QCOMPARE(pdf.Words(), text.Expected());
        for (int page = 0; page < pdf.Count(); ++page)
            QVERIFY(pdf.Ink(page).bottom() <= size.height() * 72 - 70);
    }

    // A form with a table of ruled cells, as deeds of several properties have it.
    void AFormWithATableKeepsItsRows_data() { Papers(); }
    void AFormWithATableKeepsItsRows() {
        QFETCH(QSizeF, size);
        Office office;
        QVERIFY(office.window.Show());
        office.window.services.printer.SetPaper(Sheet(size));
        office.window->SetTab(Tab::EditForm);
        PrintedText text;
        text.Heading(4).Paragraph(90);
        std::vector<int> rows; // first word of each
        for (int row = 0; row < 24; ++row) {
            rows.push_back(text.Count());
            text.RuledRow(2 + row % 3);
        }
        text.Paragraph(60).Paragraph(3, QStringLiteral("\\qr"));
        office.window->txtContent()->setTextRTF(text.Source());
        const PdfPages pdf = office.Print();
        QCOMPARE(pdf.Count(), 2);
        QCOMPARE(pdf.Words(), text.Expected());
        for (std::size_t row = 0; row + 1 < rows.size(); ++row) {
            const QStringList first = pdf.Page(0).Texts();
            QCOMPARE(first.contains(PrintedText::Word(rows[row])),
                     first.contains(PrintedText::Word(rows[row + 1] - 1)));
        }
        for (int page = 0; page < pdf.Count(); ++page)
            QVERIFY(pdf.Ink(page).bottom() <= size.height() * 72 - 70);
    }

    void AnEmptyPaneGivesNoPage_data() { Papers(); }
    void AnEmptyPaneGivesNoPage() {
        QFETCH(QSizeF, size);
        Office office;
        QVERIFY(office.window.Show());
        office.window.services.printer.SetPaper(Sheet(size));
        QVERIFY(!office.Print().IsRead());
        QCOMPARE(office.window.services.messageBox.shown.back().text, u"No open document!   "_qs);
    }

    void APaneWithOneBlankIsAnEmptyPage_data() { Papers(); }
    void APaneWithOneBlankIsAnEmptyPage() {
        QFETCH(QSizeF, size);
        Office office;
        QVERIFY(office.window.Show());
        office.window.services.printer.SetPaper(Sheet(size));
        office.window->SetTab(Tab::EditForm);
        QTest::mouseClick(office.window->txtContent()->viewport(), Qt::LeftButton, Qt::NoModifier, {60, 40});
        QTest::keyClick(office.window->txtContent(), Qt::Key_Space);
        QCOMPARE(office.window->txtContent()->Text(), u" "_qs);
        const PdfPages pdf = office.Print();
        QCOMPARE(pdf.Count(), 1);
        QVERIFY(std::abs(pdf.Page(0).size.width() - size.width() * 72) <= 1);
        QVERIFY(pdf.Words().isEmpty());
        QVERIFY(pdf.Ink(0).isEmpty());
    }

    void TheWindowsWidthChangesNoLine() {
        QStringList lines;
        for (const int width : {760, 1400}) {
            Office office;
            QVERIFY(office.window.Show());
            office.window->resize(width, 700);
            office.Open();
            const PdfPages pdf = office.Print();
            QVERIFY(pdf.IsRead());
            if (lines.isEmpty())
                lines = pdf.Lines(0);
            QVERIFY(lines.size() > 15);
            QCOMPARE(pdf.Lines(0), lines);
        }
    }

    void WhatWasTypedIsPrinted() {
        Office office;
        QVERIFY(office.window.Show());
        office.Open();
        QTest::mouseClick(office.window->txtContent()->viewport(), Qt::LeftButton, Qt::NoModifier, {60, 40});
        QTest::keyClick(office.window->txtContent(), Qt::Key_Home, Qt::ControlModifier);
        QTest::keyClicks(office.window->txtContent(), u"DRAFT "_qs);
        QCOMPARE(office.Print().Words().first(), u"DRAFT"_qs);
    }
};

QTEST_MAIN(PrintingTest)
#include "printing_test.moc"
