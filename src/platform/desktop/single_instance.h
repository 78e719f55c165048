#pragma once

#include "platform/services.h"

#include <QLocalServer>
#include <QLockFile>
#include <QPointer>
#include <QWidget>

namespace platform {

// The first process holds a lock file and listens on a local socket; a later one finds the lock taken and
// asks through the socket for the window of a title. The lock of a process that died is taken over.
class SingleInstance final : public QObject, public InstanceService {
    Q_OBJECT

public:
    // `name` tells programs apart; `folder` is where lock and socket lie, the user's runtime folder by
    // default.
    explicit SingleInstance(const QString& name, const QString& title, const QString& folder = {});

    bool EarlierInstanceRuns() override;
    QString ApplicationTitle() const override { return m_title; }
    void SetApplicationTitle(const QString& title) override { m_title = title; }
    bool BringForward(const QString& title) override;
    void SetWindow(QWidget* window) override { m_window = window; }
    void EndProcess() override;

private:
    void Answer();

    QString m_title;
    QString m_socketPath;
    QLockFile m_lock;
    QLocalServer m_server;
    QPointer<QWidget> m_window;
};

} // namespace platform
