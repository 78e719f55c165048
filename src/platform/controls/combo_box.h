#pragma once

#include <QComboBox>
#include <QStringList>

namespace platform {

class ListModel;

// A combo box: a list of texts, and a text of its own that may be typed where `editable`.
class ComboBox final : public QComboBox {
    Q_OBJECT

public:
    ComboBox(bool sorted, bool editable, QWidget* parent = nullptr);

    void AddItem(const QString& text);
    void AddItems(const QStringList& texts);
    void SetItems(const QStringList& items); // replaces all entries; the text of an editable box stays
    void Clear();                            // the entries and the text

    int ListCount() const;
    QString List(int index) const; // empty outside the list
    QStringList Items() const;

    // The text shown. Setting a text equal to the present one leaves the caret where it is. In a box that is
    // not editable only a text of the list, or the empty text for none, can be set.
    QString Text() const;
    void setText(const QString& text);

    int ListIndex() const { return currentIndex(); }
    void setListIndex(int index); // raises Click when the index is in the list

    void showPopup() override;

Q_SIGNALS:
    void Click(); // an entry was picked, by the user or by setListIndex

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void FollowText();

    ListModel* m_model;
};

} // namespace platform
