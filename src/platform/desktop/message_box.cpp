#include "platform/desktop/message_box.h"

#include <QMessageBox>

namespace platform {

static QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

MessageAnswer DesktopMessageBox::Show(QWidget* parent, const QString& text, MessageButtons buttons,
                                      MessageIcon icon, const QString& title) {
    QMessageBox box(parent);
    box.setIcon(IconOf(icon));
    box.setWindowTitle(title);
    // titles and names stand in the texts: nothing in them may be taken for markup
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    if (buttons == MessageButtons::YesNo) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::No);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    const int answer = box.exec();
    if (buttons == MessageButtons::Ok)
        return MessageAnswer::Ok;
    return answer == QMessageBox::Yes ? MessageAnswer::Yes : MessageAnswer::No;
}

} // namespace platform
