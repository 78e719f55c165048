#pragma once

#include "platform/services.h"

#include <QDialog>
#include <QFont>

class QFontDialog;
class QPushButton;

namespace platform {

// Qt's font dialog with a colour beside it. Qt's knows only installed fonts and whole sizes: what the user
// leaves alone is given back as it came.
class FontDialog final : public QDialog {
    Q_OBJECT

public:
    FontDialog(const FontChoice& choice, QWidget* parent);

    FontChoice Choice() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ChooseColor();
    void ShowColor();

    FontChoice m_given;
    QFontDialog* m_fonts;
    QFont m_shown; // what the dialog made of the given choice
    QPushButton* m_colorButton;
    QColor m_color;
};

} // namespace platform
