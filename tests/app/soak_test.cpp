// A long working day in one process: forms opened, searched, edited, undone and kept, over and over. Its
// memory and its open files are the same in the evening as after the first hour.
//
// QUILLBROOK_SOAK_ROUNDS in the environment gives another number of rounds; see scripts/soak.sh.
#include "appearance/look.h"
#include "editor/edit_tool_bar.h"
#include "library/category_browser.h"
#include "library/category_buttons.h"
#include "library/history_page.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/search_page.h"
#include "tests/support/test_window.h"

#include <QDir>
#include <QtTest>
#include <QtWidgets>
#include <malloc.h>
#include <unistd.h>

using namespace quillbrook;
using platform::MessageAnswer;

namespace {

constexpr int kRoundsOfTheSuite = 60;
constexpr int kForms = 1000;
constexpr int kSubCategories = 4;
constexpr std::size_t kCategories = 16; // all but the user's own forms
constexpr int kSearchEvery = 4;
constexpr int kOwnFormEvery = 10;
constexpr int kMostSteps = 30; // of one edit
constexpr int kClearHistoryEvery = 500;
constexpr double kGrowth = 1.05; // of the memory, from the first fifth of the rounds to the last
constexpr int kWarmAfter = 600;  // rounds: the history was filled and cleared once

std::vector<TestForm> ManyForms() {
    std::vector<TestForm> forms;
    for (int i = 0; i < kForms; ++i) {
        const CategoryButton& category = kCategoryButtons[std::size_t(i) % kCategories];
        const QString text = u"This deed of sale number %1 is made between the parties. "_qs.arg(i);
        forms.push_back({u"Deed of Sale No. %1"_qs.arg(i), QLatin1String(category.category),
                         u"Group %1"_qs.arg(i / int(kCategories) % kSubCategories),
                         text.repeated(30 + i % 170)});
    }
    return forms;
}

struct Held {
    qint64 kilobytes; // of memory, resident
    qsizetype files;
};

Held HeldNow() {
    ::malloc_trim(0);
    QFile statm(u"/proc/self/statm"_qs);
    const qint64 pages =
        statm.open(QIODevice::ReadOnly) ? statm.readAll().split(' ').value(1).toLongLong() : 0;
    return {
        pages * (::sysconf(_SC_PAGESIZE) / 1024),
        QDir(u"/proc/self/fd"_qs).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size()};
}

class Day {
public:
    bool Begin() { return m_window.loaded && m_window.Show(); }

    // What the user does between two looks at the clock.
    void Round(int round) {
        OpenForm(round);
        Edit(round);
        if (round % kSearchEvery == 0)
            Search(round);
        if (round % kOwnFormEvery == 0)
            KeepForm(round);
        if (round % kClearHistoryEvery == 0) {
            m_window.services.messageBox.answer = MessageAnswer::Yes;
            m_window->SetTab(Tab::History);
            m_window->historyPage->cmdClearHist->click();
        }
        m_window.services.messageBox.shown.clear();
        QCoreApplication::processEvents();
    }

    int opened = 0, edits = 0, undone = 0, searches = 0, hits = 0, kept = 0;

private:
    platform::RichTextBox& Pane() { return *m_window->txtContent(); }

    void OpenForm(int round) {
        m_window->SetTab(Tab::FormsExplorer);
        CategoryBrowser& browser = *m_window->categoryBrowser;
        browser.CategoryButton(QLatin1String(kCategoryButtons[std::size_t(round) % kCategories].name))
            ->click();
        browser.lstSubCategory->setListIndex(round / 7 % browser.lstSubCategory->ListCount());
        browser.lstTitle->setListIndex(round % browser.lstTitle->ListCount());
        opened += Pane().Text().contains(u"is made between"_qs);
        browser.cmdAddtoFavs->click();
    }

    void Edit(int round) {
        m_window->SetTab(Tab::EditForm);
        const QString before = Pane().TextRTF();
        QTest::keyClick(&Pane(), Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(&Pane(), u" signed %1"_qs.arg(round));
        QTest::keyClick(&Pane(), Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
        m_window->editToolBar->btnBold->click();
        m_window->editToolBar->btnUpper->click();
        edits += Pane().TextRTF() != before;
        for (int step = 0; step < kMostSteps && Pane().TextRTF() != before; ++step)
            m_window->editToolBar->btnUndo->click();
        undone += Pane().TextRTF() == before;
        m_window->editToolBar->btnRedo->click();
    }

    void Search(int round) {
        m_window->SetTab(Tab::Search);
        SearchPage& page = *m_window->searchPage;
        page.cboQuery->setText(u"sale number %1"_qs.arg(round % kForms));
        QTest::mouseClick(page.cmdSearch, Qt::LeftButton);
        if (page.lstSearch->ListCount() == 0)
            return;
        ++searches;
        page.lstSearch->setListIndex(0);
        page.btnNextHit->click();
        page.btnNextHit->click();
        hits += Pane().SelLength() > 0;
    }

    void KeepForm(int round) {
        m_window->SetTab(Tab::MyForms);
        MyFormsPage& page = *m_window->myFormsPage;
        m_window.services.messageBox.answer = MessageAnswer::Yes;
        page.btnNew->click();
        page.txtMyTitle->setText(u"Letter %1"_qs.arg(round));
        page.cboMySubCategory->setText(u"Letters"_qs);
        m_window->txtMyContent()->setText(u"Dear Client,"_qs);
        page.btnAddNew->click();
        const int there = page.lstMyTitle->ListCount();
        page.btnDelete->click();
        kept += there > 0;
    }

    TestWindow m_window{ManyForms()};
};

} // namespace

class SoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { ApplyLook(*qApp); } // what is painted is kept for a while

    void MemoryAndOpenFilesStayAsTheyAre() {
        const int asked = qEnvironmentVariableIntValue("QUILLBROOK_SOAK_ROUNDS");
        const int rounds = asked > 0 ? asked : kRoundsOfTheSuite;
        Day day;
        QVERIFY(day.Begin());
        Held early{};
        for (int round = 1; round <= rounds; ++round) {
            day.Round(round);
            if (round == (rounds + 4) / 5)
                early = HeldNow();
            if (round % std::max(rounds / 10, 1) == 0) {
                const Held now = HeldNow();
                qInfo("%d rounds: %lld KB, %d files open", round, static_cast<long long>(now.kilobytes),
                      int(now.files));
            }
        }
        const Held late = HeldNow();
        QCOMPARE(day.opened, rounds);
        QCOMPARE(day.edits, rounds);
        QCOMPARE(day.undone, rounds);
        QCOMPARE(day.searches, rounds / kSearchEvery);
        QCOMPARE(day.hits, rounds / kSearchEvery);
        QCOMPARE(day.kept, rounds / kOwnFormEvery);
        QCOMPARE(late.files, early.files);
        if (rounds / 5 >= kWarmAfter)
            QVERIFY2(double(late.kilobytes) < double(early.kilobytes) * kGrowth,
                     qPrintable(u"%1 KB, then %2 KB"_qs.arg(early.kilobytes).arg(late.kilobytes)));
    }
};

QTEST_MAIN(SoakTest)
#include "soak_test.moc"
