#pragma once

#include <QString>
#include <array>
#include <functional>
#include <optional>

namespace quillbrook {

// The lists that show the item under the mouse in the title bar, and the title they show there beside their
// items. All other lists leave the title alone.
struct HoverList {
    const char* name;
    const char* offListTitle;
};

constexpr std::array<HoverList, 5> kHoverLists = {{
    {"lstTitle", "Quillbrook"},
    {"lstSubCategory", "Quillbrook"},
    {"lstSearch", "Search Results"},
    {"lstFavorites", "My Favorite Forms"},
    {"lstHistory", "Recently Opened Forms"},
}};

// The window's caption on a move of the mouse over one of these lists; empty when it stays as it is, as it
// does while a button is down. `item` is the index under the mouse, empty beside all items; `text` gives the
// text of an index, and is asked once at most.
std::optional<QString> HoverCaption(const HoverList& list, bool isButtonDown, std::optional<int> item,
                                    const std::function<QString(int)>& text);

} // namespace quillbrook
