#include "platform/controls/combo_box.h"

#include "platform/controls/list_model.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace platform {

ComboBox::ComboBox(bool sorted, bool editable, QWidget* parent)
    : QComboBox(parent)
    , m_model(new ListModel(sorted, this)) {
    setModel(m_model);
    setEditable(editable);
    setInsertPolicy(QComboBox::NoInsert);
    setFocusPolicy(Qt::StrongFocus); // the wheel over it is the page's
    if (editable) {
        setCompleter(nullptr); // what is typed stays as typed
        // Qt would pick the entry that the text is equal to when the box is left
        disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    }
    connect(this, &QComboBox::activated, this, &ComboBox::Click);
}

void ComboBox::AddItem(const QString& text) {
    const QString shown = Text();
    const QSignalBlocker quiet(this);
    m_model->Insert(text);
    setText(shown); // the first entry added would select itself
}

void ComboBox::AddItems(const QStringList& texts) {
    const QString shown = Text();
    const QSignalBlocker quiet(this);
    m_model->InsertAll(texts);
    setText(shown);
}

void ComboBox::SetItems(const QStringList& items) {
    const QString shown = Text();
    const QSignalBlocker quiet(this);
    m_model->Replace(items);
    setText(shown);
}

void ComboBox::Clear() {
    const QSignalBlocker quiet(this);
    m_model->Clear();
    setText(QString());
}

int ComboBox::ListCount() const {
    return m_model->Count();
}

QString ComboBox::List(int index) const {
    return index >= 0 && index < ListCount() ? m_model->At(index) : QString();
}

QStringList ComboBox::Items() const {
    QStringList items;
    for (int i = 0; i < ListCount(); ++i)
        items.append(m_model->At(i));
    return items;
}

QString ComboBox::Text() const {
    return currentText();
}

void ComboBox::setText(const QString& text) {
    if (!isEditable()) {
        setCurrentIndex(text.isEmpty() ? -1 : m_model->Find(text));
        return;
    }
    if (lineEdit()->text() != text)
        lineEdit()->setText(text);
}

void ComboBox::setListIndex(int index) {
    if (index < 0 || index >= ListCount())
        return;
    setCurrentIndex(index);
    Q_EMIT Click();
}

// The list and the steps through it begin at the text that is shown, which need not be the entry picked last.
// Of entries that are equal the one picked last counts, so that the steps lead past them.
void ComboBox::FollowText() {
    const QString text = Text();
    if (!isEditable() || List(currentIndex()) == text)
        return;
    const int shown = m_model->Find(text);
    if (shown == currentIndex())
        return;
    const QSignalBlocker quiet(this);
    const QSignalBlocker quietEdit(lineEdit());
    setCurrentIndex(shown);
    lineEdit()->setText(text);
}

void ComboBox::showPopup() {
    FollowText();
    QComboBox::showPopup();
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down || event->key() == Qt::Key_PageUp ||
        event->key() == Qt::Key_PageDown)
        FollowText();
    QComboBox::keyPressEvent(event);
}

// Only a box that has the keyboard turns with the wheel: in passing it would change what is selected
// elsewhere.
void ComboBox::wheelEvent(QWheelEvent* event) {
    if (!hasFocus() && !(lineEdit() && lineEdit()->hasFocus())) {
        event->ignore();
        return;
    }
    FollowText();
    QComboBox::wheelEvent(event);
}

} // namespace platform
