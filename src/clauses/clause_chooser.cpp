#include "clauses/clause_chooser.h"

#include "appearance/icons.h"
#include "clauses/clause_variables.h"
#include "platform/controls/centre.h"
#include "platform/controls/frame.h"
#include "platform/controls/geometry.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/my_button.h"
#include "platform/controls/option_button.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>

namespace quillbrook {

using platform::MyButton;
using platform::OptionButton;

namespace {

constexpr int kOptionWidth = 255; // twips; no wider than its dot, the label shows the caption
constexpr int kMargin = 12;       // device-independent pixels, as all that follow
constexpr int kSpacing = 8;
constexpr int kRowSpacing = 4;
constexpr int kPictureSize = 48;
constexpr int kButtonWidth = 104;
constexpr int kButtonHeight = 28;

MyButton* MakeButton(const char* name, const QString& caption, QWidget* dialog) {
    auto* button = new MyButton(MyButton::Kind::Plain, dialog);
    button->setObjectName(QLatin1String(name));
    button->setCaption(caption);
    button->setFixedSize(kButtonWidth, kButtonHeight);
    return button;
}

} // namespace

ClauseChooser::ClauseChooser(ClauseDialog dialog, PublicVariables& variables, QWidget* parent)
    : QDialog(parent)
    , m_dialog(dialog)
    , m_variables(variables) {
    const ClauseDialogTexts& texts = TextsOf(dialog);
    setObjectName(QLatin1String(texts.name));
    setWindowTitle(QLatin1String(texts.caption));
    picture = MakePicture();

    auto* upper = new QHBoxLayout;
    upper->setSpacing(kMargin);
    upper->addWidget(picture, 0, Qt::AlignTop);
    std::vector<QVBoxLayout*> columns;
    for (const ClauseFrame& frame : kClauseFrames) {
        if (frame.dialog != dialog)
            continue;
        if (std::size_t(frame.column) == columns.size()) {
            columns.push_back(new QVBoxLayout);
            columns.back()->setSpacing(kSpacing);
            upper->addLayout(columns.back());
        }
        columns[std::size_t(frame.column)]->addWidget(MakeFrame(frame));
    }

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    all->setSpacing(kMargin);
    all->addLayout(upper);
    all->addLayout(MakeButtons());
    all->setSizeConstraint(QLayout::SetFixedSize);
    all->activate();

    platform::CentreOnScreen(this);
}

MyButton* ClauseChooser::MakePicture() {
    const ClauseDialogTexts& texts = TextsOf(m_dialog);
    auto* button = new MyButton(MyButton::Kind::Large, this);
    button->setObjectName(QLatin1String(texts.picture));
    button->setAccessibleName(QLatin1String(texts.tipTitle));
    button->setToolTip(
        QStringLiteral("<b>%1</b><br>%2").arg(QLatin1String(texts.tipTitle), QLatin1String(texts.tip)));
    button->setIcon(Picture(QLatin1String(texts.icon)));
    button->setIconSize({kPictureSize, kPictureSize});
    button->setFixedSize(kPictureSize + 2 * kSpacing, kPictureSize + 2 * kSpacing);
    button->setFocusPolicy(Qt::NoFocus); // the keyboard has nothing to do there
    return button;
}

platform::Frame* ClauseChooser::MakeFrame(const ClauseFrame& frame) {
    auto* box = new platform::Frame(QLatin1String(frame.caption), this);
    box->setObjectName(QLatin1String(frame.name));
    auto* rows = new QGridLayout(box);
    rows->setContentsMargins(kMargin, kSpacing, kMargin, kSpacing);
    rows->setHorizontalSpacing(kRowSpacing);
    rows->setVerticalSpacing(kRowSpacing);
    rows->setColumnStretch(1, 1);
    for (int number = frame.first; number <= frame.last; ++number) {
        const QString caption = QLatin1String(FindClauseChoice(m_dialog, number)->choiceText);
        auto* option = new OptionButton(caption, box);
        option->setObjectName(QStringLiteral("Option%1").arg(number));
        option->setFixedSize(platform::ToPixels(kOptionWidth), platform::ToPixels(kOptionWidth));
        auto* label = new platform::HyperLabel(caption, box);
        label->setObjectName(QStringLiteral("HyperLabel%1").arg(number));
        label->setFocusPolicy(Qt::NoFocus); // its option takes the keyboard
        rows->addWidget(option, number - frame.first, 0);
        rows->addWidget(label, number - frame.first, 1, Qt::AlignLeft);
        connect(option, &OptionButton::Click, this, [this, number] { OptionClick(number); });
        connect(label, &QAbstractButton::clicked, option, [option] { option->setValue(true); });
        m_options.push_back(option);
        m_labels.push_back(label);
    }
    rows->setRowStretch(frame.last - frame.first + 1, 1);
    return box;
}

QBoxLayout* ClauseChooser::MakeButtons() {
    CancelButton = MakeButton("CancelButton", tr("Cancel"), this);
    OKButton = MakeButton("OKButton", tr("Add to Form"), this);
    auto* row = new QHBoxLayout;
    row->setSpacing(kSpacing);
    row->addStretch();
    row->addWidget(CancelButton);
    row->addWidget(OKButton);
    connect(CancelButton, &MyButton::Click, this, &QDialog::reject);
    connect(OKButton, &MyButton::Click, this, &ClauseChooser::OKClick);
    return row;
}

// Options of one frame exclude each other by themselves.
void ClauseChooser::OptionClick(int number) {
    for (const int other : ChoicesToClear(m_dialog, number))
        Option(other)->setValue(false);
}

void ClauseChooser::OKClick() {
    std::vector<bool> isSet;
    for (const OptionButton* option : m_options)
        isSet.push_back(option->Value());
    if (const ClauseEntry* entry = ChosenClause(m_dialog, isSet))
        ChooseClause(m_variables, *entry);
    accept();
}

// Enter is the default button's, unless the other one has the focus.
void ClauseChooser::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        (CancelButton->hasFocus() ? CancelButton : OKButton)->click();
    else
        QDialog::keyPressEvent(event);
}

void ClauseChooser::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    const auto set = std::find_if(m_options.begin(), m_options.end(),
                                  [](const OptionButton* option) { return option->Value(); });
    (set == m_options.end() ? Option(1) : *set)->setFocus();
}

} // namespace quillbrook
