#pragma once

#include <QWidget>

class QStackedWidget;
class QTabBar;

namespace platform {

// Tabs with a page each, numbered from 0. The strip of tabs has a fixed height, so that controls can be
// placed on a page by their place in the whole tab control. Ctrl+Page Down and Ctrl+Page Up turn to the next
// and the previous page from anywhere in the window, round and round.
class SSTab final : public QWidget {
    Q_OBJECT

public:
    static constexpr int kStripHeight = 27; // device-independent pixels

    explicit SSTab(QWidget* parent = nullptr);

    QWidget* AddPage(const QString& caption, const QIcon& picture); // owned by the tab control
    QWidget* Page(int tab) const;
    QTabBar* Strip() const { return m_strip; }

    // Assigning another tab raises Click as the user's choice does; assigning the present one does nothing.
    int Tab() const;
    void setTab(int tab);

Q_SIGNALS:
    void Click(int previousTab);
    void MouseMove(); // the mouse moved over the tabs or over a page's own ground

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QTabBar* m_strip;
    QStackedWidget* m_pages;
    int m_previous = 0;
};

// Places a control on a page; `x` and `y` count from the corner of the tab control, in device-independent
// pixels.
void PlaceOnPage(QWidget* control, int x, int y, int width, int height);

} // namespace platform
