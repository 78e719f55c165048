#include "rtf_conformance/shown_text.h"

#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>

#include "platform/rich_text/document_model.h"

namespace quillbrook {
namespace {

constexpr qsizetype kContext = 30;    // characters shown beside a difference
constexpr qsizetype kLongResult = 80; // of a field that is worked out anew

// First words of the instructions of fields that are worked out anew.
constexpr QStringView kComputedFields[] = {
    u"DATE",     u"TIME",     u"EDITTIME", u"SAVEDATE",     u"PRINTDATE",   u"CREATEDATE",  u"PAGE",
    u"NUMPAGES", u"SECTION",  u"PAGEREF",  u"SECTIONPAGES", u"NUMWORDS",    u"NUMCHARS",    u"FILENAME",
    u"FILESIZE", u"AUTHOR",   u"TITLE",    u"SUBJECT",      u"COMMENTS",    u"KEYWORDS",    u"LASTSAVEDBY",
    u"TEMPLATE", u"USERNAME", u"REVNUM",   u"USERINITIALS", u"USERADDRESS", u"DOCPROPERTY",
};

// Markers of list items that programs choose differently, in the symbol font or out of it.
bool IsBullet(QChar character) {
    static constexpr QStringView kBullets =
        u"\u2022\u00B7\u25CF\u25CB\u25E6\u25AA\u25AB\u25A0\u25A1\u2023\u2043\u2219";
    return kBullets.contains(character) || (character.unicode() >= 0xE000 && character.unicode() <= 0xF8FF);
}

bool IsUnseen(QChar character) {
    switch (character.unicode()) {
    case QChar::SoftHyphen:
    case QChar::ObjectReplacementCharacter:
    case QChar::ByteOrderMark:
    case kComputedBegin:
    case kComputedEnd:
    case 0x200B: // of no width
    case 0x200C:
    case 0x200D:
    case 0x200E: // directions
    case 0x200F:
    case 0x2060:
        return true;
    default:
        return false;
    }
}

bool IsOfSymbolFont(const QTextCharFormat& format) {
    const QString family = format.fontFamilies().toStringList().value(0);
    return family == u"Symbol" || family.startsWith(u"Wingdings") || family == u"Webdings" ||
           family.endsWith(u"Dingbats");
}

QString NumberOf(const QTextBlockFormat& format) {
    const bool isBullet = format.intProperty(platform::ListKind) == int(platform::ListKinds::Bullet);
    return isBullet ? QString() : format.stringProperty(platform::BulletText);
}

bool IsFootnote(const QTextCharFormat& format) {
    const QByteArray object = format.property(platform::EmbeddedObject).toByteArray();
    return object.startsWith("{\\chftn") || object.startsWith("{\\footnote") ||
           object.startsWith("{\\*\\footnote");
}

// The numbers of the fields that are worked out anew.
QSet<int> ComputedFields(const QTextDocument& document) {
    QSet<int> computed;
    const QVariantMap instructions =
        document.rootFrame()->frameFormat().property(platform::FieldInstructions).toMap();
    for (auto field = instructions.cbegin(); field != instructions.cend(); ++field) {
        const QString word = field->toString().section(u' ', 0, 0, QString::SectionSkipEmpty).toUpper();
        if (std::find(std::begin(kComputedFields), std::end(kComputedFields), word) !=
            std::end(kComputedFields))
            computed.insert(field.key().toInt());
    }
    return computed;
}

QString PlaceOfDifference(QStringView ours, QStringView theirs, qsizetype begin) {
    const auto parted =
        std::mismatch(ours.begin(), ours.end(), theirs.begin() + begin, theirs.end()).first - ours.begin();
    const qsizetype from = std::max<qsizetype>(0, parted - kContext);
    const qsizetype length = parted - from + kContext;
    return QStringLiteral("'%1' where the other has '%2'")
        .arg(ours.mid(from, length), theirs.mid(begin + from, length));
}

// The text between the computed results, folded.
QStringList SettledPieces(const QString& shown) {
    QStringList pieces;
    qsizetype begin = 0;
    for (qsizetype at = shown.indexOf(kComputedBegin); at >= 0; at = shown.indexOf(kComputedBegin, begin)) {
        pieces.append(FoldedText(shown.mid(begin, at - begin)));
        const qsizetype end = shown.indexOf(kComputedEnd, at);
        begin = end < 0 ? shown.size() : end + 1;
    }
    pieces.append(FoldedText(shown.mid(begin)));
    return pieces;
}

} // namespace

QString ShownText(const QTextDocument& document) {
    const QSet<int> computed = ComputedFields(document);
    QString shown;
    int footnotes = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        shown.append(NumberOf(block.blockFormat())).append(u' ');
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            const QTextCharFormat format = run.fragment().charFormat();
            if (IsFootnote(format))
                shown.append(QString::number(++footnotes));
            else if (computed.contains(format.intProperty(platform::FieldId)))
                shown.append(kComputedBegin).append(run.fragment().text()).append(kComputedEnd);
            else if (!IsOfSymbolFont(format))
                shown.append(run.fragment().text());
        }
        shown.append(u'\n');
    }
    return shown;
}

QString FoldedText(const QString& text) {
    QString folded;
    folded.reserve(text.size());
    bool blank = false;
    for (const QChar character : text) {
        if (IsBullet(character) || IsUnseen(character))
            continue;
        if (character.isSpace() || character.unicode() < 0x20) {
            blank = true;
            continue;
        }
        if (std::exchange(blank, false) && !folded.isEmpty())
            folded.append(u' ');
        folded.append(character.unicode() == 0x2011 ? QChar(u'-') : character);
    }
    return folded;
}

QString TextDifference(const QString& shown, const QString& theirs, ComputedResults computed) {
    const QStringList pieces =
        computed == ComputedResults::MayDiffer ? SettledPieces(shown) : QStringList{FoldedText(shown)};
    const QString folded = FoldedText(theirs);
    qsizetype at = 0;
    for (qsizetype i = 0; i < pieces.size(); ++i) {
        const QString& piece = pieces[i];
        const bool isLast = i + 1 == pieces.size();
        qsizetype found = isLast && i > 0 ? std::max(at, folded.size() - piece.size()) : at;
        if (i > 0 && !isLast)
            found = folded.indexOf(piece, at);
        const bool isThere =
            found >= 0 && found - at <= kLongResult && QStringView(folded).sliced(found).startsWith(piece);
        if (!isThere || (isLast && found + piece.size() != folded.size()))
            return PlaceOfDifference(piece, folded, std::clamp<qsizetype>(found, at, folded.size()));
        at = found + piece.size();
    }
    return {};
}

} // namespace quillbrook
