#pragma once

namespace platform {
class ListBox;
struct Services;
} // namespace platform

namespace quillbrook {

class LibraryStore;
class Workbench;

// Marks the form selected in `list` as a favourite, or asks for a selection when there is none.
void AddToFavorites(platform::ListBox& list, Workbench& workbench, LibraryStore& store,
                    platform::Services& services);

} // namespace quillbrook
