#include "search/search_page.h"

#include "appearance/icons.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "search/result_blink.h"

#include <QLabel>

namespace quillbrook {

using platform::PlaceOnPage;

static QLabel* MakeLabel(QWidget* page, const char* name, const QString& text) {
    auto* label = new QLabel(text, page);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

static platform::MyButton* MakeHitButton(QWidget* page, const char* name, const QString& caption,
                                         const QString& picture) {
    auto* button = new platform::MyButton(platform::MyButton::Kind::Plain, page);
    button->setObjectName(QLatin1String(name));
    button->setCaption(caption);
    button->setIcon(Picture(picture));
    return button;
}

SearchPage::SearchPage(QWidget* page)
    : QObject(page) {
    lblSearch = MakeLabel(page, "lblSearch", tr("Advanced Search"));
    PlaceOnPage(lblSearch, 8, 34, 652, 28);
    lblSearchGuide = MakeLabel(page, "lblSearchGuide", QString());
    PlaceOnPage(lblSearchGuide, 436, 68, 224, 18);
    lblSearchGuide1 = MakeLabel(page, "lblSearchGuide1", QString());
    PlaceOnPage(lblSearchGuide1, 436, 88, 224, 18);

    fmeSearch = new platform::Frame(tr("Enter Word(s) / Phrase to Look For"), page);
    fmeSearch->setObjectName(QStringLiteral("fmeSearch"));
    PlaceOnPage(fmeSearch, 8, 66, 420, 58);
    cboQuery = new platform::ComboBox(false, true, fmeSearch);
    cboQuery->setObjectName(QStringLiteral("cboQuery"));
    cboQuery->setAccessibleName(tr("Words or phrase to look for"));
    cboQuery->setGeometry(8, 24, 404, 26);

    fmeSearchResult = new platform::Frame(tr("Search Result:"), page);
    fmeSearchResult->setObjectName(QStringLiteral("fmeSearchResult"));
    PlaceOnPage(fmeSearchResult, 8, 130, 420, 29);
    lstSearch = new platform::ListBox(true, fmeSearchResult);
    lstSearch->setObjectName(QStringLiteral("lstSearch"));
    lstSearch->setAccessibleName(tr("Forms found"));
    lstSearch->setGeometry(6, 22, 408, 36);

    resultBlink = new ResultBlink(fmeSearchResult);

    btnPreviousHit =
        MakeHitButton(page, "btnPreviousHit", tr("Previous Hit"), QStringLiteral("previous-hit"));
    PlaceOnPage(btnPreviousHit, 436, 132, 108, 26);
    btnNextHit = MakeHitButton(page, "btnNextHit", tr("Next Hit"), QStringLiteral("next-hit"));
    PlaceOnPage(btnNextHit, 548, 132, 108, 26);
    lblDisplayHits = MakeLabel(page, "lblDisplayHits", tr("Display Hits"));
    PlaceOnPage(lblDisplayHits, 436, 112, 108, 18);
}

void SearchPage::HideHitControls() {
    btnPreviousHit->hide();
    btnNextHit->hide();
    lblDisplayHits->hide();
}

} // namespace quillbrook
