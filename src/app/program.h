#pragma once

#include <QString>
#include <memory>

namespace platform {
struct Services;
}

namespace quillbrook {

class frmMain;

// The start object, never seen: it names the help file and brings up the main window.
class frmProgram {
public:
    frmProgram(platform::Services& services, const QString& executableFolder);
    ~frmProgram();

    // Loads and shows the main window. False when an earlier instance took over.
    bool Start();

    const QString& HelpFile() const { return m_helpFile; }
    frmMain* MainWindow() const { return m_mainWindow.get(); }

private:
    platform::Services& m_services;
    QString m_executableFolder;
    QString m_helpFile;
    std::unique_ptr<frmMain> m_mainWindow;
};

} // namespace quillbrook
