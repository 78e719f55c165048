#pragma once

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

// A file system of 64 KB of its own, where the machine lets us have one; gone with the object.
class SmallDisk {
public:
    SmallDisk()
        : m_isMounted(Run(QStringLiteral("mount"),
                          {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                           QStringLiteral("size=64k"), QStringLiteral("tmpfs"), m_folder.path()})) {}
    ~SmallDisk() {
        if (m_isMounted)
            Run(QStringLiteral("umount"), {m_folder.path()});
    }
    Q_DISABLE_COPY_MOVE(SmallDisk)

    bool IsMounted() const { return m_isMounted; }
    QString Path(const QString& name) const { return m_folder.filePath(name); }
    QStringList Files() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden); }

    // From here on nothing can be written.
    bool Lock() {
        return Run(QStringLiteral("mount"),
                   {QStringLiteral("-o"), QStringLiteral("remount,ro"), m_folder.path()});
    }
    // Leaves room for nothing more.
    bool Fill() {
        QFile filler(Path(QStringLiteral("filler")));
        if (!filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return false;
        const QByteArray page(4096, 'x');
        while (filler.write(page) == page.size()) {
        }
        return true;
    }

private:
    static bool Run(const QString& program, const QStringList& arguments) {
        QProcess process;
        process.start(program, arguments);
        return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == 0;
    }

    QTemporaryDir m_folder;
    bool m_isMounted;
};
