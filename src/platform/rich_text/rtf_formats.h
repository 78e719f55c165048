#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QTextFormat>
#include <vector>

#include "platform/rich_text/document_model.h"

namespace platform {

// Formats of characters as control words set them. All numbers, so that it is cheap to save, compare and
// hash.
struct RtfCharState {
    enum Flag : int {
        Bold = 1,
        Italic = 2,
        Strike = 4,
        DoubleStrike = 8,
        Hidden = 16,
        Capitals = 32,
        SmallCapitals = 64,
        Superscript = 128,
        Subscript = 256,
        Underline = 512,
    };

    int flags = 0;
    int font = -1; // number in the font table, -1 for none chosen
    int halfPoints = 24;
    int color = 0;      // number in the colour table
    int highlight = 0;  // the same
    int background = 0; // the same
    int underline = 0;  // UnderlineKinds
    int spacing = 0;    // twips
    int baseline = 0;   // half points, positive raised
    int kerning = 0;    // half points
    int language = 0;
    int style = 0;
    int field = 0;     // number of the field whose result this is
    int hyperlink = 0; // number of the hyperlink

    bool Has(Flag flag) const { return (flags & flag) != 0; }
    void Set(Flag flag, bool on) { flags = on ? flags | flag : flags & ~flag; }
    bool operator==(const RtfCharState&) const = default;
};

size_t qHash(const RtfCharState& state, size_t seed = 0);

struct RtfTab {
    int position = 0; // twips from the left margin of the page
    QTextOption::TabType type = QTextOption::LeftTab;
    bool operator==(const RtfTab&) const = default;
};

// The older form of lists, kept in the paragraph's format (\pn).
struct RtfOldList {
    bool active = false;
    int kind = 0; // ListKinds
    int start = 1;
    QString before;
    QString after;
    bool operator==(const RtfOldList&) const = default;
};

// Formats of a paragraph as control words set them; lengths in twips.
struct RtfParaState {
    int alignment = Qt::AlignLeft;
    int left = 0;
    int right = 0;
    int firstLine = 0;
    int before = 0;
    int after = 0;
    int lineHeight = 0;
    bool lineHeightIsMultiple = false;
    bool keepTogether = false;
    bool keepWithNext = false;
    bool pageBreakBefore = false;
    bool widowControl = false;
    bool rightToLeft = false;
    bool inTable = false;
    int tableLevel = 0; // 0 for not told
    int style = 0;
    int outline = -1;
    int shading = 0;
    int background = 0; // number in the colour table
    int list = 0;       // number of the list override
    int listLevel = 0;
    QList<RtfTab> tabs;
    QByteArray borders;
    RtfOldList oldList;
    bool operator==(const RtfParaState&) const = default;

    // How deep in tables the paragraph stands; 0 outside of them.
    int Level() const { return inTable ? qMax(1, tableLevel) : 0; }
};

size_t qHash(const RtfParaState& state, size_t seed = 0);

struct RtfFont {
    QString name;
    int family = 0; // 0 none told, 1 roman, 2 swiss, 3 modern, 4 script, 5 decorative, 6 symbols
    int charset = -1;
    int codePage = 0; // 0: the document's
    bool fixedPitch = false;
};

struct RtfColor {
    int rgb = 0;
    bool automatic = true;
};

// What the numbers in the states mean.
struct RtfTables {
    QHash<int, RtfFont> fonts;
    std::vector<RtfColor> colors;
    std::vector<QString> hyperlinks; // from 1 on
    int defaultFont = 0;

    // Null for a colour that is not told or that the surroundings choose.
    QBrush Brush(int color) const;
};

// Makes Qt's formats of the states, each once.
class RtfFormats {
public:
    explicit RtfFormats(const RtfTables& tables)
        : m_tables(tables) {}

    // Number of the format in At().
    int Index(const RtfCharState& state);

    // The tables have changed: what a state means is found out anew.
    void ForgetStates() { m_indices.clear(); }

    // Number of a format that is like no other: a picture, a kept object.
    int Add(const QTextCharFormat& format);

    const QTextCharFormat& At(int index) const { return m_formats[static_cast<std::size_t>(index)]; }

    // `marker` is the paragraph's bullet or number as shown, empty for none.
    QTextBlockFormat Paragraph(const RtfParaState& state, const QString& marker);

private:
    QTextCharFormat Make(const RtfCharState& state) const;
    void SetFont(const RtfCharState& state, QTextCharFormat& format) const;
    QTextBlockFormat Make(const RtfParaState& state);

    const RtfTables& m_tables;
    std::vector<QTextCharFormat> m_formats;
    QHash<RtfCharState, int> m_indices;
    QHash<RtfParaState, QTextBlockFormat> m_paragraphs;
    QSet<QString> m_markers;
    QSet<QByteArray> m_borders; // different ones kept
};

} // namespace platform
