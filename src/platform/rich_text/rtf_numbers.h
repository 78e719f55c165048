#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QTextFormat>
#include <optional>
#include <vector>

class QTextDocument;

namespace platform {

// Numbers that a file being written gives its fonts and colours. Those of the tables kept from the file that
// was read stay what they were, because kept groups refer to them; others are added behind them, in the order
// in which they are asked for.
class RtfNumbers {
public:
    // Added fonts and colours that a part of the document needs, in the order it needs them.
    using Uses = std::vector<int>;

    explicit RtfNumbers(const QTextDocument& document);

    // Number of a font. `wanted` is what it had in the file that was read, -1 for none; `family` is the kind
    // of RTF 1.9.1 (\froman is 1, ...). What had to be added is noted in `uses`.
    int Font(const QString& name, int wanted, int family, bool fixedPitch, Uses& uses);

    // Number of the colour of a brush, 0 for what the surroundings choose. As a colour `behind` something 0
    // means none, so that a colour never gets it.
    int Color(const QBrush& brush, bool behind, Uses& uses);

    bool IsSymbolFont(int number) const { return m_symbolFonts.value(number); }

    // How many of the added fonts and colours the uses name, null when they name others before the first
    // ones.
    struct Count {
        int fonts = 0;
        int colors = 0;
    };
    static std::optional<Count> CountOf(const std::vector<const Uses*>& uses);
    Count All() const {
        return {static_cast<int>(m_addedFonts.size()), static_cast<int>(m_addedColors.size())};
    }

    // Source of the tables with the first added entries.
    QByteArray FontTable(Count count) const;
    QByteArray ColorTable(Count count) const;

private:
    static constexpr int kAutomatic = -1;

    struct NewFont {
        int number = 0;
        QString name;
        int family = 0;
        bool fixedPitch = false;
    };

    void ReadFonts(const QByteArray& source);
    void EndFont(int number, const QString& name, int charset, int codePage);
    void ReadColors(const QByteArray& source);
    int NewColor(int rgb, Uses& uses);

    QByteArray m_fontSource; // without the closing brace
    QByteArray m_colorSource;
    QHash<int, QString> m_names;
    QHash<QString, int> m_fonts; // lowest number of each name
    QHash<int, bool> m_symbolFonts;
    int m_nextFont = 0;
    std::vector<int> m_colors; // kAutomatic or 0xRRGGBB
    std::vector<NewFont> m_addedFonts;
    std::vector<int> m_addedColors;
    std::size_t m_keptColors = 0;
    QHash<int, int> m_addedFontAt; // number -> place in m_addedFonts
};

} // namespace platform
