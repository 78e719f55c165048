#include "platform/word/proofreading.h"

#include <QHash>
#include <QSet>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <optional>

namespace platform {
namespace {

constexpr char16_t kTypographicApostrophe = u'\u2019';

bool IsAddress(QStringView piece) {
    return piece.contains(u'@') || piece.contains(QStringLiteral("://")) ||
           piece.startsWith(QStringLiteral("www."), Qt::CaseInsensitive);
}

// Whether the word at the position stands in a piece between blanks that is an address.
bool StandsInAddress(const QString& text, int start, int end) {
    int from = start;
    while (from > 0 && !text[from - 1].isSpace())
        --from;
    int to = end;
    while (to < text.size() && !text[to].isSpace())
        ++to;
    return IsAddress(QStringView(text).mid(from, to - from));
}

class Session {
public:
    Session(ProofreadDocument& document, ProofreadingEngine& engine, ProofreadingUser& user)
        : m_document(document)
        , m_engine(engine)
        , m_user(user) {}

    bool Run() {
        for (int i = 0; i < m_document.ParagraphCount(); ++i)
            if (!RunParagraph(i))
                return false;
        return m_document.IsOpen();
    }

private:
    bool RunParagraph(int index) {
        QString text = m_document.Paragraph(index);
        int from = 0;
        while (const std::optional<Finding> finding = FirstFinding(text, from)) {
            const QString piece = text.mid(finding->start, finding->length);
            from = finding->start + finding->length;
            ProofreadingReply reply;
            if (m_changes.contains(piece))
                reply = {ProofreadingAnswer::Change, m_changes.value(piece)};
            else if (m_document.IsOpen())
                reply = m_user.Ask(text, *finding);
            switch (reply.answer) {
            case ProofreadingAnswer::Cancel:
                return false;
            case ProofreadingAnswer::Ignore:
                break;
            case ProofreadingAnswer::IgnoreAll:
                m_ignored.insert(finding->isGrammar ? finding->message + piece : piece);
                break;
            case ProofreadingAnswer::AddToDictionary:
                m_engine.AddToDictionary(piece);
                m_ignored.insert(piece);
                break;
            case ProofreadingAnswer::ChangeAll:
                m_changes.insert(piece, reply.replacement);
                [[fallthrough]];
            case ProofreadingAnswer::Change:
                if (m_document.Replace(index, finding->start, finding->length, reply.replacement)) {
                    text.replace(finding->start, finding->length, reply.replacement);
                    from = finding->start + int(reply.replacement.size());
                }
                break;
            }
        }
        return true;
    }

    std::optional<Finding> FirstFinding(const QString& text, int from) {
        std::optional<Finding> first = FirstMisspelt(text, from);
        for (const Finding& finding : Grammar(text)) {
            if (finding.start < from || finding.length <= 0 || finding.start + finding.length > text.size())
                continue;
            if (m_ignored.contains(finding.message + text.mid(finding.start, finding.length)))
                continue;
            if (!first || finding.start < first->start)
                first = finding;
        }
        return first;
    }

    std::optional<Finding> FirstMisspelt(const QString& text, int from) {
        const std::vector<TextWord> words = WordsToJudge(text);
        Judge(words);
        const auto wrong = std::find_if(words.begin(), words.end(), [&](const TextWord& word) {
            return word.start >= from && m_misspelt.value(word.word) &&
                   !m_ignored.contains(text.mid(word.start, word.length));
        });
        if (wrong == words.end())
            return std::nullopt;
        return Finding{wrong->start, wrong->length, false, QString(), m_engine.Suggestions(wrong->word)};
    }

    // Asks the dictionaries about the words that have not come before, all at once.
    void Judge(const std::vector<TextWord>& words) {
        QStringList unknown;
        for (const TextWord& word : words) {
            if (m_misspelt.contains(word.word))
                continue;
            m_misspelt.insert(word.word, false);
            unknown.append(word.word);
        }
        if (unknown.isEmpty())
            return;
        for (const QString& word : m_engine.Misspelt(unknown))
            m_misspelt.insert(word, true);
    }

    const std::vector<Finding>& Grammar(const QString& text) {
        if (m_grammarText != text || m_grammarText.isNull()) {
            m_grammarText = text;
            m_grammar = m_engine.CheckGrammar(text);
            std::stable_sort(m_grammar.begin(), m_grammar.end(),
                             [](const Finding& a, const Finding& b) { return a.start < b.start; });
        }
        return m_grammar;
    }

    ProofreadDocument& m_document;
    ProofreadingEngine& m_engine;
    ProofreadingUser& m_user;
    QSet<QString> m_ignored;           // words, and messages of grammar with the piece they are about
    QHash<QString, QString> m_changes; // what is changed everywhere
    QHash<QString, bool> m_misspelt;   // words that have been judged
    QString m_grammarText;
    std::vector<Finding> m_grammar; // of m_grammarText
};

} // namespace

std::vector<TextWord> WordsToJudge(const QString& paragraph) {
    std::vector<TextWord> words;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, paragraph);
    for (int start = 0; start >= 0 && start < paragraph.size();) {
        const bool isWord = finder.boundaryReasons() & QTextBoundaryFinder::StartOfItem;
        const int end = int(finder.toNextBoundary());
        if (end < 0)
            break;
        QString word = paragraph.mid(start, end - start);
        word.replace(kTypographicApostrophe, u'\'');
        if (word.endsWith(QStringLiteral("'s"), Qt::CaseInsensitive))
            word.chop(2);
        const bool hasDigit = std::any_of(word.begin(), word.end(), [](QChar c) { return c.isDigit(); });
        const auto letters = std::count_if(word.begin(), word.end(), [](QChar c) { return c.isLetter(); });
        if (isWord && letters >= 2 && !hasDigit && !word.contains(u'_') &&
            !StandsInAddress(paragraph, start, end))
            words.push_back({start, int(word.size()), word});
        start = end;
    }
    return words;
}

bool Proofread(ProofreadDocument& document, ProofreadingEngine& engine, ProofreadingUser& user) {
    return Session(document, engine, user).Run();
}

} // namespace platform
