#pragma once

#include "platform/word/office_instance.h"
#include "platform/word/proofreading.h"
#include "platform/word/word_list.h"

namespace platform {

// A document of an instance of LibreOffice Writer, judged by LibreOffice's dictionaries and rules beside the
// words of a list. Once the instance has ended, nothing is found and nothing is changed.
class OfficeProofreading final : public ProofreadDocument, public ProofreadingEngine {
public:
    // `patience` is what each call of the instance has; the first ones wait until the document is laid out.
    OfficeProofreading(OfficeInstance& instance, WordList& words, bool checksGrammar,
                       std::chrono::milliseconds patience);

    int ParagraphCount() override { return int(m_paragraphs.size()); }
    QString Paragraph(int index) override { return m_paragraphs.value(index); }
    bool Replace(int index, int start, int length, const QString& text) override;
    bool IsOpen() override { return m_instance.IsAlive(); }

    QStringList Misspelt(const QStringList& words) override;
    QStringList Suggestions(const QString& word) override;
    std::vector<Finding> CheckGrammar(const QString& paragraph) override;
    bool AddToDictionary(const QString& word) override { return m_words.Add(word); }

private:
    OfficeInstance& m_instance;
    WordList& m_words;
    bool m_checksGrammar;
    std::chrono::milliseconds m_patience;
    QStringList m_paragraphs; // as they stand in the document
};

} // namespace platform
