#pragma once

#include "library/form_source.h"

namespace quillbrook {

// Reports what is wrong with a form that was read: its title, category, sub-category and markers.
void CheckForm(const FormSource& form, SourceProblems& problems);

// Reports a category, sub-category or title that is not the one its place tells. `relativePath` is the path
// below the folder of forms, its parts separated by '/'.
void CheckPlace(const FormSource& form, const QString& relativePath, SourceProblems& problems);

// Whether a paragraph is nothing but capitals in round brackets, as the place of a clause is.
bool LooksLikeMarker(const QString& text);

} // namespace quillbrook
