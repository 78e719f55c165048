#include "library/review.h"

#include "library/content_rules.h"
#include "library/near_duplicates.h"

#include <algorithm>
#include <tuple>

namespace quillbrook {
namespace {

class Reviewer {
public:
    explicit Reviewer(const SpellingDictionary& dictionary)
        : m_dictionary(dictionary) {}

    std::vector<LibraryProblem> Review(const LibraryContent& content) {
        if (!m_dictionary.IsLoaded())
            m_problems.push_back({QStringLiteral("en_US.dic"), 1,
                                  QStringLiteral("no dictionary to spell by (package hunspell-en-us)")});
        for (const LibraryForm& form : content.forms)
            ReviewForm(form);
        for (const LibraryClause& clause : content.clauses)
            ReviewClause(clause);
        for (const AlikePair& pair : FindAlike(m_shingles)) {
            const LibraryForm& other = content.forms[pair.first];
            m_problems.push_back({content.forms[pair.second].file, 1,
                                  QStringLiteral("%1 percent the same as %2")
                                      .arg(static_cast<int>(pair.likeness * 100))
                                      .arg(other.file)});
        }
        std::stable_sort(m_problems.begin(), m_problems.end(),
                         [](const LibraryProblem& a, const LibraryProblem& b) {
                             return std::tie(a.file, a.line) < std::tie(b.file, b.line);
                         });
        return std::move(m_problems);
    }

private:
    void Report(const QString& file, const SourceProblems& problems) {
        for (const SourceProblem& problem : problems)
            m_problems.push_back({file, problem.line, problem.text});
    }

    void ReviewForm(const LibraryForm& form) {
        const FormTexts texts = TextsOf(form.source.blocks);
        const std::vector<Word> words = WordsOf(texts);
        Report(form.file, CheckMarkerSpelling(texts));
        Report(form.file, CheckMarkersPresent(form.source));
        Report(form.file, CheckBlanks(texts));
        Report(form.file, CheckLength(texts));
        Report(form.file, CheckBrackets(texts));
        Report(form.file, CheckSpelling(WordsOf({{form.source.titleLine, form.source.title},
                                                 {form.source.subCategoryLine, form.source.subCategory}}),
                                        m_dictionary));
        Report(form.file, CheckSpelling(words, m_dictionary));
        m_shingles.push_back(ShinglesOf(words));
    }

    void ReviewClause(const LibraryClause& clause) {
        FormTexts texts;
        int line = 0;
        for (const QString& text : clause.text.split(u'\n'))
            texts.push_back({++line, text});
        Report(clause.file, CheckBrackets(texts));
        Report(clause.file, CheckSpelling(WordsOf(texts), m_dictionary));
    }

    const SpellingDictionary& m_dictionary;
    std::vector<LibraryProblem> m_problems;
    std::vector<Shingles> m_shingles; // of each form
};

} // namespace

std::vector<LibraryProblem> ReviewLibrary(const LibraryContent& content,
                                          const SpellingDictionary& dictionary) {
    return Reviewer(dictionary).Review(content);
}

} // namespace quillbrook
