#include "files/SessionLock.h"

#include "files/StaleLock.h"

#include <QLockFile>
#include <QSysInfo>

const QString SessionLock::FILE_NAME = QStringLiteral("session.lock");

SessionLock::SessionLock(const QString& folder)
{
    if (folder.isEmpty())
        return;
    m_path = QStringLiteral("%1/%2").arg(folder, FILE_NAME);
    m_lock = std::make_unique<QLockFile>(m_path);
    m_lock->setStaleLockTime(0); // a session may last for weeks
    m_isOwner = TakeOverLock(*m_lock) || m_lock->error() != QLockFile::LockFailedError;
    if (!m_isOwner)
        DescribeOwner();
}

SessionLock::~SessionLock() = default;

void SessionLock::DescribeOwner()
{
    qint64 process = 0;
    QString machine;
    QString application;
    m_otherOwner = m_lock->getLockInfo(&process, &machine, &application)
        ? QStringLiteral("%1, process %2 on %3").arg(application, QString::number(process), machine)
        : QStringLiteral("a process that cannot be told");
    m_isOwnerElsewhere = !machine.isEmpty() && machine != QSysInfo::machineHostName();
}
