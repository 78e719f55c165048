#pragma once

#include "accessory/title_pulse.h"

#include <QObject>

namespace quillbrook {

class WindowList;
class Workbench;

// The about box and the contact card: their menu entries, which the panels of the status bar lead to as well.
// Each window is modal and is built anew at each opening.
class AccessoryCommands final : public QObject {
    Q_OBJECT

public:
    // `windows` offers frmAbout and frmContact.
    AccessoryCommands(Workbench& workbench, WindowList& windows, QObject* parent);

    TitlePulse& Pulse() { return m_pulse; } // of the contact card; it outlives the card

private:
    void ShowModally(const QString& name);

    WindowList& m_windows;
    TitlePulse m_pulse;
};

} // namespace quillbrook
