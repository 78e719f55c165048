#pragma once

#include "library/form_texts.h"

#include <QStringList>
#include <memory>

class Hunspell;

namespace quillbrook {

// Where systems keep dictionaries; what DICPATH names comes first.
QStringList DictionaryFolders();

// The words that the library may hold: those of the desktop's dictionary of American English (hunspell's
// en_US) and the field's own.
class SpellingDictionary {
public:
    // Reads the dictionary from the first of the folders that has it. Without one IsLoaded() is false.
    explicit SpellingDictionary(const QStringList& ownWords,
                                const QStringList& folders = DictionaryFolders());
    ~SpellingDictionary();
    Q_DISABLE_COPY_MOVE(SpellingDictionary)

    bool IsLoaded() const { return m_dictionary != nullptr; }

    // Whether the word, capitals or not at its beginning or throughout, is known; its possessive is too. A
    // word in the list with capitals is known with these, or all in capitals. All are known while nothing is
    // loaded.
    bool Knows(const QString& word) const;

private:
    std::unique_ptr<Hunspell> m_dictionary;
};

// The words of the field that ship with the program: assets/words/legal.txt.
QStringList LegalWords();

// A list of words as a file holds it: a word a line, ordered without regard to capitals, no line empty, none
// twice. What breaks that is reported.
QStringList ReadWordList(QStringView text, SourceProblems& problems);

// Each word that the dictionary does not know, once, where it stands first.
SourceProblems CheckSpelling(const std::vector<Word>& words, const SpellingDictionary& dictionary);

} // namespace quillbrook
