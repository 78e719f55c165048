#pragma once

#include <QByteArray>
#include <QTextDocument>
#include <QTextFormat>
#include <memory>
#include <vector>

#include "platform/rich_text/rtf_numbers.h"

namespace platform {

class RtfOutput;

// The words of a document's paragraph formats, each made once.
class RtfBlockFormats {
public:
    struct Entry {
        QByteArray words; // \pard and what follows; not what tells the place in a table
        bool isList = false;
        QString marker;              // bullet or number as shown
        QByteArray oldList;          // group of the older form of lists, empty for none
        QByteArray oldListInSymbols; // the same for a place where a symbol font is on
        bool isFiller = false;
        QByteArray section; // control words of the section that ends with the paragraph; empty for none
        RtfNumbers::Uses uses;
    };

    RtfBlockFormats(const QTextDocument& document, RtfNumbers& numbers);

    // `index` is the format's number in the document; `format` gives the format when it is asked for.
    template <typename Format>
    const Entry& At(int index, Format&& format) {
        const auto place = static_cast<std::size_t>(index);
        if (m_entries.size() <= place)
            m_entries.resize(place + 64);
        if (!m_entries[place])
            m_entries[place] = Make(format());
        return *m_entries[place];
    }

    // Writes what makes the paragraph one of a list, and its marker for programs that do not count
    // themselves.
    static void WriteList(const Entry& entry, bool inSymbols, RtfOutput& out);

private:
    std::unique_ptr<Entry> Make(const QTextBlockFormat& format);

    RtfNumbers& m_numbers;
    double m_indentWidth; // pixels
    std::vector<std::unique_ptr<Entry>> m_entries;
};

} // namespace platform
