#pragma once

#include <QHash>
#include <QString>
#include <QTextDocument>
#include <QTextFormat>
#include <QVariantMap>
#include <vector>

namespace platform {

// The target of a HYPERLINK field's instruction, a bookmark behind '#'; empty for any other field.
QString HyperlinkTarget(const QString& instruction);

// The instruction of a field that leads to `target`.
QString HyperlinkInstruction(const QString& target);

// What field characters of one format stand in. Numbers above 0 are those of the document's fields, below 0
// hyperlinks that no field of the document tells of; 0 is none.
struct RtfFieldKey {
    int field = 0;
    int link = 0; // hyperlink that must be around the field, 0 for none
    bool operator==(const RtfFieldKey&) const = default;
};

// Fields of a document by the formats of its characters.
class RtfFieldKeys {
public:
    explicit RtfFieldKeys(const QTextDocument& document);

    // `index` is the format's number in the document; `format` gives the format when it is asked for.
    template <typename Format>
    RtfFieldKey At(int index, Format&& format) {
        const auto place = static_cast<std::size_t>(index);
        if (m_keys.size() <= place)
            m_keys.resize(place + 64, {kUnknown, 0});
        if (m_keys[place].field == kUnknown)
            m_keys[place] = Make(format());
        return m_keys[place];
    }

    QString Instruction(int field) const;
    // Hyperlink that a field is, 0 for none.
    int LinkOf(int field) const { return field < 0 ? field : m_linkOfField.value(field); }

private:
    static constexpr int kUnknown = -0x7FFFFFFF;

    RtfFieldKey Make(const QTextCharFormat& format);
    int LinkNumber(const QString& target);

    QVariantMap m_instructions;
    std::vector<RtfFieldKey> m_keys;
    QHash<QString, int> m_links;
    std::vector<QString> m_targets;
    QHash<int, int> m_linkOfField;
};

// What to do before the characters of the next key: close so many groups, then open these fields.
struct RtfFieldStep {
    int close = 0;
    int openOuter = 0;
    int open = 0;
    bool operator==(const RtfFieldStep&) const = default;
};

// The steps of one part of a document.
struct RtfFieldSteps {
    int openBefore = 0; // groups open when the part starts
    std::vector<RtfFieldStep> steps;
    int closeAfter = 0;
    bool operator==(const RtfFieldSteps&) const = default;
};

// Keys of one part in their order, neighbours unlike; empty when all of them are none.
using RtfFieldSequence = std::vector<RtfFieldKey>;

// Nests the fields of all parts: a field that goes on behind another one is around it, even across
// paragraphs. `parts` may hold nulls for parts without fields.
std::vector<RtfFieldSteps> PlanFields(const std::vector<const RtfFieldSequence*>& parts,
                                      const RtfFieldKeys& keys);

} // namespace platform
