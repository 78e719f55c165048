#pragma once

#include "search/search_mode.h"

#include <QString>

namespace quillbrook {

// The passes that keep the operator words AND, OR and NOT out of a query. Each takes the text of the query
// box and gives what becomes of it. A word is an operator only where it stands alone.

// Takes up to eight operators, each with the blank behind it, from the start. Nothing in Phrase mode.
QString StripLeadingOperators(const QString& query, SearchMode mode);

// Takes an OR and then an AND or NOT from the end where a blank follows; the blank in front stays. Nothing in
// Phrase mode. When the text changes the caret is to go to its end.
QString StripTrailingOperators(const QString& query, SearchMode mode);

// Makes one blank of each operator between two blanks. Of two equal operators in a row, which share a blank,
// only the first goes. Nothing in Phrase mode.
QString RemoveOperatorWords(const QString& query, SearchMode mode);

// Takes an operator from the end that no blank follows; the blank in front stays. In every mode.
QString StripDanglingOperators(const QString& query);

// What a click on the button of `mode` makes of the query: all four passes, or none in Phrase mode.
QString StripForMode(const QString& query, SearchMode mode);

// The letter, digit and blank keys pressed in the query box, of which the last ones tell whether the user has
// just typed an operator.
class QueryKeyTrail {
public:
    // Any key but Enter; `key` as in Qt::Key. A key that is no letter, digit or blank parts what it stands
    // between, Shift too.
    void Append(int key);
    void Clear() { m_last.clear(); }
    bool EndsWith(QLatin1String keys) const { return m_last.endsWith(keys); } // at most four keys
    const QString& Last() const { return m_last; }                            // four at the most

private:
    QString m_last;
};

struct CleanQuery {
    QString text;
    bool caretToEnd = false;

    bool operator==(const CleanQuery&) const = default;
};

// The clean-up that follows each key, and that a search begins with. `trail` is emptied when it ended in an
// operator and a blank.
CleanQuery CleanUpQuery(const QString& query, SearchMode mode, QueryKeyTrail& trail);

// Whether a character of this code may be typed into the query box: letters and digits of ASCII, the blank,
// what Backspace gives, and the codes 164 and 165.
bool IsQueryCharacter(uint code);

// What stands in the query box when a key comes up: a query that begins with a blank is gone.
QString AfterKeyUp(const QString& query);

// Where the caret goes when a text turns into another by one change in it: it stays between the characters it
// stood between, or, when those went, where they were.
int CaretAfterChange(const QString& before, const QString& after, int caret);

} // namespace quillbrook
