// What the body of a form is made of once it is read: paragraphs, lists and tables in their order.
#pragma once

#include <QString>
#include <variant>
#include <vector>

namespace quillbrook {

// A stretch of text of one kind. U+2028 is a line break, U+0009 a tab.
struct Run {
    enum class Position { Normal, Superscript, Subscript };
    QString text;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    Position position = Position::Normal;

    bool SameKind(const Run& other) const {
        return bold == other.bold && italic == other.italic && underline == other.underline &&
               position == other.position;
    }
};

using Runs = std::vector<Run>;

inline QString PlainText(const Runs& runs) {
    QString text;
    for (const Run& run : runs)
        text += run.text;
    return text;
}

enum class ParagraphClass {
    Heading1,
    Heading2,
    Heading3,
    Text,
    Plain,
    Center,
    Right,
    Quote,
    Hang,
    Sign,
    SignLeft,
};

struct Paragraph {
    ParagraphClass kind = ParagraphClass::Text;
    Runs runs;
};

enum class Numbering { Bullet, Decimal, LowerLetter, UpperLetter, LowerRoman, UpperRoman };

struct ListItem;

struct List {
    Numbering numbering = Numbering::Bullet;
    bool inBrackets = false; // "(a)" instead of "a."
    int start = 1;
    std::vector<ListItem> items;
};

struct ListItem {
    Runs runs;
    std::vector<List> nested; // none or one
    int line = 1;
};

enum class CellAlignment { Left, Center, Right };

struct TableCell {
    Runs runs;
    CellAlignment alignment = CellAlignment::Left;
    int columnSpan = 1;
    int line = 1;
};

struct Table {
    bool border = false;
    std::vector<double> widths;               // of each column, percent of the text width; together 100
    std::vector<std::vector<TableCell>> rows; // each covers all columns
};

struct Block {
    int line = 1;
    bool newPage = false; // starts a new page; never with a table
    std::variant<Paragraph, List, Table> content;
};

} // namespace quillbrook
