#pragma once

#include "library/html_blocks.h"

#include <QByteArray>

namespace quillbrook {

// A list's number as text: "3", "c", "C", "iii", "III"; letters double after "z". `number` from 1.
QString NumberText(Numbering numbering, int number);

// What stands before the paragraph: the number with its dot or brackets, or a bullet.
QString MarkerText(const List& list, int number);

// Gathers the lists of a document and gives them the numbers they have in a rich text file.
class ListTable {
public:
    // Number of the list in the file's list override table, from 1.
    int Add(const List& list);

    // Source of the list table and the list override table groups; empty when there are no lists.
    QByteArray Source() const;

private:
    QByteArray m_lists;
    QByteArray m_overrides;
    int m_count = 0;
};

} // namespace quillbrook
