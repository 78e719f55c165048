#include "platform/desktop/single_instance.h"

#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <cstdlib>

namespace platform {

// A first process that is still loading its window answers late; one that hangs must not hold up a start.
constexpr int kAnswerTimeoutMs = 3000;
constexpr qint64 kLongestTitle = 4096;

static QString RuntimeFolder(const QString& folder) {
    if (!folder.isEmpty())
        return folder;
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return runtime.isEmpty() ? QDir::tempPath() : runtime;
}

SingleInstance::SingleInstance(const QString& name, const QString& title, const QString& folder)
    : m_title(title)
    , m_socketPath(RuntimeFolder(folder) + QLatin1Char('/') + name + QStringLiteral(".socket"))
    , m_lock(RuntimeFolder(folder) + QLatin1Char('/') + name + QStringLiteral(".lock")) {
    m_lock.setStaleLockTime(0); // a lock is stale only when its process is gone
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    if (m_lock.tryLock(0)) {
        QLocalServer::removeServer(m_socketPath); // left by a process that died
        m_server.listen(m_socketPath);
    }
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::Answer);
}

bool SingleInstance::EarlierInstanceRuns() {
    // a lock that cannot be made for another reason, such as a read-only folder, is no earlier instance
    return !m_lock.isLocked() && m_lock.error() == QLockFile::LockFailedError;
}

bool SingleInstance::BringForward(const QString& title) {
    QLocalSocket socket;
    socket.connectToServer(m_socketPath);
    if (!socket.waitForConnected(kAnswerTimeoutMs))
        return false;
    socket.write(title.toUtf8() + '\n');
    while (!socket.canReadLine())
        if (!socket.waitForReadyRead(kAnswerTimeoutMs))
            return false;
    return socket.readLine() == "found\n";
}

void SingleInstance::Answer() {
    while (QLocalSocket* socket = m_server.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        socket->setReadBufferSize(kLongestTitle);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
            if (!socket->canReadLine())
                return;
            const QString title = QString::fromUtf8(socket->readLine(kLongestTitle)).chopped(1);
            const bool found = m_window && title == m_title;
            socket->write(found ? "found\n" : "none\n");
            socket->flush();
            if (!found || !m_window->isVisible()) // one that is still being loaded shows itself in its time
                return;
            m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
            m_window->raise();
            m_window->activateWindow();
        });
    }
}

void SingleInstance::EndProcess() {
    std::_Exit(EXIT_SUCCESS);
}

} // namespace platform
