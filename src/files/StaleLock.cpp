#include "files/StaleLock.h"

#include <QLockFile>
#include <QSysInfo>

bool TakeOverLock(QLockFile& lock)
{
    if (lock.tryLock(0))
        return true;
    if (lock.error() != QLockFile::LockFailedError)
        return false;
    qint64 process = 0;
    // A lock that says nothing is of a process that died while it took it.
    QString machine = QSysInfo::machineHostName();
    QString application;
    lock.getLockInfo(&process, &machine, &application);
    // A process number is soon used again, so that it alone proves nothing; what a dead process
    // held open it holds no more, and that is what removing looks at.
    return machine == QSysInfo::machineHostName() && lock.removeStaleLockFile() && lock.tryLock(0);
}
