#include "platform/word/word_processor.h"

#include "platform/word/office_word_application.h"

#include <QFile>
#include <QStandardPaths>
#include <dlfcn.h>
#include <signal.h>
#include <unistd.h>

namespace platform {

namespace {

QString UserPool() {
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return cache.isEmpty() ? QString() : cache + QStringLiteral("/quillbrook/writer");
}

} // namespace

WordProcessor::WordProcessor(const QString& moduleFolder, const QString& pool)
    : m_module(moduleFolder + QStringLiteral("/quillbrook-writer.so"))
    , m_pool(pool.isEmpty() ? UserPool() : pool) {
    if (!m_pool.isEmpty())
        OfficeProfile::EndOrphans(m_pool);
}

WordProcessor::~WordProcessor() = default;

// The module stays loaded: what it has started runs until the process ends.
bool WordProcessor::LoadModule() {
    if (m_createSession)
        return true;
    // Its libraries write to the pipe of an instance that may have died, and the signal would end us with it.
    // As an error it only fails the call.
    ::signal(SIGPIPE, SIG_IGN);
    void* const module = ::dlopen(QFile::encodeName(m_module).constData(), RTLD_NOW | RTLD_LOCAL);
    if (!module)
        return false;
    const auto program = reinterpret_cast<WriterProgramFunction>(::dlsym(module, kWriterProgram));
    const auto create = reinterpret_cast<CreateWriterSessionFunction>(::dlsym(module, kCreateWriterSession));
    const char* const path = program ? program() : nullptr;
    if (!create || !path)
        return false;
    m_createSession = create;
    m_program = path;
    return true;
}

std::unique_ptr<WordApplication> WordProcessor::CreateWordApplication(QWidget* window) {
    if (m_pool.isEmpty() || !LoadModule() || ::access(m_program.constData(), X_OK) != 0)
        return nullptr;
    auto instance = OfficeInstance::Start(m_program, m_pool, m_createSession);
    if (!instance)
        return nullptr;
    return std::make_unique<OfficeWordApplication>(
        std::move(instance), window, m_words,
        [this](std::unique_ptr<OfficeInstance> dropped) { m_dropped.push_back(std::move(dropped)); });
}

} // namespace platform
