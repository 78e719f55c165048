#include "platform/controls/status_bar.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace platform {

namespace {

// A panel that is too narrow for its text ends it in dots.
class Panel final : public QPushButton {
public:
    using QPushButton::QPushButton;

    QSize minimumSizeHint() const override { return {0, QPushButton::minimumSizeHint().height()}; }

    QString ShownText() const {
        constexpr int kEdges = 2 * 9; // padding and edge of both sides
        return fontMetrics().elidedText(text(), Qt::ElideRight, width() - kEdges);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text = ShownText();
        painter.drawControl(QStyle::CE_PushButton, option);
    }
};

} // namespace

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_StyledBackground);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 1);
    row->setSpacing(4);
}

void StatusBar::AddPanel(const QString& text) {
    const int index = int(m_panels.size()) + 1;
    auto* panel = new class Panel(text, this);
    panel->setObjectName(QStringLiteral("StatusBar1Panel%1").arg(index));
    panel->setFlat(true);
    panel->setProperty("panel", true);
    panel->setSizePolicy(index == 1 ? QSizePolicy::Expanding : QSizePolicy::Preferred,
                         QSizePolicy::Expanding);
    connect(panel, &QPushButton::clicked, this, [this, index] { Q_EMIT PanelClick(index); });
    layout()->addWidget(panel);
    m_panels.push_back(panel);
}

QAbstractButton* StatusBar::Panel(int index) const {
    return index >= 1 && index <= int(m_panels.size()) ? m_panels[size_t(index) - 1] : nullptr;
}

} // namespace platform
