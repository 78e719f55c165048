#include "platform/word/office_proofreading.h"

#include <QTextBoundaryFinder>

namespace platform {

namespace {

// Keys that come while an answer is waited for go to the next finding.
constexpr WaitingInput kInput = WaitingInput::Kept;

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

OfficeProofreading::OfficeProofreading(OfficeInstance& instance, WordList& words, bool checksGrammar)
    : m_instance(instance)
    , m_words(words)
    , m_checksGrammar(checksGrammar) {
    const auto paragraphs =
        m_instance.Call([](WriterSession& session) { return session.Paragraphs(); }, kUserPatience, kInput);
    m_paragraphs = paragraphs.value_or(std::nullopt).value_or(QStringList());
}

bool OfficeProofreading::Replace(int index, int start, int length, const QString& text) {
    const QString old = m_paragraphs.value(index).mid(start, length);
    const bool replaced =
        m_instance
            .Call([=](WriterSession& session) { return session.ReplaceInParagraph(index, start, old, text); },
                  kOfficePatience, kInput)
            .value_or(false);
    if (replaced)
        m_paragraphs[index].replace(start, length, text);
    return replaced;
}

QStringList OfficeProofreading::Misspelt(const QStringList& words) {
    const QStringList unknown = m_words.Without(words);
    if (unknown.isEmpty())
        return {};
    const auto wrong = m_instance.Call(
        [unknown](WriterSession& session) { return session.Misspelt(unknown); }, kOfficePatience, kInput);
    return wrong.value_or(std::nullopt).value_or(QStringList());
}

QStringList OfficeProofreading::Suggestions(const QString& word) {
    const auto found = m_instance.Call([word](WriterSession& session) { return session.Suggestions(word); },
                                       kOfficePatience, kInput);
    return found.value_or(std::nullopt).value_or(QStringList());
}

std::vector<Finding> OfficeProofreading::CheckGrammar(const QString& paragraph) {
    if (!m_checksGrammar || paragraph.trimmed().isEmpty())
        return {};
    const std::vector<Sentence> sentences = SentencesOf(paragraph);
    const auto found = m_instance.Call(
        [sentences](WriterSession& session) {
            std::vector<Finding> all;
            for (const Sentence& sentence : sentences)
                for (Finding finding : session.CheckGrammar(sentence.text).value_or(std::vector<Finding>())) {
                    finding.start += sentence.start;
                    all.push_back(finding);
                }
            return all;
        },
        kOfficePatience, kInput);
    return found.value_or(std::vector<Finding>());
}

} // namespace platform
