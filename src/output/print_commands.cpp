#include "output/print_commands.h"

#include "app/workbench.h"
#include "output/mod_print_rtf.h"
#include "output/mouse_pointer.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"

#include <QAction>
#include <QCoreApplication>

namespace quillbrook {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

namespace {

// Wider at the left, for binding; whatever the page setup says.
constexpr PrintMargins kDirectMargins = {1620, 1440, 1440, 1440};

} // namespace

PrintCommands::PrintCommands(platform::MyButton& btnPrint, Workbench& workbench, platform::Services& services,
                             QObject* parent)
    : QObject(parent)
    , m_workbench(workbench)
    , m_services(services) {
    connect(&btnPrint, &platform::MyButton::Click, this, &PrintCommands::Print);
    const auto entry = [&](const char* name, void (PrintCommands::*command)()) {
        connect(workbench.Menu(QLatin1String(name)), &QAction::triggered, this, command);
    };
    entry("mnuPrint", &PrintCommands::Print);
    entry("mnuPrintPreview", &PrintCommands::PrintPreview);
    entry("mnuPrintPreviewDrop", &PrintCommands::PrintPreview);
    entry("mnuPrintSetup", &PrintCommands::PrinterSetup);
    entry("mnuPrinterSetupDrop", &PrintCommands::PrinterSetup);
}

void PrintCommands::Print() {
    if (!m_printByWord || !m_printByWord())
        PrintPaneDirect();
}

void PrintCommands::PrintPreview() {
    if (m_previewByWord && m_previewByWord())
        return;
    m_services.messageBox.Show(m_workbench.Window(),
                               QStringLiteral("An error occurred while opening Print Preview!   \n\n"
                                              "If the problem persists, please restart the Program.   "),
                               MessageButtons::Ok, MessageIcon::Critical,
                               QStringLiteral("Print Preview Error!"));
}

void PrintCommands::PrinterSetup() {
    if (m_services.printer.ShowSetup(m_workbench.Window()))
        QCoreApplication::processEvents();
}

void PrintCommands::PrintPaneDirect() {
    platform::RichTextBox* pane = m_workbench.ActivePane();
    if (pane->Text().isEmpty()) {
        m_services.messageBox.Show(m_workbench.Window(), QStringLiteral("No open document!   "),
                                   MessageButtons::Ok, MessageIcon::Exclamation, QStringLiteral("Print"));
        return;
    }
    if (m_services.messageBox.Show(m_workbench.Window(), QStringLiteral("Print Document?   "),
                                   MessageButtons::YesNo, MessageIcon::Question,
                                   QStringLiteral("Print")) != MessageAnswer::Yes)
        return;
    {
        MousePointer pointer;
        pointer.Hourglass();
        PrintRTF(*pane, m_services.printer, kDirectMargins);
    }
    QCoreApplication::processEvents();
}

} // namespace quillbrook
