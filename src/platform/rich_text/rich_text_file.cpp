#include "platform/rich_text/rich_text_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>
#include <QTemporaryFile>
#include <QTextCursor>
#include <QTextDocument>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/rich_text/rich_text_plain.h"
#include "platform/rich_text/rtf_reader.h"

namespace platform {
namespace {

// Word processors lay this beside a file that they have open.
bool IsOpenElsewhere(const QFileInfo& file) {
    return QFileInfo::exists(file.dir().filePath(QStringLiteral(".~lock.%1#").arg(file.fileName())));
}

qsizetype LongestLine(const QByteArray& bytes) {
    qsizetype longest = 0;
    for (qsizetype start = 0; start < bytes.size();) {
        const qsizetype end = bytes.indexOf('\n', start);
        longest = std::max(longest, (end < 0 ? bytes.size() : end) - start);
        start = end < 0 ? bytes.size() : end + 1;
    }
    return longest;
}

// Whether other folder entries lead to the same file, which a new file in its place would leave behind.
bool HasOtherNames(const QFileInfo& file) {
    struct stat facts = {};
    return file.isFile() && ::stat(QFile::encodeName(file.filePath()).constData(), &facts) == 0 &&
           facts.st_nlink > 1;
}

// What is written and on disk, or an error.
QFileDevice::FileError WriteThrough(QFileDevice& file, const QByteArray& bytes) {
    if (file.write(bytes) != bytes.size() || !file.flush() || ::fsync(file.handle()) != 0)
        return file.error() == QFileDevice::NoError ? QFileDevice::WriteError : file.error();
    return QFileDevice::NoError;
}

// Writes into the file itself, once a copy beside it holds the new content safely; that copy goes only when
// the file is whole.
SaveError WriteInPlace(const QString& path, const QByteArray& source) {
    QTemporaryFile copy(path + QStringLiteral(".XXXXXX"));
    if (!copy.open())
        return SaveErrorFor(copy.error(), path);
    if (const auto error = WriteThrough(copy, source))
        return SaveErrorFor(error, path);
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return SaveErrorFor(file.error(), path);
    const QByteArray old = file.readAll();
    file.seek(0);
    const auto error = WriteThrough(file, source);
    if (error == QFileDevice::NoError && file.resize(source.size()))
        return SaveError::None;
    // told by what the disk is like now, not once the old content has made room again
    const SaveError told =
        SaveErrorFor(error == QFileDevice::NoError ? QFileDevice::WriteError : error, path);
    file.seek(0);
    copy.setAutoRemove(WriteThrough(file, old) == QFileDevice::NoError && file.resize(old.size()));
    return told;
}

} // namespace

std::unique_ptr<QTextDocument> PlainTextDocument(const QString& text) {
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    QTextCursor cursor(document.get());
    cursor.beginEditBlock();
    cursor.insertText(NormalizedText(text));
    cursor.endEditBlock();
    return document;
}

std::unique_ptr<QTextDocument> ReadDocumentFile(const QString& path) {
    if (!QFileInfo(path).isFile())
        return nullptr;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMostSourceBytes)
        return nullptr;
    const QByteArray bytes = file.read(kMostSourceBytes + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > kMostSourceBytes)
        return nullptr;
    if (IsRtf(bytes))
        return ReadRtf(bytes);
    if (LongestLine(bytes) > kMostTextBytes)
        return nullptr;
    const std::optional<QString> text = DecodeText(bytes);
    return text ? PlainTextDocument(*text) : nullptr;
}

SaveError SaveErrorFor(QFileDevice::FileError error, const QString& path) {
    if (error == QFileDevice::NoError)
        return SaveError::None;
    if (error == QFileDevice::ResourceError)
        return SaveError::DiskFull;
    const QFileInfo file(path);
    const QFileInfo folder(file.absolutePath());
    if (file.isDir())
        return SaveError::PermissionDenied;
    if (!folder.isDir() || path.isEmpty())
        return SaveError::PathOrFile;
    const QStorageInfo storage(folder.absoluteFilePath());
    if (!storage.isReady())
        return SaveError::DiskNotReady;
    if (storage.isReadOnly())
        return SaveError::PathOrFile;
    if (!folder.isWritable() || (file.exists() && !file.isWritable()))
        return SaveError::PermissionDenied;
    if (storage.bytesTotal() > 0 && storage.bytesAvailable() == 0)
        return SaveError::DiskFull;
    return error == QFileDevice::WriteError ? SaveError::DeviceIo : SaveError::PathOrFile;
}

SaveError WriteFileWhole(const QString& path, const QByteArray& source) {
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir())
        return SaveError::PathOrFile; // a device or a pipe is not to be replaced by a file
    if (info.exists() && IsOpenElsewhere(info))
        return SaveError::AlreadyOpen;
    if (HasOtherNames(info))
        return WriteInPlace(path, source);
    QSaveFile file(path);
    // flushed first: commit() does not see when what is left in the buffer finds no room
    if (!file.open(QIODevice::WriteOnly) || file.write(source) != source.size() || !file.flush() ||
        !file.commit())
        return SaveErrorFor(file.error() == QFileDevice::NoError ? QFileDevice::WriteError : file.error(),
                            path);
    return SaveError::None;
}

} // namespace platform
