// The page setup dialog and the paper menu, in the real window.
#include "output/page_setup.h"
#include "output/paper_commands.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/output/page_setup_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using Desk = PageSetupDesk;

class PageSetupTest : public QObject {
    Q_OBJECT

    static void PaperRows() {
        QTest::addColumn<Paper>("paper");
        QTest::addColumn<QString>("size");
        QTest::newRow("Long") << Paper::Long << u"8.5|13"_qs;
        QTest::newRow("Short") << Paper::Short << u"8.5|11"_qs;
        QTest::newRow("A4") << Paper::A4 << u"8.27|11.69"_qs;
    }

private Q_SLOTS:
    void APapersEntrySetsItAndShowsNothing_data() { PaperRows(); }
    void APapersEntrySetsItAndShowsNothing() {
        QFETCH(Paper, paper);
        QFETCH(QString, size);
        Desk desk;
        desk.ConfirmCustom(u"9"_qs, u"14"_qs);
        desk.Choose(kPaperSizes[std::size_t(paper)].menu);
        QCOMPARE(desk.Size(), size);
        QVERIFY(desk.Shows(paper));
        QVERIFY(desk.SizeIsEnabled(false));
        QVERIFY(!desk.Dialog()->isVisible());
        QVERIFY(desk.window.services.messageBox.shown.empty());
        QCOMPARE(desk.Caption(), u"Custom (9 x 14)..."_qs);
    }

    void APaperChosenTwiceStaysChosen() {
        Desk desk;
        desk.Choose("mnuA4Size");
        desk.Choose("mnuA4Size");
        QVERIFY(desk.Shows(Paper::A4));
        desk.Click("optA4");
        QVERIFY(desk.Shows(Paper::A4));
    }

    void TheMenuFollowsAnOptionAtOnce_data() { PaperRows(); }
    void TheMenuFollowsAnOptionAtOnce() {
        QFETCH(Paper, paper);
        QFETCH(QString, size);
        Desk desk;
        desk.Choose(paper == Paper::Long ? "mnuShortSize" : "mnuLongSize");
        QVERIFY(desk.InDialog("mnuPageSetup", [&] {
            desk.Click(kPaperSizes[std::size_t(paper)].option);
            QVERIFY(desk.Dialog()->isVisible());
            QCOMPARE(desk.Size(), size);
            QVERIFY(desk.Shows(paper));
            QVERIFY(desk.SizeIsEnabled(false));
        }));
    }

    void ALabelOnlySelectsTheOptionOfItsRow() {
        Desk desk;
        desk.Choose("mnuShortSize");
        const QWidget* const focused = desk.Dialog()->focusWidget();
        for (const PaperSize& size : kPaperSizes) {
            desk.Click(size.label);
            QVERIFY2(desk.Shows(size.paper), size.label);
            QVERIFY(desk.SizeIsEnabled(size.paper == Paper::Custom));
            QCOMPARE(desk.Dialog()->focusWidget(), focused);
        }
    }

    void CustomOpensTheBoxesAndKeepsTheirTexts() {
        Desk desk;
        desk.Choose("mnuA4Size");
        desk.Click("optCustom");
        QVERIFY(desk.SizeIsEnabled(true));
        QVERIFY(desk.MarginsAreEnabled());
        QCOMPARE(desk.Size(), u"8.27|11.69"_qs);
        QVERIFY(desk.Shows(Paper::Custom));
    }

    void TheEntriesOfPageSetupShowTheDialogModally_data() {
        QTest::addColumn<Paper>("paper");
        QTest::newRow("mnuPageSetup") << Paper::Long;
        QTest::newRow("mnuPageSetupPrint") << Paper::Long;
        QTest::newRow("mnuCustomSize") << Paper::Custom;
    }
    void TheEntriesOfPageSetupShowTheDialogModally() {
        QFETCH(Paper, paper);
        Desk desk;
        QVERIFY(desk.window.Show());
        bool shown = false;
        QVERIFY(desk.InDialog(QTest::currentDataTag(), [&] { shown = desk.Shows(paper); }));
        QVERIFY(shown);
    }

