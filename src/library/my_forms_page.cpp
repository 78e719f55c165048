#include "library/my_forms_page.h"

#include "app/workbench.h"
#include "appearance/icons.h"
#include "library/library_store.h"
#include "library/repeats.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/focus.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>

namespace quillbrook {

using platform::ComboBox;
using platform::Frame;
using platform::ListBox;
using platform::MyButton;
using platform::PlaceOnPage;
using platform::SetFocus;

MyFormsPage::MyFormsPage(QWidget* page, Workbench& workbench, WindowState& state, LibraryStore& store,
                         platform::Services& services)
    : QObject(page)
    , m_workbench(workbench)
    , m_state(state)
    , m_store(store)
    , m_services(services) {
    BuildLists(page);
    BuildFields(page);
    BuildButtons(page);
    fmeMyTitle->raise(); // it lies over the fields
    connect(lstMySubCategory, &ListBox::Click, this, &MyFormsPage::MySubCategoryClick);
    connect(lstMyTitle, &ListBox::Click, this, &MyFormsPage::MyTitleClick);
    connect(lstMyTitle, &ListBox::DoubleClick, this, &MyFormsPage::EditMyForm);
    connect(btnNew, &MyButton::Click, this, &MyFormsPage::StartNewMyForm);
    connect(btnEdit, &MyButton::Click, this, [this] {
        EditMyForm();
        SetFocus(txtMyTitle); // the button is gone, and the next one asks to save
    });
    connect(btnAddNew, &MyButton::Click, this, &MyFormsPage::AddNewMyForm);
    connect(btnUpdate, &MyButton::Click, this, &MyFormsPage::UpdateMyForm);
    connect(btnCancelNew, &MyButton::Click, this, &MyFormsPage::CancelNewMyForm);
    connect(btnDelete, &MyButton::Click, this, &MyFormsPage::DeleteMyForm);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        // not when the keyboard is only lent to a menu or another window
        if (now && now != txtMyTitle && now->window() == txtMyTitle->window() &&
            !qobject_cast<const QMenuBar*>(now))
            txtMyTitle->setCursorPosition(0);
    });
    connect(txtMyTitle, &QLineEdit::returnPressed, this, [this] { SetFocus(cboMySubCategory); });
    connect(cboMySubCategory->lineEdit(), &QLineEdit::returnPressed, this,
            [this] { SetFocus(m_workbench.txtMyContent()); });
    Show(MyFormsMode::Empty);
}

// Device-independent pixels from the corner of the tab control; the formatting bar begins at 148 on this
// page.
constexpr int kTop = 28;
constexpr int kHeight = 116;
constexpr int kFieldHeight = 56;
constexpr int kFieldsLeft = 216;
constexpr int kFieldsWidth = 226;
constexpr int kButtonsLeft = 450;
constexpr int kButtonWidth = 86;
constexpr int kImportLeft = 544;
constexpr int kImportWidth = 116;

static Frame* MakeFrame(QWidget* page, const char* name, const QString& caption) {
    auto* frame = new Frame(caption, page);
    frame->setObjectName(QLatin1String(name));
    return frame;
}

void MyFormsPage::BuildLists(QWidget* page) {
    frmSubCategory = MakeFrame(page, "frmSubCategory", tr("Click Category:"));
    PlaceOnPage(frmSubCategory, 8, kTop, 200, kHeight);
    lstMySubCategory = new ListBox(true, frmSubCategory);
    lstMySubCategory->setObjectName(QStringLiteral("lstMySubCategory"));
    lstMySubCategory->setAccessibleName(tr("Categories of my forms"));
    lstMySubCategory->WrapEntries();
    lstMySubCategory->setGeometry(6, 20, 188, kHeight - 26);

    fmeMyTitle = MakeFrame(page, "fmeMyTitle", tr("Click Title:"));
    PlaceOnPage(fmeMyTitle, kFieldsLeft, kTop, kFieldsWidth, kHeight);
    lstMyTitle = new ListBox(true, fmeMyTitle);
    lstMyTitle->setObjectName(QStringLiteral("lstMyTitle"));
    lstMyTitle->setAccessibleName(tr("Titles of my forms"));
    lstMyTitle->WrapEntries();
    lstMyTitle->setGeometry(6, 20, kFieldsWidth - 12, kHeight - 26);
}

