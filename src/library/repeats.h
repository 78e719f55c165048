#pragma once

#include <QStringList>

namespace quillbrook {

// The list without its repeats: of entries of exactly the same text, with case, the first one stays where it
// is and the later ones go. Linear in the number of entries.
QStringList WithoutRepeats(const QStringList& entries);

// The same for a ListBox or ComboBox. What was selected there stays selected only when nothing had to go.
template <typename List>
void RemoveRepeats(List& list) {
    const QStringList before = list.Items();
    const QStringList after = WithoutRepeats(before);
    if (after.size() != before.size())
        list.SetItems(after);
}

} // namespace quillbrook
