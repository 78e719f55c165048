#pragma once

#include <QObject>

namespace platform {
class MyButton;
}

namespace quillbrook {

// The column of large buttons at the window's left edge.
class LeftToolbar final : public QObject {
    Q_OBJECT

public:
    // Builds picLeftToolbar as a child of `window`.
    explicit LeftToolbar(QWidget* window);

    QWidget* picLeftToolbar;
    platform::MyButton* btnSave;
    platform::MyButton* AddVerification;
    platform::MyButton* cmdAddJurat;
    platform::MyButton* btnSpellCheck;
    platform::MyButton* btnEditMSWord;
    platform::MyButton* btnPrint;
    platform::MyButton* btnHelp;
};

} // namespace quillbrook
