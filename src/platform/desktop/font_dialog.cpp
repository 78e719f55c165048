#include "platform/desktop/font_dialog.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace platform {

// A font that is not installed is shown by the one that stands for it in the text.
static QFont FontOf(const FontChoice& choice) {
    QFont font(choice.FontName);
    if (!QFontDatabase::families().contains(choice.FontName))
        font.setFamily(QFontInfo(font).family());
    if (choice.FontSize > 0)
        font.setPointSizeF(choice.FontSize);
    font.setBold(choice.FontBold);
    font.setItalic(choice.FontItalic);
    font.setStrikeOut(choice.FontStrikethru);
    font.setUnderline(choice.FontUnderline);
    return font;
}

FontDialog::FontDialog(const FontChoice& choice, QWidget* parent)
    : QDialog(parent)
    , m_given(choice)
    , m_fonts(new QFontDialog(FontOf(choice)))
    , m_colorButton(new QPushButton)
    , m_color(choice.Color) {
    setWindowTitle(tr("Fonts"));
    m_fonts->setOptions(QFontDialog::NoButtons | QFontDialog::DontUseNativeDialog);
    m_fonts->setWindowFlags(Qt::Widget);
    m_fonts->setCurrentFont(FontOf(choice));
    m_shown = m_fonts->currentFont();

    auto* label = new QLabel(tr("&Color:"));
    label->setBuddy(m_colorButton);
    m_colorButton->setAccessibleName(tr("Color"));
    m_colorButton->setIconSize({48, 16});
    m_colorButton->setAutoDefault(false);
    connect(m_colorButton, &QPushButton::clicked, this, &FontDialog::ChooseColor);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // its own keys close the dialog within
    m_fonts->installEventFilter(this);
    connect(m_fonts, &QDialog::accepted, this, &QDialog::accept);
    connect(m_fonts, &QDialog::rejected, this, &QDialog::reject);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);

    auto* row = new QHBoxLayout;
    row->setContentsMargins(11, 0, 11, 0);
    row->addWidget(label);
    row->addWidget(m_colorButton);
    row->addStretch();
    row->addWidget(buttons);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 11);
    column->addWidget(m_fonts);
    column->addLayout(row);
    ShowColor();
}

// The dialog within has no buttons of its own, and would keep Enter to itself.
bool FontDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_fonts && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            accept();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

FontChoice FontDialog::Choice() const {
    const QFont font = m_fonts->currentFont();
    FontChoice choice = m_given;
    if (font.family() != m_shown.family())
        choice.FontName = font.family();
    if (font.pointSizeF() != m_shown.pointSizeF())
        choice.FontSize = font.pointSizeF();
    if (font.bold() != m_shown.bold())
        choice.FontBold = font.bold();
    if (font.italic() != m_shown.italic())
        choice.FontItalic = font.italic();
    choice.FontStrikethru = font.strikeOut();
    choice.FontUnderline = font.underline();
    choice.Color = m_color;
    return choice;
}

void FontDialog::ChooseColor() {
    const QColor chosen =
        QColorDialog::getColor(m_color, this, tr("Text Color"), QColorDialog::DontUseNativeDialog);
    if (!chosen.isValid())
        return;
    m_color = chosen;
    ShowColor();
}

void FontDialog::ShowColor() {
    QPixmap sample(m_colorButton->iconSize() * devicePixelRatioF());
    sample.fill(m_color);
    m_colorButton->setIcon(sample);
}

} // namespace platform
