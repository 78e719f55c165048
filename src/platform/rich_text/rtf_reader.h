#pragma once

#include <QByteArrayView>
#include <memory>

class QTextDocument;

namespace platform {

// Reads a document in Rich Text Format (RTF 1.9.1) into a new document, undo switched off, laid out by
// nobody. `source` is the whole file, or any beginning of one: what stands before a cut or a fault is read.
// Hostile input is bounded (nesting, table cells, picture bytes, table entries, numbers); time is linear in
// its size. Returns null when `source` is no rich text at all, that is, does not begin with "{\rtf" after
// white space.
std::unique_ptr<QTextDocument> ReadRtf(QByteArrayView source);

} // namespace platform
