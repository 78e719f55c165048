#include "search/search_page.h"

#include "appearance/icons.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/page_label.h"
#include "platform/controls/ss_tab.h"
#include "search/query_box.h"
#include "search/result_blink.h"

#include <QLabel>
#include <QRadioButton>

namespace quillbrook {

using platform::Frame;
using platform::MyButton;
using platform::PlaceOnPage;

namespace {

// Device-independent pixels from the corner of the tab control. Below the result's frame the pane begins
// where the last search put it.
constexpr int kLeft = 8;
constexpr int kHeadingTop = 30;
constexpr int kHeadingHeight = 26;
constexpr int kQueryTop = 58;
constexpr int kQueryWidth = 320;
constexpr int kQueryHeight = 72;
constexpr int kRightLeft = 336; // of what stands beside the query
constexpr int kRightWidth = 324;
constexpr int kResultTop = 134;
constexpr int kResultWidth = 420;
constexpr int kResultEntryHeight = 16; // by which the list grows for each title
constexpr int kHitsLeft = 436;

platform::PageLabel* MakeLabel(QWidget* page, const char* name, const QString& text) {
    auto* label = new platform::PageLabel(text, page);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QRadioButton* MakeOption(QWidget* frame, const char* name, const char* caption, const char* tip) {
    auto* option = new QRadioButton(QLatin1String(caption), frame);
    option->setObjectName(QLatin1String(name));
    option->setToolTip(QLatin1String(tip));
    return option;
}

} // namespace

SearchPage::SearchPage(QWidget* page)
    : QObject(page) {
    platform::PageLabel* heading = MakeLabel(page, "lblSearch", tr("Advanced Search"));
    heading->setGroundWidth(kQueryWidth);
    lblSearch = heading;
    PlaceOnPage(lblSearch, kLeft, kHeadingTop, kQueryWidth, kHeadingHeight);
    lblSearchGuide = MakeLabel(page, "lblSearchGuide", QString());
    PlaceOnPage(lblSearchGuide, kRightLeft, kQueryTop + 4, kRightWidth, 18);
    lblSearchGuide1 = MakeLabel(page, "lblSearchGuide1", QString());
    PlaceOnPage(lblSearchGuide1, kRightLeft, kQueryTop + 26, kRightWidth, 18);
    BuildQuery(page);
    BuildModes(page);
    BuildResult(page);
    queryBox = new QueryBox(cboQuery, lblSearchGuide, lblSearchGuide1, [this] { return Mode(); });
    resultBlink = new ResultBlink(fmeSearchResult);
    connect(queryBox, &QueryBox::CharacterAccepted, fmeSearchMode, &QWidget::hide);
    ConnectModes();
}

void SearchPage::BuildQuery(QWidget* page) {
    fmeSearch = new Frame(tr("Enter Word(s) / Phrase to Look For"), page);
    fmeSearch->setObjectName(QStringLiteral("fmeSearch"));
    PlaceOnPage(fmeSearch, kLeft, kQueryTop, kQueryWidth, kQueryHeight);
    cboQuery = new platform::ComboBox(false, true, fmeSearch);
    cboQuery->setObjectName(QStringLiteral("cboQuery"));
    cboQuery->setAccessibleName(tr("Words or phrase to look for"));
    cboQuery->setGeometry(8, 20, 216, 26);
    cmdSearch = new MyButton(MyButton::Kind::Plain, fmeSearch);
    cmdSearch->setObjectName(QStringLiteral("cmdSearch"));
    cmdSearch->setCaption(tr("Search"));
    cmdSearch->setIcon(Picture(QStringLiteral("search")));
    cmdSearch->setToolTip(tr("Begin Search!"));
    cmdSearch->setGeometry(228, 20, 84, 26);
}

void SearchPage::BuildModes(QWidget* page) {
    fmeSearchMode = new Frame(tr("Search Modes:"), page);
    fmeSearchMode->setObjectName(QStringLiteral("fmeSearchMode"));
    PlaceOnPage(fmeSearchMode, kRightLeft, kHeadingTop + 4, kRightWidth,
                kQueryTop + kQueryHeight - kHeadingTop - 4);
    int left = 10;
    for (size_t i = 0; i < std::size(kSearchModes); ++i) {
        const SearchModeFacts& facts = kSearchModes[i];
        modeButtons[i] = MakeOption(fmeSearch, facts.button, facts.caption, facts.toolTip);
        modeButtons[i]->ensurePolished();
        modeButtons[i]->setGeometry(left, 48, modeButtons[i]->sizeHint().width() + 4, 20);
        left += modeButtons[i]->width() + 8;
        twinButtons[i] = MakeOption(fmeSearchMode, facts.twin, facts.twinCaption, facts.toolTip);
        twinButtons[i]->setGeometry(10, 22 + 24 * int(i), kRightWidth - 16, 22);
    }
    modeButtons[0]->setChecked(true);
    twinButtons[0]->setChecked(true);
}

void SearchPage::BuildResult(QWidget* page) {
    fmeSearchResult = new Frame(tr("Search Result:"), page);
    fmeSearchResult->setObjectName(QStringLiteral("fmeSearchResult"));
    PlaceOnPage(fmeSearchResult, kLeft, kResultTop, kResultWidth, 29);
    lstSearch = new platform::ListBox(true, fmeSearchResult);
    lstSearch->setObjectName(QStringLiteral("lstSearch"));
    lstSearch->setAccessibleName(tr("Forms found"));
    lstSearch->setGeometry(6, 24, kResultWidth - 12, 36);
    lstSearch->setEntryHeight(kResultEntryHeight);

    const auto hitButton = [page](const char* name, const QString& caption, const char* picture, int left) {
        auto* button = new MyButton(MyButton::Kind::Plain, page);
        button->setObjectName(QLatin1String(name));
        button->setCaption(caption);
        button->setIcon(Picture(QLatin1String(picture)));
        PlaceOnPage(button, left, kResultTop, 110, 26);
        return button;
    };
    btnPreviousHit = hitButton("btnPreviousHit", tr("Previous Hit"), "previous-hit", kHitsLeft);
    btnNextHit = hitButton("btnNextHit", tr("Next Hit"), "next-hit", kHitsLeft + 114);
    lblDisplayHits = MakeLabel(page, "lblDisplayHits", tr("Display Hits"));
    lblDisplayHits->setAlignment(Qt::AlignCenter);
    PlaceOnPage(lblDisplayHits, kHitsLeft, kResultTop - 20, 224, 20);
}

// A button that becomes the selected one selects its twin, which does the same; the button that is selected
// already raises nothing.
void SearchPage::ConnectModes() {
    for (size_t i = 0; i < std::size(kSearchModes); ++i) {
        const SearchMode mode = kSearchModes[i].mode;
        QRadioButton* twin = twinButtons[i];
        QRadioButton* button = modeButtons[i];
        connect(button, &QRadioButton::toggled, this, [this, mode, twin](bool selected) {
            if (!selected)
                return;
            twin->setChecked(true);
            queryBox->TurnTo(mode);
        });
        connect(twin, &QRadioButton::toggled, this, [button](bool selected) {
            if (selected)
                button->setChecked(true);
        });
    }
}

SearchMode SearchPage::Mode() const {
    for (size_t i = 0; i < std::size(kSearchModes); ++i)
        if (modeButtons[i]->isChecked())
            return kSearchModes[i].mode;
    return SearchMode::Phrase;
}

void SearchPage::HideHitControls() {
    btnPreviousHit->hide();
    btnNextHit->hide();
    lblDisplayHits->hide();
}

} // namespace quillbrook
