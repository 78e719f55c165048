#include "app/program.h"

#include "app/library_paths.h"
#include "app/main_window.h"
#include "library/category_browser.h"
#include "platform/controls/focus.h"
#include "platform/controls/list_box.h"

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
    platform::SetFocus(m_mainWindow->categoryBrowser->lstTitle);
    return true;
}

} // namespace quillbrook
