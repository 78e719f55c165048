#include "platform/rich_text/rtf_pictures.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>
#include <cmath>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_limits.h"

namespace platform {
namespace {

constexpr int kTwipsPerInch = 1440;
constexpr int kHundredthsOfMillimetrePerInch = 2540;
constexpr int kDefaultSide = 1440; // twips, of a picture nothing tells the size of

int HexDigit(char byte) {
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

bool IsDrawable(const QByteArray& format) {
    return format == "png" || format == "jpeg";
}

// Whether bytes begin as their format wants; the decoders complain aloud of what does not.
bool LooksRight(const RtfPicture& picture) {
    constexpr qsizetype kLeastSize = 57; // of a PNG file
    return picture.bytes.size() >= kLeastSize &&
           picture.bytes.startsWith(picture.format == "png" ? "\x89PNG\r\n\x1A\n" : "\xFF\xD8\xFF");
}

// What is drawn in place of a picture that cannot be; one image for all.
const QImage& Placeholder() {
    static const QImage image = [] {
        QImage grey(1, 1, QImage::Format_RGB32);
        grey.fill(QColor(Qt::lightGray).rgb());
        return grey;
    }();
    return image;
}

// Decodes a picture; null when it cannot be, or is larger than any sheet of paper needs.
QImage Decode(const RtfPicture& picture) {
    QByteArray bytes = picture.bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, picture.format);
    const QSize size = reader.size();
    const qint64 pixels = static_cast<qint64>(size.width()) * size.height();
    if (!size.isValid() || pixels > 8 * kMostPicturePixels)
        return {};
    if (pixels > kMostPicturePixels) {
        const double factor =
            std::sqrt(static_cast<double>(kMostPicturePixels) / static_cast<double>(pixels));
        reader.setScaledSize(
            QSize(static_cast<int>(size.width() * factor), static_cast<int>(size.height() * factor)));
    }
    return reader.read();
}

// Length in twips of one side of a picture.
int Side(const RtfPicture& picture, int wanted, int own, int scale, int drawn) {
    qint64 twips = wanted;
    if (twips <= 0 && own > 0)
        twips = IsDrawable(picture.format) || picture.format == "dib" || picture.format == "wbitmap"
                    ? own * qint64{15}
                    : own * qint64{kTwipsPerInch} / kHundredthsOfMillimetrePerInch;
    if (twips <= 0)
        twips = drawn > 0 ? drawn * qint64{15} : kDefaultSide;
    twips = twips * std::clamp(scale, 1, 10'000) / 100;
    return static_cast<int>(std::clamp<qint64>(twips, 1, kMostTwips));
}

} // namespace

void RtfPicture::AppendHex(QByteArrayView digits) {
    for (const char byte : digits) {
        const int digit = HexDigit(byte);
        if (digit < 0)
            continue;
        if (halfByte < 0) {
            halfByte = digit;
        } else {
            bytes.append(static_cast<char>(halfByte * 16 + digit));
            halfByte = -1;
        }
    }
}

QTextImageFormat RtfPictures::Add(const RtfPicture& picture, const QTextCharFormat& base) {
    const QString name = QStringLiteral("picture-%1").arg(++m_count);
    QImage image;
    if (IsDrawable(picture.format) && LooksRight(picture) && m_pixels < kMostDocumentPixels)
        image = Decode(picture);
    m_pixels += static_cast<qint64>(image.width()) * image.height();
    const int width = Side(picture, picture.wantedWidth, picture.width, picture.scaleX, image.width());
    const int height = Side(picture, picture.wantedHeight, picture.height, picture.scaleY, image.height());
    m_document.addResource(QTextDocument::ImageResource, QUrl(name), image.isNull() ? Placeholder() : image);
    m_document.addResource(PictureData, PictureDataName(name), picture.bytes);
    m_document.addResource(PictureFormat, PictureFormatName(name), picture.format);

    QTextCharFormat format = base;
    format.setObjectType(QTextFormat::ImageObject);
    QTextImageFormat drawn = format.toImageFormat();
    drawn.setName(name);
    drawn.setWidth(TwipsToPixels(width));
    drawn.setHeight(TwipsToPixels(height));
    drawn.setProperty(PictureWidth, width);
    drawn.setProperty(PictureHeight, height);
    return drawn;
}

} // namespace platform
