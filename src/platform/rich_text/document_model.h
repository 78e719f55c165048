// How the content of a rich text file is held in a QTextDocument: what Qt's own format properties carry is
// there (bold, lists as block properties, tables, images); what Qt has no property for is carried by the
// properties named here, so that a document read and written again is the same document.
//
// Conventions between reader, writer and pane:
// - Text: U+2028 is a line break inside a paragraph, U+0009 a tab, U+FFFC one picture or kept object. A page
//   break is Qt's PageBreak_AlwaysBefore of the paragraph that follows it.
// - Lists: no QTextList. A paragraph of a list has a BulletText and usually a hanging indent (negative
//   textIndent); the marker is no part of the text and is drawn at the first line's start.
// - Tab stops: Qt counts them from the start of the first line, so tabPositions() holds the file's position
//   less leftMargin and textIndent. A hanging paragraph has one more left stop at -textIndent, which files
//   imply.
// - Hidden text stays in the text with a size of one pixel; HiddenSize keeps the size it has when shown.
// - Tables: the columns are the union of all rows' cell edges (CellRightEdges of the table format, in twips
//   from the page's left margin, TableLeft being the left edge); a cell that covers several has a columnSpan,
//   vertically merged cells a rowSpan. A cell with CellFiller stands where a row is shorter than the others:
//   the file has no cell there. Each cell's format carries CellBorders (and Qt's own cell borders, background
//   and vertical alignment drawn from it); RowControls stands in the format of the first cell of each row.
// - Qt needs a paragraph before, between and after tables. Where the file has none, the empty block has
//   Filler.
// - Pictures: a QTextImageFormat whose name() is the key of PictureDataName() and PictureFormatName();
//   width() and height() are what is drawn, PictureWidth and PictureHeight the same in twips.
// - Kept groups (EmbeddedObject, HeadersAndFooters, StyleSheet, ...) are 7-bit source. Their font, colour,
//   list and style numbers are those of the kept FontTable, ColorTable, ListTables and StyleSheet, and \'hh
//   in them is of the FileCodePage unless the font says otherwise: who writes them must write those tables'
//   entries under the same numbers. A picture with an EmbeddedObject is the drawn result of an object: the
//   object is written, not the picture.
#pragma once

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFormat>
#include <QUrl>

