#include "files/SafeFile.h"

#include "files/FileAttributes.h"
#include "files/PosixFile.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QMutex>
#include <QRandomGenerator>
#include <QSet>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int MAXIMUM_LINKS = 40;
constexpr int MAXIMUM_ATTEMPTS = 100;
/// More than this is not held in memory to be put back.
constexpr off_t MAXIMUM_KEPT = 1 << 30; // bytes
/// Of a name, so that what is put around it fits into the 255 that there are.
constexpr int MAXIMUM_NAME = 200; // bytes
constexpr mode_t PRIVATE_FILE = 0600;
constexpr mode_t NEW_FILE = 0666; // the user's mask takes from it
/// ".<name>.te2-save-<six digits>"
const QByteArray TEMPORARY_MARK = QByteArrayLiteral(".te2-save-");
constexpr int TEMPORARY_DIGITS = 6;

QByteArray FolderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

/// The file itself, also where the last link leads to one that is not there yet.
QByteArray FollowLinks(QByteArray path)
{
    for (int i = 0; i < MAXIMUM_LINKS; ++i) {
        QByteArray target(4096, '\0');
        const ssize_t length = ::readlink(path.constData(), target.data(), target.size());
        if (length <= 0)
            break;
        target.resize(static_cast<int>(length));
        path = target.startsWith('/') ? target : FolderOf(path) + target;
    }
    return path;
}

QByteArray TemporaryName(const QByteArray& target)
{
    const quint32 number = QRandomGenerator::global()->bounded(0x1000000u);
    return FolderOf(target) + '.' + target.mid(FolderOf(target).size()).left(MAXIMUM_NAME)
        + TEMPORARY_MARK + QByteArray::number(number, 16).rightJustified(TEMPORARY_DIGITS, '0');
}

/// The file that is written beside the old one; gone with the object unless it took its place. It
/// is locked meanwhile, and so nobody takes it for a leftover.
class TemporaryFile
{
public:
    TemporaryFile(const QByteArray& target, mode_t mode)
    {
        for (int i = 0; i < MAXIMUM_ATTEMPTS && !Create(TemporaryName(target), mode); ++i) {
            if (errno != EEXIST)
                break;
        }
    }
    ~TemporaryFile()
    {
        const int reason = errno;
        if (m_file.IsOpen() && !m_moved)
            ::unlink(m_path.constData());
        errno = reason;
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    PosixFile& File() { return m_file; }
    bool MoveTo(const QByteArray& target)
    {
        m_moved = ::rename(m_path.constData(), target.constData()) == 0;
        return m_moved;
    }

private:
    bool Create(const QByteArray& path, mode_t mode)
    {
        m_path = path;
        m_file = PosixFile(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
        if (!m_file.IsOpen())
            return false;
        struct stat state = {};
        ::flock(m_file.GetDescriptor(), LOCK_EX);
        // Somebody who cleaned up was faster than the lock.
        if (::fstat(m_file.GetDescriptor(), &state) == 0 && state.st_nlink > 0)
            return true;
        m_file.Close();
        errno = EEXIST;
        return false;
    }

    QByteArray m_path;
    PosixFile m_file;
    bool m_moved = false;
};

/// What killed processes left, once in each folder.
void RemoveLeftovers(const QByteArray& folder)
{
    static QMutex mutex;
    static QSet<QByteArray> cleaned;
    const QMutexLocker locker(&mutex);
    if (cleaned.contains(folder))
        return;
    cleaned.insert(folder);
    const QString pattern = QLatin1String(".*") + QLatin1String(TEMPORARY_MARK)
        + QString(TEMPORARY_DIGITS, QLatin1Char('?'));
    const QDir directory(QFile::decodeName(folder));
    const auto filter = QDir::Files | QDir::Hidden | QDir::NoSymLinks;
    for (const QString& name : directory.entryList({pattern}, filter)) {
        const QByteArray path = folder + QFile::encodeName(name);
        const PosixFile file(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK);
        if (file.IsOpen() && ::flock(file.GetDescriptor(), LOCK_EX | LOCK_NB) == 0)
            ::unlink(path.constData());
    }
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
    if (!temporary.File().IsOpen())
        return errno;
    if (old && !FileAttributes::Copy(target, *old, temporary.File().GetDescriptor()))
        return EPERM;
    if (!temporary.File().WriteAll(bytes) || !temporary.File().Sync() || !temporary.MoveTo(target))
        return errno;
    SyncFolder(FolderOf(target));
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

bool Overwrite(PosixFile& file, const QByteArray& bytes)
{
    return file.Rewind() && file.WriteAll(bytes)
        && ::ftruncate(file.GetDescriptor(), bytes.size()) == 0 && file.Sync();
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
    if (Overwrite(file, bytes))
        return 0;
    const int reason = errno;
    Overwrite(file, before);
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
    RemoveLeftovers(FolderOf(target));
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
