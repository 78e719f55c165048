#pragma once

#include "platform/rich_text/document_model.h"
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextImageFormat>
#include <QTextTable>
#include <cmath>

namespace platform {
namespace compare {

inline QString Show(const QVariant& value) {
    if (value.typeId() == QMetaType::QVariantList) {
        QString text;
        for (const QVariant& item : value.toList())
            text += Show(item) + u' ';
        return text;
    }
    return value.toString().left(300);
}

inline QString Differ(const QString& what, const QVariant& first, const QVariant& second) {
    if (first == second)
        return {};
    return what + QStringLiteral(": '") + Show(first) + QStringLiteral("' became '") + Show(second) + u'\'';
}

// The facts of a format that a file tells, as one text.
inline QString CharFacts(const QTextDocument& document, const QTextCharFormat& format, bool atCellStart) {
    const QStringList families = format.fontFamilies().toStringList();
    const bool hidden = format.boolProperty(HiddenText);
    const double points = format.hasProperty(QTextFormat::FontPointSize)
                              ? format.fontPointSize()
                              : document.defaultFont().pointSizeF();
    QStringList facts{
        families.isEmpty() ? document.defaultFont().family() : families.first(),
        QString::number(hidden ? format.intProperty(HiddenSize) / 2.0 : std::round(points * 2) / 2),
        QStringLiteral("bold %1 italic %2 strike %3 caps %4")
            .arg(format.fontWeight() >= 600)
            .arg(format.fontItalic())
            .arg(format.fontStrikeOut())
            .arg(format.fontCapitalization()),
        QStringLiteral("underline %1 script %2")
            .arg(format.underlineStyle())
            .arg(atCellStart ? 0 : format.verticalAlignment()),
        QStringLiteral("color ") + (format.foreground().style() == Qt::NoBrush || hidden
                                        ? QString()
                                        : format.foreground().color().name()),
        QStringLiteral("behind ") + (format.background().style() == Qt::NoBrush || atCellStart
                                         ? QString()
                                         : format.background().color().name()),
        QStringLiteral("link ") + (format.isAnchor() ? format.anchorHref() : QString()),
    };
    for (const int property : {int(HiddenText), int(Language), int(DoubleStrike), int(UnderlineKind),
                               int(CharacterSpacing), int(BaselineOffset), int(Kerning), int(CharacterStyle)})
        facts.append(QStringLiteral("%1=%2")
                         .arg(property - QTextFormat::UserProperty)
                         .arg(format.property(property).toString()));
    QByteArray object = format.property(EmbeddedObject).toByteArray();
    if (!object.contains("\\bin"))
        facts.append(QString::fromLatin1(object));
    const int field = format.intProperty(FieldId);
    QString instruction = document.rootFrame()
                              ->frameFormat()
                              .property(FieldInstructions)
                              .toMap()
                              .value(QString::number(field))
                              .toString();
    if (instruction.startsWith(u"HYPERLINK", Qt::CaseInsensitive))
        instruction.clear();
    facts.append(QStringLiteral("field ") + instruction);
    return facts.join(QStringLiteral("; "));
}

inline QString PictureDifference(const QTextDocument& first, const QTextImageFormat& one,
                                 const QTextDocument& second, const QTextImageFormat& other) {
    const auto data = [](const QTextDocument& document, const QTextImageFormat& format) {
        return document.resource(PictureData, PictureDataName(format.name())).toByteArray();
    };
    const auto kind = [](const QTextDocument& document, const QTextImageFormat& format) {
        return document.resource(PictureFormat, PictureFormatName(format.name())).toByteArray();
    };
    if (std::abs(one.width() - other.width()) > 0.1 || std::abs(one.height() - other.height()) > 0.1)
        return QStringLiteral("size of a picture: %1 x %2 became %3 x %4")
            .arg(one.width())
            .arg(one.height())
            .arg(other.width())
            .arg(other.height());
    if (!data(first, one).isEmpty() &&
        (data(first, one) != data(second, other) || kind(first, one) != kind(second, other)))
        return QStringLiteral("bytes of a picture");
    return {};
}

inline QString BlockFacts(const QTextBlockFormat& format) {
    const auto length = [](double pixels) { return QString::number(std::round(pixels * 15)); };
    QStringList facts{
        QStringLiteral("alignment %1").arg(static_cast<int>(format.alignment())),
        QStringLiteral("left ") + length(format.leftMargin()),
        QStringLiteral("right ") + length(format.rightMargin()),
        QStringLiteral("first ") + length(format.textIndent()),
        QStringLiteral("above ") + length(format.topMargin()),
        QStringLiteral("below ") + length(format.bottomMargin()),
        QStringLiteral("line %1 %2").arg(format.lineHeightType()).arg(format.lineHeight(), 0, 'f', 2),
        QStringLiteral("keep %1 break %2 direction %3")
            .arg(format.boolProperty(KeepTogether))
            .arg(static_cast<int>(format.pageBreakPolicy()))
            .arg(format.layoutDirection() == Qt::RightToLeft),
        QStringLiteral("behind ") +
            (format.background().style() == Qt::NoBrush ? QString() : format.background().color().name()),
    };
    QStringList tabs;
    for (const QTextOption::Tab& tab : format.tabPositions())
        tabs.append(length(tab.position) + u'/' + QString::number(tab.type));
    facts.append(QStringLiteral("tabs ") + tabs.join(u' '));
    for (int property = BulletText; property <= Filler; ++property) {
        QString value = format.property(property).toString();
        if (property == SectionBreak && !value.isEmpty() && !value.startsWith(u"\\sectd"))
            value.prepend(u"\\sectd");
        facts.append(QStringLiteral("%1=%2").arg(property - QTextFormat::UserProperty).arg(value));
    }
    return facts.join(QStringLiteral("; "));
}

inline bool StartsCell(const QTextBlock& block) {
    const auto* const table = qobject_cast<QTextTable*>(block.document()->frameAt(block.position()));
    return table && table->cellAt(block.position()).firstPosition() == block.position();
}

// Format of every character and, last, of the paragraph's end.
inline QList<QTextCharFormat> CharFormats(const QTextBlock& block) {
    QList<QTextCharFormat> formats;
    for (auto run = block.begin(); !run.atEnd(); ++run) {
        for (int i = 0; i < run.fragment().length(); ++i)
            formats.append(run.fragment().charFormat());
    }
    formats.append(block.charFormat());
    return formats;
}

inline QString BlockDifference(const QTextBlock& first, const QTextBlock& second) {
    const QString where =
        QStringLiteral("paragraph %1 (%2)").arg(first.blockNumber()).arg(first.text().left(40));
    if (QString difference = Differ(where + QStringLiteral(", text"), first.text(), second.text());
        !difference.isEmpty())
        return difference;
    if (QString difference = Differ(where, BlockFacts(first.blockFormat()), BlockFacts(second.blockFormat()));
        !difference.isEmpty())
        return difference;
    const QList<QTextCharFormat> ones = CharFormats(first);
    const QList<QTextCharFormat> others = CharFormats(second);
    if (ones.size() != others.size())
        return where + QStringLiteral(": number of characters");
    const bool isFiller = first.blockFormat().boolProperty(Filler) && first.length() == 1;
    for (qsizetype i = 0; i < ones.size() && !isFiller; ++i) {
        if (i > 0 && i + 1 < ones.size() && ones[i] == ones[i - 1] && others[i] == others[i - 1])
            continue;
        const bool atCellStart = i + 1 == ones.size() && StartsCell(first);
        const QString place = where + QStringLiteral(", character %1").arg(i);
        if (QString difference = Differ(place, CharFacts(*first.document(), ones[i], atCellStart),
                                        CharFacts(*second.document(), others[i], atCellStart));
            !difference.isEmpty())
            return difference;
        if (ones[i].isImageFormat() != others[i].isImageFormat())
            return place + QStringLiteral(": a picture here or there only");
        if (!ones[i].isImageFormat() || ones[i].hasProperty(EmbeddedObject))
            continue;
        if (QString difference = PictureDifference(*first.document(), ones[i].toImageFormat(),
                                                   *second.document(), others[i].toImageFormat());
            !difference.isEmpty())
            return place + QStringLiteral(": ") + difference;
    }
    return {};
}

inline QString CellFacts(const QTextTableCell& cell) {
    const QTextTableCellFormat format = cell.format().toTableCellFormat();
    return QStringLiteral("%1,%2 spans %3 x %4; filler %5; row '%6'; cell '%7'; vertical %8; behind %9; "
                          "borders %10 %11 %12 %13")
        .arg(cell.row())
        .arg(cell.column())
        .arg(cell.rowSpan())
        .arg(cell.columnSpan())
        .arg(format.boolProperty(CellFiller))
        .arg(QString::fromLatin1(format.property(RowControls).toByteArray()),
             QString::fromLatin1(format.property(CellBorders).toByteArray()))
        .arg(format.verticalAlignment())
        .arg(format.background().style() == Qt::NoBrush ? QString() : format.background().color().name())
        .arg(format.topBorder())
        .arg(format.leftBorder())
        .arg(format.bottomBorder())
        .arg(format.rightBorder());
}

inline QString FrameDifference(const QTextFrame& first, const QTextFrame& second) {
    const QList<QTextFrame*> ones = first.childFrames();
    const QList<QTextFrame*> others = second.childFrames();
    if (ones.size() != others.size())
        return QStringLiteral("number of tables: %1 became %2").arg(ones.size()).arg(others.size());
    for (qsizetype i = 0; i < ones.size(); ++i) {
        const auto* const one = qobject_cast<const QTextTable*>(ones[i]);
        const auto* const other = qobject_cast<const QTextTable*>(others[i]);
        if (!one || !other)
            continue;
        const QString where = QStringLiteral("table %1").arg(i);
        if (one->rows() != other->rows() || one->columns() != other->columns())
            return where + QStringLiteral(": %1 x %2 became %3 x %4")
                               .arg(one->rows())
                               .arg(one->columns())
                               .arg(other->rows())
                               .arg(other->columns());
        for (const int property : {int(CellRightEdges), int(TableLeft)}) {
            if (!one->format().hasProperty(property))
                continue;
            if (QString difference =
                    Differ(where, one->format().property(property), other->format().property(property));
                !difference.isEmpty())
                return difference;
        }
        for (int row = 0; row < one->rows(); ++row) {
            for (int column = 0; column < one->columns(); ++column) {
                if (QString difference = Differ(where, CellFacts(one->cellAt(row, column)),
                                                CellFacts(other->cellAt(row, column)));
                    !difference.isEmpty())
                    return difference;
            }
        }
        if (QString difference = FrameDifference(*ones[i], *others[i]); !difference.isEmpty())
            return difference;
    }
    return {};
}

inline QString PropertyDifference(const QTextDocument& first, const QTextDocument& second) {
    const QTextFrameFormat one = first.rootFrame()->frameFormat();
    const QTextFrameFormat other = second.rootFrame()->frameFormat();
    for (const int property :
         {int(PaperWidth), int(PaperHeight), int(MarginLeft), int(MarginRight), int(MarginTop),
          int(MarginBottom), int(Landscape), int(HeadersAndFooters), int(StyleSheet), int(ListTables),
          int(InfoGroup), int(DefaultLanguage), int(DefaultTab), int(FootnoteSettings)}) {
        const QString what = QStringLiteral("document property %1").arg(property - QTextFormat::UserProperty);
        if (QString difference = Differ(what, one.property(property), other.property(property));
            !difference.isEmpty())
            return difference;
    }
    const auto section = [](const QTextFrameFormat& format) {
        const QByteArray words = format.property(SectionControls).toByteArray();
        return words.startsWith("\\sectd") ? words.mid(6) : words;
    };
    if (section(one) != section(other))
        return Differ(QStringLiteral("section"), section(one), section(other));
    for (const int property : {int(FontTable), int(ColorTable)}) {
        QByteArray kept = one.property(property).toByteArray();
        kept.chop(1);
        kept = kept.isEmpty() ? kept : '{' + kept.mid(kept.indexOf('\\')); // blanks in front say nothing
        if (!other.property(property).toByteArray().startsWith(kept))
            return Differ(QStringLiteral("table"), kept, other.property(property));
    }
    return {};
}

} // namespace compare

// The first difference between two documents as a rich text file can tell it, empty when there is none: text,
// formats of characters and paragraphs, tables, pictures, fields, kept groups. What a file numbers anew
// (fonts, fields, pictures, objects) is compared by what the numbers mean; kept tables of fonts and colours
// may have more entries in `second`.
inline QString FirstDifference(const QTextDocument& first, const QTextDocument& second) {
    QTextBlock one = first.begin();
    QTextBlock other = second.begin();
    for (; one.isValid() && other.isValid(); one = one.next(), other = other.next()) {
        if (QString difference = compare::BlockDifference(one, other); !difference.isEmpty())
            return difference;
    }
    if (first.blockCount() != second.blockCount())
        return QStringLiteral("number of paragraphs: %1 became %2")
            .arg(first.blockCount())
            .arg(second.blockCount());
    if (QString difference = compare::FrameDifference(*first.rootFrame(), *second.rootFrame());
        !difference.isEmpty())
        return difference;
    return compare::PropertyDifference(first, second);
}

} // namespace platform
