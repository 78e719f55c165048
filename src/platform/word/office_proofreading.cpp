#include "platform/word/office_proofreading.h"

#include <QTextBoundaryFinder>

namespace platform {

namespace {

// Keys that come while an answer is waited for go to the next finding.
constexpr WaitingInput kInput = WaitingInput::Kept;

// Asked for in one go. A long text is asked for piece by piece, so that each answer comes soon.
constexpr int kParagraphsAtOnce = 200;
constexpr int kWordsAtOnce = 200;

struct Sentence {
    int start;
    QString text;
};

std::vector<Sentence> SentencesOf(const QString& paragraph) {
    std::vector<Sentence> sentences;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Sentence, paragraph);
    int start = 0;
    for (auto end = finder.toNextBoundary(); end > 0; end = finder.toNextBoundary()) {
        sentences.push_back({start, paragraph.mid(start, end - start)});
        start = int(end);
    }
    return sentences;
}

} // namespace

OfficeProofreading::OfficeProofreading(OfficeInstance& instance, WordList& words, bool checksGrammar,
                                       std::chrono::milliseconds patience)
    : m_instance(instance)
    , m_words(words)
    , m_checksGrammar(checksGrammar)
    , m_patience(patience) {
    for (;;) {
        const auto next = m_instance.Call(
            [isFirst = m_paragraphs.isEmpty()](WriterSession& session) {
                return session.NextParagraphs(isFirst, kParagraphsAtOnce);
            },
            m_patience, kInput);
        const QStringList paragraphs = next.value_or(std::nullopt).value_or(QStringList());
        m_paragraphs += paragraphs;
        if (paragraphs.size() < kParagraphsAtOnce)
            return;
    }
}

bool OfficeProofreading::Replace(int index, int start, int length, const QString& text) {
    const QString old = m_paragraphs.value(index).mid(start, length);
    const bool replaced =
        m_instance
            .Call([=](WriterSession& session) { return session.ReplaceInParagraph(index, start, old, text); },
                  m_patience, kInput)
            .value_or(false);
    if (replaced)
        m_paragraphs[index].replace(start, length, text);
    return replaced;
}

QStringList OfficeProofreading::Misspelt(const QStringList& words) {
    const QStringList unknown = m_words.Without(words);
    QStringList wrong;
    for (int first = 0; first < unknown.size(); first += kWordsAtOnce) {
        const auto found = m_instance.Call([some = unknown.mid(first, kWordsAtOnce)](
                                               WriterSession& session) { return session.Misspelt(some); },
                                           m_patience, kInput);
        wrong += found.value_or(std::nullopt).value_or(QStringList());
    }
    return wrong;
}

QStringList OfficeProofreading::Suggestions(const QString& word) {
    const auto found = m_instance.Call([word](WriterSession& session) { return session.Suggestions(word); },
                                       m_patience, kInput);
    return found.value_or(std::nullopt).value_or(QStringList());
}

std::vector<Finding> OfficeProofreading::CheckGrammar(const QString& paragraph) {
    if (!m_checksGrammar || paragraph.trimmed().isEmpty())
        return {};
    std::vector<Finding> all;
    for (const Sentence& sentence : SentencesOf(paragraph)) {
        const auto found = m_instance.Call(
            [text = sentence.text](WriterSession& session) { return session.CheckGrammar(text); }, m_patience,
            kInput);
        for (Finding finding : found.value_or(std::nullopt).value_or(std::vector<Finding>())) {
            finding.start += sentence.start;
            all.push_back(finding);
        }
    }
    return all;
}

} // namespace platform
