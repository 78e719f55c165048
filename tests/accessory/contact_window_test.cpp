#include "accessory/author.h"
#include "accessory/contact_window.h"
#include "accessory/title_pulse.h"
#include "appearance/look.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/my_button.h"

#include <QDesktopServices>
#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class ContactWindowTest : public QObject {
    Q_OBJECT

    QList<QUrl> m_opened;

    static QColor TitleColor(const frmContact& card) {
        return card.lblTitle->palette().color(QPalette::WindowText);
    }
    static void Tick(const frmContact& card) { Q_EMIT card.Timer1->timeout({}); }

public Q_SLOTS:
    void Keep(const QUrl& url) { m_opened.append(url); }

private Q_SLOTS:
    void initTestCase() { ApplyLook(*qApp); }

    void TheCardHasItsCaptionAndLabels_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("text"); // empty: data, any will do
        QTest::newRow("Label1") << u"Label1"_qs << u"Contact Info:"_qs;
        QTest::newRow("Label4") << u"Label4"_qs << u"E-mail:"_qs;
        QTest::newRow("Label8") << u"Label8"_qs << u"Website:"_qs;
        QTest::newRow("Label11") << u"Label11"_qs << u"Facebook:"_qs;
        for (const char* name : {"Label2", "Label5", "Label6", "Label7", "Label9", "Label10"})
            QTest::newRow(name) << QString::fromLatin1(name) << QString();
    }
    void TheCardHasItsCaptionAndLabels() {
        QFETCH(QString, name);
        QFETCH(QString, text);
        TitlePulse pulse;
        const frmContact card(pulse);
        QCOMPARE(card.windowTitle(), u"Contact Atty. Merrow"_qs);
        const auto* label = card.findChild<QLabel*>(name);
        QVERIFY(label);
        QVERIFY(!label->text().isEmpty());
        if (!text.isEmpty())
            QCOMPARE(label->text(), text);
    }

    void TheTitleIsTheNameBehindItsTitleOfHonour() {
        TitlePulse pulse;
        const frmContact card(pulse);
        QCOMPARE(card.lblTitle->text(), u"Atty. "_qs + author::Name());
        QVERIFY(author::Name().endsWith(u" Merrow"_qs));
    }

    void TheNameStandsNowhereInOnePiece_data() {
        QTest::addColumn<QString>("file");
        QTest::newRow("source") << QStringLiteral(QUILLBROOK_SOURCE_DIR "/src/accessory/author.h");
        QTest::newRow("program") << QStringLiteral(QUILLBROOK_BINARY_DIR "/quillbrook");
    }
    void TheNameStandsNowhereInOnePiece() {
        QFETCH(QString, file);
        QFile bytes(file);
        if (!bytes.open(QIODevice::ReadOnly))
            QSKIP("not built");
        const QByteArray all = bytes.readAll();
        QVERIFY(!all.contains(author::Name().toLatin1()));
        const QString name = author::Name();
        QVERIFY(!all.contains(QByteArray(reinterpret_cast<const char*>(name.utf16()), name.size() * 2)));
    }

    void TheLinksCarryTheirTargets_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QUrl>("target");
        QTest::newRow("mail") << u"HyperLabel1"_qs
                              << QUrl(u"mailto:"_qs + QLatin1String(author::kMailAddress));
        QTest::newRow("website") << u"HyperLabel2"_qs << QUrl(QLatin1String(author::kWebsite));
        QTest::newRow("social site") << u"HyperLabel3"_qs << QUrl(QLatin1String(author::kCommunity));
    }
    void TheLinksCarryTheirTargets() {
        QFETCH(QString, name);
        QFETCH(QUrl, target);
        m_opened.clear();
        QDesktopServices::setUrlHandler(target.scheme(), this, "Keep");
        TitlePulse pulse;
        frmContact card(pulse);
        card.show();
        auto* link = card.findChild<platform::HyperLabel*>(name);
        QVERIFY(link);
        QCOMPARE(link->Target(), target);
        QTest::mouseClick(link, Qt::LeftButton);
        QDesktopServices::unsetUrlHandler(target.scheme());
        QCOMPARE(m_opened, QList<QUrl>{target});
        QVERIFY(card.isVisible());
    }

    void TheTitlePulsesEveryFiftyMilliseconds() {
        TitlePulse pulse;
        const frmContact card(pulse);
        QVERIFY(card.Timer1->isActive());
        QCOMPARE(card.Timer1->interval(), 50);
        const QColor first = TitleColor(card);
        QTRY_VERIFY(TitleColor(card) != first);
    }

    void TheTitleGlowsFromRedToNearlyBlackAndBack() {
        TitlePulse pulse;
        const frmContact card(pulse);
        card.Timer1->stop();
        QList<int> reds;
        for (int tick = 0; tick < 52; ++tick) {
            Tick(card);
            reds.append(TitleColor(card).red());
            QCOMPARE(TitleColor(card).green(), 3);
            QCOMPARE(TitleColor(card).blue(), 12);
        }
        QCOMPARE(reds.first(), 246);
        QCOMPARE(*std::min_element(reds.begin(), reds.end()), 4);
        QVERIFY(reds.contains(6));
        QCOMPARE(reds[50], 254);
        QCOMPARE(reds[51], 255);
        Tick(card);
        QCOMPARE(TitleColor(card).red(), 246);
    }

    void TheTitleIsDrawnInItsColor() {
        TitlePulse pulse;
        const frmContact card(pulse);
        card.Timer1->stop();
        Tick(card);
        const QImage shown = card.lblTitle->grab().toImage();
        int drawn = 0;
        for (int x = 0; x < shown.width(); ++x)
            for (int y = 0; y < shown.height(); ++y)
                drawn += shown.pixelColor(x, y) == QColor(246, 3, 12) ? 1 : 0;
        QVERIFY2(drawn > 20, qPrintable(QString::number(drawn)));
    }

    void ASecondCardGoesOnWhereTheFirstStopped() {
        TitlePulse pulse;
        {
            const frmContact card(pulse);
            card.Timer1->stop();
            for (int tick = 0; tick < 10; ++tick)
                Tick(card);
            QCOMPARE(TitleColor(card).red(), 156);
        }
        const frmContact card(pulse);
        card.Timer1->stop();
        Tick(card);
        QCOMPARE(TitleColor(card).red(), 146);
    }

    void OkEnterAndEscapeCloseTheCard_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("button") << 0;
        QTest::newRow("Enter") << int(Qt::Key_Return);
        QTest::newRow("Escape") << int(Qt::Key_Escape);
    }
    void OkEnterAndEscapeCloseTheCard() {
        QFETCH(int, key);
        TitlePulse pulse;
        frmContact card(pulse);
        QCOMPARE(card.cmdOK->Caption(), u"OK"_qs);
        card.show();
        if (key == 0)
            QTest::mouseClick(card.cmdOK, Qt::LeftButton);
        else
            QTest::keyClick(&card, Qt::Key(key));
        QVERIFY(!card.isVisible());
    }

    void TheCardStandsInTheMiddleOfTheScreen() {
        TitlePulse pulse;
        frmContact card(pulse);
        const QSize screen = QGuiApplication::primaryScreen()->size();
        QCOMPARE(card.pos(),
                 QPoint(screen.width() / 2 - card.width() / 2, screen.height() / 2 - card.height() / 2));
        const QSize size = card.size();
        card.show();
        QCOMPARE(card.size(), size);
    }
};

QTEST_MAIN(ContactWindowTest)
#include "contact_window_test.moc"
