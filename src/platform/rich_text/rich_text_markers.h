// How the bullets and numbers of paragraphs (the BulletText of document_model.h) stand in a document that is
// laid out. The marker is no text, so the first line must begin where the text behind the marker begins: a
// paragraph that is shown has its first line moved there, and keeps the file's own indent and tab stops in
// the properties below. Everything that writes a document takes FileBlockFormat() of what it finds.
#pragma once

#include <QRectF>
#include <QTextBlock>
#include <QTextFormat>

class QPainter;
class QTextDocument;

namespace platform {

enum MarkerProperty {
    MarkerIndent = QTextFormat::UserProperty + 151, // double, pixels: the file's first-line indent, which is
                                                    // where the marker stands
    MarkerTabs,                                     // QVariantList: the file's tab stops
};

// The format of a paragraph as files have it; any format may be given.
QTextBlockFormat FileBlockFormat(const QTextBlockFormat& format);

// The format in which a paragraph with a marker is laid out, from one as files have it; `text` is the format
// of its first characters. A format without a marker is given back as it is.
QTextBlockFormat ShownBlockFormat(const QTextBlockFormat& fileFormat, const QTextCharFormat& text,
                                  const QTextDocument& document);

// The format of the characters that a paragraph begins with, of its end when it has none.
QTextCharFormat FirstCharFormat(const QTextBlock& block);

// Brings the paragraphs of the positions `from` to `to` into the form in which they are laid out.
void ShowMarkers(QTextDocument& document, int from, int to);

// Draws the markers of the laid-out paragraphs from `block` on that touch `clip` (document coordinates,
// pixels of the layout's paint device) and begin before `lastPosition`.
void DrawMarkers(QPainter& painter, QTextBlock block, const QRectF& clip, int lastPosition);

// The same for all paragraphs that touch `clip`; lays out nothing below it.
void DrawMarkersInside(QPainter& painter, const QTextDocument& document, const QRectF& clip);

} // namespace platform
