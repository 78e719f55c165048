#include "appearance/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

// a static library's resources join the program only when they are asked for, outside of any namespace
static void LoadAssets() {
    Q_INIT_RESOURCE(assets);
}

namespace quillbrook {

namespace {

// The two colours in which the pictures are drawn in their files.
constexpr char kLineInFile[] = "#3c4450";
constexpr char kAccentInFile[] = "#2f6fde";

class PictureEngine final : public QIconEngine {
public:
    PictureEngine(QByteArray source, bool toggles)
        : m_source(std::move(source))
        , m_toggles(toggles) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        painter->save();
        if (mode == QIcon::Disabled)
            painter->setOpacity(painter->opacity() * 0.35);
        Renderer(m_toggles && state == QIcon::On).render(painter, rect);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }

    QIconEngine* clone() const override { return new PictureEngine(m_source, m_toggles); }

private:
    // The picture in the palette's colours, or in the colour of text on the accent for a control that shows
    // itself pressed. Drawn anew when they change, as on a switch to a dark desktop.
    QSvgRenderer& Renderer(bool pressed) {
        const QPalette palette = QGuiApplication::palette();
        const bool dark = palette.color(QPalette::Window).lightness() < 128;
        const Colors colors = pressed ? Colors{"#ffffff", "#ffffff"}
                              : dark  ? Colors{"#d5dae2", "#7fb0ff"}
                                      : Colors{kLineInFile, kAccentInFile};
        if (!m_renderer || colors != m_colors) {
            m_colors = colors;
            QByteArray source = m_source;
            source.replace(kLineInFile, colors.first).replace(kAccentInFile, colors.second);
            m_renderer = std::make_unique<QSvgRenderer>(source);
        }
        return *m_renderer;
    }

    using Colors = std::pair<QByteArray, QByteArray>; // of the lines and of the accent

    QByteArray m_source;
    bool m_toggles;
    std::unique_ptr<QSvgRenderer> m_renderer;
    Colors m_colors;
};

QIcon PictureFromFile(const QString& path, bool toggles = false) {
    LoadAssets();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QIcon(new PictureEngine(file.readAll(), toggles));
}

} // namespace

QIcon Picture(const QString& name) {
    return PictureFromFile(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"));
}

QIcon TogglePicture(const QString& name) {
    return PictureFromFile(QStringLiteral(":/icons/") + name + QStringLiteral(".svg"), true);
}

QPixmap SplashPixmap(const QSize& size, qreal scale) {
    LoadAssets();
    QPixmap drawn(size * scale);
    QPainter painter(&drawn);
    QSvgRenderer(QStringLiteral(":/splash.svg")).render(&painter, QRectF(QPointF(), drawn.size()));
    painter.end();
    drawn.setDevicePixelRatio(scale);
    return drawn;
}

QIcon ProgramPicture() {
    return PictureFromFile(QStringLiteral(":/quillbrook.svg"));
}

} // namespace quillbrook
