#include "platform/word/proofreading_dialog.h"

#include "platform/controls/centre.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace platform {
namespace {

constexpr int kSentenceWidth = 380;
constexpr int kSentenceHeight = 96;
constexpr int kListHeight = 132;
const QColor kDoubted(0xc0, 0x1c, 0x28);

} // namespace

ProofreadingDialog::ProofreadingDialog(QWidget* parent)
    : QDialog(parent)
    , lblFinding(new QLabel(this))
    , txtSentence(new QTextEdit(this))
    , txtChangeTo(new QLineEdit(this))
    , lstSuggestions(new QListWidget(this)) {
    setObjectName(QStringLiteral("frmProofreading"));
    setWindowTitle(tr("Spelling & Grammar"));
    setModal(true);
    lblFinding->setWordWrap(true);
    txtSentence->setObjectName(QStringLiteral("txtSentence"));
    txtSentence->setReadOnly(true);
    txtSentence->setTabChangesFocus(true);
    txtSentence->setAccessibleName(tr("The sentence in the document"));
    txtSentence->setMinimumSize(kSentenceWidth, kSentenceHeight);
    txtChangeTo->setObjectName(QStringLiteral("txtChangeTo"));
    lstSuggestions->setObjectName(QStringLiteral("lstSuggestions"));
    lstSuggestions->setFixedHeight(kListHeight);
    btnIgnore = AddButton("btnIgnore", tr("&Ignore"), ProofreadingAnswer::Ignore);
    btnIgnoreAll = AddButton("btnIgnoreAll", tr("I&gnore All"), ProofreadingAnswer::IgnoreAll);
    btnAddToDictionary =
        AddButton("btnAddToDictionary", tr("&Add to Dictionary"), ProofreadingAnswer::AddToDictionary);
    btnChange = AddButton("btnChange", tr("&Change"), ProofreadingAnswer::Change);
    btnChangeAll = AddButton("btnChangeAll", tr("Change A&ll"), ProofreadingAnswer::ChangeAll);
    btnCancel = AddButton("btnCancel", tr("Close"), ProofreadingAnswer::Cancel);
    btnChange->setDefault(true);
    BuildLayout();
    connect(lstSuggestions, &QListWidget::currentTextChanged, txtChangeTo, [this](const QString& text) {
        if (!text.isEmpty())
            txtChangeTo->setText(text);
    });
    connect(lstSuggestions, &QListWidget::itemDoubleClicked, btnChange, &QPushButton::click);
}

QPushButton* ProofreadingDialog::AddButton(const char* name, const QString& caption,
                                           ProofreadingAnswer answer) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, [this, answer] { Answer(answer); });
    return button;
}

void ProofreadingDialog::BuildLayout() {
    auto* changeTo = new QLabel(tr("C&hange to:"), this);
    changeTo->setBuddy(txtChangeTo);
    auto* suggestions = new QLabel(tr("&Suggestions:"), this);
    suggestions->setBuddy(lstSuggestions);
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(16, 16, 16, 16);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(8);
    grid->addWidget(lblFinding, 0, 0);
    grid->addWidget(txtSentence, 1, 0);
    grid->addWidget(changeTo, 2, 0);
    grid->addWidget(txtChangeTo, 3, 0);
    grid->addWidget(suggestions, 4, 0);
    grid->addWidget(lstSuggestions, 5, 0);
    const auto column = [&](int row, const std::vector<QWidget*>& buttons) {
        auto* box = new QVBoxLayout;
        box->setSpacing(8);
        for (QWidget* button : buttons)
            box->addWidget(button);
        box->addStretch();
        grid->addLayout(box, row, 1);
    };
    column(1, {btnIgnore, btnIgnoreAll, btnAddToDictionary});
    grid->addWidget(btnChange, 3, 1);
    column(5, {btnChangeAll});
    grid->addWidget(btnCancel, 6, 1);
    setTabOrder(txtSentence, txtChangeTo);
    setTabOrder(txtChangeTo, lstSuggestions);
    setTabOrder(lstSuggestions, btnChange);
    setTabOrder(btnChange, btnChangeAll);
    setTabOrder(btnChangeAll, btnIgnore);
    setTabOrder(btnIgnore, btnIgnoreAll);
    setTabOrder(btnIgnoreAll, btnAddToDictionary);
    setTabOrder(btnAddToDictionary, btnCancel);
}

ProofreadingReply ProofreadingDialog::Ask(const QString& paragraph, const Finding& finding) {
    Show(paragraph, finding);
    if (!isVisible()) {
        adjustSize();
        platform::CentreOnScreen(this);
        show();
        activateWindow();
    }
    m_reply = {};
    m_wait.exec();
    return m_reply;
}

void ProofreadingDialog::Show(const QString& paragraph, const Finding& finding) {
    lblFinding->setText(finding.isGrammar ? finding.message : tr("Not in the dictionary:"));
    txtSentence->clear();
    txtSentence->setCurrentCharFormat(QTextCharFormat()); // else the mark of the last one goes on
    txtSentence->setPlainText(paragraph);
    QTextCursor doubted(txtSentence->document());
    doubted.setPosition(finding.start);
    doubted.setPosition(finding.start + finding.length, QTextCursor::KeepAnchor);
    QTextCharFormat red;
    red.setForeground(kDoubted);
    red.setFontWeight(QFont::Bold);
    red.setFontUnderline(true);
    doubted.mergeCharFormat(red);
    doubted.clearSelection();
    txtSentence->setTextCursor(doubted);
    txtSentence->ensureCursorVisible();
    lstSuggestions->clear();
    lstSuggestions->addItems(finding.suggestions);
    txtChangeTo->setText(paragraph.mid(finding.start, finding.length));
    if (lstSuggestions->count() > 0)
        lstSuggestions->setCurrentRow(0);
    btnAddToDictionary->setEnabled(!finding.isGrammar);
    btnChangeAll->setEnabled(!finding.isGrammar);
    txtChangeTo->setFocus();
    txtChangeTo->selectAll();
}

void ProofreadingDialog::Answer(ProofreadingAnswer answer) {
    if (!IsAsking())
        return;
    m_reply = {answer, txtChangeTo->text()};
    m_wait.quit();
}

void ProofreadingDialog::reject() {
    Answer(ProofreadingAnswer::Cancel);
    QDialog::reject();
}

} // namespace platform
