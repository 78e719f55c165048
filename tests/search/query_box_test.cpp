#include "search/query_box.h"

#include "platform/controls/combo_box.h"

#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

using namespace quillbrook;

Q_DECLARE_METATYPE(quillbrook::SearchMode)

namespace {

// A query box on a window of its own.
struct Page {
    QWidget window;
    platform::ComboBox* cboQuery = new platform::ComboBox(false, true, &window);
    QLabel* lblSearchGuide = new QLabel(&window);
    QLabel* lblSearchGuide1 = new QLabel(&window);
    QWidget* other = new QWidget(&window); // something else to have the focus
    SearchMode mode = SearchMode::All;
    QueryBox box{cboQuery, lblSearchGuide, lblSearchGuide1, [this] { return mode; }};
    QSignalSpy enters{&box, &QueryBox::EnterPressed};
    QSignalSpy accepted{&box, &QueryBox::CharacterAccepted};

    Page() {
        cboQuery->resize(300, 24);
        other->setFocusPolicy(Qt::StrongFocus);
        window.resize(400, 100);
        window.show();
        cboQuery->setFocus();
    }

    // Each character as a key of its own, '<' for the left arrow, after which the clean-up has run.
    void Type(const QString& keys) {
        for (const QChar key : keys) {
            if (key == u'<')
                QTest::keyClick(cboQuery, Qt::Key_Left);
            else
                QTest::keyClick(cboQuery, key.toLatin1());
            Settle();
        }
    }

    void Settle() {
        while (box.tmrUpdateSearchGuide->isActive())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    void Paste(const QString& text) {
        cboQuery->lineEdit()->insert(text); // what the clipboard brings comes without keys
    }

    // The text with the caret as a '|'.
    QString Shown() const {
        QString text = cboQuery->Text();
        return text.insert(cboQuery->lineEdit()->cursorPosition(), u'|');
    }
    QString Guide() const { return lblSearchGuide1->text(); }
};

} // namespace

class QueryBoxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TypedQueriesAreCleanedUp_data() {
        QTest::addColumn<SearchMode>("mode");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("guide");
        constexpr auto all = SearchMode::All;
        constexpr auto any = SearchMode::Any;
        constexpr auto phrase = SearchMode::Phrase;
        QTest::newRow("words") << all << "deed  of sale"
                               << "deed  of sale|"
                               << "DEED + OF + SALE";
        QTest::newRow("leading") << all << "and deed"
                                 << "deed|"
                                 << "DEED";
        QTest::newRow("between") << all << "deed And sale"
                                 << "deed sale|"
                                 << "DEED + SALE";
        QTest::newRow("trailing") << all << "deed or "
                                  << "deed |"
                                  << "DEED + ";
        QTest::newRow("unfinished") << all << "deed or"
                                    << "deed or|"
                                    << "DEED + OR";
        QTest::newRow("alone") << all << "OR"
                               << "OR|"
                               << "OR";
        QTest::newRow("alone with a blank") << all << "OR "
                                            << "|"
                                            << "";
        QTest::newRow("any") << any << "deed sale not "
                             << "deed sale |"
                             << "DEED or SALE or ";
        QTest::newRow("phrase") << phrase << "deed and sale"
                                << "deed and sale|"
                                << "\"DEED AND SALE\"";
        QTest::newRow("phrase, a blank behind") << phrase << "deed "
                                                << "deed |"
                                                << "\"DEED \"";
        QTest::newRow("in the middle") << all << "desale<<<<ed "
                                       << "deed |sale"
                                       << "DEED + SALE";
        QTest::newRow("in front of all") << all << "ale<<<s"
                                         << "s|ale"
                                         << "SALE";
        QTest::newRow("an operator in the middle") << all << "deed sale<<<<and "
                                                   << "deed sale|"
                                                   << "DEED + SALE";
        QTest::newRow("punctuation") << all << "d\"e+e-d*'.,;:!?&%_"
                                     << "deed|"
                                     << "DEED";
        QTest::newRow("a blank first") << all << "deed<<<< "
                                       << "|"
                                       << "";
        QTest::newRow("an operator in front") << all << "deed<<<<or x"
                                              << "deedx|"
                                              << "DEEDX";
    }
    void TypedQueriesAreCleanedUp() {
        QFETCH(SearchMode, mode);
        QFETCH(QString, keys);
        Page page;
        page.mode = mode;
        page.Type(keys);
        QTEST(page.Shown(), "shown");
        QTEST(page.Guide(), "guide");
    }

    void TheCleanUpWaitsForTheKeyToTakeEffect() {
        Page page;
        QTest::keyClicks(page.cboQuery, QStringLiteral("and d"));
        QCOMPARE(page.cboQuery->Text(), QStringLiteral("and d"));
        QVERIFY(page.box.tmrUpdateSearchGuide->isActive());
        QVERIFY(page.Guide().isEmpty());
        page.Settle();
        QCOMPARE(page.cboQuery->Text(), QStringLiteral("d"));
        QCOMPARE(page.lblSearchGuide->text(), QStringLiteral("Find Forms that have ALL the words:"));
    }

