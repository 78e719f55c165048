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
        const auto row = [](int number, const char* name, const QColor& page, const QColor& list) {
            QTest::newRow(QByteArray::number(number)) << number << QString::fromLatin1(name) << page << list;
        };
        // clang-format off
        row(2, "Black and White", {0, 0, 0}, {255, 255, 255});
        row(3, "Classic Blue", {61, 119, 203}, {228, 234, 243});
        row(4, "Energy", {204, 21, 0}, {251, 227, 213});
        row(5, "Grapes", {102, 51, 153}, {241, 208, 224});
        row(6, "Heat", {204, 67, 0}, {253, 227, 214});
        row(7, "Blue Ice", {0, 197, 204}, {228, 247, 248});
        row(8, "Midnight", {0, 0, 0}, {221, 230, 239});
        row(9, "Military", {72, 87, 28}, {229, 235, 225});
        row(10, "Moonlight", {94, 161, 189}, {238, 238, 245});
        row(11, "Mystery", {82, 61, 144}, {235, 231, 239});
        row(12, "Sea Green", {110, 147, 148}, {225, 236, 236});
        row(13, "Olive", {132, 164, 17}, {238, 244, 212});
        row(14, "Romantic", {218, 47, 189}, {251, 230, 236});
        row(15, "Sunny", {255, 199, 0}, {255, 249, 202});
        row(16, "Swamp", {122, 119, 108}, {236, 238, 230});
        row(17, "Gold", {204, 153, 51}, {241, 228, 201});
        row(18, "Forest", {0, 102, 51}, {213, 255, 234});
        row(19, "Banana", {204, 204, 51}, {243, 255, 179});
        row(20, "Deep Rose", {204, 51, 153}, {243, 209, 233});
        row(21, "Plum", {102, 0, 102}, {255, 204, 255});
        row(22, "Khaki", {153, 153, 102}, {232, 232, 221});
        row(23, "Walnut", {102, 51, 0}, {255, 233, 210});
        row(24, "Avocado", {102, 153, 51}, {223, 239, 207});
        row(25, "Brick", {204, 51, 0}, {255, 222, 210});
        row(26, "Apricot", {204, 118, 0}, {252, 236, 210});
        row(27, "Lime Green", {81, 122, 50}, {223, 238, 213});
        row(28, "Carrots", {243, 116, 0}, {255, 230, 206});
        row(29, "Pink", {232, 163, 172}, {247, 215, 218});
        row(30, "Sand", {171, 153, 92}, {227, 222, 193});
        row(31, "Nature", {30, 163, 18}, {224, 244, 214});
        row(32, "Aqua", {29, 107, 176}, {218, 236, 244});
        row(33, "Ashy", {95, 125, 125}, {232, 238, 237});
        row(34, "Deep Blue", {0, 0, 128}, {240, 245, 245});
        // clang-format on
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
        QCOMPARE(list, (QStringList{u"lstSubCategory"_qs, u"cboQuery"_qs, u"cboFonts"_qs, u"cboFontSize"_qs,
                                    u"lstTitle"_qs, u"lstFavorites"_qs, u"lstHistory"_qs, u"lstSearch"_qs,
                                    u"lstMySubCategory"_qs, u"lstMyTitle"_qs, u"txtMyTitle"_qs,
                                    u"cboMySubCategory"_qs}));
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
