#include "engine/Paths.h"

#include "engine/StartEnvironment.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace host {

namespace {

QString FindInstallDirectory()
{
    const QString given = qEnvironmentVariable("MAYA_LOCATION");
    if (!given.isEmpty())
        return QDir(given).absolutePath();
    const QString beside
        = QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1String("/.."));
    if (QFileInfo(beside + QLatin1String("/scripts")).isDir())
        return beside;
    return QStringLiteral(HOST_BUILD_DIR);
}

} // namespace

Paths::Paths(const QString& applicationDirectory)
    : m_applicationDirectory(applicationDirectory)
    , m_installDirectory(FindInstallDirectory())
{
    if (m_applicationDirectory.isEmpty())
        m_applicationDirectory = qEnvironmentVariable("MAYA_APP_DIR");
    if (m_applicationDirectory.isEmpty())
        m_applicationDirectory = QDir::homePath() + QLatin1String("/maya");
    m_applicationDirectory = QDir(m_applicationDirectory).absolutePath();
}

QString Paths::VersionDirectory() const
{
    return m_applicationDirectory + QLatin1Char('/') + QLatin1String(RELEASE);
}

QString Paths::PreferencesDirectory() const
{
    return VersionDirectory() + QLatin1String("/prefs");
}

QString Paths::UserScriptsDirectory() const
{
    return VersionDirectory() + QLatin1String("/scripts");
}

QString Paths::EnvironmentFile() const
{
    return VersionDirectory() + QLatin1String("/Maya.env");
}

QStringList Paths::ModulePath() const
{
    const QString own = QStringLiteral("/modules");
    return EnvironmentEntries("MAYA_MODULE_PATH")
        << VersionDirectory() + own << m_applicationDirectory + own << m_installDirectory + own;
}

QString Paths::TemporaryDirectory() const
{
    return QDir::tempPath();
}

QStringList Paths::ScriptPath() const
{
    QStringList path{UserScriptsDirectory(), m_applicationDirectory + QLatin1String("/scripts")};
    path += EnvironmentEntries("MAYA_SCRIPT_PATH");
    const QString own = m_installDirectory + QLatin1String("/scripts");
    path += own;
    for (const QString& folder : QDir(own).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        path += own + QLatin1Char('/') + folder;
    return path;
}

QString Paths::FindScript(const QString& name) const
{
    if (name.isEmpty())
        return {};
    QStringList candidates{name};
    // Beside "tool.mel" there may be a program or a folder called "tool".
    if (!name.endsWith(QLatin1String(".mel")))
        candidates.prepend(name + QLatin1String(".mel"));
    const QStringList folders = QDir::isAbsolutePath(name) ? QStringList{QString()} : ScriptPath();
    for (const QString& folder : folders) {
        for (const QString& candidate : qAsConst(candidates)) {
            const QString path
                = folder.isEmpty() ? candidate : folder + QLatin1Char('/') + candidate;
            if (QFileInfo(path).isFile())
                return QFileInfo(path).absoluteFilePath();
        }
    }
    return {};
}

QString Paths::CreateDirectories() const
{
    for (const QString& directory : {PreferencesDirectory(), UserScriptsDirectory()}) {
        if (!QDir().mkpath(directory))
            return QStringLiteral("Cannot create preferences folder \"%1\".").arg(directory);
    }
    if (!QFileInfo(PreferencesDirectory()).isWritable()) {
        return QStringLiteral("Preferences folder \"%1\" is read-only: settings will not be kept.")
            .arg(PreferencesDirectory());
    }
    return {};
}

} // namespace host
