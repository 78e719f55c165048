#pragma once

#include <QString>

namespace quillbrook {

// The folder with the platform's separator at its end; one that has it already gets no second one.
QString WithFinalSeparator(const QString& folder);

// Where the library lies: in the folder Data beside the executable.
struct LibraryPaths {
    explicit LibraryPaths(const QString& executableFolder);

    QString AppFolder;
    QString DataFolder;
    QString LibraryPath;
};

} // namespace quillbrook
