#include "views/FolderListing.h"

#include "views/NaturalOrder.h"

#include <QCryptographicHash>
#include <QDirIterator>

#include <algorithm>

namespace {

bool IsCompiledPython(const QFileInfo& info)
{
    if (info.isDir())
        return info.fileName() == QLatin1String("__pycache__");
    const QString suffix = info.suffix().toLower();
    return suffix == QLatin1String("pyc") || suffix == QLatin1String("pyo");
}

bool LeadsUpwards(const QFileInfo& link)
{
    const QString target = link.canonicalFilePath();
    const QString here = QFileInfo(link.path()).canonicalFilePath();
    return here == target || here.startsWith(target + QLatin1Char('/'))
        || target == QLatin1String("/");
}

} // namespace

QVector<FolderListing::Entry> FolderListing::Read(const QString& path, bool hideCompiledPython)
{
    QVector<Entry> entries;
    QDirIterator iterator(
        path, QDir::Dirs | QDir::Files | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (iterator.hasNext()) {
        iterator.next();
        const QFileInfo info = iterator.fileInfo();
        if (hideCompiledPython && IsCompiledPython(info))
            continue;
        const bool folder = info.isDir();
        entries.append(
            {info.fileName(), folder, folder && !(info.isSymLink() && LeadsUpwards(info))});
    }
    std::sort(entries.begin(), entries.end(), [](const Entry& left, const Entry& right) {
        return left.folder != right.folder ? left.folder : NaturalLess(left.name, right.name);
    });
    return entries;
}

QByteArray FolderListing::Hash(const QString& path)
{
    const QString absolute = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    return QCryptographicHash::hash(absolute.toUtf8(), QCryptographicHash::Md5);
}
