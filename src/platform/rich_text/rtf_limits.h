// How much of a hostile file is honoured. Everything beyond is read as if it were not there, or in a plainer
// form.
#pragma once

#include <QtGlobal>

namespace platform {

constexpr int kMostGroups = 20'000;  // groups inside one another whose formats are told apart
constexpr int kMostFonts = 4'096;    // entries of the font table
constexpr int kMostColors = 4'096;   // entries of the colour table
constexpr int kMostStyles = 4'096;   // entries of the style sheet
constexpr int kMostLists = 4'096;    // lists, and list overrides
constexpr int kMostFormats = 12'000; // different formats of characters, of paragraphs, of cells
constexpr int kMostSections = 1'000; // section breaks kept
constexpr int kMostTabs = 64;        // tab stops of a paragraph
constexpr int kMostColumns = 63;     // cells of a table row
constexpr int kMostTableLevels = 8;  // tables inside one another; laying out deeper ones takes seconds
constexpr int kMostCells = 250'000;  // table cells of a document
constexpr qint64 kMostMergeWork =
    1'000'000;                         // rows * columns * merges of one table, as Qt's merging costs that
constexpr int kMostUnicodeSkip = 255;  // bytes that stand for one \u
constexpr int kMostTwips = 31'680;     // any length: 22 inches
constexpr int kMostHalfPoints = 3'276; // font sizes
constexpr int kMostWords = 4'096;      // bytes of control words kept as they stood, for one thing
constexpr int kMostCapture = 65'536;   // characters of a font's name, a field's instruction, a marker
constexpr qint64 kMostPicturePixels = 8'000'000;   // of one picture as drawn; larger ones are scaled down
constexpr qint64 kMostDocumentPixels = 64'000'000; // of all pictures as drawn

} // namespace platform
