#include "appearance/theme_sheet.h"

#include <QPalette>
#include <QtTest>

using namespace quillbrook;

namespace {

QPalette Desktop(const QColor& face, const QColor& base, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Button, face);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Text, text);
    return palette;
}

const QPalette& Light() {
    static const QPalette palette = Desktop(QColor(240, 240, 240), Qt::white, QColor(20, 20, 20));
    return palette;
}
const QPalette& Dark() {
    static const QPalette palette = Desktop(QColor(50, 50, 54), QColor(30, 30, 32), QColor(230, 230, 232));
    return palette;
}

} // namespace

class ThemeSheetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ContrastIsThatOfItsSource_data() {
        QTest::addColumn<QColor>("text");
        QTest::addColumn<QColor>("ground");
        QTest::addColumn<double>("ratio");
        QTest::newRow("the most") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
        QTest::newRow("either way") << QColor(Qt::white) << QColor(Qt::black) << 21.0;
        QTest::newRow("none") << QColor(9, 99, 199) << QColor(9, 99, 199) << 1.0;
        QTest::newRow("the darkest grey that fails on white")
            << QColor(119, 119, 119) << QColor(Qt::white) << 4.478;
        QTest::newRow("the palest that does not") << QColor(118, 118, 118) << QColor(Qt::white) << 4.542;
    }
    void ContrastIsThatOfItsSource() {
        QFETCH(QColor, text);
        QFETCH(QColor, ground);
        QFETCH(double, ratio);
        QVERIFY(std::abs(ContrastRatio(text, ground) - ratio) < 0.001);
    }

    void ListsCanBeReadUnderEveryThemeOfEveryDesktop_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void ListsCanBeReadUnderEveryThemeOfEveryDesktop() {
        QFETCH(bool, dark);
        const QPalette& desktop = dark ? Dark() : Light();
        static const QRegularExpression colors(
            u"cboMySubCategory QAbstractItemView \\{ background-color: (#\\w+); color: (#\\w+); \\}"_qs);
        for (const Theme& theme : kThemes) {
            const QRegularExpressionMatch match = colors.match(ThemeSheet(theme, desktop));
            QVERIFY2(match.hasMatch(), theme.name);
            QCOMPARE(QColor(match.captured(1)), Resolve(theme.list, desktop));
            QVERIFY2(ContrastRatio(QColor(match.captured(2)), QColor(match.captured(1))) >= 4.5, theme.name);
        }
    }

    void TextsOfALightDesktopStayAsTheyAre() {
        for (const Theme& theme : kThemes) {
            const QString sheet = ThemeSheet(theme, Light());
            QCOMPARE(sheet.count(QStringLiteral(" color: ")), 1);
            QVERIFY2(sheet.contains(QStringLiteral("color: #141414; }")), theme.name);
        }
    }

    void TheFirstThemeIsTheDesktops() {
        QVERIFY(ThemeSheet(ThemeOf(1), Light()).contains(u"QWidget#SSTab { background-color: #f0f0f0; }"_qs));
        QVERIFY(ThemeSheet(ThemeOf(1), Dark()).contains(u"QWidget#SSTab { background-color: #323236; }"_qs));
        QVERIFY(ThemeSheet(ThemeOf(1), Dark()).contains(u"background-color: #1e1e20; color: #e6e6e8; }"_qs));
    }

    void ItNamesEveryThemedControlAndNoOther() {
        const QString sheet = ThemeSheet(ThemeOf(5), Light());
        QSet<QString> named;
        static const QRegularExpression name(u"#(\\w+)[ ,]"_qs);
        for (auto it = name.globalMatch(sheet); it.hasNext();)
            named.insert(it.next().captured(1));
        QSet<QString> wanted;
        for (const ThemedControl& control : kThemedControls)
            wanted.insert(QLatin1String(control.name));
        QCOMPARE(named, wanted);
    }
};

QTEST_GUILESS_MAIN(ThemeSheetTest)
#include "theme_sheet_test.moc"
