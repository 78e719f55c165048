#pragma once

#include "platform/services.h"

#include <QPointer>

namespace platform {

class HelpWindow;

// The help in a window of its own. It opens once and is then brought to the front.
class HelpViewer final : public HelpService {
public:
    QString HelpFile() const override { return m_helpFile; }
    void SetHelpFile(const QString& path) override { m_helpFile = path; }
    void DisplayTopic(QWidget* owner, const QString& file) override;

    // The window that was opened last; null before.
    HelpWindow* Window() const;

private:
    QString m_helpFile;
    QPointer<HelpWindow> m_window; // its owner deletes it
};

} // namespace platform
