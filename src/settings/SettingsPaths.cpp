// Where the user's files are.

#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"

#include <QDir>

namespace {

/// Makes the directory unless it exists; a failure is only told, the caller goes on with the path.
void MakeDirectory(const QString& path, const QString& failure)
{
    if (!QDir(path).exists() && !QDir().mkpath(path))
        Logger::Error(failure);
}

QString ConfigSubdirectory(const QString& name, const QString& failure)
{
    const QString directory = Settings::GetUserConfigDirectory();
    if (directory.isEmpty())
        return QString();
    const QString path = QStringLiteral("%1/%2").arg(directory, name);
    MakeDirectory(path, failure);
    return path;
}

} // namespace

QString Settings::GetUserConfigDirectory()
{
    const QString preferences = MayaUtil::GetMayaPrefsDirectory();
    if (preferences.isEmpty()) {
        Logger::Error(QStringLiteral("Failed to retrieve Maya prefs directory"));
        return QString();
    }
    QString base = QDir::cleanPath(QDir(preferences).absolutePath());
    if (!base.endsWith(QLatin1Char('/')))
        base += QLatin1Char('/');
    const QString path = QStringLiteral("%1%2").arg(base, PREFS_DIRECTORY_NAME);
    MakeDirectory(path, QStringLiteral("Failed to create user config directory"));
    return path;
}

QString Settings::GetUserConfigPath()
{
    const QString directory = GetUserConfigDirectory();
    return directory.isEmpty() ? QString() : QDir(directory).absoluteFilePath(CONFIG_FILE_NAME);
}

QString Settings::GetInternalBufferDirectoryPath()
{
    return ConfigSubdirectory(INTERNAL_BUFFERS_DIRECTORY_NAME,
        QStringLiteral("Failed to create internal buffer directory"));
}

QString Settings::GetTempDirectoryPath()
{
    return ConfigSubdirectory(
        TEMP_DIRECTORY_NAME, QStringLiteral("Failed to create temp directory"));
}

QString Settings::GetWorkspacesDirectoryPath()
{
    return ConfigSubdirectory(
        WORKSPACES_DIRECTORY_NAME, QStringLiteral("Failed to create workspaces directory"));
}

QString Settings::GetDefaultWorkspacePath()
{
    const QString directory = GetWorkspacesDirectoryPath();
    if (directory.isEmpty())
        return QString();
    return QStringLiteral("%1/%2%3").arg(
        directory, DEFAULT_WORKSPACE_FILE_NAME, WORKSPACE_EXTENSION);
}

QString Settings::GetWorkspacePath()
{
    return workspacePath.isEmpty() ? GetDefaultWorkspacePath() : workspacePath;
}
