#include "files/FileAttributes.h"

#include <QByteArray>
#include <QList>

#include <cerrno>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

constexpr mode_t PERMISSIONS = 07777;
const char* const ACCESS_LIST = "system.posix_acl_access";

QList<QByteArray> AttributeNames(const QByteArray& path)
{
    const ssize_t size = ::listxattr(path.constData(), nullptr, 0);
    if (size <= 0)
        return {};
    QByteArray names(static_cast<int>(size), '\0');
    const ssize_t got = ::listxattr(path.constData(), names.data(), names.size());
    names.resize(static_cast<int>(qMax<ssize_t>(got, 0)));
    return names.split('\0');
}

bool CopyAttribute(const QByteArray& path, const QByteArray& name, int descriptor)
{
    const ssize_t size = ::getxattr(path.constData(), name.constData(), nullptr, 0);
    if (size < 0)
        return errno == ENODATA;
    QByteArray value(static_cast<int>(size), '\0');
    return ::getxattr(path.constData(), name.constData(), value.data(), value.size()) == size
        && ::fsetxattr(descriptor, name.constData(), value.constData(), value.size(), 0) == 0;
}

/// The others belong to the system, which gives a new file its own.
bool IsOfPeople(const QByteArray& name)
{
    return name.startsWith("user.") || name == ACCESS_LIST;
}

} // namespace

bool FileAttributes::Copy(const QByteArray& path, const struct stat& old, int descriptor)
{
    struct stat current = {};
    if (::fstat(descriptor, &current) != 0)
        return false;
    const bool isOurs = current.st_uid == old.st_uid && current.st_gid == old.st_gid;
    // The permissions come second: with the owner some of them go.
    if ((!isOurs && ::fchown(descriptor, old.st_uid, old.st_gid) != 0)
        || ::fchmod(descriptor, old.st_mode & PERMISSIONS) != 0)
        return false;
    const QList<QByteArray> names = AttributeNames(path);
    // A list that the folder hands to its new files is not the old file's.
    if (!names.contains(ACCESS_LIST))
        ::fremovexattr(descriptor, ACCESS_LIST);
    for (const QByteArray& name : names) {
        if (IsOfPeople(name) && !CopyAttribute(path, name, descriptor))
            return false;
    }
    return true;
}