namespace platform {

// Qt counts lengths in pixels at 96 to the inch, rich text files in twips at 1,440 to the inch.
constexpr double kTwipsPerPixel = 15.0;
constexpr double TwipsToPixels(double twips) {
    return twips / kTwipsPerPixel;
}
constexpr double PixelsToTwips(double pixels) {
    return pixels * kTwipsPerPixel;
}

// The size of a Filler's end in points, which no file tells: half points are the least there.
constexpr double kFillerPoints = 0.75;

// Properties of characters.
enum CharProperty {
    HiddenText = QTextFormat::UserProperty + 1, // bool: hidden text (\v); kept, not shown
    Language,                                   // int: language id (\lang)
    FieldId,          // int > 0: all characters of one field's result share it; the instruction is in the
                      //      document's FieldInstructions under this number
    DoubleStrike,     // bool (\striked)
    UnderlineKind,    // int: UnderlineKinds other than a plain line
    EmbeddedObject,   // QByteArray: the source of a whole group that the character U+FFFC stands for and that
                      // is
                      //      kept though not drawn (footnote, shape, object)
    PictureWidth,     // int, twips: wanted width of a picture (\picwgoal, scaled)
    PictureHeight,    // int, twips
    CharacterSpacing, // int, twips (\expndtw)
    BaselineOffset,   // int, half points: raised (positive) or lowered text (\up, \dn)
    Kerning,          // int, half points (\kerning)
    CharacterStyle,   // int: number of the style in the style sheet (\cs)
    HiddenSize,       // int, half points: size of hidden text when shown
    ObjectNumber, // int > 0: tells embedded objects apart (Qt's format hash does not look into byte arrays)
    FontNumber,   // int: number of the font in the kept FontTable
};

// Properties of paragraphs. Qt's own carry alignment, margins, first-line indent, spacing, line height, tab
// stops, page break before.
enum BlockProperty {
    BulletText =
        QTextFormat::UserProperty + 101, // QString: the marker as shown (a bullet, "1.", "(a)"); set on
                                         //      paragraphs of a list
    ListKind,                            // int: ListKinds
    ListOverride,     // int: number of the list in the file's list override table (\ls), 0 for none
    ListLevel,        // int, from 0 (\ilvl)
    ListStart,        // int: first number (\pnstart)
    ListTextBefore,   // QString (\pntxtb)
    ListTextAfter,    // QString (\pntxta)
    KeepWithNext,     // bool (\keepn)
    WidowControl,     // bool (\widctlpar)
    ParagraphStyle,   // int: number of the style in the style sheet (\s)
    OutlineLevel,     // int (\outlinelevel)
    ParagraphBorder,  // QByteArray: the border control words of the paragraph as they stood
    ParagraphShading, // int, hundredths of a percent (\shading)
    RightToLeft,      // bool (\rtlpar)
    SectionBreak, // QByteArray: section control words that follow this paragraph (\sect and what it resets)
    Filler, // bool: an empty block that Qt needs beside a table; no paragraph of the file while it is empty
    KeepTogether, // bool: all lines on one page (\keep)
};

// Properties of table cells and tables.
enum TableProperty {
    CellBorders = QTextFormat::UserProperty + 201, // QByteArray: cell border control words as they stood
    RowControls, // QByteArray: row control words that are kept as they stood (\trgaph, \trleft, \trhdr, ...)
    CellRightEdges, // QVariantList of int, twips: right edge of each column (\cellx)
    CellFiller,     // bool: the file's row has no cell here
    TableLeft,      // int, twips: left edge of the first column (\trleft)
};

// Properties of the whole document, held by its root frame's format.
enum DocumentProperty {
    PaperWidth = QTextFormat::UserProperty + 301, // int, twips (\paperw)
    PaperHeight,                                  // int, twips (\paperh)
    MarginLeft,                                   // int, twips (\margl)
    MarginRight,
    MarginTop,
    MarginBottom,
    Landscape,         // bool
    HeadersAndFooters, // QVariantList of QByteArray: source of each {\header...}, {\footer...} group
    StyleSheet,        // QByteArray: source of the {\stylesheet...} group
    ListTables,        // QByteArray: source of the list table and list override table groups
    InfoGroup,         // QByteArray: source of the {\info...} group
    FieldInstructions, // QVariantMap: field number (as text) -> instruction text
    DefaultLanguage,   // int (\deflang)
    DefaultTab,        // int, twips (\deftab)
    FontTable,         // QByteArray: source of the {\fonttbl...} group
    ColorTable,        // QByteArray: source of the {\colortbl...} group
    FileCodePage,      // int: code page of \'hh in kept groups (\ansicpg)
    SectionControls,   // QByteArray: section control words of the last section
    FootnoteSettings,  // QByteArray: document-wide control words kept as they stood (\ftnbj, \viewkind, ...)
    DefaultFont,       // int: number of the font that \plain chooses, in the kept FontTable (\deff)
};

inline bool IsHidden(const QTextCharFormat& format) {
    return format.boolProperty(HiddenText);
}

// Whether a block is no paragraph of the file. One with text is, whatever its format says.
inline bool IsFiller(const QTextBlock& block) {
    return block.length() <= 1 && block.blockFormat().boolProperty(Filler);
}

enum class ListKinds { None, Bullet, Decimal, LowerLetter, UpperLetter, LowerRoman, UpperRoman };
enum class UnderlineKinds { Plain, Words, Double, Dotted, Dash, DashDot, Wave, Thick };

// Kinds of the two resources below; "png", "jpeg", "wmf", "emf", "dib", "pict" or "wbitmap" are the formats.
constexpr int PictureData = QTextDocument::UserResource + 1;   // QByteArray
constexpr int PictureFormat = QTextDocument::UserResource + 2; // QByteArray

// The bytes of each picture are resources of the document: under the picture's name (ImageResource) what is
// drawn, under these names the file's own bytes and their format. Qt tells resources apart by name alone, not
// by type.
inline QUrl PictureDataName(const QString& pictureName) {
    return QUrl(pictureName + QStringLiteral(".data"));
}
inline QUrl PictureFormatName(const QString& pictureName) {
    return QUrl(pictureName + QStringLiteral(".format"));
}

} // namespace platform
