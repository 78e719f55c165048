#include "search/replace_all.h"

#include <QStringList>

namespace quillbrook {

QString ReplaceAll(const QString& text, const QString& find, const QString& replace) {
    if (find.isEmpty() || !text.contains(find))
        return text;
    return text.split(find).join(replace);
}

QString CollapseBlanks(const QString& text, int longestRun) {
    QString collapsed = text;
    for (int run = longestRun; run >= 2; --run)
        collapsed = ReplaceAll(collapsed, QString(run, u' '), QStringLiteral(" "));
    return collapsed;
}

} // namespace quillbrook
