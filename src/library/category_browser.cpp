#include "library/category_browser.h"

#include "accessory/author.h"
#include "app/workbench.h"
#include "appearance/icons.h"
#include "editor/scratch_pane.h"
#include "library/category_buttons.h"
#include "library/library_store.h"
#include "library/repeats.h"
#include "platform/controls/focus.h"
#include "platform/controls/frame.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/page_label.h"
#include "platform/controls/ss_tab.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"

#include <QLabel>
#include <QVBoxLayout>

namespace quillbrook {

using platform::Frame;
using platform::HyperLabel;
using platform::ListBox;
using platform::MyButton;
using platform::PlaceOnPage;

namespace {

// The page's upper part, in device-independent pixels from the corner of the tab control; the reading pane
// begins at 283.
constexpr int kHeadingTop = 34;
constexpr int kHeadingHeight = 28;
constexpr int kFramesTop = 68;
constexpr int kFramesHeight = 208;
constexpr int kFrameCaption = 18;
constexpr int kFrameInset = 6;
constexpr int kLeft = 8;
constexpr int kGap = 8;
constexpr int kButtonHeight = 23;
constexpr int kButtonColumns = 2;
constexpr int kCaptionRoom = 10;  // beside the caption of a category button
constexpr int kUsableWidth = 652; // what shows of the tab control at the window's first size

MyButton* MakeButton(MyButton::Kind kind, const char* name, const QString& caption, QWidget* parent) {
    auto* button = new MyButton(kind, parent);
    button->setObjectName(QLatin1String(name));
    button->setCaption(caption);
    return button;
}

} // namespace

CategoryBrowser::CategoryBrowser(QWidget* page, Workbench& workbench, WindowState& state, LibraryStore& store,
                                 platform::Services& services)
    : QObject(page)
    , m_workbench(workbench)
    , m_state(state)
    , m_store(store)
    , m_services(services) {
    BuildHeading(page);
    BuildCategories(page);
    BuildLists(page);
}

void CategoryBrowser::BuildHeading(QWidget* page) {
    auto* heading = new platform::PageLabel(tr("Forms Explorer"), page);
    heading->setGroundWidth(kUsableWidth);
    lblQuillbrook = heading;
    lblQuillbrook->setObjectName(QStringLiteral("lblQuillbrook"));
    lblQuillbrook->ensurePolished();
    PlaceOnPage(lblQuillbrook, kLeft, kHeadingTop, kUsableWidth, kHeadingHeight);

    btnMyForms = MakeButton(MyButton::Kind::Toggle, "btnMyForms", tr("My Forms"), page);
    btnMyForms->setIcon(TogglePicture(QStringLiteral("my-forms")));
    btnMyForms->setToolTip(tr("Browse Your Own Forms"));
    cmdAddtoFavs = MakeButton(MyButton::Kind::Plain, "cmdAddtoFavs", tr("Favorite"), page);
    cmdAddtoFavs->setIcon(Picture(QStringLiteral("star")));
    cmdAddtoFavs->setToolTip(tr("Add the Highlighted Form to My Favorites!"));
    cmdSearchAgain = MakeButton(MyButton::Kind::Plain, "cmdSearchAgain", tr("Search"), page);
    cmdSearchAgain->setIcon(Picture(QStringLiteral("search")));
    cmdSearchAgain->setToolTip(tr("Go to the Search Page!"));
    httpAttyMerrow = new HyperLabel(tr("Website"), QUrl(QLatin1String(author::kWebsite)), page);
    httpAttyMerrow->setObjectName(QStringLiteral("httpAttyMerrow"));
    httpFacebook = new HyperLabel(tr("Community"), QUrl(QLatin1String(author::kCommunity)), page);
    httpFacebook->setObjectName(QStringLiteral("httpFacebook"));

    int left = kLeft + lblQuillbrook->sizeHint().width() + 24;
    for (QWidget* control : {static_cast<QWidget*>(btnMyForms), static_cast<QWidget*>(cmdAddtoFavs),
                             static_cast<QWidget*>(cmdSearchAgain), static_cast<QWidget*>(httpAttyMerrow),
                             static_cast<QWidget*>(httpFacebook)}) {
        PlaceOnPage(control, left, kHeadingTop + 2, control->sizeHint().width(), kHeadingHeight - 4);
        left += control->width() + kGap;
    }
}

void CategoryBrowser::BuildCategories(QWidget* page) {
    fmeSubject = new Frame(tr("Click Category:"), page);
    fmeSubject->setObjectName(QStringLiteral("fmeSubject"));

    std::array<int, kButtonColumns> widths{};
    const int rows = int(kCategoryButtons.size() - 1) / kButtonColumns;
    int index = 0;
    for (const auto& [name, caption, category] : kCategoryButtons) {
        const QString control = QLatin1String(name);
        MyButton* button = btnMyForms;
        if (control != btnMyForms->objectName()) {
            button = MakeButton(MyButton::Kind::Toggle, name, QLatin1String(caption), fmeSubject);
            button->setToolButtonStyle(Qt::ToolButtonTextOnly);
            button->ensurePolished();
            int& width = widths[size_t(index / rows)];
            width =
                std::max(width, button->fontMetrics().horizontalAdvance(button->Caption()) + kCaptionRoom);
            index += 1;
        }
        m_categoryButtons[control] = button;
        connect(button, &MyButton::Click, this, [this, control, category = QString(QLatin1String(category))] {
            ChooseCategory(control, category);
        });
    }
    index = 0;
    for (const auto& row : kCategoryButtons) {
        MyButton* button = m_categoryButtons[QLatin1String(row.name)];
        if (button == btnMyForms)
            continue;
        const int column = index / rows;
        button->setGeometry(column == 0 ? kFrameInset : kFrameInset + widths[0] + 2,
                            kFrameCaption + (index % rows) * kButtonHeight + 2, widths[size_t(column)],
                            kButtonHeight - 1);
        index += 1;
    }
    PlaceOnPage(fmeSubject, kLeft, kFramesTop, 2 * kFrameInset + widths[0] + 2 + widths[1], kFramesHeight);
}

void CategoryBrowser::BuildLists(QWidget* page) {
    fmeSubCategory = new Frame(tr("Select Sub-Category:"), page);
    fmeSubCategory->setObjectName(QStringLiteral("fmeSubCategory"));
    lstSubCategory = new ListBox(true, fmeSubCategory);
    lstSubCategory->setObjectName(QStringLiteral("lstSubCategory"));
    lstSubCategory->setAccessibleName(tr("Sub-categories"));
    fmeTitle = new Frame(tr("Click Title to Display:"), page);
    fmeTitle->setObjectName(QStringLiteral("fmeTitle"));
    lstTitle = new ListBox(true, fmeTitle);
    lstTitle->setObjectName(QStringLiteral("lstTitle"));
    lstTitle->setAccessibleName(tr("Titles"));

    fmeSubCategory->ensurePolished();
    const int left = fmeSubject->x() + fmeSubject->width() + kGap;
    const int room = kLeft + kUsableWidth - left - kGap;
    // wide enough for its own caption, and for the longest of the usual words below it
    const int subCategoryWidth = std::max(
        room * 8 / 20, fmeSubCategory->fontMetrics().horizontalAdvance(fmeSubCategory->Caption()) + 28);
    PlaceOnPage(fmeSubCategory, left, kFramesTop, subCategoryWidth, kFramesHeight);
    PlaceOnPage(fmeTitle, left + subCategoryWidth + kGap, kFramesTop, room - subCategoryWidth, kFramesHeight);
    for (auto [frame, list] : {std::pair(fmeSubCategory, lstSubCategory), std::pair(fmeTitle, lstTitle)}) {
        list->setGeometry(kFrameInset, kFrameCaption + 2, frame->width() - 2 * kFrameInset,
                          frame->height() - kFrameCaption - 2 - kFrameInset);
        list->WrapEntries();
    }

    connect(lstSubCategory, &ListBox::Click, this, &CategoryBrowser::SubCategoryClick);
    connect(lstTitle, &ListBox::Click, this, &CategoryBrowser::TitleClick);
}

MyButton* CategoryBrowser::CategoryButton(const QString& name) const {
    const auto found = m_categoryButtons.find(name);
    return found == m_categoryButtons.end() ? nullptr : found->second;
}

void CategoryBrowser::ClearCategoryButtons() {
    for (const auto& [name, button] : m_categoryButtons)
        button->setValue(false);
}

void CategoryBrowser::ChooseCategory(const QString& button, const QString& category) {
    ClearCategoryButtons();
    m_categoryButtons[button]->setValue(true);
    m_state.CurrentCategory = category;
    DisplaySubCategories();
}

void CategoryBrowser::DisplayMyForms() {
    ChooseCategory(QStringLiteral("btnMyForms"), QStringLiteral("My Forms"));
}

void CategoryBrowser::DisplaySubCategories() {
    lstSubCategory->Clear();
    lstSubCategory->AddItems(m_store.ListSubCategories(m_state.CurrentCategory));
    RemoveDuplicateSubCategories();
    lstSubCategory->setListIndex(0);
    if (lstSubCategory->ListCount() > 0)
        return;
    const platform::MessageAnswer answer = m_services.messageBox.Show(
        m_workbench.Window(), QStringLiteral("Would you like to add a new Form to your Collection?   "),
        platform::MessageButtons::YesNo, platform::MessageIcon::Question, QStringLiteral("Quillbrook PRO"));
    if (answer != platform::MessageAnswer::Yes)
        return;
    m_workbench.SetTab(Tab::MyForms);
    Q_EMIT NewFormWanted();
}

void CategoryBrowser::RemoveDuplicateSubCategories() {
    RemoveRepeats(*lstSubCategory);
}
void CategoryBrowser::RemoveDuplicateTitles() {
    RemoveRepeats(*lstTitle);
}

void CategoryBrowser::SubCategoryClick() {
    Q_EMIT BrowsingBegan();
    lstTitle->Clear();
    lstTitle->AddItems(m_store.ListTitles(m_state.CurrentCategory, lstSubCategory->Text()));
    RemoveDuplicateTitles();
}

void CategoryBrowser::TitleClick() {
    m_workbench.UncheckHelpContents();
    DisplaySelectedTitle();
    platform::SetFocus(m_workbench.txtContent());
}

void CategoryBrowser::DisplaySelectedTitle() {
    const QString title = lstTitle->Text();
    if (!title.isEmpty()) {
        ResetScratchPane(*m_workbench.rtfContent());
        m_store.FindFormByTitle(title);
        // a refused statement leaves the earlier result: its text, if it has one, comes again
        if (const std::optional<QString> content = m_store.SearchField(QStringLiteral("Content")))
            m_workbench.txtContent()->setTextRTF(*content);
        m_store.CloseSearchQuery();
        Q_EMIT FormOpened(title);
    }
    Q_EMIT PlainFormShown();
}

} // namespace quillbrook
