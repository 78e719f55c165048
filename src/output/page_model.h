#pragma once

#include "output/paper_sizes.h"

#include <QString>
#include <array>

namespace quillbrook {

// The boxes of the page setup, in the order in which a document is given their values.
enum class PageBox { Width, Height, Left, Right, Top, Bottom };
enum class Arrow { Up, Down };

// A box, its text at first, and the two arrows beside it.
struct PageBoxControls {
    PageBox box;
    const char* name;
    const char* caption;
    const char* textAtLoad;
    const char* up;
    const char* down;
};

constexpr std::array<PageBoxControls, 6> kPageBoxes = {{
    {PageBox::Width, "txtWidth", "Width:", "8.5", "vsWUp", "vsWDown"},
    {PageBox::Height, "txtHeight", "Height:", "13.0", "vsHUp", "vsHDown"},
    {PageBox::Left, "txtLeft", "Left:", "1.0", "vsLUp", "vsLDown"},
    {PageBox::Right, "txtRight", "Right:", "1.0", "vsRUp", "vsRDown"},
    {PageBox::Top, "txtTop", "Top:", "1.0", "vsTUp", "vsTDown"},
    {PageBox::Bottom, "txtBottom", "Bottom:", "1.0", "vsBUp", "vsBDown"},
}};

// The paper of exactly this size in inches, without any tolerance; Custom for all others.
Paper ClassifySize(double width, double height);

// The menu's caption of a custom size of these texts.
QString CustomSizeCaption(const QString& width, const QString& height);

// The paper and the margins that documents are sent out with, with all that the dialog and the menu show of
// them. The values are the texts that the user sees, in inches; they are taken as numbers only when used, and
// nothing is checked.
class PageModel {
public:
    PageModel() { Load(); }

    // What building the dialog does. The check mark and the captions of the menu stay.
    void Load();

    const QString& Text(PageBox box) const { return m_texts[static_cast<std::size_t>(box)]; }
    double Inches(PageBox box) const;

    Paper Option() const { return m_option; }                        // the option button selected
    Paper Checked() const { return m_checked; }                      // the menu entry checked
    const QString& CustomCaption() const { return m_customCaption; } // of mnuCustomSize
    // Whether the box and its arrows take input: width and height only with a custom size.
    bool IsEnabled(PageBox box) const;

    // What a box shows, whether it takes input or not.
    void SetText(PageBox box, const QString& text);
    // A tenth of an inch more or less, without limits. Nothing happens beside a disabled box.
    void Click(PageBox box, Arrow arrow);
    // An option button or its label. Nothing happens when it is selected already.
    void ChooseOption(Paper paper);
    // An entry of the menu; with Custom the dialog is shown next.
    void ChooseInMenu(Paper paper);
    // btnOk: the size goes by its numbers, whatever option is selected.
    void Confirm();

private:
    void WriteSize(Paper paper);

    std::array<QString, kPageBoxes.size()> m_texts;
    Paper m_option = Paper::Long;
    Paper m_checked = Paper::Long;
    QString m_customCaption = QLatin1String(kPaperSizes[static_cast<std::size_t>(Paper::Custom)].menuCaption);
};

} // namespace quillbrook
