#include "files/SafeFile.h"

#include "files/FileAttributes.h"
#include "files/InterruptedSave.h"
#include "files/PosixFile.h"
#include "files/TemporaryFile.h"

#include <QByteArray>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int MAXIMUM_LINKS = 40;
/// More than this is not held in memory to be put back.
constexpr off_t MAXIMUM_KEPT = 1 << 30; // bytes
constexpr mode_t PRIVATE_FILE = 0600;
constexpr mode_t NEW_FILE = 0666; // the user's mask takes from it

/// The file itself, also where the last link leads to one that is not there yet.
QByteArray FollowLinks(QByteArray path)
{
    for (int i = 0; i < MAXIMUM_LINKS; ++i) {
        QByteArray target(4096, '\0');
        const ssize_t length = ::readlink(path.constData(), target.data(), target.size());
        if (length <= 0)
            break;
        target.resize(static_cast<int>(length));
        path = target.startsWith('/') ? target : TemporaryFile::FolderOf(path) + target;
    }
    return path;
}

/// The new name is on the disk, too. Not every file system can say so.
void SyncFolder(const QByteArray& folder)
{
    PosixFile directory(folder.isEmpty() ? QByteArrayLiteral(".") : folder, O_RDONLY | O_DIRECTORY);
    if (directory.IsOpen())
        directory.Sync();
}

/// 0, or the reason; `old` is null for a file that is not there yet.
int Replace(const QByteArray& target, const QByteArray& bytes, const struct stat* old)
{
    TemporaryFile temporary(target, old ? PRIVATE_FILE : NEW_FILE);
    if (!temporary.GetFile().IsOpen())
        return errno;
    if (old && !FileAttributes::Copy(target, *old, temporary.GetFile().GetDescriptor()))
        return EPERM;
    if (!temporary.GetFile().WriteAll(bytes) || !temporary.GetFile().Sync()
        || !temporary.MoveTo(target))
        return errno;
    SyncFolder(TemporaryFile::FolderOf(target));
    return 0;
}

bool IsFileReplaceable(const struct stat& old)
{
    return S_ISREG(old.st_mode) && old.st_nlink == 1;
}

/// Whether a file that could not be replaced for this reason may be writable all the same.
bool MayBeWritable(int reason)
{
    switch (reason) {
    case EACCES:
    case EBUSY:
    case ENAMETOOLONG:
    case EPERM:
    case EROFS:
    case EXDEV: return true;
    default: return false;
    }
}

/// Makes room without changing what is read. A file system that cannot says so in another way when
/// the bytes are written.
bool Reserve(const PosixFile& file, int size)
{
    return size == 0 || ::fallocate(file.GetDescriptor(), FALLOC_FL_KEEP_SIZE, 0, size) == 0
        || (errno != ENOSPC && errno != EDQUOT && errno != EFBIG);
}

int WriteInPlace(const QByteArray& target, const QByteArray& bytes, const struct stat& old)
{
    // Nobody may read from a pipe: that must not stop the program.
    PosixFile file(target, O_WRONLY | O_NOFOLLOW | O_NONBLOCK);
    if (!file.IsOpen())
        return errno;
    if (!S_ISREG(old.st_mode))
        return file.WriteAll(bytes) ? 0 : errno;
    if (old.st_size > MAXIMUM_KEPT)
        return EFBIG;
    QByteArray before;
    PosixFile reader(target, O_RDONLY | O_NOFOLLOW);
    if (!reader.IsOpen() || !reader.ReadAll(before) || !Reserve(file, bytes.size()))
        return errno;
    InterruptedSave both(target, before, bytes);
    if (file.WriteOver(bytes))
        return 0;
    const int reason = errno;
    if (!file.WriteOver(before))
        both.Keep();
    return reason;
}

int Save(const QByteArray& target, const QByteArray& bytes)
{
    struct stat old = {};
    const bool exists = ::stat(target.constData(), &old) == 0;
    if (!exists && errno != ENOENT)
        return errno;
    if (exists && S_ISDIR(old.st_mode))
        return EISDIR;
    // A folder that is open must not be a way around a file that is closed.
    if (exists && ::faccessat(AT_FDCWD, target.constData(), W_OK, AT_EACCESS) != 0)
        return errno;
    TemporaryFile::RemoveLeftovers(TemporaryFile::FolderOf(target));
    if (exists && !IsFileReplaceable(old))
        return WriteInPlace(target, bytes, old);
    const int reason = Replace(target, bytes, exists ? &old : nullptr);
    return exists && MayBeWritable(reason) ? WriteInPlace(target, bytes, old) : reason;
}

} // namespace

bool SafeFile::Write(const QString& path, const QByteArray& bytes, QString& reason)
{
    const int error = Save(FollowLinks(QFile::encodeName(path)), bytes);
    if (error != 0)
        reason = qt_error_string(error);
    return error == 0;
}
