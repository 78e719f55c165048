#include "library/favorites_page.h"

#include "app/workbench.h"
#include "library/library_store.h"
#include "library/list_page.h"
#include "platform/controls/focus.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"

namespace quillbrook {

FavoritesPage::FavoritesPage(QWidget* page, Workbench& workbench, LibraryStore& store,
                             platform::Services& services)
    : QObject(page)
    , lblFavorites(BuildListPageHeading(page, "lblFavorites", tr("My Favorite Forms")))
    , lstFavorites(BuildListPageList(page, true, "lstFavorites", tr("Favorites")))
    , cmdRemove(BuildListPageButton(page, 0, "cmdRemove", tr("Remove"),
                                    tr("Remove the Highlighted Form from My Favorites!"),
                                    QStringLiteral("remove")))
    , m_workbench(workbench)
    , m_store(store)
    , m_services(services) {
    connect(lstFavorites, &platform::ListBox::Click, this, &FavoritesPage::Choose);
    connect(cmdRemove, &platform::MyButton::Click, this, &FavoritesPage::Remove);
}

void FavoritesPage::DisplayFavorites() {
    lstFavorites->Clear();
    lstFavorites->AddItems(m_store.ListFavorites());
}

void FavoritesPage::Choose() {
    m_workbench.UncheckHelpContents();
    DisplayFavorite();
    platform::SetFocus(m_workbench.txtContent());
}

void FavoritesPage::DisplayFavorite() {
    m_workbench.rtfContent()->setTextRTF(QString());
    const QString title = lstFavorites->Text();
    m_store.FindFormByTitle(title);
    if (const std::optional<QString> content = m_store.SearchField(QStringLiteral("Content")))
        m_workbench.txtContent()->setTextRTF(*content);
    Q_EMIT FormOpened(title);
    Q_EMIT PlainFormShown();
}

void FavoritesPage::Remove() {
    const QString title = lstFavorites->Text();
    if (title.isEmpty()) {
        m_services.messageBox.Show(m_workbench.Window(),
                                   QStringLiteral("Click the Form to Remove from the Favorites List!   "),
                                   platform::MessageButtons::Ok, platform::MessageIcon::Information,
                                   QStringLiteral("No Form Selected"));
        platform::SetFocus(lstFavorites);
        return;
    }
    m_store.SetFavorite(title, 0);
    DisplayFavorites();
}

} // namespace quillbrook
