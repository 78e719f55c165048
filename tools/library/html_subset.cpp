#include "library/html_subset.h"

#include "library/html_inline.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

namespace quillbrook {
namespace {

struct ParagraphName {
    QLatin1String tag;
    QLatin1String className;
    ParagraphClass kind;
};

constexpr std::array<ParagraphName, 11> kParagraphs = {{
    {QLatin1String("h1"), QLatin1String(), ParagraphClass::Heading1},
    {QLatin1String("h2"), QLatin1String(), ParagraphClass::Heading2},
    {QLatin1String("h3"), QLatin1String(), ParagraphClass::Heading3},
    {QLatin1String("p"), QLatin1String(), ParagraphClass::Text},
    {QLatin1String("p"), QLatin1String("plain"), ParagraphClass::Plain},
    {QLatin1String("p"), QLatin1String("center"), ParagraphClass::Center},
    {QLatin1String("p"), QLatin1String("right"), ParagraphClass::Right},
    {QLatin1String("p"), QLatin1String("quote"), ParagraphClass::Quote},
    {QLatin1String("p"), QLatin1String("hang"), ParagraphClass::Hang},
    {QLatin1String("p"), QLatin1String("sign"), ParagraphClass::Sign},
    {QLatin1String("p"), QLatin1String("sign-left"), ParagraphClass::SignLeft},
}};

struct ListType {
    QLatin1String type;
    Numbering numbering;
    bool inBrackets;
};

constexpr std::array<ListType, 8> kListTypes = {{
    {QLatin1String("1"), Numbering::Decimal, false},
    {QLatin1String("a"), Numbering::LowerLetter, false},
    {QLatin1String("A"), Numbering::UpperLetter, false},
    {QLatin1String("i"), Numbering::LowerRoman, false},
    {QLatin1String("I"), Numbering::UpperRoman, false},
    {QLatin1String("(1)"), Numbering::Decimal, true},
    {QLatin1String("(a)"), Numbering::LowerLetter, true},
    {QLatin1String("(i)"), Numbering::LowerRoman, true},
}};

constexpr int kGreatestListStart = 999;

bool IsParagraph(const QString& tag) {
    return std::any_of(kParagraphs.begin(), kParagraphs.end(),
                       [&tag](const ParagraphName& known) { return tag == known.tag; });
}

bool IsList(const QString& tag) {
    return tag == QLatin1String("ol") || tag == QLatin1String("ul");
}

class Reader {
public:
    Reader(const std::vector<HtmlToken>& tokens, std::size_t first, SourceProblems& problems)
        : m_tokens(tokens)
        , m_problems(problems)
        , m_at(first) {}

    std::vector<Block> ReadAll() {
        while (!AtEnd())
            ReadTopLevel();
        if (m_newPage)
            Report(m_pageBreakLine, QStringLiteral("page break with nothing behind it"));
        return std::move(m_blocks);
    }

private:
    bool AtEnd() const { return m_at >= m_tokens.size(); }
    const HtmlToken& Here() const { return m_tokens[m_at]; }
    int Line() const { return AtEnd() ? (m_tokens.empty() ? 1 : m_tokens.back().endLine) : Here().line; }

    bool Report(int line, const QString& text) {
        m_problems.push_back({line, text});
        return false;
    }

    void SkipBlank() {
        while (!AtEnd() && Here().IsBlank())
            ++m_at;
    }

    void ReadTopLevel() {
        SkipBlank();
        if (AtEnd())
            return;
        const HtmlToken& token = Here();
        if (token.kind == HtmlToken::Kind::Text || IsInlineTag(token)) {
            Report(FirstTextLine(token), QStringLiteral("text outside of a paragraph"));
            while (!AtEnd() && (Here().kind == HtmlToken::Kind::Text || IsInlineTag(Here())))
                ++m_at;
        } else if (token.kind == HtmlToken::Kind::Close) {
            Report(token.line, QStringLiteral("</%1> closes nothing").arg(token.text));
            ++m_at;
        } else if (token.text == QLatin1String("pagebreak")) {
            ReadPageBreak();
        } else {
            ReadBlock();
        }
    }

