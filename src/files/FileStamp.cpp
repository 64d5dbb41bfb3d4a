#include "files/FileStamp.h"

#include <QFile>

#include <sys/stat.h>
#include <tuple>

namespace {

qint64 Nanoseconds(const timespec& time)
{
    return qint64(time.tv_sec) * 1000000000 + time.tv_nsec;
}

auto Tie(const FileStamp& stamp)
{
    return std::tie(
        stamp.isFile, stamp.device, stamp.inode, stamp.size, stamp.modified, stamp.changed);
}

} // namespace

FileStamp FileStamp::Of(const QString& path)
{
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return {true, status.st_dev, status.st_ino, status.st_size, Nanoseconds(status.st_mtim),
        Nanoseconds(status.st_ctim)};
}

bool operator==(const FileStamp& left, const FileStamp& right)
{
    return Tie(left) == Tie(right);
}