    void KeysInABurstGiveOneCleanUp() {
        Page page;
        QSignalSpy ticks(page.box.tmrUpdateSearchGuide, &QTimer::timeout);
        QTest::keyClicks(page.cboQuery, QStringLiteral("deed of sale"));
        page.Settle();
        QTest::qWait(20);
        QCOMPARE(ticks.count(), 1);
    }

    void EnterSearchesAtOnce() {
        Page page;
        QTest::keyClicks(page.cboQuery, QStringLiteral("deed and"));
        QTest::keyClick(page.cboQuery, Qt::Key_Return);
        QCOMPARE(page.enters.count(), 1);
        QTest::keyClick(page.cboQuery, Qt::Key_Enter);
        QCOMPARE(page.enters.count(), 2);
        QCOMPARE(page.cboQuery->Text(), QStringLiteral("deed and"));
        QVERIFY(page.Guide().isEmpty()); // the clean-up has not run yet
    }

    void EnterBetweenTheKeysOfAnOperatorDoesNotPartIt() {
        Page page;
        page.Type(QStringLiteral("deed sale<<<<an"));
        QTest::keyClick(page.cboQuery, Qt::Key_Return);
        page.Type(QStringLiteral("d "));
        QCOMPARE(page.Shown(), QStringLiteral("deed sale|"));
    }

    void AKeyThatTypesNothingPartsAnOperator() {
        Page page;
        page.Type(QStringLiteral("floor<"));
        QTest::keyClick(page.cboQuery, Qt::Key_Shift);
        page.Type(QStringLiteral(" "));
        QCOMPARE(page.Shown(),
                 QStringLiteral("floo |r")); // not at the end, where an operator brings the caret
    }

    void TheCleanUpRunsOnceAMillisecondAfterTheKey() {
        Page page;
        QCOMPARE(page.box.tmrUpdateSearchGuide->interval(), 1);
        QVERIFY(!page.box.tmrUpdateSearchGuide->isActive());
        page.Type(QStringLiteral("d"));
        QVERIFY(!page.box.tmrUpdateSearchGuide->isActive());
    }

    void AcceptedCharactersAreTold() {
        Page page;
        QTest::keyClick(page.cboQuery, '"');
        QTest::keyClick(page.cboQuery, Qt::Key_Left);
        QTest::keyClick(page.cboQuery, Qt::Key_Shift);
        QTest::keyClick(page.cboQuery, Qt::Key_Delete);
        QTest::keyClick(page.cboQuery, Qt::Key_Return);
        QCOMPARE(page.accepted.count(), 0);
        QTest::keyClick(page.cboQuery, 'd');
        QTest::keyClick(page.cboQuery, ' ');
        QTest::keyClick(page.cboQuery, '7');
        QTest::keyClick(page.cboQuery, Qt::Key_Backspace);
        QCOMPARE(page.accepted.count(), 4);
    }

    void ARefusedCharacterRefreshesTheGuideAllTheSame() {
        Page page;
        page.Paste(QStringLiteral("deed and sale"));
        QTest::keyClick(page.cboQuery, '+');
        page.Settle();
        QCOMPARE(page.Shown(), QStringLiteral("deed sale|"));
        QCOMPARE(page.Guide(), QStringLiteral("DEED + SALE"));
    }

