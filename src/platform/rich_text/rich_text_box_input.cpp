// What the rich text box does with keys, the mouse, input methods and the clipboard.
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_box_edit.h"
#include "platform/rich_text/rich_text_clipboard.h"
#include "platform/rich_text/rich_text_file.h"

namespace platform {
namespace {

// The box keeps no history: these keys are for the program.
bool IsHistoryKey(const QKeyEvent& event) {
    return event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo);
}

// Delete has a text of its own here, and stands for no character.
bool StandsForCharacter(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.key() != Qt::Key_Delete;
}

// The keys that go to an edge of the text; the caret may be there already, and only the view away.
bool GoesToEdge(const QKeyEvent& event) {
    return event.matches(QKeySequence::MoveToStartOfDocument) ||
           event.matches(QKeySequence::MoveToEndOfDocument);
}

// A letter with Alt is for the menus, and types nothing where no menu has it.
bool IsMenuKey(const QKeyEvent& event) {
    const auto others = Qt::ControlModifier | Qt::MetaModifier | Qt::GroupSwitchModifier;
    return (event.modifiers() & (others | Qt::AltModifier)) == Qt::AltModifier && !event.text().isEmpty() &&
           event.text().front().isPrint();
}

bool TypesText(const QKeyEvent& event) {
    return !event.text().isEmpty() && (event.text().front().isPrint() || event.text().front() == u'\t') &&
           (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
}

} // namespace

bool RichTextBox::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsHistoryKey(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    const bool handled = QTextEdit::event(event);
    if (event->type() == QEvent::Show && document()->pageSize().isNull()) {
        QResizeEvent resize(size(), size());
        resizeEvent(&resize);
    }
    return handled;
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
    if (IsMenuKey(*event)) {
        event->ignore();
        return;
    }
    if (StandsForCharacter(*event))
        Q_EMIT CharacterPressed();
    if (IsHistoryKey(*event)) {
        event->ignore();
        return;
    }
    Edit edit(*this);
    if (!isReadOnly()) {
        if (event->matches(QKeySequence::InsertParagraphSeparator)) {
            InsertParagraph();
            event->accept();
            return;
        }
        const QTextCursor cursor = textCursor();
        if (event->key() == Qt::Key_Backspace && !cursor.hasSelection() && cursor.atBlockStart() &&
            (event->modifiers() & ~Qt::ShiftModifier) == 0 && cursor.blockFormat().hasProperty(BulletText)) {
            setSelBullet(false);
            setSelHangingIndent(0);
            event->accept();
            return;
        }
        if (event->matches(QKeySequence::InsertLineSeparator)) {
            InsertText(QString()); // the break takes the format of the first character it replaces
            FitCaretForText();
        }
        if (TypesText(*event)) {
            // in the format of the first character of what it replaces, like all text
            if (cursor.hasSelection() || cursor.charFormat().hasProperty(QTextFormat::ObjectType) ||
                cursor.charFormat().hasProperty(EmbeddedObject)) {
                InsertText(event->text());
                event->accept();
                return;
            }
            FitCaretForText();
        }
    }
    const int caret = textCursor().position();
    const int scrolled = verticalScrollBar()->value();
    QTextEdit::keyPressEvent(event);
    if (caret != textCursor().position() || scrolled != verticalScrollBar()->value() || GoesToEdge(*event))
        ShowMarginAtCaret();
}

void RichTextBox::inputMethodEvent(QInputMethodEvent* event) {
    if (!event->commitString().isEmpty())
        Q_EMIT CharacterPressed();
    Edit edit(*this);
    const bool hadSelection = textCursor().hasSelection();
    const bool isTyping = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (isTyping && !isReadOnly())
        InsertText(QString()); // what replaces a selection takes the format of its first character
    if (!event->commitString().isEmpty() && !isReadOnly())
        FitCaretForText();
    // a text that is only being composed is none of the document's
    const bool isComposing =
        event->commitString().isEmpty() && event->replacementLength() == 0 && !hadSelection;
    QTextEdit::inputMethodEvent(event);
    if (isComposing)
        edit.Forget();
}

void RichTextBox::mousePressEvent(QMouseEvent* event) {
    const Qt::MouseButton button = event->button();
    const QPoint position = event->globalPosition().toPoint();
    if (button == Qt::LeftButton) {
        Edit edit(*this);
        QTextEdit::mousePressEvent(event);
    } else {
        setFocus(Qt::MouseFocusReason);
        event->accept();
    }
    Q_EMIT MousePressed(button, position);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->accept();
        return;
    }
    const bool isInside = viewport()->rect().contains(event->position().toPoint());
    {
        Edit edit(*this);
        QTextEdit::mouseReleaseEvent(event);
    }
    if (isInside)
        Q_EMIT Click();
}

// The menu of the mouse is asked for by its button.
void RichTextBox::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() != QContextMenuEvent::Mouse)
        Q_EMIT MousePressed(Qt::RightButton, viewport()->mapToGlobal(cursorRect().bottomLeft()));
}

void RichTextBox::dropEvent(QDropEvent* event) {
    Edit edit(*this);
    QTextEdit::dropEvent(event);
}

void RichTextBox::cut() {
    Edit edit(*this);
    QTextEdit::cut();
}

void RichTextBox::paste() {
    Edit edit(*this);
    QTextEdit::paste();
}

QMimeData* RichTextBox::createMimeDataFromSelection() const {
    return MimeOfSelection(textCursor()).release();
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
    return source != nullptr && HasDocument(*source);
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
    if (source == nullptr || isReadOnly())
        return;
    if (const std::unique_ptr<QTextDocument> pasted = DocumentOfMime(*source, document()->defaultFont()))
        InsertForeign(*pasted);
    else if (const QString text = source->text(); !text.isEmpty() && text.size() <= kMostTextBytes)
        InsertText(text);
}

} // namespace platform
