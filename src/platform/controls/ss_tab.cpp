#include "platform/controls/ss_tab.h"

#include <QMouseEvent>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>

namespace platform {

SSTab::SSTab(QWidget* parent)
    : QWidget(parent)
    , m_strip(new QTabBar(this))
    , m_pages(new QStackedWidget(this)) {
    setAttribute(Qt::WA_StyledBackground);
    setMouseTracking(true);
    installEventFilter(this);
    m_strip->setObjectName(QStringLiteral("tabStrip"));
    m_strip->setDrawBase(false);
    m_strip->setExpanding(false);
    m_strip->setIconSize({16, 16});
    m_strip->setMouseTracking(true);
    m_strip->installEventFilter(this);
    m_pages->setObjectName(QStringLiteral("tabPages"));
    setFocusProxy(m_strip);
    connect(m_strip, &QTabBar::currentChanged, this, [this](int tab) {
        const int previous = m_previous;
        m_previous = tab;
        m_pages->setCurrentIndex(tab);
        // the first page added becomes the current one by itself, which is no choice
        if (m_strip->count() > 1)
            Q_EMIT Click(previous);
    });
    const auto turns = [this](Qt::Key key, int by) {
        connect(new QShortcut(QKeySequence(Qt::CTRL | key), this), &QShortcut::activated, this, [this, by] {
            const int count = std::max(m_strip->count(), 1);
            setTab((Tab() + by + count) % count);
        });
    };
    turns(Qt::Key_PageDown, 1);
    turns(Qt::Key_PageUp, -1);
}

QWidget* SSTab::AddPage(const QString& caption, const QIcon& picture) {
    auto* page = new QWidget(m_pages);
    page->setMouseTracking(true);
    page->installEventFilter(this);
    page->setObjectName(QStringLiteral("page"));
    page->setAccessibleName(caption.trimmed());
    m_pages->addWidget(page);
    m_strip->addTab(picture, caption);
    return page;
}

QWidget* SSTab::Page(int tab) const {
    return m_pages->widget(tab);
}

int SSTab::Tab() const {
    return m_strip->currentIndex();
}

void SSTab::setTab(int tab) {
    m_strip->setCurrentIndex(tab);
}

// A control that has no use for a move lets it through to what it lies on, whose own ground was not moved
// over then.
bool SSTab::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        const QPoint place = static_cast<QMouseEvent*>(event)->position().toPoint();
        if (!static_cast<QWidget*>(watched)->childAt(place))
            Q_EMIT MouseMove();
    }
    return QWidget::eventFilter(watched, event);
}

void SSTab::resizeEvent(QResizeEvent*) {
    m_strip->setGeometry(4, 0, width() - 4, kStripHeight);
    m_pages->setGeometry(0, kStripHeight, width(), height() - kStripHeight);
}

void PlaceOnPage(QWidget* control, int x, int y, int width, int height) {
    control->setGeometry(x, y - SSTab::kStripHeight, width, height);
}

} // namespace platform
