#pragma once

#include <QObject>
#include <functional>

namespace platform {
class MyButton;
struct Services;
} // namespace platform

namespace quillbrook {

class Workbench;

// Printing: through the word processor where there is one, and by the program itself where there is none.
class PrintCommands final : public QObject {
    Q_OBJECT

public:
    // Sends the active pane to the word processor. False when there is none to be started.
    using WordRoute = std::function<bool()>;

    // Serves btnPrint and the entries of printing, preview and printer setup.
    PrintCommands(platform::MyButton& btnPrint, Workbench& workbench, platform::Services& services,
                  QObject* parent);

    // Without a route the word processor counts as not there.
    void SetPrintRoute(WordRoute route) { m_printByWord = std::move(route); }
    void SetPreviewRoute(WordRoute route) { m_previewByWord = std::move(route); }

    void Print();
    void PrintPreview();
    void PrinterSetup();
    // Prints the active pane on the current printer, after asking, with margins of its own.
    void PrintPaneDirect();

private:
    Workbench& m_workbench;
    platform::Services& m_services;
    WordRoute m_printByWord;
    WordRoute m_previewByWord;
};

} // namespace quillbrook
