#pragma once

#include <QString>

namespace quillbrook {

// The path with `extension` (of three letters, with its dot) in place of its last four characters when the
// first of these is a dot of the file's name; any other path as it is.
inline QString WithExtension(const QString& path, const QString& extension) {
    const QString end = path.right(4);
    const bool isReplaced = end.size() == 4 && end.startsWith(u'.') && !end.contains(u'/');
    return isReplaced ? path.chopped(4) + extension : path;
}

// Whether a file is opened through the word processor, by its lower-cased path.
inline bool IsWordDocument(const QString& lowerCasedPath) {
    return lowerCasedPath.endsWith(QStringLiteral(".doc"));
}

} // namespace quillbrook