    // The line of a token's first character that is no white space.
    static int FirstTextLine(const HtmlToken& token) {
        int line = token.line;
        for (const QChar c : token.text) {
            if (c == u'\n')
                ++line;
            else if (c != u' ' && c != u'\t')
                break;
        }
        return line;
    }

    void ReadPageBreak() {
        TakesOnly(Here(), {});
        if (m_newPage)
            Report(Line(), QStringLiteral("two page breaks in a row"));
        m_newPage = true;
        m_pageBreakLine = Line();
        ++m_at;
    }

    void ReadBlock() {
        const QString tag = Here().text;
        const std::size_t start = m_at;
        Block block;
        block.line = Line();
        block.newPage = std::exchange(m_newPage, false);
        bool good = false;
        if (IsParagraph(tag)) {
            good = ReadParagraph(block.content.emplace<Paragraph>());
        } else if (IsList(tag)) {
            good = ReadList(block.content.emplace<List>(), 1);
        } else if (tag == QLatin1String("table")) {
            good = ReadTable(block.content.emplace<Table>());
            if (good && block.newPage)
                good = Report(block.line,
                              QStringLiteral("page break before a table; put it before a paragraph"));
        } else {
            Report(block.line, QStringLiteral("unknown tag <%1>").arg(tag));
            ++m_at;
            return;
        }
        if (good)
            m_blocks.push_back(std::move(block));
        else
            SkipBehind(tag, start);
    }

    // After a problem in the block that begins at `start`: goes on behind its end or at the next paragraph or
    // table.
    void SkipBehind(const QString& tag, std::size_t start) {
        const auto ends = [this, &tag](std::size_t at) {
            return m_tokens[at].kind == HtmlToken::Kind::Close && m_tokens[at].text == tag;
        };
        if (m_at > start && ends(m_at - 1))
            return; // it was read to its end
        for (m_at = std::max(m_at, start + 1); !AtEnd(); ++m_at) {
            const HtmlToken& token = Here();
            if (ends(m_at)) {
                ++m_at;
                return;
            }
            if (token.kind == HtmlToken::Kind::Open &&
                (IsParagraph(token.text) || token.text == QLatin1String("table")))
                return;
        }
    }

    bool TakesOnly(const HtmlToken& token, std::initializer_list<QLatin1String> names) {
        bool good = true;
        for (const HtmlAttribute& attribute : token.attributes)
            if (std::find(names.begin(), names.end(), attribute.name) == names.end())
                good = Report(token.line,
                              QStringLiteral("<%1> takes no attribute %2").arg(token.text, attribute.name));
        return good;
    }

    bool Expect(HtmlToken::Kind kind, const QString& tag) {
        SkipBlank();
        if (!AtEnd() && Here().kind == kind && Here().text == tag) {
            ++m_at;
            return true;
        }
        const QString wanted =
            (kind == HtmlToken::Kind::Close ? QStringLiteral("</%1>") : QStringLiteral("<%1>")).arg(tag);
        if (AtEnd())
            return Report(Line(), QStringLiteral("%1 is missing at the end of the file").arg(wanted));
        if (Here().kind == HtmlToken::Kind::Text)
            return Report(Line(), QStringLiteral("text where %1 is expected").arg(wanted));
        return Report(Line(),
                      QStringLiteral("<%1%2> where %3 is expected")
                          .arg(Here().kind == HtmlToken::Kind::Close ? QStringLiteral("/") : QString(),
                               Here().text, wanted));
    }

    bool ReadParagraph(Paragraph& paragraph) {
        const HtmlToken& token = Here();
        if (!TakesOnly(token, {QLatin1String("class")}))
            return false;
        const std::optional<QString> className = token.Attribute(QLatin1String("class"));
        const auto known =
            std::find_if(kParagraphs.begin(), kParagraphs.end(), [&](const ParagraphName& name) {
                return token.text == name.tag &&
                       (className ? *className == name.className && !className->isEmpty()
                                  : name.className.isEmpty());
            });
        if (known == kParagraphs.end())
            return Report(token.line,
                          QStringLiteral("<%1> knows no class \"%2\"").arg(token.text, *className));
        paragraph.kind = known->kind;
        ++m_at;
        if (!ReadRuns(m_tokens, m_at, paragraph.runs, m_problems) ||
            !Expect(HtmlToken::Kind::Close, token.text))
            return false;
        return !paragraph.runs.empty() || Report(token.line, QStringLiteral("empty <%1>").arg(token.text));
    }

