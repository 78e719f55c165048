#pragma once

#include <QString>

namespace quillbrook {

// What became of a file that was read, written as rich text, read again and written again.
struct FileCheck {
    bool isRead = false;      // otherwise the file is refused, and nothing else is told
    bool textStays = false;   // the second reading has the text of the first
    bool formatsStay = false; // its runs, paragraphs, tables, pictures, fields and kept groups too
    bool sourceStays = false; // the second writing is the first, byte for byte
    QString difference;       // the first one, where something does not stay
    double readMilliseconds = 0.0;
    double allMilliseconds = 0.0; // both readings, both writings
    QString shown;                // see ShownText()
};

// Reads the file as the program does: what is no rich text is plain text.
FileCheck CheckFile(const QString& path);

} // namespace quillbrook
