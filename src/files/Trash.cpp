#include "files/Trash.h"

#include "files/FileTasks.h"
#include "files/PosixFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr mode_t OWN_FOLDER = 0700;
constexpr mode_t OWN_FILE = 0600;
constexpr int MOST_TRIES = 10000; ///< names that may be taken

bool Look(const QString& path, struct stat& status)
{
    return lstat(QFile::encodeName(path).constData(), &status) == 0;
}

/// A link in its place could lead anywhere.
bool IsOwnFolder(const QString& path)
{
    struct stat status;
    return Look(path, status) && S_ISDIR(status.st_mode) && status.st_uid == getuid();
}

bool MakeOwnFolder(const QString& path)
{
    return mkdir(QFile::encodeName(path).constData(), OWN_FOLDER) == 0
        || (errno == EEXIST && IsOwnFolder(path));
}

QString HomeTrash()
{
    const QString data = QFile::decodeName(qgetenv("XDG_DATA_HOME"));
    const bool isSet = QDir::isAbsolutePath(data);
    return (isSet ? data : QDir::homePath() + QStringLiteral("/.local/share"))
        + QStringLiteral("/Trash");
}

/// The uppermost folder on the file system that the thing is on.
QString TopFolder(const QString& path, dev_t device)
{
    QString top = QFileInfo(path).path();
    struct stat status;
    while (top != QLatin1String("/")) {
        const QString above = QFileInfo(top).path();
        if (!Look(above, status) || status.st_dev != device)
            break;
        top = above;
    }
    return top;
}

/// The one that all users share counts only where they cannot touch each other's things.
QString TrashAtTop(const QString& top)
{
    const QString user = QString::number(getuid());
    const QString shared = QDir(top).filePath(QStringLiteral(".Trash"));
    struct stat status;
    if (Look(shared, status) && S_ISDIR(status.st_mode) && (status.st_mode & S_ISVTX)) {
        const QString own = QDir(shared).filePath(user);
        if (MakeOwnFolder(own))
            return own;
    }
    const QString own = QDir(top).filePath(QStringLiteral(".Trash-") + user);
    return MakeOwnFolder(own) ? own : QString();
}

QByteArray InfoOf(const QString& path)
{
    return "[Trash Info]\nPath=" + QUrl::toPercentEncoding(path, "/") + "\nDeletionDate="
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddThh:mm:ss")).toLatin1()
        + '\n';
}

/// The note of where it came from comes first: it also keeps the name free for the thing.
bool MoveTo(const QString& trash, const QString& path, const QByteArray& info)
{
    if (!MakeOwnFolder(trash + QStringLiteral("/files"))
        || !MakeOwnFolder(trash + QStringLiteral("/info")))
        return false;
    const QString name = QFileInfo(path).fileName();
    for (int i = 1; i < MOST_TRIES; ++i) {
        const QString free = i == 1 ? name : QStringLiteral("%1.%2").arg(name, QString::number(i));
        const QByteArray note
            = QFile::encodeName(QStringLiteral("%1/info/%2.trashinfo").arg(trash, free));
        PosixFile file(note, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, OWN_FILE);
        if (!file.IsOpen() && errno == EEXIST)
            continue;
        if (!file.IsOpen())
            return false;
        QString reason;
        if (file.WriteAll(info)
            && FileTasks::Rename(path, QStringLiteral("%1/files/%2").arg(trash, free), reason))
            return true;
        const bool isTaken = errno == EEXIST;
        unlink(note.constData());
        if (!isTaken)
            return false;
    }
    return false;
}

} // namespace

bool Trash::Take(const QString& path)
{
    struct stat status;
    struct stat home;
    if (!Look(path, status))
        return false;
    const QString trash = HomeTrash();
    QDir().mkpath(QFileInfo(trash).path());
    if (Look(QFileInfo(trash).path(), home) && home.st_dev == status.st_dev)
        return MakeOwnFolder(trash) && MoveTo(trash, path, InfoOf(path));
    const QString top = TopFolder(path, status.st_dev);
    const QString atTop = TrashAtTop(top);
    return !atTop.isEmpty() && MoveTo(atTop, path, InfoOf(QDir(top).relativeFilePath(path)));
}