    bool ReadList(List& list, int level) {
        const HtmlToken& token = Here();
        if (level > kMostListLevels)
            return Report(token.line, QStringLiteral("lists nested too deep"));
        if (!ReadListAttributes(token, list))
            return false;
        ++m_at;
        for (SkipBlank(); AtEnd() || !(Here().kind == HtmlToken::Kind::Close && Here().text == token.text);
             SkipBlank())
            if (!ReadListItem(list.items.emplace_back(), level))
                return false;
        ++m_at;
        return !list.items.empty() || Report(token.line, QStringLiteral("empty <%1>").arg(token.text));
    }

    bool ReadListAttributes(const HtmlToken& token, List& list) {
        if (token.text == QLatin1String("ul"))
            return TakesOnly(token, {});
        if (!TakesOnly(token, {QLatin1String("type"), QLatin1String("start")}))
            return false;
        const QString type = token.Attribute(QLatin1String("type")).value_or(QStringLiteral("1"));
        const auto known = std::find_if(kListTypes.begin(), kListTypes.end(),
                                        [&type](const ListType& listType) { return type == listType.type; });
        if (known == kListTypes.end())
            return Report(token.line, QStringLiteral("unknown list type \"%1\"").arg(type));
        list.numbering = known->numbering;
        list.inBrackets = known->inBrackets;
        return ReadNumber(token, QLatin1String("start"), kGreatestListStart, list.start);
    }

    // An attribute that is a whole number from 1 to `greatest`; left as it is when it is not given.
    bool ReadNumber(const HtmlToken& token, QLatin1String name, int greatest, int& number) {
        const std::optional<QString> text = token.Attribute(name);
        if (!text)
            return true;
        bool isNumber = false;
        const int value = text->toInt(&isNumber);
        if (!isNumber || value < 1 || value > greatest)
            return Report(
                token.line,
                QStringLiteral("%1=\"%2\" is no number from 1 to %3").arg(name, *text).arg(greatest));
        number = value;
        return true;
    }

    bool ReadListItem(ListItem& item, int level) {
        const int line = Line();
        item.line = line;
        if (!AtEnd() && !TakesOnly(Here(), {}))
            return false;
        if (!Expect(HtmlToken::Kind::Open, QStringLiteral("li")) ||
            !ReadRuns(m_tokens, m_at, item.runs, m_problems))
            return false;
        if (item.runs.empty())
            return Report(line, QStringLiteral("empty <li>"));
        if (!AtEnd() && Here().kind == HtmlToken::Kind::Open && IsList(Here().text))
            if (!ReadList(item.nested.emplace_back(), level + 1))
                return false;
        return Expect(HtmlToken::Kind::Close, QStringLiteral("li"));
    }

    bool ReadTable(Table& table) {
        const HtmlToken& token = Here();
        if (!TakesOnly(token, {QLatin1String("border")}))
            return false;
        const QString border = token.Attribute(QLatin1String("border")).value_or(QStringLiteral("0"));
        if (border != QLatin1String("0") && border != QLatin1String("1"))
            return Report(token.line, QStringLiteral("border=\"%1\" is neither 0 nor 1").arg(border));
        table.border = border == QLatin1String("1");
        ++m_at;
        for (SkipBlank(); AtEnd() || !Here().IsClose(QLatin1String("table")); SkipBlank()) {
            if (table.rows.size() >= kMostTableRows)
                return Report(Line(), QStringLiteral("table of more than %1 rows").arg(kMostTableRows));
            if (!ReadRow(table))
                return false;
        }
        ++m_at;
        return !table.rows.empty() || Report(token.line, QStringLiteral("empty <table>"));
    }

