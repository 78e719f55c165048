#pragma once

#include <QString>

class QTextDocument;

namespace platform {

// The first difference between two documents as a rich text file can tell it, empty when there is none: text,
// formats of characters and paragraphs, tables, pictures, fields, kept groups. What a file numbers anew
// (fonts, fields, pictures, objects) is compared by what the numbers mean; kept tables of fonts and colours
// may have more entries in `second`.
QString FirstDifference(const QTextDocument& first, const QTextDocument& second);

} // namespace platform
