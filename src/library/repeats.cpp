#include "library/repeats.h"

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

} // namespace quillbrook
