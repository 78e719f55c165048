#include "appearance/look.h"

#include "appearance/icons.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFontInfo>
#include <QPalette>
#include <QProxyStyle>
#include <QScopedValueRollback>
#include <QStyleFactory>

namespace quillbrook {

namespace {

constexpr char kAccent[] = "#2f6fde";

QString Hex(const QColor& color) {
    return color.name(QColor::HexRgb);
}

QColor Mix(const QColor& a, const QColor& b, double share) {
    const auto part = [share](int x, int y) { return int(std::lround(x + (y - x) * share)); };
    return QColor(part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue()));
}

QString StyleRules(const QPalette& palette, const QFont& font) {
    const double size = QFontInfo(font).pointSizeF();
    const QColor ground = palette.color(QPalette::Window);
    const QColor ink = palette.color(QPalette::WindowText);
    const QColor paper = palette.color(QPalette::Base);
    const QColor accent(kAccent);

    // %1 frame ground, %2 soft edge, %3 accent, %4 hover ground, %5 calm ink, %6 ink, %7 paper, %8 and %9
    // sizes of headings and captions of frames, %10 accent under the mouse, %11 face of the desktop's buttons
    return QStringLiteral(R"(
        platform--Frame {
            background: %1; border: 1px solid %2; border-radius: 6px;
            margin-top: 0px; padding-top: 18px; color: %5; font-size: %9pt;
        }
        platform--Frame::title {
            subcontrol-origin: border; subcontrol-position: top left; left: 8px; top: 2px; color: %5;
        }
        platform--MyButton {
            border: 1px solid transparent; border-radius: 4px; padding: 1px 8px; color: %6; background: transparent;
        }
        platform--MyButton:hover { border-color: %2; background: %4; }
        platform--MyButton:focus { border-color: %3; }
        platform--MyButton:pressed { background: %2; }
        platform--MyButton:checked { background: %3; border-color: %3; color: white; }
        platform--MyButton::menu-button {
            border: none; border-left: 1px solid transparent; border-top-right-radius: 4px;
            border-bottom-right-radius: 4px; width: 15px; background: transparent;
        }
        platform--MyButton::menu-button:hover { border-left-color: %2; }
        platform--MyButton::menu-arrow { image: url(:/icons/drop-down.svg); width: 8px; height: 8px; }
        platform--MyButton[kind="large"] { padding: 1px; }
        platform--MyButton:disabled { color: %5; }
        platform--MyButton[kind="plain"] { background: %7; border-color: %2; }
        platform--MyButton[kind="plain"]:hover { background: %4; }
        platform--MyButton[kind="plain"]:focus { border-color: %3; }
        platform--MyButton[kind="toggle"] { padding: 0px 4px; }
        platform--MyButton#btnImport { padding: 2px; }
        platform--MyButton:checked:focus { border-color: %6; }
        platform--MyButton#btnMyForms { background: %7; border-color: %2; padding: 1px 8px; }
        platform--MyButton#btnMyForms:hover { background: %4; }
        platform--MyButton#btnMyForms:focus { border-color: %3; }
        platform--MyButton#btnMyForms:checked { background: %3; border-color: %3; color: white; }
        platform--MyButton#btnMyForms:checked:focus { border-color: %6; }
        platform--MyButton#OKButton, platform--MyButton[default="true"] {
            background: %3; border-color: %3; color: white;
        }
        platform--MyButton#OKButton:hover, platform--MyButton[default="true"]:hover {
            background: %10; border-color: %10;
        }
        platform--MyButton#OKButton:focus, platform--MyButton[default="true"]:focus { border-color: %6; }
        QDialog QPushButton {
            background: %7; border: 1px solid %2; border-radius: 4px; padding: 4px 14px; min-width: 60px;
            color: %6;
        }
        QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
        QDialog QPushButton:hover { background: %4; }
        QDialog QPushButton:focus { border-color: %3; }
        QDialog QPushButton:pressed { background: %2; }
        QDialog QPushButton:disabled { color: %5; }
        QDialog QPushButton:default { background: %3; border-color: %3; color: white; }
        QDialog QPushButton:default:hover { background: %10; border-color: %10; }
        QDialog QPushButton:default:focus { border-color: %6; }
        platform--ListBox, platform--RichTextBox { border: 2px inset %2; }
        platform--ListBox { background: %7; outline: none; padding: 2px; color: %6; }
        platform--ListBox[edge="flat"] { border: 1px solid %2; border-radius: 4px; }
        platform--ListBox:focus { border-color: %3; }
        platform--ListBox::item { border-radius: 3px; padding: 2px 4px; }
        platform--ListBox::item:hover { background: rgba(47, 111, 222, 36); }
        platform--ListBox::item:selected { background: %3; color: white; }
        platform--RichTextBox { background: %7; }
        platform--RichTextBox[edge="flat"] { border: 1px solid %2; border-radius: 2px; }
        platform--RichTextBox:focus { border-color: %3; }
        platform--ComboBox { border: 1px solid %2; border-radius: 4px; background: %7; color: %6; padding-left: 3px; }
        platform--ComboBox:focus { border-color: %3; }
        platform--ComboBox QLineEdit { border: none; background: transparent; }
        platform--ComboBox#cboQuery, platform--ListBox#lstSearch { font-family: Arial; }
        platform--ListBox#lstSearch { padding: 1px; }
        platform--ComboBox::drop-down { border: none; width: 18px; }
        platform--ComboBox::drop-down:hover { background: %4; }
        platform--ComboBox::down-arrow { image: url(:/icons/drop-down.svg); width: 9px; height: 9px; }
        QRadioButton { border: 1px solid transparent; border-radius: 4px; padding: 1px; }
        QRadioButton:focus { border-color: %3; }
        QFrame#fmeEditToolBar { background: %1; border: 1px solid %2; border-radius: 6px; }
        QWidget#picLeftToolbar { background: %11; border-right: 1px solid %2; }
        QWidget#StatusBar1 { background: %1; border-top: 1px solid %2; }
        QWidget#StatusBar1 QPushButton {
            border: 1px solid transparent; border-radius: 3px; padding: 0px 8px; text-align: left; color: %6;
        }
        QWidget#StatusBar1 QPushButton:hover { background: %4; border-color: %2; }
        QWidget#StatusBar1 QPushButton:focus { border-color: %3; }
        QLabel#lblQuillbrook, QLabel#lblSearch, QLabel#lblFavorites, QLabel#lblHistory {
            font-size: %8pt; font-weight: 600;
        }
        platform--PageLabel { qproperty-ground: %1; qproperty-edge: %2; color: %6; }
        QDialog#frmTheme platform--MyButton[default="true"] { border-color: %7; }
        QDialog#frmTheme platform--MyButton[default="true"]:focus { border-color: %6; }
        QLabel#lblTheme { font-size: %8pt; }
        QWidget#picCredits1 { background: #1f2735; }
        QLabel#lblTitle { font-size: %8pt; font-weight: 600; }
    )")
        .arg(Hex(Mix(ground, paper, 0.35)), Hex(Mix(ground, ink, 0.22)), Hex(accent),
             Hex(Mix(paper, accent, 0.12)), Hex(Mix(ground, ink, 0.66)), Hex(ink), Hex(paper),
             QString::number(size * 1.3, 'f', 1), QString::number(size * 0.92, 'f', 1),
             Hex(Mix(accent, ink, 0.15)), Hex(palette.color(QPalette::Button)));
}

