#pragma once

#include <QRect>
#include <QSizeF>
#include <map>
#include <memory>

#include "platform/rich_text/rich_text_piece.h"

class QPainter;
class QPaintDevice;
class QTextDocument;

namespace platform {

// Formats a document for a device, a piece at a time. Holds a copy of the document, laid out at the device's
// resolution and a piece's width, for as long as these stay the same.
class RichTextFormatter {
public:
    // Copies the document.
    explicit RichTextFormatter(const QTextDocument& document);
    ~RichTextFormatter();

    // Lays out the text from position `first` on in `rectangle`, in twips from the painter's origin, and
    // draws it there when `render` is set. Gives the position of the first character that did not fit, the
    // length of the plain text when all did. No line is cut, nor a table row or a paragraph kept together
    // that fits on a page of its own; but at least one line is taken, so that a loop over pages ends. A
    // position that is no start of a line counts as that of its line. An empty rectangle or a painter that is
    // not active takes nothing: the length of the text.
    int FormatRange(QPainter& painter, const QRect& rectangle, int first, bool render);

private:
    void LayOut(QPaintDevice& device, double width, double height);
    void ScaleToDevice(double factor);
    void ShrinkPictures(double width, double height);
    int Length() const;

    std::unique_ptr<QTextDocument> m_source;
    std::unique_ptr<QTextDocument> m_document; // laid out
    QSizeF m_size;                             // of the pieces, device pixels
    int m_dpiX = 0;
    int m_dpiY = 0;
    std::map<int, PrintPiece> m_pieces; // measured so far, by where the text goes on behind them
};

} // namespace platform
