#pragma once

#include "output/mouse_pointer.h"
#include "output/word_transfer.h"
#include "platform/services.h"

#include <QObject>

namespace platform {
class MyButton;
}

namespace quillbrook {

// Sends the active pane through the spelling and grammar check of the word processor and takes it back.
class SpellingCommand final : public QObject {
    Q_OBJECT

public:
    SpellingCommand(platform::MyButton& btnSpellCheck, Workbench& workbench, PaperCommands& paper,
                    PublicVariables& variables, platform::Services& services, QObject* parent);

    // Waits until the user is through. Whatever he has changed until then is in the pane, even where he left
    // the check before its end.
    void CheckSpelling();

private:
    void TakeBackPane();
    void RestoreWindow();
    void Tell(const QString& text, platform::MessageIcon icon, const QString& title);

    platform::MyButton& m_btnSpellCheck;
    Workbench& m_workbench;
    platform::Services& m_services;
    WordTransfer m_transfer;
    MousePointer m_pointer;
};

} // namespace quillbrook
