#include "files/FileTasks.h"

#include "files/PosixFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int LONGEST_NAME = 255; // bytes, of every usual file system
constexpr mode_t NEW_FILE = 0666;

QString Tr(const char* text)
{
    return QCoreApplication::translate("FileTasks", text);
}

/// Also for a link that leads nowhere.
bool IsTaken(const QByteArray& path)
{
    struct stat status;
    return lstat(path.constData(), &status) == 0;
}

/// Some file systems cannot refuse to replace; there the look comes first.
bool RenameOnly(const QByteArray& from, const QByteArray& to)
{
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    if (IsTaken(to)) {
        errno = EEXIST;
        return false;
    }
    return rename(from.constData(), to.constData()) == 0;
}

bool Answer(bool succeeded, QString& reason)
{
    if (!succeeded)
        reason = qt_error_string(errno);
    return succeeded;
}

} // namespace

QString FileTasks::FaultOfName(const QString& folder, const QString& name, const QString& ownPath)
{
    if (name.trimmed().isEmpty())
        return Tr("A name is needed");
    if (name.contains(QLatin1Char('/')) || name.contains(QChar(0)))
        return Tr("A name cannot contain \"/\"");
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return Tr("\".\" and \"..\" are no names");
    if (QFile::encodeName(name).size() > LONGEST_NAME)
        return Tr("The name is too long");
    const QString path = QDir(folder).filePath(name);
    if (path != ownPath && IsTaken(QFile::encodeName(path)))
        return Tr("There is something of that name already");
    return QString();
}

bool FileTasks::CreateFile(const QString& path, QString& reason)
{
    const PosixFile file(
        QFile::encodeName(path), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NEW_FILE);
    return Answer(file.IsOpen(), reason);
}

bool FileTasks::CreateFolder(const QString& path, QString& reason)
{
    return Answer(mkdir(QFile::encodeName(path).constData(), ACCESSPERMS) == 0, reason);
}

bool FileTasks::Rename(const QString& from, const QString& to, QString& reason)
{
    const bool succeeded = RenameOnly(QFile::encodeName(from), QFile::encodeName(to));
    const int error = errno;
    Answer(succeeded, reason);
    errno = error;
    return succeeded;
}

bool FileTasks::Move(const QString& from, const QString& to, QString& reason)
{
    if (Rename(from, to, reason))
        return true;
    const QFileInfo info(from);
    if (errno != EXDEV || !info.isFile() || info.isSymLink())
        return false;
    QFile file(from);
    if (file.rename(to))
        return true;
    reason = file.errorString();
    return false;
}

bool FileTasks::Remove(const QString& path, QString& reason)
{
    const QFileInfo info(path);
    if (!info.isDir() || info.isSymLink())
        return Answer(unlink(QFile::encodeName(path).constData()) == 0, reason);
    errno = 0;
    if (QDir(path).removeRecursively())
        return true;
    reason = errno == 0 ? Tr("not everything in it could be removed") : qt_error_string(errno);
    return false;
}
