// What a form must hold to be of use: rules on its text, each by itself. What a rule finds is given back with
// the line of the source; nothing when the form keeps the rule.
#pragma once

#include "library/form_texts.h"

namespace quillbrook {

constexpr std::size_t kShortestForm = 100; // words

// Places of clauses that no command finds: in small letters, in other brackets or none of a pair, spelt
// almost rightly, with blanks inside, or within a longer text.
SourceProblems CheckMarkerSpelling(const FormTexts& texts);

// A kind of instrument without the place for the clause that it needs: a jurat under an affidavit, an
// acknowledgment under a deed, a verification under a complaint. The form's own text may serve instead.
SourceProblems CheckMarkersPresent(const FormSource& form);

// A form without a blank to fill, and blanks drawn too short or with dots.
SourceProblems CheckBlanks(const FormTexts& texts);

// A form of fewer than kShortestForm words.
SourceProblems CheckLength(const FormTexts& texts);

// Round and square brackets and typographic double quotes that do not pair within their text. Three things
// pair with nothing by custom: the bracket of "a) the first" at the beginning of a line, the bracket behind a
// tab that draws the venue's line, and the opening quote that each paragraph of a long quotation repeats.
SourceProblems CheckBrackets(const FormTexts& texts);

} // namespace quillbrook
