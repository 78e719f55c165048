#include "platform/controls/status_bar.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace platform {

StatusBar::StatusBar(QWidget* parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_StyledBackground);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 1);
    row->setSpacing(4);
}

void StatusBar::AddPanel(const QString& text) {
    const int index = int(m_panels.size()) + 1;
    auto* panel = new QPushButton(text, this);
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
