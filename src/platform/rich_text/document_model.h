// How the content of a rich text file is held in a QTextDocument: what Qt's own format properties carry is
// there (bold, lists as block properties, tables, images); what Qt has no property for is carried by the
// properties named here, so that a document read and written again is the same document.
#pragma once

#include <QTextDocument>
#include <QTextFormat>

namespace platform {

// Qt counts lengths in pixels at 96 to the inch, rich text files in twips at 1,440 to the inch.
constexpr double kTwipsPerPixel = 15.0;
constexpr double TwipsToPixels(double twips) { return twips / kTwipsPerPixel; }
constexpr double PixelsToTwips(double pixels) { return pixels * kTwipsPerPixel; }

// Properties of characters.
enum CharProperty {
    HiddenText = QTextFormat::UserProperty + 1, // bool: hidden text (\v); kept, not shown
    Language,                                   // int: language id (\lang)
    FieldId,          // int > 0: all characters of one field's result share it; the instruction is in the
                      //      document's FieldInstructions under this number
    DoubleStrike,     // bool (\striked)
    UnderlineKind,    // int: UnderlineKinds other than a plain line
    EmbeddedObject,   // QByteArray: the source of a whole group that the character U+FFFC stands for and that is
                      //      kept though not drawn (footnote, shape, object)
    PictureWidth,     // int, twips: wanted width of a picture (\picwgoal, scaled)
    PictureHeight,    // int, twips
    CharacterSpacing, // int, twips (\expndtw)
    BaselineOffset,   // int, half points: raised (positive) or lowered text (\up, \dn)
    Kerning,          // int, half points (\kerning)
    CharacterStyle,   // int: number of the style in the style sheet (\cs)
};

// Properties of paragraphs. Qt's own carry alignment, margins, first-line indent, spacing, line height, tab
// stops, page break before, keep together.
enum BlockProperty {
    BulletText = QTextFormat::UserProperty + 101, // QString: the marker as shown (a bullet, "1.", "(a)"); set on
                                                  //      paragraphs of a list
    ListKind,        // int: ListKinds
    ListOverride,    // int: number of the list in the file's list override table (\ls), 0 for none
    ListLevel,       // int, from 0 (\ilvl)
    ListStart,       // int: first number (\pnstart)
    ListTextBefore,  // QString (\pntxtb)
    ListTextAfter,   // QString (\pntxta)
    KeepWithNext,    // bool (\keepn)
    WidowControl,    // bool (\widctlpar)
    ParagraphStyle,  // int: number of the style in the style sheet (\s)
    OutlineLevel,    // int (\outlinelevel)
    ParagraphBorder, // QByteArray: the border control words of the paragraph as they stood
    ParagraphShading, // int, hundredths of a percent (\shading)
    RightToLeft,     // bool (\rtlpar)
    SectionBreak,    // QByteArray: section control words that follow this paragraph (\sect and what it resets)
};

// Properties of table cells and tables.
enum TableProperty {
    CellBorders = QTextFormat::UserProperty + 201, // QByteArray: cell border control words as they stood
    RowControls,     // QByteArray: row control words that are kept as they stood (\trgaph, \trleft, \trhdr, ...)
    CellRightEdges,  // QVariantList of int, twips: right edge of each column (\cellx)
};

// Properties of the whole document, held by its root frame's format.
enum DocumentProperty {
    PaperWidth = QTextFormat::UserProperty + 301, // int, twips (\paperw)
    PaperHeight,       // int, twips (\paperh)
    MarginLeft,        // int, twips (\margl)
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
};

enum class ListKinds { None, Bullet, Decimal, LowerLetter, UpperLetter, LowerRoman, UpperRoman };
enum class UnderlineKinds { Plain, Words, Double, Dotted, Dash, DashDot, Wave, Thick };

// The bytes of each picture are a resource of the document (QTextDocument::ImageResource keeps what is drawn);
// the resource of type PictureData under the same name keeps the file's own bytes, and PictureFormat its kind.
constexpr int PictureData = QTextDocument::UserResource + 1;   // QByteArray
constexpr int PictureFormat = QTextDocument::UserResource + 2; // QByteArray: "png", "jpeg", "wmf", "emf", "dib"

} // namespace platform
