#include "editor/format_commands.h"

#include "app/workbench.h"
#include "editor/edit_tool_bar.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/focus.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"

#include <QAction>
#include <QLineEdit>

namespace quillbrook {

using platform::ComboBox;
using platform::MyButton;
using platform::RichTextBox;

namespace {

constexpr int kLeft = 0;
constexpr int kRight = 1;
constexpr int kCenter = 2;
constexpr int kIndentStep = 700;    // twips
constexpr int kBulletHanging = 350; // twips

QString SizeText(double points) {
    return QString::number(points, 'g', 6);
}

// Sets the opposite of what the whole selection has, and shows it; nothing is set on a mixed one.
void Toggle(RichTextBox* pane, MyButton* button, std::optional<bool> (RichTextBox::*read)() const,
            bool (RichTextBox::*write)(bool)) {
    if (!pane)
        return;
    if (const std::optional<bool> on = (pane->*read)())
        (pane->*write)(!*on);
    button->setValue((pane->*read)().value_or(false));
}

// Character by character, so that the length stays: no "SS" for the one small letter that stands for it.
template <typename Convert>
QString Converted(QString text, Convert convert) {
    for (QChar& character : text)
        character = convert(character);
    return text;
}

QString Upper(const QString& text) {
    return Converted(text, [](QChar character) { return character.toUpper(); });
}
QString Lower(const QString& text) {
    return Converted(text, [](QChar character) { return character.toLower(); });
}

} // namespace

FormatCommands::FormatCommands(EditToolBar& bar, Workbench& workbench, platform::Services& services,
                               QObject* parent)
    : QObject(parent)
    , m_bar(bar)
    , m_workbench(workbench)
    , m_services(services) {
    ConnectBar();
    ConnectMenus();
}

void FormatCommands::ConnectBar() {
    connect(m_bar.btnBold, &MyButton::Click, this, &FormatCommands::ToggleBold);
    connect(m_bar.btnItalic, &MyButton::Click, this, &FormatCommands::ToggleItalic);
    connect(m_bar.btnUnderline, &MyButton::Click, this, &FormatCommands::ToggleUnderline);
    connect(m_bar.btnLeft, &MyButton::Click, this, [this] { AlignByButton(kLeft); });
    connect(m_bar.btnCenter, &MyButton::Click, this, [this] { AlignByButton(kCenter); });
    connect(m_bar.btnRight, &MyButton::Click, this, [this] { AlignByButton(kRight); });
    connect(m_bar.btnIncrease, &MyButton::Click, this, [this] { ChangeIndent(kIndentStep); });
    connect(m_bar.btnDecrease, &MyButton::Click, this, [this] { ChangeIndent(-kIndentStep); });
    connect(m_bar.btnUpper, &MyButton::Click, this, &FormatCommands::UpperCase);
    connect(m_bar.btnLower, &MyButton::Click, this, &FormatCommands::LowerCase);
    connect(m_bar.btnFontDialog, &MyButton::Click, this, &FormatCommands::ShowFontDialog);
    connect(m_bar.btnFontColor, &MyButton::Click, this, &FormatCommands::ShowColorDialog);
    connect(m_bar.cboFonts, &ComboBox::Click, this, &FormatCommands::ApplyFont);
    connect(m_bar.cboFontSize, &ComboBox::Click, this, &FormatCommands::ApplyFontSize);
    // what is typed there counts when Enter is pressed
    connect(m_bar.cboFonts->lineEdit(), &QLineEdit::returnPressed, this, &FormatCommands::ApplyFont);
    connect(m_bar.cboFontSize->lineEdit(), &QLineEdit::returnPressed, this, &FormatCommands::ApplyFontSize);
}

void FormatCommands::ConnectMenus() {
    const auto entry = [this](const char* name, auto command) {
        connect(m_workbench.Menu(QLatin1String(name)), &QAction::triggered, this, command);
    };
    entry("mnuBold", &FormatCommands::ToggleBold);
    entry("mnuItalic", &FormatCommands::ToggleItalic);
    entry("mnuUnderline", &FormatCommands::ToggleUnderline);
    entry("mnuLeft", [this] { AlignByMenu(kLeft); });
    entry("mnuCenter", [this] { AlignByMenu(kCenter); });
    entry("mnuRight", [this] { AlignByMenu(kRight); });
    entry("mnuIncreaseIndent", [this] { ChangeIndent(kIndentStep); });
    entry("mnuDecreaseIndent", [this] { ChangeIndent(-kIndentStep); });
    entry("mnuBullet", &FormatCommands::ToggleBullet);
    entry("mnuUpperCase", &FormatCommands::UpperCase);
    entry("mnuLowerCase", &FormatCommands::LowerCase);
    entry("mnuFontDialog", &FormatCommands::ShowFontDialog);
    entry("mnuPopFonts", &FormatCommands::ShowFontDialog);
    entry("mnucolor", &FormatCommands::ShowColorDialog);
    entry("mnuPopColor", &FormatCommands::ShowColorDialog);
}

void FormatCommands::ToggleBold() {
    Toggle(m_workbench.StrictPane(), m_bar.btnBold, &RichTextBox::SelBold, &RichTextBox::setSelBold);
}

void FormatCommands::ToggleItalic() {
    Toggle(m_workbench.StrictPane(), m_bar.btnItalic, &RichTextBox::SelItalic, &RichTextBox::setSelItalic);
}

void FormatCommands::ToggleUnderline() {
    Toggle(m_workbench.StrictPane(), m_bar.btnUnderline, &RichTextBox::SelUnderline,
           &RichTextBox::setSelUnderline);
}

void FormatCommands::AlignByButton(int alignment) {
    if (RichTextBox* pane = m_workbench.StrictPane())
        pane->setSelAlignment(alignment);
    for (const auto& [button, own] : {std::pair(m_bar.btnLeft, kLeft), std::pair(m_bar.btnCenter, kCenter),
                                      std::pair(m_bar.btnRight, kRight)})
        if (own != alignment)
            button->setValue(false);
}

void FormatCommands::AlignByMenu(int alignment) {
    RichTextBox* pane = m_workbench.txtContent();
    pane->setSelAlignment(alignment);
    platform::SetFocus(pane);
}

void FormatCommands::ChangeIndent(int twips) {
    RichTextBox* pane = m_workbench.StrictPane();
    if (!pane)
        return;
    // the box refuses an indent left of its margin
    if (const std::optional<int> indent = pane->SelIndent())
        pane->setSelIndent(*indent + twips);
}

void FormatCommands::ToggleBullet() {
    RichTextBox* pane = m_workbench.txtContent();
    const bool on = !pane->SelBullet().value_or(false);
    pane->setSelBullet(on);
    pane->setSelHangingIndent(on ? kBulletHanging : 0);
}

void FormatCommands::UpperCase() {
    ChangeCase(Upper);
}
void FormatCommands::LowerCase() {
    ChangeCase(Lower);
}

void FormatCommands::ChangeCase(QString (*convert)(const QString&)) {
    RichTextBox* pane = m_workbench.StrictPane();
    if (!pane)
        return;
    const int start = pane->SelStart();
    const int length = pane->SelLength();
    if (length > 0)
        pane->ConvertSelText(convert);
    pane->setSelStart(start);
    pane->setSelLength(length);
    platform::SetFocus(pane);
}

void FormatCommands::ShowFontDialog() {
    RichTextBox* pane = m_workbench.ActivePane();
    const auto name = pane->SelFontName();
    const auto size = pane->SelFontSize();
    const auto bold = pane->SelBold();
    const auto italic = pane->SelItalic();
    const auto underline = pane->SelUnderline();
    const auto color = pane->SelColor();
    // one dialog cannot show two formats
    if (!name || !size || !bold || !italic || !underline || !color)
        return;
    platform::FontChoice choice{*name, *size, *bold, *italic, false, *underline, *color};
    if (!m_services.commonDialog.ShowFont(m_workbench.Window(), choice))
        return;
    m_dialogColor = choice.Color;
    // the first that the box refuses ends the command
    const bool isWritten = pane->setSelFontName(choice.FontName) && pane->setSelFontSize(choice.FontSize) &&
                           pane->setSelBold(choice.FontBold) && pane->setSelItalic(choice.FontItalic) &&
                           pane->setSelStrikeThru(choice.FontStrikethru) &&
                           pane->setSelUnderline(choice.FontUnderline) && pane->setSelColor(choice.Color);
    if (!isWritten)
        return;
    if (const auto shown = pane->SelFontSize())
        m_bar.cboFontSize->setText(SizeText(*shown));
}

void FormatCommands::ShowColorDialog() {
    // a cancelled dialog leaves the colour chosen last, which then goes onto the selection all the same
    m_services.commonDialog.ShowColor(m_workbench.Window(), m_dialogColor);
    if (RichTextBox* pane = m_workbench.StrictPane())
        pane->setSelColor(m_dialogColor);
}

void FormatCommands::ApplyFont() {
    const QString name = m_bar.cboFonts->Text();
    RichTextBox* pane = m_workbench.StrictPane();
    if (pane && !name.isEmpty())
        pane->setSelFontName(name);
}

void FormatCommands::ApplyFontSize() {
    bool isNumber = false;
    const double points = m_bar.cboFontSize->Text().toDouble(&isNumber);
    RichTextBox* pane = m_workbench.StrictPane();
    if (pane && isNumber)
        pane->setSelFontSize(points);
}

void FormatCommands::ShowFormatState(RichTextBox* pane) {
    m_bar.btnBold->setValue(pane->SelBold().value_or(false));
    m_bar.btnItalic->setValue(pane->SelItalic().value_or(false));
    m_bar.btnUnderline->setValue(pane->SelUnderline().value_or(false));
    const std::optional<int> alignment = pane->SelAlignment();
    m_bar.btnLeft->setValue(alignment == kLeft);
    m_bar.btnCenter->setValue(alignment == kCenter);
    m_bar.btnRight->setValue(alignment == kRight);
    if (const auto name = pane->SelFontName())
        m_bar.cboFonts->setText(*name);
    if (const auto size = pane->SelFontSize())
        m_bar.cboFontSize->setText(SizeText(*size));
}

void FormatCommands::ShowFormatState() {
    if (RichTextBox* pane = m_workbench.StrictPane())
        ShowFormatState(pane);
}

} // namespace quillbrook
