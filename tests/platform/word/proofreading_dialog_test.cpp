#include "platform/word/proofreading_dialog.h"

#include <QtTest>
#include <QtWidgets>

using namespace platform;

namespace {

const QString kSentence = u"This dede is hereby made."_qs;
const Finding kDede{5, 4, false, QString(), {u"deed"_qs, u"dead"_qs}};

} // namespace

class ProofreadingDialogTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ProofreadingDialog> m_dialog;

    // What the dialog answers when the user does `act` before it.
    ProofreadingReply Ask(const Finding& finding, const std::function<void()>& act) {
        QTimer::singleShot(0, m_dialog.get(), act);
        return m_dialog->Ask(kSentence, finding);
    }

private Q_SLOTS:
    void init() { m_dialog = std::make_unique<ProofreadingDialog>(nullptr); }
    void cleanup() { m_dialog.reset(); }

    void EachButtonGivesItsAnswer_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("answer");
        QTest::newRow("ignore") << u"btnIgnore"_qs << int(ProofreadingAnswer::Ignore);
        QTest::newRow("ignore all") << u"btnIgnoreAll"_qs << int(ProofreadingAnswer::IgnoreAll);
        QTest::newRow("add") << u"btnAddToDictionary"_qs << int(ProofreadingAnswer::AddToDictionary);
        QTest::newRow("change") << u"btnChange"_qs << int(ProofreadingAnswer::Change);
        QTest::newRow("change all") << u"btnChangeAll"_qs << int(ProofreadingAnswer::ChangeAll);
        QTest::newRow("close") << u"btnCancel"_qs << int(ProofreadingAnswer::Cancel);
    }
    void EachButtonGivesItsAnswer() {
        QFETCH(QString, button);
        const ProofreadingReply reply =
            Ask(kDede, [&] { QTest::mouseClick(m_dialog->findChild<QPushButton*>(button), Qt::LeftButton); });
        QTEST(int(reply.answer), "answer");
    }

    void TheLikeliestSuggestionIsOffered() {
        const ProofreadingReply reply =
            Ask(kDede, [&] { QTest::keyClick(m_dialog->txtChangeTo, Qt::Key_Return); });
        QCOMPARE(reply.answer, ProofreadingAnswer::Change);
        QCOMPARE(reply.replacement, u"deed"_qs);
    }

    void AnotherSuggestionIsTakenByTheArrows() {
        const ProofreadingReply reply = Ask(kDede, [&] {
            QTest::keyClick(m_dialog->lstSuggestions, Qt::Key_Down);
            QTest::keyClick(m_dialog->lstSuggestions, Qt::Key_Return);
        });
        QCOMPARE(reply.answer, ProofreadingAnswer::Change);
        QCOMPARE(reply.replacement, u"dead"_qs);
    }

    void AWordOfOnesOwnIsTaken() {
        const ProofreadingReply reply = Ask({5, 4, false, QString(), {}}, [&] {
            QCOMPARE(m_dialog->txtChangeTo->text(), u"dede"_qs);
            QTest::keyClicks(m_dialog->txtChangeTo, u"deeds"_qs); // over the selected word
            QTest::keyClick(m_dialog->txtChangeTo, Qt::Key_Return);
        });
        QCOMPARE(reply.replacement, u"deeds"_qs);
    }

    void TheEnterKeyIsThatOfTheButtonWithTheFocus() {
        const ProofreadingReply reply = Ask(kDede, [&] {
            QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
            for (int tab = 0; QApplication::focusWidget() != m_dialog->btnIgnoreAll && tab < 10; ++tab)
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        });
        QCOMPARE(reply.answer, ProofreadingAnswer::IgnoreAll);
        // the next finding begins where one types
        QCOMPARE(Ask(kDede, [&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }).answer,
                 ProofreadingAnswer::Change);
    }

    void EscapeAndTheTitleBarAreCancel() {
        QCOMPARE(Ask(kDede, [&] { QTest::keyClick(m_dialog.get(), Qt::Key_Escape); }).answer,
                 ProofreadingAnswer::Cancel);
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(Ask(kDede, [&] { m_dialog->close(); }).answer, ProofreadingAnswer::Cancel);
    }

    void TheSentenceIsShownWithItsDoubtedWordMarked() {
        Ask(kDede, [&] {
            QCOMPARE(m_dialog->txtSentence->toPlainText(), kSentence);
            QTextCursor cursor(m_dialog->txtSentence->document());
            cursor.setPosition(7);
            QVERIFY(cursor.charFormat().fontUnderline());
            cursor.setPosition(11);
            QVERIFY(!cursor.charFormat().fontUnderline());
            m_dialog->btnIgnore->click();
        });
        QVERIFY(m_dialog->isVisible()); // until the next one
        Ask({0, 4, false, QString(), {}}, [&] {
            QTextCursor cursor(m_dialog->txtSentence->document());
            cursor.setPosition(2);
            QVERIFY(cursor.charFormat().fontUnderline());
            cursor.setPosition(7);
            QVERIFY(!cursor.charFormat().fontUnderline());
            m_dialog->btnIgnore->click();
        });
    }

    void GrammarSaysWhatIsWrongAndTeachesNoDictionary() {
        Ask({5, 4, true, u"Two words"_qs, {}}, [&] {
            QCOMPARE(m_dialog->lblFinding->text(), u"Two words"_qs);
            QVERIFY(!m_dialog->btnAddToDictionary->isEnabled());
            m_dialog->btnIgnore->click();
        });
        Ask(kDede, [&] {
            QVERIFY(m_dialog->btnAddToDictionary->isEnabled());
            m_dialog->btnIgnore->click();
        });
    }
};

QTEST_MAIN(ProofreadingDialogTest)
#include "proofreading_dialog_test.moc"
