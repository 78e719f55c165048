#include "appearance/flat_region.h"

#include <QtTest>

using namespace quillbrook;

class FlatRegionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void KeepsTheWholeButtonOrItsInnerPart_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QSize>("size"); // twips
        QTest::addColumn<double>("twipsPerPixel");
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<QPoint>("to");
        const QSize button(75 * 15, 25 * 15);
        QTest::newRow("whole") << 0 << button << 15.0 << QPoint(0, 0) << QPoint(75, 25);
        QTest::newRow("any other mode is whole") << 2 << button << 15.0 << QPoint(0, 0) << QPoint(75, 25);
        QTest::newRow("inner; a half goes to the even pixel")
            << 1 << button << 15.0 << QPoint(2, 2) << QPoint(74, 24);
        QTest::newRow("inner, even size; a half goes up")
            << 1 << QSize(76 * 15, 24 * 15) << 15.0 << QPoint(2, 2) << QPoint(76, 24);
        QTest::newRow("whole, half a pixel") << 0 << QSize(20, 30) << 20.0 << QPoint(0, 0) << QPoint(1, 2);
        QTest::newRow("whole, to the nearest") << 0 << QSize(22, 23) << 15.0 << QPoint(0, 0) << QPoint(1, 2);
        QTest::newRow("a finer screen") << 1 << QSize(1200, 300) << 12.0 << QPoint(2, 2) << QPoint(100, 24);
    }
    void KeepsTheWholeButtonOrItsInnerPart() {
        QFETCH(int, mode);
        QFETCH(QSize, size);
        QFETCH(double, twipsPerPixel);
        QFETCH(QPoint, from);
        QFETCH(QPoint, to);
        const QRect region = FlatCmdRegion(mode, size.width(), size.height(), {twipsPerPixel, twipsPerPixel});
        QCOMPARE(region.topLeft(), from);
        QCOMPARE(region.topLeft() + QPoint(region.width(), region.height()), to);
    }
};

QTEST_GUILESS_MAIN(FlatRegionTest)
#include "flat_region_test.moc"
