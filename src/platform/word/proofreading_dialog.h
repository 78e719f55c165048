#pragma once

#include "platform/word/proofreading.h"

#include <QDialog>
#include <QEventLoop>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTextEdit;

namespace platform {

// Shows one finding after the other in its sentence and takes the user's answer; stays open from one to the
// next. Closing it or Escape is Cancel.
class ProofreadingDialog final : public QDialog, public ProofreadingUser {
    Q_OBJECT

public:
    explicit ProofreadingDialog(QWidget* parent);

    ProofreadingReply Ask(const QString& paragraph, const Finding& finding) override;
    // Whether an answer is waited for; otherwise the next finding is looked for.
    bool IsAsking() const { return m_wait.isRunning(); }

    QLabel* lblFinding; // what is wrong
    QTextEdit* txtSentence;
    QLineEdit* txtChangeTo;
    QListWidget* lstSuggestions;
    QPushButton* btnIgnore;
    QPushButton* btnIgnoreAll;
    QPushButton* btnAddToDictionary;
    QPushButton* btnChange;
    QPushButton* btnChangeAll;
    QPushButton* btnCancel;

    void reject() override;

private:
    QPushButton* AddButton(const char* name, const QString& caption, ProofreadingAnswer answer);
    void BuildLayout();
    void Show(const QString& paragraph, const Finding& finding);
    void Answer(ProofreadingAnswer answer);

    QEventLoop m_wait;
    ProofreadingReply m_reply;
};

} // namespace platform
