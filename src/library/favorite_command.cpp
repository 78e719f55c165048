#include "library/favorite_command.h"

#include "app/workbench.h"
#include "library/library_store.h"
#include "platform/controls/focus.h"
#include "platform/controls/list_box.h"
#include "platform/services.h"

namespace quillbrook {

void AddToFavorites(platform::ListBox& list, Workbench& workbench, LibraryStore& store,
                    platform::Services& services) {
    const QString title = list.Text();
    if (title.isEmpty()) {
        services.messageBox.Show(workbench.Window(),
                                 QStringLiteral("Please Select a Form to Add to the Favorites List!   "),
                                 platform::MessageButtons::Ok, platform::MessageIcon::Information,
                                 QStringLiteral("No Form Selected"));
        platform::SetFocus(&list);
        return;
    }
    store.SetFavorite(title, 1);
}

} // namespace quillbrook
