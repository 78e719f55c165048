#pragma once

#include <QString>
#include <optional>

namespace quillbrook {

// What a clause replaces in a pane: characters of its plain text as the pane counts them. With a length of 0
// the clause goes in front of the character at `start`.
struct ClausePlace {
    int start = 0;
    int length = 0;

    bool operator==(const ClausePlace&) const = default;
};

// The text that a pane is to have before a jurat or verification can go into either of the two panes: two
// blanks for one that is empty or holds one blank. Empty for a pane that stays as it is.
std::optional<QString> PreparedText(const QString& text);

// Where a jurat or verification goes: in place of the first `marker`, capitals or not, or at the end when
// there is none. Empty when the text is too short to take one.
std::optional<ClausePlace> PlaceOfClause(const QString& text, const QString& marker);

// Where a caption goes: on top, whatever the pane holds.
constexpr ClausePlace PlaceOfCaption() {
    return {};
}

// Inserts into a pane with SelStart, SelLength and SelText. A clause that is not in the library is an empty
// text, which takes the marker away.
template <typename Pane>
void InsertClauseAt(Pane& pane, const ClausePlace& place, const QString& clause) {
    pane.setSelStart(place.start);
    if (place.length > 0)
        pane.setSelLength(place.length);
    pane.setSelText(clause);
}

// Gets a pane ready for a jurat or verification.
template <typename Pane>
void PreparePane(Pane& pane) {
    if (const std::optional<QString> text = PreparedText(pane.Text()))
        pane.setText(*text);
}

// Inserts a jurat or verification into the active pane, which is ready for it.
template <typename Pane>
void InsertClause(Pane& active, const QString& marker, const QString& clause) {
    if (const std::optional<ClausePlace> place = PlaceOfClause(active.Text(), marker))
        InsertClauseAt(active, *place, clause);
}

} // namespace quillbrook
