#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

namespace platform {

// One folder of a pool in which instances of LibreOffice of our own keep their settings, apart from the
// user's. Beside each lies a lock file that is locked by whoever has its descriptor: we, and the instance,
// which inherits it. So a profile whose lock is free has no instance, whatever became of us.
class OfficeProfile {
public:
    // A profile of the pool that has no instance; the pool is made where it is not there. Null when all are
    // taken or the folder cannot be written.
    static std::unique_ptr<OfficeProfile> Acquire(const QString& pool);
    // Ends the hidden instances that a process of ours left in the pool when it crashed. Gives how many
    // profiles were held by them.
    static int EndOrphans(const QString& pool);

    // The lock stays with the instance that has inherited it.
    ~OfficeProfile();
    Q_DISABLE_COPY_MOVE(OfficeProfile)

    int LockDescriptor() const { return m_lock; }
    // The argument that starts an instance in this profile.
    QByteArray Argument() const;
    bool IsNew() const { return m_new; }

    // Its instance is the user's from now on: no start of ours ends it.
    void HandOver();
    // Removes the folder, whose instance was killed. A new one is made when it is needed.
    void Discard();

private:
    OfficeProfile(const QString& folder, int lock);
    bool Prepare();

    QString m_folder;
    int m_lock;
    bool m_new = false;
};

} // namespace platform
