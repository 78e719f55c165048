#pragma once

#include <QByteArray>
#include <QTextImageFormat>

class QTextDocument;

namespace platform {

// A picture as its group tells it.
struct RtfPicture {
    QByteArray format; // as PictureFormat knows it; empty when not told
    QByteArray bytes;
    int width = 0; // as the picture's format counts: pixels, or hundredths of a millimetre of a metafile
    int height = 0;
    int wantedWidth = 0; // twips
    int wantedHeight = 0;
    int scaleX = 100; // percent
    int scaleY = 100;
    int halfByte = -1; // a hexadecimal digit that waits for its second

    // Adds bytes written as hexadecimal digits; anything else is left out.
    void AppendHex(QByteArrayView digits);
};

// Gives a document its pictures.
class RtfPictures {
public:
    explicit RtfPictures(QTextDocument& document)
        : m_document(document) {}

    // Adds a picture's bytes, and what is drawn of it, to the document; the format is that of the character
    // that shows it, laid over `base`. What cannot be decoded is drawn as a grey field.
    QTextImageFormat Add(const RtfPicture& picture, const QTextCharFormat& base);

private:
    QTextDocument& m_document;
    int m_count = 0;
    qint64 m_pixels = 0; // of all that is drawn
};

} // namespace platform
