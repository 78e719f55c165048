#pragma once

#include "clauses/clause_choice.h"

#include <QDialog>
#include <vector>

class QBoxLayout;

namespace platform {
class Frame;
class HyperLabel;
class MyButton;
class OptionButton;
} // namespace platform

namespace quillbrook {

struct PublicVariables;

// A dialog of clauses: frames of choices, of which at most one is set in the whole dialog. It inserts
// nothing; OK writes the choice into the shared variables, Cancel writes nothing, and either hides the
// dialog. It opens again with the last choice set.
class ClauseChooser : public QDialog {
    Q_OBJECT

public:
    // Centred on the screen once, when it is made.
    ClauseChooser(ClauseDialog dialog, PublicVariables& variables, QWidget* parent);

    // Of a choice by its number, from 1.
    platform::OptionButton* Option(int number) const { return m_options[std::size_t(number) - 1]; }
    platform::HyperLabel* HyperLabel(int number) const { return m_labels[std::size_t(number) - 1]; }
    int Choices() const { return int(m_options.size()); }

    platform::MyButton* OKButton;
    platform::MyButton* CancelButton;
    platform::MyButton* picture; // a button without any action

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    platform::MyButton* MakePicture();
    platform::Frame* MakeFrame(const ClauseFrame& frame);
    QBoxLayout* MakeButtons();
    void OptionClick(int number);
    void OKClick();

    ClauseDialog m_dialog;
    PublicVariables& m_variables;
    std::vector<platform::OptionButton*> m_options;
    std::vector<platform::HyperLabel*> m_labels;
};

// Jurats and acknowledgments.
class frmJurat final : public ClauseChooser {
    Q_OBJECT

public:
    explicit frmJurat(PublicVariables& variables, QWidget* parent = nullptr)
        : ClauseChooser(ClauseDialog::frmJurat, variables, parent) {}
};

// Captions, verifications and what else a pleading needs.
class frmVerification final : public ClauseChooser {
    Q_OBJECT

public:
    explicit frmVerification(PublicVariables& variables, QWidget* parent = nullptr)
        : ClauseChooser(ClauseDialog::frmVerification, variables, parent) {}
};

} // namespace quillbrook
