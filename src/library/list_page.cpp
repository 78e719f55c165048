#include "library/list_page.h"

#include "appearance/icons.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/page_label.h"
#include "platform/controls/ss_tab.h"

#include <QLabel>

namespace quillbrook {

using platform::PlaceOnPage;

// Device-independent pixels from the corner of the tab control; the pane begins at 137 on these pages.
constexpr int kLeft = 8;
constexpr int kUsableWidth = 652;
constexpr int kHeadingTop = 34;
constexpr int kHeadingHeight = 28;
constexpr int kListTop = 66;
constexpr int kListHeight = 66;
constexpr int kButtonWidth = 96;

QLabel* BuildListPageHeading(QWidget* page, const char* name, const QString& caption) {
    auto* label = new platform::PageLabel(caption, page);
    label->setGroundWidth(kUsableWidth);
    label->setObjectName(QLatin1String(name));
    PlaceOnPage(label, kLeft, kHeadingTop, kUsableWidth, kHeadingHeight);
    return label;
}

platform::MyButton* BuildListPageButton(QWidget* page, int indexFromRight, const char* name,
                                        const QString& caption, const QString& tip, const QString& picture) {
    auto* button = new platform::MyButton(platform::MyButton::Kind::Plain, page);
    button->setObjectName(QLatin1String(name));
    button->setCaption(caption);
    button->setToolTip(tip);
    button->setIcon(Picture(picture));
    PlaceOnPage(button, kLeft + kUsableWidth - (indexFromRight + 1) * (kButtonWidth + 4), kHeadingTop + 2,
                kButtonWidth, kHeadingHeight - 4);
    return button;
}

platform::ListBox* BuildListPageList(QWidget* page, bool sorted, const char* name,
                                     const QString& accessibleName) {
    auto* list = new platform::ListBox(sorted, page);
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(accessibleName);
    PlaceOnPage(list, kLeft, kListTop, kUsableWidth, kListHeight);
    return list;
}

} // namespace quillbrook
