#pragma once

#include "library/library_content.h"

namespace quillbrook {

// Makes the library file `path` from checked content, in place of one that is there. The file is made under
// another name beside it and takes its place when it is whole: on failure `path` is what it was, nothing else
// is left behind, false is returned and `reason` tells why.
bool BuildLibrary(const LibraryContent& content, const QString& path, QString& reason);

} // namespace quillbrook
