#pragma once

#include "output/page_model.h"

#include <QDialog>
#include <array>

class QButtonGroup;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quillbrook {

// The page setup dialog. It is hidden rather than closed: its boxes hold the paper and the margins that
// documents are sent out with, for as long as the program runs. There is nothing to cancel, so closing it by
// its frame or by Escape is the same as btnOk.
class frmPageSetup final : public QDialog {
    Q_OBJECT

public:
    // Writes the texts of the start into `model`, and from then on keeps it equal to what the boxes show.
    // `parent` may be null.
    frmPageSetup(PageModel& model, QWidget* parent);

    // Shows in the boxes what was changed in the model.
    void ShowModel();

    void reject() override;

Q_SIGNALS:
    // The dialog chose or renamed a paper: the menu is to follow.
    void PaperChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* BuildPaper();
    QWidget* BuildMargins();
    QWidget* BuildOption(const PaperSize& size);
    QWidget* BuildBox(const PageBoxControls& row);
    QWidget* BuildArrow(const PageBoxControls& row, Arrow arrow);
    QLineEdit* Box(PageBox box) const { return m_boxes[static_cast<std::size_t>(box)]; }
    QRadioButton* Option(Paper paper) const { return m_options[static_cast<std::size_t>(paper)]; }

    void OptionClick(Paper paper);
    void ArrowClick(PageBox box, Arrow arrow);
    void Confirm();
    void Centre();

    PageModel& m_model;
    QButtonGroup* m_group;  // of the options: one of them is selected
    bool m_showing = false; // the boxes are being written by the program
    std::array<QLineEdit*, kPageBoxes.size()> m_boxes{};
    std::array<std::array<QWidget*, 2>, kPageBoxes.size()> m_arrows{};
    std::array<QRadioButton*, kPaperSizes.size()> m_options{};
    QPushButton* btnOk;
};

} // namespace quillbrook
