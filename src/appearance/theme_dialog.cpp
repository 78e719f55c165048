#include "appearance/theme_dialog.h"

#include "appearance/icons.h"
#include "appearance/theme_commands.h"
#include "appearance/theme_sheet.h"
#include "library/library_store.h"
#include "platform/controls/centre.h"
#include "platform/controls/my_button.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPalette>

namespace quillbrook {

using platform::MyButton;

namespace {

// Device-independent pixels.
constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kSampleWidth = 280;
constexpr int kSampleHeight = 72;
constexpr int kStepWidth = 36;
constexpr int kButtonWidth = 96;
constexpr int kButtonHeight = 28;

MyButton* MakeButton(QWidget* dialog, const char* name, const QString& caption) {
    auto* button = new MyButton(MyButton::Kind::Plain, dialog);
    button->setObjectName(QLatin1String(name));
    button->setCaption(caption);
    button->setFixedSize(kButtonWidth, kButtonHeight);
    return button;
}

MyButton* MakeStepButton(QWidget* dialog, const char* name, const QString& tip, const char* picture) {
    auto* button = new MyButton(MyButton::Kind::Plain, dialog);
    button->setObjectName(QLatin1String(name));
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIcon(Picture(QLatin1String(picture)));
    button->setIconSize({20, 20});
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setFixedSize(kStepWidth, kSampleHeight);
    return button;
}

} // namespace

frmTheme::frmTheme(ThemeCommands& commands, LibraryStore& store, QWidget* parent)
    : QDialog(parent)
    , m_commands(commands)
    , m_store(store)
    , m_stepper(store.ReadThemeNumber().value_or(kDefaultTheme)) {
    setObjectName(QStringLiteral("frmTheme"));
    setWindowTitle(tr("Color Theme Selector"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->setSpacing(kMargin);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addLayout(BuildSample());
    column->addLayout(BuildButtons());
    column->activate();

    connect(btnPrevious, &MyButton::Click, this, [this] { Step(&ThemeStepper::Previous); });
    connect(btnNext, &MyButton::Click, this, [this] { Step(&ThemeStepper::Next); });
    connect(btnItalic, &MyButton::Click, this, [this] { Step(&ThemeStepper::Default); });
    connect(btnOk, &MyButton::Click, this, [this] {
        ApplyTheme();
        accept();
    });
    connect(btnCancel, &MyButton::Click, this, &frmTheme::Cancel);

    platform::CentreOnScreen(this);
    ShowTheme();
    qApp->installEventFilter(this);
    btnNext->setFocus();
}

QBoxLayout* frmTheme::BuildSample() {
    btnPrevious = MakeStepButton(this, "btnPrevious", tr("Previous Theme"), "previous-hit");
    lblTheme = new QLabel(this);
    lblTheme->setObjectName(QStringLiteral("lblTheme"));
    lblTheme->setAlignment(Qt::AlignCenter);
    lblTheme->setFixedSize(kSampleWidth, kSampleHeight);
    btnNext = MakeStepButton(this, "btnNext", tr("Next Theme"), "next-hit");
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    for (QWidget* control : {static_cast<QWidget*>(btnPrevious), static_cast<QWidget*>(lblTheme),
                             static_cast<QWidget*>(btnNext)})
        row->addWidget(control);
    return row;
}

QBoxLayout* frmTheme::BuildButtons() {
    btnItalic = MakeButton(this, "btnItalic", tr("Default"));
    btnCancel = MakeButton(this, "btnCancel", tr("Cancel"));
    btnOk = MakeButton(this, "btnOk", tr("Apply"));
    btnOk->setProperty("default", true);
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    row->addWidget(btnItalic);
    row->addStretch();
    row->addWidget(btnCancel);
    row->addWidget(btnOk);
    return row;
}

void frmTheme::Step(void (ThemeStepper::*step)()) {
    (m_stepper.*step)();
    ShowTheme();
    ApplyTheme();
}

void frmTheme::ShowTheme() {
    const ThemeSample sample = SampleOf(m_stepper.Current());
    lblTheme->setText(QLatin1String(sample.caption));
    m_store.WriteThemeNumber(m_stepper.Number());
    ShowColors();
}

// The rules of the main window reach its dialogs, too, and rules win over palettes.
void frmTheme::ShowColors() {
    setStyleSheet(SampleSheet(SampleOf(m_stepper.Current()), QGuiApplication::palette()));
}

bool frmTheme::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        ShowColors();
    return QDialog::eventFilter(watched, event);
}

void frmTheme::ApplyTheme() {
    m_commands.ApplyTheme(m_stepper.Current());
}

void frmTheme::Cancel() {
    Step(&ThemeStepper::Cancel);
    reject();
}

// Closing by the title bar rejects the dialog too, but takes nothing back; so Escape cannot be left to
// QDialog. Enter is the default button's, unless another one has the focus.
void frmTheme::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel)) {
        btnCancel->click();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        auto* focused = qobject_cast<MyButton*>(focusWidget());
        (focused ? focused : btnOk)->click();
    } else {
        QDialog::keyPressEvent(event);
    }
}

} // namespace quillbrook
