#pragma once

#include <QRadioButton>

namespace platform {

// One of the options of a frame, of which at most one is set; none may be. The arrow keys go along the frame,
// Space sets an option. A control too narrow for the caption shows the dot alone.
class OptionButton final : public QRadioButton {
    Q_OBJECT

public:
    explicit OptionButton(const QString& caption, QWidget* parent = nullptr);

    bool Value() const { return isChecked(); }
    // Setting an option clears the others of its frame and raises Click, as the user's choice does; clearing
    // it raises nothing.
    void setValue(bool on);

Q_SIGNALS:
    void Click();

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace platform
