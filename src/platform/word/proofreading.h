// Going through a text for spelling and grammar: what is found, what the user answers, and what is changed.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace platform {

// A piece of a paragraph that is doubted.
struct Finding {
    int start = 0;
    int length = 0;
    bool isGrammar = false; // otherwise a word that is in no dictionary
    QString message;        // of grammar: what is wrong with it
    QStringList suggestions;
};

// The dictionaries and rules of a language.
class ProofreadingEngine {
public:
    virtual ~ProofreadingEngine() = default;

    // Those of the words that no dictionary has, as they are given.
    virtual QStringList Misspelt(const QStringList& words) = 0;
    virtual QStringList Suggestions(const QString& word) = 0; // the likeliest first
    virtual std::vector<Finding> CheckGrammar(const QString& paragraph) = 0;
    // From now on the word is known, in later checks too. False when it could not be kept.
    virtual bool AddToDictionary(const QString& word) = 0;
};

// The text that is gone through.
class ProofreadDocument {
public:
    virtual ~ProofreadDocument() = default;

    virtual int ParagraphCount() = 0;
    virtual QString Paragraph(int index) = 0;
    // The new text has the format of what it replaces. False when the document refuses.
    virtual bool Replace(int index, int start, int length, const QString& text) = 0;
    // False when it is there no more: nothing can be changed from then on.
    virtual bool IsOpen() = 0;
};

enum class ProofreadingAnswer { Ignore, IgnoreAll, Change, ChangeAll, AddToDictionary, Cancel };

struct ProofreadingReply {
    ProofreadingAnswer answer = ProofreadingAnswer::Cancel;
    QString replacement; // of Change and ChangeAll
};

class ProofreadingUser {
public:
    virtual ~ProofreadingUser() = default;

    // Shows the finding in its paragraph and waits for the answer.
    virtual ProofreadingReply Ask(const QString& paragraph, const Finding& finding) = 0;
};

// A word of a text, with typographic apostrophes as plain ones.
struct TextWord {
    int start = 0;
    int length = 0;
    QString word;
};

// The words that a dictionary can judge: of at least two letters, without digits, without a possessive 's,
// and none that belong to an address of mail or the web.
std::vector<TextWord> WordsToJudge(const QString& paragraph);

// Goes through the document from its start. What is ignored or changed everywhere, and what the dictionary
// learns, is not asked for again. False when the user ended it before the end, his changes stay; and when the
// document went meanwhile.
bool Proofread(ProofreadDocument& document, ProofreadingEngine& engine, ProofreadingUser& user);

} // namespace platform
