// What the format of a paragraph says, and the formats that the members of a rich text box make of it. All
// formats are as files have them (FileBlockFormat()).
#pragma once

#include <QTextFormat>
#include <optional>

namespace platform {

// Alignment as a number. Justified text has a number of its own, so that it is neither taken for another
// alignment nor lost.
enum TextAlignment { AlignedLeft = 0, AlignedRight = 1, AlignedCenter = 2, Justified = 3 };

int AlignmentOf(const QTextBlockFormat& format);

// Indents in twips, as the box tells them: the first line's place, and how far the others stand right of it.
int IndentOf(const QTextBlockFormat& fileFormat);
int HangingIndentOf(const QTextBlockFormat& fileFormat);
// Empty when a line would stand left of the margin.
std::optional<QTextBlockFormat> WithIndents(const QTextBlockFormat& fileFormat, int indent, int hanging);

// Makes a paragraph one of a list of bullets, or takes it out of any list.
QTextBlockFormat WithBullet(const QTextBlockFormat& fileFormat, bool bullet);

} // namespace platform
