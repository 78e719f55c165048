#include "accessory/accessory_commands.h"

#include "app/window_list.h"
#include "app/workbench.h"

#include <QAction>
#include <QDialog>

namespace quillbrook {

AccessoryCommands::AccessoryCommands(Workbench& workbench, WindowList& windows, QObject* parent)
    : QObject(parent)
    , m_windows(windows) {
    QAction* about = workbench.Menu(QStringLiteral("mnuAbout"));
    connect(about, &QAction::triggered, this, [this] { ShowModally(QStringLiteral("frmAbout")); });
    connect(workbench.Menu(QStringLiteral("mnuPopAbout")), &QAction::triggered, about, &QAction::trigger);
    connect(workbench.Menu(QStringLiteral("mnuContact")), &QAction::triggered, this,
            [this] { ShowModally(QStringLiteral("frmContact")); });
}

void AccessoryCommands::ShowModally(const QString& name) {
    auto* window = qobject_cast<QDialog*>(m_windows.Load(name));
    if (!window)
        return;
    window->exec();
    m_windows.Unload(name);
}

} // namespace quillbrook