    void TheArrowsStepTheirOwnBoxByATenth_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("up");
        QTest::addColumn<QString>("down");
        QTest::newRow("width") << u"txtWidth"_qs << u"vsWUp"_qs << u"vsWDown"_qs;
        QTest::newRow("height") << u"txtHeight"_qs << u"vsHUp"_qs << u"vsHDown"_qs;
        QTest::newRow("left") << u"txtLeft"_qs << u"vsLUp"_qs << u"vsLDown"_qs;
        QTest::newRow("right") << u"txtRight"_qs << u"vsRUp"_qs << u"vsRDown"_qs;
        QTest::newRow("top") << u"txtTop"_qs << u"vsTUp"_qs << u"vsTDown"_qs;
        QTest::newRow("bottom") << u"txtBottom"_qs << u"vsBUp"_qs << u"vsBDown"_qs;
    }
    void TheArrowsStepTheirOwnBoxByATenth() {
        QFETCH(QString, box);
        QFETCH(QString, up);
        QFETCH(QString, down);
        Desk desk;
        desk.Click("optCustom");
        const auto texts = [&] {
            QStringList all;
            for (const PageBoxControls& row : kPageBoxes)
                if (QLatin1String(row.name) != box)
                    all += desk.Text(row.name);
            return all;
        };
        const QStringList others = texts();
        const QByteArray name = box.toLatin1();
        desk.Type(name, u"1.9"_qs);
        desk.Click(up.toLatin1());
        QCOMPARE(desk.Text(name), u" 2"_qs);
        desk.Click(down.toLatin1());
        desk.Click(down.toLatin1());
        QCOMPARE(desk.Text(name), u" 1.8"_qs);
        desk.Type(name, u"abc"_qs);
        desk.Click(up.toLatin1());
        QCOMPARE(desk.Text(name), u" .1"_qs);
        desk.Click(down.toLatin1());
        QCOMPARE(desk.Text(name), u" 0"_qs);
        desk.Click(down.toLatin1());
        QCOMPARE(desk.Text(name), u"-.1"_qs);
        desk.Type(name, u"1,5"_qs);
        desk.Click(down.toLatin1());
        QCOMPARE(desk.Text(name), u" .9"_qs);
        QCOMPARE(texts(), others);
    }

    void TheUpAndDownKeysOfABoxAreItsArrows() {
        Desk desk;
        QVERIFY(desk.window.Show());
        QVERIFY(desk.InDialog("mnuPageSetup", [&] {
            desk.Find("txtTop")->setFocus();
            QTest::keyClick(desk.Find("txtTop"), Qt::Key_Up);
            QTest::keyClick(desk.Find("txtTop"), Qt::Key_Up);
            QTest::keyClick(desk.Find("txtTop"), Qt::Key_Down);
        }));
        QCOMPARE(desk.Text("txtTop"), u" 1.1"_qs);
        QCOMPARE(desk.Text("txtBottom"), u"1.0"_qs);
    }

    void WhatIsTypedIsInForceAtOnce() {
        Desk desk;
        const PageModel& model = desk.window->paperCommands->Model();
        desk.Type("txtLeft", u"1.5"_qs);
        QCOMPARE(model.Inches(PageBox::Left), 1.5);
        desk.Type("txtLeft", QString());
        QCOMPARE(model.Inches(PageBox::Left), 0.0);
        QCOMPARE(desk.Text("txtLeft"), QString());
    }

    void OkNamesTheCustomSizeInTheMenu() {
        Desk desk;
        desk.ConfirmCustom(u" 9 "_qs, u" 14.1"_qs);
        QCOMPARE(desk.Caption(), u"Custom (9 x 14.1)..."_qs);
        QVERIFY(desk.Shows(Paper::Custom));
        QVERIFY(!desk.Dialog()->isVisible());
        QVERIFY(desk.window->Windows().IsLoaded(u"frmPageSetup"_qs));
        QCOMPARE(desk.Size(), u" 9 | 14.1"_qs);
    }

    void OkTurnsACustomSizeOfAPaperIntoThatPaper_data() { PaperRows(); }
    void OkTurnsACustomSizeOfAPaperIntoThatPaper() {
        QFETCH(Paper, paper);
        QFETCH(QString, size);
        Desk desk;
        desk.ConfirmCustom(size.section(u'|', 0, 0) + u'0', size.section(u'|', 1));
        QCOMPARE(desk.Size(), size);
        QVERIFY(desk.Shows(paper));
        QVERIFY(desk.SizeIsEnabled(false));
        QCOMPARE(desk.Caption(), u"Custom Size..."_qs);
    }

    void OkTakesNoSizeForNearlyAPaper() {
        Desk desk;
        desk.ConfirmCustom(u"8.499"_qs, u"13"_qs);
        QVERIFY(desk.Shows(Paper::Custom));
    }

    void OkDoesNotLookAtTheMargins() {
        Desk desk;
        desk.InDialog("mnuPageSetup", [&] {
            desk.Type("txtRight", u"wide"_qs);
            desk.Type("txtBottom", u"-3"_qs);
            desk.Click("btnOk");
        });
        QCOMPARE(desk.Text("txtRight"), u"wide"_qs);
        QCOMPARE(desk.Text("txtBottom"), u"-3"_qs);
        QVERIFY(desk.Shows(Paper::Long));
        QVERIFY(desk.window.services.messageBox.shown.empty());
    }

    void CustomIsInTheMenuWhileTheDialogIsOpenAndGoesBackUnchanged() {
        Desk desk;
        desk.Choose("mnuShortSize");
        desk.InDialog("mnuCustomSize", [&] {
            QVERIFY(desk.Shows(Paper::Custom));
            desk.Click("btnOk");
        });
        QVERIFY(desk.Shows(Paper::Short));
    }

    void TheCustomCaptionOutlivesItsSize() {
        Desk desk;
        desk.ConfirmCustom(u"9"_qs, u"14"_qs);
        desk.Choose("mnuLongSize");
        QCOMPARE(desk.Caption(), u"Custom (9 x 14)..."_qs);
        QString size;
        desk.InDialog("mnuCustomSize", [&] {
            size = desk.Size();
            desk.Type("txtWidth", u"10"_qs);
            desk.Click("btnOk");
        });
        QCOMPARE(size, u"8.5|13"_qs);
        QCOMPARE(desk.Caption(), u"Custom (10 x 13)..."_qs);
    }

    void EscapeAndTheCloseBoxAreOk_data() {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("Escape") << true;
        QTest::newRow("close box") << false;
    }
    void EscapeAndTheCloseBoxAreOk() {
        QFETCH(bool, byKey);
        Desk desk;
        desk.InDialog("mnuCustomSize", [&] {
            desk.Type("txtWidth", u"9"_qs);
            if (byKey)
                QTest::keyClick(desk.Dialog(), Qt::Key_Escape);
            else
                desk.Dialog()->close();
            QVERIFY(!desk.Dialog()->isVisible());
        });
        QCOMPARE(desk.Caption(), u"Custom (9 x 13.0)..."_qs);
        QCOMPARE(desk.Size(), u"9|13.0"_qs);
    }

    void LoadedAgainItStartsAtLongAndLeavesTheMenu() {
        Desk desk;
        desk.ConfirmCustom(u"9"_qs, u"14"_qs);
        desk.Type("txtTop", u"2"_qs);
        desk.window->Windows().Unload(u"frmPageSetup"_qs);
        QCOMPARE(desk.Size(), u"8.5|13.0"_qs);
        QCOMPARE(desk.Text("txtTop"), u"1.0"_qs);
        QCOMPARE(desk.SelectedOptions(), QStringList{u"optLong"_qs});
        QCOMPARE(desk.CheckedEntries(), QStringList{u"mnuCustomSize"_qs});
        QCOMPARE(desk.Caption(), u"Custom (9 x 14)..."_qs);
        QVERIFY(desk.SizeIsEnabled(false));
    }

    void NoPaneChangesWithThePaper() {
        Desk desk;
        QVERIFY(desk.window.Show());
        const auto seen = [&desk] {
            QVariantList all;
            for (const auto* pane : {desk.window->txtContent(), desk.window->txtMyContent()})
                all << pane->geometry() << pane->TextRTF() << pane->document()->size();
            return all;
        };
        const QVariantList before = seen();
        desk.Choose("mnuA4Size");
        desk.ConfirmCustom(u"3"_qs, u"4"_qs);
        desk.Type("txtLeft", u"2"_qs);
        QCOMPARE(seen(), before);
        QVERIFY(desk.window->State().DocumentSaved);
    }

    void AtTheExitItIsUnloaded() {
        Desk desk;
        QVERIFY(desk.window.Show());
        QVERIFY(desk.window->close());
        QVERIFY(!desk.window->Windows().IsLoaded(u"frmPageSetup"_qs));
    }
};

QTEST_MAIN(PageSetupTest)
#include "page_setup_test.moc"
