#include "platform/desktop/common_dialog.h"

#include "platform/desktop/font_dialog.h"

#include <QColorDialog>

namespace platform {

bool CommonDialog::ShowFont(QWidget* parent, FontChoice& choice) {
    FontDialog dialog(choice, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    choice = dialog.Choice();
    return true;
}

bool CommonDialog::ShowColor(QWidget* parent, QColor& color) {
    const QColor chosen =
        QColorDialog::getColor(color, parent, QColorDialog::tr("Text Color"), QColorDialog::DontUseNativeDialog);
    if (!chosen.isValid())
        return false;
    color = chosen;
    return true;
}

} // namespace platform
