#include "output/save_dialog.h"

#include "platform/controls/centre.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace quillbrook {

constexpr int kTextWidth = 320;

frmSave::frmSave(bool ownForm, bool storedForm, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmSave"));
    setWindowTitle(QStringLiteral("Save Options:"));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 16);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(16);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    bntSaveWord =
        AddChoice("bntSaveWord", QStringLiteral("Save as .DOC File"),
                  QStringLiteral("Save the Form in Microsoft® Word® Document Format. This requires that you "
                                 "have Microsoft® Word® intalled in your computer system."),
                  SaveChoice::WordDocument);
    btnSaveRTF =
        AddChoice("btnSaveRTF", QStringLiteral("Save as .RTF File"),
                  QStringLiteral("Use if you don't have Microsoft® Word®. This saves the Form in a universal "
                                 "document format that may be opened in any word processor."),
                  SaveChoice::RichText);
    QString caption = QStringLiteral("Add to My Forms");
    QString text =
        QStringLiteral("Add the Form to the My Forms Collection. It may then be opened and searched for just "
                       "like any other Form or Template in the collection.");
    if (storedForm) {
        caption = QStringLiteral("Update Document");
        text = QStringLiteral(
            "Update / Save Changes to the Current Form / Template. It may then be opened and searched "
            "for just like any other Form or Template.");
    } else if (ownForm) {
        caption = QStringLiteral("Add as New Form");
    }
    btnAddtoMyForms = AddChoice("btnAddtoMyForms", caption, text, SaveChoice::MyForms);
    lblAddtoMyForms = findChild<QLabel*>(QStringLiteral("lblbtnAddtoMyForms"));
    btnCancel = new QPushButton(QStringLiteral("Cancel"));
    btnCancel->setObjectName(QStringLiteral("btnCancel"));
    connect(btnCancel, &QPushButton::clicked, this, &QDialog::reject);
    grid->addWidget(btnCancel, grid->rowCount(), 1, Qt::AlignRight);
    adjustSize();
    platform::CentreOnScreen(this);
    bntSaveWord->setFocus();
}

QPushButton* frmSave::AddChoice(const char* name, const QString& caption, const QString& text,
                                SaveChoice choice) {
    auto* grid = qobject_cast<QGridLayout*>(layout());
    const int row = grid->rowCount();
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    button->setMinimumSize(140, 36);
    connect(button, &QPushButton::clicked, this, [this, choice] {
        m_choice = choice;
        hide();
    });
    auto* label = new QLabel(text);
    label->setObjectName(QStringLiteral("lbl") + QLatin1String(name));
    label->setWordWrap(true);
    label->setFixedWidth(kTextWidth);
    button->setAccessibleDescription(text);
    grid->addWidget(button, row, 0, Qt::AlignTop);
    grid->addWidget(label, row, 1, Qt::AlignVCenter);
    return button;
}

} // namespace quillbrook
