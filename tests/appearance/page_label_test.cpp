// Labels with a ground of their own, in the look of the program.
#include "platform/controls/page_label.h"

#include "appearance/look.h"

#include <QtTest>
#include <QtWidgets>

using platform::PageLabel;

class PageLabelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { quillbrook::ApplyLook(*qApp); }

    void TheGroundIsAsWideAsTheTextWithItsInset() {
        PageLabel label(QStringLiteral("Display Hits"));
        label.resize(300, 20);
        const int text = label.fontMetrics().size(Qt::TextSingleLine, label.text()).width();
        QCOMPARE(label.Ground(), QRect(0, 0, text + 22, 20));
        label.setAlignment(Qt::AlignCenter);
        QCOMPARE(label.Ground(), QRect((300 - text - 22) / 2, 0, text + 22, 20));
        label.setGroundWidth(250);
        QCOMPARE(label.Ground().width(), 250);
        label.setGroundWidth(350);
        QCOMPARE(label.Ground().width(), 300);
        label.clear();
        QVERIFY(label.Ground().isEmpty());
    }

    void AnotherTextPaintsTheWholeGround() {
        PageLabel label(QStringLiteral("DEED"));
        label.resize(300, 20);
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        QCoreApplication::processEvents();

        class Painted final : public QObject {
        public:
            QRegion region;
            bool eventFilter(QObject*, QEvent* event) override {
                if (event->type() == QEvent::Paint)
                    region += static_cast<QPaintEvent*>(event)->region();
                return false;
            }
        } painted;
        label.installEventFilter(&painted);
        label.setText(QStringLiteral("DEED + SALE"));
        QTRY_VERIFY(!painted.region.isEmpty());
        QCOMPARE(painted.region.boundingRect(), label.rect());
    }
};

QTEST_MAIN(PageLabelTest)
#include "page_label_test.moc"
