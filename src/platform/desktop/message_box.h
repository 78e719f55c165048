#pragma once

#include "platform/services.h"

namespace platform {

// The desktop's own message box.
class DesktopMessageBox final : public MessageBoxService {
public:
    MessageAnswer Show(QWidget* parent, const QString& text, MessageButtons buttons, MessageIcon icon,
                       const QString& title) override;
};

} // namespace platform
