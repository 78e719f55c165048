// What the rich text box does with keys and the mouse, and how it shows its text.
#include "platform/rich_text/rich_text_box.h"

#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextFrame>

using platform::RichTextBox;

namespace {

const QString kBullets = QStringLiteral(
    "{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}}\\f0\\fs24\\pard\\fi-360\\li720{\\pntext\\u8226?\\tab}"
    "{\\*\\pn\\pnlvlblt{\\pntxtb\\u8226?}}first\\par second\\par\\pard plain\\par}");

// The leftmost and rightmost columns of the line at `top` that are not white.
std::pair<int, int> InkColumns(const QImage& image, const QRect& area) {
    int left = area.right() + 1;
    int right = area.left() - 1;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (qGray(image.pixel(x, y)) < 160) {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    return {left, right};
}

} // namespace

class RichTextBoxInputTest final : public QObject {
    Q_OBJECT

private:
    static void Show(RichTextBox& box) {
        box.resize(600, 400);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
    }
    static QPoint PointAt(const RichTextBox& box, int position) {
        QTextCursor cursor(box.document());
        cursor.setPosition(position);
        return box.cursorRect(cursor).center();
    }

private Q_SLOTS:
    void CharacterKeysAreTold_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<bool>("told");
        const auto row = [](const char* name, Qt::Key key, int modifiers, bool told) {
            QTest::newRow(name) << int(key) << modifiers << told;
        };
        row("letter", Qt::Key_A, Qt::NoModifier, true);
        row("enter", Qt::Key_Return, Qt::NoModifier, true);
        row("backspace", Qt::Key_Backspace, Qt::NoModifier, true);
        row("tab", Qt::Key_Tab, Qt::NoModifier, true);
        row("copy", Qt::Key_C, Qt::ControlModifier, true);
        row("delete", Qt::Key_Delete, Qt::NoModifier, false);
        row("arrow", Qt::Key_Left, Qt::NoModifier, false);
        row("page", Qt::Key_PageDown, Qt::NoModifier, false);
        row("shift", Qt::Key_Shift, Qt::NoModifier, false);
        row("F5", Qt::Key_F5, Qt::NoModifier, false);
    }
    void CharacterKeysAreTold() {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(bool, told);
        RichTextBox box;
        box.setText(QStringLiteral("text"));
        const QSignalSpy keys(&box, &RichTextBox::CharacterPressed);
        // as the keyboard sends them: control keys carry control characters
        const QString text =
            (modifiers & Qt::ControlModifier) != 0 ? QString(QChar(key - Qt::Key_A + 1)) : QString();
        if (text.isEmpty()) {
            QTest::keyClick(&box, Qt::Key(key));
        } else {
            QKeyEvent press(QEvent::KeyPress, key, Qt::ControlModifier, text);
            QCoreApplication::sendEvent(&box, &press);
        }
        QCOMPARE(keys.count(), told ? 1 : 0);
    }

    void TheKeyIsToldBeforeTheChange() {
        RichTextBox box;
        QString order;
        connect(&box, &RichTextBox::CharacterPressed, &box, [&] { order += u'k'; });
        connect(&box, &RichTextBox::Change, &box, [&] { order += u'c'; });
        connect(&box, &RichTextBox::SelChange, &box, [&] { order += u's'; });
        QTest::keyClick(&box, Qt::Key_A);
        QCOMPARE(order, QStringLiteral("kcs"));
    }

    void TheHistoryKeysAreLeftToTheProgram() {
        RichTextBox box;
        box.setText(QStringLiteral("a"));
        QTest::keyClick(&box, Qt::Key_B);
        const QString text = box.Text();
        for (const Qt::Key key : {Qt::Key_Z, Qt::Key_Y}) {
            QKeyEvent shortcut(QEvent::ShortcutOverride, key, Qt::ControlModifier);
            shortcut.ignore();
            QCoreApplication::sendEvent(&box, &shortcut);
            QVERIFY(!shortcut.isAccepted());
            QTest::keyClick(&box, key, Qt::ControlModifier);
            QCOMPARE(box.Text(), text);
        }
        QVERIFY(!box.document()->isUndoRedoEnabled());
    }

