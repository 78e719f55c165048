#pragma once

#include <QByteArray>

#include "platform/rich_text/rtf_numbers.h"

class QTextDocument;

namespace platform {

// Source of all that stands before the text: tables, document and section controls, headers and footers.
// `added` is how many of the numbers' added entries are written; `hasSections` whether a paragraph of the
// text ends a section.
QByteArray RtfHeader(const QTextDocument& document, const RtfNumbers& numbers, RtfNumbers::Count added,
                     bool hasSections);

// Source of what stands behind the text.
QByteArray RtfEnd(const QTextDocument& document, bool hasSections);

} // namespace platform
