#pragma once

class QAbstractButton;
class QWidget;

namespace quillbrook {

// Takes the sunken edge off controls: a thin flat one is left, and the control keeps its place and size.
// Holds no data. A control that is null is passed over.
class Flat_Controls {
public:
    void FlatTxt(QWidget* control) const;
    void FlatObjects(QWidget* window) const;

    // Shows only a part of a button: in mode 1 its inner part without the raised edge, else all of it.
    void FlatCmd(int mode, QAbstractButton* button) const;

private:
    void FlatBorder(QWidget* window) const;
};

} // namespace quillbrook
