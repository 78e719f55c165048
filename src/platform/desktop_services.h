#pragma once

#include "platform/desktop/common_dialog.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/printer.h"
#include "platform/desktop/single_instance.h"
#include "platform/desktop/sound.h"
#include "platform/help/help_viewer.h"
#include "platform/services.h"
#include "platform/word/word_processor.h"

namespace platform {

// The services as the user's desktop gives them.
class DesktopServices {
public:
    // key, folder: as SingleInstance takes them. title: of the program, for its boxes and print jobs.
    // moduleFolder: where the word processor's module lies.
    DesktopServices(const QString& key, const QString& title, const QString& moduleFolder,
                    const QString& folder = {})
        : m_instance(key, title, folder)
        , m_printer(title)
        , m_wordProcessor(moduleFolder) {}

    platform::Services& Services() { return m_services; }
    platform::WordProcessor& WordProcessor() { return m_wordProcessor; }

private:
    DesktopMessageBox m_messageBox;
    SingleInstance m_instance;
    CommonDialog m_commonDialog;
    Printer m_printer;
    platform::WordProcessor m_wordProcessor;
    DesktopSound m_sound;
    HelpViewer m_help;
    platform::Services m_services{m_messageBox,    m_instance, m_commonDialog, m_printer,
                                  m_wordProcessor, m_sound,    m_help};
};

} // namespace platform
