#include "app/menu_table.h"

#include "clauses/clause_entries.h"
#include "output/paper_sizes.h"

#include <QHash>
#include <QKeySequence>
#include <QMap>
#include <QSet>
#include <QtTest>

using namespace quillbrook;

namespace {

QString Text(const char* text) {
    return QString::fromLatin1(text);
}

QStringList NamesIn(const char* parent) {
    QStringList names;
    for (const MenuRow* row : MenuRowsIn(parent))
        names.append(row->kind == MenuKind::Bar ? u"-"_qs : Text(row->name));
    return names;
}

bool HoldsOthers(const MenuRow& row) {
    return row.kind == MenuKind::Menu || row.kind == MenuKind::PopUp || row.kind == MenuKind::SubMenu;
}

// The names of the rows that a rule holds for, sorted.
template <typename Rule>
QStringList NamesWhere(Rule rule) {
    QStringList names;
    for (const MenuRow& row : MenuTable()) {
        if (rule(row))
            names.append(Text(row.name));
    }
    names.sort();
    return names;
}

} // namespace

class MenuTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NamesAreUnique() {
        QSet<QString> names;
        for (const MenuRow& row : MenuTable()) {
            QVERIFY2(!Text(row.name).isEmpty() && !names.contains(Text(row.name)), row.name);
            names.insert(Text(row.name));
            QCOMPARE(FindMenuRow(row.name), &row);
        }
        QVERIFY(!FindMenuRow(""));
        QVERIFY(!FindMenuRow("mnuFoo"));
    }

    void EachRowStandsBehindTheMenuItIsIn() {
        QHash<QString, const MenuRow*> seen;
        for (const MenuRow& row : MenuTable()) {
            const bool isTop = row.kind == MenuKind::Menu || row.kind == MenuKind::PopUp;
            QVERIFY2(isTop == Text(row.parent).isEmpty(), row.name);
            if (!isTop) {
                QVERIFY2(seen.contains(Text(row.parent)), row.name);
                QVERIFY2(HoldsOthers(*seen[Text(row.parent)]), row.name);
            }
            seen.insert(Text(row.name), &row);
        }
    }

    void MenusFollowInTheirOrder() {
        QCOMPARE(NamesIn(""), (QStringList{u"mnuFile"_qs, u"mnuEdit"_qs, u"mnuPaperSize"_qs, u"mnuFormat"_qs,
                                           u"mnuTheme"_qs, u"mnuAddtoForm"_qs, u"mnuHelp"_qs, u"mnuPopUp"_qs,
                                           u"mnuDropSave"_qs, u"mnuDropPrint"_qs}));
        QCOMPARE(NamesWhere([](const MenuRow& row) { return row.kind == MenuKind::PopUp; }),
                 (QStringList{u"mnuDropPrint"_qs, u"mnuDropSave"_qs, u"mnuPopUp"_qs}));
    }

    void MenusHoldTheirEntries_data() {
        QTest::addColumn<int>("entries"); // sub-menus too
        QTest::addColumn<int>("bars");
        QTest::newRow("mnuFile") << 8 << 3;
        QTest::newRow("mnuEdit") << 6 << 2;
        QTest::newRow("mnuPaperSize") << 4 << 0;
        QTest::newRow("mnuFormat") << 7 << 2;
        QTest::newRow("mnuTextStyle") << 3 << 0;
        QTest::newRow("mnuAlignment") << 3 << 0;
        QTest::newRow("mnuIndent") << 2 << 0;
        QTest::newRow("mnuCase") << 2 << 0;
        QTest::newRow("mnuTheme") << 2 << 0;
        QTest::newRow("mnuAddtoForm") << 4 << 0;
        QTest::newRow("mnuAddJurat") << 3 << 0;
        QTest::newRow("mnuAddAcknowledgment") << 5 << 0;
        QTest::newRow("mnuCaption") << 5 << 0;
        QTest::newRow("mnuCaptionRTC") << 2 << 0;
        QTest::newRow("mnuCaptionMTC") << 2 << 0;
        QTest::newRow("mnuCaptionMTCC") << 2 << 0;
        QTest::newRow("mnuVerification") << 6 << 0;
        QTest::newRow("mnuHelp") << 3 << 2;
        QTest::newRow("mnuPopUp") << 11 << 5;
        QTest::newRow("mnuDropSave") << 3 << 1;
        QTest::newRow("mnuDropPrint") << 3 << 1;
    }
    void MenusHoldTheirEntries() {
        QFETCH(int, entries);
        QFETCH(int, bars);
        const QStringList names = NamesIn(QTest::currentDataTag());
        QCOMPARE(names.count(u"-"_qs), bars);
        QCOMPARE(names.size() - bars, entries);
    }
    void NoMenuIsLeftOut() {
        QCOMPARE(NamesWhere(HoldsOthers).size(), 21);
        for (const MenuRow& row : MenuTable()) {
            if (HoldsOthers(row))
                QVERIFY2(!MenuRowsIn(row.name).empty(), row.name);
        }
    }

    void BarsStandBetweenEntries() {
        for (const MenuRow& menu : MenuTable()) {
            const QStringList names = NamesIn(menu.name);
            for (qsizetype i = 0; i < names.size(); ++i) {
                if (names[i] != u"-")
                    continue;
                QVERIFY2(i > 0 && i + 1 < names.size() && names[i + 1] != u"-", menu.name);
            }
        }
    }

    void EntriesFollowInTheirOrder_data() {
        QTest::addColumn<QString>("names");
        QTest::newRow("mnuFile") << u"mnuNew mnuOpen mnuSave - mnuPageSetup - mnuPrint mnuPrintSetup "
                                    u"mnuPrintPreview - mnuExit"_qs;
        QTest::newRow("mnuEdit") << u"mnuSelectAll - mnuCut mnuCopy mnuPaste - mnuUndo mnuRedo"_qs;
        QTest::newRow("mnuFormat") << u"mnuFontDialog mnuTextStyle mnuAlignment mnucolor - mnuBullet "
                                      u"mnuIndent - mnuCase"_qs;
        QTest::newRow("mnuPopUp")
            << u"mnuPopUndo mnuPopRedo - mnuPopCut mnuPopCopy mnuPopPaste mnuPopDelete - "
               u"mnuPopSelectAll - mnuPopFonts mnuPopColor - mnuChangeColor - "
               u"mnuPopAbout"_qs;
        QTest::newRow("mnuTextStyle") << u"mnuBold mnuItalic mnuUnderline"_qs;
        QTest::newRow("mnuAlignment") << u"mnuLeft mnuRight mnuCenter"_qs;
        QTest::newRow("mnuIndent") << u"mnuIncreaseIndent mnuDecreaseIndent"_qs;
        QTest::newRow("mnuCase") << u"mnuUpperCase mnuLowerCase"_qs;
        QTest::newRow("mnuPaperSize") << u"mnuLongSize mnuShortSize mnuA4Size mnuCustomSize"_qs;
        QTest::newRow("mnuTheme") << u"mnuChangeColorTheme mnuWindowsDefaultTheme"_qs;
        QTest::newRow("mnuHelp") << u"mnuHelpContents - mnuContact - mnuAbout"_qs;
        QTest::newRow("mnuDropSave") << u"mnuSaveAsDocFile mnuSaveAsRTFFile - mnuAddToMyForms"_qs;
        QTest::newRow("mnuDropPrint") << u"mnuPageSetupPrint - mnuPrinterSetupDrop mnuPrintPreviewDrop"_qs;
        QTest::newRow("mnuCaption")
            << u"mnuCaptionSC mnuCaptionCA mnuCaptionRTC mnuCaptionMTC mnuCaptionMTCC"_qs;
    }
    void EntriesFollowInTheirOrder() {
        QFETCH(QString, names);
        QCOMPARE(NamesIn(QTest::currentDataTag()).join(u' '), names);
    }

    void EntriesHaveTheirCaptions_data() {
        QTest::addColumn<QString>("caption");
        const auto row = [](const char* name, const char* caption) { QTest::newRow(name) << Text(caption); };
        row("mnuFile", "&File");
        row("mnuNew", "&New");
        row("mnuOpen", "&Open...");
        row("mnuSave", "&Save...");
        row("mnuPageSetup", "Page Setup...");
        row("mnuPrint", "&Print...");
        row("mnuPrintSetup", "Print Setup...");
        row("mnuPrintPreview", "Print Preview");
        row("mnuExit", "&Quit");
        row("mnuEdit", "&Edit");
        row("mnuUndo", "Undo");
        row("mnuRedo", "Redo");
        row("mnuPaperSize", "Paper Size");
        row("mnuCustomSize", "Custom Size...");
        row("mnuFormat", "F&ormat");
        row("mnuFontDialog", "Fonts...");
        row("mnuTextStyle", "Text Style");
        row("mnuAlignment", "Text Alignment");
        row("mnucolor", "Text Color...");
        row("mnuBullet", "Bullet");
        row("mnuIndent", "Indent");
        row("mnuCase", "Change Case");
        row("mnuTheme", "&Theme");
        row("mnuChangeColorTheme", "Select Color Theme");
        row("mnuWindowsDefaultTheme", "Windows Default");
        row("mnuAddtoForm", "&Add to Form");
        row("mnuHelp", "&Help");
        row("mnuHelpContents", "Help Contents...");
        row("mnuContact", "Contact Atty. Merrow...");
        row("mnuAbout", "About Atty. Merrow...");
        row("mnuChangeColor", "Color Theme...");
        row("mnuPopAbout", "About...");
        row("mnuSaveAsDocFile", "Save as .Doc File");
        row("mnuSaveAsRTFFile", "Save as .RTF File");
        row("mnuAddToMyForms", "Add to My Forms");
        row("mnuPageSetupPrint", "Page Setup...");
        row("mnuPrinterSetupDrop", "Printer Setup");
        row("mnuPrintPreviewDrop", "Print Preview");
    }
    void EntriesHaveTheirCaptions() {
        const MenuRow* row = FindMenuRow(QTest::currentDataTag());
        QVERIFY(row);
        QTEST(Text(row->caption), "caption");
    }

    void BarsStandInTheirMenus_data() {
        QTest::addColumn<QString>("menu");
        for (const char* name : {"mnuFileBar1", "mnuFileBar2", "mnuFileBar3"})
            QTest::newRow(name) << u"mnuFile"_qs;
        for (const char* name : {"Bar1", "Bar2"})
            QTest::newRow(name) << u"mnuEdit"_qs;
        for (const char* name : {"mnuFormatBar1", "mnuFormatBar2"})
            QTest::newRow(name) << u"mnuFormat"_qs;
        for (const char* name : {"mnuBar0", "mnuPopBar5"})
            QTest::newRow(name) << u"mnuHelp"_qs;
    }
    void BarsStandInTheirMenus() {
        const MenuRow* row = FindMenuRow(QTest::currentDataTag());
        QVERIFY(row && row->kind == MenuKind::Bar);
        QTEST(Text(row->parent), "menu");
    }

    void OnlyBarsAndPopUpsHaveNoCaption() {
        for (const MenuRow& row : MenuTable()) {
            const bool isSilent = row.kind == MenuKind::Bar || row.kind == MenuKind::PopUp;
            QVERIFY2(Text(row.caption).isEmpty() == isSilent, row.name);
            QCOMPARE(Text(row.caption).trimmed(), Text(row.caption));
        }
    }

    void CaptionsNameTheKeysOfThePanes_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<int>("blanks");
        QTest::addColumn<QString>("key");
        QTest::newRow("mnuSelectAll") << u"Select All"_qs << 5 << u"Ctrl+A"_qs;
        QTest::newRow("mnuCut") << u"Cut"_qs << 14 << u"Ctrl+X"_qs;
        QTest::newRow("mnuCopy") << u"Copy"_qs << 11 << u"Ctrl+C"_qs;
        QTest::newRow("mnuPaste") << u"Paste"_qs << 11 << u"Ctrl+V"_qs;
    }
    void CaptionsNameTheKeysOfThePanes() {
        QFETCH(QString, words);
        QFETCH(int, blanks);
        QFETCH(QString, key);
        const MenuRow* row = FindMenuRow(QTest::currentDataTag());
        QVERIFY(row);
        QCOMPARE(Text(row->caption), words + QString(blanks, u' ') + key);
        // they are no shortcuts of the menu
        QCOMPARE(Text(row->shortcut), QString());
    }
    void NoOtherCaptionNamesAKey() {
        QCOMPARE(NamesWhere([](const MenuRow& row) { return Text(row.caption).contains(u"Ctrl"_qs); }),
                 (QStringList{u"mnuCopy"_qs, u"mnuCut"_qs, u"mnuPaste"_qs, u"mnuSelectAll"_qs}));
    }

    void LettersThatChoose_data() {
        QTest::addColumn<QChar>("letter");
        const QMap<QString, QChar> letters = {
            {u"mnuFile"_qs, u'F'},  {u"mnuEdit"_qs, u'E'}, {u"mnuFormat"_qs, u'o'},
            {u"mnuTheme"_qs, u'T'}, {u"mnuHelp"_qs, u'H'}, {u"mnuAddtoForm"_qs, u'A'},
            {u"mnuNew"_qs, u'N'},   {u"mnuOpen"_qs, u'O'}, {u"mnuSave"_qs, u'S'},
            {u"mnuPrint"_qs, u'P'}, {u"mnuExit"_qs, u'Q'},
        };
        for (const MenuRow& row : MenuTable())
            QTest::newRow(row.name) << letters.value(Text(row.name));
    }
    void LettersThatChoose() {
        QFETCH(QChar, letter);
        const QString caption = Text(FindMenuRow(QTest::currentDataTag())->caption);
        const qsizetype mark = caption.indexOf(u'&');
        QCOMPARE(mark < 0 ? QChar() : caption[mark + 1], letter);
        QVERIFY(caption.count(u'&') <= 1);
    }
    void NoTwoEntriesOfAMenuShareALetter() {
        QSet<QString> letters;
        for (const MenuRow& row : MenuTable()) {
            const QString caption = Text(row.caption);
            const qsizetype mark = caption.indexOf(u'&');
            if (mark < 0)
                continue;
            const QString key = Text(row.parent) + caption[mark + 1].toUpper();
            QVERIFY2(!letters.contains(key), row.name);
            letters.insert(key);
        }
    }

    void ShortcutsAreThoseTwelve() {
        const QMap<QString, QString> expected = {
            {u"mnuNew"_qs, u"Ctrl+N"_qs},    {u"mnuOpen"_qs, u"Ctrl+O"_qs},
            {u"mnuSave"_qs, u"Ctrl+S"_qs},   {u"mnuPrint"_qs, u"Ctrl+P"_qs},
            {u"mnuExit"_qs, u"Ctrl+Q"_qs},   {u"mnuBold"_qs, u"Ctrl+B"_qs},
            {u"mnuItalic"_qs, u"Ctrl+I"_qs}, {u"mnuLeft"_qs, u"Ctrl+L"_qs},
            {u"mnuCenter"_qs, u"Ctrl+E"_qs}, {u"mnuUnderline"_qs, u"Ctrl+U"_qs},
            {u"mnuRight"_qs, u"Ctrl+R"_qs},  {u"mnuHelpContents"_qs, u"F1"_qs},
        };
        QMap<QString, QString> found;
        for (const MenuRow& row : MenuTable()) {
            const QString shortcut = Text(row.shortcut);
            if (shortcut.isEmpty())
                continue;
            QVERIFY2(row.kind == MenuKind::Item, row.name);
            const auto keys = QKeySequence::fromString(shortcut, QKeySequence::PortableText);
            QCOMPARE(keys.toString(QKeySequence::PortableText), shortcut);
            found.insert(Text(row.name), shortcut);
        }
        QCOMPARE(found, expected);
    }

    void OnlyUndoAndRedoAreOffAtStart() {
        QCOMPARE(NamesWhere([](const MenuRow& row) { return !row.isEnabled; }),
                 (QStringList{u"mnuPopRedo"_qs, u"mnuPopUndo"_qs, u"mnuRedo"_qs, u"mnuUndo"_qs}));
    }

    void LongIsTheOnlyCheckAtStart() {
        QCOMPARE(NamesWhere([](const MenuRow& row) { return row.isCheckable; }),
                 (QStringList{u"mnuA4Size"_qs, u"mnuCustomSize"_qs, u"mnuHelpContents"_qs, u"mnuLongSize"_qs,
                              u"mnuShortSize"_qs, u"mnuWindowsDefaultTheme"_qs}));
        QCOMPARE(NamesWhere([](const MenuRow& row) { return row.isChecked; }),
                 QStringList(u"mnuLongSize"_qs));
    }

    void EachClauseHasItsEntry() {
        int count = 0;
        for (const ClauseEntry& entry : kClauseEntries) {
            const MenuRow* row = FindMenuRow(entry.name);
            QVERIFY2(row && row->kind == MenuKind::Item, entry.name);
            QCOMPARE(Text(row->parent), Text(entry.menu));
            QCOMPARE(Text(row->caption), Text(entry.caption));
            ++count;
        }
        QCOMPARE(count, 22);
        // and nothing else stands in those menus
        QCOMPARE(NamesWhere([](const MenuRow& row) {
                     const MenuRow* menu = FindMenuRow(row.parent);
                     while (menu && menu->kind == MenuKind::SubMenu)
                         menu = FindMenuRow(menu->parent);
                     return row.kind == MenuKind::Item && menu && Text(menu->name) == u"mnuAddtoForm";
                 }).size(),
                 22);
    }

    void EachPaperHasItsEntry() {
        for (const PaperSize& size : kPaperSizes) {
            const MenuRow* row = FindMenuRow(size.menu);
            QVERIFY2(row, size.menu);
            QCOMPARE(Text(row->parent), u"mnuPaperSize"_qs);
            QCOMPARE(Text(row->caption), Text(size.menuCaption));
        }
    }
};

QTEST_GUILESS_MAIN(MenuTableTest)
#include "menu_table_test.moc"
