#pragma once

#include "platform/word/word_processor.h"

#include <QString>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <sys/types.h>
#include <vector>

// A real LibreOffice Writer with a pool of profiles of its own, and what a person and an accident do to it.
class RealWriter {
public:
    RealWriter();
    ~RealWriter(); // ends all its instances

    // Why there is none on this machine; empty when there is.
    static QString Missing();

    platform::WordProcessor& Service() { return *m_service; }
    // As when the program ends, and starts again.
    void Restart();
    // Gives the first profile a printer that writes its job to the file. Before the first instance.
    bool InstallPrinter(const QString& file) const;

    QString Pool() const { return m_folder.filePath(QStringLiteral("pool")); }
    // The processes of its instances.
    std::vector<pid_t> Processes() const { return ProcessesOf(Pool()); }
    // Those started with a profile in this folder.
    static std::vector<pid_t> ProcessesOf(const QString& folder);
    void Signal(int signal) const;
    // Whether its processes are gone, or are so soon.
    bool HasNoProcesses() const;
    // Whether its processes are gone once the user has closed the window with nothing in it, which may show
    // itself behind the last document.
    bool EndsWithItsLastWindow() const;
    // Whether no profile of the pool is locked, or none is so soon.
    bool HasNoLocks() const;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<platform::WordProcessor> m_service;
};

// A person before the display. All through xdotool.
namespace person {

// The window that shows this in its title; 0 when there is none.
unsigned long WindowNamed(const QString& pattern);
bool SeesWindow(const QString& pattern, int milliseconds = 15'000);
// Presses the keys with the window in front; false when it is not there.
bool Press(const QString& windowPattern, const QString& keys);
// Asks the window to close, as its frame does.
bool Close(const QString& windowPattern);

} // namespace person
