#include "platform/word/input_block.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QPushButton>
#include <QToolButton>
#include <QWindow>

namespace platform {

namespace {

bool IsPopup(const QObject* object) {
    if (const auto* widget = qobject_cast<const QWidget*>(object))
        return widget->windowType() == Qt::Popup;
    const auto* window = qobject_cast<const QWindow*>(object);
    return window && window->type() == Qt::Popup;
}

} // namespace

InputBlock::InputBlock()
    : m_dialogBefore(QApplication::activeModalWidget()) {
    QCoreApplication::instance()->installEventFilter(this);
    for (QWidget* widget : QApplication::allWidgets()) {
        const bool isButton = qobject_cast<QPushButton*>(widget) || qobject_cast<QToolButton*>(widget);
        if (isButton && widget->isVisible())
            Silence(widget);
        for (QAction* entry : widget->actions()) {
            if (entry->isCheckable() && !entry->signalsBlocked())
                m_marks.push_back({entry, entry->isChecked()});
            Silence(entry);
        }
    }
}

// An entry that was chosen has moved its mark, and nobody who would have moved it back was told.
InputBlock::~InputBlock() {
    for (const Mark& mark : m_marks)
        if (mark.entry)
            mark.entry->setChecked(mark.isChecked);
    for (const QPointer<QObject>& object : m_silenced)
        if (object)
            object->blockSignals(false);
}

void InputBlock::Silence(QObject* object) {
    if (!object->blockSignals(true))
        m_silenced.push_back(object);
}

bool InputBlock::eventFilter(QObject* receiver, QEvent* event) {
    // the windows behind a dialog take no input anyhow, but would close
    const QWidget* dialog = QApplication::activeModalWidget();
    if (dialog && dialog != m_dialogBefore &&
        (event->type() != QEvent::Close || receiver == dialog || receiver == dialog->windowHandle()))
        return false;
    if (QApplication::activePopupWidget() && (event->type() != QEvent::Close || IsPopup(receiver)))
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
