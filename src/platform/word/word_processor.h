#pragma once

#include "platform/services.h"
#include "platform/word/libreoffice/writer_session.h"
#include "platform/word/word_list.h"

#include <vector>

namespace platform {

class OfficeInstance;

// The word processor that this machine has: LibreOffice Writer where it and our module for it are there.
class WordProcessor final : public WordProcessorService {
public:
    // `moduleFolder` is where our module lies. `pool` is the folder of the instances' profiles; empty: that
    // of the user. Instances that a crash of ours has left there are ended.
    explicit WordProcessor(const QString& moduleFolder, const QString& pool = {});
    // Words that the check of spelling knows beside those of the dictionaries, and the file of the user's
    // own.
    void SetWords(const QStringList& shipped, const QString& file) { m_words = WordList(shipped, file); }
    // Ends all hidden instances. Those that are the user's stay.
    ~WordProcessor() override;

    std::unique_ptr<WordApplication> CreateWordApplication(QWidget* window) override;

private:
    bool LoadModule();

    QString m_module;
    QString m_pool;
    WordList m_words{{}, {}};
    CreateWriterSessionFunction m_createSession = nullptr;
    QByteArray m_program;                                   // that starts Writer
    std::vector<std::unique_ptr<OfficeInstance>> m_dropped; // hidden instances that nobody refers to
};

} // namespace platform
