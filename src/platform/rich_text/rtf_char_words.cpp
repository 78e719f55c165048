#include "platform/rich_text/rtf_char_words.h"

#include <QFont>
#include <algorithm>
#include <cmath>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_limits.h"
#include "platform/rich_text/rtf_output.h"

namespace platform {
namespace {

struct FlagWord {
    RtfCharWords::Flag flag;
    const char* on;
    const char* off;
};

constexpr FlagWord kFlagWords[] = {
    {RtfCharWords::Bold, "\\b", "\\b0"},
    {RtfCharWords::Italic, "\\i", "\\i0"},
    {RtfCharWords::Strike, "\\strike", "\\strike0"},
    {RtfCharWords::DoubleStrike, "\\striked1", "\\striked0"},
    {RtfCharWords::Capitals, "\\caps", "\\caps0"},
    {RtfCharWords::SmallCapitals, "\\scaps", "\\scaps0"},
    {RtfCharWords::Hidden, "\\v", "\\v0"},
};

// In the order of UnderlineKinds.
constexpr const char* kUnderlines[] = {"\\ul",     "\\ulw",     "\\uldb",   "\\uld",
                                       "\\uldash", "\\uldashd", "\\ulwave", "\\ulth"};

struct NumberWord {
    int RtfCharWords::*member;
    const char* word;
};

constexpr NumberWord kNumberWords[] = {
    {&RtfCharWords::style, "\\cs"},         {&RtfCharWords::font, "\\f"},
    {&RtfCharWords::halfPoints, "\\fs"},    {&RtfCharWords::color, "\\cf"},
    {&RtfCharWords::behind, "\\highlight"}, {&RtfCharWords::spacing, "\\expndtw"},
    {&RtfCharWords::kerning, "\\kerning"},  {&RtfCharWords::language, "\\lang"},
};

int FamilyOf(const QTextCharFormat& format) {
    switch (format.fontStyleHint()) {
    case QFont::Serif:
        return 1;
    case QFont::SansSerif:
        return format.hasProperty(QTextFormat::FontStyleHint) ? 2 : 0;
    case QFont::TypeWriter:
        return 3;
    case QFont::Cursive:
        return 4;
    case QFont::Decorative:
        return 5;
    default:
        return 0;
    }
}

int UnderlineOf(const QTextCharFormat& format) {
    const QTextCharFormat::UnderlineStyle style = format.underlineStyle();
    if (style == QTextCharFormat::SpellCheckUnderline ||
        (style == QTextCharFormat::NoUnderline && !format.fontUnderline()))
        return -1;
    if (format.hasProperty(UnderlineKind))
        return std::clamp(format.intProperty(UnderlineKind), 0, static_cast<int>(std::size(kUnderlines)) - 1);
    switch (style) {
    case QTextCharFormat::DashUnderline:
        return static_cast<int>(UnderlineKinds::Dash);
    case QTextCharFormat::DotLine:
        return static_cast<int>(UnderlineKinds::Dotted);
    case QTextCharFormat::DashDotLine:
    case QTextCharFormat::DashDotDotLine:
        return static_cast<int>(UnderlineKinds::DashDot);
    case QTextCharFormat::WaveUnderline:
        return static_cast<int>(UnderlineKinds::Wave);
    default:
        return static_cast<int>(UnderlineKinds::Plain);
    }
}

int HalfPointsOf(const QTextCharFormat& format, const QFont& defaultFont) {
    double points = format.fontPointSize();
    if (IsHidden(format) && format.hasProperty(HiddenSize))
        points = format.intProperty(HiddenSize) / 2.0;
    else if (points <= 0 && format.hasProperty(QTextFormat::FontPixelSize))
        points = format.intProperty(QTextFormat::FontPixelSize) * 0.75;
    if (points <= 0)
        points = defaultFont.pointSizeF() > 0 ? defaultFont.pointSizeF() : defaultFont.pixelSize() * 0.75;
    return std::clamp(static_cast<int>(std::lround(points * 2)), 1, kMostHalfPoints);
}

int SpacingOf(const QTextCharFormat& format) {
    if (format.hasProperty(CharacterSpacing))
        return format.intProperty(CharacterSpacing);
    if (format.fontLetterSpacingType() != QFont::AbsoluteSpacing)
        return 0;
    return static_cast<int>(std::lround(PixelsToTwips(format.fontLetterSpacing())));
}

int FlagsOf(const QTextCharFormat& format) {
    int flags = 0;
    const auto set = [&flags](RtfCharWords::Flag flag, bool on) { flags |= on ? flag : 0; };
    const bool strike = format.fontStrikeOut();
    set(RtfCharWords::Bold, format.fontWeight() >= QFont::DemiBold);
    set(RtfCharWords::Italic, format.fontItalic());
    set(RtfCharWords::DoubleStrike, strike && format.boolProperty(DoubleStrike));
    set(RtfCharWords::Strike, strike && !format.boolProperty(DoubleStrike));
    set(RtfCharWords::Capitals, format.fontCapitalization() == QFont::AllUppercase);
    set(RtfCharWords::SmallCapitals, format.fontCapitalization() == QFont::SmallCaps);
    set(RtfCharWords::Hidden, IsHidden(format));
    return flags;
}

} // namespace

void WriteCharChange(const RtfCharWords& from, const RtfCharWords& to, RtfOutput& out) {
    for (const auto& [member, word] : kNumberWords) {
        if (from.*member != to.*member)
            out.Word(word, to.*member);
    }
    if (const int changed = from.flags ^ to.flags; changed != 0) {
        for (const auto& [flag, on, off] : kFlagWords) {
            if ((changed & flag) != 0)
                out.Words((to.flags & flag) != 0 ? on : off);
        }
    }
    if (from.underline != to.underline)
        out.Words(to.underline < 0 ? "\\ulnone" : kUnderlines[to.underline]);
    if (from.script != to.script)
        out.Words(to.script == 0 ? "\\nosupersub" : "\\sub");
    if (from.baseline != to.baseline)
        out.Word(to.baseline < 0 ? "\\dn" : "\\up", std::abs(to.baseline));
}

RtfCharFormats::RtfCharFormats(const QTextDocument& document, RtfNumbers& numbers)
    : m_numbers(numbers)
    , m_defaultFont(document.defaultFont()) {}

std::unique_ptr<RtfCharFormats::Entry> RtfCharFormats::Make(const QTextCharFormat& format) {
    auto entry = std::make_unique<Entry>();
    RtfCharWords& words = entry->words;
    const QStringList families = format.fontFamilies().toStringList();
    const int wanted = format.hasProperty(FontNumber) ? format.intProperty(FontNumber) : -1;
    words.font = m_numbers.Font(families.isEmpty() ? m_defaultFont.family() : families.first(), wanted,
                                FamilyOf(format), format.fontFixedPitch(), entry->uses);
    words.flags = FlagsOf(format);
    words.halfPoints = HalfPointsOf(format, m_defaultFont);
    words.underline = UnderlineOf(format);
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        entry->isRaised = true;
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        words.script = -1;
    // hidden text is drawn in no colour
    const bool hidden = (words.flags & RtfCharWords::Hidden) != 0;
    words.color = m_numbers.Color(hidden ? QBrush() : format.foreground(), false, entry->uses);
    words.behind = m_numbers.Color(format.background(), true, entry->uses);
    words.spacing = SpacingOf(format);
    words.baseline = format.intProperty(BaselineOffset);
    words.kerning = format.intProperty(Kerning);
    words.language = format.intProperty(Language);
    words.style = format.intProperty(CharacterStyle);
    entry->inSymbols = m_numbers.IsSymbolFont(words.font);

    RtfCharWords plain; // as \plain leaves it, with font and size told always
    plain.font = -1;
    plain.halfPoints = -1;
    RtfOutput out;
    out.Words("\\plain");
    WriteCharChange(plain, words, out);
    entry->full = out.View().toByteArray();
    return entry;
}

} // namespace platform
