#include "search/result_layout.h"

#include <QtTest>

using namespace quillbrook;

class ResultLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheCountOfTitlesPicksTheLayout_data() {
        QTest::addColumn<int>("titles");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("frameHeight");
        QTest::addColumn<int>("listHeight"); // 0: the list is hidden and stays as it was
        QTest::addColumn<int>("paneTop");
        QTest::newRow("0") << 0 << "No Forms Found!!" << 435 << 0 << 2550;
        QTest::newRow("1") << 1 << "1 Form Found!" << 1035 << 540 << 3120;
        QTest::newRow("2") << 2 << "2 Forms Found!" << 1035 << 540 << 3120;
        QTest::newRow("3") << 3 << "3 Forms Found!" << 1275 << 780 << 3420;
        QTest::newRow("4") << 4 << "4 Forms Found!" << 1515 << 1020 << 3660;
        QTest::newRow("5") << 5 << "5 Forms Found!" << 1755 << 1260 << 3900;
        QTest::newRow("6") << 6 << "6 Forms Found!" << 1755 << 1260 << 3900;
        QTest::newRow("1234") << 1234 << "1234 Forms Found!" << 1755 << 1260 << 3900;
    }
    void TheCountOfTitlesPicksTheLayout() {
        QFETCH(int, titles);
        const ResultLayout& layout = LayoutOf(titles);
        QTEST(ResultCaption(titles), "caption");
        QTEST(layout.frameHeight, "frameHeight");
        QTEST(layout.listHeight.value_or(0), "listHeight");
        QTEST(layout.paneTop, "paneTop");
        QCOMPARE(layout.listShown, layout.listHeight.has_value());
    }

    void AnEmptyQueryHasALayoutOfItsOwn() {
        QCOMPARE(QString::fromLatin1(kEmptyQueryLayout.caption), QStringLiteral("Please enter something!"));
        QCOMPARE(kEmptyQueryLayout.frameHeight, 435);
        QCOMPARE(kEmptyQueryLayout.paneTop, 2580);
        QVERIFY(!kEmptyQueryLayout.listShown && !kEmptyQueryLayout.listHeight);
    }

    void HitControlsStandAtTheFootOfTheFrame() {
        const HitControlTops tops = PlaceHitControls(1950, 1755, 390, 270);
        QCOMPARE(tops.buttons, 1950 + 1755 - 390 - 20);
        QCOMPARE(tops.label, tops.buttons - 270);
    }
};

QTEST_GUILESS_MAIN(ResultLayoutTest)
#include "result_layout_test.moc"
