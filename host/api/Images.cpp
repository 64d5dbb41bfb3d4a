#include "api/Images.h"

#include "engine/Engine.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

namespace host::api {

namespace {

/// Where icons are looked for; entries of the variable end in the placeholder "/%B".
QStringList IconFolders()
{
    QStringList folders;
    const QStringList entries
        = qEnvironmentVariable("XBMLANGPATH").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (QString entry : entries) {
        if (entry.endsWith(QLatin1String("/%B")))
            entry.chop(3);
        folders += entry;
    }
    if (Engine::Exists())
        folders += Engine::Current().paths.InstallDirectory() + QStringLiteral("/icons");
    return folders;
}

/// "" when there is no such file.
QString FindImage(const QString& name)
{
    QStringList candidates;
    const QString resource = name.startsWith(QLatin1Char(':')) ? name : QLatin1Char(':') + name;
    candidates << resource << QStringLiteral(":/") + name;
    if (QDir::isAbsolutePath(name))
        candidates += name;
    for (const QString& folder : IconFolders())
        candidates += QDir(folder).filePath(name);
    for (const QString& candidate : qAsConst(candidates)) {
        if (QFileInfo(candidate).isFile())
            return candidate;
    }
    return {};
}

} // namespace

QPixmap FindPixmap(const QString& name, double scale)
{
    const bool hasWindows = qobject_cast<QGuiApplication*>(QCoreApplication::instance())
        && !(Engine::Exists() && Engine::Current().IsBatch());
    const QString path = hasWindows && !name.isEmpty() ? FindImage(name) : QString();
    if (path.isEmpty())
        return {};
    const QPixmap pixmap(path);
    if (pixmap.isNull() || qFuzzyCompare(scale, 1.0))
        return pixmap;
    return pixmap.scaled(pixmap.size() * scale, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace host::api
