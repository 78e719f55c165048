#pragma once

#include <QString>

namespace quillbrook {

// `text` in capitals, character by character, so that places in the result are those of the text. No
// character beyond ASCII becomes an ASCII one, as in the library's own comparison.
QString Capitals(QStringView text);

// Finds one term in a text, both given in capitals; the term must not be empty and must outlive the finder.
class TermFinder {
public:
    explicit TermFinder(QStringView term);

    // The start of the first or last occurrence that lies whole in text[from, end); -1 when there is none.
    // Places outside the text are taken for its ends.
    qsizetype First(QStringView text, qsizetype from, qsizetype end) const;
    qsizetype Last(QStringView text, qsizetype from, qsizetype end) const;

private:
    bool MayStartIn(const char16_t* block) const;
    bool StartsAt(const char16_t* place) const;

    QStringView m_term;
    char16_t m_first;
    char16_t m_last;
};

} // namespace quillbrook
