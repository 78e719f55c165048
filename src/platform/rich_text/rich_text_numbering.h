// The numbers of paragraphs of lists. A marker is text as the file has it; who adds or takes away paragraphs
// has to count again.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>

#include "platform/rich_text/document_model.h"

class QTextDocument;

namespace platform {

// A number as a list of the kind shows it: "7", "g", "VII"; empty for kinds without numbers.
QString ListNumberText(int number, ListKinds kind);

// The number that `text` shows in a list of the kind, from 1 on; empty optional when it shows none.
std::optional<int> ListNumberOf(QStringView text, ListKinds kind);

// Counts the markers of lists again after an edit: of the paragraphs that the positions `from` to `to` touch,
// and of those behind them that went on from there. `paragraphs` is how many were added or taken away;
// numbers that are farther off than that are meant to be so and stay.
void ContinueNumbers(QTextDocument& document, int from, int to, int paragraphs);

} // namespace platform
