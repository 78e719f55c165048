#pragma once

#include <QtGlobal>

namespace quillbrook {

// The mouse pointer of the whole program: an hourglass or the normal one. Normal when this goes.
class MousePointer {
public:
    MousePointer() = default;
    ~MousePointer() { Normal(); }
    Q_DISABLE_COPY_MOVE(MousePointer)

    void Hourglass();
    void Normal();
    bool IsHourglass() const { return m_hourglass; }

private:
    bool m_hourglass = false;
};

// Shows the normal pointer over a dialog, and afterwards what was there before.
class PointerForDialog {
public:
    explicit PointerForDialog(MousePointer& pointer);
    ~PointerForDialog();
    Q_DISABLE_COPY_MOVE(PointerForDialog)

private:
    MousePointer& m_pointer;
    bool m_hourglass;
};

} // namespace quillbrook