void MyFormsPage::BuildFields(QWidget* page) {
    Frame6 = MakeFrame(page, "Frame6", tr("My Form's Title:"));
    PlaceOnPage(Frame6, kFieldsLeft, kTop, kFieldsWidth, kFieldHeight);
    txtMyTitle = new QLineEdit(Frame6);
    txtMyTitle->setObjectName(QStringLiteral("txtMyTitle"));
    txtMyTitle->setAccessibleName(tr("Title of my form"));
    txtMyTitle->setGeometry(6, 22, kFieldsWidth - 12, 26);

    Frame5 = MakeFrame(page, "Frame5", tr("My Form's Category:"));
    PlaceOnPage(Frame5, kFieldsLeft, kTop + kHeight - kFieldHeight, kFieldsWidth, kFieldHeight);
    cboMySubCategory = new ComboBox(true, true, Frame5);
    cboMySubCategory->setObjectName(QStringLiteral("cboMySubCategory"));
    cboMySubCategory->setAccessibleName(tr("Category of my form"));
    cboMySubCategory->setGeometry(6, 22, kFieldsWidth - 12, 26);
}

void MyFormsPage::BuildButtons(QWidget* page) {
    const auto make = [page](int row, const char* name, const QString& caption, const QString& tip,
                             const char* picture) {
        auto* button = new MyButton(MyButton::Kind::Plain, page);
        button->setObjectName(QLatin1String(name));
        button->setCaption(caption);
        button->setToolTip(tip);
        button->setIcon(Picture(QLatin1String(picture)));
        PlaceOnPage(button, kButtonsLeft, kTop + 2 + row * 28, kButtonWidth, 25);
        return button;
    };
    btnNew = make(0, "btnNew", tr("New"), tr("Make New Form"), "new");
    btnEdit = make(1, "btnEdit", tr("Edit"), tr("Edit Title & Category"), "edit");
    btnAddNew = make(1, "btnAddNew", tr("Add"), tr("Add Form to the Collection"), "add");
    btnUpdate = make(2, "btnUpdate", tr("Update"), tr("Update / Save Changes to the Current Form"), "update");
    btnCancelNew = make(2, "btnCancelNew", tr("Cancel"), tr("Cancel New Form"), "cancel");
    btnDelete = make(3, "btnDelete", tr("Delete"), tr("Delete Current Form from the Collection"), "delete");

    fmeImport = MakeFrame(page, "fmeImport", tr("From a File:"));
    PlaceOnPage(fmeImport, kImportLeft, kTop, kImportWidth, kHeight);
    btnImport = new MyButton(MyButton::Kind::Plain, fmeImport);
    btnImport->setObjectName(QStringLiteral("btnImport"));
    btnImport->setCaption(tr("Open Document"));
    btnImport->setToolTip(tr("Open / Import .DOC, .RTF or .TXT File from Disk"));
    btnImport->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    btnImport->setIconSize({32, 32});
    btnImport->setIcon(Picture(QStringLiteral("import")));
    btnImport->setGeometry(6, 22, kImportWidth - 12, kHeight - 28);
}

void MyFormsPage::Show(MyFormsMode mode) {
    const MyFormsView view = ViewOf(mode);
    fmeMyTitle->setVisible(view.fmeMyTitle);
    btnNew->setVisible(view.btnNew);
    btnEdit->setVisible(view.btnEdit);
    btnAddNew->setVisible(view.btnAddNew);
    btnUpdate->setVisible(view.btnUpdate);
    btnCancelNew->setVisible(view.btnCancelNew);
    btnDelete->setVisible(view.btnDelete);
    m_state.MyFormDisplayed = mode == MyFormsMode::Browsing || mode == MyFormsMode::Editing;
}

