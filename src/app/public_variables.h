#pragma once

#include "platform/database/database.h"

#include <QString>
#include <memory>

namespace quillbrook {

// The state that every window may read and write; one for the process.
struct PublicVariables {
    std::unique_ptr<platform::Database> FormsDb; // open from the load of the main window to exit
    QString PageTitle;                           // the caption of the current page
};

} // namespace quillbrook
