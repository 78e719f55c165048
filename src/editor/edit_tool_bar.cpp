#include "editor/edit_tool_bar.h"

#include "appearance/icons.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/my_button.h"

#include <QFrame>

namespace quillbrook {

using platform::ComboBox;
using platform::MyButton;

namespace {

// Device-independent pixels. The bar has the room between its top and the pane's: 72 pixels on each page.
constexpr int kBarWidth = 652;
constexpr int kBarHeight = 68;
constexpr int kButtonWidth = 30;
constexpr int kControlHeight = 28;
constexpr int kUpperTop = 3;
constexpr int kLowerTop = 36;
constexpr int kPitch = 32;
constexpr int kInset = 6;     // of the first control of a row
constexpr int kGroupGap = 12; // between groups of buttons that belong together

// Places controls one after the other along a row.
class Row {
public:
    Row(QWidget* bar, int top)
        : m_bar(bar)
        , m_top(top) {}

    MyButton* Button(MyButton::Kind kind, const char* name, const QString& tip, const char* picture) {
        auto* button = new MyButton(kind, m_bar);
        button->setObjectName(QLatin1String(name));
        button->setToolButtonStyle(Qt::ToolButtonIconOnly);
        const QString file = QLatin1String(picture);
        button->setIcon(kind == MyButton::Kind::Toggle ? TogglePicture(file) : Picture(file));
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        button->setGeometry(m_left, m_top, kButtonWidth, kControlHeight);
        m_left += kPitch;
        return button;
    }

    ComboBox* Combo(const char* name, const QString& accessibleName, int width) {
        auto* box = new ComboBox(false, true, m_bar);
        box->setObjectName(QLatin1String(name));
        box->setAccessibleName(accessibleName);
        box->setToolTip(accessibleName);
        box->setGeometry(m_left, m_top, width, kControlHeight);
        m_left += width + 4;
        return box;
    }

    void Gap() { m_left += kGroupGap; }

private:
    QWidget* m_bar;
    int m_top;
    int m_left = kInset;
};

} // namespace

QStringList OfferedFonts(const QStringList& screenFonts) {
    return screenFonts.mid(0, screenFonts.size() - 1);
}

EditToolBar::EditToolBar(QWidget* window)
    : QObject(window)
    , fmeEditToolBar(new QFrame(window)) {
    fmeEditToolBar->setObjectName(QStringLiteral("fmeEditToolBar"));
    fmeEditToolBar->resize(kBarWidth, kBarHeight);
    BuildUpperRow();
    BuildLowerRow();
    fmeEditToolBar->hide();
}

void EditToolBar::BuildUpperRow() {
    using enum MyButton::Kind;
    Row row(fmeEditToolBar, kUpperTop);
    cboFonts = row.Combo("cboFonts", tr("Font"), 220);
    cboFontSize = row.Combo("cboFontSize", tr("Font Size"), 64);
    row.Gap();
    btnFontDialog = row.Button(Tool, "btnFontDialog", tr("Display Fonts"), "font");
    btnFontColor = row.Button(Tool, "btnFontColor", tr("Change Font Color"), "text-color");
    row.Gap();
    btnCut = row.Button(Tool, "btnCut", tr("Cut"), "cut");
    btnCopy = row.Button(Tool, "btnCopy", tr("Copy"), "copy");
    btnPaste = row.Button(Tool, "btnPaste", tr("Paste"), "paste");
    row.Gap();
    btnUndo = row.Button(Tool, "btnUndo", tr("Undo"), "undo");
    btnRedo = row.Button(Tool, "btnRedo", tr("Redo"), "redo");
    // they take the places of the two before them when the window loads
    btnMyUndo = row.Button(Tool, "btnMyUndo", tr("Undo"), "undo");
    btnMyRedo = row.Button(Tool, "btnMyRedo", tr("Redo"), "redo");
    for (MyButton* button : {btnMyUndo, btnMyRedo})
        button->setEnabled(false);
}

void EditToolBar::BuildLowerRow() {
    using enum MyButton::Kind;
    Row row(fmeEditToolBar, kLowerTop);
    btnBold = row.Button(Toggle, "btnBold", tr("Toggle Bold"), "bold");
    btnItalic = row.Button(Toggle, "btnItalic", tr("Toggle Italic"), "italic");
    btnUnderline = row.Button(Toggle, "btnUnderline", tr("Toggle Underline"), "underline");
    row.Gap();
    btnLeft = row.Button(Toggle, "btnLeft", tr("Align Left"), "align-left");
    btnCenter = row.Button(Toggle, "btnCenter", tr("Align Center"), "align-center");
    btnRight = row.Button(Toggle, "btnRight", tr("Align Right"), "align-right");
    row.Gap();
    btnDecrease = row.Button(Tool, "btnDecrease", tr("Decrease Indent"), "indent-decrease");
    btnIncrease = row.Button(Tool, "btnIncrease", tr("Increase Indent"), "indent-increase");
    row.Gap();
    btnUpper = row.Button(Tool, "btnUpper", tr("Convert the Selected Text to Upper Case"), "upper-case");
    btnLower = row.Button(Tool, "btnLower", tr("Convert the Selected Text to Lower Case"), "lower-case");
}

void EditToolBar::FillFonts(const QStringList& screenFonts) {
    cboFonts->AddItems(OfferedFonts(screenFonts));
    for (int size = 8; size <= 48; size += 2)
        cboFontSize->AddItem(QString::number(size));
    cboFonts->setListIndex(0);
    cboFontSize->setListIndex(2);
}

} // namespace quillbrook
