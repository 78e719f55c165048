#pragma once

#include "appearance/theme_stepper.h"

#include <QDialog>

class QBoxLayout;
class QLabel;

namespace platform {
class MyButton;
}

namespace quillbrook {

class LibraryStore;
class ThemeCommands;

// The dialog for the colour theme. Each step shows at once in the main window and is stored at once; Cancel
// and Escape go back to the theme at opening. Closed by its title bar it leaves the theme being looked at.
class frmTheme final : public QDialog {
    Q_OBJECT

public:
    // Centred on the screen. It stands at the stored theme; the main window is not touched.
    frmTheme(ThemeCommands& commands, LibraryStore& store, QWidget* parent = nullptr);

    int Number() const { return m_stepper.Number(); } // of the theme shown

    QLabel* lblTheme; // the theme's name, as a sample of its colours
    platform::MyButton* btnPrevious;
    platform::MyButton* btnNext;
    platform::MyButton* btnOk;
    platform::MyButton* btnItalic; // "Default"
    platform::MyButton* btnCancel;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QBoxLayout* BuildSample();
    QBoxLayout* BuildButtons();
    void Step(void (ThemeStepper::*step)());
    void ShowTheme();
    void ShowColors();
    void ApplyTheme();
    void Cancel();

    ThemeCommands& m_commands;
    LibraryStore& m_store;
    ThemeStepper m_stepper;
};

} // namespace quillbrook
