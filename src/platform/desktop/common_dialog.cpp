#include "platform/desktop/common_dialog.h"

#include "platform/desktop/font_dialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QTreeView>

namespace platform {

// Qt's dialogs would write the folders visited and the colours mixed to a file of their own, in the clear and
// for every program that uses Qt. Below what is no folder they find nothing and write nothing.
CommonDialog::CommonDialog() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

bool CommonDialog::ShowFont(QWidget* parent, FontChoice& choice) {
    FontDialog dialog(choice, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    choice = dialog.Choice();
    return true;
}

bool CommonDialog::ShowColor(QWidget* parent, QColor& color) {
    const QColor chosen = QColorDialog::getColor(color, parent, QColorDialog::tr("Text Color"),
                                                 QColorDialog::DontUseNativeDialog);
    if (!chosen.isValid())
        return false;
    color = chosen;
    return true;
}

// Kind and date of the files are to be read whole, the name has the rest.
static void GiveRoom(QFileDialog& dialog) {
    constexpr QSize kDialog(760, 460);
    dialog.resize(kDialog.boundedTo(dialog.screen()->availableSize() * 9 / 10));
    auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!list)
        return;
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
}

// Shows the dialog with the file chosen last in it. Of a filter the user sees the name: its patterns can be
// others than those that the name tells.
static bool ShowFileDialog(QFileDialog& dialog, FileChoice& choice) {
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    GiveRoom(dialog);
    // While a list of completions is open Qt does not hear which window gets the keyboard back.
    QObject::connect(&dialog, &QDialog::finished, &dialog, [] {
        if (QWidget* list = QApplication::activePopupWidget())
            list->hide();
    });
    if (!choice.FileName.isEmpty())
        dialog.selectFile(choice.FileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return false;
    choice.FileName = dialog.selectedFiles().constFirst();
    return true;
}

bool CommonDialog::ShowSave(QWidget* parent, FileChoice& choice) {
    QFileDialog dialog(parent, choice.title, QString(), choice.filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !choice.asksBeforeOverwriting);
    return ShowFileDialog(dialog, choice);
}

bool CommonDialog::ShowOpen(QWidget* parent, FileChoice& choice) {
    QFileDialog dialog(parent, choice.title, QString(), choice.filter);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return ShowFileDialog(dialog, choice);
}

} // namespace platform
