#pragma once

#include <QObject>
#include <QStringList>

class QFrame;
namespace platform {
class ComboBox;
class MyButton;
} // namespace platform

namespace quillbrook {

// The screen's fonts as the formatting bar offers them: all but the last one.
QStringList OfferedFonts(const QStringList& screenFonts);

// The formatting bar over the panes, in two rows.
class EditToolBar final : public QObject {
    Q_OBJECT

public:
    // Builds the bar as a child of `window`, hidden.
    explicit EditToolBar(QWidget* window);

    // Fills the font lists: the offered fonts, and the even sizes from 8 to 48.
    void FillFonts(const QStringList& screenFonts);

    QFrame* fmeEditToolBar;
    platform::ComboBox* cboFonts;
    platform::ComboBox* cboFontSize;
    platform::MyButton* btnCut;
    platform::MyButton* btnCopy;
    platform::MyButton* btnPaste;
    platform::MyButton* btnUndo;
    platform::MyButton* btnRedo;
    platform::MyButton* btnMyUndo;
    platform::MyButton* btnMyRedo;
    platform::MyButton* btnBold;
    platform::MyButton* btnItalic;
    platform::MyButton* btnUnderline;
    platform::MyButton* btnLeft;
    platform::MyButton* btnCenter;
    platform::MyButton* btnRight;
    platform::MyButton* btnDecrease;
    platform::MyButton* btnIncrease;
    platform::MyButton* btnUpper;
    platform::MyButton* btnLower;
    platform::MyButton* btnFontDialog;
    platform::MyButton* btnFontColor;

private:
    void BuildUpperRow();
    void BuildLowerRow();
};

} // namespace quillbrook
