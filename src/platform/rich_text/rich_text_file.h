#pragma once

#include <QFileDevice>
#include <QString>
#include <memory>

class QTextDocument;

namespace platform {

// Larger sources are refused: they are no forms, and take more memory than a desk has to spare.
constexpr qint64 kMostSourceBytes = 100 * 1000 * 1000;
constexpr qint64 kMostTextBytes = 16 * 1024 * 1024; // of a text that is no rich text, in one piece

// Error numbers of saving.
enum class SaveError {
    None = 0,
    AlreadyOpen = 55,
    DeviceIo = 57,
    DiskFull = 61,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    DiskNotReady = 71,
    PathOrFile = 75,
};

// The document of a file: rich text where its content is that, otherwise plain text (see DecodeText). Null
// when the file cannot be read, is no text or is too large, or when one of its lines is too long to be shown.
std::unique_ptr<QTextDocument> ReadDocumentFile(const QString& path);

// A document of plain text, one paragraph for each line.
std::unique_ptr<QTextDocument> PlainTextDocument(const QString& text);

// Replaces the file by `source`: wholly, or not at all. A link stays a link, and the file keeps its
// permissions; one that goes by several names keeps them all.
SaveError WriteFileWhole(const QString& path, const QByteArray& source);

// The number for what failed when `path` was to be written; looks at the path where the error leaves it open.
SaveError SaveErrorFor(QFileDevice::FileError error, const QString& path);

} // namespace platform
