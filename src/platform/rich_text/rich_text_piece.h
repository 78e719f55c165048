#pragma once

#include <QRectF>
#include <vector>

class QTextDocument;

namespace platform {

// A part of a laid-out document that goes onto one page, in document coordinates.
struct PrintPiece {
    double top = 0;
    double bottom = 0;
    int first = 0;       // position of its first line
    int next = 0;        // of the first line behind it, the length of the text when there is none
    double nextTop = 0;  // where the piece behind it begins
    double nextDone = 0; // lines behind nextTop that end above this are on this page: a row of a table is
                         // parted in each of its cells by itself
    std::vector<QRectF> hidden; // lines between top and bottom that are on the page before or on the next
};

// What of a document that is laid out as a whole fits into `height` from the line of position `first` on;
// `before` is the piece that ended there, null for none. No line is cut. Rows of a table, paragraphs to be
// kept together, and paragraphs to be kept with the next one stay whole where they fit on a page of their
// own. At least one line is taken.
PrintPiece MeasurePiece(const QTextDocument& document, int first, const PrintPiece* before, double height);

} // namespace platform
