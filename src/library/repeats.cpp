#include "library/repeats.h"

#include "platform/controls/combo_box.h"
#include "platform/controls/list_box.h"

#include <QSet>

namespace quillbrook {

QStringList WithoutRepeats(const QStringList& entries) {
    QSet<QString> seen;
    seen.reserve(entries.size());
    QStringList kept;
    kept.reserve(entries.size());
    for (const QString& entry : entries) {
        if (seen.contains(entry))
            continue;
        seen.insert(entry);
        kept.append(entry);
    }
    return kept;
}

void RemoveRepeats(platform::ListBox& list) {
    const QStringList before = list.Items();
    const QStringList after = WithoutRepeats(before);
    if (after.size() == before.size())
        return;
    if (list.ListIndex() < 0) {
        list.SetItems(after);
        return;
    }
    // one by one, from the end, so that the selection keeps its entry
    for (qsizetype i = before.size() - 1; i >= 0; --i) {
        if (before.indexOf(before[i]) != i)
            list.RemoveItem(int(i));
    }
}

void RemoveRepeats(platform::ComboBox& list) {
    const QStringList before = list.Items();
    const QStringList after = WithoutRepeats(before);
    if (after.size() != before.size())
        list.SetItems(after);
}

} // namespace quillbrook
