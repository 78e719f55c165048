#include "app/menu_tree.h"

#include "app/menu_table.h"

#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <algorithm>

namespace quillbrook {

// A click on an entry with a check mark does not move the mark: what the entry does sets it.
static void KeepCheckMark(QAction* entry) {
    QObject::connect(entry, &QAction::triggered, entry,
                     [entry](bool checked) { entry->setChecked(!checked); });
}

MenuTree::MenuTree(QWidget* window)
    : QObject(window)
    , m_menuBar(new QMenuBar(window)) {
    m_menuBar->setObjectName(QStringLiteral("menuBar"));
    m_menuBar->setNativeMenuBar(false); // its height is part of the window
    for (const MenuRow& row : MenuTable()) {
        const QString name = QLatin1String(row.name);
        const QString caption = QLatin1String(row.caption);
        QMenu* parent = m_menus.value(QLatin1String(row.parent));
        QAction* entry = nullptr;
        switch (row.kind) {
        case MenuKind::Menu:
        case MenuKind::PopUp:
        case MenuKind::SubMenu: {
            auto* menu = new QMenu(caption, window);
            menu->setObjectName(name);
            m_menus.insert(name, menu);
            if (row.kind == MenuKind::Menu)
                m_menuBar->addMenu(menu);
            else if (parent)
                parent->addMenu(menu);
            entry = menu->menuAction();
            break;
        }
        case MenuKind::Bar:
            entry = parent->addSeparator();
            break;
        case MenuKind::Item:
            entry = parent->addAction(caption);
            entry->setShortcut(
                QKeySequence::fromString(QLatin1String(row.shortcut), QKeySequence::PortableText));
            entry->setMenuRole(QAction::NoRole);
            entry->setCheckable(row.isCheckable);
            entry->setChecked(row.isChecked);
            if (row.isCheckable)
                KeepCheckMark(entry);
            break;
        }
        entry->setObjectName(name);
        entry->setEnabled(row.isEnabled);
        m_entries.insert(name, entry);
    }
}

void MenuTree::TakeShortcutsFromFields(QWidget* window) {
    for (QWidget* control : window->findChildren<QWidget*>())
        if (qobject_cast<QLineEdit*>(control) || qobject_cast<QComboBox*>(control))
            control->installEventFilter(this);
}

bool MenuTree::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        IsShortcut(QKeySequence(static_cast<QKeyEvent*>(event)->keyCombination()))) {
        event->ignore();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

bool MenuTree::IsShortcut(const QKeySequence& keys) const {
    return !keys.isEmpty() && std::any_of(m_entries.begin(), m_entries.end(),
                                          [&](const QAction* entry) { return entry->shortcut() == keys; });
}

QAction* MenuTree::Entry(const QString& name) const {
    return m_entries.value(name);
}
QMenu* MenuTree::Menu(const QString& name) const {
    return m_menus.value(name);
}

} // namespace quillbrook
