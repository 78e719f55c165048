#include "platform/rich_text/rtf_picture_words.h"

#include <QBuffer>
#include <QImage>
#include <QPixmap>
#include <QUrl>
#include <algorithm>
#include <cmath>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_output.h"

namespace platform {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kHundredthsOfMillimetrePerInch = 2540;

struct FormatWord {
    QByteArrayView format;
    const char* word;
    bool isMetafile; // measured in hundredths of a millimetre, not pixels
};

constexpr FormatWord kFormatWords[] = {
    {"png", "\\pngblip", false},      {"jpeg", "\\jpegblip", false}, {"wmf", "\\wmetafile8", true},
    {"emf", "\\emfblip", true},       {"dib", "\\dibitmap0", false}, {"pict", "\\macpict", false},
    {"wbitmap", "\\wbitmap0", false},
};

QImage ImageOf(const QVariant& resource) {
    switch (resource.typeId()) {
    case QMetaType::QImage:
        return resource.value<QImage>();
    case QMetaType::QPixmap:
        return resource.value<QPixmap>().toImage();
    case QMetaType::QByteArray:
        return QImage::fromData(resource.toByteArray());
    default:
        return {};
    }
}

// One side in twips: as the file told it unless the picture was given another size since.
int Side(const QTextImageFormat& format, int property, double drawn, int pixels) {
    const int told = format.intProperty(property);
    if (told > 0 && (drawn <= 0 || std::abs(TwipsToPixels(told) - drawn) < 0.5))
        return told;
    const double length = drawn > 0 ? drawn : pixels;
    return std::clamp(static_cast<int>(std::lround(PixelsToTwips(length))), 1, kMostTwips);
}

} // namespace

void WriteRtfPicture(const QTextDocument& document, const QTextImageFormat& format, RtfOutput& out) {
    const QString name = format.name();
    const QImage image = ImageOf(document.resource(QTextDocument::ImageResource, QUrl(name)));
    QByteArray bytes = document.resource(PictureData, PictureDataName(name)).toByteArray();
    QByteArray kind = document.resource(PictureFormat, PictureFormatName(name)).toByteArray();
    if (bytes.isEmpty()) {
        QBuffer buffer(&bytes);
        if (image.isNull() || !buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, "PNG"))
            return;
        kind = "png";
    }
    const int width = Side(format, PictureWidth, format.width(), image.width());
    const int height = Side(format, PictureHeight, format.height(), image.height());
    out.Raw("{");
    out.Words("\\pict");
    const auto* const known = std::find_if(std::begin(kFormatWords), std::end(kFormatWords),
                                           [&kind](const FormatWord& row) { return row.format == kind; });
    bool isMetafile = false;
    if (known != std::end(kFormatWords)) {
        out.Words(known->word);
        isMetafile = known->isMetafile;
    }
    const auto inMetafile = [](int twips) {
        return static_cast<int>(std::lround(twips * kHundredthsOfMillimetrePerInch / kTwipsPerInch));
    };
    if (isMetafile || !image.isNull()) {
        out.Word("\\picw", isMetafile ? inMetafile(width) : image.width());
        out.Word("\\pich", isMetafile ? inMetafile(height) : image.height());
    }
    out.Word("\\picwgoal", width);
    out.Word("\\pichgoal", height);
    out.Hex(bytes);
    out.Raw("}");
}

} // namespace platform
