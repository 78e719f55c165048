#pragma once

#include <optional>

class QTextDocument;

namespace platform {

// A part of a laid-out document that goes onto one page, in document coordinates.
struct PrintPiece {
    double top = 0;
    double bottom = 0;
    int first = 0;      // position of its first line
    int next = 0;       // of the first line behind it, the length of the text when there is none
    double nextTop = 0; // where the piece behind it begins
};

// What of a document that is laid out as a whole fits into `height` from the line of position `first` on.
// `top` is the nextTop of the piece that ended there, if one did: the cells of a row that was cut go on at
// the same height. No line is cut. Rows of a table, paragraphs to be kept together, and paragraphs to be kept
// with the next one stay whole where they fit on a page of their own. At least one line is taken.
PrintPiece MeasurePiece(const QTextDocument& document, int first, std::optional<double> top, double height);

} // namespace platform
