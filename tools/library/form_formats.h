#pragma once

#include "library/html_blocks.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>

namespace quillbrook {

constexpr int kPaperWidth = 12'240; // twips: Long, 8.5 by 13 inches
constexpr int kPaperHeight = 18'720;
constexpr int kMarginLeft = 2'160;
constexpr int kMarginRight = 1'440;
constexpr int kMarginTop = 1'440;
constexpr int kMarginBottom = 1'440;
constexpr int kTextWidth = kPaperWidth - kMarginLeft - kMarginRight;
constexpr int kHalfInch = 720;
constexpr int kLine = 240;           // space that stands for an empty line of 12 points
constexpr int kRoomToSign = 480;     // above a line that takes a signature
constexpr int kCharacterWidth = 120; // of an underscore of 12 points
constexpr double kFontSize = 12.0;   // points
constexpr double kTitleSize = 14.0;  // of a form's heading
constexpr double kGapSize = 8.0;     // of the empty paragraphs that part a table from the text

// What stands right before and behind a paragraph.
struct Neighbours {
    bool continuesSignature = false; // both this and the next paragraph are signature lines of one kind
    bool beforeSignature = false;
};

QTextCharFormat TextFormat();
QTextCharFormat RunFormat(const Run& run, const QTextCharFormat& base);
QTextCharFormat ParagraphTextFormat(ParagraphClass kind);

QTextBlockFormat ParagraphFormat(const Paragraph& paragraph, const Neighbours& neighbours);

// `level` from 0.
QTextBlockFormat ListItemFormat(int level, const QString& marker, int listNumber);

// Whether a paragraph is the place of a clause and nothing else.
bool IsMarker(const Runs& runs);

bool IsSignature(ParagraphClass kind);

// The runs of a signature block with the blanks of a line that is too long for it shortened.
Runs FitSignatureLines(const Runs& runs);

// The same runs with blanks of ordinary length short enough that a justified line need not be stretched far
// where the next blank does not fit into it. Blanks of more than 40 underscores are lines to write on and
// stay.
Runs ShortenBlanks(const Runs& runs);

// The runs of an item whose bold heading stands in an alternative, its bracket bold too: an item's number is
// set like its first letter.
Runs WithBoldBracket(const Runs& runs);

// Whether the first line is there to be signed on: it ends in a run of underscores.
bool BeginsWithSignatureLine(const Runs& runs);

} // namespace quillbrook
