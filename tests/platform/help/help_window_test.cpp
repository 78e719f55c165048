// The window of the help: what it shows and where its parts lead.

#include "platform/controls/my_button.h"
#include "platform/help/help_browser.h"
#include "platform/help/help_viewer.h"
#include "platform/help/help_window.h"
#include "tests/support/pdf_pages.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPrinter>
#include <QTabWidget>
#include <QTextCursor>
#include <QTreeWidget>
#include <QtTest>

using platform::HelpBrowser;
using platform::HelpViewer;
using platform::HelpWindow;

namespace {

QString HelpFile() {
    return QStringLiteral(QUILLBROOK_BINARY_DIR "/Help.chm");
}

QString PageOf(const HelpWindow& window) {
    return HelpBrowser::PageOf(window.browser->source());
}

} // namespace

class HelpWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        if (!QFile::exists(HelpFile()))
            QSKIP("built without the compiler of help files");
    }

    void ItOpensAtTheDefaultTopicUnderTheFilesTitle() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        QCOMPARE(PageOf(window), u"pages/start.html"_qs);
        QCOMPARE(window.windowTitle(), u"Quillbrook Help"_qs);
        QVERIFY(window.browser->toPlainText().startsWith(u"Quillbrook at a glance"_qs));
        QVERIFY(!window.back->isEnabled());
        QVERIFY(!window.forward->isEnabled());
    }

    void TheContentsOpenPagesAndFollowThem() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        QVERIFY(window.contents->topLevelItemCount() > 3);
        const auto found = window.contents->findItems(u"Favorites"_qs, Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(found.size(), 1);
        QVERIFY(found.first()->parent());
        window.contents->setCurrentItem(found.first());
        QCOMPARE(PageOf(window), u"pages/favorites.html"_qs);
        window.browser->ShowPage(u"pages/history.html"_qs);
        QCOMPARE(window.contents->currentItem()->text(0), u"History"_qs);
    }

    void BackForwardAndHomeWalkThePages() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        window.browser->ShowPage(u"pages/print.html"_qs);
        window.browser->ShowPage(u"pages/save.html"_qs);
        QVERIFY(window.back->isEnabled());
        window.back->click();
        QCOMPARE(PageOf(window), u"pages/print.html"_qs);
        window.forward->click();
        QCOMPARE(PageOf(window), u"pages/save.html"_qs);
        window.home->click();
        QCOMPARE(PageOf(window), u"pages/start.html"_qs);
    }

    void TheIndexIsNarrowedByTypingAndOpensByEnter() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        const int all = window.index->count();
        QVERIFY(all > 50);
        QTest::keyClicks(window.indexWord, u"notary"_qs);
        int shown = 0;
        for (int row = 0; row < all; ++row)
            shown += !window.index->item(row)->isHidden();
        QCOMPARE(shown, 1);
        QTest::keyClick(window.indexWord, Qt::Key_Return);
        QCOMPARE(PageOf(window), u"pages/jurat.html"_qs);
    }

    void ASearchListsPagesAndMarksItsWords() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        window.tabs->setCurrentIndex(2);
        QTest::keyClicks(window.searchWords, u"long paper"_qs);
        QVERIFY(window.results->count() > 0);
        QCOMPARE(PageOf(window), u"pages/start.html"_qs);
        QTest::keyClick(window.searchWords, Qt::Key_Return);
        QCOMPARE(PageOf(window), u"pages/paper.html"_qs);
        QVERIFY(!window.browser->extraSelections().isEmpty());
        for (const QTextEdit::ExtraSelection& mark : window.browser->extraSelections())
            QVERIFY(mark.cursor.selectedText().compare(u"long"_qs, Qt::CaseInsensitive) == 0 ||
                    mark.cursor.selectedText().compare(u"paper"_qs, Qt::CaseInsensitive) == 0);
        window.browser->ShowPage(u"pages/print.html"_qs);
        QVERIFY(window.browser->extraSelections().isEmpty());
    }

    void ASearchInVainSaysSoAndTakesTheMarksAway() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        window.tabs->setCurrentIndex(2);
        QTest::keyClicks(window.searchWords, u"paper"_qs);
        QTest::keyClick(window.searchWords, Qt::Key_Return);
        QVERIFY(!window.browser->extraSelections().isEmpty());
        const QString page = PageOf(window);
        QTest::keyClicks(window.searchWords, u" zyzzyva"_qs);
        QCOMPARE(window.results->count(), 1);
        QCOMPARE(window.results->item(0)->text(), u"No page has these words."_qs);
        QVERIFY(window.browser->extraSelections().isEmpty());
        QTest::keyClick(window.searchWords, Qt::Key_Return);
        QCOMPARE(PageOf(window), page);
        window.searchWords->clear();
        QCOMPARE(window.results->count(), 0);
    }

    void AClickOnATabGoesToItsLine() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        for (int tab : {1, 2}) {
            QTest::mouseClick(window.tabs->tabBar(), Qt::LeftButton, Qt::NoModifier,
                              window.tabs->tabBar()->tabRect(tab).center());
            const QLineEdit* line = tab == 1 ? window.indexWord : window.searchWords;
            QTRY_VERIFY(line->hasFocus());
        }
    }

    void LinksWithinStayAndLinksOutsideGoToTheDesktop_data() {
        QTest::addColumn<QString>("link");
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("outside");
        const QString start = u"pages/start.html"_qs;
        QTest::newRow("a page") << u"help:/pages/undo.html"_qs << u"pages/undo.html"_qs << QString();
        QTest::newRow("no page") << u"help:/pages/none.html"_qs << start << QString();
        QTest::newRow("web") << u"https://attymerrow.example/"_qs << start
                             << u"https://attymerrow.example/"_qs;
        QTest::newRow("mail") << u"mailto:a@b.example"_qs << start << u"mailto:a@b.example"_qs;
        QTest::newRow("a file of this machine") << u"file:///etc/passwd"_qs << start << QString();
        QTest::newRow("a script") << u"javascript:alert(1)"_qs << start << QString();
    }
    void LinksWithinStayAndLinksOutsideGoToTheDesktop() {
        QFETCH(QString, link);
        QFETCH(QString, page);
        QFETCH(QString, outside);
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        QString opened;
        window.browser->openOutside = [&opened](const QUrl& url) { opened = url.toString(); };
        Q_EMIT window.browser->anchorClicked(QUrl(link));
        QCOMPARE(PageOf(window), page);
        QCOMPARE(opened, outside);
    }

    void NothingOutsideTheFileIsLoadedIntoAPage() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        for (const char* name : {"file:///etc/passwd", "/etc/passwd", "https://attymerrow.example/a.png"})
            QVERIFY(!window.browser->loadResource(QTextDocument::ImageResource, QUrl(QLatin1String(name)))
                         .isValid());
    }

    void EachPageIsShownInItsStyle() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        const auto sizeOfTitle = [&window] {
            QTextCursor title(window.browser->document());
            title.movePosition(QTextCursor::NextCharacter);
            return title.charFormat().fontPointSize();
        };
        QCOMPARE(sizeOfTitle(), 17.0);
        QVERIFY(window.browser->ShowPage(u"pages/jurat.html"_qs));
        QCOMPARE(sizeOfTitle(), 17.0);
    }

    void APageIsPrintedWithItsText() {
        QTemporaryDir folder;
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        window.browser->ShowPage(u"pages/backup.html"_qs);
        const QString file = folder.filePath(u"help.pdf"_qs);
        {
            QPrinter printer;
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(file);
            QVERIFY(window.PrintPage(printer));
        }
        const PdfPages pdf(file);
        QVERIFY(pdf.IsRead());
        QVERIFY(pdf.Words().contains(u"Forms.dat"_qs));
    }

    void AMissingFileIsToldOnThePage() {
        HelpWindow window(nullptr);
        QVERIFY(!window.ShowFile(u"/nowhere/Help.chm"_qs));
        QVERIFY(window.browser->toPlainText().contains(u"The help file is missing"_qs));
        QVERIFY(window.browser->toPlainText().contains(u"/nowhere/Help.chm"_qs));
        QVERIFY(!window.tabs->isEnabled());
        QVERIFY(!window.print->isEnabled());
    }

    void ADamagedFileIsToldOnThePage() {
        QTemporaryFile file;
        QVERIFY(file.open() && file.write("ITSF and nothing more") > 0 && file.flush());
        HelpWindow window(nullptr);
        QVERIFY(!window.ShowFile(file.fileName()));
        QVERIFY(window.browser->toPlainText().contains(u"The help file is damaged"_qs));
    }

    void AFilePutBackIsReadAtTheNextOpening() {
        QTemporaryDir folder;
        const QString path = folder.filePath(u"Help.chm"_qs);
        HelpWindow window(nullptr);
        QVERIFY(!window.ShowFile(path));
        QVERIFY(QFile::copy(HelpFile(), path));
        QVERIFY(window.ShowFile(path));
        QCOMPARE(PageOf(window), u"pages/start.html"_qs);
        QVERIFY(window.tabs->isEnabled());
        QVERIFY(window.contents->topLevelItemCount() > 3);
    }

    void TheViewerKeepsOneWindowInFrontOfItsOwner() {
        QWidget owner;
        owner.show();
        HelpViewer viewer;
        viewer.SetHelpFile(HelpFile());
        QVERIFY(!viewer.Window());
        viewer.DisplayTopic(&owner, viewer.HelpFile());
        HelpWindow* window = viewer.Window();
        QVERIFY(window && window->isVisible() && window->isWindow());
        QCOMPARE(window->parentWidget(), &owner);
        window->browser->ShowPage(u"pages/undo.html"_qs);
        viewer.DisplayTopic(&owner, viewer.HelpFile());
        QCOMPARE(viewer.Window(), window);
        QCOMPARE(PageOf(*window), u"pages/start.html"_qs);
    }

    void OpenedAgainItShowsItsContents() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        window.show();
        window.tabs->setCurrentIndex(2);
        QVERIFY(window.ShowFile(HelpFile()));
        QCOMPARE(window.tabs->currentIndex(), 2); // it is being used
        window.close();
        QVERIFY(window.ShowFile(HelpFile()));
        QCOMPARE(window.tabs->currentWidget(), window.contents);
    }

    void TheContentsAreWideEnoughForTheirEntries() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.contents->columnWidth(0) <= window.contents->viewport()->width());
        QTreeWidgetItemIterator item(window.contents);
        for (; *item; ++item) {
            const QRect place = window.contents->visualItemRect(*item);
            const int text = window.contents->fontMetrics().horizontalAdvance((*item)->text(0));
            QVERIFY2(place.left() + text <= window.contents->viewport()->width(),
                     qPrintable((*item)->text(0)));
        }
    }

    void EscapeClosesTheWindow() {
        HelpWindow window(nullptr);
        QVERIFY(window.ShowFile(HelpFile()));
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }
};

QTEST_MAIN(HelpWindowTest)
#include "help_window_test.moc"
