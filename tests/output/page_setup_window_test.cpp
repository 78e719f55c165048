// How the page setup dialog is loaded and what it is made of.
#include "output/page_setup.h"
#include "output/paper_commands.h"
#include "platform/controls/frame.h"
#include "platform/controls/hyper_label.h"
#include "tests/output/page_setup_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using Desk = PageSetupDesk;

class PageSetupWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItIsLoadedHiddenAtTheEndOfTheStart() {
        Desk desk;
        QVERIFY(desk.window->Windows().IsLoaded(u"frmPageSetup"_qs));
        QVERIFY(!desk.Dialog()->isVisible());
    }

    void WithoutFormsItIsLoadedAtItsFirstUse() {
        TestWindow window{std::vector<TestForm>{}};
        QVERIFY(!window->Windows().IsLoaded(u"frmPageSetup"_qs));
        QCOMPARE(window->paperCommands->Model().Text(PageBox::Height), u"13.0"_qs);
        QVERIFY(window->Windows().IsLoaded(u"frmPageSetup"_qs));
    }

    void ItStandsInTheMiddleOfTheScreen() {
        Desk desk;
        const QRect screen = QGuiApplication::primaryScreen()->geometry();
        const QRect dialog = desk.Dialog()->geometry();
        QVERIFY((screen.center() - dialog.center()).manhattanLength() <= 2);
    }

    void TheBoxesStartWithTheirTexts_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("txtWidth") << u"8.5"_qs;
        QTest::newRow("txtHeight") << u"13.0"_qs;
        for (const char* box : {"txtLeft", "txtRight", "txtTop", "txtBottom"})
            QTest::newRow(box) << u"1.0"_qs;
    }
    void TheBoxesStartWithTheirTexts() {
        QFETCH(QString, text);
        Desk desk;
        QCOMPARE(desk.Text(QTest::currentDataTag()), text);
    }

    void LongIsThePaperOfEachStart() {
        {
            Desk before;
            before.Choose("mnuA4Size");
            before.Type("txtTop", u"2"_qs);
            before.window->close();
        }
        Desk desk; // nothing of it was kept
        QCOMPARE(desk.Size(), u"8.5|13.0"_qs);
        QCOMPARE(desk.Text("txtTop"), u"1.0"_qs);
        QVERIFY(desk.Shows(Paper::Long));
        QVERIFY(desk.SizeIsEnabled(false));
        QVERIFY(desk.MarginsAreEnabled());
        QCOMPARE(desk.Caption(), u"Custom Size..."_qs);
    }

    void FramesLabelsAndOptionsHaveTheirCaptions() {
        Desk desk;
        QStringList captions;
        for (const auto* frame : desk.Dialog()->findChildren<platform::Frame*>())
            captions += frame->Caption();
        QCOMPARE(captions, (QStringList{u"Paper Size (in inches)"_qs, u"Margins (in inches)"_qs}));
        for (const PaperSize& size : kPaperSizes) {
            QCOMPARE(desk.Find<QRadioButton>(size.option)->text(), QLatin1String(size.optionCaption));
            QCOMPARE(desk.Find<platform::HyperLabel>(size.label)->text(), QLatin1String(size.optionCaption));
        }
        QStringList labels;
        for (const auto* label : desk.Dialog()->findChildren<QLabel*>())
            labels += label->text();
        QCOMPARE(labels, (QStringList{u"Width:"_qs, u"Height:"_qs, u"Left:"_qs, u"Right:"_qs, u"Top:"_qs,
                                      u"Bottom:"_qs}));
    }

    void EachFrameHoldsItsControls_data() {
        QTest::addColumn<QString>("controls");
        QTest::newRow("Paper Size (in inches)") << u"optLong optShort optA4 optCustom HyperLong HyperShort "
                                                   u"HyperA4 HyperCustom Width: txtWidth vsWUp "
                                                   "vsWDown Height: txtHeight vsHUp vsHDown"_qs;
        QTest::newRow("Margins (in inches)")
            << u"Left: txtLeft vsLUp vsLDown Right: txtRight vsRUp vsRDown Top: txtTop vsTUp vsTDown Bottom: "
               "txtBottom vsBUp vsBDown"_qs;
    }
    void EachFrameHoldsItsControls() {
        QFETCH(QString, controls);
        Desk desk;
        QStringList found;
        for (const auto* frame : desk.Dialog()->findChildren<platform::Frame*>()) {
            if (frame->Caption() != QLatin1String(QTest::currentDataTag()))
                continue;
            for (const QWidget* control : frame->findChildren<QWidget*>()) {
                const auto* label = qobject_cast<const QLabel*>(control);
                found += label ? label->text() : control->objectName();
            }
        }
        found.removeAll(QString()); // what only holds others
        QStringList wanted = controls.split(u' ');
        wanted.sort();
        found.sort();
        QCOMPARE(found, wanted);
    }

    void OneButtonClosesIt() {
        Desk desk;
        QCOMPARE(desk.Dialog()->findChildren<QPushButton*>().size(), 1);
        QVERIFY(desk.Find<QPushButton>("btnOk")->isDefault());
    }

    void EveryControlHasANameForAScreenReader() {
        Desk desk;
        desk.Dialog()->show();
        for (const QWidget* control : desk.Dialog()->findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus && !qobject_cast<const QAbstractButton*>(control))
                continue;
            QAccessibleInterface* told = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control));
            QVERIFY2(!told->text(QAccessible::Name).isEmpty(), qPrintable(control->objectName()));
        }
    }

    void TheFirstUsefulControlHasTheFocus_data() {
        QTest::addColumn<QString>("control");
        QTest::newRow("mnuPageSetup") << u"optShort"_qs;
        QTest::newRow("mnuCustomSize") << u"txtWidth"_qs;
    }
    void TheFirstUsefulControlHasTheFocus() {
        QFETCH(QString, control);
        Desk desk;
        QVERIFY(desk.window.Show());
        desk.Choose("mnuShortSize");
        QString focused;
        desk.InDialog(QTest::currentDataTag(), [&] {
            const QWidget* widget = QApplication::focusWidget();
            focused = widget ? widget->objectName() : QString();
        });
        QCOMPARE(focused, control);
    }
};

QTEST_MAIN(PageSetupWindowTest)
#include "page_setup_window_test.moc"
