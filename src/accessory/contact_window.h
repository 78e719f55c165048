#pragma once

#include <QDialog>
#include <QTimer>

class QBoxLayout;
class QLabel;

namespace platform {
class HyperLabel;
class MyButton;
} // namespace platform

namespace quillbrook {

class TitlePulse;

// The author's card: fixed lines, links, and the name as a title that pulses.
class frmContact final : public QDialog {
    Q_OBJECT

public:
    // Centred on the screen. `pulse` goes on where the last card left it, and outlives this one.
    explicit frmContact(TitlePulse& pulse, QWidget* parent = nullptr);

    QLabel* Image1;
    QLabel* lblTitle;
    platform::HyperLabel* HyperLabel1; // mail
    platform::HyperLabel* HyperLabel2; // website
    platform::HyperLabel* HyperLabel3; // page on a social site
    QTimer* Timer1;
    platform::MyButton* cmdOK;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QBoxLayout* BuildCard();
    QBoxLayout* BuildLinks();
    void Tick();

    TitlePulse& m_pulse;
};

} // namespace quillbrook
