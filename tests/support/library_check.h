// Looks at a library file with nothing of the store in between.
#pragma once

#include "tests/support/store_workload.h"

#include <QStringList>

struct CheckedLibrary {
    QStringList problems; // in words; empty for a sound file
    StoredForms forms;
};

// Checks every page's authentication code, the free ones included, the engine's own integrity and the links
// between the tables, and reads the forms. A journal left beside the file is played back before, as at any
// opening. No other connection may hold the file.
CheckedLibrary CheckLibrary(const QString& path);
