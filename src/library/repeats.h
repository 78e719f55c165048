#pragma once

#include <QStringList>

namespace platform {
class ComboBox;
class ListBox;
} // namespace platform

namespace quillbrook {

// The list without its repeats: of entries of exactly the same text, with case, the first one stays where it
// is and the later ones go. Linear in the number of entries.
QStringList WithoutRepeats(const QStringList& entries);

// The same for a list box, whose selected entry stays selected unless it is one of those that go, and for the
// entries of a combo box. Neither raises a click.
void RemoveRepeats(platform::ListBox& list);
void RemoveRepeats(platform::ComboBox& list);

} // namespace quillbrook
