#include "clauses/clause_commands.h"

#include "app/menu_tree.h"
#include "editor/edit_tool_bar.h"
#include "editor/undo_commands.h"
#include "library/category_browser.h"
#include "platform/controls/list_box.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/clause_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::RichTextBox;

class ClauseCommandsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ClauseWindow> m_window; // of the tests that need none of their own

private Q_SLOTS:
    void initTestCase() {
        m_window = std::make_unique<ClauseWindow>();
        QVERIFY(m_window->hasClauses);
    }
    void init() {
        ClauseWindow& window = *m_window;
        window->SetTab(Tab::FormsExplorer);
        window->txtContent()->setTextRTF(QString());
        window->txtMyContent()->setTextRTF(QString());
        window->State().DocumentSaved = true;
        PublicVariables& variables = window->Variables();
        variables.JuratNumber.clear();
        variables.CaptionNumber.clear();
        variables.VerificationNumber.clear();
        variables.CurrentSearchWord.clear();
        window.services.messageBox.shown.clear();
    }
    void cleanupTestCase() { m_window.reset(); }

    // ---- the menu

    void EachEntryPutsItsClauseInItsPlace_data() {
        QTest::addColumn<QString>("name");
        for (const ClauseEntry& entry : kClauseEntries)
            QTest::newRow(entry.name) << QString::fromLatin1(entry.name);
    }
    void EachEntryPutsItsClauseInItsPlace() {
        QFETCH(QString, name);
        const ClauseEntry* entry = FindClauseEntry(name.toStdString());
        const QString clause = TestClause(entry->routine, entry->number);
        const QString marker = QLatin1String(entry->marker);
        ClauseWindow& window = *m_window;
        window->txtContent()->setText(kPlaces);
        window->Variables().CurrentSearchWord = u"before"_qs;
        window.Choose(entry->name);
        QCOMPARE(window.Content(),
                 marker.isEmpty() ? clause + kPlaces : QString(kPlaces).replace(marker, clause));
        QCOMPARE(window->Variables().CurrentSearchWord, marker.isEmpty() ? u"before"_qs : marker);
        const QStringList numbers{window->Variables().JuratNumber, window->Variables().CaptionNumber,
                                  window->Variables().VerificationNumber};
        QStringList expected{{}, {}, {}};
        expected[int(entry->routine)] = QLatin1String(entry->number);
        QCOMPARE(numbers, expected); // the number stays
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TheMenuIsEnabledOnEveryPageWithoutAForm() {
        ClauseWindow& window = *m_window;
        for (int tab = 0; tab < 6; ++tab) {
            window->SetTab(Tab(tab));
            QVERIFY(window->menuTree->Menu(u"mnuAddtoForm"_qs)->isEnabled());
            for (const ClauseEntry& entry : kClauseEntries)
                QVERIFY2(window->Menu(QLatin1String(entry.name))->isEnabled(), entry.name);
        }
    }

    // ---- the pane

    void TheClauseGoesIntoThePaneOfThePage_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<bool>("mine");
        QTest::newRow("Forms Explorer") << 0 << false;
        QTest::newRow("Search") << 1 << false;
        QTest::newRow("Edit Form") << 2 << false;
        QTest::newRow("Favorites") << 3 << false;
        QTest::newRow("History") << 4 << false;
        QTest::newRow("My Forms") << 5 << true;
    }
    void TheClauseGoesIntoThePaneOfThePage() {
        QFETCH(int, tab);
        QFETCH(bool, mine);
        for (const char* entry : {"mnuJuratIndividual", "mnuCaptionSC", "mnuAddVerificationIndividual"}) {
            ClauseWindow& window = *m_window;
            window->txtContent()->setText(u"form"_qs);
            window->txtMyContent()->setText(u"mine"_qs);
            window->SetTab(Tab(tab));
            window.Choose(entry);
            QCOMPARE(window.Content() == u"form", mine);
            QCOMPARE(window.MyContent() == u"mine", !mine);
            QCOMPARE(window->CurrentTab(), Tab(tab));
        }
    }

    void AnEmptyPaneTakesTheClauseBehindTwoBlanks_data() {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("mine");
        QTest::addColumn<QString>("mineAfter");
        QTest::newRow("both empty") << QString() << QString() << u"  "_qs;
        QTest::newRow("one blank") << u" "_qs << QString() << u"  "_qs;
        QTest::newRow("the other has one blank") << QString() << u" "_qs << u"  "_qs;
        QTest::newRow("the other has a form") << QString() << u"mine"_qs << u"mine"_qs;
    }
    void AnEmptyPaneTakesTheClauseBehindTwoBlanks() {
        QFETCH(QString, form);
        QFETCH(QString, mine);
        for (const bool isJurat : {true, false}) {
            ClauseWindow& window = *m_window;
            window->txtContent()->setText(form);
            window->txtMyContent()->setText(mine);
            window.Choose(isJurat ? "mnuJuratIndividual" : "mnuAddVerificationIndividual");
            QCOMPARE(window.Content(), QString(u"  "_qs + (isJurat ? kJurat1 : kVerification1)));
            QTEST(window.MyContent(), "mineAfter");
        }
    }

    void ACaptionLeavesAnEmptyPaneWithoutBlanks() {
        ClauseWindow& window = *m_window;
        window.Choose("mnuCaptionSC");
        QCOMPARE(window.Content(), kCaption1);
        QCOMPARE(window.MyContent(), QString());
    }

    void APaneOfOneCharacterTakesOnlyACaption() {
        ClauseWindow& window = *m_window;
        window->txtContent()->setText(u"x"_qs);
        window.Choose("mnuJuratIndividual");
        window.Choose("mnuAddVerificationIndividual");
        QCOMPARE(window.Content(), u"x"_qs);
        QCOMPARE(window.MyContent(), u"  "_qs);
        QVERIFY(window.services.messageBox.shown.empty());
        window.Choose("mnuCaptionSC");
        QCOMPARE(window.Content(), QString(kCaption1 + u'x'));
    }

    // ---- the place

    void TheMarkerIsFoundInSmallLetters() {
        ClauseWindow& window = *m_window;
        window->txtContent()->setText(u"I swear.\n(jurat)\nEnd"_qs);
        window.Choose("mnuJuratIndividual");
        QCOMPARE(window.Content(), u"I swear.\n%1\nEnd"_qs.arg(kJurat1));
    }

    void TwoPlacesAreFilledInTurnAndTheThirdClauseGoesToTheEnd() {
        ClauseWindow& window = *m_window;
        window->txtContent()->setText(u"1 (JURAT) 2 (JURAT) 3"_qs);
        window.Choose("mnuJuratIndividual");
        QCOMPARE(window.Content(), u"1 %1 2 (JURAT) 3"_qs.arg(kJurat1));
        window.Choose("mnuJuratIndividual");
        QCOMPARE(window.Content(), u"1 %1 2 %1 3"_qs.arg(kJurat1));
        window.Choose("mnuJuratIndividual");
        QCOMPARE(window.Content(), u"1 %1 2 %1 3%1"_qs.arg(kJurat1));
    }

    void AJuratLeavesThePlaceOfAnAcknowledgment() {
        ClauseWindow& window = *m_window;
        window->txtContent()->setText(u"Deed\n(ACKNOWLEDGMENT)"_qs);
        window.Choose("mnuJuratIndividual");
        QCOMPARE(window.Content(), QString(u"Deed\n(ACKNOWLEDGMENT)"_qs + kJurat1));
    }

    void APlaceOfAVerificationTakesAnyOfTheThree_data() {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"mnuAddVerificationIndividual", "mnuVerificationCorporation", "mnuVerificationCertification"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void APlaceOfAVerificationTakesAnyOfTheThree() {
        QFETCH(QString, name);
        ClauseWindow& window = *m_window;
        window->txtContent()->setText(u"a (VERIFICATION) b"_qs);
        window->Menu(name)->trigger();
        QVERIFY(window.Content().startsWith(u"a Verification "));
        QVERIFY(window.Content().endsWith(u" b"));
        QVERIFY(!window.Content().contains(u"(VERIFICATION)"));
    }

    void ACaptionGoesOnTopWhereverTheCaretIs() {
        ClauseWindow& window = *m_window;
        QString text;
        for (int line = 0; line < 3000; ++line)
            text += u"Line %1\n"_qs.arg(line);
        RichTextBox* pane = window->txtContent();
        pane->setText(text);
        pane->setSelStart(int(text.size()));
        window.Choose("mnuCaptionSC");
        QCOMPARE(window.Content(), QString(kCaption1 + text));
        window.Choose("mnuCaptionCA");
        QCOMPARE(window.Content(), QString(TestClause(ClauseRoutine::InsertCaption, "2") + kCaption1 + text));
    }

    // ---- the selection, the focus, the flags

    void WhatWasSelectedStaysAndTheCaretIsBehindTheClause_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("after");
        QTest::newRow("at the end") << u"mnuJuratIndividual"_qs << QString(u"selected"_qs + kJurat1 + u'|');
        QTest::newRow("on top") << u"mnuCaptionSC"_qs << QString(kCaption1 + u"|selected"_qs);
    }
    void WhatWasSelectedStaysAndTheCaretIsBehindTheClause() {
        QFETCH(QString, name);
        ClauseWindow& window = *m_window;
        RichTextBox* pane = window->txtContent();
        pane->setText(u"selected"_qs);
        pane->selectAll();
        window->Menu(name)->trigger();
        QCOMPARE(pane->SelLength(), 0);
        QTEST(window.Content().insert(pane->SelStart(), u'|'), "after");
    }

    void TheFocusStaysWhereItWas() {
        ClauseWindow& window = *m_window;
        QVERIFY(window.Show());
        platform::ListBox* list = window->categoryBrowser->lstTitle;
        list->setFocus();
        for (const char* entry : {"mnuJuratIndividual", "mnuCaptionSC", "mnuAddVerificationIndividual"}) {
            window.Choose(entry);
            QVERIFY(list->hasFocus());
        }
    }

    void AnInsertionDoesNotTouchTheSavedFlag() {
        for (const bool saved : {true, false}) {
            ClauseWindow& window = *m_window;
            window->State().DocumentSaved = saved;
            window.Choose("mnuJuratIndividual");
            window.Choose("mnuCaptionSC");
            QCOMPARE(window->State().DocumentSaved, saved);
        }
    }

    // ---- undo

    void AnInsertionIsOneStepOfUndo_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("tab");
        for (const char* name : {"mnuJuratIndividual", "mnuCaptionSC", "mnuAddVerificationIndividual"}) {
            QTest::addRow("%s, form", name) << QString::fromLatin1(name) << int(Tab::EditForm);
            QTest::addRow("%s, my form", name) << QString::fromLatin1(name) << int(Tab::MyForms);
        }
    }
    void AnInsertionIsOneStepOfUndo() {
        QFETCH(QString, name);
        QFETCH(int, tab);
        ClauseWindow window;
        window->txtContent()->setText(kPlaces);
        window->txtMyContent()->setText(kPlaces);
        window->SetTab(Tab(tab));
        RichTextBox* pane = window->ActivePane();
        const PaneHistory& history =
            Tab(tab) == Tab::MyForms ? window->undoCommands->MyHistory() : window->undoCommands->History();
        const int before = history.Index();
        const QString source = pane->TextRTF();
        QSignalSpy changes(pane, &RichTextBox::Change);
        window->Menu(name)->trigger();
        QCOMPARE(changes.size(), 1);
        QCOMPARE(history.Index(), before + 1);
        const QString with = pane->TextRTF();
        window->Menu(u"mnuUndo"_qs)->trigger();
        QCOMPARE(pane->TextRTF(), source);
        window->Menu(u"mnuRedo"_qs)->trigger();
        QCOMPARE(pane->TextRTF(), with);
    }

    void TheTwoBlanksAreAStepOfTheirOwnInBothPanes() {
        ClauseWindow window;
        const int form = window->undoCommands->History().Index();
        const int mine = window->undoCommands->MyHistory().Index();
        window.Choose("mnuJuratIndividual");
        QCOMPARE(window->undoCommands->History().Index(), form + 2);
        QCOMPARE(window->undoCommands->MyHistory().Index(), mine + 1);
        window->Menu(u"mnuUndo"_qs)->trigger();
        QCOMPARE(window.Content(), u"  "_qs);
    }

    // ---- what the library does not give

    void AMissingClauseTakesTheMarkerAway_data() {
        QTest::addColumn<QString>("fault");
        QTest::newRow("no row") << u"row"_qs;
        QTest::newRow("no text") << u"text"_qs;
        QTest::newRow("no library") << u"library"_qs;
    }
    void AMissingClauseTakesTheMarkerAway() {
        QFETCH(QString, fault);
        ClauseWindow window;
        if (fault == u"library") {
            window->Store().CloseLibrary();
        } else {
            for (const char* table : {"Jurat", "Caption", "Verification"})
                QVERIFY(window.Lose(table, "1", fault == u"text"));
        }
        window->txtContent()->setText(u"a (JURAT) b (VERIFICATION) c"_qs);
        window.Choose("mnuJuratIndividual");
        QCOMPARE(window.Content(), u"a  b (VERIFICATION) c"_qs);
        window.Choose("mnuAddVerificationIndividual");
        QCOMPARE(window.Content(), u"a  b  c"_qs);
        // without a marker nothing is added
        window.Choose("mnuJuratIndividual");
        window.Choose("mnuAddVerificationIndividual");
        window.Choose("mnuCaptionSC");
        QCOMPARE(window.Content(), u"a  b  c"_qs);
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TheClauseIsReadWhenBothPanesAreReady() {
        for (const bool mine : {false, true}) {
            ClauseWindow window;
            RichTextBox* pane = mine ? window->txtMyContent() : window->txtContent();
            bool lost = false;
            connect(pane, &RichTextBox::Change, this,
                    [&] { lost = lost || window.Lose("Verification", "1", false); });
            window.Choose("mnuAddVerificationIndividual");
            QVERIFY(lost);
            QCOMPARE(window.Content(), u"  "_qs);
            QCOMPARE(window.MyContent(), u"  "_qs);
        }
    }

    void ARoutineDoesNotLookWhetherAClauseIsChosen() {
        ClauseWindow& window = *m_window;
        window->Variables().CurrentSearchWord = u"(JURAT)"_qs;
        window->txtContent()->setText(u"a (JURAT) b (JURAT) c"_qs);
        window->clauseCommands->InsertJurat();
        QCOMPARE(window.Content(), u"a  b (JURAT) c"_qs);
        window->clauseCommands->InsertVerification();
        QCOMPARE(window.Content(), u"a  b  c"_qs);
        window->clauseCommands->InsertCaption();
        QCOMPARE(window.Content(), u"a  b  c"_qs);
    }
};

QTEST_MAIN(ClauseCommandsTest)
#include "clause_commands_test.moc"