    void EnterPartsAParagraphAndTakesNoPageBreakAlong() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\pard x\\par\\pard\\pagebb\\qc\\b bold\\par}"));
        box.setSelStart(4);
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.Text(), QStringLiteral("x\nbo\nld"));
        QCOMPARE(box.SelAlignment(), 2);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.TextRTF().count(QStringLiteral("\\pagebb")), 1);
    }

    void EnterContinuesAListAndInAnEmptyItemEndsIt() {
        RichTextBox box;
        box.setTextRTF(kBullets);
        box.setSelStart(12); // behind "second"
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.SelBullet(), true);
        QCOMPARE(box.SelHangingIndent(), 360);
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.Text(), QStringLiteral("first\nsecond\n\nplain"));
        QCOMPARE(box.SelBullet(), false);
        QCOMPARE(box.SelHangingIndent(), 0);
    }

    void BackspaceBeforeABulletTakesItAway() {
        RichTextBox box;
        box.setTextRTF(kBullets);
        box.setSelStart(6);
        QTest::keyClick(&box, Qt::Key_Backspace);
        QCOMPARE(box.Text(), QStringLiteral("first\nsecond\nplain"));
        QCOMPARE(box.SelBullet(), false);
        QTest::keyClick(&box, Qt::Key_Backspace);
        QCOMPARE(box.Text(), QStringLiteral("firstsecond\nplain"));
    }

    void TypingOverASelectionTakesItsFirstFormat() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 a\\b b\\b0 c}"));
        box.setSelStart(1);
        box.setSelLength(2);
        QTest::keyClicks(&box, QStringLiteral("xy"));
        QCOMPARE(box.Text(), QStringLiteral("axy"));
        box.setSelStart(1);
        box.setSelLength(2);
        QCOMPARE(box.SelBold(), true);
    }

    void CommittedTextOverASelectionTakesItsFirstFormat_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<bool>("isComposed");
        const QString hidden = QStringLiteral("{\\v ab}");
        QTest::newRow("at once") << QStringLiteral("{\\i ab}") << false;
        QTest::newRow("composed first") << QStringLiteral("{\\i ab}") << true;
        QTest::newRow("at once, behind hidden text") << hidden << false;
        QTest::newRow("composed first, behind hidden text") << hidden << true;
    }
    void CommittedTextOverASelectionTakesItsFirstFormat() {
        QFETCH(QString, before);
        QFETCH(bool, isComposed);
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1 %1{\\b cd}{\\fs40 ef}}").arg(before));
        box.setFocus();
        box.setSelStart(2);
        box.setSelLength(3);
        if (isComposed) {
            QInputMethodEvent composing(QStringLiteral("xy"), {});
            QCoreApplication::sendEvent(&box, &composing);
            QCOMPARE(box.Text(), QStringLiteral("abf"));
        }
        QInputMethodEvent commit;
        commit.setCommitString(QStringLiteral("\u5B57"));
        QCoreApplication::sendEvent(&box, &commit);
        QCOMPARE(box.Text(), QStringLiteral("ab\u5B57f"));
        box.setSelStart(2);
        box.setSelLength(1);
        QCOMPARE(box.SelBold(), true);
        QCOMPARE(box.SelItalic(), false);
        QCOMPARE(box.SelFontSize(), 12);
        QVERIFY(box.textCursor().charFormat().fontPointSize() > 1);
    }

    void TextTypedBetweenTwoTablesIsReadable() {
        RichTextBox box;
        const QString table = QStringLiteral("\\trowd\\cellx3000\\intbl c\\cell\\row");
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs24 a\\par%1\\pard\\par\\pard z\\par}").arg(table));
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs24%1}").arg(table)); // nothing before and behind
        box.moveCursor(QTextCursor::Start);
        QTest::keyClicks(&box, QStringLiteral("x"));
        box.setSelStart(0);
        box.setSelLength(1);
        QCOMPARE(box.SelText(), QStringLiteral("x"));
        QVERIFY(box.SelFontSize().value_or(0) > 6);
        QVERIFY(box.TextRTF().indexOf(u'x', box.TextRTF().indexOf(QStringLiteral("\\pard"))) > 0);
    }

    void TextBeingComposedIsNoChange() {
        RichTextBox box;
        box.setText(QStringLiteral("ab"));
        Show(box);
        box.setFocus();
        const QSignalSpy changes(&box, &RichTextBox::Change);
        const QSignalSpy keys(&box, &RichTextBox::CharacterPressed);
        QInputMethodEvent composing(QStringLiteral("xy"), {});
        QCoreApplication::sendEvent(&box, &composing);
        QCOMPARE(changes.count(), 0);
        QCOMPARE(box.Text(), QStringLiteral("ab"));
        QInputMethodEvent commit;
        commit.setCommitString(QStringLiteral("\u5B57"));
        QCoreApplication::sendEvent(&box, &commit);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(keys.count(), 1);
        QCOMPARE(box.Text(), QStringLiteral("\u5B57ab"));
    }

    void TheLeftButtonMovesTheCaretAndClicks() {
        RichTextBox box;
        box.setText(QStringLiteral("some words to click at"));
        Show(box);
        const QSignalSpy clicks(&box, &RichTextBox::Click);
        const QSignalSpy presses(&box, &RichTextBox::MousePressed);
        QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, PointAt(box, 10));
        QCOMPARE(clicks.count(), 1);
        QCOMPARE(presses.count(), 1);
        QCOMPARE(presses[0][0].value<Qt::MouseButton>(), Qt::LeftButton);
        QCOMPARE(box.SelStart(), 10);
    }

    void OtherButtonsLeaveTheSelection_data() {
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::newRow("right") << Qt::RightButton;
        QTest::newRow("middle") << Qt::MiddleButton;
    }
    void OtherButtonsLeaveTheSelection() {
        QFETCH(Qt::MouseButton, button);
        RichTextBox box;
        box.setText(QStringLiteral("some words to click at"));
        Show(box);
        box.setSelStart(2);
        box.setSelLength(5);
        const QSignalSpy clicks(&box, &RichTextBox::Click);
        const QSignalSpy presses(&box, &RichTextBox::MousePressed);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        const QPoint point = PointAt(box, 15);
        QTest::mouseClick(box.viewport(), button, Qt::NoModifier, point);
        QCOMPARE(presses.count(), 1);
        QCOMPARE(presses[0][0].value<Qt::MouseButton>(), button);
        QCOMPARE(presses[0][1].toPoint(), box.viewport()->mapToGlobal(point));
        QCOMPARE(clicks.count(), 0);
        QCOMPARE(changes.count(), 0);
        QCOMPARE(box.SelStart(), 2);
        QCOMPARE(box.SelLength(), 5);
    }

    void TheMenuKeyCountsAsTheRightButton() {
        RichTextBox box;
        box.setText(QStringLiteral("text"));
        Show(box);
        const QSignalSpy presses(&box, &RichTextBox::MousePressed);
        QContextMenuEvent byMouse(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
        QCoreApplication::sendEvent(box.viewport(), &byMouse);
        QCOMPARE(presses.count(), 0);
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
        QCoreApplication::sendEvent(box.viewport(), &byKey);
        QCOMPARE(presses.count(), 1);
        QCOMPARE(presses[0][0].value<Qt::MouseButton>(), Qt::RightButton);
    }

    void MarkersStandLeftOfTheTextAtItsFirstLine() {
        RichTextBox box;
        box.setTextRTF(kBullets);
        Show(box);
        const QImage image = box.viewport()->grab().toImage();
        for (const int start : {0, 6}) {
            QTextCursor cursor(box.document());
            cursor.setPosition(start);
            const QRect caret = box.cursorRect(cursor);
            QCOMPARE(caret.left(), 4 + 720 / 15); // the text begins at the left indent
            const QRect before(4, caret.top(), 720 / 15 - 1, caret.height());
            const auto [left, right] = InkColumns(image, before);
            QVERIFY2(left >= 4 + 360 / 15, qPrintable(QString::number(left)));
            QVERIFY(left <= right);
            QVERIFY(right < caret.left() - 3);
        }
        QTextCursor cursor(box.document());
        cursor.setPosition(13);
        const QRect plain = box.cursorRect(cursor);
        QCOMPARE(plain.left(), 4);
    }

    void ALongMarkerMovesTheTextInsteadOfStandingInIt() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1\\fs24\\pard\\fi-360\\li360{\\pntext (xxxviii)\\tab}{\\*\\pn"
                                      "\\pnlvlbody\\pnlcrm\\pnstart38{\\pntxtb (}{\\pntxta )}}text\\par}"));
        Show(box);
        QTextCursor cursor(box.document());
        const int text = box.cursorRect(cursor).left();
        const QImage image = box.viewport()->grab().toImage();
        const auto [left, right] = InkColumns(
            image, QRect(0, box.cursorRect(cursor).top(), text - 1, box.cursorRect(cursor).height()));
        QVERIFY(left < right);
        QVERIFY2(right < text - 1, qPrintable(QStringLiteral("%1 %2").arg(right).arg(text)));
        QVERIFY(text > 4 + 360 / 15);
    }

    void AMarkerOfLargerTextMakesRoom() {
        RichTextBox box;
        box.setTextRTF(kBullets);
        const QString before = box.TextRTF();
        box.setSelStart(0);
        box.setSelLength(5);
        box.setSelFontSize(60);
        Show(box);
        QTextCursor cursor(box.document());
        const int text = box.cursorRect(cursor).left();
        const auto [left, right] = InkColumns(box.viewport()->grab().toImage(),
                                              QRect(0, 0, text - 1, box.cursorRect(cursor).bottom()));
        QVERIFY(left < right && right < text - 1);
        box.selectAll();
        box.setSelFontSize(12);
        QCOMPARE(box.TextRTF(), before);
    }

    void APageLikeBoxHasAColumnInTheMiddle() {
        RichTextBox box;
        box.setPageLike(true);
        box.setPageMargin(24);
        box.setPageWidth(500);
        box.setText(QString(400, u'x').replace(7, 1, QStringLiteral(" ")));
        box.resize(1000, 400);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        const int width = box.viewport()->width();
        const QRect first = box.cursorRect(QTextCursor(box.document()));
        QVERIFY(std::abs(first.left() - ((width - 500) / 2 + 24)) <= 1);
        QVERIFY(first.top() >= 24);
        const double column = box.document()->begin().layout()->lineAt(1).width();
        QVERIFY2(std::abs(column - (500 - 48)) <= 1, qPrintable(QString::number(column)));
        const QString source = box.TextRTF();
        box.resize(300, 400);
        QVERIFY(std::abs(box.cursorRect(QTextCursor(box.document())).left() - 24) <= 1);
        QCOMPARE(box.TextRTF(), source);
        box.setPageLike(false);
        QVERIFY(box.cursorRect(QTextCursor(box.document())).left() < 10);
    }

    void ANewDocumentHasThePageLookAtOnce() {
        RichTextBox box;
        box.setPageLike(true);
        Show(box);
        box.setTextRTF(kBullets);
        QTextCursor cursor(box.document());
        cursor.setPosition(13);
        QCOMPARE(box.cursorRect(cursor).left(), 24);
        QCOMPARE(box.document()->rootFrame()->frameFormat().topMargin(), 24.0);
    }

    void ABoxFilledWhileHiddenIsLaidOutWhenShown() {
        RichTextBox box;
        Show(box);
        box.hide();
        QString text;
        for (int i = 0; i < 100; ++i)
            text += QStringLiteral("line %1\n").arg(i);
        box.setText(text);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        QTRY_VERIFY(box.verticalScrollBar()->maximum() > 500);
        QTextCursor cursor(box.document());
        cursor.setPosition(10);
        QVERIFY(box.cursorRect(cursor).top() > 10);
    }

    void ALetterWithAltTypesNothing_data() {
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<bool>("typed");
        QTest::newRow("Alt") << Qt::KeyboardModifiers(Qt::AltModifier) << false;
        QTest::newRow("Alt and Shift") << (Qt::AltModifier | Qt::ShiftModifier) << false;
        QTest::newRow("third level") << Qt::KeyboardModifiers(Qt::GroupSwitchModifier) << true;
        QTest::newRow("Shift") << Qt::KeyboardModifiers(Qt::ShiftModifier) << true;
    }
    void ALetterWithAltTypesNothing() {
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(bool, typed);
        RichTextBox box;
        Show(box);
        const QSignalSpy keys(&box, &RichTextBox::CharacterPressed);
        const QSignalSpy changes(&box, &RichTextBox::Change);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_P, modifiers, QStringLiteral("p"));
        QCoreApplication::sendEvent(&box, &press);
        QCOMPARE(box.Text(), typed ? QStringLiteral("p") : QString());
        QCOMPARE(keys.isEmpty(), !typed);
        QCOMPARE(changes.isEmpty(), !typed);
        QCOMPARE(press.isAccepted(), typed);
    }

    void TheViewStaysWhenAStateComesBack() {
        RichTextBox box;
        Show(box);
        QString text;
        for (int i = 0; i < 300; ++i)
            text += QStringLiteral("line %1\n").arg(i);
        box.setText(text);
        box.setSelStart(1000);
        box.ensureCursorVisible();
        const int scrolled = box.verticalScrollBar()->value();
        QVERIFY(scrolled > 100);
        const auto state = box.Snapshot();
        QTest::keyClicks(&box, QStringLiteral("x"));
        box.setSnapshot(state);
        QCOMPARE(box.SelStart(), 1000);
        QCOMPARE(box.verticalScrollBar()->value(), scrolled);
    }

    void TheEdgesOfTheTextAreShownWithTheirMargins() {
        RichTextBox box;
        box.setPageLike(true);
        Show(box);
        box.setText(QStringLiteral("line\n").repeated(99) + QStringLiteral("last"));
        const QScrollBar& bar = *box.verticalScrollBar();
        QTest::keyClick(&box, Qt::Key_End, Qt::ControlModifier);
        QVERIFY(bar.maximum() > 100);
        QCOMPARE(bar.value(), bar.maximum());
        QTest::keyClick(&box, Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(bar.value(), 0);
        box.verticalScrollBar()->setValue(10); // with the caret where it is to go
        QTest::keyClick(&box, Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(bar.value(), 0);
        box.setSelStart(int(box.Text().size()));
        QCOMPARE(bar.value(), bar.maximum());
        box.setSelStart(0);
        QCOMPARE(bar.value(), 0);
    }

    void AKeyThatMovesNothingLeavesTheView() {
        RichTextBox box;
        box.setPageLike(true);
        Show(box);
        box.setText(QStringLiteral("line\n").repeated(99));
        box.verticalScrollBar()->setValue(10);
        QTest::keyClick(&box, Qt::Key_Control);
        QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(box.verticalScrollBar()->value(), 10);
    }
};

QTEST_MAIN(RichTextBoxInputTest)
#include "rich_text_box_input_test.moc"
