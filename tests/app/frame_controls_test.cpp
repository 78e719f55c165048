// The toolbar at the left, the status bar, the links and the timers.
#include "accessory/author.h"
#include "app/left_toolbar.h"
#include "app/menu_tree.h"
#include "platform/controls/geometry.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/my_button.h"
#include "platform/controls/status_bar.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QDesktopServices>
#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class FrameControlsTest : public QObject {
    Q_OBJECT

    QList<QUrl> m_opened;

public Q_SLOTS:
    void Keep(const QUrl& url) { m_opened.append(url); }

private Q_SLOTS:
    void TheToolbarHasItsButtonsFromTopToBottom() {
        TestWindow window;
        const LeftToolbar& bar = *window->leftToolbar;
        int top = -1;
        for (const platform::MyButton* button :
             {bar.btnSave, bar.AddVerification, bar.cmdAddJurat, bar.btnSpellCheck, bar.btnEditMSWord,
              bar.btnPrint, bar.btnHelp}) {
            QVERIFY(button->y() > top);
            top = button->y();
            QVERIFY(!button->toolTip().isEmpty());
            QVERIFY(!button->icon().isNull());
        }
    }

    void TheDropDownPartOfSaveAndPrintShowsItsMenu_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("menu");
        QTest::newRow("save") << u"btnSave"_qs << u"mnuDropSave"_qs;
        QTest::newRow("print") << u"btnPrint"_qs << u"mnuDropPrint"_qs;
    }
    void TheDropDownPartOfSaveAndPrintShowsItsMenu() {
        QFETCH(QString, button);
        QFETCH(QString, menu);
        TestWindow window;
        QVERIFY(window.Show());
        auto* control = window->findChild<platform::MyButton*>(button);
        QSignalSpy clicks(control, &platform::MyButton::Click);
        QTest::mouseClick(control, Qt::LeftButton, Qt::NoModifier,
                          {control->width() - 4, control->height() / 2});
        QMenu* popUp = window->menuTree->Menu(menu);
        QTRY_VERIFY(popUp->isVisible());
        QCOMPARE(popUp->pos(), control->mapToGlobal(QPoint(4, control->height() + 4))); // 60 twips each
        QCOMPARE(clicks.size(), 0);
        popUp->close();
    }

    void TheRightButtonInAPaneShowsThePopUpAndLeavesTheCaret() {
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab::EditForm);
        window->txtContent()->setText(u"some text to point at"_qs);
        window->txtContent()->setSelStart(4);
        QTest::mouseClick(window->txtContent()->viewport(), Qt::RightButton, Qt::NoModifier, {120, 40});
        QMenu* popUp = window->menuTree->Menu(u"mnuPopUp"_qs);
        QTRY_VERIFY(popUp->isVisible());
        QCOMPARE(window->txtContent()->SelStart(), 4);
        popUp->close();
    }

    void TheStatusBarHasThreeFixedPanels() {
        TestWindow window;
        QVERIFY(window->StatusBar1->Panel(3));
        QVERIFY(!window->StatusBar1->Panel(4));
        QVERIFY(!window->StatusBar1->Panel(1)->text().isEmpty());
        QVERIFY(window->StatusBar1->Panel(2)->text().startsWith(u' '));
        QVERIFY(window->StatusBar1->Panel(2)->text().endsWith(u' '));
        QCOMPARE(window->StatusBar1->Panel(3)->text(), u" About Atty. Merrow... "_qs);
    }

    void TheSecondPanelOpensAMessageToItsAddress() {
        QDesktopServices::setUrlHandler(u"mailto"_qs, this, "Keep");
        TestWindow window;
        QVERIFY(window.Show());
        QTest::mouseClick(window->StatusBar1->Panel(2), Qt::LeftButton);
        QDesktopServices::unsetUrlHandler(u"mailto"_qs);
        QCOMPARE(m_opened.size(), 1);
        QCOMPARE(m_opened[0].toString(), u"mailto:"_qs + window->StatusBar1->Panel(2)->text().trimmed());
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TheLinksOfTheFirstPageOpenTheirTargets_data() {
        QTest::addColumn<QUrl>("target");
        QTest::newRow("httpAttyMerrow") << QUrl(QLatin1String(author::kWebsite));
        QTest::newRow("httpFacebook") << QUrl(QLatin1String(author::kCommunity));
    }
    void TheLinksOfTheFirstPageOpenTheirTargets() {
        QFETCH(QUrl, target);
        m_opened.clear();
        QDesktopServices::setUrlHandler(u"https"_qs, this, "Keep");
        TestWindow window;
        QVERIFY(window.Show());
        auto* link = window->findChild<platform::HyperLabel*>(QLatin1String(QTest::currentDataTag()));
        QVERIFY(link);
        QTest::mouseClick(link, Qt::LeftButton);
        QDesktopServices::unsetUrlHandler(u"https"_qs);
        QCOMPARE(m_opened, QList<QUrl>{target});
    }

    void WithoutAMailProgramTheSecondPanelSaysNothing() {
        TestWindow window;
        QVERIFY(window.Show());
        const QTemporaryDir nothing;
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", nothing.path().toLocal8Bit());
        QTest::mouseClick(window->StatusBar1->Panel(2), Qt::LeftButton);
        qputenv("PATH", path);
        QVERIFY(window.services.messageBox.shown.empty());
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(window->windowTitle(), window->Variables().PageTitle);
    }

    void TheOtherPanelsLeadToTheirMenuEntries() {
        TestWindow window;
        QVERIFY(window.Show());
        QSignalSpy contact(window->Menu(u"mnuContact"_qs), &QAction::triggered);
        QSignalSpy about(window->Menu(u"mnuAbout"_qs), &QAction::triggered);
        const auto closeWhatComes = [] {
            QTimer::singleShot(0, qApp, [] {
                if (QWidget* modal = QApplication::activeModalWidget())
                    modal->close();
            });
        };
        closeWhatComes();
        QTest::mouseClick(window->StatusBar1->Panel(1), Qt::LeftButton);
        QCOMPARE(contact.size(), 1);
        closeWhatComes();
        QTest::mouseClick(window->StatusBar1->Panel(3), Qt::LeftButton);
        QCOMPARE(about.size(), 1);
    }

    void TheTimersHaveTheirIntervalsAndStandStill() {
        TestWindow window;
        const QList<std::pair<QString, int>> timers{
            {u"Timer1"_qs, 300}, {u"Timer2"_qs, 5000}, {u"Timer4"_qs, 3000}};
        for (const auto& [name, interval] : timers) {
            const auto* timer = window->findChild<QTimer*>(name);
            QVERIFY2(timer, qPrintable(name));
            QCOMPARE(timer->interval(), interval);
            QVERIFY(!timer->isActive());
        }
    }
};

QTEST_MAIN(FrameControlsTest)
#include "frame_controls_test.moc"
