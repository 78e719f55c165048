#include "appearance/theme_commands.h"

#include "app/window_list.h"
#include "app/workbench.h"
#include "appearance/theme_sheet.h"
#include "appearance/theme_stepper.h"
#include "library/library_store.h"
#include "platform/controls/hyper_label.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPalette>

namespace quillbrook {
namespace {

constexpr const char* kFlattened[] = {"txtContent",   "lstTitle",   "lstSubCategory", "lstSearch",
                                      "lstFavorites", "lstHistory", "lstMyTitle"};

} // namespace

ThemeCommands::ThemeCommands(Workbench& workbench, WindowState& state, LibraryStore& store,
                             WindowList& windows, QObject* parent)
    : QObject(parent)
    , m_workbench(workbench)
    , m_state(state)
    , m_store(store)
    , m_windows(windows) {
    connect(workbench.Menu(QStringLiteral("mnuChangeColorTheme")), &QAction::triggered, this,
            &ThemeCommands::ChangeColorTheme);
    connect(workbench.Menu(QStringLiteral("mnuChangeColor")), &QAction::triggered,
            workbench.Menu(QStringLiteral("mnuChangeColorTheme")), &QAction::trigger);
    connect(workbench.Menu(QStringLiteral("mnuWindowsDefaultTheme")), &QAction::triggered, this,
            &ThemeCommands::SetWindowsDefault);
    qApp->installEventFilter(this);
}

void ThemeCommands::LoadTheme() {
    m_state.ThemeNumber = WrapThemeNumber(m_state.ThemeNumber);
    m_store.WriteThemeNumber(m_state.ThemeNumber);
    Color(ThemeOf(m_state.ThemeNumber));
}

void ThemeCommands::ApplyTheme(const Theme& theme) {
    TickWindowsDefault(IsWindowsDefault(theme));
    Color(theme);
}

void ThemeCommands::TickWindowsDefault(bool tick) {
    m_workbench.Menu(QStringLiteral("mnuWindowsDefaultTheme"))->setChecked(tick);
}

void ThemeCommands::SetWindowsDefault() {
    ApplyTheme(ThemeOf(kDefaultTheme));
    m_linksColored = true;
    ColorLinks();
    m_store.WriteThemeNumber(kDefaultTheme);
}

void ThemeCommands::ChangeColorTheme() {
    const QString name = QStringLiteral("frmTheme");
    auto* dialog = qobject_cast<QDialog*>(m_windows.Load(name));
    if (!dialog)
        return;
    dialog->exec();
    m_windows.Unload(name); // however it was closed
}

void ThemeCommands::FlattenControls() {
    if (!FlatStyler)
        FlatStyler.emplace();
    for (const char* name : kFlattened)
        FlatStyler->FlatObjects(m_workbench.Window()->findChild<QWidget*>(QLatin1String(name)));
}

bool ThemeCommands::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange && m_shown) {
        Color(*m_shown);
        ColorLinks();
    }
    return QObject::eventFilter(watched, event);
}

void ThemeCommands::Color(const Theme& theme) {
    m_shown = &theme;
    const QString sheet = ThemeSheet(theme, QGuiApplication::palette());
    if (m_workbench.Window()->styleSheet() != sheet)
        m_workbench.Window()->setStyleSheet(sheet);
}

// No other command changes these, nor does it when the window leaves the first theme.
void ThemeCommands::ColorLinks() {
    if (!m_linksColored)
        return;
    const QPalette desktop = QGuiApplication::palette();
    const QColor blue = Resolve(kThemedLinkColor, desktop);
    for (const char* name : kThemedLinks) {
        auto* link = m_workbench.Window()->findChild<platform::HyperLabel*>(QLatin1String(name));
        link->setColors({Resolve(ThemeOf(kDefaultTheme).page, desktop), blue, blue});
    }
}

} // namespace quillbrook
