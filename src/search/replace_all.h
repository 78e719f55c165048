#pragma once

#include <QString>

namespace quillbrook {

// `text` with every occurrence of `find`, case and all, replaced by `replace`. Occurrences are taken from
// left to right and do not overlap; what was put in is not looked at again. An empty `find` occurs nowhere.
QString ReplaceAll(const QString& text, const QString& find, const QString& replace);

// Makes one blank of each run of blanks, by one ReplaceAll for each length from `longestRun` down to 2. Runs
// much longer than that leave more than one.
QString CollapseBlanks(const QString& text, int longestRun);

} // namespace quillbrook
