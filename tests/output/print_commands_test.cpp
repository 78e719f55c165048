// The commands of printing: what they ask and say, which pane they print, and when the word processor does
// it.
#include "output/print_commands.h"

#include "app/left_toolbar.h"
#include "app/menu_tree.h"
#include "output/paper_commands.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/pdf_pages.h"
#include "tests/support/printed_text.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

namespace {

// The window with a printer that writes a file.
struct Office {
    Office() {
        window.services.printer.file = folder.filePath(QStringLiteral("out.pdf"));
        window.services.messageBox.answer = MessageAnswer::Yes;
    }
    std::vector<ScriptedMessageBox::Shown>& Messages() { return window.services.messageBox.shown; }
    ScriptedPrinter& Printer() { return window.services.printer; }
    PdfPages Paper() { return PdfPages(Printer().file); }

    QTemporaryDir folder;
    TestWindow window;
};

} // namespace

class PrintCommandsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AnEmptyPaneIsNotPrinted() {
        Office office;
        office.window->printCommands->Print();
        QCOMPARE(office.Messages().size(), std::size_t(1));
        const auto& message = office.Messages().front();
        QCOMPARE(message.text, u"No open document!   "_qs);
        QCOMPARE(message.title, u"Print"_qs);
        QCOMPARE(message.icon, MessageIcon::Exclamation);
        QCOMPARE(message.buttons, MessageButtons::Ok);
        QVERIFY(office.Printer().printed.isEmpty());
        QCOMPARE(office.Printer().jobsEnded, 0);
    }

    void ItAsksBeforeItPrints_data() {
        QTest::addColumn<MessageAnswer>("answer");
        QTest::addColumn<bool>("printed");
        QTest::newRow("Yes") << MessageAnswer::Yes << true;
        QTest::newRow("No") << MessageAnswer::No << false;
    }
    void ItAsksBeforeItPrints() {
        QFETCH(MessageAnswer, answer);
        QFETCH(bool, printed);
        Office office;
        office.window.services.messageBox.answer = answer;
        office.window->txtContent()->setText(u"one form"_qs);
        office.window->printCommands->Print();
        QCOMPARE(office.Messages().size(), std::size_t(1));
        const auto& message = office.Messages().front();
        QCOMPARE(message.text, u"Print Document?   "_qs);
        QCOMPARE(message.title, u"Print"_qs);
        QCOMPARE(message.icon, MessageIcon::Question);
        QCOMPARE(message.buttons, MessageButtons::YesNo);
        QCOMPARE(office.Paper().IsRead(), printed);
        QCOMPARE(office.Printer().jobsEnded, printed ? 1 : 0);
    }

    void EachPagePrintsItsOwnPane_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QString>("word");
        for (int tab = 0; tab < 6; ++tab)
            QTest::addRow("%d", tab) << tab << (tab == 5 ? u"own"_qs : u"reading"_qs);
    }
    void EachPagePrintsItsOwnPane() {
        QFETCH(int, tab);
        QFETCH(QString, word);
        Office office;
        office.window->SetTab(Tab(tab));
        office.window->txtContent()->setText(u"reading"_qs);
        office.window->txtMyContent()->setText(u"own"_qs);
        office.window->printCommands->Print();
        QCOMPARE(office.Paper().Words(), QStringList{word});
    }

    void TheButtonAndTheMenuPrint_data() {
        QTest::addColumn<bool>("byButton");
        QTest::newRow("btnPrint") << true;
        QTest::newRow("mnuPrint") << false;
    }
    void TheButtonAndTheMenuPrint() {
        QFETCH(bool, byButton);
        Office office;
        QVERIFY(office.window.Show());
        office.window->txtContent()->setText(u"form"_qs);
        if (byButton)
            QTest::mouseClick(office.window->leftToolbar->btnPrint, Qt::LeftButton, Qt::NoModifier, {10, 20});
        else
            office.window->Menu(u"mnuPrint"_qs)->trigger();
        QCOMPARE(office.Paper().Words(), QStringList{u"form"_qs});
        QCOMPARE(office.Messages().size(), std::size_t(1));
    }

    void ThePageSetupHasNoEffectOnDirectPrinting() {
        Office office;
        office.window->Menu(u"mnuA4Size"_qs)->trigger();
        QWidget* dialog = office.window->Windows().Load(u"frmPageSetup"_qs);
        for (const char* box : {"txtLeft", "txtRight", "txtTop", "txtBottom"})
            dialog->findChild<QLineEdit*>(QLatin1String(box))->setText(u"2"_qs);
        QCOMPARE(office.window->paperCommands->Model().Inches(PageBox::Left), 2.0);
        office.window->txtContent()->setText(u"form"_qs);
        office.window->printCommands->Print();
        const PdfPages paper = office.Paper();
        QCOMPARE(paper.Page(0).size, QSizeF(612, 792));
        QCOMPARE(paper.Page(0).words.size(), std::size_t(1));
        const QRectF place = paper.Page(0).words[0].place;
        QVERIFY2(std::abs(place.left() - 81) < 1, qPrintable(QString::number(place.left())));
        QVERIFY(place.top() > 71 && place.top() < 78);
    }

    void TheMarginsAreAnInchAndMoreAtTheLeftForBothPanes_data() {
        QTest::addColumn<int>("tab");
        QTest::newRow("form") << int(Tab::EditForm);
        QTest::newRow("my form") << int(Tab::MyForms);
    }
    void TheMarginsAreAnInchAndMoreAtTheLeftForBothPanes() {
        QFETCH(int, tab);
        Office office;
        office.window->SetTab(Tab(tab));
        office.window->ActivePane()->setTextRTF(PrintedText().Paragraph(2000, u"\\qj"_qs).Source());
        office.window->printCommands->Print();
        const PdfPages paper = office.Paper();
        QVERIFY(paper.Count() > 2);
        QRectF used;
        for (const PdfPage& page : paper.Pages())
            for (const PdfWord& word : page.words)
                used |= word.place;
        const QString told =
            u"%1 %2 %3 %4"_qs.arg(used.left()).arg(used.top()).arg(used.right()).arg(used.bottom());
        QVERIFY2(std::abs(used.left() - 81) < 1, qPrintable(told));
        QVERIFY2(used.top() > 71 && used.top() < 78, qPrintable(told));
        QVERIFY2(std::abs(used.right() - (612 - 72)) < 1.5, qPrintable(told));
        QVERIFY2(used.bottom() < 792 - 72 + 1 && used.bottom() > 792 - 72 - 20, qPrintable(told));
    }

    void APaneWithOneBlankIsPrinted_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("blank") << u" "_qs;
        QTest::newRow("paragraph mark") << u"\n"_qs;
    }
    void APaneWithOneBlankIsPrinted() {
        QFETCH(QString, text);
        Office office;
        office.window->txtContent()->setText(text);
        office.window->printCommands->Print();
        QCOMPARE(office.Messages().front().text, u"Print Document?   "_qs);
        QCOMPARE(office.Paper().Count(), 1);
    }

    void APrinterThatFailsIsNotTold_data() {
        QTest::addColumn<bool>("installed");
        QTest::newRow("no printer") << false;
        QTest::newRow("fails on the second page") << true;
    }
    void APrinterThatFailsIsNotTold() {
        QFETCH(bool, installed);
        Office office;
        if (!installed)
            office.Printer().Remove();
        office.Printer().failsAtNewPage = 1;
        office.window->txtContent()->setText(u"many words "_qs.repeated(4000));
        office.window->printCommands->Print();
        QCOMPARE(office.Messages().size(), std::size_t(1)); // the question
        QVERIFY(!office.Paper().IsRead());
        QCOMPARE(office.Printer().jobsEnded, 1);
        QVERIFY(!QApplication::overrideCursor());
    }

    void PrintingLeavesTheDocumentAsItIs() {
        Office office;
        office.window->SetTab(Tab::EditForm);
        office.window->txtContent()->setText(u"form"_qs);
        office.window->State().DocumentSaved = true;
        const bool undo = office.window->Menu(u"mnuUndo"_qs)->isEnabled();
        office.window->printCommands->Print();
        QVERIFY(office.window->State().DocumentSaved);
        QCOMPARE(office.window->Menu(u"mnuUndo"_qs)->isEnabled(), undo);
        QCOMPARE(office.window->txtContent()->Text(), u"form"_qs);
    }

    void TheWordProcessorPrintsWhereItIsThere_data() {
        QTest::addColumn<bool>("there");
        QTest::newRow("there") << true;
        QTest::newRow("not there") << false;
    }
    void TheWordProcessorPrintsWhereItIsThere() {
        QFETCH(bool, there);
        Office office;
        int asked = 0;
        office.window->printCommands->SetPrintRoute([&] {
            ++asked;
            return there;
        });
        office.window->txtContent()->setText(u"form"_qs);
        office.window->printCommands->Print();
        QCOMPARE(asked, 1);
        QCOMPARE(office.Messages().empty(), there);
        QCOMPARE(office.Paper().IsRead(), !there);
    }

    void PreviewNeedsTheWordProcessor_data() {
        QTest::addColumn<QString>("entry");
        QTest::newRow("menu") << u"mnuPrintPreview"_qs;
        QTest::newRow("drop-down menu") << u"mnuPrintPreviewDrop"_qs;
    }
    void PreviewNeedsTheWordProcessor() {
        QFETCH(QString, entry);
        Office office;
        office.window->Menu(entry)->trigger();
        QCOMPARE(office.Messages().size(), std::size_t(1));
        const auto& message = office.Messages().front();
        QCOMPARE(message.text,
                 u"An error occurred while opening Print Preview!   \n\nIf the problem persists, "
                 "please restart the Program.   "_qs);
        QCOMPARE(message.title, u"Print Preview Error!"_qs);
        QCOMPARE(message.icon, MessageIcon::Critical);
        office.window->printCommands->SetPreviewRoute([] { return true; });
        office.window->Menu(entry)->trigger();
        QCOMPARE(office.Messages().size(), std::size_t(1));
    }

    void TheEntriesOfPrinterSetupShowItsDialog_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("confirmed");
        QTest::newRow("menu") << u"mnuPrintSetup"_qs << true;
        QTest::newRow("drop-down menu") << u"mnuPrinterSetupDrop"_qs << true;
        QTest::newRow("cancelled") << u"mnuPrintSetup"_qs << false;
    }
    void TheEntriesOfPrinterSetupShowItsDialog() {
        QFETCH(QString, entry);
        QFETCH(bool, confirmed);
        Office office;
        office.Printer().setupConfirmed = confirmed;
        office.window->Menu(entry)->trigger();
        QCOMPARE(office.Printer().setupsShown, 1);
        QVERIFY(office.Messages().empty());
        QVERIFY(office.Printer().printed.isEmpty());
    }

    void PendingEventsRunAfterPrintingAndAfterAPrinterSetup_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<bool>("confirmed");
        QTest::addColumn<bool>("run");
        QTest::newRow("printed") << u"mnuPrint"_qs << true << true;
        QTest::newRow("not printed") << u"mnuPrint"_qs << false << false;
        QTest::newRow("setup") << u"mnuPrintSetup"_qs << true << true;
        QTest::newRow("setup cancelled") << u"mnuPrintSetup"_qs << false << false;
    }
    void PendingEventsRunAfterPrintingAndAfterAPrinterSetup() {
        QFETCH(QString, entry);
        QFETCH(bool, confirmed);
        QFETCH(bool, run);
        Office office;
        office.window->txtContent()->setText(u"form"_qs);
        office.Printer().setupConfirmed = confirmed;
        office.window.services.messageBox.answer = confirmed ? MessageAnswer::Yes : MessageAnswer::No;
        bool ran = false;
        QMetaObject::invokeMethod(
            &*office.window, [&ran] { ran = true; }, Qt::QueuedConnection);
        office.window->Menu(entry)->trigger();
        QCOMPARE(ran, run);
    }

    void TheDropDownMenuWaitsForPendingEvents() {
        Office office;
        QVERIFY(office.window.Show());
        QMenu* menu = office.window->menuTree->Menu(u"mnuDropPrint"_qs);
        QStringList order;
        QMetaObject::invokeMethod(
            &*office.window, [&] { order += u"event"_qs; }, Qt::QueuedConnection);
        connect(menu, &QMenu::aboutToShow, this, [&] { order += u"menu"_qs; });
        Q_EMIT office.window->leftToolbar->btnPrint->DropDownClick();
        QTRY_VERIFY(menu->isVisible());
        menu->close();
        QCOMPARE(order, (QStringList{u"event"_qs, u"menu"_qs}));
    }

    void TheDropDownMenuHasItsCaptions() {
        Office office;
        QStringList captions;
        for (const QAction* entry : office.window->menuTree->Menu(u"mnuDropPrint"_qs)->actions())
            captions += entry->isSeparator() ? u"-"_qs : entry->text();
        QCOMPARE(captions,
                 (QStringList{u"Page Setup..."_qs, u"-"_qs, u"Printer Setup"_qs, u"Print Preview"_qs}));
        QCOMPARE(office.window->Menu(u"mnuPrint"_qs)->text(), u"&Print..."_qs);
        QCOMPARE(office.window->Menu(u"mnuPrintSetup"_qs)->text(), u"Print Setup..."_qs);
    }

    void TheDropDownMenuOpensAtItsPlace() {
        Office office;
        QVERIFY(office.window.Show());
        auto* button = office.window->leftToolbar->btnPrint;
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier,
                          {button->width() - 4, button->height() / 2});
        QMenu* menu = office.window->menuTree->Menu(u"mnuDropPrint"_qs);
        QTRY_VERIFY(menu->isVisible());
        QCOMPARE(menu->pos(), button->mapToGlobal(QPoint(4, button->height() + 4)));
        QStringList names;
        for (const QAction* entry : menu->actions())
            names += entry->objectName();
        menu->close();
        QCOMPARE(names, (QStringList{u"mnuPageSetupPrint"_qs, u"mnuDropBar1"_qs, u"mnuPrinterSetupDrop"_qs,
                                     u"mnuPrintPreviewDrop"_qs}));
    }
};

QTEST_MAIN(PrintCommandsTest)
#include "print_commands_test.moc"
