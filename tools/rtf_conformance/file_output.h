#pragma once

#include <QString>

namespace quillbrook {

// Reads a file as the program does and writes it as rich text. False when it cannot be read or written.
bool WriteAgain(const QString& path, const QString& target);

// Reads a file and prints it as PDF, on the paper and with the margins it tells of or on Letter with an inch
// around. False when it cannot be read, or the PDF not be written.
bool PrintAsPdf(const QString& path, const QString& target);

} // namespace quillbrook
