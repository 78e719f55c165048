#include "app/program.h"

#include "app/library_paths.h"
#include "app/main_window.h"

namespace quillbrook {

frmProgram::frmProgram(platform::Services& services, const QString& executableFolder)
    : m_services(services)
    , m_executableFolder(WithFinalSeparator(executableFolder))
    , m_helpFile(m_executableFolder + QStringLiteral("Help.chm")) {}

frmProgram::~frmProgram() = default;

bool frmProgram::Start() {
    m_mainWindow = std::make_unique<frmMain>(m_services, m_executableFolder);
    if (!m_mainWindow->Load())
        return false;
    m_mainWindow->show();
    return true;
}

} // namespace quillbrook