void MyFormsPage::DisplayMySubCategories() {
    lstMySubCategory->Clear();
    cboMySubCategory->Clear();
    const QStringList subCategories = m_store.ListMyForms();
    lstMySubCategory->AddItems(subCategories);
    cboMySubCategory->AddItems(subCategories);
    RemoveDuplicateMySubCategories();
    RemoveDuplicateMyCategoryChoices();
    if (lstMySubCategory->ListCount() == 0) {
        Show(MyFormsMode::Empty);
        return;
    }
    fmeMyTitle->show();
    lstMySubCategory->setListIndex(0);
    lstMyTitle->setListIndex(0);
    Show(MyFormsMode::Browsing);
}

void MyFormsPage::MySubCategoryClick() {
    // edits of the form on display are kept when another sub-category is chosen
    if (m_state.MyFormDisplayed && !txtMyTitle->text().isEmpty())
        m_store.SaveMyFormText(txtMyTitle->text(), m_workbench.txtMyContent()->TextRTF());
    lstMyTitle->Clear();
    lstMyTitle->AddItems(m_store.ListMyTitles(lstMySubCategory->Text()));
    RemoveDuplicateMyTitles();
    if (lstMySubCategory->ListCount() == 0) {
        Show(MyFormsMode::Empty);
    } else {
        fmeMyTitle->show();
        lstMyTitle->setListIndex(0);
        MyTitleClick();
        Show(MyFormsMode::Browsing);
    }
    m_state.NewFormMode = false;
}

void MyFormsPage::MyTitleClick() {
    const QString title = lstMyTitle->Text();
    if (!title.isEmpty()) {
        m_store.FindMyFormByTitle(title);
        if (const auto text = m_store.MyFormsField(QStringLiteral("Title")))
            txtMyTitle->setText(*text);
        if (const auto text = m_store.MyFormsField(QStringLiteral("SubCategory")))
            cboMySubCategory->setText(*text);
        if (const auto content = m_store.MyFormsField(QStringLiteral("Content")))
            m_workbench.txtMyContent()->setTextRTF(*content);
        m_store.CloseMyFormsQuery();
        ShowBeginnings();
    }
    SetFocus(m_workbench.txtMyContent());
    if (lstMySubCategory->ListCount() == 0) {
        Show(MyFormsMode::Empty);
    } else {
        Show(MyFormsMode::Browsing);
        Q_EMIT PlainFormShown();
    }
    m_state.NewFormMode = false;
    Q_EMIT HistoryStartsAfresh();
}

// Long titles are known by their beginning.
void MyFormsPage::ShowBeginnings() {
    txtMyTitle->setCursorPosition(0);
    cboMySubCategory->lineEdit()->setCursorPosition(0);
}

void MyFormsPage::StartNewMyForm() {
    Show(MyFormsMode::Composing);
    txtMyTitle->clear();
    cboMySubCategory->setText(QString());
    Q_EMIT NewFormBegun();
    SetFocus(txtMyTitle);
    m_state.NewFormMode = true;
    m_state.MyFormDisplayed = false;
    Q_EMIT HistoryStartsAfresh();
}

void MyFormsPage::EditMyForm() {
    if (m_state.NewFormMode)
        Show(MyFormsMode::Composing);
    else
        Show(m_state.MyFormDisplayed ? MyFormsMode::Editing : MyFormsMode::Empty);
}

void MyFormsPage::Inform(const QString& text, QWidget* next) {
    m_services.messageBox.Show(m_workbench.Window(), text, platform::MessageButtons::Ok,
                               platform::MessageIcon::Information, QStringLiteral("My Forms"));
    if (next)
        SetFocus(next);
}

bool MyFormsPage::Confirm(const QString& question) {
    return m_services.messageBox.Show(m_workbench.Window(), question, platform::MessageButtons::YesNo,
                                      platform::MessageIcon::Question,
                                      QStringLiteral("My Forms")) == platform::MessageAnswer::Yes;
}

bool MyFormsPage::HasTitle() {
    if (!txtMyTitle->text().isEmpty())
        return true;
    Inform(QStringLiteral("The Form has no TITLE!   "), txtMyTitle);
    return false;
}

