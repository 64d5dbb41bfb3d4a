#include "views/explorer/WorkspaceFile.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

namespace {

constexpr int VERSION = 1;
constexpr qint64 MAXIMUM_SIZE = 16 * 1024 * 1024; // bytes

const QString& VersionKey()
{
    static const QString KEY = QStringLiteral("version");
    return KEY;
}

const QString& FoldersKey()
{
    static const QString KEY = QStringLiteral("folders");
    return KEY;
}

/// Relative to the file's own folder where possible, so that both can move together.
QString StoredPath(const QString& folder, const QDir& directory)
{
    const QString relative = directory.relativeFilePath(folder);
    const bool below = relative != QLatin1String("..") && !relative.startsWith(QLatin1String("../"))
        && QDir::isRelativePath(relative);
    return below ? relative : folder;
}

} // namespace

WorkspaceFile::Result WorkspaceFile::Read(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        return Result::Missing;
    if (!file.open(QIODevice::ReadOnly) || file.size() > MAXIMUM_SIZE)
        return Result::Unreadable;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    const QJsonValue folders = document.object().value(FoldersKey());
    if (!document.isObject() || !(folders.isArray() || folders.isUndefined()))
        return Result::Unreadable;
    m_object = document.object();
    m_folders.clear();
    const QDir directory = QFileInfo(path).absoluteDir();
    const QJsonArray entries = folders.toArray();
    for (const QJsonValue& entry : entries) {
        const QString folder = QDir::cleanPath(directory.absoluteFilePath(entry.toString()));
        if (!entry.toString().isEmpty() && !m_folders.contains(folder))
            m_folders.append(folder);
    }
    return Result::Ok;
}

bool WorkspaceFile::Write(const QString& path) const
{
    const QDir directory = QFileInfo(path).absoluteDir();
    QJsonArray folders;
    for (const QString& folder : m_folders)
        folders.append(StoredPath(folder, directory));
    QJsonObject object = m_object;
    object.insert(VersionKey(), VERSION);
    object.insert(FoldersKey(), folders);
    QSaveFile file(path);
    const QByteArray bytes = QJsonDocument(object).toJson();
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

bool WorkspaceFile::IsNewer() const
{
    return m_object.value(VersionKey()).toInt(VERSION) > VERSION;
}
