#pragma once

#include <QString>

class QTextDocument;

namespace quillbrook {

// Stand around the results of fields that programs work out anew when they open a file: dates, page numbers,
// the file's name and properties.
constexpr char16_t kComputedBegin = 0xFFF9;
constexpr char16_t kComputedEnd = 0xFFFB;

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
// differ, the results between the marks above.
QString TextDifference(const QString& shown, const QString& theirs, ComputedResults computed);

} // namespace quillbrook
