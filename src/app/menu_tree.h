#pragma once

#include <QHash>
#include <QObject>

class QAction;
class QKeySequence;
class QMenu;
class QMenuBar;

namespace quillbrook {

// The window's menus, made from the table of menu_table.h.
class MenuTree final : public QObject {
    Q_OBJECT

public:
    // Builds the menu bar as a child of `window`; its shortcuts work in the whole window.
    explicit MenuTree(QWidget* window);

    // Has the fields of text in `window` leave the shortcuts to the menus. Some of them edit a line on some
    // desktops, as Ctrl+U does, and would never reach their entry.
    void TakeShortcutsFromFields(QWidget* window);

    QMenuBar* MenuBar() const { return m_menuBar; }
    QAction* Entry(const QString& name) const; // null for an unknown name
    QMenu* Menu(const QString& name) const;    // of the bar, a sub-menu or a pop-up; null for an unknown name

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsShortcut(const QKeySequence& keys) const;

    QMenuBar* m_menuBar;
    QHash<QString, QAction*> m_entries;
    QHash<QString, QMenu*> m_menus;
};

} // namespace quillbrook
