#include "app/program.h"

#include "accessory/splash_window.h"
#include "app/library_paths.h"
#include "app/main_window.h"
#include "library/category_browser.h"
#include "platform/controls/focus.h"
#include "platform/controls/list_box.h"
#include "platform/services.h"

namespace quillbrook {

frmProgram::frmProgram(platform::Services& services, const QString& executableFolder)
    : m_services(services)
    , m_executableFolder(WithFinalSeparator(executableFolder)) {
    services.help.SetHelpFile(m_executableFolder + QStringLiteral("Help.chm"));
}

frmProgram::~frmProgram() = default;

void frmProgram::Start() {
    m_splash = std::make_unique<frmSplash>(m_services.sound);
    QObject::connect(m_splash.get(), &frmSplash::LoadMainWindow, m_splash.get(),
                     [this] { LoadMainWindow(); });
    QObject::connect(m_splash.get(), &frmSplash::HandOver, m_splash.get(), [this] { HandOver(); });
    m_services.instance.SetWindow(m_splash.get()); // what a second start finds until the main window is there
    m_splash->show();
}

void frmProgram::LoadMainWindow() {
    m_mainWindow = std::make_unique<frmMain>(m_services, m_executableFolder);
    if (!m_mainWindow->Load())
        m_splash->Stop(); // this process ends
}

void frmProgram::HandOver() {
    m_mainWindow->show();
    platform::SetFocus(m_mainWindow->categoryBrowser->lstTitle);
    m_splash.release()->deleteLater(); // the hand-over is the splash's own last step
}

} // namespace quillbrook
