#pragma once

#include <array>

namespace quillbrook {

// How the words of a query go together.
enum class SearchMode { All, Any, Phrase };

// The two buttons of a mode and how its queries are read back to the user.
struct SearchModeFacts {
    SearchMode mode;
    const char* button;      // small, beside the query box
    const char* caption;     //
    const char* twin;        // large, there until the first character is typed
    const char* twinCaption; //
    const char* toolTip;     // of both
    const char* sentence;    // of lblSearchGuide
    const char* joiner;      // stands for the blank between two words in lblSearchGuide1
};

constexpr SearchModeFacts kSearchModes[] = {
    {SearchMode::All, "optAND", "All Words", "optAND1", "All Words (Find Forms w/ ALL the words)",
     "Find Forms with ALL the search words.", "Find Forms that have ALL the words:", " + "},
    {SearchMode::Any, "optOR", "Any / Either", "optOR1", "Any / Either (Find Forms w/ ANY of the words)",
     "Find Forms with ANY or EITHER of the search words.", "Find Forms that have ANY of the words:", " or "},
    {SearchMode::Phrase, "optPHRASE", "Phrase", "optPHRASE1", "Entire Phrase (Find Forms w/ the phrase)",
     "Find Forms containing the ENTIRE PHRASE.", "Find Forms that have the PHRASE:", " "},
};

constexpr const SearchModeFacts& FactsOf(SearchMode mode) {
    return kSearchModes[static_cast<unsigned>(mode)];
}

} // namespace quillbrook
