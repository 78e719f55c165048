// The dialog that chooses the printer and its paper.
#include "platform/desktop/printer_setup_dialog.h"

#include <QtTest>
#include <QtWidgets>

using platform::InstalledPrinter;
using platform::PrinterSettings;
using platform::PrinterSetupDialog;

namespace {

const QPageSize kLetter(QPageSize::Letter);
const QPageSize kLegal(QPageSize::Legal);
const QPageSize kA4(QPageSize::A4);
const QPageSize kA5(QPageSize::A5);

std::vector<InstalledPrinter> TwoPrinters() {
    return {{u"front"_qs, u"Front Office"_qs, {kLegal, kLetter}}, {u"back"_qs, QString(), {kA4, kA5}}};
}

QComboBox* List(const PrinterSetupDialog& dialog, const char* name) {
    return dialog.findChild<QComboBox*>(QLatin1String(name));
}

QStringList Entries(const PrinterSetupDialog& dialog, const char* name) {
    QStringList entries;
    for (int i = 0; i < List(dialog, name)->count(); ++i)
        entries += List(dialog, name)->itemText(i);
    return entries;
}

PrinterSettings Choice(const QString& name, const QPageSize& paper,
                       QPageLayout::Orientation orientation = QPageLayout::Portrait) {
    PrinterSettings settings;
    settings.name = name;
    settings.toPdf = name.isEmpty();
    settings.paper = paper;
    settings.orientation = orientation;
    return settings;
}

bool Same(const PrinterSettings& a, const PrinterSettings& b) {
    return a.name == b.name && a.toPdf == b.toPdf && a.paper == b.paper && a.orientation == b.orientation;
}

} // namespace

class PrinterSetupDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void PrintersAreOfferedByWhatTheyAreCalledAndThenAFile() {
        const PrinterSetupDialog dialog(TwoPrinters(), {}, nullptr);
        QCOMPARE(Entries(dialog, "cboPrinter"),
                 (QStringList{u"Front Office"_qs, u"back"_qs, u"PDF file"_qs}));
    }

    void ItShowsWhatIsChosenAndGivesItBack_data() {
        QTest::addColumn<PrinterSettings>("settings");
        QTest::newRow("first") << Choice(u"front"_qs, kLegal);
        QTest::newRow("its other paper") << Choice(u"front"_qs, kLetter);
        QTest::newRow("second") << Choice(u"back"_qs, kA5);
        QTest::newRow("on its side") << Choice(u"back"_qs, kA4, QPageLayout::Landscape);
        QTest::newRow("file") << Choice(QString(), platform::PdfPapers().last());
    }
    void ItShowsWhatIsChosenAndGivesItBack() {
        QFETCH(PrinterSettings, settings);
        const PrinterSetupDialog dialog(TwoPrinters(), settings, nullptr);
        QVERIFY(Same(dialog.Settings(), settings));
    }

    void WhatIsNotOfferedCountsAsTheFirst() {
        const PrinterSetupDialog gone(TwoPrinters(), Choice(u"sold"_qs, kA4), nullptr);
        QVERIFY(Same(gone.Settings(), Choice(u"front"_qs, kLegal)));
        const PrinterSetupDialog paper(TwoPrinters(), Choice(u"back"_qs, kLegal), nullptr);
        QVERIFY(Same(paper.Settings(), Choice(u"back"_qs, kA4)));
    }

    void APrinterOffersItsOwnPapers() {
        PrinterSetupDialog dialog(TwoPrinters(), {}, nullptr);
        QCOMPARE(Entries(dialog, "cboPaper"), (QStringList{kLegal.name(), kLetter.name()}));
        List(dialog, "cboPrinter")->setCurrentIndex(1);
        QCOMPARE(Entries(dialog, "cboPaper"), (QStringList{kA4.name(), kA5.name()}));
        QVERIFY(Same(dialog.Settings(), Choice(u"back"_qs, kA4)));
    }

    void AFileTakesThePapersOfTheCourts() {
        PrinterSetupDialog dialog(TwoPrinters(), {}, nullptr);
        List(dialog, "cboPrinter")->setCurrentIndex(2);
        QStringList papers = Entries(dialog, "cboPaper");
        papers.sort();
        QCOMPARE(papers, (QStringList{u"A4 (210 x 297 mm)"_qs, u"Legal (8.5 x 14 in)"_qs,
                                      u"Long (8.5 x 13 in)"_qs, u"Short (8.5 x 11 in)"_qs}));
        QVERIFY(dialog.Settings().toPdf);
    }

    void WithoutPrintersThereIsTheFile() {
        const PrinterSetupDialog dialog({}, {}, nullptr);
        QCOMPARE(Entries(dialog, "cboPrinter"), QStringList{u"PDF file"_qs});
        QVERIFY(dialog.Settings().toPdf);
        QVERIFY(dialog.Settings().paper.isValid());
    }

    void OkAndEscape_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("accepted");
        QTest::newRow("Enter") << int(Qt::Key_Return) << true;
        QTest::newRow("Escape") << int(Qt::Key_Escape) << false;
    }
    void OkAndEscape() {
        QFETCH(int, key);
        QFETCH(bool, accepted);
        PrinterSetupDialog dialog(TwoPrinters(), {}, nullptr);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key(key));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result() == QDialog::Accepted, accepted);
    }

    void EveryControlHasANameForAScreenReader() {
        PrinterSetupDialog dialog(TwoPrinters(), {}, nullptr);
        dialog.show();
        int controls = 0;
        for (QWidget* control : dialog.findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus || !control->isVisible())
                continue;
            QVERIFY(!control->objectName().isEmpty());
            QAccessibleInterface* told = QAccessible::queryAccessibleInterface(control);
            QVERIFY2(!told->text(QAccessible::Name).isEmpty(), qPrintable(control->objectName()));
            ++controls;
        }
        QCOMPARE(controls, 6);
    }
};

QTEST_MAIN(PrinterSetupDialogTest)
#include "printer_setup_dialog_test.moc"
