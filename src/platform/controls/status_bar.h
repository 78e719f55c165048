#pragma once

#include <QWidget>
#include <vector>

class QAbstractButton;

namespace platform {

// A bar of panels with fixed texts, each of which can be clicked. The first panel takes the width left over.
class StatusBar final : public QWidget {
    Q_OBJECT

public:
    explicit StatusBar(QWidget* parent = nullptr);

    void AddPanel(const QString& text);
    QAbstractButton* Panel(int index) const; // from 1, null outside

Q_SIGNALS:
    void PanelClick(int index); // from 1

private:
    std::vector<QAbstractButton*> m_panels;
};

} // namespace platform
