// Holds the rules that the program's recolouring of the icons relies on.

#include <QtCore>
#include <QtGui>
#include <QtSvg>
#include <QtTest>

#include <algorithm>

// The macro has to stand outside of every namespace.
static void LoadAssets() {
    Q_INIT_RESOURCE(assets);
}

namespace quillbrook {
namespace {

class IconsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void EveryPictureIsInTheProgram();
    void AnIconHasNoColourButStrokeAndAccent_data();
    void AnIconHasNoColourButStrokeAndAccent();
    void AnIconIsCentredAndTouchesNoEdge_data();
    void AnIconIsCentredAndTouchesNoEdge();
    void TheSplashHasItsSize();

private:
    static void AddIcons();
};

const QString assets = QStringLiteral(QUILLBROOK_SOURCE_DIR "/assets/");

QByteArray Contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList IconNames() {
    return QDir(assets + QLatin1String("icons"))
        .entryList({QStringLiteral("*.svg")}, QDir::Files, QDir::Name);
}

void IconsTest::AddIcons() {
    QTest::addColumn<QString>("path");
    const QStringList names = IconNames();
    for (const QString& name : names) {
        QTest::newRow(qPrintable(name)) << assets + QLatin1String("icons/") + name;
    }
}

void IconsTest::initTestCase() {
    LoadAssets();
    QVERIFY(IconNames().size() >= 40);
}

void IconsTest::EveryPictureIsInTheProgram() {
    QStringList names{QStringLiteral("quillbrook.svg"), QStringLiteral("splash.svg")};
    const QStringList icons = IconNames();
    for (const QString& icon : icons) {
        names += QLatin1String("icons/") + icon;
    }
    for (const QString& name : std::as_const(names)) {
        const QByteArray inTree = Contents(assets + name);
        QVERIFY2(!inTree.isEmpty(), qPrintable(name));
        QVERIFY2(Contents(QLatin1String(":/") + name) == inTree, qPrintable(name));
    }
}

void IconsTest::AnIconHasNoColourButStrokeAndAccent_data() {
    AddIcons();
}

void IconsTest::AnIconHasNoColourButStrokeAndAccent() {
    QFETCH(QString, path);
    const QString source = QString::fromUtf8(Contents(path));
    static const QRegularExpression colour(QStringLiteral("(?:fill|stroke|stop-color|color)=\"([^\"]*)\""));
    int found = 0;
    for (auto each = colour.globalMatch(source); each.hasNext(); ++found) {
        const QString value = each.next().captured(1);
        QVERIFY2(value == QLatin1String("none") || value == QLatin1String("#3c4450") ||
                     value == QLatin1String("#2f6fde"),
                 qPrintable(value));
    }
    QVERIFY(found > 0);
    QVERIFY(!source.contains(QLatin1String("style")));
}

void IconsTest::AnIconIsCentredAndTouchesNoEdge_data() {
    AddIcons();
}

void IconsTest::AnIconIsCentredAndTouchesNoEdge() {
    QFETCH(QString, path);
    QSvgRenderer renderer(path);
    QVERIFY(renderer.isValid());
    QVERIFY(renderer.defaultSize() == QSize(24, 24) || renderer.defaultSize() == QSize(32, 32));
    constexpr int size = 96;
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    int left = size;
    int top = size;
    int right = -1;
    int bottom = -1;
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            if (qAlpha(image.pixel(x, y)) > 40) {
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        }
    }
    QVERIFY(left >= 4 && top >= 4 && right < size - 4 && bottom < size - 4);
    // within half a pixel of the 24-pixel grid
    QVERIFY2(std::abs(left + right - (size - 1)) <= 4, qPrintable(QString::number(left + right)));
    QVERIFY2(std::abs(top + bottom - (size - 1)) <= 4, qPrintable(QString::number(top + bottom)));
}

void IconsTest::TheSplashHasItsSize() {
    QCOMPARE(QSvgRenderer(assets + QLatin1String("splash.svg")).defaultSize(), QSize(400, 234));
}

} // namespace
} // namespace quillbrook

QTEST_GUILESS_MAIN(quillbrook::IconsTest)
#include "icons_test.moc"
