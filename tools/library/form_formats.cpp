#include "library/form_formats.h"

#include "library/clause_kinds.h"
#include "platform/rich_text/document_model.h"

#include <QRegularExpression>
#include <algorithm>

namespace quillbrook {
namespace {

using platform::TwipsToPixels;

constexpr int kSignatureIndent = 4'320; // twips: 3 inches, where the clauses have theirs
constexpr int kVenueBracket = 4'320;    // behind the lines of a venue
constexpr qsizetype kLongestBlank = 20; // in justified text

// A forced break in a justified paragraph would stretch the line before it in word processors.
Qt::Alignment Justified(const Runs& runs) {
    return PlainText(runs).contains(QChar::LineSeparator) ? Qt::AlignLeft : Qt::AlignJustify;
}

// Whether clauses are added in place of the paragraph or, a lone blank at a form's top, in front of it. Each
// of their lines becomes a paragraph of this one's format, so it has no space below.
bool TakesClauses(const Runs& runs) {
    return PlainText(runs) == QChar(QChar::Nbsp) || IsMarker(runs);
}

void SetHanging(QTextBlockFormat& format, int left) {
    format.setLeftMargin(TwipsToPixels(left));
    format.setTextIndent(-TwipsToPixels(kHalfInch));
    format.setTabPositions({QTextOption::Tab(TwipsToPixels(kHalfInch), QTextOption::LeftTab)});
}

// "REPUBLIC OF THE PHILIPPINES )" above "_____ ) S.S.": the brackets stand below one another.
bool IsVenue(const Runs& runs) {
    static const QRegularExpression bracket(QStringLiteral("\\t *\\)"));
    return PlainText(runs).contains(bracket);
}

void SetSpace(QTextBlockFormat& format, int before, int after) {
    format.setTopMargin(TwipsToPixels(before));
    format.setBottomMargin(TwipsToPixels(after));
}

void SetHeading(QTextBlockFormat& format, Qt::Alignment alignment) {
    format.setAlignment(alignment);
    format.setProperty(platform::KeepWithNext, true);
}

void SetSignature(const Paragraph& paragraph, const Neighbours& neighbours, QTextBlockFormat& format) {
    format.setAlignment(Qt::AlignLeft);
    format.setProperty(platform::KeepWithNext,
                       paragraph.kind == ParagraphClass::Sign || neighbours.continuesSignature);
    format.setProperty(platform::KeepTogether, true);
    if (paragraph.kind == ParagraphClass::Sign)
        format.setLeftMargin(TwipsToPixels(kSignatureIndent));
    SetSpace(format, BeginsWithSignatureLine(paragraph.runs) ? kRoomToSign : 0,
             neighbours.continuesSignature ? 0 : kLine);
}

// The line with its blanks, if it is longer than `room`, shortened alike as far as that leaves them usable.
QString FitSignatureLine(const QString& line, qsizetype room) {
    static const QRegularExpression blank(QStringLiteral("_{10,}"));
    qsizetype count = 0;
    qsizetype text = line.size();
    for (const QRegularExpressionMatch& match : blank.globalMatch(line)) {
        ++count;
        text -= match.capturedLength();
    }
    if (line.size() <= room || count == 0)
        return line;
    const qsizetype each = std::max<qsizetype>((room - text) / count, count == 1 ? 10 : 6);
    QString fitted;
    qsizetype at = 0;
    for (const QRegularExpressionMatch& match : blank.globalMatch(line)) {
        fitted += line.mid(at, match.capturedStart() - at);
        fitted += QString(std::min(match.capturedLength(), each), u'_');
        at = match.capturedEnd();
    }
    return fitted + line.mid(at);
}

} // namespace

QTextCharFormat TextFormat() {
    QTextCharFormat format;
    format.setFontFamilies({QStringLiteral("Times New Roman")});
    format.setFontStyleHint(QFont::Serif);
    format.setFontPointSize(kFontSize);
    return format;
}

QTextCharFormat RunFormat(const Run& run, const QTextCharFormat& base) {
    QTextCharFormat format = base;
    if (run.bold)
        format.setFontWeight(QFont::Bold);
    if (run.italic)
        format.setFontItalic(true);
    if (run.underline)
        format.setFontUnderline(true);
    if (run.position == Run::Position::Superscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    else if (run.position == Run::Position::Subscript)
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    return format;
}

QTextCharFormat ParagraphTextFormat(ParagraphClass kind) {
    QTextCharFormat format = TextFormat();
    if (kind == ParagraphClass::Heading1)
        format.setFontPointSize(kTitleSize);
    if (kind == ParagraphClass::Heading1 || kind == ParagraphClass::Heading2 ||
        kind == ParagraphClass::Heading3)
        format.setFontWeight(QFont::Bold);
    return format;
}

QTextBlockFormat ParagraphFormat(const Paragraph& paragraph, const Neighbours& neighbours) {
    QTextBlockFormat format;
    format.setProperty(platform::WidowControl, true);
    if (neighbours.beforeSignature)
        format.setProperty(platform::KeepWithNext, true);
    SetSpace(format, 0, kLine);
    switch (paragraph.kind) {
    case ParagraphClass::Heading1:
        SetHeading(format, Qt::AlignHCenter);
        SetSpace(format, 0, kLine * 3 / 2);
        break;
    case ParagraphClass::Heading2:
        SetHeading(format, Qt::AlignHCenter);
        SetSpace(format, kLine / 2, kLine);
        break;
    case ParagraphClass::Heading3:
        SetHeading(format, Qt::AlignLeft);
        SetSpace(format, kLine / 2, kLine / 2);
        break;
    case ParagraphClass::Text:
        format.setAlignment(Justified(paragraph.runs));
        format.setTextIndent(TwipsToPixels(kHalfInch));
        break;
    case ParagraphClass::Plain:
        format.setAlignment(Justified(paragraph.runs));
        if (TakesClauses(paragraph.runs))
            SetSpace(format, 0, 0);
        if (IsVenue(paragraph.runs))
            format.setTabPositions({QTextOption::Tab(TwipsToPixels(kVenueBracket), QTextOption::LeftTab)});
        break;
    case ParagraphClass::Center:
        format.setAlignment(Qt::AlignHCenter);
        break;
    case ParagraphClass::Right:
        format.setAlignment(Qt::AlignRight);
        break;
    case ParagraphClass::Quote:
        format.setAlignment(Justified(paragraph.runs));
        format.setLeftMargin(TwipsToPixels(kHalfInch));
        format.setRightMargin(TwipsToPixels(kHalfInch));
        break;
    case ParagraphClass::Hang:
        format.setAlignment(Qt::AlignLeft); // justifying would move what a tab has lined up
        SetHanging(format, kHalfInch);
        break;
    case ParagraphClass::Sign:
    case ParagraphClass::SignLeft:
        SetSignature(paragraph, neighbours, format);
        break;
    }
    return format;
}

QTextBlockFormat ListItemFormat(int level, const QString& marker, int listNumber) {
    QTextBlockFormat format;
    format.setAlignment(Qt::AlignJustify);
    SetHanging(format, kHalfInch * (level + 1));
    SetSpace(format, 0, kLine);
    format.setProperty(platform::WidowControl, true);
    format.setProperty(platform::BulletText, marker);
    format.setProperty(platform::ListOverride, listNumber);
    format.setProperty(platform::ListLevel, 0);
    return format;
}

bool IsMarker(const Runs& runs) {
    return std::find(kMarkers.begin(), kMarkers.end(), PlainText(runs)) != kMarkers.end();
}

bool IsSignature(ParagraphClass kind) {
    return kind == ParagraphClass::Sign || kind == ParagraphClass::SignLeft;
}

Runs FitSignatureLines(const Runs& runs) {
    constexpr qsizetype kRoom =
        (kTextWidth - kSignatureIndent) / kCharacterWidth; // characters, taken as wide as a blank's
    Runs fitted = runs;
    for (Run& run : fitted) {
        QStringList lines = run.text.split(QChar::LineSeparator);
        for (QString& line : lines)
            line = FitSignatureLine(line, kRoom);
        run.text = lines.join(QChar::LineSeparator);
    }
    return fitted;
}

Runs ShortenBlanks(const Runs& runs) {
    static const QRegularExpression blank(QStringLiteral("(?<!_)_{%1,40}(?!_)").arg(kLongestBlank));
    Runs shortened = runs;
    for (Run& run : shortened)
        run.text.replace(blank, QString(kLongestBlank, u'_'));
    return shortened;
}

Runs WithBoldBracket(const Runs& runs) {
    Runs same = runs;
    if (same.size() > 1 && same[0].text == QStringLiteral("[") && same[1].bold)
        same[0].bold = true;
    return same;
}

bool BeginsWithSignatureLine(const Runs& runs) {
    static const QRegularExpression line(QStringLiteral("^[^\\x{2028}]*_{5,}[,.]?(\\x{2028}|$)"));
    return line.match(PlainText(runs)).hasMatch();
}

} // namespace quillbrook