    void DeletingRefreshesTheGuide_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("shown");
        QTest::newRow("Backspace") << int(Qt::Key_Backspace) << "de|d";
        QTest::newRow("Delete") << int(Qt::Key_Delete) << "dee|";
    }
    void DeletingRefreshesTheGuide() {
        QFETCH(int, key);
        Page page;
        page.Type(QStringLiteral("deed<"));
        QTest::keyClick(page.cboQuery, Qt::Key(key));
        page.Settle();
        QTEST(page.Shown(), "shown");
        QCOMPARE(page.Guide(), page.cboQuery->Text().toUpper());
    }

    void PastingByKeyRefreshesTheGuide() {
        Page page;
        page.Type(QStringLiteral("deed "));
        page.cboQuery->lineEdit()->selectAll();
        QTest::keyClick(page.cboQuery, Qt::Key_C, Qt::ControlModifier);
        page.cboQuery->lineEdit()->end(false);
        QTest::keyClick(page.cboQuery, Qt::Key_V, Qt::ControlModifier);
        page.Settle();
        QCOMPARE(page.Shown(), QStringLiteral("deed deed |"));
        QCOMPARE(page.Guide(), QStringLiteral("DEED + DEED + "));
    }

    // A keyboard sends a control character with the letter, which is none that may be typed.
    void PastingByKeyIsNoTyping() {
        Page page;
        page.Type(QStringLiteral("deed"));
        page.cboQuery->lineEdit()->selectAll();
        page.cboQuery->lineEdit()->copy();
        page.accepted.clear();
        QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
        page.cboQuery->lineEdit()->end(false);
        QCoreApplication::sendEvent(page.cboQuery, &paste);
        QVERIFY(page.box.tmrUpdateSearchGuide->isActive());
        page.Settle();
        QCOMPARE(page.Shown(), QStringLiteral("deeddeed|"));
        QCOMPARE(page.Guide(), QStringLiteral("DEEDDEED"));
        QCOMPARE(page.accepted.count(), 0);
    }

    void ABlankFirstStaysUntilTheKeyComesUp() {
        Page page;
        page.Type(QStringLiteral("deed<<<<"));
        QTest::keyPress(page.cboQuery, Qt::Key_Space);
        page.Settle();
        QCOMPARE(page.cboQuery->Text(), QStringLiteral(" deed"));
        QKeyEvent repeat(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "), true);
        QCoreApplication::sendEvent(page.cboQuery, &repeat);
        QCOMPARE(page.cboQuery->Text(), QStringLiteral(" deed"));
        QTest::keyRelease(page.cboQuery, Qt::Key_Space);
        QCOMPARE(page.cboQuery->Text(), QString());
    }

    void AnyKeyComingUpEmptiesAQueryThatBeginsWithABlank() {
        Page page;
        page.Paste(QStringLiteral(" deed"));
        QTest::keyPress(page.cboQuery, Qt::Key_Left);
        QCOMPARE(page.cboQuery->Text(), QStringLiteral(" deed"));
        QTest::keyRelease(page.cboQuery, Qt::Key_Left);
        QCOMPARE(page.cboQuery->Text(), QString());
    }

    void ComposedCharactersPassTheSameFilter() {
        Page page;
        for (const QString& commit :
             {QStringLiteral("d\"ee+d"), QStringLiteral("\u00f1"), QStringLiteral(" or ")}) {
            QInputMethodEvent input;
            input.setCommitString(commit);
            QCoreApplication::sendEvent(page.cboQuery, &input);
        }
        QCOMPARE(page.cboQuery->Text(), QStringLiteral("deed or "));
        QCOMPARE(page.accepted.count(), 2);
        page.Settle();
        QCOMPARE(page.Shown(), QStringLiteral("deed |"));
    }

    void ThePickOfAnEarlierQueryArmsNothing() {
        Page page;
        page.cboQuery->AddItem(QStringLiteral("deed and sale"));
        page.cboQuery->setListIndex(0);
        QVERIFY(!page.box.tmrUpdateSearchGuide->isActive());
        QCOMPARE(page.cboQuery->Text(), QStringLiteral("deed and sale"));
        page.cboQuery->setText(QStringLiteral("lease"));
        QTest::keyClick(page.cboQuery, Qt::Key_Down);
        QVERIFY(!page.box.tmrUpdateSearchGuide->isActive());
        QCOMPARE(page.cboQuery->Text(), QStringLiteral("deed and sale"));
        QVERIFY(page.Guide().isEmpty());
        page.box.UpdateSearchGuide();
        QCOMPARE(page.cboQuery->Text(), QStringLiteral("deed sale"));
    }

    void TheCaretStaysWhereAnOperatorGoesBehindIt() {
        Page page;
        page.Paste(QStringLiteral("deed of sale or lease"));
        page.cboQuery->lineEdit()->setCursorPosition(9);
        page.box.UpdateSearchGuide();
        QCOMPARE(page.Shown(), QStringLiteral("deed of s|ale lease"));
    }

    void UndoStaysPossibleWhereNothingHadToGo() {
        Page page;
        page.Type(QStringLiteral("deed"));
        QVERIFY(page.cboQuery->lineEdit()->isUndoAvailable());
    }

    void TurningToAModeCleansShowsAndTakesTheFocus_data() {
        QTest::addColumn<SearchMode>("mode");
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("guide");
        QTest::newRow("any, dangling") << SearchMode::Any << "deed or"
                                       << "deed |"
                                       << "DEED or ";
        QTest::newRow("all, alone") << SearchMode::All << "OR"
                                    << "|"
                                    << "";
        QTest::newRow("phrase") << SearchMode::Phrase << "deed or"
                                << "deed or|"
                                << "\"DEED OR\"";
        QTest::newRow("phrase, empty") << SearchMode::Phrase << ""
                                       << "|"
                                       << "\"\"";
    }
    void TurningToAModeCleansShowsAndTakesTheFocus() {
        QFETCH(SearchMode, mode);
        QFETCH(QString, query);
        Page page;
        page.cboQuery->setText(query);
        page.cboQuery->lineEdit()->setCursorPosition(0);
        page.other->setFocus();
        page.mode = mode;
        page.box.TurnTo(mode);
        QTEST(page.Shown(), "shown");
        QTEST(page.Guide(), "guide");
        QCOMPARE(page.window.focusWidget(), page.cboQuery);
    }

    void TheSameQueryStandsInTheHistoryTwice() {
        Page page;
        for (const char* query : {"sale", "deed", "sale"}) {
            page.cboQuery->setText(QString::fromLatin1(query));
            page.box.AddToHistory();
        }
        QCOMPARE(page.cboQuery->Items(), QStringLiteral("sale deed sale").split(u' '));
        QCOMPARE(page.cboQuery->Text(), QStringLiteral("sale"));
    }
};

QTEST_MAIN(QueryBoxTest)
#include "query_box_test.moc"
