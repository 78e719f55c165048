#include "library/repeats.h"

#include "platform/controls/combo_box.h"
#include "platform/controls/list_box.h"

#include <QSet>
#include <vector>

namespace quillbrook {

// The places of the repeats, in ascending order.
static std::vector<qsizetype> RepeatsIn(const QStringList& entries) {
    QSet<QString> seen;
    seen.reserve(entries.size());
    std::vector<qsizetype> repeats;
    for (qsizetype i = 0; i < entries.size(); ++i) {
        const qsizetype known = seen.size();
        seen.insert(entries[i]);
        if (seen.size() == known)
            repeats.push_back(i);
    }
    return repeats;
}

// The entries but those at the places, which ascend.
static QStringList Without(const QStringList& entries, const std::vector<qsizetype>& repeats) {
    QStringList kept;
    kept.reserve(entries.size() - qsizetype(repeats.size()));
    auto next = repeats.begin();
    for (qsizetype i = 0; i < entries.size(); ++i) {
        if (next != repeats.end() && *next == i)
            ++next;
        else
            kept.append(entries[i]);
    }
    return kept;
}

QStringList WithoutRepeats(const QStringList& entries) {
    return Without(entries, RepeatsIn(entries));
}

void RemoveRepeats(platform::ListBox& list) {
    const QStringList before = list.Items();
    const std::vector<qsizetype> repeats = RepeatsIn(before);
    if (repeats.empty())
        return;
    if (list.ListIndex() < 0) {
        list.SetItems(Without(before, repeats));
        return;
    }
    // one by one, so that the selection keeps its entry; from the end, so that no other moves before its turn
    for (auto repeat = repeats.rbegin(); repeat != repeats.rend(); ++repeat)
        list.RemoveItem(int(*repeat));
}

void RemoveRepeats(platform::ComboBox& list) {
    const QStringList before = list.Items();
    const QStringList after = WithoutRepeats(before);
    if (after.size() != before.size())
        list.SetItems(after);
}

} // namespace quillbrook
