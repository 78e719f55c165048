#include "platform/rich_text/rich_text_paragraph_format.h"

#include <cmath>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_limits.h"

namespace platform {
namespace {

int RoundToTwips(double pixels) {
    return static_cast<int>(std::lround(PixelsToTwips(pixels)));
}

void SetOrClear(QTextBlockFormat& format, int property, double pixels) {
    if (pixels != 0)
        format.setProperty(property, pixels);
    else
        format.clearProperty(property);
}

} // namespace

int AlignmentOf(const QTextBlockFormat& format) {
    const Qt::Alignment alignment = format.alignment();
    if (alignment.testFlag(Qt::AlignJustify))
        return Justified;
    if (alignment.testFlag(Qt::AlignHCenter))
        return AlignedCenter;
    if (alignment.testFlag(Qt::AlignRight))
        return AlignedRight;
    return AlignedLeft;
}

int IndentOf(const QTextBlockFormat& fileFormat) {
    return RoundToTwips(fileFormat.leftMargin() + fileFormat.textIndent());
}

int HangingIndentOf(const QTextBlockFormat& fileFormat) {
    return -RoundToTwips(fileFormat.textIndent());
}

std::optional<QTextBlockFormat> WithIndents(const QTextBlockFormat& fileFormat, int indent, int hanging) {
    const qint64 left = qint64(indent) + hanging;
    if (indent < 0 || left < 0 || indent > kMostTwips || left > kMostTwips)
        return std::nullopt;
    QTextBlockFormat format = fileFormat;
    const double oldStart = format.leftMargin() + format.textIndent();
    SetOrClear(format, QTextFormat::BlockLeftMargin, TwipsToPixels(double(left)));
    SetOrClear(format, QTextFormat::TextIndent, TwipsToPixels(-hanging));

    // tab stops stay where they are on the page; the stop at the left indent goes with it
    QList<QTextOption::Tab> tabs;
    const double newStart = TwipsToPixels(indent);
    bool impliedLeft = fileFormat.textIndent() < 0;
    for (QTextOption::Tab tab : fileFormat.tabPositions()) {
        if (impliedLeft && tab.type == QTextOption::LeftTab &&
            std::abs(tab.position + fileFormat.textIndent()) < 0.01) {
            impliedLeft = false;
            continue;
        }
        tab.position += oldStart - newStart;
        if (tab.position > 0)
            tabs.append(tab);
    }
    if (hanging > 0) {
        const QTextOption::Tab stop(TwipsToPixels(hanging), QTextOption::LeftTab);
        auto place = tabs.begin();
        while (place != tabs.end() && place->position < stop.position)
            ++place;
        tabs.insert(place, stop);
    }
    if (tabs.isEmpty())
        format.clearProperty(QTextFormat::TabPositions);
    else
        format.setTabPositions(tabs);
    return format;
}

QTextBlockFormat WithBullet(const QTextBlockFormat& fileFormat, bool bullet) {
    QTextBlockFormat format = fileFormat;
    for (const int property : {int(BulletText), int(ListKind), int(ListOverride), int(ListLevel),
                               int(ListStart), int(ListTextBefore), int(ListTextAfter)})
        format.clearProperty(property);
    if (bullet) {
        format.setProperty(BulletText, QStringLiteral("\u2022"));
        format.setProperty(ListKind, int(ListKinds::Bullet));
    }
    return format;
}

} // namespace platform
