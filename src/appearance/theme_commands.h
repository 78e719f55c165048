#pragma once

#include "appearance/flat_controls.h"
#include "appearance/themes.h"

#include <QObject>
#include <optional>

namespace quillbrook {

class LibraryStore;
class WindowList;
class Workbench;
struct WindowState;

// Dresses the main window: its colours, and the flat edges of its lists. A theme that follows the desktop
// does so while the program runs, too. What cannot be stored is shown all the same.
class ThemeCommands final : public QObject {
    Q_OBJECT

public:
    // `windows` offers the dialog frmTheme.
    ThemeCommands(Workbench& workbench, WindowState& state, LibraryStore& store, WindowList& windows,
                  QObject* parent);

    // The theme of ThemeNumber, which is brought into the range of themes first and stored.
    void LoadTheme();

    // Shows a theme in the main window, and ticks or clears its entry mnuWindowsDefaultTheme.
    void ApplyTheme(const Theme& theme);
    void TickWindowsDefault(bool tick);

    // The first theme, stored; the links of the first page turn blue as well. ThemeNumber stays as it is.
    void SetWindowsDefault();

    // Shows the theme dialog, modal.
    void ChangeColorTheme();

    // Gives seven controls a flat edge; txtMyContent is none of them.
    void FlattenControls();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Color(const Theme& theme);
    void ColorLinks();

    Workbench& m_workbench;
    WindowState& m_state;
    LibraryStore& m_store;
    WindowList& m_windows;
    std::optional<Flat_Controls> FlatStyler; // made on first use
    const Theme* m_shown = nullptr;
    bool m_linksColored = false;
};

} // namespace quillbrook
