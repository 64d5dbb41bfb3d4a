#include "files/RecoveryStore.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLockFile>

#include <atomic>

namespace {

/// A name that no process has had, or will have. Several objects of one process differ, too.
QString ProcessFolder(const QString& folder)
{
    static std::atomic<int> count{0};
    return QStringLiteral("%1/%2-%3-%4")
        .arg(folder, QString::number(QCoreApplication::applicationPid()),
            QString::number(QDateTime::currentMSecsSinceEpoch()), QString::number(++count));
}

constexpr int ATTEMPTS = 10; ///< at making the folder

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
const QString RecoveryStore::SAVING_SUFFIX = QStringLiteral(".saving");
const QString RecoveryStore::LOCK_NAME = QStringLiteral("lock");
const QString RecoveryStore::BROKEN_NAME = QStringLiteral("broken");

RecoveryStore::RecoveryStore(const QString& folder)
    : m_folder(folder)
    , m_processFolder(ProcessFolder(folder))
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
    // A host that ends may remove the recovery folder in between.
    for (int attempt = 0; attempt < ATTEMPTS && !QFile::exists(m_processFolder); ++attempt) {
        QDir().mkpath(m_folder);
        MakePrivateFolder(m_processFolder);
    }
    auto lock = std::make_unique<QLockFile>(m_processFolder + QLatin1Char('/') + LOCK_NAME);
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0))
        return false;
    m_lock = std::move(lock);
    return true;
}

bool RecoveryStore::Write(int id, const RecoverySnapshot& snapshot, RecoveryFile::Wait wait)
{
    return Open() && RecoveryFile::Write(PathOf(id), snapshot, wait);
}

void RecoveryStore::Remove(int id)
{
    if (!m_lock)
        return;
    QFile::remove(PathOf(id));
    QFile::remove(PathOf(id) + SAVING_SUFFIX);
}

void RecoveryStore::NoteSaving(int id, const QByteArray& fingerprint) const
{
    QFile file(PathOf(id) + SAVING_SUFFIX);
    if (file.open(QIODevice::WriteOnly))
        file.write(fingerprint.toHex());
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
}
