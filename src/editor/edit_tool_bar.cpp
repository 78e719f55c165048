#include "editor/edit_tool_bar.h"

#include "appearance/icons.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/my_button.h"

#include <QFrame>

namespace quillbrook {

using platform::ComboBox;
using platform::MyButton;

QStringList OfferedFonts(const QStringList& screenFonts) {
    return screenFonts.mid(0, screenFonts.size() - 1);
}

static MyButton* MakeToolButton(QWidget* bar, int left, const char* name, const QString& tip,
                                const QString& picture) {
    auto* button = new MyButton(MyButton::Kind::Plain, bar);
    button->setObjectName(QLatin1String(name));
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setIcon(Picture(picture));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setGeometry(left, 4, 28, 26);
    return button;
}

EditToolBar::EditToolBar(QWidget* window)
    : QObject(window)
    , fmeEditToolBar(new QFrame(window)) {
    fmeEditToolBar->setObjectName(QStringLiteral("fmeEditToolBar"));
    fmeEditToolBar->resize(640, 34);

    cboFonts = new ComboBox(false, true, fmeEditToolBar);
    cboFonts->setObjectName(QStringLiteral("cboFonts"));
    cboFonts->setAccessibleName(tr("Font"));
    cboFonts->setGeometry(4, 4, 180, 26);
    cboFontSize = new ComboBox(false, true, fmeEditToolBar);
    cboFontSize->setObjectName(QStringLiteral("cboFontSize"));
    cboFontSize->setAccessibleName(tr("Font size"));
    cboFontSize->setGeometry(188, 4, 60, 26);

    btnUndo = MakeToolButton(fmeEditToolBar, 256, "btnUndo", tr("Undo"), QStringLiteral("undo"));
    btnRedo = MakeToolButton(fmeEditToolBar, 286, "btnRedo", tr("Redo"), QStringLiteral("redo"));
    btnMyUndo = MakeToolButton(fmeEditToolBar, 316, "btnMyUndo", tr("Undo"), QStringLiteral("undo"));
    btnMyRedo = MakeToolButton(fmeEditToolBar, 346, "btnMyRedo", tr("Redo"), QStringLiteral("redo"));
    fmeEditToolBar->hide();
}

void EditToolBar::FillFonts(const QStringList& screenFonts) {
    cboFonts->AddItems(OfferedFonts(screenFonts));
    for (int size = 8; size <= 48; size += 2)
        cboFontSize->AddItem(QString::number(size));
    cboFonts->setListIndex(0);
    cboFontSize->setListIndex(2);
}

} // namespace quillbrook
