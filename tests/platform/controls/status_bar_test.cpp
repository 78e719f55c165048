#include "platform/controls/status_bar.h"

#include <QtTest>
#include <QtWidgets>

using platform::StatusBar;

class StatusBarTest : public QObject {
    Q_OBJECT

    static QImage Drawn(const QString& text, int width) {
        StatusBar bar;
        bar.AddPanel(text);
        bar.resize(width, 24);
        bar.show();
        return bar.Panel(1)->grab().toImage();
    }

private Q_SLOTS:
    void APanelTooNarrowForItsTextEndsItInDots() {
        const QString text = u"A notice of rights, in many words"_qs;
        const QImage narrow = Drawn(text, 120);
        const QFontMetrics font = QPushButton().fontMetrics();
        QStringList shorter;
        for (qsizetype i = 1; i < text.size(); ++i)
            shorter += text.left(i) + QChar(0x2026);
        QVERIFY(std::any_of(shorter.begin(), shorter.end(), [&](const QString& cut) {
            return font.horizontalAdvance(cut) < 120 && Drawn(cut, 120) == narrow;
        }));
        QVERIFY(Drawn(text, 600) != Drawn(shorter.last(), 600));
    }
};

QTEST_MAIN(StatusBarTest)
#include "status_bar_test.moc"
