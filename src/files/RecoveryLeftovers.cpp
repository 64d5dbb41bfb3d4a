#include "files/RecoveryLeftovers.h"

#include "files/FileText.h"
#include "files/RecoveryFile.h"
#include "files/RecoveryStore.h"
#include "files/StaleLock.h"
#include "plugin/Logger.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <algorithm>

namespace {

constexpr int SECONDS_TO_LOCK = 60;
constexpr int MAXIMUM_FINGERPRINT = 1024; // bytes

/// A process makes its folder first and its lock then.
bool MayBeginToLive(const QString& folder)
{
    const QFileInfo info(folder);
    return !QFile::exists(folder + QLatin1Char('/') + RecoveryStore::LOCK_NAME)
        && qAbs(info.lastModified().secsTo(QDateTime::currentDateTime())) < SECONDS_TO_LOCK;
}

QStringList FilesIn(const QString& folder, const QString& ending)
{
    const QStringList names = QDir(folder).entryList(
        {QLatin1Char('*') + RecoveryStore::FILE_SUFFIX + ending}, QDir::Files | QDir::NoSymLinks);
    QStringList files;
    for (const QString& name : names)
        files += QStringLiteral("%1/%2").arg(folder, name);
    return files;
}

QStringList SnapshotsIn(const QString& folder)
{
    return FilesIn(folder, QString());
}

/// Whether the process died after the text, or what the user made of it, had been saved.
bool IsSaved(const RecoverySnapshot& snapshot, const QString& file)
{
    QFile saving(file + RecoveryStore::SAVING_SUFFIX);
    const QByteArray wanted = saving.open(QIODevice::ReadOnly)
        ? QByteArray::fromHex(saving.read(MAXIMUM_FINGERPRINT))
        : QByteArray();
    return !wanted.isEmpty() && FileText::Fingerprint(snapshot.properties.filePath) == wanted;
}

/// What a process leaves that dies while it writes or removes a snapshot.
void RemoveLitter(const QString& folder)
{
    for (const QString& file : FilesIn(folder, RecoveryFile::UNFINISHED_SUFFIX))
        QFile::remove(file);
    for (const QString& file : FilesIn(folder, RecoveryStore::SAVING_SUFFIX)) {
        if (!QFile::exists(file.chopped(RecoveryStore::SAVING_SUFFIX.size())))
            QFile::remove(file);
    }
}

} // namespace

/// Empty folders go together with the claim.
struct RecoveryLeftovers::ClaimedFolder
{
    explicit ClaimedFolder(const QString& folder)
        : path(folder)
        , lock(folder + QLatin1Char('/') + RecoveryStore::LOCK_NAME)
    {
        lock.setStaleLockTime(0);
    }
    ~ClaimedFolder()
    {
        lock.unlock();
        QDir().rmdir(path);
    }

    QString path;
    QLockFile lock;
};

RecoveryLeftovers::RecoveryLeftovers() = default;

RecoveryLeftovers::~RecoveryLeftovers()
{
    m_claimed.clear();
    if (!m_folder.isEmpty())
        QDir().rmdir(m_folder); // only when it is empty
}

void RecoveryLeftovers::Claim(const QString& folder)
{
    m_folder = folder;
    const QStringList names
        = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString& name : names) {
        if (name != RecoveryStore::BROKEN_NAME)
            ClaimFolder(QStringLiteral("%1/%2").arg(folder, name));
    }
    std::stable_sort(
        m_leftovers.begin(), m_leftovers.end(), [](const Leftover& left, const Leftover& right) {
            return left.snapshot.time < right.snapshot.time;
        });
}

void RecoveryLeftovers::ClaimFolder(const QString& path)
{
    const QStringList files = SnapshotsIn(path);
    if (files.isEmpty() && MayBeginToLive(path))
        return;
    auto claimed = std::make_unique<ClaimedFolder>(path);
    if (!TakeOverLock(claimed->lock))
        return;
    for (const QString& file : files) {
        const std::optional<RecoverySnapshot> snapshot = RecoveryFile::Read(file);
        if (!snapshot)
            SetAside(file);
        else if (IsSaved(*snapshot, file))
            QFile::remove(file);
        else
            m_leftovers.push_back({*snapshot, file});
    }
    RemoveLitter(path);
    m_claimed.push_back(std::move(claimed));
}

void RecoveryLeftovers::SetAside(const QString& file)
{
    const QString folder = QStringLiteral("%1/%2").arg(m_folder, RecoveryStore::BROKEN_NAME);
    const QString target = QStringLiteral("%1/%2-%3")
                               .arg(folder, QFileInfo(QFileInfo(file).path()).fileName(),
                                   QFileInfo(file).fileName());
    if (QDir().mkpath(folder) && QFile::rename(file, target))
        Logger::Warning(
            QStringLiteral("Unsaved text could not be read and was set aside: %1").arg(target));
    else
        Logger::Warning(QStringLiteral("Unsaved text could not be read: %1").arg(file));
}

void RecoveryLeftovers::Remove(int index)
{
    const auto leftover = m_leftovers.begin() + index;
    if (!QFile::remove(leftover->file))
        Logger::Error(QStringLiteral("Failed to delete file: %1").arg(leftover->file));
    QFile::remove(leftover->file + RecoveryStore::SAVING_SUFFIX);
    m_leftovers.erase(leftover);
}

void RecoveryLeftovers::RemoveAll()
{
    while (!m_leftovers.empty())
        Remove(static_cast<int>(m_leftovers.size()) - 1);
}

void RecoveryLeftovers::Leave(int index)
{
    m_leftovers.erase(m_leftovers.begin() + index);
}
