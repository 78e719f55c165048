#include "library/history_page.h"

#include "app/workbench.h"
#include "library/library_store.h"
#include "library/list_page.h"
#include "library/repeats.h"
#include "platform/controls/focus.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"

namespace quillbrook {

HistoryPage::HistoryPage(QWidget* page, Workbench& workbench, LibraryStore& store)
    : QObject(page)
    , lblHistory(BuildListPageHeading(page, "lblHistory", tr("Recently Opened Forms")))
    , lstHistory(BuildListPageList(page, false, "lstHistory", tr("History")))
    , cmdClearHist(BuildListPageButton(page, 0, "cmdClearHist", tr("Clear"), tr("Clear the History List!"),
                                       QStringLiteral("clear")))
    , cmdAddtoFavs2(BuildListPageButton(page, 1, "cmdAddtoFavs2", tr("Favorite"),
                                        tr("Add the Highlighted Form to My Favorites!"),
                                        QStringLiteral("star")))
    , m_workbench(workbench)
    , m_store(store) {
    connect(lstHistory, &platform::ListBox::Click, this, &HistoryPage::Choose);
    connect(cmdClearHist, &platform::MyButton::Click, lstHistory, &platform::ListBox::Clear);
}

void HistoryPage::Add(const QString& title) {
    lstHistory->AddItem(title);
}

void HistoryPage::RemoveDuplicateHistory() {
    RemoveRepeats(*lstHistory);
}

void HistoryPage::Choose() {
    m_workbench.UncheckHelpContents();
    DisplayHistoryEntry();
    platform::SetFocus(m_workbench.txtContent());
}

void HistoryPage::DisplayHistoryEntry() {
    m_store.FindFormByTitle(lstHistory->Text());
    if (const std::optional<QString> content = m_store.SearchField(QStringLiteral("Content")))
        m_workbench.txtContent()->setTextRTF(*content);
    m_store.CloseSearchQuery();
    Q_EMIT PlainFormShown();
}

} // namespace quillbrook
