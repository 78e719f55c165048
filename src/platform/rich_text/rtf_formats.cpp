#include "platform/rich_text/rtf_formats.h"

#include <QFont>
#include <QTextOption>
#include <algorithm>

#include "platform/rich_text/rtf_limits.h"

namespace platform {
namespace {

constexpr int kMostBorders = 1'000; // Qt compares formats that differ only in byte arrays one by one

// Set for all characters of a text but where a property of Qt's own exists.
struct KeptNumber {
    int RtfCharState::*member;
    int property;
};

constexpr KeptNumber kKeptNumbers[] = {
    {&RtfCharState::spacing, CharacterSpacing}, {&RtfCharState::baseline, BaselineOffset},
    {&RtfCharState::kerning, Kerning},          {&RtfCharState::language, Language},
    {&RtfCharState::style, CharacterStyle},     {&RtfCharState::field, FieldId},
};

QTextCharFormat::UnderlineStyle QtUnderline(UnderlineKinds kind) {
    switch (kind) {
    case UnderlineKinds::Dotted:
        return QTextCharFormat::DotLine;
    case UnderlineKinds::Dash:
        return QTextCharFormat::DashUnderline;
    case UnderlineKinds::DashDot:
        return QTextCharFormat::DashDotLine;
    case UnderlineKinds::Wave:
        return QTextCharFormat::WaveUnderline;
    case UnderlineKinds::Plain:
    case UnderlineKinds::Words:
    case UnderlineKinds::Double:
    case UnderlineKinds::Thick:
        break;
    }
    return QTextCharFormat::SingleUnderline;
}

QFont::StyleHint StyleHint(int family) {
    switch (family) {
    case 1:
        return QFont::Serif;
    case 2:
        return QFont::SansSerif;
    case 3:
        return QFont::TypeWriter;
    case 4:
        return QFont::Cursive;
    case 5:
        return QFont::Decorative;
    default:
        return QFont::AnyStyle;
    }
}

void SetLineHeight(const RtfParaState& state, QTextBlockFormat& format) {
    if (state.lineHeight == 0)
        return;
    // RTF 1.9.1: \sl counts 240 to the line with \slmult1; else it is a least height, negative an exact one
    if (state.lineHeightIsMultiple)
        format.setLineHeight(std::abs(state.lineHeight) / 2.4, QTextBlockFormat::ProportionalHeight);
    else if (state.lineHeight > 0)
        format.setLineHeight(TwipsToPixels(state.lineHeight), QTextBlockFormat::MinimumHeight);
    else
        format.setLineHeight(TwipsToPixels(-state.lineHeight), QTextBlockFormat::FixedHeight);
}

void SetTabs(const RtfParaState& state, QTextBlockFormat& format) {
    QList<QTextOption::Tab> tabs;
    const int lineStart = state.left + state.firstLine;
    for (const RtfTab& tab : state.tabs)
        tabs.append(QTextOption::Tab(TwipsToPixels(tab.position - lineStart), tab.type));
    if (state.firstLine < 0)
        tabs.append(QTextOption::Tab(TwipsToPixels(-state.firstLine), QTextOption::LeftTab));
    if (tabs.isEmpty())
        return;
    const auto nearer = [](const QTextOption::Tab& a, const QTextOption::Tab& b) {
        return a.position < b.position;
    };
    std::stable_sort(tabs.begin(), tabs.end(), nearer);
    format.setTabPositions(tabs);
}

} // namespace

size_t qHash(const RtfCharState& s, size_t seed) {
    return qHashMulti(seed, s.flags, s.font, s.halfPoints, s.color, s.highlight, s.background, s.underline,
                      s.spacing, s.baseline, s.kerning, s.language, s.style, s.field, s.hyperlink);
}

size_t qHash(const RtfParaState& s, size_t seed) {
    for (const RtfTab& tab : s.tabs)
        seed = qHashMulti(seed, tab.position);
    return qHashMulti(seed, s.alignment, s.left, s.right, s.firstLine, s.before, s.after, s.lineHeight,
                      s.style, s.outline, s.list, s.listLevel, s.shading, s.borders, s.oldList.start,
                      s.oldList.before);
}

QBrush RtfTables::Brush(int color) const {
    if (color < 0 || static_cast<std::size_t>(color) >= colors.size())
        return {};
    const RtfColor& entry = colors[static_cast<std::size_t>(color)];
    return entry.automatic ? QBrush() : QBrush(QColor(static_cast<QRgb>(entry.rgb) | 0xFF000000U));
}

int RtfFormats::Index(const RtfCharState& state) {
    const auto known = m_indices.constFind(state);
    if (known != m_indices.constEnd())
        return *known;
    const int index = Add(Make(state));
    if (m_indices.size() < kMostFormats)
        m_indices.insert(state, index);
    return index;
}

int RtfFormats::Add(const QTextCharFormat& format) {
    if (m_formats.size() >= static_cast<std::size_t>(kMostFormats))
        return 0;
    m_formats.push_back(format);
    return static_cast<int>(m_formats.size()) - 1;
}

QTextCharFormat RtfFormats::Make(const RtfCharState& state) const {
    QTextCharFormat format;
    SetFont(state, format);
    for (const auto& [member, property] : kKeptNumbers) {
        if (state.*member != 0)
            format.setProperty(property, state.*member);
    }
    if (const QBrush brush = m_tables.Brush(state.color); brush.style() != Qt::NoBrush)
        format.setForeground(brush);
    const int behind = state.highlight ? state.highlight : state.background;
    if (const QBrush brush = m_tables.Brush(behind); behind && brush.style() != Qt::NoBrush)
        format.setBackground(brush);
    if (state.Has(RtfCharState::Superscript))
        format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    else if (state.Has(RtfCharState::Subscript))
        format.setVerticalAlignment(QTextCharFormat::AlignSubScript);
    if (state.hyperlink > 0 && static_cast<std::size_t>(state.hyperlink) <= m_tables.hyperlinks.size()) {
        format.setAnchor(true);
        format.setAnchorHref(m_tables.hyperlinks[static_cast<std::size_t>(state.hyperlink) - 1]);
    }
    if (state.Has(RtfCharState::Hidden)) {
        format.setProperty(HiddenText, true);
        format.setProperty(HiddenSize, state.halfPoints);
        format.setForeground(Qt::transparent);
        // Qt makes raised and lowered text of two thirds of the size, of which a point has to be left
        const bool isRaised = format.verticalAlignment() != QTextCharFormat::AlignNormal;
        format.setFontPointSize(isRaised ? 1.5 : 0.75);
    }
    return format;
}

void RtfFormats::SetFont(const RtfCharState& state, QTextCharFormat& format) const {
    const int number = state.font < 0 ? m_tables.defaultFont : state.font;
    if (const auto font = m_tables.fonts.constFind(number); font != m_tables.fonts.constEnd()) {
        if (!font->name.isEmpty())
            format.setFontFamilies({font->name});
        if (const QFont::StyleHint hint = StyleHint(font->family); hint != QFont::AnyStyle)
            format.setFontStyleHint(hint);
        if (font->fixedPitch)
            format.setFontFixedPitch(true);
        format.setProperty(FontNumber, number);
    }
    format.setFontPointSize(state.halfPoints / 2.0);
    if (state.Has(RtfCharState::Bold))
        format.setFontWeight(QFont::Bold);
    if (state.Has(RtfCharState::Italic))
        format.setFontItalic(true);
    if (state.Has(RtfCharState::Strike) || state.Has(RtfCharState::DoubleStrike))
        format.setFontStrikeOut(true);
    if (state.Has(RtfCharState::DoubleStrike))
        format.setProperty(DoubleStrike, true);
    if (state.Has(RtfCharState::Underline)) {
        const auto kind = static_cast<UnderlineKinds>(state.underline);
        format.setFontUnderline(true);
        if (kind != UnderlineKinds::Plain) {
            format.setUnderlineStyle(QtUnderline(kind));
            format.setProperty(UnderlineKind, state.underline);
        }
    }
    if (state.Has(RtfCharState::Capitals))
        format.setFontCapitalization(QFont::AllUppercase);
    else if (state.Has(RtfCharState::SmallCapitals))
        format.setFontCapitalization(QFont::SmallCaps);
    if (state.spacing != 0) {
        format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
        format.setFontLetterSpacing(TwipsToPixels(state.spacing));
    }
}

QTextBlockFormat RtfFormats::Paragraph(const RtfParaState& state, const QString& marker) {
    const auto known = m_paragraphs.constFind(state);
    QTextBlockFormat format;
    if (known != m_paragraphs.constEnd()) {
        format = *known;
    } else if (m_paragraphs.size() < kMostFormats) {
        format = Make(state);
        m_paragraphs.insert(state, format);
    } else {
        format.setAlignment(
            Qt::Alignment(state.alignment)); // the plain form, so that Qt holds no more formats
    }
    if (!marker.isEmpty()) {
        if (m_markers.size() < kMostFormats)
            m_markers.insert(marker);
        if (m_markers.contains(marker))
            format.setProperty(BulletText, marker);
        else
            format.setProperty(BulletText, QStringLiteral("\u2022"));
    }
    return format;
}

QTextBlockFormat RtfFormats::Make(const RtfParaState& state) {
    QTextBlockFormat format;
    format.setAlignment(Qt::Alignment(state.alignment));
    const auto setLength = [&format](void (QTextBlockFormat::*set)(qreal), int twips) {
        if (twips != 0)
            (format.*set)(TwipsToPixels(twips));
    };
    setLength(&QTextBlockFormat::setLeftMargin, state.left);
    setLength(&QTextBlockFormat::setRightMargin, state.right);
    setLength(&QTextBlockFormat::setTextIndent, state.firstLine);
    setLength(&QTextBlockFormat::setTopMargin, state.before);
    setLength(&QTextBlockFormat::setBottomMargin, state.after);
    SetLineHeight(state, format);
    SetTabs(state, format);
    if (state.pageBreakBefore)
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    if (state.rightToLeft) {
        format.setLayoutDirection(Qt::RightToLeft);
        format.setProperty(RightToLeft, true);
    }
    if (const QBrush brush = m_tables.Brush(state.background);
        state.background && brush.style() != Qt::NoBrush)
        format.setBackground(brush);
    const auto keep = [&format](int property, const QVariant& value, bool told) {
        if (told)
            format.setProperty(property, value);
    };
    keep(KeepTogether, true, state.keepTogether);
    keep(KeepWithNext, true, state.keepWithNext);
    keep(WidowControl, true, state.widowControl);
    keep(ParagraphStyle, state.style, state.style != 0);
    keep(OutlineLevel, state.outline, state.outline >= 0);
    keep(ParagraphShading, state.shading, state.shading != 0);
    if (m_borders.size() < kMostBorders)
        m_borders.insert(state.borders);
    keep(ParagraphBorder, state.borders, !state.borders.isEmpty() && m_borders.contains(state.borders));
    keep(ListOverride, state.list, state.list != 0);
    keep(ListLevel, state.listLevel, state.list != 0);
    if (state.oldList.active) {
        format.setProperty(ListKind, state.oldList.kind);
        format.setProperty(ListStart, state.oldList.start);
        format.setProperty(ListTextBefore, state.oldList.before);
        format.setProperty(ListTextAfter, state.oldList.after);
    }
    return format;
}

} // namespace platform
