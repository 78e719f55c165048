#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

namespace platform {

// Words that are known beside those of the dictionaries: some that ship with the program, and those that the
// user has added, which are kept in a text file of one word a line.
class WordList {
public:
    // `file`: of the user's words; empty: they are known until the program ends. One that cannot be read is
    // an empty one.
    WordList(const QStringList& shipped, const QString& file);

    // Capitals do not count.
    bool Contains(const QString& word) const;
    // False when the word could not be kept; it is known until the program ends all the same.
    bool Add(const QString& word);
    QStringList Without(const QStringList& words) const; // those that are not known here

private:
    QSet<QString> m_words; // in small letters
    QString m_file;
};

// The lines of a text file that hold a word; none when it cannot be read.
QStringList WordsOfFile(const QString& path);

} // namespace platform
