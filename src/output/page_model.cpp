#include "output/page_model.h"

#include "output/number_text.h"

namespace quillbrook {
namespace {

constexpr double kStep = 0.1; // inches

std::size_t IndexOf(PageBox box) {
    return static_cast<std::size_t>(box);
}

} // namespace

Paper ClassifySize(double width, double height) {
    for (const PaperSize& size : kPaperSizes) {
        if (size.paper != Paper::Custom && width == ReadNumber(QLatin1String(size.width)) &&
            height == ReadNumber(QLatin1String(size.height)))
            return size.paper;
    }
    return Paper::Custom;
}

QString CustomSizeCaption(const QString& width, const QString& height) {
    return QStringLiteral("Custom (") + width.trimmed() + QStringLiteral(" x ") + height.trimmed() +
           QStringLiteral(")...");
}

void PageModel::Load() {
    for (const PageBoxControls& controls : kPageBoxes)
        m_texts[IndexOf(controls.box)] = QLatin1String(controls.textAtLoad);
    m_option = Paper::Long;
}

double PageModel::Inches(PageBox box) const {
    return ReadNumber(Text(box));
}

bool PageModel::IsEnabled(PageBox box) const {
    return m_option == Paper::Custom || (box != PageBox::Width && box != PageBox::Height);
}

void PageModel::SetText(PageBox box, const QString& text) {
    m_texts[IndexOf(box)] = text;
}

void PageModel::Click(PageBox box, Arrow arrow) {
    if (IsEnabled(box))
        m_texts[IndexOf(box)] = WriteNumber(Inches(box) + (arrow == Arrow::Up ? kStep : -kStep));
}

void PageModel::ChooseOption(Paper paper) {
    if (m_option == paper)
        return;
    m_option = paper;
    WriteSize(paper);
    m_checked = paper;
}

void PageModel::ChooseInMenu(Paper paper) {
    ChooseOption(paper);
    m_checked = paper;
    WriteSize(paper);
}

void PageModel::Confirm() {
    const Paper paper = ClassifySize(Inches(PageBox::Width), Inches(PageBox::Height));
    if (paper != Paper::Custom) {
        ChooseOption(paper);
        return;
    }
    m_checked = Paper::Custom;
    m_customCaption = CustomSizeCaption(Text(PageBox::Width), Text(PageBox::Height));
}

// The texts of a custom size are the user's.
void PageModel::WriteSize(Paper paper) {
    if (paper == Paper::Custom)
        return;
    const PaperSize& size = kPaperSizes[static_cast<std::size_t>(paper)];
    m_texts[IndexOf(PageBox::Width)] = QLatin1String(size.width);
    m_texts[IndexOf(PageBox::Height)] = QLatin1String(size.height);
}

} // namespace quillbrook
