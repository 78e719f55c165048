#include "platform/controls/my_button.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionToolButton>

namespace platform {

MyButton::MyButton(Kind kind, QWidget* parent)
    : QToolButton(parent)
    , m_kind(kind) {
    setCheckable(kind == Kind::Toggle);
    setAutoRaise(true);
    setFocusPolicy(Qt::StrongFocus);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIconSize(kind == Kind::Large ? QSize(32, 32) : QSize(16, 16));
    if (kind == Kind::Large)
        setToolButtonStyle(Qt::ToolButtonIconOnly);
    connect(this, &QAbstractButton::clicked, this, &MyButton::Click);
}

QString MyButton::KindName() const {
    switch (m_kind) {
    case Kind::Plain:
        return QStringLiteral("plain");
    case Kind::Tool:
        return QStringLiteral("tool");
    case Kind::Toggle:
        return QStringLiteral("toggle");
    case Kind::Large:
        return QStringLiteral("large");
    }
    return {};
}

void MyButton::AddDropDown() {
    setPopupMode(QToolButton::MenuButtonPopup);
}

void MyButton::mousePressEvent(QMouseEvent* event) {
    if (popupMode() == QToolButton::MenuButtonPopup && event->button() == Qt::LeftButton) {
        QStyleOptionToolButton option;
        initStyleOption(&option);
        const QRect part =
            style()->subControlRect(QStyle::CC_ToolButton, &option, QStyle::SC_ToolButtonMenu, this);
        if (part.contains(event->position().toPoint())) {
            Q_EMIT DropDownClick();
            return;
        }
    }
    QToolButton::mousePressEvent(event);
}

void MyButton::keyPressEvent(QKeyEvent* event) {
    const bool dropsDown = popupMode() == QToolButton::MenuButtonPopup && event->key() == Qt::Key_Down &&
                           (event->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier;
    if (dropsDown)
        Q_EMIT DropDownClick();
    else
        QToolButton::keyPressEvent(event);
}

} // namespace platform
