#pragma once

namespace quillbrook {

// The pages of SSTab by number.
enum class Tab { FormsExplorer = 0, Search = 1, EditForm = 2, Favorites = 3, History = 4, MyForms = 5 };

} // namespace quillbrook
