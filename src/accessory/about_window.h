#pragma once

#include <QDialog>
#include <QTimer>

class QLabel;

namespace platform {
class HyperLabel;
}

namespace quillbrook {

class SplashPicture;

// The about box: a sheet of credits that climbs through the window without end. A click on the sheet stops it
// and sets it going again; only the link and the last line take their clicks for themselves.
class frmAbout final : public QDialog {
    Q_OBJECT

public:
    // Centred on the screen; the sheet stands at its first place and moves.
    explicit frmAbout(QWidget* parent = nullptr);

    QWidget* picCredits1; // the viewport, as large as the window
    QWidget* picCredits2; // the sheet
    SplashPicture* Image1;
    QLabel* Label1;
    platform::HyperLabel* lblWebsite;
    QLabel* lblCopyright;
    QLabel* Label8; // the biography
    QLabel* lblSelfTaught;
    QTimer* tmrCredits;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildSheet();
    void Tick();

    QObject* m_pressed = nullptr; // what the mouse button went down on
};

} // namespace quillbrook
