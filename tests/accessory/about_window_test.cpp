#include "accessory/about_window.h"
#include "accessory/credits_scroll.h"
#include "accessory/splash_picture.h"
#include "appearance/look.h"
#include "platform/controls/hyper_label.h"
#include "platform/tick.h"

#include <QDesktopServices>
#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class AboutWindowTest : public QObject {
    Q_OBJECT

    QList<QUrl> m_opened;

    static QWidget* Control(frmAbout& about, const QString& name) {
        return name == about.picCredits1->objectName() ? about.picCredits1 : about.findChild<QWidget*>(name);
    }
    // Brings a control of the sheet into the viewport, at rest or moving.
    static void Reveal(frmAbout& about, QWidget* control) {
        if (control != about.picCredits1 && control != about.picCredits2)
            about.picCredits2->move(about.picCredits2->x(), 60 - control->y());
    }

public Q_SLOTS:
    void Keep(const QUrl& url) { m_opened.append(url); }

private Q_SLOTS:
    void initTestCase() { ApplyLook(*qApp); }

    void TheViewportFillsTheWindowAndTheSheetIsCentredInIt() {
        frmAbout about;
        QCOMPARE(about.windowTitle(), u" Click to pause the display!"_qs);
        QCOMPARE(about.picCredits1->geometry(), about.rect());
        QCOMPARE(about.picCredits2->parentWidget(), about.picCredits1);
        QCOMPARE(about.picCredits2->x(), (about.picCredits1->width() - about.picCredits2->width()) / 2);
        QCOMPARE(about.picCredits2->y(), 4); // 60 twips
        QVERIFY(about.tmrCredits->isActive());
        QVERIFY(about.picCredits1->isVisibleTo(&about));
        const QSize screen = QGuiApplication::primaryScreen()->size();
        QCOMPARE(about.pos(),
                 QPoint(screen.width() / 2 - about.width() / 2, screen.height() / 2 - about.height() / 2));
    }

    void EverythingLiesOnTheSheet_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"Image1", "Label1", "lblWebsite", "lblCopyright", "Label8", "lblSelfTaught"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void EverythingLiesOnTheSheet() {
        QFETCH(QString, name);
        frmAbout about;
        about.show();
        QWidget* control = Control(about, name);
        QVERIFY(control);
        QCOMPARE(control->parentWidget(), about.picCredits2);
        QVERIFY(about.picCredits2->rect().contains(control->geometry()));
        if (auto* label = qobject_cast<QLabel*>(control))
            QVERIFY(!label->text().isEmpty() && label->height() >= label->heightForWidth(label->width()));
    }

    void TheTextsHaveTheirColors_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QColor>("color");
        QTest::newRow("heading") << u"Label1"_qs << QColor(255, 255, 255);
        QTest::newRow("biography") << u"Label8"_qs << QColor(255, 255, 255);
        QTest::newRow("line about him") << u"lblSelfTaught"_qs << QColor(255, 255, 255);
        QTest::newRow("notice") << u"lblCopyright"_qs << QColor(255, 255, 0);
    }
    void TheTextsHaveTheirColors() {
        QFETCH(QString, name);
        QFETCH(QColor, color);
        frmAbout about;
        auto* label = qobject_cast<QLabel*>(Control(about, name));
        QVERIFY(label);
        QCOMPARE(label->palette().color(QPalette::WindowText), color);
        about.tmrCredits->stop();
        Reveal(about, label);
        const QImage shown = label->grab().toImage();
        bool drawn = false;
        for (int x = 0; x < shown.width(); ++x)
            for (int y = 0; y < shown.height(); ++y)
                drawn = drawn || shown.pixelColor(x, y) == color;
        QVERIFY(drawn);
    }

    void TheHeadingHasItsText() {
        frmAbout about;
        QCOMPARE(about.Label1->text(), u"For Technical Assistance:"_qs);
    }

    void TheSheetClimbsAPixelATick() {
        frmAbout about;
        QCOMPARE(about.tmrCredits->interval(), platform::TickOf(1));
        QVERIFY(about.tmrCredits->interval() <= 16); // a frame of the screen
        about.show();
        QTRY_VERIFY(about.picCredits2->y() < 0);
        about.tmrCredits->stop();
        const int top = about.picCredits2->y();
        Q_EMIT about.tmrCredits->timeout({});
        QCOMPARE(about.picCredits2->y(), top - 1);
    }

    void GoneAtTheTopItComesInAtTheBottom() {
        frmAbout about;
        about.tmrCredits->stop();
        const int height = about.picCredits2->height();
        about.picCredits2->move(about.picCredits2->x(), -height + 2);
        Q_EMIT about.tmrCredits->timeout({});
        QCOMPARE(about.picCredits2->y(), -height + 1);
        Q_EMIT about.tmrCredits->timeout({});
        QCOMPARE(about.picCredits2->y(), about.picCredits1->height());
        Q_EMIT about.tmrCredits->timeout({});
        QCOMPARE(about.picCredits2->y(), about.picCredits1->height() - 1);
    }

    void AClickStopsTheSheetAndASecondSetsItGoing_data() {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        const QStringList names{u"picCredits1"_qs,  u"picCredits2"_qs, u"Label1"_qs,
                                u"lblCopyright"_qs, u"Label8"_qs,      u"Image1"_qs};
        for (int i = 0; i < names.size(); ++i)
            QTest::newRow(qPrintable(names[i])) << names[i] << names[(i + 1) % names.size()];
    }
    void AClickStopsTheSheetAndASecondSetsItGoing() {
        QFETCH(QString, first);
        QFETCH(QString, second);
        frmAbout about;
        about.show();
        Reveal(about, Control(about, first));
        QTest::mouseClick(Control(about, first), Qt::LeftButton, Qt::NoModifier, {1, 1});
        QVERIFY(!about.tmrCredits->isActive());
        const int top = about.picCredits2->y();
        QTest::qWait(60);
        QCOMPARE(about.picCredits2->y(), top);
        QTest::mouseClick(Control(about, second), Qt::LeftButton, Qt::NoModifier, {1, 1});
        QVERIFY(about.tmrCredits->isActive());
        QCOMPARE(about.picCredits2->y(), top);
        QTRY_VERIFY(about.picCredits2->y() < top);
    }

    void AClickOnTheLineAboutHimDoesNothing() {
        frmAbout about;
        about.show();
        Reveal(about, about.lblSelfTaught);
        QTest::mouseClick(about.lblSelfTaught, Qt::LeftButton);
        QVERIFY(about.tmrCredits->isActive());
    }

    void WhatIsNoClickDoesNothing() {
        frmAbout about;
        about.show();
        QTest::mouseClick(about.Image1, Qt::RightButton);
        QVERIFY(about.tmrCredits->isActive());
        QTest::mousePress(about.Image1, Qt::LeftButton); // let go beside it
        QTest::mouseRelease(about.Image1, Qt::LeftButton, Qt::NoModifier, {-5, -5});
        QVERIFY(about.tmrCredits->isActive());
    }

    void ADoubleClickIsOneClick() {
        frmAbout about;
        about.show();
        const QPointF place(5, 5);
        const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
            QMouseEvent event(type, place, about.Image1->mapToGlobal(place), Qt::LeftButton, buttons,
                              Qt::NoModifier);
            QApplication::sendEvent(about.Image1, &event);
        };
        send(QEvent::MouseButtonPress, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, Qt::NoButton);
        QVERIFY(!about.tmrCredits->isActive());
        send(QEvent::MouseButtonDblClick, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, Qt::NoButton);
        QVERIFY(!about.tmrCredits->isActive());
    }

    void TheLinkOpensTheWebsiteAndStopsNothing() {
        QDesktopServices::setUrlHandler(u"https"_qs, this, "Keep");
        frmAbout about;
        about.show();
        Reveal(about, about.lblWebsite);
        QTest::mouseClick(about.lblWebsite, Qt::LeftButton);
        QDesktopServices::unsetUrlHandler(u"https"_qs);
        QCOMPARE(m_opened, QList<QUrl>{about.lblWebsite->Target()});
        QVERIFY(about.tmrCredits->isActive());
    }

    void EscapeClosesIt() {
        frmAbout about;
        about.show();
        QTest::keyClick(&about, Qt::Key_Escape);
        QVERIFY(!about.isVisible());
    }
};

QTEST_MAIN(AboutWindowTest)
#include "about_window_test.moc"
