#pragma once

#include "library/source_problem.h"

#include <optional>

namespace quillbrook {

constexpr qint64 kLargestFormFile = 256 * 1024; // bytes
constexpr qint64 kLargestClauseFile = 32 * 1024;

// Reads a source file: UTF-8 without a byte order mark, lines that end in a line feed, no control characters
// but tabs, none of the characters that stand for something else in a document. Empty when the file cannot be
// read, is larger than `largest` bytes or breaks that; the reasons are then in `problems`.
std::optional<QString> ReadSourceText(const QString& path, qint64 largest, SourceProblems& problems);

// The same for bytes at hand.
std::optional<QString> DecodeSourceText(const QByteArray& bytes, SourceProblems& problems);

} // namespace quillbrook
