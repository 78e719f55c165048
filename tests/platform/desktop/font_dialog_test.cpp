#include "platform/desktop/font_dialog.h"

#include <QtTest>
#include <QtWidgets>

using platform::FontChoice;
using platform::FontDialog;

Q_DECLARE_METATYPE(platform::FontChoice)

class FontDialogTest : public QObject {
    Q_OBJECT

    static void Compare(const FontChoice& choice, const FontChoice& expected) {
        QCOMPARE(choice.FontName, expected.FontName);
        QCOMPARE(choice.FontSize, expected.FontSize);
        QCOMPARE(choice.FontBold, expected.FontBold);
        QCOMPARE(choice.FontItalic, expected.FontItalic);
        QCOMPARE(choice.FontStrikethru, expected.FontStrikethru);
        QCOMPARE(choice.FontUnderline, expected.FontUnderline);
        QCOMPARE(choice.Color, expected.Color);
    }

    static QFontDialog& Fonts(FontDialog& dialog) { return *dialog.findChild<QFontDialog*>(); }

private Q_SLOTS:
    void WhatTheUserLeavesAloneComesBackAsItWasGiven_data() {
        QTest::addColumn<FontChoice>("given");
        const auto row = [](const char* name, const FontChoice& given) { QTest::newRow(name) << given; };
        row("a font of this machine", {u"Liberation Sans"_qs, 12, false, false, false, false, Qt::black});
        row("all styles", {u"Liberation Sans"_qs, 20, true, true, true, true, QColor(1, 2, 3)});
        row("a font with a substitute", {u"Times New Roman"_qs, 12, true, false, false, false, Qt::red});
        row("a font without one", {u"No Such Font"_qs, 14, false, true, false, true, Qt::blue});
        row("half a point", {u"Liberation Serif"_qs, 10.5, false, false, false, false, Qt::black});
        row("a size that is not in the list",
            {u"Liberation Serif"_qs, 13, false, false, true, false, Qt::black});
        row("a very large size", {u"Liberation Serif"_qs, 1638, false, false, false, false, Qt::black});
    }
    void WhatTheUserLeavesAloneComesBackAsItWasGiven() {
        QFETCH(FontChoice, given);
        const FontDialog dialog(given, nullptr);
        Compare(dialog.Choice(), given);
    }

    void EnterAndEscapeAreOkAndCancel_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("result");
        QTest::newRow("Enter") << int(Qt::Key_Return) << int(QDialog::Accepted);
        QTest::newRow("Escape") << int(Qt::Key_Escape) << int(QDialog::Rejected);
    }
    void EnterAndEscapeAreOkAndCancel() {
        QFETCH(int, key);
        QFETCH(int, result);
        FontDialog dialog({u"Liberation Serif"_qs, 12, false, false, false, false, Qt::black}, nullptr);
        dialog.show();
        int lists = 0;
        for (QWidget* list : Fonts(dialog).findChildren<QListView*>()) {
            if (!list->isVisible())
                continue; // of its combo box
            dialog.setResult(-1);
            QTest::keyClick(list, Qt::Key(key));
            QVERIFY(!dialog.isVisible());
            QCOMPARE(dialog.result(), result);
            Fonts(dialog).show();
            dialog.show();
            ++lists;
        }
        QCOMPARE(lists, 3);
    }

    void AnotherSizeLeavesTheFont() {
        FontDialog dialog({u"Times New Roman"_qs, 10.5, true, false, false, false, Qt::red}, nullptr);
        QFont chosen = Fonts(dialog).currentFont();
        chosen.setPointSize(20);
        Fonts(dialog).setCurrentFont(chosen);
        Compare(dialog.Choice(), {u"Times New Roman"_qs, 20, true, false, false, false, Qt::red});
    }

    void AnotherFontLeavesTheSize() {
        FontDialog dialog({u"Times New Roman"_qs, 10.5, false, false, false, false, Qt::red}, nullptr);
        QFont chosen = Fonts(dialog).currentFont();
        chosen.setFamily(u"Liberation Mono"_qs);
        Fonts(dialog).setCurrentFont(chosen);
        Compare(dialog.Choice(), {u"Liberation Mono"_qs, 10.5, false, false, false, false, Qt::red});
    }

    void UnderlineAndStrikethroughAreOffered() {
        FontDialog dialog({u"Liberation Sans"_qs, 12, false, false, false, false, Qt::black}, nullptr);
        const auto boxes = dialog.findChildren<QCheckBox*>();
        QCOMPARE(boxes.size(), 2);
        for (QCheckBox* box : boxes)
            box->click();
        Compare(dialog.Choice(), {u"Liberation Sans"_qs, 12, false, false, true, true, Qt::black});
    }

    // The sample shows the text as the page does.
    void AMissingFontIsShownByItsSubstitute() {
        FontDialog dialog({u"Times New Roman"_qs, 12, false, false, false, false, Qt::black}, nullptr);
        QCOMPARE(Fonts(dialog).currentFont().family(), QFontInfo(QFont(u"Times New Roman"_qs)).family());
    }
};

QTEST_MAIN(FontDialogTest)
#include "font_dialog_test.moc"
