#include "appearance/themes.h"

#include <QPalette>
#include <QSet>
#include <QtTest>
#include <cmath>

using namespace quillbrook;

namespace {

QColor Rgb(const ThemeColor& color) {
    return QColor(color.red, color.green, color.blue);
}

// As eyes weigh a colour, from 0 for black to 1 for white.
double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= .04045 ? part / 12.92 : std::pow((part + .055) / 1.055, 2.4);
    };
    return .2126 * linear(color.redF()) + .7152 * linear(color.greenF()) + .0722 * linear(color.blueF());
}

} // namespace

class ThemesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ThereAre34OfDistinctNames() {
        QSet<QString> names;
        for (const Theme& theme : kThemes) {
            names.insert(QString::fromLatin1(theme.name));
            QCOMPARE(QString::fromLatin1(theme.name).trimmed(), QString::fromLatin1(theme.name));
        }
        QCOMPARE(kThemeCount, 34);
        QCOMPARE(names.size(), 34);
    }

    void NumbersNameTheirThemes_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QColor>("page");
        QTest::addColumn<QColor>("list");
        QTest::newRow("2") << 2 << u"Black and White"_qs << QColor(0, 0, 0) << QColor(255, 255, 255);
        QTest::newRow("7") << 7 << u"Blue Ice"_qs << QColor(0, 197, 204) << QColor(228, 247, 248);
        QTest::newRow("8") << 8 << u"Midnight"_qs << QColor(0, 0, 0) << QColor(221, 230, 239);
        QTest::newRow("14") << 14 << u"Romantic"_qs << QColor(218, 47, 189) << QColor(251, 230, 236);
        QTest::newRow("21") << 21 << u"Plum"_qs << QColor(102, 0, 102) << QColor(255, 204, 255);
        QTest::newRow("29") << 29 << u"Pink"_qs << QColor(232, 163, 172) << QColor(247, 215, 218);
        QTest::newRow("34") << 34 << u"Deep Blue"_qs << QColor(0, 0, 128) << QColor(240, 245, 245);
    }
    void NumbersNameTheirThemes() {
        QFETCH(int, number);
        const Theme& theme = ThemeOf(number);
        QTEST(QString::fromLatin1(theme.name), "name");
        QTEST(Resolve(theme.page, QPalette()), "page");
        QTEST(Resolve(theme.list, QPalette()), "list");
    }

    void OnlyTheFirstFollowsTheDesktop() {
        for (int number = 1; number <= kThemeCount; ++number) {
            const Theme& theme = ThemeOf(number);
            for (const ThemeColor& color : {theme.page, theme.list})
                QCOMPARE(color.source == ThemeColor::Source::Fixed, number != 1);
        }
        QPalette desktop;
        desktop.setColor(QPalette::Button, QColor(1, 2, 3));
        desktop.setColor(QPalette::Base, QColor(4, 5, 6));
        QCOMPARE(QString::fromLatin1(ThemeOf(1).name), u"Windows Default"_qs);
        QCOMPARE(Resolve(ThemeOf(1).page, desktop), QColor(1, 2, 3));
        QCOMPARE(Resolve(ThemeOf(1).list, desktop), QColor(4, 5, 6));
        QCOMPARE(Resolve(ThemeOf(3).page, desktop), QColor(61, 119, 203));
    }

    // The name of a theme is shown in its page colour on its list colour.
    void ListColorsArePaleAgainstTheirPages() {
        for (std::size_t i = 1; i < kThemes.size(); ++i) {
            const double page = Luminance(Rgb(kThemes[i].page)), list = Luminance(Rgb(kThemes[i].list));
            QVERIFY2(list > .5, kThemes[i].name);
            QVERIFY2(list > page, kThemes[i].name);
        }
    }

    void NumbersWrap_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("wrapped");
        const QList<std::pair<int, int>> rows = {{1, 1},  {17, 17}, {34, 34}, {35, 1},    {36, 1},
                                                 {0, 34}, {-1, 34}, {-9, 34}, {32767, 1}, {-32768, 34}};
        for (const auto& [number, wrapped] : rows)
            QTest::newRow(QByteArray::number(number)) << number << wrapped;
    }
    void NumbersWrap() {
        QFETCH(int, number);
        QFETCH(int, wrapped);
        QCOMPARE(WrapThemeNumber(number), wrapped);
        QCOMPARE(ThemeOf(number).name, kThemes[std::size_t(wrapped) - 1].name);
    }

    void TheWindowComesBeforeItsTwelveControls() {
        QStringList page, list;
        for (const ThemedControl& control : kThemedControls) {
            (control.part == ThemePart::Page ? page : list).append(QString::fromLatin1(control.name));
            if (control.part == ThemePart::Page)
                QVERIFY(list.isEmpty());
        }
        QCOMPARE(page, (QStringList{u"frmMain"_qs, u"SSTab"_qs}));
        QCOMPARE(list.size(), 12);
        QCOMPARE(list.removeDuplicates(), 0);
        QCOMPARE(list.first(), u"lstSubCategory"_qs);
        QCOMPARE(list.last(), u"cboMySubCategory"_qs);
    }

    void EachPartGetsItsColor() {
        const Theme& theme = ThemeOf(5);
        QCOMPARE(Rgb(ColorOf(theme, ThemePart::Page)), QColor(102, 51, 153));
        QCOMPARE(Rgb(ColorOf(theme, ThemePart::List)), QColor(241, 208, 224));
    }

    void TheLinksTurnPureBlue() {
        QCOMPARE(Rgb(kThemedLinkColor), QColor(Qt::blue));
        QCOMPARE(kThemedLinks.size(), 2u);
    }

    // They are no part of any theme.
    void PanesAndToolbarKeepTheirColors_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"txtContent", "txtMyContent", "picLeftToolbar", "btnSave", "httpFacebook"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void PanesAndToolbarKeepTheirColors() {
        QFETCH(QString, name);
        for (const ThemedControl& control : kThemedControls)
            QVERIFY(QString::fromLatin1(control.name) != name);
    }
};

QTEST_GUILESS_MAIN(ThemesTest)
#include "themes_test.moc"
