#include "output/mouse_pointer.h"

#include <QGuiApplication>

namespace quillbrook {

void MousePointer::Hourglass() {
    if (m_hourglass)
        return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_hourglass = true;
}

void MousePointer::Normal() {
    if (!m_hourglass)
        return;
    QGuiApplication::restoreOverrideCursor();
    m_hourglass = false;
}

PointerForDialog::PointerForDialog(MousePointer& pointer)
    : m_pointer(pointer)
    , m_hourglass(pointer.IsHourglass()) {
    m_pointer.Normal();
}

PointerForDialog::~PointerForDialog() {
    if (m_hourglass)
        m_pointer.Hourglass();
}

} // namespace quillbrook
