#pragma once

#include <QString>
#include <QStringList>

namespace host {

/// Where the host reads and writes. All directories are absolute, without a closing slash.
class Paths
{
public:
    /// `applicationDirectory` empty: MAYA_APP_DIR, or "maya" in the user's home.
    explicit Paths(const QString& applicationDirectory = {});

    QString ApplicationDirectory() const { return m_applicationDirectory; }
    QString VersionDirectory() const; ///< <application>/2024
    QString PreferencesDirectory() const; ///< <application>/2024/prefs
    QString UserScriptsDirectory() const; ///< <application>/2024/scripts
    QString TemporaryDirectory() const;
    QString EnvironmentFile() const; ///< <application>/2024/Maya.env
    /// Folders in which module files are looked for: MAYA_MODULE_PATH, then the user's own.
    QStringList ModulePath() const;
    /// Holds scripts/, python/ and icons/ of the host itself: MAYA_LOCATION, or the folder beside
    /// the program, or the build folder.
    QString InstallDirectory() const { return m_installDirectory; }

    /// Folders in which MEL files are looked for: the user's first, then MAYA_SCRIPT_PATH, then the
    /// host's own folder and the folders in it.
    QStringList ScriptPath() const;
    /// Absolute path of a file found along the script path ("" when absent); the suffix ".mel" may
    /// be missing.
    QString FindScript(const QString& name) const;

    /// Makes the preferences folders. Empty on success, else what went wrong.
    QString CreateDirectories() const;

private:
    QString m_applicationDirectory;
    QString m_installDirectory;
};

/// The release this program stands in for.
constexpr int API_VERSION = 20240000;
constexpr const char* RELEASE = "2024";

} // namespace host
