// From the start to a form on the screen, by mouse and by keyboard.
#include "library/category_browser.h"
#include "library/history_page.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/controls/ss_tab.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class ThreeClicksTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ThreeClicksBringAFormIntoTheReadingPane() {
        TestWindow window;
        QVERIFY(window.Show());
        CategoryBrowser& browser = *window->categoryBrowser;
        QTest::mouseClick(browser.CategoryButton(u"btnAffidavits"_qs), Qt::LeftButton);
        TestWindow::ClickEntry(browser.lstSubCategory, 0);
        TestWindow::ClickEntry(browser.lstTitle, 0);
        QCOMPARE(TestWindow::TextOf(window->txtContent()), u"I lost it"_qs);
        QVERIFY(window->txtContent()->isVisible());
        QVERIFY(window->txtContent()->hasFocus());
    }

    void TheKeyboardAloneGoesTheSameWay() {
        TestWindow window;
        QVERIFY(window.Show());
        CategoryBrowser& browser = *window->categoryBrowser;
        browser.CategoryButton(u"btnAffidavits"_qs)->setFocus();
        QTest::keyClick(browser.CategoryButton(u"btnAffidavits"_qs), Qt::Key_Space);
        browser.lstTitle->setFocus();
        QTest::keyClick(browser.lstTitle, Qt::Key_Down);
        QCOMPARE(TestWindow::TextOf(window->txtContent()), u"I lost it"_qs);
    }

    void AClickIntoTheFormGoesToTheEditPage() {
        TestWindow window;
        QVERIFY(window.Show());
        TestWindow::ClickEntry(window->categoryBrowser->lstTitle, 0);
        QTest::mouseClick(window->txtContent()->viewport(), Qt::LeftButton, Qt::NoModifier, {60, 40});
        QCOMPARE(window->CurrentTab(), Tab::EditForm);
        QCOMPARE(TestWindow::TextOf(window->txtContent()), u"BEFORE ME"_qs);
    }

    void ClosingAfterReadingOnlyAsksNothing() {
        TestWindow window;
        QVERIFY(window.Show());
        TestWindow::ClickEntry(window->categoryBrowser->lstTitle, 0);
        QVERIFY(window->close());
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void ClosingAfterAKeyInThePaneAsksAndNoKeepsEverything() {
        TestWindow window;
        QVERIFY(window.Show());
        TestWindow::ClickEntry(window->categoryBrowser->lstTitle, 0);
        QTest::keyClicks(window->txtContent(), u"x"_qs);
        QVERIFY(!window->close());
        const auto& shown = window.services.messageBox.shown;
        QCOMPARE(shown.size(), size_t(1));
        QCOMPARE(shown[0].text, u"Are you sure you want to exit Quillbrook PRO?   "_qs);
        QCOMPARE(shown[0].title, u"Confirm Exit!"_qs);
        QCOMPARE(shown[0].icon, platform::MessageIcon::Question);
        QVERIFY(window->isVisible());
        QCOMPARE(TestWindow::TextOf(window->txtContent()), u"xBEFORE ME"_qs);
        window.services.messageBox.answer = platform::MessageAnswer::Yes;
        QVERIFY(window->close());
    }
};

QTEST_MAIN(ThreeClicksTest)
#include "three_clicks_test.moc"
