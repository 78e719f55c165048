#pragma once

#include <QToolButton>

namespace platform {

// A button with caption, picture and tip. It can show itself pressed, which is the program's to set: a click
// alone does not change it. With a drop-down part it tells a click there apart.
class MyButton final : public QToolButton {
    Q_OBJECT
    Q_PROPERTY(QString kind READ KindName CONSTANT)

public:
    enum class Kind {
        Plain,  // caption, with a picture before it where one is set
        Tool,   // a small picture; for bars
        Toggle, // can show itself pressed
        Large,  // picture above, of 32 pixels; for the toolbar at the left
    };

    explicit MyButton(Kind kind, QWidget* parent = nullptr);

    QString Caption() const { return text(); }
    void setCaption(const QString& caption) { setText(caption); }

    bool Value() const { return isChecked(); }
    void setValue(bool pressed) { setChecked(pressed); }

    QString KindName() const; // "plain", "tool", "toggle", "large": for the rules of the look

    // Adds the drop-down part. The keyboard reaches it by Alt+Down.
    void AddDropDown();

Q_SIGNALS:
    void Click();
    void DropDownClick();

protected:
    void nextCheckState() override {} // the pressed state is set by the program alone
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Kind m_kind;
};

} // namespace platform
