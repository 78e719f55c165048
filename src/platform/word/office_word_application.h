#pragma once

#include "platform/rich_text/rich_text_file.h"
#include "platform/word/office_instance.h"
#include "platform/word/word_application.h"
#include "platform/word/word_list.h"

#include <QPointer>
#include <QWidget>
#include <functional>

namespace platform {

// The number of the word processor's for what went wrong when `path` was to be written.
int WordSaveErrorFor(SaveError error, const QString& path);

// The word processor's automation members on an instance of LibreOffice Writer.
class OfficeWordApplication final : public WordApplication {
public:
    // Takes an instance whose reference was dropped while it was hidden.
    using KeepInstance = std::function<void(std::unique_ptr<OfficeInstance>)>;

    // `window` is the one in front of which dialogs of ours come. `words` are known to the check of spelling.
    OfficeWordApplication(std::unique_ptr<OfficeInstance> instance, QWidget* window, WordList& words,
                          KeepInstance keep);
    ~OfficeWordApplication() override;

    bool SetVisible(bool visible) override;
    bool SetCaption(const QString& caption) override;
    bool DocumentsAdd() override;
    bool DocumentsOpen(const QString& path) override;
    bool SelectionPaste() override;
    bool SelectionWholeStory() override;
    bool SelectionFontColor(int color) override;
    bool SelectionHomeKey(int unit) override;
    bool SelectionCopy() override;
    bool SelectionCut() override;
    std::optional<float> InchesToPoints(float inches) override;
    bool SetPageSetup(PageLength length, float points) override;
    bool WindowsApplicationActivate() override;
    bool ShowDialog(int dialog) override;
    bool ActiveDocumentPrintPreview() override;
    bool SetPageFit(int fit) override;
    bool PrintPreview() override;
    bool SetCheckGrammarWithSpelling(bool check) override;
    bool ActiveDocumentCheckGrammar() override;
    bool ActiveDocumentSelect() override;
    int ActiveDocumentSaveAs(const QString& path) override;
    bool ActiveDocumentClose(int saveChanges) override;
    bool Quit(std::optional<int> saveChanges) override;

private:
    // Large documents take their time.
    std::chrono::milliseconds Patience(std::chrono::milliseconds least = kOfficePatience) const;
    template <typename Work>
    bool Does(Work work) {
        return Does(work, Patience());
    }
    template <typename Work>
    bool Does(Work work, std::chrono::milliseconds patience) {
        return m_instance && m_instance->Call(work, patience).value_or(false);
    }

    void Wait(std::chrono::milliseconds pause);

    std::unique_ptr<OfficeInstance> m_instance; // null after Quit
    QPointer<QWidget> m_window;
    WordList& m_words;
    KeepInstance m_keep;
    qint64 m_documentBytes = 0; // of what was put into the document, for how long it may take
    bool m_visible = false;
    bool m_checksGrammar = false;
};

} // namespace platform
