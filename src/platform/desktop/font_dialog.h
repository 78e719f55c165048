#pragma once

#include "platform/services.h"

#include <QDialog>

class QFontDialog;
class QPushButton;

namespace platform {

// Qt's font dialog with a colour beside it.
class FontDialog final : public QDialog {
    Q_OBJECT

public:
    FontDialog(const FontChoice& choice, QWidget* parent);

    FontChoice Choice() const;

private:
    void ChooseColor();
    void ShowColor();

    QFontDialog* m_fonts;
    QPushButton* m_colorButton;
    QColor m_color;
};

} // namespace platform
