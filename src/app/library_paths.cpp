#include "app/library_paths.h"

#include <QDir>

namespace quillbrook {

QString WithFinalSeparator(const QString& folder) {
    return folder.endsWith(QDir::separator()) ? folder : folder + QDir::separator();
}

LibraryPaths::LibraryPaths(const QString& executableFolder)
    : AppFolder(WithFinalSeparator(executableFolder))
    , DataFolder(AppFolder + QStringLiteral("Data") + QDir::separator())
    , LibraryPath(DataFolder + QStringLiteral("Forms.dat")) {}

} // namespace quillbrook
