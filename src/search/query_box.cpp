#include "search/query_box.h"

#include "platform/controls/combo_box.h"
#include "search/guide_text.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>

namespace quillbrook {
namespace {

bool AllQueryCharacters(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return IsQueryCharacter(c.unicode()); });
}

// Copying, pasting and the like, which Qt hands over with a control character or a plain one as their text.
bool IsCommand(const QKeyEvent& event) {
    const bool isControl =
        (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
    return isControl || event.text().front() < u' ';
}

} // namespace

QueryBox::QueryBox(platform::ComboBox* box, QLabel* lblSearchGuide, QLabel* lblSearchGuide1,
                   std::function<SearchMode()> mode)
    : QObject(box)
    , cboQuery(box)
    , tmrUpdateSearchGuide(new QTimer(this))
    , m_lblSearchGuide(lblSearchGuide)
    , m_lblSearchGuide1(lblSearchGuide1)
    , m_mode(std::move(mode)) {
    tmrUpdateSearchGuide->setObjectName(QStringLiteral("tmrUpdateSearchGuide"));
    tmrUpdateSearchGuide->setSingleShot(true);
    tmrUpdateSearchGuide->setInterval(1);
    connect(tmrUpdateSearchGuide, &QTimer::timeout, this, &QueryBox::UpdateSearchGuide);
    cboQuery->installEventFilter(this); // it has the focus for its line edit
}

void QueryBox::UpdateSearchGuide() {
    const SearchMode mode = m_mode();
    const CleanQuery clean = CleanUpQuery(cboQuery->Text(), mode, m_trail);
    SetQuery(clean.text);
    if (clean.caretToEnd)
        cboQuery->lineEdit()->end(false);
    ShowGuide(mode);
}

void QueryBox::TurnTo(SearchMode mode) {
    SetQuery(StripForMode(cboQuery->Text(), mode));
    ShowGuide(mode);
    cboQuery->setFocus();
    cboQuery->lineEdit()->end(false);
}

void QueryBox::AddToHistory() {
    cboQuery->AddItem(cboQuery->Text());
}

bool QueryBox::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        return TakeKeyDown(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyRelease:
        TakeKeyUp(static_cast<QKeyEvent&>(*event));
        return false;
    case QEvent::InputMethod:
        return TakeInput(static_cast<QInputMethodEvent&>(*event));
    default:
        return QObject::eventFilter(watched, event);
    }
}

// True when the key goes no further.
bool QueryBox::TakeKeyDown(const QKeyEvent& event) {
    const int key = event.key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        Q_EMIT EnterPressed();
        return true;
    }
    m_trail.Append(key);
    if (key == Qt::Key_Delete) { // changes the text without being a character
        Defer();
        return false;
    }
    if (event.text().isEmpty())
        return false;
    Defer();
    if (key != Qt::Key_Backspace) {
        if (IsCommand(event))
            return false;
        if (!AllQueryCharacters(event.text()))
            return true;
    }
    Q_EMIT CharacterAccepted();
    return false;
}

void QueryBox::TakeKeyUp(const QKeyEvent& event) {
    if (!event.isAutoRepeat()) // a key held down has not come up yet
        SetQuery(AfterKeyUp(cboQuery->Text()));
}

// Characters that come composed, without keys of their own, pass the same filter. True when something had to
// go.
bool QueryBox::TakeInput(const QInputMethodEvent& event) {
    const QString commit = event.commitString();
    if (commit.isEmpty())
        return false;
    Defer();
    if (AllQueryCharacters(commit)) {
        for (const QChar c : commit)
            m_trail.Append(c.toUpper().unicode());
        Q_EMIT CharacterAccepted();
        return false;
    }
    QString accepted;
    std::copy_if(commit.begin(), commit.end(), std::back_inserter(accepted),
                 [](QChar c) { return IsQueryCharacter(c.unicode()); });
    QInputMethodEvent rest(event.preeditString(), event.attributes());
    rest.setCommitString(accepted, event.replacementStart(), event.replacementLength());
    QCoreApplication::sendEvent(cboQuery, &rest);
    return true;
}

// Several keys in a burst give one clean-up.
void QueryBox::Defer() {
    if (!tmrUpdateSearchGuide->isActive())
        tmrUpdateSearchGuide->start();
}

void QueryBox::SetQuery(const QString& query) {
    const QString before = cboQuery->Text();
    if (query == before)
        return;
    const int caret = CaretAfterChange(before, query, cboQuery->lineEdit()->cursorPosition());
    cboQuery->setText(query);
    cboQuery->lineEdit()->setCursorPosition(caret);
}

void QueryBox::ShowGuide(SearchMode mode) {
    const GuideText guide = MakeGuideText(cboQuery->Text(), mode);
    m_lblSearchGuide->setText(guide.lblSearchGuide);
    m_lblSearchGuide1->setText(guide.lblSearchGuide1);
}

} // namespace quillbrook
