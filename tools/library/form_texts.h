#pragma once

#include "library/form_source.h"

namespace quillbrook {

// The text of one paragraph, list item or cell of a form, and the line of its source on which it begins.
struct FormText {
    int line = 1;
    QString text; // U+2028 is a line break, U+0009 a tab
};

using FormTexts = std::vector<FormText>;

// All texts of a form in their order; empty cells are left out.
FormTexts TextsOf(const std::vector<Block>& blocks);

// A stretch of letters. An apostrophe between two letters belongs to it and is given as U+0027; so do not
// digits: "42nd" has no word, "P5,000 a month" has "a" and "month".
struct Word {
    int line = 1;
    QString text;
};

std::vector<Word> WordsOf(const FormTexts& texts);

} // namespace quillbrook
