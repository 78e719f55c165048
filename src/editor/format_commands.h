#pragma once

#include <QColor>
#include <QObject>

namespace platform {
class RichTextBox;
struct Services;
} // namespace platform

namespace quillbrook {

class EditToolBar;
class Workbench;

// The commands that change the format of the selection. Most work only on the pages where a form is edited;
// the alignment entries of the menu and the bullet always work on the reading pane.
class FormatCommands final : public QObject {
    Q_OBJECT

public:
    FormatCommands(EditToolBar& bar, Workbench& workbench, platform::Services& services, QObject* parent);

    // A mixed selection stays as it is.
    void ToggleBold();
    void ToggleItalic();
    void ToggleUnderline();

    // 0 left, 1 right, 2 centre.
    void AlignByButton(int alignment);
    void AlignByMenu(int alignment);

    void ChangeIndent(int twips); // more, or less when negative
    void ToggleBullet();
    void UpperCase();
    void LowerCase();
    void ShowFontDialog();
    void ShowColorDialog();

    // The entry picked in the combo goes onto the selection.
    void ApplyFont();
    void ApplyFontSize();

    // Shows the format of the pane's selection in the bar; what is mixed shows as not pressed, and the combos
    // keep what they show.
    void ShowFormatState(platform::RichTextBox* pane);
    // The same for the pane of the current page; on pages without editing nothing happens.
    void ShowFormatState();

private:
    void ConnectBar();
    void ConnectMenus();
    void ChangeCase(QString (*convert)(const QString&));

    EditToolBar& m_bar;
    Workbench& m_workbench;
    platform::Services& m_services;
    QColor m_dialogColor = Qt::black; // the colour chosen last
};

} // namespace quillbrook
