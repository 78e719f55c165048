#include "rtf_conformance/shown_text.h"

#include <QRegularExpression>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>
#include <set>
#include <vector>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_numbering.h"

namespace quillbrook {
namespace {

constexpr qsizetype kContext = 30;    // characters shown beside a difference
constexpr qsizetype kLongResult = 80; // of a field that is worked out anew

// First words of the instructions of fields that are worked out anew.
constexpr QStringView kComputedFields[] = {
    u"DATE",     u"TIME",     u"EDITTIME", u"SAVEDATE",     u"PRINTDATE",   u"CREATEDATE",  u"PAGE",
    u"NUMPAGES", u"SECTION",  u"PAGEREF",  u"SECTIONPAGES", u"NUMWORDS",    u"NUMCHARS",    u"FILENAME",
    u"FILESIZE", u"AUTHOR",   u"TITLE",    u"SUBJECT",      u"COMMENTS",    u"KEYWORDS",    u"LASTSAVEDBY",
    u"TEMPLATE", u"USERNAME", u"REVNUM",   u"USERINITIALS", u"USERADDRESS", u"DOCPROPERTY", u"REF",
    u"NOTEREF",  u"MERGEREC", u"AUTONUM",  u"AUTONUMLGL",   u"AUTONUMOUT",
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
    case kNumberBegin:
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

QString Computed(const QString& text) {
    return text.isEmpty() ? text : QChar(kComputedBegin) + text + QChar(kComputedEnd);
}

// The number of a list item between its marks, nothing between them for other paragraphs. What has no letter
// nor digit is a bullet.
QString NumberOf(const QTextBlockFormat& format) {
    const QString marker = format.stringProperty(platform::BulletText);
    const bool isBullet = format.intProperty(platform::ListKind) == int(platform::ListKinds::Bullet) ||
                          std::none_of(marker.begin(), marker.end(),
                                       [](QChar character) { return character.isLetterOrNumber(); });
    return QChar(kNumberBegin) + (isBullet ? QString() : marker) + QChar(kComputedEnd);
}

// The numbers of footnotes and endnotes.
class Notes {
public:
    // What stands where a note is anchored; empty for a format of anything else.
    QString Next(const QTextCharFormat& format) {
        const QByteArray object = format.property(platform::EmbeddedObject).toByteArray();
        if (!object.startsWith("{\\chftn") && !object.startsWith("{\\footnote") &&
            !object.startsWith("{\\*\\footnote"))
            return {};
        return object.contains("\\ftnalt")
                   ? platform::ListNumberText(++m_endnotes, platform::ListKinds::LowerRoman)
                   : QString::number(++m_footnotes);
    }

private:
    int m_footnotes = 0;
    int m_endnotes = 0;
};

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

enum class Gap { None, Number, Result };

// Text that must be there, folded, and what may stand in front of it.
struct Piece {
    Gap gap = Gap::None;
    QString text;
};

std::vector<Piece> Pieces(const QString& shown) {
    std::vector<Piece> pieces(1);
    for (qsizetype at = 0; at < shown.size(); ++at) {
        const char16_t character = shown[at].unicode();
        if (character != kComputedBegin && character != kNumberBegin) {
            pieces.back().text.append(shown[at]);
            continue;
        }
        pieces.push_back({character == kNumberBegin ? Gap::Number : Gap::Result, {}});
        const qsizetype end = shown.indexOf(kComputedEnd, at);
        at = end < 0 ? shown.size() : end;
    }
    for (Piece& piece : pieces)
        piece.text = FoldedText(piece.text);
    return pieces;
}

// How far a gap that begins at `at` may reach, every length that is possible.
std::vector<qsizetype> GapLengths(Gap gap, const QString& text, qsizetype at) {
    static const QRegularExpression number(
        QStringLiteral(" ?\\(?(\\d{1,4}|[a-zA-Z]|[ivxlcdmIVXLCDM]{1,8})(\\.\\d{1,3})*[.)]?( |$)"));
    std::vector<qsizetype> lengths{0};
    if (gap == Gap::Result) {
        for (qsizetype length = 1; length <= std::min(kLongResult, text.size() - at); ++length)
            lengths.push_back(length);
    } else if (gap == Gap::Number) {
        if (text.mid(at, 1) == u" ")
            lengths.push_back(1);
        const auto match = number.match(text, at, QRegularExpression::NormalMatch,
                                        QRegularExpression::AnchorAtOffsetMatchOption);
        if (match.hasMatch())
            lengths.push_back(match.capturedLength());
    }
    return lengths;
}

} // namespace

QString ShownText(const QTextDocument& document) {
    const QSet<int> computed = ComputedFields(document);
    QString shown;
    Notes notes;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        shown.append(NumberOf(block.blockFormat())).append(u' ');
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            const QTextCharFormat format = run.fragment().charFormat();
            if (const QString note = notes.Next(format); !note.isEmpty())
                shown.append(Computed(note));
            else if (computed.contains(format.intProperty(platform::FieldId)))
                shown.append(Computed(run.fragment().text()));
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
    const std::vector<Piece> pieces = computed == ComputedResults::MayDiffer
                                          ? Pieces(shown)
                                          : std::vector<Piece>{{Gap::None, FoldedText(shown)}};
    const QString folded = FoldedText(theirs);
    std::set<qsizetype> ends{0}; // where in the other text the pieces so far may end
    for (const Piece& piece : pieces) {
        std::set<qsizetype> next;
        for (const qsizetype end : ends) {
            for (const qsizetype length : GapLengths(piece.gap, folded, end)) {
                const qsizetype begin = end + length;
                const bool runsOn = piece.gap == Gap::Number && !piece.text.isEmpty() && begin > 0 &&
                                    folded[begin - 1] != u' ';
                if (!runsOn && QStringView(folded).sliced(begin).startsWith(piece.text))
                    next.insert(begin + piece.text.size());
            }
        }
        if (next.empty())
            return PlaceOfDifference(piece.text, folded, *ends.begin());
        ends = std::move(next);
    }
    if (ends.contains(folded.size()))
        return {};
    return PlaceOfDifference({}, folded, *ends.rbegin());
}

} // namespace quillbrook
