#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace quillbrook {

enum class SaveChoice { None, WordDocument, RichText, MyForms };

// Asks where a form shall go; hides itself on each choice, which its owner then carries out.
class frmSave final : public QDialog {
    Q_OBJECT

public:
    // `ownForm`: the My Forms page is on top; `storedForm`: it shows a form of the collection.
    frmSave(bool ownForm, bool storedForm, QWidget* parent);

    SaveChoice Choice() const { return m_choice; }

    QPushButton* bntSaveWord;
    QPushButton* btnSaveRTF;
    QPushButton* btnAddtoMyForms;
    QPushButton* btnCancel;
    QLabel* lblAddtoMyForms; // the text beside the button

private:
    QPushButton* AddChoice(const char* name, const QString& caption, const QString& text, SaveChoice choice);

    SaveChoice m_choice = SaveChoice::None;
};

} // namespace quillbrook
