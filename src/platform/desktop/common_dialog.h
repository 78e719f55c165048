#pragma once

#include "platform/services.h"

namespace platform {

// The common dialogs on Qt's own.
class CommonDialog final : public CommonDialogService {
public:
    // Turns Qt's settings file off for the whole process: nothing of what the user did is left outside the
    // library.
    CommonDialog();

    // Offers font, style, size, underline, strikethrough and colour, with a sample.
    bool ShowFont(QWidget* parent, FontChoice& choice) override;
    bool ShowColor(QWidget* parent, QColor& color) override;
    bool ShowSave(QWidget* parent, FileChoice& choice) override;
    bool ShowOpen(QWidget* parent, FileChoice& choice) override;
};

} // namespace platform
