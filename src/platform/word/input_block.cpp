#include "platform/word/input_block.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace platform {

InputBlock::InputBlock()
    : m_dialogBefore(QApplication::activeModalWidget()) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool InputBlock::eventFilter(QObject* receiver, QEvent* event) {
    // the windows behind a dialog take no input anyhow, but would close
    const QWidget* dialog = QApplication::activeModalWidget();
    if (dialog && dialog != m_dialogBefore &&
        (event->type() != QEvent::Close || receiver == dialog || receiver == dialog->windowHandle()))
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::NonClientAreaMouseButtonPress:
    case QEvent::Wheel:
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
    case QEvent::ToolTip:
    case QEvent::Close:
        event->ignore();
        return true;
    default:
        return false;
    }
}

} // namespace platform
