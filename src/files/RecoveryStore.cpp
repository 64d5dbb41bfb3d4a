#include "files/RecoveryStore.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLockFile>

namespace {

constexpr int ATTEMPTS = 100; ///< at a name for the folder that nobody has

/// Made for its owner alone: a script may hold what is nobody else's business.
bool MakePrivateFolder(const QString& path)
{
    return QDir().mkdir(path)
        && QFile::setPermissions(
            path, QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

} // namespace

const QString RecoveryStore::FOLDER_NAME = QStringLiteral("recovery");
const QString RecoveryStore::FILE_SUFFIX = QStringLiteral(".te2-recovery");
const QString RecoveryStore::LOCK_NAME = QStringLiteral("lock");
const QString RecoveryStore::BROKEN_NAME = QStringLiteral("broken");

RecoveryStore::RecoveryStore(const QString& folder)
    : m_folder(folder)
{ }

RecoveryStore::~RecoveryStore() = default;

QString RecoveryStore::PathOf(int id) const
{
    return QStringLiteral("%1/%2%3").arg(m_processFolder, QString::number(id), FILE_SUFFIX);
}

bool RecoveryStore::IsOpen() const
{
    // Somebody may have cleared the folder away; without the lock others would take the next
    // snapshot for that of a dead process.
    return m_lock && QFile::exists(m_processFolder + QLatin1Char('/') + LOCK_NAME);
}

bool RecoveryStore::Open()
{
    if (IsOpen())
        return true;
    m_lock.reset();
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    for (int attempt = 0; attempt < ATTEMPTS; ++attempt) {
        // Each time: a host that ends removes the folder when it is empty.
        QDir().mkpath(m_folder);
        m_processFolder = QStringLiteral("%1/%2-%3")
                              .arg(m_folder, QString::number(QCoreApplication::applicationPid()),
                                  QString::number(now + attempt));
        if (!MakePrivateFolder(m_processFolder))
            continue;
        m_lock = std::make_unique<QLockFile>(m_processFolder + QLatin1Char('/') + LOCK_NAME);
        m_lock->setStaleLockTime(0);
        if (m_lock->tryLock(0))
            return true;
        QDir().rmdir(m_processFolder);
    }
    m_lock.reset();
    m_processFolder.clear();
    return false;
}

bool RecoveryStore::Write(int id, const RecoverySnapshot& snapshot, RecoveryFile::Wait wait)
{
    return Open() && RecoveryFile::Write(PathOf(id), snapshot, wait);
}

void RecoveryStore::Remove(int id)
{
    if (m_lock)
        QFile::remove(PathOf(id));
}

void RecoveryStore::Close()
{
    if (!m_lock)
        return;
    m_lock->unlock();
    m_lock.reset();
    // Only what is empty goes.
    QDir().rmdir(m_processFolder);
    QDir().rmdir(m_folder);
    m_processFolder.clear();
}
