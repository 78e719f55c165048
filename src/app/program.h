#pragma once

#include <QString>
#include <memory>

namespace platform {
struct Services;
}

namespace quillbrook {

class frmMain;
class frmSplash;

// The start object, never seen: it names the help file and shows the splash window, which then has the main
// window loaded and shown.
class frmProgram {
public:
    frmProgram(platform::Services& services, const QString& executableFolder);
    ~frmProgram();

    // Shows the splash and returns; the rest happens in the event loop.
    void Start();

    frmMain* MainWindow() const { return m_mainWindow.get(); } // null until the splash loads it
    frmSplash* Splash() const { return m_splash.get(); } // null before the start and after the hand-over

private:
    void LoadMainWindow();
    void HandOver();

    platform::Services& m_services;
    QString m_executableFolder;
    std::unique_ptr<frmMain> m_mainWindow;
    std::unique_ptr<frmSplash> m_splash;
};

} // namespace quillbrook
