#include "platform/word/input_block.h"

#include "platform/controls/my_button.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QWindow>

namespace platform {

namespace {

bool IsPopup(const QObject* object) {
    if (const auto* widget = qobject_cast<const QWidget*>(object))
        return widget->windowType() == Qt::Popup;
    const auto* window = qobject_cast<const QWindow*>(object);
    return window && window->type() == Qt::Popup;
}

// Whether being chosen is all that the control has to tell. One that a click lets show another choice would
// show it, and nobody was told.
bool OnlyTellsThatItIsChosen(const QWidget* widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    return button && (!button->isCheckable() || qobject_cast<const MyButton*>(button));
}

} // namespace

InputBlock::InputBlock()
    : m_dialogBefore(QApplication::activeModalWidget()) {
    QCoreApplication::instance()->installEventFilter(this);
    for (QWidget* widget : QApplication::allWidgets()) {
        // pages that are hidden may come to the front; a dialog that opens is to take input
        if (OnlyTellsThatItIsChosen(widget) && widget->window()->isVisible())
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
