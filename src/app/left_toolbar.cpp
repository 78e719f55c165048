#include "app/left_toolbar.h"

#include "appearance/icons.h"
#include "platform/controls/my_button.h"

namespace quillbrook {

constexpr int kButtonLeft = 14;
constexpr int kButtonWidth = 52;
constexpr int kButtonHeight = 52;
constexpr int kFirstTop = 12;
constexpr int kPitch = 60;
constexpr int kHelpTop = 412; // at its highest; a taller window moves it down

static platform::MyButton* MakeLargeButton(QWidget* bar, int top, const char* name, const QString& tip,
                                           const char* picture) {
    auto* button = new platform::MyButton(platform::MyButton::Kind::Large, bar);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setIcon(Picture(QLatin1String(picture)));
    button->setGeometry(kButtonLeft, top, kButtonWidth, kButtonHeight);
    return button;
}

LeftToolbar::LeftToolbar(QWidget* window)
    : QObject(window)
    , picLeftToolbar(new QWidget(window)) {
    picLeftToolbar->setObjectName(QStringLiteral("picLeftToolbar"));
    picLeftToolbar->setAttribute(Qt::WA_StyledBackground);
    const auto top = [](int row) { return kFirstTop + row * kPitch; };
    btnSave = MakeLargeButton(picLeftToolbar, top(0), "btnSave", tr("Save the Form"), "save");
    AddVerification =
        MakeLargeButton(picLeftToolbar, top(1), "AddVerification",
                        tr("Add a Verification or other Pleading Requirements"), "add-verification");
    cmdAddJurat =
        MakeLargeButton(picLeftToolbar, top(2), "cmdAddJurat",
                        tr("Add a Jurat or an Acknowledgment to Affidavits or Contracts"), "add-jurat");
    btnSpellCheck = MakeLargeButton(picLeftToolbar, top(3), "btnSpellCheck",
                                    tr("Check Document for Spelling & Grammatical Errors"), "spell-check");
    btnEditMSWord = MakeLargeButton(picLeftToolbar, top(4), "btnEditMSWord", tr("Edit in the Word Processor"),
                                    "edit-in-word-processor");
    btnPrint = MakeLargeButton(picLeftToolbar, top(5), "btnPrint", tr("Print the Form"), "print");
    btnSave->AddDropDown();
    btnPrint->AddDropDown();
    btnHelp = MakeLargeButton(picLeftToolbar, kHelpTop, "btnHelp", tr("Help"), "help");
}

} // namespace quillbrook