// The desktop's palette with the program's accent.
QPalette WithAccent(QPalette palette) {
    palette.setColor(QPalette::Highlight, QColor(kAccent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, Mix(QColor(kAccent), palette.color(QPalette::WindowText), 0.15));
    palette.setColor(QPalette::Inactive, QPalette::Highlight,
                     Mix(palette.color(QPalette::Base), QColor(kAccent), 0.3));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, palette.color(QPalette::Text));
    return palette;
}

// The desktop's manner with the program's own pictures in message boxes, and the default button at the right
// of every dialog.
class Style final : public QProxyStyle {
public:
    Style()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override {
        switch (icon) {
        case SP_MessageBoxInformation:
            return Picture(QStringLiteral("message-information"));
        case SP_MessageBoxQuestion:
            return Picture(QStringLiteral("message-question"));
        case SP_MessageBoxWarning:
            return Picture(QStringLiteral("message-warning"));
        case SP_MessageBoxCritical:
            return Picture(QStringLiteral("message-critical"));
        default:
            return QProxyStyle::standardIcon(icon, option, widget);
        }
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_DialogButtonLayout ? int(QDialogButtonBox::GnomeLayout)
                                             : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

// Takes the rules and the accent along when the desktop changes its colours while the program runs.
class LookKeeper final : public QObject {
public:
    explicit LookKeeper(QApplication& application)
        : QObject(&application)
        , m_application(application) {
        Renew();
        application.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &m_application && event->type() == QEvent::ApplicationPaletteChange && !m_renewing)
            Renew();
        return QObject::eventFilter(watched, event);
    }

private:
    void Renew() {
        const QScopedValueRollback busy(m_renewing, true);
        const QPalette palette = WithAccent(QApplication::palette());
        const QString rules = StyleRules(palette, QApplication::font());
        if (palette != QApplication::palette())
            QApplication::setPalette(palette);
        if (rules != m_application.styleSheet())
            m_application.setStyleSheet(rules);
    }

    QApplication& m_application;
    bool m_renewing = false;
};

} // namespace

void ApplyLook(QApplication& application) {
    application.setStyle(new Style); // owned by the application
    new LookKeeper(application);     // owned by the application
}

} // namespace quillbrook
