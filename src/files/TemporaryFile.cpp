#include "files/TemporaryFile.h"

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QRandomGenerator>
#include <QSet>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int MAXIMUM_ATTEMPTS = 100;
/// Of a name, so that what is put around it fits into the 255 that there are.
constexpr int MAXIMUM_NAME = 200; // bytes
/// ".<name>.te2-save-<six digits>"
const QByteArray TEMPORARY_MARK = QByteArrayLiteral(".te2-save-");
constexpr int TEMPORARY_DIGITS = 6;

QByteArray TemporaryName(const QByteArray& target)
{
    const QByteArray folder = TemporaryFile::FolderOf(target);
    const quint32 number = QRandomGenerator::global()->bounded(0x1000000u);
    return folder + '.' + target.mid(folder.size()).left(MAXIMUM_NAME) + TEMPORARY_MARK
        + QByteArray::number(number, 16).rightJustified(TEMPORARY_DIGITS, '0');
}

} // namespace

TemporaryFile::TemporaryFile(const QByteArray& target, mode_t mode)
{
    for (int i = 0; i < MAXIMUM_ATTEMPTS && !Create(TemporaryName(target), mode); ++i) {
        if (errno != EEXIST)
            break;
    }
}

TemporaryFile::~TemporaryFile()
{
    const int reason = errno;
    if (m_file.IsOpen() && !m_isMoved)
        ::unlink(m_path.constData());
    errno = reason;
}

bool TemporaryFile::Create(const QByteArray& path, mode_t mode)
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

bool TemporaryFile::MoveTo(const QByteArray& target)
{
    m_isMoved = std::rename(m_path.constData(), target.constData()) == 0;
    return m_isMoved;
}

QByteArray TemporaryFile::FolderOf(const QByteArray& path)
{
    return path.left(path.lastIndexOf('/') + 1);
}

void TemporaryFile::RemoveLeftovers(const QByteArray& folder)
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