bool MyFormsPage::HasSubCategoryAndText() {
    if (cboMySubCategory->Text().isEmpty()) {
        Inform(QStringLiteral("Please enter the Form's Category!   "), cboMySubCategory);
        return false;
    }
    if (m_workbench.txtMyContent()->Text().isEmpty()) {
        Inform(QStringLiteral("The Form is empty!   "), m_workbench.txtMyContent());
        return false;
    }
    return true;
}

bool MyFormsPage::IsTitleFree() {
    // a refused statement leaves an earlier row in force, which is then taken for the one of this title
    m_store.FindMyFormByTitle(txtMyTitle->text());
    if (m_store.MyFormsAtEnd())
        return true;
    const auto stored = [this](const QString& field) {
        return m_store.MyFormsField(field).value_or(QString());
    };
    Inform(QStringLiteral("A Form with the Title '") + stored(QStringLiteral("Title")) +
               QStringLiteral("'   \nalready exists under '") + stored(QStringLiteral("SubCategory")) +
               QStringLiteral("'.   \n\nPlease change the Title of your New Form.   "),
           txtMyTitle);
    return false;
}

void MyFormsPage::AddNewMyForm() {
    if (!HasTitle() || !IsTitleFree() || !HasSubCategoryAndText())
        return;
    // what was not stored stays on the screen
    if (!m_store.AddMyForm(txtMyTitle->text(), cboMySubCategory->Text(),
                           m_workbench.txtMyContent()->TextRTF()))
        return;
    m_state.DocumentSaved = true;
    DisplayMySubCategories();
    MyTitleClick();
    m_state.NewFormMode = false;
    Q_EMIT HistoryCleared();
}

void MyFormsPage::UpdateMyForm() {
    if (lstMySubCategory->ListCount() == 0) {
        AddNewMyForm();
        return;
    }
    if (!HasTitle() || !HasSubCategoryAndText())
        return;
    if (Confirm(QStringLiteral("Save Changes to the Current Form?   "))) {
        if (!m_store.UpdateMyForm(txtMyTitle->text(), cboMySubCategory->Text(),
                                  m_workbench.txtMyContent()->TextRTF())) {
            Inform(QStringLiteral("A Form with the Title '") + txtMyTitle->text() +
                       QStringLiteral("'   \nalready exists! Please change the Title of your Form.   "),
                   txtMyTitle);
            return;
        }
        m_state.DocumentSaved = true;
    }
    DisplayMySubCategories();
    m_state.NewFormMode = false;
    Q_EMIT HistoryCleared();
}

void MyFormsPage::CancelNewMyForm() {
    DisplayMySubCategories();
    MyTitleClick();
}

void MyFormsPage::DeleteMyForm() {
    if (lstMySubCategory->ListCount() == 0) {
        Inform(QStringLiteral("No Form was Found!   "), nullptr);
        return;
    }
    if (!Confirm(QStringLiteral("Delete Current Form?   ")))
        return;
    m_store.DeleteMyForm();
    txtMyTitle->clear();
    cboMySubCategory->setText(QString());
    m_workbench.txtMyContent()->setText(QString());
    lstMyTitle->Clear();
    DisplayMySubCategories();
    MyTitleClick();
    m_state.DocumentSaved = true;
}

void MyFormsPage::AddtoMyForms() {
    if (m_workbench.CurrentTab() == Tab::MyForms) {
        if (!btnUpdate->isHidden())
            UpdateMyForm();
        else
            AddNewMyForm();
    } else {
        m_workbench.SetTab(Tab::MyForms);
        MySubCategoryClick();
        StartNewMyForm();
        m_workbench.txtMyContent()->setTextRTF(m_workbench.txtContent()->TextRTF());
        AddNewMyForm();
    }
    m_state.DocumentSaved = false;
}

void MyFormsPage::RemoveDuplicateMySubCategories() {
    RemoveRepeats(*lstMySubCategory);
}
void MyFormsPage::RemoveDuplicateMyCategoryChoices() {
    RemoveRepeats(*cboMySubCategory);
}
void MyFormsPage::RemoveDuplicateMyTitles() {
    RemoveRepeats(*lstMyTitle);
}

} // namespace quillbrook
