#include "appearance/flat_controls.h"

#include "appearance/flat_region.h"
#include "platform/controls/geometry.h"

#include <QAbstractButton>
#include <QStyle>

namespace quillbrook {

// The rules of the look draw the edge that this property asks for.
constexpr char kEdge[] = "edge";

void Flat_Controls::FlatTxt(QWidget* control) const {
    FlatObjects(control);
}

void Flat_Controls::FlatObjects(QWidget* window) const {
    if (!window)
        return;
    window->setProperty(kEdge, QStringLiteral("flat"));
    FlatBorder(window);
}

// A control that has its look already is to be given it afresh: without this the change does not appear.
void Flat_Controls::FlatBorder(QWidget* window) const {
    if (!window->testAttribute(Qt::WA_WState_Polished))
        return;
    window->style()->unpolish(window);
    window->style()->polish(window);
    window->update();
}

void Flat_Controls::FlatCmd(int mode, QAbstractButton* button) const {
    if (!button)
        return;
    button->setMask(FlatCmdRegion(mode, platform::Width(button), platform::Height(button)));
}

} // namespace quillbrook
