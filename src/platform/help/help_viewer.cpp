#include "platform/help/help_viewer.h"

#include "platform/help/help_window.h"

namespace platform {

void HelpViewer::DisplayTopic(QWidget* owner, const QString& file) {
    if (!m_window || m_window->parentWidget() != owner) {
        delete m_window;
        m_window = new HelpWindow(owner);
    }
    m_window->ShowFile(file);
    if (m_window->isMinimized())
        m_window->showNormal();
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

HelpWindow* HelpViewer::Window() const {
    return m_window;
}

} // namespace platform
