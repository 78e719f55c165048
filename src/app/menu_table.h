#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace quillbrook {

enum class MenuKind {
    Menu,  // in the menu bar
    PopUp, // hidden from the menu bar, shown by a command only
    SubMenu,
    Item,
    Bar, // a separator; it has no caption
};

// A menu, entry or separator, as it is at start. `parent` is the name of the menu it stands in, empty for
// menus of the menu bar and pop-ups. An '&' in a caption stands before the letter that chooses it; keys named
// in a caption are only text there. `shortcut` is in the portable form of key sequences, empty for none.
//
// Check marks are set by the commands, a click on an entry moves none by itself.
struct MenuRow {
    MenuKind kind = MenuKind::Item;
    const char* parent = "";
    const char* name = "";
    const char* caption = "";
    const char* shortcut = "";
    bool isEnabled = true;
    bool isCheckable = false;
    bool isChecked = false;
};

// The whole tree: menus in their order, each entry behind the menu that it stands in, in that menu's order.
std::span<const MenuRow> MenuTable();

// Null for a name that is in no menu.
const MenuRow* FindMenuRow(std::string_view name);

// What stands directly in a menu, in its order; for an empty name the menus of the menu bar and the pop-ups.
std::vector<const MenuRow*> MenuRowsIn(std::string_view parent);

} // namespace quillbrook
