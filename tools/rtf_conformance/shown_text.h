#pragma once

#include <QString>

class QTextDocument;

namespace quillbrook {

// Stand around what programs work out anew when they open a file: results of fields that tell dates, page
// numbers, cross references, the file's name and properties; the numbers of notes. Those of list items begin
// with a mark of their own, which stands in front of every paragraph.
constexpr char16_t kComputedBegin = 0xFFF9;
constexpr char16_t kComputedEnd = 0xFFFB;
constexpr char16_t kNumberBegin = 0xFFFA;

// The text of a document as other programs export it: the number of a list item in front of its paragraph,
// that of a footnote where its mark stands, hidden text among the rest, one '\n' behind each paragraph.
// Bullets are left out, and letters of symbol fonts, as programs do not agree which characters these are.
QString ShownText(const QTextDocument& document);

// Text as it is compared with what another program makes of the same file: blanks of all kinds, tabs and ends
// of lines and paragraphs are one blank, none at either end; hyphens that hold a line together are hyphens;
// bullets, soft hyphens, marks of direction and what stands for a picture or an object are left out.
QString FoldedText(const QString& text);

enum class ComputedResults { MustAgree, MayDiffer };

// Where the text of a document, see ShownText(), and that of another program part: some characters before and
// behind that place of each. Empty when they are equal but for what folding takes away and, where it may
// differ, what stands between the marks above: anything of some length for a result, a
// number or none in front of a paragraph.
QString TextDifference(const QString& shown, const QString& theirs, ComputedResults computed);

} // namespace quillbrook
