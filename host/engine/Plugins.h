#pragma once

#include "engine/Script.h"

#include <map>
#include <memory>
#include <vector>

namespace host {

/// A loaded plug-in. Its address is what an API object handle points to; it stays valid until the
/// plug-in is unloaded.
struct Plugin
{
    QString name; ///< file name without directory and suffix
    QString path; ///< absolute
    QString vendor = QStringLiteral("Unknown");
    QString version = QStringLiteral("Unknown");
    QString apiVersion = QStringLiteral("Any");
    QStringList commands; ///< registered by it and not deregistered since
    void* library = nullptr; ///< the loader's handle
    bool unloading = false; ///< its exit point is running
};

/// Opens, starts, stops and closes plug-in files: the part that knows the API.
class PluginLoader
{
public:
    virtual ~PluginLoader() = default;
    /// Opens plugin.path and runs its entry point. On failure everything it registered is gone and
    /// the file is closed again.
    virtual Outcome Load(Plugin& plugin) = 0;
    /// Runs the exit point and closes the file. On failure the plug-in stays loaded, unless forced.
    virtual Outcome Unload(Plugin& plugin, bool force) = 0;
    /// Why only force would unload it now; null when nothing is in the way.
    virtual QString Obstacle(const Plugin&) const { return {}; }
};

/// The plug-ins of this process. Main thread only.
class Plugins
{
public:
    /// Who loads libraries.
    void SetLoader(std::unique_ptr<PluginLoader> loader)
    {
        SetLoader(LibrarySuffix(), std::move(loader));
    }
    /// Who loads the files with a suffix; null when nobody does any more.
    void SetLoader(const QString& suffix, std::unique_ptr<PluginLoader> loader);

    static QString LibrarySuffix() { return QStringLiteral(".so"); }
    static QString ScriptSuffix() { return QStringLiteral(".py"); }

    /// Absolute path of the file that `nameOrPath` means: as it is, in the current directory, or
    /// along MAYA_PLUG_IN_PATH; the suffix ".so" or ".py" may be missing. Empty when there is none.
    static QString FindFile(const QString& nameOrPath);

    /// The plug-in's name, which is the file's unless another is wanted. An error when it cannot be
    /// loaded; loading again is `alreadyLoaded`.
    Outcome Load(
        const QString& nameOrPath, bool* alreadyLoaded = nullptr, const QString& wantedName = {});
    Outcome Unload(const QString& name, bool force);
    /// By name, file name or path. Null when it is not loaded.
    Plugin* Find(const QString& nameOrPath) const;
    QStringList Names() const;

    /// Plug-ins that a layout or the user wants loaded at every start, by name.
    QStringList autoload;

    static QString NameOf(const QString& path);

    QString Obstacle(const Plugin& plugin) const;
    static Error InUse(const Plugin& plugin, const QString& reason);

    /// Procedures (or functions) that get a plug-in's name when it was loaded, and before it is
    /// unloaded.
    QVector<Script> loadCallbacks;
    QVector<Script> unloadCallbacks;

private:
    void Forget(const Plugin* plugin);
    Plugin* FindPath(const QString& path) const;
    static void Tell(const QVector<Script>& callbacks, const QString& name);
    PluginLoader* LoaderOf(const QString& path) const;

    std::vector<std::unique_ptr<Plugin>> m_plugins;
    std::map<QString, std::unique_ptr<PluginLoader>> m_loaders; ///< by suffix
};

} // namespace host
