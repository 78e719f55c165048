#pragma once

#include <QBasicTimer>
#include <QListView>
#include <QStringList>

namespace platform {

class ListModel;

// A list of texts of which at most one is selected. A sorted list keeps its entries in alphabetical order
// (without case, accented letters beside their base letters), whatever the order of insertion.
class ListBox final : public QListView {
    Q_OBJECT

public:
    explicit ListBox(bool sorted, QWidget* parent = nullptr);

    // Lets long entries go on in further lines instead of ending in dots.
    void WrapEntries();

    // The height of each entry of one line, in device-independent pixels; a font that needs more gets more.
    // For lists whose own height goes by the number of their entries. 0, at first: as the font wants it.
    int EntryHeight() const { return m_entryHeight; }
    void setEntryHeight(int height) { m_entryHeight = height; }

    // Adds at the place that the order gives, or at the end of an unsorted list. The selection stays.
    void AddItem(const QString& text);
    // The same for many, at the cost of one sort.
    void AddItems(const QStringList& texts);
    void RemoveItem(int index);
    void Clear();

    int ListCount() const;
    QString List(int index) const; // empty outside the list
    QStringList Items() const;

    // Replaces all entries by the given ones, which are in this list's order already; nothing stays selected.
    void SetItems(const QStringList& items);

    // The selected text, empty when nothing is selected. Setting selects the first entry of exactly this text
    // and raises Click; a text that is not in the list selects nothing and raises nothing.
    QString Text() const;
    void setText(const QString& text);

    // The selected index, -1 for none. Setting an index inside the list raises Click.
    int ListIndex() const;
    void setListIndex(int index);

Q_SIGNALS:
    // The user chose an entry by mouse or key, or the program by setText or setListIndex. An entry whose
    // first letters are typed is chosen when no further letter comes, or right before what the user does next
    // elsewhere by mouse or shortcut; Enter chooses what is selected at once, and again.
    void Click();
    void DoubleClick();
    // The mouse moved over the list, over the entry of an index or, with -1, beside all of them.
    void MouseMove(Qt::MouseButtons buttons, int index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyboardSearch(const QString& search) override;
    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void FitEntries();
    QModelIndex EntryAt(const QPoint& place) const; // only an entry of which a line is seen
    void ChooseTyped();
    void StopTyping();

    ListModel* m_model;
    bool m_wraps = false;
    int m_entryHeight = 0;
    QBasicTimer m_typing;     // runs until no further letter is waited for
    int m_typedFrom = -1;     // selected before the first letter
    bool m_mouseDown = false; // a choice by mouse counts when the button is let go
    bool m_quiet = false;     // the program changes the selection: it raises Click itself, or not at all
};

// The text by which entries are put in order: small letters, accents removed.
QString AlphabeticalKey(const QString& text);

} // namespace platform
