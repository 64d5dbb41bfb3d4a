#pragma once

#include <QFileInfo>
#include <QMimeData>
#include <QStringList>
#include <QUrl>

/// Absolute, clean paths and how they lie to each other.
namespace WorkspacePaths {

inline QString ChildPath(const QString& folder, const QString& name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

/// Also for the folder itself.
inline bool IsBelow(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(ChildPath(folder, QString()));
}

inline QString ParentPath(const QString& path)
{
    return QFileInfo(path).path();
}

/// Where to wait for a folder to come or go: beside it, or as near as there is anything.
inline QString NearestFolderAbove(const QString& path)
{
    QString above = QFileInfo(path).path();
    while (above != QLatin1String("/") && !QFileInfo::exists(above))
        above = QFileInfo(above).path();
    return above;
}

/// The local folders among the dragged places.
inline QStringList DroppedFolders(const QMimeData* data)
{
    QStringList folders;
    const QList<QUrl> urls = data->urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isDir())
            folders.append(url.toLocalFile());
    }
    return folders;
}

/// Where what was at `path` is now that `from` has become `to`.
inline QString Moved(const QString& path, const QString& from, const QString& to)
{
    return IsBelow(path, from) ? to + path.mid(from.size()) : path;
}

} // namespace WorkspacePaths
