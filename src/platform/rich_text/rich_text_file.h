#pragma once

#include <QFileDevice>
#include <QString>
#include <memory>

class QTextDocument;

namespace platform {

// Larger sources are refused: they are no forms.
constexpr qint64 kMostSourceBytes = 64 * 1024 * 1024;
constexpr qint64 kMostTextBytes = 16 * 1024 * 1024; // of a text that is no rich text

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
// when the file cannot be read, is no text or is too large.
std::unique_ptr<QTextDocument> ReadDocumentFile(const QString& path);

// A document of plain text, one paragraph for each line.
std::unique_ptr<QTextDocument> PlainTextDocument(const QString& text);

// Replaces the file by `source`: wholly, or not at all.
SaveError WriteFileWhole(const QString& path, const QByteArray& source);

// The number for what failed when `path` was to be written; looks at the path where the error leaves it open.
SaveError SaveErrorFor(QFileDevice::FileError error, const QString& path);

} // namespace platform