    bool ReadRow(Table& table) {
        const int line = Line();
        if (!AtEnd() && !TakesOnly(Here(), {}))
            return false;
        if (!Expect(HtmlToken::Kind::Open, QStringLiteral("tr")))
            return false;
        const bool first = table.rows.empty();
        std::vector<TableCell>& row = table.rows.emplace_back();
        std::vector<double> widths; // 0 where none is given
        int columns = 0;
        for (SkipBlank(); AtEnd() || !Here().IsClose(QLatin1String("tr")); SkipBlank()) {
            double width = 0;
            if (!ReadCell(row.emplace_back(), width))
                return false;
            const int span = row.back().columnSpan;
            columns += span;
            if (columns > kMostTableColumns)
                return Report(row.back().line,
                              QStringLiteral("table of more than %1 columns").arg(kMostTableColumns));
            widths.insert(widths.end(), static_cast<std::size_t>(span), width / span);
        }
        ++m_at;
        if (row.empty())
            return Report(line, QStringLiteral("empty <tr>"));
        if (first)
            return ShareWidths(line, widths, table);
        const int wanted = static_cast<int>(table.widths.size());
        return columns == wanted ||
               Report(line, QStringLiteral("row of %1 columns in a table of %2").arg(columns).arg(wanted));
    }

    // Columns without a width share what the others leave.
    bool ShareWidths(int line, std::vector<double> widths, Table& table) {
        double given = 0;
        for (const double width : widths)
            given += width;
        const auto open = std::count(widths.begin(), widths.end(), 0.0);
        if (given > 100.001 || (open > 0 && given > 99))
            return Report(line, QStringLiteral("columns wider than the text"));
        for (double& width : widths)
            if (width == 0.0)
                width = (100 - given) / static_cast<double>(open);
        table.widths = std::move(widths);
        return true;
    }

    bool ReadCell(TableCell& cell, double& width) {
        if (AtEnd() || !(Here().IsOpen(QLatin1String("td")) || Here().IsOpen(QLatin1String("th"))))
            return Expect(HtmlToken::Kind::Open, QStringLiteral("td"));
        const HtmlToken& token = Here();
        cell.line = token.line;
        const bool heads = token.text == QLatin1String("th");
        if (!TakesOnly(token, {QLatin1String("width"), QLatin1String("align"), QLatin1String("colspan")}) ||
            !ReadAlignment(token, heads ? QLatin1String("center") : QLatin1String("left"), cell) ||
            !ReadWidth(token, width) ||
            !ReadNumber(token, QLatin1String("colspan"), kMostTableColumns, cell.columnSpan))
            return false;
        ++m_at;
        if (!ReadRuns(m_tokens, m_at, cell.runs, m_problems) || !Expect(HtmlToken::Kind::Close, token.text))
            return false;
        for (Run& run : cell.runs)
            run.bold |= heads;
        return true;
    }

    bool ReadAlignment(const HtmlToken& token, QLatin1String otherwise, TableCell& cell) {
        const QString align = token.Attribute(QLatin1String("align")).value_or(QString(otherwise));
        if (align == QLatin1String("left"))
            cell.alignment = CellAlignment::Left;
        else if (align == QLatin1String("center"))
            cell.alignment = CellAlignment::Center;
        else if (align == QLatin1String("right"))
            cell.alignment = CellAlignment::Right;
        else
            return Report(token.line, QStringLiteral("align=\"%1\" is not left, center or right").arg(align));
        return true;
    }

    bool ReadWidth(const HtmlToken& token, double& width) {
        const std::optional<QString> text = token.Attribute(QLatin1String("width"));
        if (!text)
            return true;
        bool isNumber = false;
        const int percent = text->endsWith(u'%') ? text->chopped(1).toInt(&isNumber) : 0;
        if (!isNumber || percent < 1 || percent > 100)
            return Report(token.line,
                          QStringLiteral("width=\"%1\" is no percentage from 1% to 100%").arg(*text));
        width = percent;
        return true;
    }

    const std::vector<HtmlToken>& m_tokens;
    SourceProblems& m_problems;
    std::vector<Block> m_blocks;
    std::size_t m_at = 0;
    bool m_newPage = false;
    int m_pageBreakLine = 1;
};

} // namespace

std::vector<Block> ReadBlocks(const std::vector<HtmlToken>& tokens, std::size_t first,
                              SourceProblems& problems) {
    return Reader(tokens, first, problems).ReadAll();
}

std::vector<Block> ReadBlocks(QStringView source, SourceProblems& problems) {
    return ReadBlocks(TokenizeHtml(source, problems), 0, problems);
}

} // namespace quillbrook
