#pragma once

#include <QByteArray>
#include <QFont>
#include <QTextDocument>
#include <QTextFormat>
#include <memory>
#include <vector>

#include "platform/rich_text/rtf_numbers.h"

namespace platform {

class RtfOutput;

// Format of characters as control words tell it.
struct RtfCharWords {
    enum Flag {
        Bold = 1,
        Italic = 2,
        Strike = 4,
        DoubleStrike = 8,
        Capitals = 16,
        SmallCapitals = 32,
        Hidden = 64,
    };

    int flags = 0;
    int font = 0;
    int halfPoints = 24;
    int underline = -1; // UnderlineKinds, -1 for none
    int script = 0;     // -1 lowered; for raised text see RtfCharFormats::Entry
    int color = 0;
    int behind = 0;
    int spacing = 0;  // twips
    int baseline = 0; // half points
    int kerning = 0;  // half points
    int language = 0;
    int style = 0;
    bool operator==(const RtfCharWords&) const = default;
};

// Writes what leads from one format to another, nothing when they are the same.
void WriteCharChange(const RtfCharWords& from, const RtfCharWords& to, RtfOutput& out);

// The words of a document's character formats, each made once.
class RtfCharFormats {
public:
    struct Entry {
        RtfCharWords words;
        QByteArray full; // from nothing, \plain included
        bool inSymbols = false;
        // Raised text stands in a group of its own behind \\super, as LibreOffice loses what follows the word
        // until the end of its group.
        bool isRaised = false;
        RtfNumbers::Uses uses;
    };

    RtfCharFormats(const QTextDocument& document, RtfNumbers& numbers);

    // Words of characters whose format has the number `index` in the document; `format` gives the format when
    // it is asked for.
    template <typename Format>
    const Entry& At(int index, Format&& format) {
        return Find(m_entries, index, format);
    }

    // The same of the end of a cell's first paragraph, whose format is the cell's own: what is drawn of the
    // cell is not told of the character.
    template <typename Format>
    const Entry& AtCellStart(int index, Format&& format) {
        return Find(m_cellStarts, index, [&format] {
            QTextCharFormat mark = format();
            mark.clearBackground();
            mark.clearProperty(QTextFormat::TextVerticalAlignment);
            return mark;
        });
    }

private:
    using Entries = std::vector<std::unique_ptr<Entry>>;

    template <typename Format>
    const Entry& Find(Entries& entries, int index, Format&& format) {
        const auto place = static_cast<std::size_t>(index);
        if (entries.size() <= place)
            entries.resize(place + 64);
        if (!entries[place])
            entries[place] = Make(format());
        return *entries[place];
    }

    std::unique_ptr<Entry> Make(const QTextCharFormat& format);

    RtfNumbers& m_numbers;
    QFont m_defaultFont;
    Entries m_entries;
    Entries m_cellStarts;
};

} // namespace platform
