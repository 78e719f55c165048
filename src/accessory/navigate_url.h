#pragma once

#include <QString>

namespace quillbrook {

// Gives a link to whatever the desktop opens its kind with. A desktop that has nothing for it does nothing,
// and nothing is said.
void NavigateURL(const QString& url);

} // namespace quillbrook
