#include "files/SessionLock.h"

#include "files/StaleLock.h"

#include <QLockFile>

namespace {

QString Describe(const QLockFile& lock)
{
    qint64 process = 0;
    QString machine;
    QString application;
    if (!lock.getLockInfo(&process, &machine, &application))
        return QStringLiteral("unknown process");
    return QStringLiteral("%1, process %2 on %3").arg(application).arg(process).arg(machine);
}

} // namespace

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
        m_otherOwner = Describe(*m_lock);
}

SessionLock::~SessionLock() = default;
