#include "appearance/hover_caption.h"

#include <QtTest>

using namespace quillbrook;

namespace {

const QStringList kItems = {u"Affidavit of Loss"_qs, QString(300, u'x'), QString()};

const HoverList* Find(const QString& name) {
    for (const HoverList& list : kHoverLists) {
        if (QString::fromLatin1(list.name) == name)
            return &list;
    }
    return nullptr;
}

} // namespace

class HoverCaptionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FiveListsHaveATitle_data() {
        QTest::addColumn<QString>("list");
        QTest::addColumn<QString>("title");
        QTest::newRow("titles") << u"lstTitle"_qs << u"Quillbrook"_qs;
        QTest::newRow("sub-categories") << u"lstSubCategory"_qs << u"Quillbrook"_qs;
        QTest::newRow("results") << u"lstSearch"_qs << u"Search Results"_qs;
        QTest::newRow("favourites") << u"lstFavorites"_qs << u"My Favorite Forms"_qs;
        QTest::newRow("history") << u"lstHistory"_qs << u"Recently Opened Forms"_qs;
    }
    void FiveListsHaveATitle() {
        QFETCH(QString, list);
        QFETCH(QString, title);
        QVERIFY(Find(list));
        const auto never = [](int) { return u"asked beside all items"_qs; };
        QCOMPARE(HoverCaption(*Find(list), false, std::nullopt, never), std::optional(title));
        QCOMPARE(HoverCaption(*Find(list), false, -1, never), std::optional(title));
    }
    void OtherListsHaveNone() {
        QCOMPARE(kHoverLists.size(), 5u);
        QVERIFY(!Find(u"lstMyTitle"_qs));
        QVERIFY(!Find(u"lstMySubCategory"_qs));
    }

    void ShowsTheWholeItemUnlessAButtonIsDown_data() {
        QTest::addColumn<bool>("isButtonDown");
        QTest::addColumn<int>("item"); // -1: beside all
        QTest::addColumn<std::optional<QString>>("caption");
        using Caption = std::optional<QString>;
        QTest::newRow("an item") << false << 0 << Caption(kItems[0]);
        QTest::newRow("a long item") << false << 1 << Caption(kItems[1]);
        QTest::newRow("an item without text") << false << 2 << Caption(QString());
        QTest::newRow("below the items") << false << -1 << Caption(u"Search Results"_qs);
        QTest::newRow("dragging over an item") << true << 0 << Caption();
        QTest::newRow("dragging below the items") << true << -1 << Caption();
    }
    void ShowsTheWholeItemUnlessAButtonIsDown() {
        QFETCH(bool, isButtonDown);
        QFETCH(int, item);
        int asked = 0;
        const auto text = [&asked](int index) {
            ++asked;
            return kItems[index];
        };
        const auto under = item < 0 ? std::nullopt : std::optional(item);
        QTEST(HoverCaption(*Find(u"lstSearch"_qs), isButtonDown, under, text), "caption");
        QCOMPARE(asked, !isButtonDown && item >= 0 ? 1 : 0);
    }
};

QTEST_GUILESS_MAIN(HoverCaptionTest)
#include "hover_caption_test.moc"
